#include "KRGPXTrackRendererDashes.h"

#include "KRGPXPathCut.h"
#include "KRGPXPathPainter.h"
#include "KRGPXPenKeeper.h"

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

} // namespace

void KRGPXTrackRendererDashes::drawPath(QPainter *painter, const QPainterPath &path)
{
    const double period = periodOf(painter);
    const bool isDashed = period > 0.0;
    const bool isRecorded = painter->paintEngine()->type() == QPaintEngine::Picture; // knows no size
    const bool isCut = isDashed && !isRecorded && path.length() > period * mostPeriods;
    const QPainterPath dashed = isCut ? KRGPXPathCut::cutTo(wideView(painter), path, period) : path;
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
