#include "KRTrackPicker.h"

#include "KRMapViewport.h"

#include <KRCore/KRMath.h>

#include <QMultiHash>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// Pixels at which a line is too short to be drawn as one; it gets a marker.
constexpr double longestDot = 4.0;
/// Pixels that an arrow and the soft edge of a line may reach beyond the line.
constexpr double longestArrow = 102.0;

/// Pixels from the middle of a line or of a marker to its edge.
double halfWidthOf(const KRGPXConfiguredTrack &track, const KRTrackTrace &trace, const KRMapViewport &viewport)
{
    const KRTrackTrace::Box &bounds = trace.bounds();
    const double extent = std::max(bounds.east - bounds.west, bounds.south - bounds.north);
    const bool isDot = extent * viewport.worldWidth() < longestDot;
    return std::max(0.0, track.lineWidth().toDouble()) * (isDot ? 1.0 : 0.5);
}

/// @p place and its copies to the east and to the west as far as they lie in @p bounds or @p reach beside them.
std::vector<QPointF> copiesWithin(const KRTrackTrace::Box &bounds, double reach, const QPointF &place)
{
    std::vector<QPointF> copies;
    if (place.y() < bounds.north - reach || place.y() > bounds.south + reach)
        return copies;
    const double first = std::ceil(bounds.west - reach - place.x());
    const double last = std::floor(bounds.east + reach - place.x());
    const int count = KRMath::toInt(last - first + 1.0);
    for (int i = 0; i < count; ++i)
        copies.emplace_back(place.x() + first + i, place.y());
    return copies;
}

KRGeoPositionRect toArea(const KRTrackTrace::Box &box)
{
    const KRGeoPosition northWest = KRMapViewport::toPosition(QPointF(box.west, box.north));
    const KRGeoPosition southEast = KRMapViewport::toPosition(QPointF(box.east, box.south));
    const KRLatitudeRange latitudes(southEast.latitude(), northWest.latitude());
    if (box.east - box.west >= 1.0)
        return KRGeoPositionRect(latitudes, KRLongitudeRange(KRLongitude(-180.0), KRLongitude(180.0)));
    return KRGeoPositionRect(latitudes, KRLongitudeRange(northWest.longitude(), southEast.longitude()));
}

bool isFilled(const KRGPXConfiguredTrack &track)
{
    return track.effectiveShape() == PolygonTrackShape && track.hasDrawOption(FillDisplayOption);
}

/// Whether there is a line or a marker to be seen.
bool hasMark(const KRGPXConfiguredTrack &track)
{
    return track.hasDrawOption(StrokeDisplayOption)
           || (track.effectiveShape() == PointTrackShape && track.hasDrawOption(FillDisplayOption));
}

/// The same for all tracks with the same points, and for few others.
QString keyOf(const KRGPXTrack &track)
{
    const QPointF first = track.firstPoint().toPointF();
    return QStringLiteral("%1 %2 %3 %4").arg(track.countPoints()).arg(first.y()).arg(first.x()).arg(track.name());
}

} // namespace

KRTrackPicker::KRTrackPicker(const KRGPXTrackSelection &selection, const KRTrackPicker &previous)
    : m_selection(selection)
{
    const KRGPXConfiguredTrackList oldTracks = previous.m_selection.tracks();
    QMultiHash<QString, int> oldRows;
    for (int row = 0; row < oldTracks.size(); ++row)
        oldRows.insert(keyOf(oldTracks.at(row).track()), row);

    const KRGPXConfiguredTrackList tracks = selection.tracks();
    m_traces.reserve(std::size_t(tracks.size()));
    for (int row = 0; row < tracks.size(); ++row) {
        const KRGPXConfiguredTrack &track = tracks.at(row);
        std::shared_ptr<const KRTrackTrace> trace = previous.traceOf(row);
        if (!trace || !trace->isOf(track)) {
            trace.reset();
            const QList<int> candidates = oldRows.values(keyOf(track.track()));
            const auto same = std::find_if(candidates.begin(), candidates.end(),
                                           [&](int oldRow) { return previous.traceOf(oldRow)->isOf(track); });
            if (same != candidates.end())
                trace = previous.traceOf(*same);
        }
        m_traces.push_back(trace ? trace : std::make_shared<const KRTrackTrace>(track));
    }
}

std::shared_ptr<const KRTrackTrace> KRTrackPicker::traceOf(int row) const
{
    return row >= 0 && std::size_t(row) < m_traces.size() ? m_traces[std::size_t(row)] : nullptr;
}

