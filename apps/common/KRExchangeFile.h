#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>

#include <functional>

class KRErrorHistory;
class KRGPXConfiguredTrackList;

/**
 * Turns tracks into the bytes of files that other programs read: GPX, KML and KMZ.
 *
 * KML is read again, as the tracks may be more than what is read of it: such a file would be of no use to us any more.
 */
class KRExchangeFile
{
    Q_DECLARE_TR_FUNCTIONS(KRExchangeFile)

public:
    static QList<QByteArray> formats() { return {"gpx", "kml", "kmz"}; }

    /// The format of formats() that the suffix stands for, empty for any other.
    static QByteArray formatOf(const QString &fileName);

    /// @param format one of formatOf(); @p name is that of the KML document. Null when it fails. The reason is
    /// reported, and otherwise what the tracks have that is not in the file. Null without a reason when @p goOn, which
    /// is asked before each track in the same thread, says so.
    static QByteArray encode(const KRGPXConfiguredTrackList &tracks, const QByteArray &format, const QString &name,
                             KRErrorHistory *history, const std::function<bool()> &goOn = nullptr);

private:
    using GoOn = std::function<bool()>;

    static QByteArray encodeGpx(const KRGPXConfiguredTrackList &tracks, const QString &name, KRErrorHistory *history,
                                const GoOn &goOn);
    static QByteArray encodeKml(const KRGPXConfiguredTrackList &tracks, const QByteArray &format, const QString &name,
                                KRErrorHistory *history, const GoOn &goOn);
    static bool isReadable(const QByteArray &kml, const QString &name, KRErrorHistory *history);
    static void reportUnreadable(const QString &name, const QString &reason, KRErrorHistory *history);
    static QString tooLarge(int mostBytes);
};
