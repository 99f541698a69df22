#include "KRBaseMapPath.h"

#include <QPointF>

#include <cmath>

namespace {

constexpr double southernEdge = 1.0;

QPolygonF unwrapped(QPolygonF points)
{
    for (int i = 1; i < points.size(); ++i)
        points[i].rx() -= std::round(points.at(i).x() - points.at(i - 1).x());
    return points;
}

} // namespace

KRBaseMapPath KRBaseMapPath::line(const QPolygonF &points)
{
    return KRBaseMapPath(unwrapped(points));
}

KRBaseMapPath KRBaseMapPath::ring(const QPolygonF &points)
{
    if (points.isEmpty())
        return KRBaseMapPath();
    QPolygonF ring = unwrapped(points);
    const QPointF first = ring.first();
    const QPointF last = ring.last();
    // Unwrapped, the ring around a pole ends a whole turn away from its first point.
    if (std::abs(last.x() - first.x()) > 0.5)
        ring << QPointF(last.x(), southernEdge) << QPointF(first.x(), southernEdge);
    else
        ring.removeLast();
    return KRBaseMapPath(ring);
}

KRBaseMapPath::KRBaseMapPath(const QPolygonF &unwrapped) : m_points(unwrapped)
{
    m_points.translate(-std::floor(m_points.boundingRect().center().x()), 0.0);
    m_bounds = m_points.boundingRect();
}
