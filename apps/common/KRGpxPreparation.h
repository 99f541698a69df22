#pragma once

#include "KRGpxNames.h"
#include "KRImportReport.h"

#include <KRGeoLocation/KRGPXReadingOptions.h>
#include <KRGeoLocation/KRGPXTrack.h>

#include <QFileInfo>

class KRErrorHistory;
class KRXmlStream;

/**
 * Finds in a GPX file what the importer passes over: waypoints ("wpt"), which become tracks of one point, and routes
 * ("rte"), which become lines. Tracks, routes and waypoints without a readable position go to the report.
 *
 * It also finds out how the importer has to read the tracks.
 */
class KRGpxPreparation
{
    Q_DECLARE_TR_FUNCTIONS(KRGpxPreparation)

public:
    explicit KRGpxPreparation(const QFileInfo &file) : m_file(file), m_report(file.filePath()) { }

    /// False when the file cannot be read; the reason is reported then.
    bool read(KRErrorHistory *history);

    /// Whether it cannot be read for nothing but the number of waypoints and routes, or the length of their texts.
    bool areTracksReadable() const { return m_areTracksReadable; }
    /// The waypoints, then the routes, each in the order of the file.
    QList<KRGPXTrack> tracks() const { return m_wayPoints + m_routes; }
    /// Of the tracks in the file.
    KRGPXReadingOptions readingOptions() const { return {true, m_names.prefixes(), true}; }
    /// The document without its faults; null for one that has none.
    const QByteArray &mendedXml() const { return m_mendedXml; }
    const KRImportReport &report() const { return m_report; }

private:
    /// The points of a track or a route.
    struct PointCount {
        int readable = 0;
        int unreadable = 0;
        int firstUnreadableLine = 0;

        void add(bool isReadable, int line);
    };

    void readDocument(KRXmlStream &stream);
    void readTrack(KRXmlStream &stream);
    void readSegment(KRXmlStream &stream, PointCount *count);
    void readWayPoint(KRXmlStream &stream);
    void readRoute(KRXmlStream &stream);
    void checkCounts(KRXmlStream &stream);
    void refuseBesidesTracks(KRXmlStream &stream, const QString &reason);
    void countTexts(KRXmlStream &stream, const QString &a, const QString &b, const QString &c);
    void report(KRImportReport::Kind kindOfWhole, int line, const QString &name, const PointCount &count);

    QFileInfo m_file;
    QByteArray m_mendedXml;
    KRGpxNames m_names;
    QList<KRGPXTrack> m_wayPoints;
    QList<KRGPXTrack> m_routes;
    bool m_areTracksReadable = false;
    int m_wayPointNumber = 0; // of all in the file, also those that are left out
    int m_routeNumber = 0;
    int m_routePointNumber = 0;
    int m_trackNumber = 0;
    int m_segmentNumber = 0;
    qint64 m_keptCharacters = 0;
    KRImportReport m_report;
};
