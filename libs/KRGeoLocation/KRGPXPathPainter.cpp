#include "KRGPXPathPainter.h"

#include "KRGPXLineOutline.h"
#include "KRGPXPagePainter.h"
#include "KRGPXPathCut.h"
#include "KRGPXPathExcerpt.h"
#include "KRGPXPathRaster.h"
#include "KRGPXPathTiles.h"
#include "KRGPXPiecePainter.h"
#include "KRVectorRegisters.h"

#include <KRCore/KRConcurrent.h>

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <atomic>
#include <cmath>

namespace {

// Where there is no rasteriser of our own, paths of fewer elements that are shorter as well are drawn as a whole: to
// begin a painter for each tile takes as long as what it saves.
constexpr int fewElements = 300;
constexpr double shortLengthPx = 5000.0;

// The same for areas and their corners. What halving saves grows with the square of the corners side by side in a row,
// of which few areas have many.
constexpr int fewCorners = 10000;

// Parts of areas are divided until they are this small, or hold this little: then to divide them takes as long as to
// fill them.
constexpr int smallPartPx = 64;
constexpr std::size_t fewPartElements = 400;

// Smaller tiles draw many lines more than once, larger ones leave the painter's rasteriser long rows.
constexpr int tileSize = 64;

// Outlines take a dozen times the memory of their lines. Those of more are made for such tiles one by one.
constexpr int manyElements = 20000;
constexpr int outlineTileSize = 1024;

// A larger image has rows that the rasteriser of our own should not keep in memory.
constexpr int largestRasterPx = 65536;

// So far outside an image nothing shows where a line is cut.
constexpr double farLinePx = 100000.0;

// The outline of an area that is longer is no outline any more on an image, but takes its time.
constexpr double longestOutlinePx = 1e8;

// around a line, beside its pen: the soft edge and the rounding of the rasteriser
constexpr double softEdgePx = 1.5;

// By how much the transform stretches at least and at most: its singular values.
struct Stretch {
    double least;
    double most;
};

Stretch stretchOf(const QTransform &transform)
{
    const double a = std::hypot(transform.m11() + transform.m22(), transform.m12() - transform.m21());
    const double b = std::hypot(transform.m11() - transform.m22(), transform.m12() + transform.m21());
    return {std::abs(a - b) / 2.0, (a + b) / 2.0};
}

// Several lines without any join are painted one by one, so that they overlap.
bool hasJoin(const QPainterPath &path)
{
    for (int i = 2; i < path.elementCount(); ++i)
        if (path.elementAt(i).isLineTo() && path.elementAt(i - 1).isLineTo())
            return true;
    return false;
}

// Whether the lines leave the same marks as one outline as they do one by one. Of many that are opaque only soft edges
// differ where they meet, and the painter takes too long.
bool overlapsLikeOne(const QPainterPath &path, const QPen &pen)
{
    // For a line with other ends the painter has a rasteriser of its own.
    const bool isOneLine = path.elementCount() == 2 && pen.capStyle() == Qt::RoundCap;
    return isOneLine || hasJoin(path) || (path.elementCount() >= fewElements && pen.color().alpha() == 255);
}

// The image, when painting on its pixels is all that the painter does.
const QImage *imageOf(const QPainter *painter)
{
    const auto *const image = dynamic_cast<const QImage *>(painter->device());
    const bool isPlain = image && image->isDetached() && image->depth() >= 8 && image->colorCount() == 0
                         && painter->paintEngine()->type() == QPaintEngine::Raster
                         && painter->paintEngine()->systemClip().isEmpty() && !painter->hasClipping()
                         && painter->testRenderHint(QPainter::Antialiasing) && painter->deviceTransform().isAffine();
    return isPlain ? image : nullptr;
}

// Pens up to a pixel wide are drawn line by line, faster than anything here. Miters reach anywhere.
bool isWidePen(const QPen &pen, const Stretch &stretch)
{
    return pen.brush().style() == Qt::SolidPattern && !pen.isCosmetic() && pen.widthF() * stretch.least > 1.0
           && (pen.joinStyle() == Qt::RoundJoin || pen.joinStyle() == Qt::BevelJoin);
}

bool isDashed(const QPen &pen)
{
    return pen.style() >= Qt::DashLine && pen.style() <= Qt::DashDotDotLine;
}

double reachOf(const QPen &pen, const Stretch &stretch)
{
    const double corner = pen.capStyle() == Qt::SquareCap ? std::sqrt(2.0) : 1.0;
    return pen.widthF() / 2.0 * corner * stretch.most + softEdgePx;
}

// Half transparent lines that are painted one by one are the denser the more of them there are.
bool isForCrowd(const QPainterPath &path, const QPen &pen, const Stretch &stretch)
{
    return path.elementCount() > KRGPXLineCrowd::fewElements && pen.style() == Qt::SolidLine
           && (pen.color().alpha() == 255 || (isWidePen(pen, stretch) && hasJoin(path)))
           && KRGPXLineOutline::isFor(path);
}

// Cosmetic pens do not stretch.
double crowdReachOf(const QPen &pen, const Stretch &stretch)
{
    return std::max(reachOf(pen, stretch), pen.widthF() / 2.0 + softEdgePx);
}

// How many pixels of the image the outline of an area passes, at most: the time that filling takes.
double outlinePx(const QPainterPath &path, const QTransform &transform, const QSize &size)
{
    double length = 0.0;
    QPointF last;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPointF place = transform.map(QPointF(path.elementAt(i)));
        const QPointF way = place - last;
        if (i > 0)
            length +=
                std::min(std::abs(way.x()), double(size.width())) + std::min(std::abs(way.y()), double(size.height()));
        last = place;
    }
    return length;
}

