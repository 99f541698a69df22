#pragma once

#include <QPolygonF>
#include <QRectF>
#include <QSize>

#include <vector>

/**
 * Remembers roughly which parts of a picture are drawn on, in square cells of a few pixels.
 */
class KRMapCells
{
public:
    /// All lengths are pixels. Cells are larger than that where they would be a part of a pixel, or too many.
    KRMapCells(const QSize &size, double cellSize);

    /// A line of one point is a dot.
    void addLine(const QPolygonF &line, double width);
    bool isFree(const QRectF &box) const;

private:
    void addDot(const QPointF &place, double radius);
    int columnAt(double x) const;
    int rowAt(double y) const;

    double m_cellSize;
    int m_columns;
    int m_rows;
    std::vector<bool> m_taken;
};
