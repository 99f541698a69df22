#pragma once

#include <QPointF>
#include <QPolygonF>

/// Plane geometry of simple rings: the last point need not repeat the first, the direction does not matter.
namespace KRPolygon {

/// In square units of the coordinates, never negative.
double area(const QPolygonF &ring);

/// The centre of gravity of the area; that of the bounding box when there is no area.
QPointF centroid(const QPolygonF &ring);

} // namespace KRPolygon
