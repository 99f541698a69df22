#pragma once

#include "KRTileKey.h"

#include <KRCore/KRIntRange.h>

#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QVector>

class KRMapProjection;

/**
 * Which tiles make up a picture, and where in it each of them lies.
 *
 * The level is chosen so that letters on the tiles come out about as large as they were meant, and neither blurred.
 * Columns count on beyond the date line: -1 is the last one of the turn before. All lengths are pixels of the picture.
 */
class KRTileLayout
{
public:
    /// @p factor is the paint scale, 1.0 for a normal screen; @p tileSide the side of the tiles in their own pixels.
    KRTileLayout(const KRMapProjection &projection, const QSize &size, double factor, const KRIntRange &zoomRange,
                 int tileSide);

    /// False where the picture shows nothing of the Mercator square, or lacksCoarseTiles().
    bool isValid() const { return m_zoom >= 0; }
    /// The tiles are too fine to make up a picture of so much.
    bool lacksCoarseTiles() const { return m_zoom < 0 && !m_mapRect.isEmpty(); }

    int zoom() const { return m_zoom; }
    /// The side of a tile in the picture.
    double side() const { return m_side; }

    /// Cuts the part of the picture that has tiles into pieces of moderate size.
    QVector<QRect> blocks() const;
    /// Columns and rows of the tiles that a block needs.
    QRect tilesOf(const QRect &block) const;

    /// Where the north-western corner of a tile lies.
    QPointF cornerOf(int column, int row) const;
    KRTileKey keyOf(int column, int row) const;
    /// All tiles once, those in the middle of the picture first.
    KRTileKeyList keys() const;

private:
    QRectF tileArea(const QRectF &pixels) const;

    QRect m_mapRect;
    QPointF m_origin; ///< the north-western corner of the Mercator square
    double m_worldSize = 0.0;
    int m_zoom = -1;
    double m_side = 0.0;
};
