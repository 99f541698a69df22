#include "KRMapCells.h"

#include <QLineF>

#include <algorithm>
#include <cmath>

namespace {

constexpr double smallestCell = 1.0; // pixels
constexpr double mostCells = 4.0e6;

/// Dots of a line overlap by three quarters of its width, so that its edge stays as straight as the cells are.
constexpr double dotsPerWidth = 4.0;

} // namespace

KRMapCells::KRMapCells(const QSize &size, double cellSize)
    : m_cellSize(
        std::max({cellSize, smallestCell, std::sqrt(double(size.width()) * double(size.height()) / mostCells)})),
      m_columns(int(size.width() / m_cellSize) + 1), m_rows(int(size.height() / m_cellSize) + 1),
      m_taken(std::size_t(m_columns) * std::size_t(m_rows), false)
{ }

void KRMapCells::addLine(const QPolygonF &line, double width)
{
    if (!line.isEmpty())
        addDot(line.first(), width / 2.0);
    for (int i = 1; i < line.size(); ++i) {
        const QLineF step(line.at(i - 1), line.at(i));
        const int dots = int(std::ceil(step.length() / std::max(m_cellSize, width / dotsPerWidth)));
        for (int dot = 1; dot <= dots; ++dot)
            addDot(step.pointAt(double(dot) / dots), width / 2.0);
    }
}

bool KRMapCells::isFree(const QRectF &box) const
{
    for (int row = rowAt(box.top()); row <= rowAt(box.bottom()); ++row) {
        for (int column = columnAt(box.left()); column <= columnAt(box.right()); ++column) {
            if (m_taken[std::size_t(row) * std::size_t(m_columns) + std::size_t(column)])
                return false;
        }
    }
    return true;
}

void KRMapCells::addDot(const QPointF &place, double radius)
{
    for (int row = rowAt(place.y() - radius); row <= rowAt(place.y() + radius); ++row) {
        for (int column = columnAt(place.x() - radius); column <= columnAt(place.x() + radius); ++column)
            m_taken[std::size_t(row) * std::size_t(m_columns) + std::size_t(column)] = true;
    }
}

int KRMapCells::columnAt(double x) const
{
    return int(qBound(0.0, x / m_cellSize, m_columns - 1.0));
}

int KRMapCells::rowAt(double y) const
{
    return int(qBound(0.0, y / m_cellSize, m_rows - 1.0));
}
