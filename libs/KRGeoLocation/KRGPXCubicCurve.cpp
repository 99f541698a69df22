#include "KRGPXCubicCurve.h"

#include <cmath>

bool KRGPXCubicCurve::isFlat(double flatness) const
{
    const QPointF chord = p4 - p1;
    const QPointF a = p1 - p2;
    const QPointF b = p1 - p3;
    const double length = chord.manhattanLength();
    if (length > 1.0)
        return std::abs(chord.x() * a.y() - chord.y() * a.x()) + std::abs(chord.x() * b.y() - chord.y() * b.x())
               < flatness * length;
    return a.manhattanLength() + b.manhattanLength() < flatness;
}

std::pair<KRGPXCubicCurve, KRGPXCubicCurve> KRGPXCubicCurve::halves() const
{
    const QPointF middle = (p2 + p3) * 0.5;
    const QPointF a2 = (p1 + p2) * 0.5;
    const QPointF b3 = (p3 + p4) * 0.5;
    const QPointF a3 = (a2 + middle) * 0.5;
    const QPointF b2 = (middle + b3) * 0.5;
    const QPointF centre = (a3 + b2) * 0.5;
    return {{p1, a2, a3, centre}, {centre, b2, b3, p4}};
}
