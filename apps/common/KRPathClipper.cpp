#include "KRPathClipper.h"

namespace {

/// Cuts off what lies beyond one edge; @p distance is negative there and linear in the point.
template <typename Distance>
QPolygonF cut(const QPolygonF &ring, Distance distance)
{
    QPolygonF result;
    result.reserve(ring.size() + 4);
    for (int i = 0; i < ring.size(); ++i) {
        const QPointF &current = ring.at(i);
        const QPointF &next = ring.at(i + 1 == ring.size() ? 0 : i + 1);
        const double here = distance(current);
        const double there = distance(next);
        if (here >= 0.0)
            result << current;
        if ((here >= 0.0) != (there >= 0.0))
            result << current + (next - current) * (here / (here - there));
    }
    return result;
}

} // namespace

QPolygonF KRPathClipper::ring(const QPolygonF &ring) const
{
    if (m_bounds.contains(ring.boundingRect()))
        return ring;
    const QRectF &bounds = m_bounds;
    QPolygonF result = cut(ring, [&](const QPointF &point) { return point.x() - bounds.left(); });
    result = cut(result, [&](const QPointF &point) { return bounds.right() - point.x(); });
    result = cut(result, [&](const QPointF &point) { return point.y() - bounds.top(); });
    return cut(result, [&](const QPointF &point) { return bounds.bottom() - point.y(); });
}

QVector<QPolygonF> KRPathClipper::line(const QPolygonF &line) const
{
    QVector<QPolygonF> pieces;
    if (m_bounds.contains(line.boundingRect())) {
        pieces << line;
        return pieces;
    }
    for (int i = 1; i < line.size(); ++i) {
        QPointF from = line.at(i - 1);
        QPointF to = line.at(i);
        if (!clipSegment(&from, &to))
            continue;
        if (pieces.isEmpty() || pieces.last().last() != from)
            pieces << QPolygonF({from});
        pieces.last() << to;
    }
    return pieces;
}

bool KRPathClipper::clipSegment(QPointF *from, QPointF *to) const
{
    // Liang and Barsky 1984: the part of the segment from parameter "enter" to "leave" lies inside.
    const QPointF start = *from;
    const QPointF step = *to - *from;
    double enter = 0.0;
    double leave = 1.0;
    const double directions[] = {-step.x(), step.x(), -step.y(), step.y()};
    const double distances[] = {start.x() - m_bounds.left(), m_bounds.right() - start.x(), start.y() - m_bounds.top(),
                                m_bounds.bottom() - start.y()};
    for (int edge = 0; edge < 4; ++edge) {
        if (directions[edge] == 0.0) {
            if (distances[edge] < 0.0)
                return false;
            continue;
        }
        const double at = distances[edge] / directions[edge];
        if (directions[edge] < 0.0)
            enter = qMax(enter, at);
        else
            leave = qMin(leave, at);
    }
    if (enter > leave)
        return false;
    // The ends stay exact where nothing is cut off, which tells line() that two segments belong together.
    if (leave < 1.0)
        *to = start + step * leave;
    if (enter > 0.0)
        *from = start + step * enter;
    return true;
}
