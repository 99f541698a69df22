#pragma once

#include "KRGPXTrackSegment.h"
#include "KRGeoPositionSpan.h"

#include <KRCore/KRIntRange.h>

#include <QList>

class KRGPXTrack;

/**
 * The positions of all segments of a track, cut into runs that several threads may work on at once.
 *
 * A position without finite numbers belongs to no run: a recorder without a fix may have written "nan", which has no
 * place on any map. The others are numbered throughout. Keeps the columns that the runs point into.
 */
class KRGPXTrackChunks
{
public:
    explicit KRGPXTrackChunks(const KRGPXTrack &track);

    const QList<KRGeoPositionSpan> &spans() const { return m_spans; }
    /// The numbers of the positions in each span, from 0.
    const QList<KRIntRange> &ranges() const { return m_ranges; }
    /// 0 up to the number of spans, for loops over them.
    const QList<int> &numbers() const { return m_numbers; }
    /// Of the positions in all spans.
    int pointCount() const { return m_pointCount; }

private:
    void append(const KRGeoPositionSpan &positions);
    void appendRunsWithoutGaps(const KRGeoPositionSpan &positions);

    QList<KRGPXTrackSegment> m_segments;
    QList<KRGeoPositionSpan> m_spans;
    QList<KRIntRange> m_ranges;
    QList<int> m_numbers;
    int m_pointCount = 0;
};
