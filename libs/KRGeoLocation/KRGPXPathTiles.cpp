#include "KRGPXPathTiles.h"

#include <QPainterPath>

#include <algorithm>

namespace {

// What of a stretch lies within 0 ... size, as numbers of tiles; false when nothing does.
bool tilesBetween(double from, double to, int size, int tileSize, int *first, int *last)
{
    if (!(to >= 0.0 && from < size))
        return false;
    *first = int(std::max(0.0, from)) / tileSize;
    *last = int(std::min(size - 1.0, to)) / tileSize;
    return true;
}

} // namespace

KRGPXPathTiles::KRGPXPathTiles(const QPainterPath &path, const QTransform &transform, double reach, const QSize &size,
                               int tileSize)
    : m_transform(transform), m_size(size), m_tileSize(tileSize), m_columns((size.width() + tileSize - 1) / tileSize),
      m_rows((size.height() + tileSize - 1) / tileSize)
{
    readPath(path);
    m_lines = sortedIntoTiles(reach);
}

QPainterPath KRGPXPathTiles::linesInSight(const QPainterPath &path, const QTransform &transform, double reach,
                                          const QSize &size)
{
    QPainterPath lines;
    KRGPXPathTiles(path, transform, reach, size, std::max(size.width(), size.height())).appendLines(0, &lines);
    return lines;
}

QList<int> KRGPXPathTiles::filledOnes() const
{
    QList<int> tiles;
    for (int tile = 0; tile < count(); ++tile)
        if (!isEmpty(tile))
            tiles.append(tile);
    return tiles;
}

QRect KRGPXPathTiles::rect(int tile) const
{
    const QPoint corner(tile % m_columns * m_tileSize, tile / m_columns * m_tileSize);
    return QRect(corner, QSize(m_tileSize, m_tileSize)).intersected(QRect(QPoint(), m_size));
}

void KRGPXPathTiles::readPath(const QPainterPath &path)
{
    m_points.reserve(std::size_t(path.elementCount()));
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element &element = path.elementAt(i);
        const QPointF point = element;
        const int index = int(m_points.size());
        if (element.isMoveTo())
            m_subpaths.push_back({{index, index}, false});
        else if (point == m_points.back())
            continue;
        m_subpaths.back().last = index;
        m_points.push_back(point);
    }
    for (Subpath &subpath : m_subpaths)
        subpath.isClosed =
            subpath.last > subpath.first && m_points[std::size_t(subpath.first)] == m_points[std::size_t(subpath.last)];
}

KRGPXBuckets KRGPXPathTiles::sortedIntoTiles(double reach) const
{
    return KRGPXBuckets(count(), [&](const auto &visitor) {
        for (const Subpath &subpath : m_subpaths)
            for (int line = subpath.first; line < subpath.last; ++line)
                visitTiles(line, reach, [&](int tile) { visitor(tile, line); });
    });
}

// Row by row of the tiles, with the columns that the line crosses there.
template <typename Visitor>
void KRGPXPathTiles::visitTiles(int line, double reach, const Visitor &visitor) const
{
    QPointF top = m_transform.map(m_points[std::size_t(line)]);
    QPointF bottom = m_transform.map(m_points[std::size_t(line) + 1]);
    if (top.y() > bottom.y())
        std::swap(top, bottom);
    int firstRow = 0;
    int lastRow = 0;
    if (!tilesBetween(top.y() - reach, bottom.y() + reach, m_size.height(), m_tileSize, &firstRow, &lastRow))
        return;
    const double height = bottom.y() - top.y();
    const double slope = height > 0.0 ? (bottom.x() - top.x()) / height : 0.0;
    for (int row = firstRow; row <= lastRow; ++row) {
        double from = top.x();
        double to = bottom.x();
        if (firstRow != lastRow && height > 0.0) {
            from += slope * (qBound(top.y(), row * m_tileSize - reach, bottom.y()) - top.y());
            to -= slope * (bottom.y() - qBound(top.y(), (row + 1) * m_tileSize + reach, bottom.y()));
        }
        int firstColumn = 0;
        int lastColumn = 0;
        if (tilesBetween(std::min(from, to) - reach, std::max(from, to) + reach, m_size.width(), m_tileSize,
                         &firstColumn, &lastColumn))
            for (int column = firstColumn; column <= lastColumn; ++column)
                visitor(row * m_columns + column);
    }
}

void KRGPXPathTiles::appendLines(int tile, QPainterPath *path) const
{
    const int *line = m_lines.begin(tile);
    const int *const end = m_lines.end(tile);
    auto subpath = m_subpaths.begin();
    while (line != end) {
        subpath = std::find_if(subpath, m_subpaths.end(), [line](const Subpath &s) { return *line < s.last; });
        const int *const subpathEnd = std::lower_bound(line, end, subpath->last);
        Pieces pieces = piecesOf(*subpath, line, subpathEnd);
        if (subpath->isClosed)
            joinAcrossTheStart(*subpath, &pieces, path);
        for (const Lines &piece : pieces)
            appendPiece(piece, path);
        line = subpathEnd;
    }
}

KRGPXPathTiles::Pieces KRGPXPathTiles::piecesOf(const Subpath &subpath, const int *line, const int *end) const
{
    Pieces pieces;
    for (; line != end; ++line) {
        const Lines withNeighbours{std::max(subpath.first, *line - 1), std::min(subpath.last, *line + 2)};
        if (!pieces.empty() && withNeighbours.first <= pieces.back().last)
            pieces.back().last = withNeighbours.last;
        else
            pieces.push_back(withNeighbours);
    }
    return pieces;
}

void KRGPXPathTiles::appendPiece(const Lines &piece, QPainterPath *path) const
{
    path->moveTo(m_points[std::size_t(piece.first)]);
    for (int i = piece.first + 1; i <= piece.last; ++i)
        path->lineTo(m_points[std::size_t(i)]);
}

// Where a closed subpath begins it has a join like anywhere else, so the pieces before and after it are one.
void KRGPXPathTiles::joinAcrossTheStart(const Subpath &subpath, Pieces *pieces, QPainterPath *path) const
{
    const bool reachesStart = pieces->front().first == subpath.first;
    const bool reachesEnd = pieces->back().last == subpath.last;
    if ((!reachesStart && !reachesEnd) || (pieces->size() == 1 && reachesStart && reachesEnd))
        return;
    Lines after{subpath.first, subpath.first + 1};
    if (reachesStart) {
        after = pieces->front();
        pieces->erase(pieces->begin());
    }
    Lines before{subpath.last - 1, subpath.last};
    if (reachesEnd) {
        before = pieces->back();
        pieces->pop_back();
    }
    appendPiece(before, path);
    for (int i = after.first + 1; i <= after.last; ++i)
        path->lineTo(m_points[std::size_t(i)]);
}
