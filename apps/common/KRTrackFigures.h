#pragma once

#include <KRGeoLocation/KRGeoPosition.h>
#include <KRGeoLocation/KRGeoPositionRect.h>

#include <QDateTime>

class KRGPXConfiguredTrack;

/**
 * What can be said about a track in numbers.
 *
 * Positions and times that are not valid are left out of every figure but the count of points.
 */
class KRTrackFigures
{
public:
    explicit KRTrackFigures(const KRGPXConfiguredTrack &track);

    int segmentCount() const { return m_segmentCount; }
    int pointCount() const { return m_pointCount; }
    /// Along the points on a sphere; the way from one segment to the next is not part of it.
    double lengthKm() const { return m_lengthKm; }
    /// Not valid when the track has no valid position.
    KRGeoPosition firstPosition() const { return m_firstPosition; }
    KRGeoPosition lastPosition() const { return m_lastPosition; }
    /// Earliest and latest time; not valid when no point has a time.
    QDateTime from() const { return m_from; }
    QDateTime to() const { return m_to; }
    /// Crosses the date line (west > east) where that is the shorter way; not valid without a valid position.
    KRGeoPositionRect boundingBox() const { return m_boundingBox; }

private:
    int m_segmentCount = 0;
    int m_pointCount = 0;
    double m_lengthKm = 0.0;
    KRGeoPosition m_firstPosition;
    KRGeoPosition m_lastPosition;
    QDateTime m_from;
    QDateTime m_to;
    KRGeoPositionRect m_boundingBox;
};
