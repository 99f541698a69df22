#pragma once

#include <KRGeoLocation/KRGPXTime.h>
#include <KRGeoLocation/KRGeoPosition.h>
#include <KRGeoLocation/KRGeoPositionRect.h>

#include <QDateTime>

class KRClimbCounter;
class KRGPXConfiguredTrack;
class KRGPXTrackSegment;
class KRSpeedometer;

/**
 * What can be said about a track in numbers.
 *
 * Positions and times that are not valid and elevations of 0, which mean none, are left out of every figure but the
 * count of points. The way, the time and the difference in elevation from one segment to the next are part of none
 * but from() and to().
 */
class KRTrackFigures
{
public:
    explicit KRTrackFigures(const KRGPXConfiguredTrack &track);

    int segmentCount() const { return m_segmentCount; }
    int pointCount() const { return m_pointCount; }
    /// Along the points on a sphere.
    double lengthKm() const { return m_lengthKm; }
    /// Not valid when the track has no valid position.
    KRGeoPosition firstPosition() const { return m_firstPosition; }
    KRGeoPosition lastPosition() const { return m_lastPosition; }
    /// Earliest and latest time; not valid when no point has a time.
    QDateTime from() const { return m_from.toDateTime(); }
    QDateTime to() const { return m_to.toDateTime(); }
    /// From from() to to(), 0 when they are not valid.
    double durationSeconds() const;
    /// Crosses the date line (west > east) where that is the shorter way; not valid without a valid position.
    KRGeoPositionRect boundingBox() const { return m_boundingBox; }

    /// False when no point has an elevation; all of these are 0 then.
    bool hasElevation() const { return m_lowestMetres != 0 || m_highestMetres != 0; }
    int lowestMetres() const { return m_lowestMetres; }
    int highestMetres() const { return m_highestMetres; }
    /// Without the wavering of receivers, see KRClimbCounter.
    qint64 climbMetres() const { return m_climbMetres; }
    qint64 descentMetres() const { return m_descentMetres; }

    /// False when the times are too few or too close to tell; both speeds are 0 then.
    bool hasSpeed() const { return m_averageSpeedKmh > 0.0; }
    /// Rests within a segment count as time.
    double averageSpeedKmh() const { return m_averageSpeedKmh; }
    /// The fastest stretch of at least ten seconds, see KRSpeedometer.
    double maximumSpeedKmh() const { return m_maximumSpeedKmh; }

private:
    void addSegment(const KRGPXTrackSegment &segment, KRClimbCounter &climb, KRSpeedometer &speed);
    void addTime(const KRGPXTime &time);
    void addElevation(int metres);

    int m_segmentCount = 0;
    int m_pointCount = 0;
    double m_lengthKm = 0.0;
    KRGeoPosition m_firstPosition;
    KRGeoPosition m_lastPosition;
    KRGPXTime m_from;
    KRGPXTime m_to;
    KRGeoPositionRect m_boundingBox;
    int m_lowestMetres = 0;
    int m_highestMetres = 0;
    qint64 m_climbMetres = 0;
    qint64 m_descentMetres = 0;
    double m_averageSpeedKmh = 0.0;
    double m_maximumSpeedKmh = 0.0;
};
