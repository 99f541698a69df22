#include "KRPolygon.h"

#include <QRectF>

#include <cmath>

namespace {

double crossProduct(const QPointF &a, const QPointF &b)
{
    return a.x() * b.y() - b.x() * a.y();
}

} // namespace

double KRPolygon::area(const QPolygonF &ring)
{
    double doubleArea = 0.0;
    for (int i = 0; i < ring.size(); ++i)
        doubleArea += crossProduct(ring.at(i), ring.at((i + 1) % ring.size()));
    return std::abs(doubleArea) / 2.0;
}

QPointF KRPolygon::centroid(const QPolygonF &ring)
{
    if (ring.isEmpty())
        return QPointF();
    // Measured from a point of the ring, so that small rings far from the origin keep their digits.
    const QPointF origin = ring.first();
    double doubleArea = 0.0;
    QPointF moment;
    for (int i = 0; i < ring.size(); ++i) {
        const QPointF a = ring.at(i) - origin;
        const QPointF b = ring.at((i + 1) % ring.size()) - origin;
        const double cross = crossProduct(a, b);
        doubleArea += cross;
        moment += (a + b) * cross;
    }
    if (qFuzzyIsNull(doubleArea))
        return ring.boundingRect().center();
    return origin + moment / (3.0 * doubleArea);
}
