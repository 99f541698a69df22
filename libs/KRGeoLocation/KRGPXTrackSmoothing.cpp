#include "KRGPXTrackSmoothing.h"

#include <algorithm>
#include <cmath>

KRGPXTrackSmoothing::KRGPXTrackSmoothing(QPointF *points, int count, double weight, int steps)
    : m_points(points), m_count(count), m_weight(weight), m_fixPoints(estimateFixPoints(count, steps))
{ }

int KRGPXTrackSmoothing::estimateFixPoints(int count, int steps) const
{
    return std::max(1, std::min(count, steps));
}

void KRGPXTrackSmoothing::run()
{
    int next = anchorIndex(1);
    if (next == 0 || m_count <= 2)
        return;
    int previous = 0;
    int block = 1;
    for (int i = 1; i < m_count - 1; ++i) {
        if (i == next) {
            ++block;
            previous = i;
            next = anchorIndex(block);
        } else {
            // Both anchors still have their original place, so the order of the points does not matter.
            smoothPoint(i, previous, next);
        }
    }
}

void KRGPXTrackSmoothing::smoothPoint(int index, int from, int to)
{
    const QPointF point = m_points[index];
    const QPointF anchorA = m_points[from];
    const QPointF anchorB = m_points[to];
    // The chord is divided in the ratio of the point's distances: the nearer anchor gets the larger part.
    // Intended: a point lying on both anchors becomes not a number.
    const double part = partOf(delta(anchorB, point), delta(anchorA, point));
    m_points[index] = mix(point, mix(anchorA, anchorB, part), m_weight);
}

double KRGPXTrackSmoothing::delta(const QPointF &a, const QPointF &b) const
{
    const double dy = a.y() - b.y();
    const double dx = a.x() - b.x();
    return std::sqrt(dy * dy + dx * dx);
}

double KRGPXTrackSmoothing::partOf(double a, double b) const
{
    return a / (b + a);
}

QPointF KRGPXTrackSmoothing::mix(const QPointF &a, const QPointF &b, double t) const
{
    return (1 - t) * b + t * a;
}

/// Index of the last point of a block, counted from 1.
int KRGPXTrackSmoothing::anchorIndex(int block) const
{
    return int(qint64(m_count) * block / m_fixPoints) - 1;
}
