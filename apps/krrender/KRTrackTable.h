#pragma once

#include <KRGeoLocation/KRGPXConfiguredTrackList.h>

#include <QCoreApplication>
#include <QString>

class KRErrorHistory;
class KRImportReport;

/**
 * Tells of tracks in numbers, one after the other: as a table for people or as JSON for programs.
 */
class KRTrackTable
{
    Q_DECLARE_TR_FUNCTIONS(KRTrackTable)

public:
    explicit KRTrackTable(const KRGPXConfiguredTrackList &tracks) : m_tracks(tracks) { }

    /// Columns aligned with blanks, a head line, every line ends with a line break. Long names are cut.
    QString toText() const;

    /**
     * An object with "tracks" and "problems" (file, line, column, reason). Coordinates are decimal degrees,
     * lengths kilometres, elevations metres, speeds kilometres an hour, times ISO 8601 in UTC; what a track does not
     * have is null. Problems out of a report, parts of a file that are not drawn, also have a kind, a name and a count.
     */
    QByteArray toJson(const KRErrorHistory &problems, const QList<KRImportReport> &reports) const;

private:
    KRGPXConfiguredTrackList m_tracks;
};
