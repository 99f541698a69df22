#include "KRGPXBeelineCreator.h"

#include "KRGPXTime.h"
#include "KRGPXTrackSegment.h"
#include "KRLongitudeRange.h"

namespace {

constexpr double longestLegKm = 200.0;
constexpr double outermostLatitude = 80.0;
constexpr int latitudeHalvings = 20;
/// After so many halvings of 360 degrees no double is left between the ends.
constexpr int mostHalvings = 64;

bool isSomewhere(const KRGeoPosition &position)
{
    return position.latitude().isValid() && position.longitude().isValid();
}

} // namespace

KRGPXBeelineCreator::KRGPXBeelineCreator(const KRGeoPosition &from, const KRGeoPosition &to)
    : m_from(from), m_to(to) { }

KRGPXBeelineCreator::~KRGPXBeelineCreator() = default;

KRGPXTrack KRGPXBeelineCreator::createBeeline(const QString &name) const
{
    return KRGPXTrack(name, tr("Fluglinie"), {segmentAlong(createPoints())}, LineStringTrackShape);
}

KRGeoPositionList KRGPXBeelineCreator::createPoints() const
{
    KRGeoPositionList points{m_from};
    points += createIntermediatePoints();
    points += m_to;
    return points;
}

KRGeoPositionList KRGPXBeelineCreator::createIntermediatePoints() const
{
    // The way to an end that is nowhere never gets shorter: both halves would be halved on and on.
    if (!isSomewhere(m_from) || !isSomewhere(m_to))
        return {};
    return createIntermediatePoints(mostHalvings);
}

KRGeoPositionList KRGPXBeelineCreator::createIntermediatePoints(int halvingsLeft) const
{
    // Intended: 180 and -180 are two longitudes here.
    if (m_from.distance(m_to) < longestLegKm || m_from.longitude() == m_to.longitude())
        return {};
    // Only where an end beyond the latitude 80 has a longitude like 200 or -180, which the middle never becomes.
    if (halvingsLeft == 0)
        return {};
    const KRLongitude longitude = findLogicalCenterLongitude();
    const KRGeoPosition middle(estimateOptimalLatitude(longitude), longitude);
    KRGeoPositionList points = KRGPXBeelineCreator(m_from, middle).createIntermediatePoints(halvingsLeft - 1);
    points += middle;
    points += KRGPXBeelineCreator(middle, m_to).createIntermediatePoints(halvingsLeft - 1);
    return points;
}

KRLongitude KRGPXBeelineCreator::findLogicalCenterLongitude() const
{
    return KRLongitudeRange::spawn(m_from.longitude(), m_to.longitude()).center();
}

KRLatitude KRGPXBeelineCreator::estimateOptimalLatitude(const KRLongitude &longitude) const
{
    KRGeoPosition north(outermostLatitude, longitude);
    KRGeoPosition south(-outermostLatitude, longitude);
    for (int i = 0; i < latitudeHalvings; ++i) {
        const double northernWay = m_from.distance(north) + m_to.distance(north);
        const double southernWay = m_from.distance(south) + m_to.distance(south);
        const KRGeoPosition middle = (north + south) / 2.0;
        if (southernWay <= northernWay)
            north = middle;
        else
            south = middle;
    }
    return ((north + south) / 2.0).latitude();
}

QList<KRGPXTrackPoint> KRGPXBeelineCreator::positions2trackPoints(const KRGeoPositionList &positions) const
{
    return segmentAlong(positions).trackPoints();
}

KRGPXTrackSegment KRGPXBeelineCreator::segmentAlong(const KRGeoPositionList &positions)
{
    KRGPXTrackSegment segment;
    for (const KRGeoPosition &position : positions) {
        // Not as a QDateTime, which asks the system for its zone at each point.
        const KRGPXTime now{QDateTime::currentMSecsSinceEpoch(), KRGPXTime::localZone, QDateTime()};
        segment.append(position.latitude().decimalDegrees(), position.longitude().decimalDegrees(), 0, now, QString());
    }
    segment.squeeze();
    return segment;
}