bool isLong(const QPainterPath &path, const QTransform &transform)
{
    if (path.elementCount() >= fewElements)
        return true;
    double length = 0.0;
    for (int i = 1; i < path.elementCount() && length < shortLengthPx; ++i)
        if (!path.elementAt(i).isMoveTo())
            length += (transform.map(QPointF(path.elementAt(i))) - transform.map(QPointF(path.elementAt(i - 1))))
                          .manhattanLength();
    return length >= shortLengthPx;
}

// Turning transforms decide in another way how finely round joins are divided.
bool isForRaster(const QPainter *painter, const QImage *image)
{
    return painter->deviceTransform().type() <= QTransform::TxScale
           && std::max(image->width(), image->height()) <= largestRasterPx
           && (image->format() == QImage::Format_ARGB32_Premultiplied || image->format() == QImage::Format_RGB32)
           && painter->compositionMode() == QPainter::CompositionMode_SourceOver && painter->opacity() == 1.0;
}

bool isForRaster(const QRectF &bounds)
{
    const double far = KRGPXPathRaster::farthestPx;
    return QRectF(-far, -far, 2.0 * far, 2.0 * far).contains(bounds);
}

// Within the area; false when the outline reaches too far.
bool paintOutline(const QPainterPath &outline, const QTransform &transform, const QColor &color, const QImage *image,
                  const QRect &area)
{
    if (!isForRaster(transform.mapRect(outline.controlPointRect())))
        return false;
    KRGPXPathRaster raster(area, outline.fillRule());
    raster.add(outline, transform);
    raster.paint(KRGPXPiecePainter::pixelsOf(image), image->bytesPerLine(), color.rgba64().premultiplied().toArgb32());
    return true;
}

// Lines that reach too far are cut, far outside the image.
QPainterPath nearLines(const QPainterPath &path, const QTransform &transform, double reach, const QImage *image)
{
    if (isForRaster(transform.mapRect(path.controlPointRect()).marginsAdded(QMarginsF() + 2.0 * reach)))
        return path;
    const double way = reach + farLinePx;
    const QRectF area = QRectF(image->rect()).marginsAdded(QMarginsF() + way);
    return KRGPXPathCut::cutTo(transform.inverted().mapRect(area), path, 0.0);
}

// False when the outline reaches too far.
bool strokeOnRaster(const QPainterPath &path, const QTransform &transform, const QPen &pen, double reach,
                    const QImage *image)
{
    const auto paintLines = [&](const QPainterPath &lines, const QRect &area) {
        const QPainterPathStroker stroker(pen); // not one for several threads
        return paintOutline(stroker.createStroke(lines), transform, pen.color(), image, area);
    };
    // In tiles nobody would know where the dashes begin.
    if (isDashed(pen))
        return paintLines(path, image->rect());
    // Control points of round caps lie somewhat beyond.
    const QMarginsF margins = QMarginsF() + 2.0 * reach;
    const bool isDivided = path.elementCount() > manyElements
                           && isForRaster(transform.mapRect(path.controlPointRect()).marginsAdded(margins));
    const KRGPXPathTiles tiles(path, transform, reach, image->size(),
                               isDivided ? outlineTileSize : std::max(image->width(), image->height()));
    std::atomic<bool> isPainted{true};
    KRConcurrent::blockingMap(tiles.filledOnes(), [&](int tile) {
        QPainterPath lines;
        tiles.appendLines(tile, &lines);
        if (!paintLines(lines, tiles.rect(tile)))
            isPainted = false;
    });
    return isPainted;
}

