#include "KRGPXTrackRendererDashes.h"

#include "KRGPXPathPainter.h"
#include "KRGPXPenKeeper.h"

#include <QLineF>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QRectF>
#include <QTransform>
#include <QVector>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr double finestPeriodPx = 1.0;
// A longer path is cut.
constexpr double mostPeriods = 10000.0;
// So many dashes in sight of one path lie upon each other, and take a second.
constexpr double mostDashes = 200000.0;

double pixelOf(const QPainter *painter)
{
    return 1.0 / std::sqrt(std::abs(painter->deviceTransform().determinant()));
}

// The length of dashes and gaps after which they repeat; 0 for a solid pen.
double periodOf(const QPainter *painter)
{
    const QPen pen = painter->pen();
    const QVector<qreal> pattern = pen.dashPattern();
    // On images a thinner pen has the dashes of one that is a pixel wide.
    const bool isOnImage = painter->paintEngine()->type() == QPaintEngine::Raster;
    const double width = isOnImage || pen.widthF() <= 0.0 ? std::max(pixelOf(painter), pen.widthF()) : pen.widthF();
    return std::accumulate(pattern.begin(), pattern.end(), 0.0) * width;
}

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

// What may be in sight, with as much around it again on all sides and room for the pen.
QRectF wideView(const QPainter *painter)
{
    const QPaintDevice *const device = painter->device();
    const QRectF deviceRect(0.0, 0.0, device->width(), device->height());
    const QRectF view = painter->deviceTransform().inverted().mapRect(deviceRect);
    const double dx = view.width() + painter->pen().widthF();
    const double dy = view.height() + painter->pen().widthF();
    return view.adjusted(-dx, -dy, dx, dy);
}

// The path without what lies outside the area. The pieces get caps where they are cut.
QPainterPath cutTo(const QRectF &area, const QPainterPath &path, double period)
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
            // a piece begins as far before the area as a dash begins there
            if (!continues || first > 0.0)
                pieces.moveTo(line.pointAt(first - std::fmod(way + first * length, period) / length));
            pieces.lineTo(line.pointAt(last));
            continues = last == 1.0;
        } else {
            continues = continues && length == 0.0;
        }
        way += length;
    }
    return pieces;
}

} // namespace

void KRGPXTrackRendererDashes::drawPath(QPainter *painter, const QPainterPath &path)
{
    const double period = periodOf(painter);
    const bool isDashed = period > 0.0;
    const bool isRecorded = painter->paintEngine()->type() == QPaintEngine::Picture; // knows no size
    const bool isCut = isDashed && !isRecorded && path.length() > period * mostPeriods;
    const QPainterPath dashed = isCut ? cutTo(wideView(painter), path, period) : path;
    const bool isTooFine =
        isDashed && (period < finestPeriodPx * pixelOf(painter) || (isCut && dashed.length() > period * mostDashes));
    if (!isTooFine) {
        KRGPXPathPainter::drawPath(painter, dashed);
        return;
    }
    QPen solidPen = painter->pen();
    solidPen.setStyle(Qt::SolidLine);
    const KRGPXPenKeeper keeper(painter, solidPen, painter->brush());
    KRGPXPathPainter::drawPath(painter, path);
}
