#include "KRTrackSimplifier.h"

#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>
#include <KRGeoLocation/KRGeoPositionSpan.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double earthRadiusMetres = 6370000.0;
constexpr double outermostLatitude = 89.9; // where Mercator's map ends for our purposes
constexpr double radiansPerDegree = 3.14159265358979323846 / 180.0;
constexpr float alwaysKept = std::numeric_limits<float>::infinity();
constexpr double smallestDeviationMetres = 0.001;

/// How many points an area or a closed way keeps, so that it does not fall flat.
constexpr int fewestPointsOfRing = 4;

/// A point on Mercator's map of a globe with the radius 1, and how many metres one such unit is there.
struct MapPoint {
    double x;
    double y;
    double metresPerUnit;
    int index; ///< in the segment
};

/// Those points that have a position; the way goes on across the date line.
std::vector<MapPoint> projected(const KRGeoPositionSpan &positions)
{
    std::vector<MapPoint> result;
    result.reserve(static_cast<std::size_t>(positions.count));
    double previousLongitude = 0.0;
    for (int i = 0; i < positions.count; ++i) {
        const double longitude = positions.longitudes[i];
        if (!KRGeoArc(positions.latitudes[i]).isValid() || !KRGeoArc(longitude).isValid())
            continue;
        const double unwrapped =
            result.empty() ? longitude : previousLongitude + std::remainder(longitude - previousLongitude, 360.0);
        previousLongitude = unwrapped;
        const double latitude =
            std::clamp(positions.latitudes[i], -outermostLatitude, outermostLatitude) * radiansPerDegree;
        // Spherical Mercator (Snyder 1987, eq. 7-2).
        result.push_back(
            {unwrapped * radiansPerDegree, std::asinh(std::tan(latitude)), earthRadiusMetres * std::cos(latitude), i});
    }
    return result;
}

double deviationMetres(const MapPoint &point, const MapPoint &from, const MapPoint &to)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double squaredLength = dx * dx + dy * dy;
    double part = 0.0;
    if (squaredLength > 0.0)
        part = std::clamp(((point.x - from.x) * dx + (point.y - from.y) * dy) / squaredLength, 0.0, 1.0);
    const double awayX = point.x - (from.x + part * dx);
    const double awayY = point.y - (from.y + part * dy);
    return std::sqrt(awayX * awayX + awayY * awayY) * point.metresPerUnit;
}

/// The points from @p first to @p last, what lies between them is still to be split.
struct Stretch {
    std::size_t first;
    std::size_t last;
    double deviation; ///< of the point that has opened the stretch, in metres

    std::size_t middle() const { return first + (last - first) / 2; }
};

struct Split {
    std::size_t at;
    double deviation; ///< the largest in the stretch, in metres
};

Split farthest(const std::vector<MapPoint> &points, const Stretch &stretch)
{
    Split split{stretch.first + 1, 0.0};
    for (std::size_t i = stretch.first + 1; i < stretch.last; ++i) {
        const double deviation = deviationMetres(points[i], points[stretch.first], points[stretch.last]);
        if (deviation > split.deviation)
            split = {i, deviation};
    }
    return split;
}

/**
 * Where to split instead of close to an end. Zigzags have their farthest point there time and again, and splitting
 * off a few points each time would take time n². Any point at least half as far away serves as well.
 */
std::size_t balanced(const std::vector<MapPoint> &points, const Stretch &stretch, const Split &split)
{
    const std::size_t length = stretch.last - stretch.first;
    const std::size_t shorter = std::min(split.at - stretch.first, stretch.last - split.at);
    if (length < 64 || shorter >= length / 32)
        return split.at;
    const std::size_t middle = stretch.middle();
    for (std::size_t away = 0; middle - away > stretch.first && middle + away < stretch.last; ++away) {
        for (const std::size_t candidate : {middle - away, middle + away}) {
            const double deviation = deviationMetres(points[candidate], points[stretch.first], points[stretch.last]);
            if (deviation >= split.deviation / 2.0)
                return candidate;
        }
    }
    return split.at;
}

/**
 * Douglas and Peucker (1973), for all tolerances at once: a point is left with every tolerance below the largest
 * deviation in the stretch that it splits, and below those of the stretches around it.
 */