KRTrackPicker::Hit KRTrackPicker::hitAt(const QPointF &pixel, const KRMapViewport &viewport, double tolerancePx) const
{
    const QPointF place = viewport.worldAt(pixel);
    Hit mark{-1, -1.0, viewport.positionAt(pixel)};
    Hit area = mark;
    double distanceOfMarkPx = tolerancePx;
    const KRGPXConfiguredTrackList tracks = m_selection.tracks();
    for (int row = tracks.size() - 1; row >= 0; --row) {
        const KRGPXConfiguredTrack &track = tracks.at(row);
        const KRTrackTrace &trace = *m_traces[std::size_t(row)];
        const double halfWidthPx = halfWidthOf(track, trace, viewport);
        const double reach = (halfWidthPx + tolerancePx) / viewport.worldWidth();
        bool isCovered = false;
        for (const QPointF &copy : copiesWithin(trace.bounds(), reach, place)) {
            isCovered = isCovered || (isFilled(track) && trace.encloses(copy));
            const KRTrackTrace::Nearest nearest = trace.nearest(copy, reach);
            const double distancePx = std::max(0.0, nearest.distance * viewport.worldWidth() - halfWidthPx);
            const bool isNearest = nearest.distance < reach && (!mark.isValid() || distancePx < distanceOfMarkPx);
            if (isNearest && hasMark(track)) {
                mark = {row, nearest.along, KRMapViewport::toPosition(nearest.place)};
                distanceOfMarkPx = distancePx;
            }
        }
        if (isCovered && !area.isValid())
            area.row = row;
        if (isCovered && track.fillColor().alpha() == 255)
            break;
    }
    return mark.isValid() ? mark : area;
}

KRGeoPositionRect KRTrackPicker::areaOf(int row) const
{
    const std::shared_ptr<const KRTrackTrace> trace = traceOf(row);
    return trace && !trace->area().isEmpty() ? toArea(trace->area()) : KRGeoPositionRect();
}

KRGeoPositionRect KRTrackPicker::area() const
{
    // What the tracks take of the circle round the world, from west to east; the widest gap between them is left out.
    std::vector<std::pair<double, double>> spans;
    KRTrackTrace::Box all;
    for (const auto &trace : m_traces) {
        const KRTrackTrace::Box &area = trace->area();
        if (area.isEmpty())
            continue;
        all.add(area);
        const double turns = std::floor(area.west);
        spans.emplace_back(area.west - turns, area.east - turns);
    }
    if (spans.empty())
        return KRGeoPositionRect();
    std::sort(spans.begin(), spans.end());

    double reached = spans.front().second;
    for (const auto &span : spans)
        reached = std::max(reached, span.second);
    reached -= 1.0; // what lies beyond the eastern end comes back in from the west
    double widestGap = 0.0;
    all.west = 0.0;
    all.east = 1.0;
    for (const auto &span : spans) {
        if (span.first - reached > widestGap) {
            widestGap = span.first - reached;
            all.west = span.first;
            all.east = reached + 1.0;
        }
        reached = std::max(reached, span.second);
    }
    return toArea(all);
}

KRGPXTrackSelection KRTrackPicker::visibleIn(const KRMapViewport &viewport) const
{
    const QPointF northWest = viewport.worldAt(QPointF());
    const QPointF southEast = viewport.worldAt(QPointF(viewport.size().width(), viewport.size().height()));
    const KRGPXConfiguredTrackList tracks = m_selection.tracks();
    KRGPXConfiguredTrackList visible;
    for (int row = 0; row < tracks.size(); ++row) {
        const KRGPXConfiguredTrack &track = tracks.at(row);
        const KRTrackTrace &trace = *m_traces[std::size_t(row)];
        const double widthsPx = std::abs(track.lineWidth().toDouble()) + std::abs(track.haloWidth().toDouble());
        const double reach = (2.0 * widthsPx + longestArrow) / viewport.worldWidth();
        const KRTrackTrace::Box &bounds = trace.bounds();
        const double turns = std::ceil(northWest.x() - reach - bounds.east);
        const bool isInView = bounds.west + turns <= southEast.x() + reach && bounds.north <= southEast.y() + reach
                              && bounds.south >= northWest.y() - reach;
        if (!trace.isEmpty() && isInView)
            visible.append(track);
    }
    if (visible.size() == tracks.size())
        return m_selection;
    // Without any track nothing would be cropped.
    if (visible.isEmpty())
        visible.append(tracks.first());
    KRGPXTrackSelection selection(visible);
    selection.setCroppingOpacity(m_selection.nominalCroppingOpacity());
    return selection;
}
