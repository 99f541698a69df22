#include "KRGPXPagePainter.h"

#include "KRGPXLineCrowd.h"
#include "KRGPXLineOutline.h"
#include "KRGPXPathTiles.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace {

// On larger pages lines are thinned as if they were smaller.
constexpr double largestCrowdPx = 64e6;

// as far as magnifying a page shows
constexpr double finestInch = 1.0 / 9500.0;
constexpr double toleranceInch = 1.0 / 2000.0;

bool isPdf(const QPainter *painter)
{
    return painter->paintEngine()->type() == QPaintEngine::Pdf;
}

/// What Qt makes an outline of, as well, but with long numbers and a curve for each join.
bool isOutlined(const QPainter *painter, const QPen &pen)
{
    return isPdf(painter) && pen.brush().style() == Qt::SolidPattern
           && (pen.color().alpha() < 255 || painter->opacity() < 1.0);
}

/// What of lines with the painter's pen shows on the page. Its units count as pixels: those of paper may be as small as
/// they like.
QPainterPath visibleLines(const QPainter *painter, const QPainterPath &path)
{
    const QPen pen = painter->pen();
    const QRectF page(0.0, 0.0, painter->device()->width(), painter->device()->height());
    QRectF sight = painter->deviceTransform().inverted().mapRect(page);
    if (painter->hasClipping())
        sight &= painter->clipBoundingRect();
    if (pen.style() != Qt::SolidLine || sight.isEmpty())
        return path;
    const double scale = std::min(1.0, std::sqrt(largestCrowdPx / (sight.width() * sight.height())));
    const QTransform transform =
        QTransform::fromTranslate(-sight.left(), -sight.top()) * QTransform::fromScale(scale, scale);
    const QSize size = (sight.size() * scale).toSize().expandedTo(QSize(1, 1));
    constexpr double softEdgePx = 1.5;
    const double reach = pen.widthF() / 2.0 * scale + softEdgePx;
    if (path.elementCount() <= KRGPXLineCrowd::fewElements) {
        const bool isInside = sight.contains(path.controlPointRect());
        return isInside ? path : KRGPXPathTiles::linesInSight(path, transform, reach, size);
    }
    const int mostLines =
        isOutlined(painter, pen) ? KRGPXLineCrowd::mostLinesFor(pen.widthF() * scale) : KRGPXLineCrowd::usualMostLines;
    return KRGPXLineCrowd::thinned(path, transform, size, reach, mostLines);
}

double unitsPerInch(const QPainter *painter)
{
    const double scale = std::sqrt(std::abs(painter->deviceTransform().determinant()));
    return painter->device()->logicalDpiX() / std::max(scale, 1e-9);
}

/// With as few digits as the page needs, in units of which there are so many per inch.
QPainterPath rounded(QPainterPath path, double perInch)
{
    const double steps = std::pow(10.0, std::ceil(-std::log10(perInch * finestInch)));
    // Of the nine decimals that are written some would not be 0 if a number were the least bit too small.
    constexpr double allowance = 2e-10;
    const auto roundedNumber = [steps](double number) {
        return std::round(number * steps) / steps + std::copysign(allowance, number);
    };
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        path.setElementPositionAt(i, roundedNumber(element.x), roundedNumber(element.y));
    }
    return path;
}

/// In coordinates of the page, since what is filled is written in them.
void drawOutline(QPainter *painter, const QPainterPath &path)
{
    const QPen pen = painter->pen();
    const QPainterPath outline = KRGPXLineOutline(pen.widthF(), toleranceInch * unitsPerInch(painter)).of(path);
    if (painter->viewTransformEnabled()) {
        painter->fillPath(outline, pen.brush());
        return;
    }
    const QTransform transform = painter->worldTransform();
    painter->setWorldTransform(QTransform());
    painter->fillPath(rounded(transform.map(outline), unitsPerInch(painter)), pen.brush());
    painter->setWorldTransform(transform);
}

} // namespace

bool KRGPXPagePainter::isFor(const QPainter *painter)
{
    return isPdf(painter) || painter->paintEngine()->type() == QPaintEngine::SVG;
}

void KRGPXPagePainter::drawPath(QPainter *painter, const QPainterPath &path)
{
    const QPen pen = painter->pen();
    if (pen.isCosmetic() || !KRGPXLineOutline::isFor(path)) {
        painter->drawPath(path);
        return;
    }
    const QPainterPath lines = visibleLines(painter, path);
    if (!isPdf(painter))
        painter->drawPath(lines);
    else if (isOutlined(painter, pen) && pen.style() == Qt::SolidLine && pen.capStyle() == Qt::RoundCap
             && pen.joinStyle() == Qt::RoundJoin)
        drawOutline(painter, lines);
    else
        painter->drawPath(rounded(lines, unitsPerInch(painter)));
}
