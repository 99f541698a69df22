#pragma once

#include <QPolygonF>
#include <QRectF>
#include <QVector>

/**
 * Cuts lines and rings down to a rectangle, so that coordinates far outside never reach a painter.
 *
 * Rings come out as one ring each, closed along the edge of the rectangle (Sutherland and Hodgman 1974); where the
 * ring leaves and enters several times its parts hang together by lines on that edge, which enclose nothing.
 */
class KRPathClipper
{
public:
    explicit KRPathClipper(const QRectF &bounds) : m_bounds(bounds) { }

    /// Empty when no part of the ring's area lies inside.
    QPolygonF ring(const QPolygonF &ring) const;
    /// The pieces of the line that lie inside, in its order.
    QVector<QPolygonF> line(const QPolygonF &line) const;

private:
    bool clipSegment(QPointF *from, QPointF *to) const;

    QRectF m_bounds;
};
