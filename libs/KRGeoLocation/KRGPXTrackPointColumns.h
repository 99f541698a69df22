#pragma once

#include "KRGPXCommaText.h"
#include "KRGPXTrackSegment.h"

#include <QDateTime>
#include <QPair>
#include <QSharedData>
#include <QString>
#include <QVector>

/**
 * The points that the copies of a KRGPXTrackSegment share, one array for each of their properties.
 *
 * A point takes 28 bytes, or 16 where none has an elevation or a time: the arrays of what is often missing end with
 * the last point that has it. What few points have lies in side tables, ordered by index. Whatever a KRGPXTrackPoint
 * can hold comes out as it went in. Indexes must exist.
 */
class KRGPXTrackPointColumns : public QSharedData
{
public:
    int count() const { return m_latitudes.size(); }
    /// In place until the columns are changed or destroyed.
    KRGeoPositionSpan positions() const;
    int elevation(int index) const { return m_elevations.value(index, 0); }
    QDateTime timeStamp(int index) const { return time(index).toDateTime(); }
    KRGPXTime time(int index) const;
    QString description(int index) const;
    KRGPXTrackPoint point(int index) const;
    /// Everything but the description.
    KRGPXCommaText commaText(int index) const;
    /// The time that a comma text gave, in seconds since 1970; KRGPXTime::noTime for none and any other time.
    qint64 secondsOfCommaText(int index) const;

    /// Point by point as KRGPXTrackPoint compares.
    bool operator==(const KRGPXTrackPointColumns &other) const;

    void reserve(int count);
    void append(double latitude, double longitude, int elevation, const KRGPXTime &time, const QString &description);
    /// The same with the time of a comma text, in milliseconds since 1970 or KRGPXTime::noTime, which is a local one.
    void appendCommaText(double latitude, double longitude, int elevation, qint64 milliseconds);
    /// Gives back the memory kept for further points.
    void squeeze();

private:
    template <typename Value>
    using SideTable = QVector<QPair<int, Value>>;

    // The place comes last: it makes the point count.
    void appendTime(qint64 milliseconds, int zone);
    void appendPlace(double latitude, double longitude, int elevation);
    int zoneAt(int index) const;
    bool hasEqualTimes(const KRGPXTrackPointColumns &other) const;
    bool hasEqualTime(int index, const KRGPXTrackPointColumns &other) const;

    QVector<double> m_latitudes;
    QVector<double> m_longitudes;
    QVector<int> m_elevations;
    QVector<qint64> m_times; // milliseconds since 1970
    SideTable<int> m_zones; // from which point on times count in which zone; in UTC before the first entry
    SideTable<QDateTime> m_unusualTimes; // what milliseconds and a zone cannot tell
    SideTable<QString> m_descriptions;
};
