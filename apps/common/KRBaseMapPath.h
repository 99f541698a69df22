#pragma once

#include <QPolygonF>
#include <QRectF>

/**
 * A line or a ring of the base map, in the normalized coordinates of KRMapProjection.
 *
 * x runs from 0 at longitude -180 to 1 at 180, y from 0 to 1 over the Mercator square, southwards; latitudes beyond
 * it lie on its edge. x is unwrapped: neighbouring points are less than half a turn apart, what crosses the date line
 * runs on below 0 or beyond 1, and the middle of the path lies in 0 ... 1. A ring does not repeat its first point;
 * one that runs once round the globe is closed along the southern edge of the map.
 */
class KRBaseMapPath
{
public:
    KRBaseMapPath() = default;

    /// @p points are normalized and may jump at the date line.
    static KRBaseMapPath line(const QPolygonF &points);
    /// The same, for a ring whose last point repeats the first.
    static KRBaseMapPath ring(const QPolygonF &points);

    const QPolygonF &points() const { return m_points; }
    /// Of no width or height where the path has none.
    const QRectF &bounds() const { return m_bounds; }

private:
    explicit KRBaseMapPath(const QPolygonF &unwrapped);

    QPolygonF m_points;
    QRectF m_bounds;
};

Q_DECLARE_TYPEINFO(KRBaseMapPath, Q_MOVABLE_TYPE);
