#include "KRGPXTrackChunks.h"

#include "KRGPXTrack.h"

#include <cmath>
#include <utility>

namespace {

// Fewer points are projected sooner than they are handed to another thread.
constexpr int pointsWorthSplitting = 4096;

} // namespace

KRGPXTrackChunks::KRGPXTrackChunks(const KRGPXTrack &track) : m_segments(track.segments())
{
    for (const KRGPXTrackSegment &segment : std::as_const(m_segments))
        append(segment.positions());
}

void KRGPXTrackChunks::append(const KRGeoPositionSpan &positions)
{
    if (positions.count < pointsWorthSplitting) {
        appendRunsWithoutGaps(positions);
        return;
    }
    const QList<KRIntRange> parts = KRIntRange(0, positions.count - 1).splitEvenlyForCpuCores();
    for (const KRIntRange &part : parts)
        appendRunsWithoutGaps(positions.mid(part.minimum(), part.lastIndexEvenIfUnvalid() - part.minimum()));
}

void KRGPXTrackChunks::appendRunsWithoutGaps(const KRGeoPositionSpan &positions)
{
    const auto isGap = [&](int i) {
        return !std::isfinite(positions.latitudes[i]) || !std::isfinite(positions.longitudes[i]);
    };
    for (int begin = 0, end = 0; begin < positions.count; begin = end + 1) {
        for (end = begin; end < positions.count && !isGap(end);)
            ++end;
        if (end == begin)
            continue;
        m_spans.append(positions.mid(begin, end - begin));
        m_ranges.append(KRIntRange(m_pointCount, m_pointCount + end - begin - 1));
        m_numbers.append(m_numbers.size());
        m_pointCount += end - begin;
    }
}
