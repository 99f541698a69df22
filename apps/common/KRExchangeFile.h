#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

class KRGPXConfiguredTrackList;

/**
 * Turns tracks into the bytes of files that other programs read: GPX, KML and KMZ.
 */
class KRExchangeFile
{
public:
    static QList<QByteArray> formats() { return {"gpx", "kml", "kmz"}; }

    /// The format of formats() that the suffix stands for, empty for any other.
    static QByteArray formatOf(const QString &fileName);

    /// @param format one of formatOf(); @p name is that of the KML document. Null when it fails.
    static QByteArray encode(const KRGPXConfiguredTrackList &tracks, const QByteArray &format, const QString &name);
};