std::vector<float> deviationsOf(const KRGeoPositionSpan &positions, int fewestPoints)
{
    std::vector<float> deviations(static_cast<std::size_t>(positions.count), alwaysKept);
    const std::vector<MapPoint> line = projected(positions);
    const auto deviationOf = [&](std::size_t i) -> float & {
        return deviations[static_cast<std::size_t>(line[i].index)];
    };
    int keptCount = 2;
    std::vector<Stretch> stretches;
    if (line.size() > 2)
        stretches.push_back({0, line.size() - 1, alwaysKept});
    while (!stretches.empty()) {
        const Stretch stretch = stretches.back();
        stretches.pop_back();
        const Split split = farthest(line, stretch);
        const bool isForced = keptCount < fewestPoints;
        if (!isForced && split.deviation < smallestDeviationMetres) {
            for (std::size_t i = stretch.first + 1; i < stretch.last; ++i)
                deviationOf(i) = 0.0F;
            continue;
        }
        ++keptCount;
        const std::size_t at = balanced(line, stretch, split);
        const double deviation = isForced ? stretch.deviation : std::min(stretch.deviation, split.deviation);
        deviationOf(at) = static_cast<float>(deviation);
        if (at - stretch.first > 1)
            stretches.push_back({stretch.first, at, deviation});
        if (stretch.last - at > 1)
            stretches.push_back({at, stretch.last, deviation});
    }
    return deviations;
}

/// In the numbers of deviations; what deviates less than a millimetre is left out with any.
float usableTolerance(double toleranceMetres)
{
    return static_cast<float>(std::max(0.0, toleranceMetres));
}

bool isClosed(const KRGPXTrack &track)
{
    return track.naturalShape() == PolygonTrackShape;
}

} // namespace

KRTrackSimplifier::KRTrackSimplifier(const KRGPXConfiguredTrack &track) : m_track(track)
{
    measure(track.track(), track.effectiveShape() == PolygonTrackShape);
    for (const std::vector<float> &deviations : m_deviations)
        m_sortedDeviations.insert(m_sortedDeviations.end(), deviations.begin(), deviations.end());
    std::sort(m_sortedDeviations.begin(), m_sortedDeviations.end());
}

int KRTrackSimplifier::countPoints(double toleranceMetres) const
{
    const auto firstLeft =
        std::upper_bound(m_sortedDeviations.begin(), m_sortedDeviations.end(), usableTolerance(toleranceMetres));
    return static_cast<int>(m_sortedDeviations.end() - firstLeft);
}

KRGPXConfiguredTrack KRTrackSimplifier::simplified(double toleranceMetres) const
{
    KRGPXConfiguredTrack result = m_track;
    std::size_t segmentNumber = 0;
    result.setTrack(simplified(m_track.track(), usableTolerance(toleranceMetres), segmentNumber));
    return result;
}

void KRTrackSimplifier::measure(const KRGPXTrack &track, bool isArea)
{
    const int fewestPoints = isArea || isClosed(track) ? fewestPointsOfRing : 2;
    const QList<KRGPXTrackSegment> segments = track.segments();
    for (const KRGPXTrackSegment &segment : segments)
        m_deviations.push_back(deviationsOf(segment.positions(), fewestPoints));
    const QList<KRGPXTrack> enclaves = track.enclaves();
    for (const KRGPXTrack &enclave : enclaves)
        measure(enclave, true);
}

KRGPXTrack KRTrackSimplifier::simplified(const KRGPXTrack &track, float tolerance, std::size_t &segmentNumber) const
{
    QList<KRGPXTrackSegment> segments = track.segments();
    for (KRGPXTrackSegment &segment : segments) {
        const std::vector<float> &deviations = m_deviations[segmentNumber++];
        KRGPXTrackSegment left;
        for (int i = 0; i < segment.count(); ++i) {
            if (deviations[static_cast<std::size_t>(i)] > tolerance)
                left.append(segment, i);
        }
        left.squeeze();
        segment = left;
    }
    KRGPXTrack result(track.name(), track.description(), segments, track.shape());
    const QList<KRGPXTrack> enclaves = track.enclaves();
    for (const KRGPXTrack &enclave : enclaves)
        result.addEnclave(simplified(enclave, tolerance, segmentNumber));
    return result;
}
