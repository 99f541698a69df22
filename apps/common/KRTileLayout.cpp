#include "KRTileLayout.h"

#include "KRBaseMapView.h"

#include <KRCore/KRMath.h>
#include <KRGeoLocation/KRMapProjection.h>

#include <QSet>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// The side, in pixels of a normal screen, for which the letters on tiles are made.
constexpr double nominalSide = 256.0;
/// Tiles are enlarged up to that and otherwise reduced, as the level above would be too coarse.
constexpr double largestEnlargement = 1.25;

/// Tiles so small are left out: a source without coarse levels must not be read as a whole for the world.
constexpr double smallestSide = 32.0;

constexpr int largestBlockSide = 1024;
/// Tiles much reduced must not become more for one block than are kept in memory.
constexpr double mostTilesAcross = 8.0;
/// Smooth drawing looks at the neighbours of a pixel.
constexpr double blockMargin = 2.0;

/// Nearer than this to their own size tiles are drawn pixel by pixel.
constexpr double sameSide = 1e-3;

/// The best side of a tile. Small tiles on a dense screen are a compromise: blurred at the size that they are meant
/// for, and hard to read at the size of their pixels; half-way between they are neither.
double idealSide(double factor, int tileSide)
{
    const double legible = nominalSide * factor;
    return legible <= tileSide ? legible : std::sqrt(legible * tileSide);
}

} // namespace

KRTileLayout::KRTileLayout(const KRMapProjection &projection, const QSize &size, double factor,
                           const KRIntRange &zoomRange, int tileSide)
{
    const KRBaseMapView view(projection, size, factor);
    m_mapRect = view.mapRect().toAlignedRect();
    if (m_mapRect.isEmpty())
        return;
    m_worldSize = view.worldSize();
    m_origin = view.toPixel(90.0, -180.0);

    const double levels = std::log2(m_worldSize / (largestEnlargement * idealSide(view.factor(), tileSide)));
    if (zoomRange.minimum() < 0)
        return;
    m_zoom = qBound(zoomRange.minimum(), KRMath::toInt(std::ceil(levels)), zoomRange.maximum());
    m_side = m_worldSize / (1 << m_zoom);
    if (std::abs(m_side - tileSide) < sameSide)
        m_origin = QPointF(std::round(m_origin.x()), std::round(m_origin.y()));
    if (m_side < smallestSide)
        m_zoom = -1;
}

QVector<QRect> KRTileLayout::blocks() const
{
    QVector<QRect> blocks;
    if (!isValid())
        return blocks;
    const int blockSide = std::min(largestBlockSide, KRMath::toInt(mostTilesAcross * m_side));
    for (int y = m_mapRect.top(); y <= m_mapRect.bottom(); y += blockSide) {
        for (int x = m_mapRect.left(); x <= m_mapRect.right(); x += blockSide)
            blocks << QRect(x, y, blockSide, blockSide).intersected(m_mapRect);
    }
    return blocks;
}

QRect KRTileLayout::tilesOf(const QRect &block) const
{
    const QRectF area = tileArea(QRectF(block).adjusted(-blockMargin, -blockMargin, blockMargin, blockMargin));
    const int lastRow = (1 << m_zoom) - 1;
    const int top = qBound(0, KRMath::toInt(std::floor(area.top())), lastRow);
    const int bottom = qBound(0, KRMath::toInt(std::floor(area.bottom())), lastRow);
    const int left = KRMath::toInt(std::floor(area.left()));
    const int right = KRMath::toInt(std::floor(area.right()));
    return QRect(QPoint(left, top), QPoint(right, bottom));
}

QPointF KRTileLayout::cornerOf(int column, int row) const
{
    return m_origin + m_side * QPointF(column, row);
}

KRTileKey KRTileLayout::keyOf(int column, int row) const
{
    // The number of columns is a power of two, so this wraps negative ones too.
    return {m_zoom, column & ((1 << m_zoom) - 1), row};
}

KRTileKeyList KRTileLayout::keys() const
{
    if (!isValid())
        return KRTileKeyList();
    const QRect tiles = tilesOf(m_mapRect);
    QVector<QPoint> places;
    for (int row = tiles.top(); row <= tiles.bottom(); ++row) {
        for (int column = tiles.left(); column <= tiles.right(); ++column)
            places << QPoint(column, row);
    }
    const QPointF middle = tileArea(m_mapRect).center() - QPointF(0.5, 0.5);
    const auto distance = [&](const QPoint &place) {
        const QPointF way = place - middle;
        return QPointF::dotProduct(way, way);
    };
    std::sort(places.begin(), places.end(),
              [&](const QPoint &a, const QPoint &b) { return distance(a) < distance(b); });
    KRTileKeyList keys;
    QSet<KRTileKey> known;
    for (const QPoint &place : std::as_const(places)) {
        const KRTileKey key = keyOf(place.x(), place.y());
        if (!known.contains(key))
            keys << key;
        known.insert(key);
    }
    return keys;
}

QRectF KRTileLayout::tileArea(const QRectF &pixels) const
{
    return QRectF((pixels.topLeft() - m_origin) / m_side, pixels.size() / m_side);
}
