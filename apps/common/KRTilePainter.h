#pragma once

#include "KRMapGround.h"
#include "KRTileLayout.h"

#include <QImage>
#include <QSet>

class KRTileStore;
class QPainter;

/**
 * Paints what a store has of the tiles of a picture, and tells what it lacks.
 *
 * Where a tile is not there, finer ones take its place, or the part of a coarser one, and paper where there is none
 * either.
 */
class KRTilePainter
{
public:
    KRTilePainter(KRTileStore *store, const KRTileLayout &layout);

    void paint(QPainter *painter, const QRect &block) const;

    /// In place of each of the tiles that is not there: it, or the next coarser one that the source may have.
    KRTileKeyList wishesFor(const KRTileKeyList &keys) const;
    /// Those of wishesFor() of which nobody knows yet what becomes of them.
    KRTileKeyList undecided(const KRTileKeyList &keys) const;

    /// A tile that the source never had is no gap where it has a coarser one.
    KRMapGaps gaps(const QSet<KRTileKey> &keys) const;

private:
    /// What is at hand in the place of a tile, and what would be better.
    struct Piece {
        QImage image; ///< of the tile, or of one above it; null where there is none
        int levelsAbove = 0;
        KRTileKey wish; ///< the next better tile that the source may have; not valid where there is none
        bool hasFailed = false; ///< that one
        QString reason;
    };

    Piece find(const KRTileKey &key) const;
    QImage mosaic(const QRect &tiles, int side) const;
    void paintPiece(QPainter *painter, const KRTileKey &key, const QRect &target) const;
    static void paintPart(QPainter *painter, const KRTileKey &key, const Piece &piece, const QRect &target);
    void paintFinerTiles(QPainter *painter, const KRTileKey &key, const QRect &target) const;

    KRTileStore *m_store;
    KRTileLayout m_layout;
    int m_lowestZoom;
};
