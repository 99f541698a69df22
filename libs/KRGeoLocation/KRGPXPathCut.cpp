#include "KRGPXPathCut.h"

#include <QLineF>
#include <QRectF>

#include <algorithm>
#include <cmath>

namespace {

// Between which fractions of its length the line is in the area (Liang and Barsky 1984); false when nowhere.
bool clip(const QLineF &line, const QRectF &area, double *first, double *last)
{
    *first = 0.0;
    *last = 1.0;
    const auto clipAtEdge = [&](double step, double distance) {
        if (step < 0.0)
            *first = std::max(*first, distance / step);
        else if (step > 0.0)
            *last = std::min(*last, distance / step);
        return step == 0.0 ? distance >= 0.0 : *first <= *last;
    };
    return clipAtEdge(-line.dx(), line.x1() - area.left()) && clipAtEdge(line.dx(), area.right() - line.x1())
           && clipAtEdge(-line.dy(), line.y1() - area.top()) && clipAtEdge(line.dy(), area.bottom() - line.y1());
}

} // namespace

QPainterPath KRGPXPathCut::cutTo(const QRectF &area, const QPainterPath &path, double period)
{
    QPainterPath pieces;
    double way = 0.0; // from the start of the subpath, where the first dash begins
    bool continues = false; // whether the last piece ends where the next line starts
    for (int i = 1; i < path.elementCount(); ++i) {
        const QLineF line(path.elementAt(i - 1), path.elementAt(i));
        if (path.elementAt(i).isMoveTo()) {
            way = 0.0;
            continues = false;
            continue;
        }
        const double length = line.length();
        double first = 0.0;
        double last = 0.0;
        if (length > 0.0 && clip(line, area, &first, &last)) {
            const double beforeDash = period > 0.0 ? std::fmod(way + first * length, period) / length : 0.0;
            if (!continues || first > 0.0)
                pieces.moveTo(line.pointAt(first - beforeDash));
            pieces.lineTo(line.pointAt(last));
            continues = last == 1.0;
        } else {
            continues = continues && length == 0.0;
        }
        way += length;
    }
    return pieces;
}
