#pragma once

#include "KRGPXTrack.h"

#include <QCoreApplication>

/**
 * Makes a track of the shortest way over the globe between two positions, as an aeroplane would fly it.
 *
 * On a flat map such a line is bent, so it gets positions in between, less than 200 km apart. They are sought between
 * the latitudes -80 and 80. Ends on one meridian need none, as the line is straight there; that the meridians 180 and
 * -180 are the same one is not noticed, and the line then runs round the globe.
 *
 * Where a component of an end lies outside -360 … 360 the track has the two ends only. An end at exactly (0, 0), which
 * counts as no position, draws the line to its meridian but not along it. Nothing throws.
 */
class KRGEOLOCATION_EXPORT KRGPXBeelineCreator
{
    Q_DECLARE_TR_FUNCTIONS(KRGPXBeelineCreator)

public:
    KRGPXBeelineCreator(const KRGeoPosition &from, const KRGeoPosition &to);
    virtual ~KRGPXBeelineCreator();

    /// One segment from end to end, described as a flight line in the language of the user. The shape is linestring;
    /// whoever wants a hop sets that.
    KRGPXTrack createBeeline(const QString &name) const;

    KRGeoPositionList createPoints() const;
    /// Without the ends.
    KRGeoPositionList createIntermediatePoints() const;
    /// Half the shorter way round the globe.
    KRLongitude findLogicalCenterLongitude() const;
    /// Where on the meridian the way from end to end is shortest, to 0.0002 degrees. Intended: on the prime meridian
    /// it is never between -40 and 40 degrees, because the search starts at (0, 0), which counts as no position.
    KRLatitude estimateOptimalLatitude(const KRLongitude &longitude) const;
    /// Points at the current time and at sea level.
    QList<KRGPXTrackPoint> positions2trackPoints(const KRGeoPositionList &positions) const;

private:
    KRGeoPositionList createIntermediatePoints(int halvingsLeft) const;
    static KRGPXTrackSegment segmentAlong(const KRGeoPositionList &positions);

    KRGeoPosition m_from;
    KRGeoPosition m_to;
};
