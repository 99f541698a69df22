#include "KRTrackTrace.h"

#include "KRMapViewport.h"

#include <KRMapArea.h>

#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSmoothing.h>
#include <KRGeoLocation/KRGeoPositionSpan.h>

#include <algorithm>
#include <cmath>

namespace {

/// So few points that a question looks at hardly more than it must, and so many that the blocks take no room.
constexpr std::size_t pointsPerBlock = 64;

bool isPlace(const QPointF &point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

/// Puts every point that is no place where the one before it stands, and the first ones where the first place is.
void fillGaps(std::vector<QPointF> *points, std::size_t first)
{
    const auto begin = points->begin() + std::ptrdiff_t(first);
    const auto firstPlace = std::find_if(begin, points->end(), isPlace);
    if (firstPlace == points->end()) {
        points->erase(begin, points->end());
        return;
    }
    std::fill(begin, firstPlace, *firstPlace);
    for (auto point = firstPlace; point != points->end(); ++point)
        *point = isPlace(*point) ? *point : *(point - 1);
}

/// How far from @p a to @p b, from 0 to 1, the line between them is nearest to @p place.
double shareOfWay(const QPointF &a, const QPointF &b, const QPointF &place)
{
    const QPointF way = b - a;
    const double length = QPointF::dotProduct(way, way);
    return length > 0.0 ? std::clamp(QPointF::dotProduct(place - a, way) / length, 0.0, 1.0) : 0.0;
}

/// Whether a ray eastwards from @p place meets the line from @p a to @p b.
bool isCrossed(const QPointF &a, const QPointF &b, const QPointF &place)
{
    if ((a.y() > place.y()) == (b.y() > place.y()))
        return false;
    return place.x() < a.x() + (place.y() - a.y()) / (b.y() - a.y()) * (b.x() - a.x());
}

} // namespace

void KRTrackTrace::Box::add(const QPointF &point)
{
    west = std::min(west, point.x());
    east = std::max(east, point.x());
    north = std::min(north, point.y());
    south = std::max(south, point.y());
}

void KRTrackTrace::Box::add(const Box &other)
{
    west = std::min(west, other.west);
    east = std::max(east, other.east);
    north = std::min(north, other.north);
    south = std::max(south, other.south);
}

KRTrackTrace::KRTrackTrace(const KRGPXConfiguredTrack &track)
    : m_track(track.track()), m_smoothingStrength(track.smoothingStrength()), m_smoothingSteps(track.smoothingSteps()),
      m_shape(track.effectiveShape())
{
    if (m_shape == PointTrackShape) {
        const KRGeoPositionList places = track.drawingPoints();
        if (!places.isEmpty())
            addRing(KRGPXTrackPoint(places.first(), 0, QDateTime(), QString()), false);
        m_wayLength = m_points.size();
        return;
    }
    m_points.reserve(std::size_t(m_track.countPoints()) + 1);
    addRing(m_track, m_shape == PolygonTrackShape);
    m_wayLength = m_points.size();
    const Box area = m_area; // to which holes add nothing
    const double middleX = (m_bounds.west + m_bounds.east) / 2.0;
    const QList<KRGPXTrack> enclaves = m_track.enclaves();
    for (const KRGPXTrack &enclave : enclaves)
        addRing(enclave, m_shape == PolygonTrackShape, middleX);
    m_area = area;
}

bool KRTrackTrace::isOf(const KRGPXConfiguredTrack &track) const
{
    return m_smoothingStrength == track.smoothingStrength() && m_smoothingSteps == track.smoothingSteps()
           && m_shape == track.effectiveShape() && m_track == track.track();
}

void KRTrackTrace::addRing(const KRGPXTrackElement &ring, bool isClosed, double besideX)
{
    const std::size_t first = m_points.size();
    addPlaces(ring, besideX);
    fillGaps(&m_points, first);
    if (m_points.size() == first)
        return;
    if (m_smoothingStrength != 100) {
        const int count = int(m_points.size() - first);
        KRGPXTrackSmoothing(m_points.data() + first, count, m_smoothingStrength / 100.0, m_smoothingSteps).run();
        fillGaps(&m_points, first);
    }
    if (isClosed)
        m_points.push_back(m_points[first]);
    addBlocks(first);
}

void KRTrackTrace::addPlaces(const KRGPXTrackElement &ring, double besideX)
{
    double longitudeOffset = 0.0;
    double previousX = besideX;
    ring.visitPositions([&](const KRGeoPositionSpan &positions) {
        for (int i = 0; i < positions.count; ++i) {
            QPointF point = KRMapViewport::toWorld(positions.latitudes[i], positions.longitudes[i]);
            if (isPlace(point)) {
                // The shorter way round the world, as it is drawn.
                if (!std::isnan(previousX))
                    longitudeOffset -= std::round(point.x() + longitudeOffset - previousX);
                point.rx() += longitudeOffset;
                previousX = point.x();
                if (KRMapArea::isValidPosition(positions.latitudes[i], positions.longitudes[i]))
                    m_area.add(point);
            }
            m_points.push_back(point);
        }
    });
}

void KRTrackTrace::addBlocks(std::size_t first)
{
    const std::size_t end = m_points.size() - 1;
    do {
        const std::size_t last = std::min(first + pointsPerBlock, end);
        Block block{first, last, Box()};
        for (std::size_t i = first; i <= last; ++i)
            block.bounds.add(m_points[i]);
        m_blocks.push_back(block);
        m_bounds.add(block.bounds);
        first = last;
    } while (first < end);
}

KRTrackTrace::Nearest KRTrackTrace::nearest(const QPointF &place, double reach) const
{
    Nearest nearest{reach, -1.0, place};
    for (const Block &block : m_blocks) {
        const Box &box = block.bounds;
        const double besideX = std::max({0.0, box.west - place.x(), place.x() - box.east});
        const double besideY = std::max({0.0, box.north - place.y(), place.y() - box.south});
        if (std::max(besideX, besideY) >= nearest.distance)
            continue;
        // A block of one point is a line from that point to itself.
        for (std::size_t i = block.first; i == block.first || i < block.last; ++i) {
            const QPointF &next = m_points[std::min(i + 1, block.last)];
            const double share = shareOfWay(m_points[i], next, place);
            const QPointF onWay = m_points[i] + share * (next - m_points[i]);
            const double distance = std::hypot(place.x() - onWay.x(), place.y() - onWay.y());
            if (distance < nearest.distance)
                nearest = {distance, i < m_wayLength ? double(i) + share : -1.0, onWay};
        }
    }
    return nearest;
}

bool KRTrackTrace::encloses(const QPointF &place) const
{
    // Counts how often a ray eastwards meets the way. Of a block that lies east of the place, the ends tell it all.
    bool isInside = false;
    for (const Block &block : m_blocks) {
        const Box &box = block.bounds;
        if (place.y() < box.north || place.y() > box.south || place.x() > box.east)
            continue;
        if (place.x() < box.west) {
            isInside ^= (m_points[block.first].y() > place.y()) != (m_points[block.last].y() > place.y());
            continue;
        }
        for (std::size_t i = block.first; i < block.last; ++i)
            isInside ^= isCrossed(m_points[i], m_points[i + 1], place);
    }
    return isInside;
}
