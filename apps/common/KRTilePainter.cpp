#include "KRTilePainter.h"

#include "KRTileStore.h"

#include <QCoreApplication>
#include <QPainter>

namespace {

/// As many levels as a turn of the wheel or two leaves behind.
constexpr int mostLevelsBelow = 2;
/// So many levels above, a tile has less than a pixel for each of those wanted.
constexpr int mostLevelsAbove = 8;

/// Drawing alone would skip pixels where a tile becomes much smaller.
void paintReduced(QPainter *painter, const QImage &image, const QRect &target)
{
    const bool isSame = image.size() == target.size();
    painter->drawImage(target.topLeft(),
                       isSame ? image : image.scaled(target.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

/// The part of a coarser tile that covers the key, in pixels of its image.
QRectF partFor(const KRTileKey &key, int levelsAbove, int imageSide)
{
    const int count = 1 << levelsAbove;
    const double side = double(imageSide) / count;
    return QRectF(side * (key.x & (count - 1)), side * (key.y & (count - 1)), side, side);
}

} // namespace

KRTilePainter::KRTilePainter(KRTileStore *store, const KRTileLayout &layout)
    : m_store(store), m_layout(layout), m_lowestZoom(store->zoomRange().value_or(KRIntRange()).minimum())
{ }

void KRTilePainter::paint(QPainter *painter, const QRect &block) const
{
    // All tiles of the block become one picture first: drawn one by one at fractions of pixels they would show seams.
    const QRect tiles = m_layout.tilesOf(block);
    int side = qMax(1, m_store->tileSide());
    for (int half = side / 2; half >= m_layout.side(); half /= 2)
        side = half;
    const QPointF corner = m_layout.cornerOf(tiles.left(), tiles.top());
    const QRectF target(corner, m_layout.side() * QSizeF(tiles.size()));

    painter->save();
    painter->setClipRect(block, Qt::IntersectClip);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(target, mosaic(tiles, side));
    painter->restore();
}

KRTileKeyList KRTilePainter::wishesFor(const KRTileKeyList &keys) const
{
    KRTileKeyList wishes;
    QSet<KRTileKey> known;
    for (const KRTileKey &key : keys) {
        const KRTileKey wish = find(key).wish;
        if (wish.isValid() && !known.contains(wish))
            wishes << wish;
        known.insert(wish);
    }
    return wishes;
}

KRTileKeyList KRTilePainter::undecided(const KRTileKeyList &keys) const
{
    KRTileKeyList undecided;
    const KRTileKeyList wishes = wishesFor(keys);
    for (const KRTileKey &wish : wishes) {
        if (m_store->find(wish).state == KRTileStore::Unknown)
            undecided << wish;
    }
    return undecided;
}

KRMapGaps KRTilePainter::gaps(const QSet<KRTileKey> &keys) const
{
    KRMapGaps gaps;
    for (const KRTileKey &key : keys) {
        const Piece piece = find(key);
        const bool isAbsent = !piece.wish.isValid();
        if (isAbsent && !piece.image.isNull())
            continue;
        ++gaps.count;
        if (!gaps.reason.isEmpty())
            continue;
        if (piece.hasFailed)
            gaps.reason = piece.reason;
        else if (isAbsent)
            gaps.reason = QCoreApplication::translate("KRTilePainter", "Die Quelle hat dort keine Kacheln.");
        else if (!m_store->problem().isEmpty())
            gaps.reason = m_store->problem();
        else
            gaps.reason = QCoreApplication::translate("KRTilePainter", "Die Zeit reichte nicht.");
    }
    return gaps;
}

KRTilePainter::Piece KRTilePainter::find(const KRTileKey &key) const
{
    Piece piece;
    for (int levels = 0; levels <= mostLevelsAbove && key.zoom - levels >= m_lowestZoom; ++levels) {
        const KRTileKey candidate = key.ancestor(levels);
        const KRTileStore::Entry entry = m_store->find(candidate);
        if (entry.state == KRTileStore::Here) {
            piece.image = entry.image;
            piece.levelsAbove = levels;
            break;
        }
        if (entry.state != KRTileStore::Absent && !piece.wish.isValid()) {
            piece.wish = candidate;
            piece.hasFailed = entry.state == KRTileStore::Failed;
            piece.reason = entry.reason;
        }
    }
    return piece;
}

QImage KRTilePainter::mosaic(const QRect &tiles, int side) const
{
    QImage image(tiles.size() * side, QImage::Format_RGB32);
    image.fill(KRMapGround::paperColor);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (int row = tiles.top(); row <= tiles.bottom(); ++row) {
        for (int column = tiles.left(); column <= tiles.right(); ++column) {
            const QPoint corner = (QPoint(column, row) - tiles.topLeft()) * side;
            paintPiece(&painter, m_layout.keyOf(column, row), QRect(corner, QSize(side, side)));
        }
    }
    return image;
}

void KRTilePainter::paintPiece(QPainter *painter, const KRTileKey &key, const QRect &target) const
{
    const Piece piece = find(key);
    if (!piece.image.isNull() && piece.levelsAbove == 0) {
        paintReduced(painter, piece.image, target);
        return;
    }
    if (!piece.image.isNull())
        paintPart(painter, key, piece, target);
    paintFinerTiles(painter, key, target);
}

void KRTilePainter::paintPart(QPainter *painter, const KRTileKey &key, const Piece &piece, const QRect &target)
{
    // A pixel more on all sides, so that the colours run on from one tile to the next.
    const QRectF part = partFor(key, piece.levelsAbove, piece.image.width());
    const QRectF source = part.adjusted(-1.0, -1.0, 1.0, 1.0).intersected(piece.image.rect());
    const double scale = target.width() / part.width();
    const QRectF place(target.topLeft() + scale * (source.topLeft() - part.topLeft()), scale * source.size());
    painter->save();
    painter->setClipRect(target);
    painter->drawImage(place, piece.image, source);
    painter->restore();
}

void KRTilePainter::paintFinerTiles(QPainter *painter, const KRTileKey &key, const QRect &target) const
{
    for (int levels = mostLevelsBelow; levels > 0; --levels) {
        const int count = 1 << levels;
        const int side = target.width() / count;
        if (key.zoom + levels > KRTileKey::largestZoom || side == 0)
            continue;
        for (int i = 0; i < count * count; ++i) {
            const QPoint place(i % count, i / count);
            const KRTileKey finer{key.zoom + levels, key.x * count + place.x(), key.y * count + place.y()};
            const QImage image = m_store->find(finer).image;
            if (!image.isNull())
                paintReduced(painter, image, QRect(target.topLeft() + side * place, QSize(side, side)));
        }
    }
}
