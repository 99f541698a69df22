#pragma once

#include "KRGPXBuckets.h"

#include <QList>
#include <QPointF>
#include <QRect>
#include <QTransform>

#include <vector>

class QPainterPath;

/**
 * Which lines of a path leave marks in which tile of an image.
 *
 * Tiles are squares of the image, numbered row by row. Lines are never cut: a cut end is no longer exactly where the
 * line was, and antialiasing shows that. Made for one stroke, on one thread.
 */
class KRGPXPathTiles
{
public:
    /**
     * @param path of straight lines only
     * @param transform from the path to pixels of the image
     * @param reach of the pen on either side of its line, in pixels of the image
     * @param size of the image in pixels
     * @param tileSize length of the sides of the tiles in pixels
     */
    KRGPXPathTiles(const QPainterPath &path, const QTransform &transform, double reach, const QSize &size,
                   int tileSize);

    /// What of a path leaves marks in an image of the size, with the lines before and after.
    static QPainterPath linesInSight(const QPainterPath &path, const QTransform &transform, double reach,
                                     const QSize &size);

    int count() const { return m_columns * m_rows; }
    bool isEmpty(int tile) const { return m_lines.isEmpty(tile); }
    /// The numbers of all tiles with marks.
    QList<int> filledOnes() const;
    /// In pixels of the image.
    QRect rect(int tile) const;

    /**
     * Appends what of the path leaves marks in the tile, each line once.
     *
     * The lines before and after come along, so that joins are those of the whole path and no end of a piece
     * shows in the tile.
     */
    void appendLines(int tile, QPainterPath *path) const;

private:
    /// Lines from points [first] to [last], each to the next one.
    struct Lines {
        int first;
        int last;
    };
    /// A closed subpath ends at the place where it begins.
    struct Subpath : Lines {
        bool isClosed;
    };
    using Pieces = std::vector<Lines>;

    void readPath(const QPainterPath &path);
    KRGPXBuckets sortedIntoTiles(double reach) const;
    template <typename Visitor>
    void visitTiles(int line, double reach, const Visitor &visitor) const;
    Pieces piecesOf(const Subpath &subpath, const int *line, const int *end) const;
    void appendPiece(const Lines &piece, QPainterPath *path) const;
    void joinAcrossTheStart(const Subpath &subpath, Pieces *pieces, QPainterPath *path) const;

    QTransform m_transform;
    QSize m_size;
    int m_tileSize;
    int m_columns;
    int m_rows;
    std::vector<QPointF> m_points; // no two equal ones in succession within a subpath
    std::vector<Subpath> m_subpaths;
    KRGPXBuckets m_lines; // the first points of the lines in each tile, ascending
};