// The painter calculates lines across more than that with other roundings.
bool isNear(const QRectF &bounds)
{
    constexpr double far = 32767.0;
    return bounds.width() <= far && bounds.height() <= far && QRectF(-far, -far, 2.0 * far, 2.0 * far).contains(bounds);
}

/// Half of a length, in whole small parts.
int halfOf(int length)
{
    return std::max(smallPartPx, length / 2 / smallPartPx * smallPartPx);
}

// Halves the part until little is left to fill in it.
void fillPart(KRGPXPiecePainter *pieces, const QRect &part, const KRGPXPathExcerpt &whole, const QBrush &brush)
{
    const KRGPXPathExcerpt excerpt = whole.reducedTo(part);
    if (excerpt.isEmpty())
        return;
    const bool isSmall = part.width() <= smallPartPx && part.height() <= smallPartPx;
    if (isSmall || excerpt.elementCount() <= fewPartElements) {
        pieces->paint(part, [&](QPainter *piecePainter) { piecePainter->fillPath(excerpt.toPath(), brush); });
        return;
    }
    const bool isWide = part.width() > part.height();
    QRect first = part;
    QRect second = part;
    if (isWide) {
        first.setWidth(halfOf(part.width()));
        second.setLeft(first.right() + 1);
    } else {
        first.setHeight(halfOf(part.height()));
        second.setTop(first.bottom() + 1);
    }
    fillPart(pieces, first, excerpt, brush);
    fillPart(pieces, second, excerpt, brush);
}

} // namespace

void KRGPXPathPainter::drawPath(QPainter *painter, const QPainterPath &wholePath, std::optional<KRGPXLineCrowd> *crowd)
{
    const QPen pen = painter->pen();
    const QTransform transform = painter->deviceTransform();
    const Stretch stretch = stretchOf(transform);
    const QImage *const image = imageOf(painter);
    if (KRGPXPagePainter::isFor(painter)) {
        KRGPXPagePainter::drawPath(painter, wholePath);
        return;
    }
    QPainterPath path = wholePath;
    if (image && isForCrowd(wholePath, pen, stretch)) {
        std::optional<KRGPXLineCrowd> ownCrowd;
        std::optional<KRGPXLineCrowd> &all = crowd ? *crowd : ownCrowd;
        if (!all)
            all.emplace(image->size(), crowdReachOf(pen, stretch));
        path = all->thinned(wholePath, transform);
    }
    const bool usesRaster = image && isForRaster(painter, image);
    // In tiles nobody would know where the dashes begin.
    const bool isKnownPen = isWidePen(pen, stretch) && (pen.style() == Qt::SolidLine || (usesRaster && isDashed(pen)));
    if (!image || !isKnownPen || !KRGPXLineOutline::isFor(path) || !overlapsLikeOne(wholePath, pen)
        || (!usesRaster && !isLong(path, transform))) {
        painter->drawPath(path);
        return;
    }
    KRVectorRegisters::releaseUpperHalves();
    const double reach = reachOf(pen, stretch);
    if (usesRaster && !isDashed(pen))
        path = nearLines(path, transform, reach, image);
    if (usesRaster && strokeOnRaster(path, transform, pen, reach, image))
        return;
    if (isDashed(pen)) {
        painter->drawPath(path);
        return;
    }
    const KRGPXPathTiles tiles(path, transform, reach, image->size(), tileSize);
    KRGPXPiecePainter pieces(painter, image);
    QPainterPath lines;
    for (const int tile : tiles.filledOnes()) {
        lines.clear();
        tiles.appendLines(tile, &lines);
        pieces.paint(tiles.rect(tile), [&](QPainter *piecePainter) { piecePainter->strokePath(lines, pen); });
    }
}

void KRGPXPathPainter::fillPath(QPainter *painter, const QPainterPath &path, const QBrush &brush)
{
    const QImage *const image = imageOf(painter);
    if (!image || brush.style() != Qt::SolidPattern) {
        painter->fillPath(path, brush);
        return;
    }
    const QTransform transform = painter->deviceTransform();
    if (outlinePx(path, transform, image->size()) > longestOutlinePx)
        return;
    if (isForRaster(painter, image) && isNear(transform.mapRect(path.controlPointRect()))
        && paintOutline(path, transform, brush.color(), image, image->rect()))
        return;
    if (path.elementCount() < fewCorners) {
        painter->fillPath(path, brush);
        return;
    }
    KRGPXPiecePainter pieces(painter, image);
    fillPart(&pieces, image->rect(), KRGPXPathExcerpt(path, transform), brush);
}
