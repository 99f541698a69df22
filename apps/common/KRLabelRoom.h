#pragma once

#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QSizeF>
#include <QVector>

/// The room for horizontal text inside a shape, found along rows through the shape. Units are those of its points.
class KRLabelRoom
{
public:
    explicit KRLabelRoom(const QPolygonF &shape);

    const QRectF &bounds() const { return m_bounds; }
    /// Inside the shape: its centroid, or where that lies outside, the middle of a wide part of it.
    QPointF middle() const { return m_middle; }

    /// Centres of boxes of that size that lie inside the shape, the nearest to @p wanted first.
    QVector<QPointF> placesFor(const QSizeF &size, const QPointF &wanted) const;

private:
    struct Span {
        double left;
        double right;
    };
    using Row = QVector<Span>; ///< the parts of a horizontal line that lie inside, from left to right

    void fillRows(const QPolygonF &shape);
    void findMiddle(const QPolygonF &shape);
    double rowHeight() const;
    double yOfRow(int row) const;
    Span commonSpan(const Span &span, int firstRow, int lastRow) const;

    QRectF m_bounds;
    QPointF m_middle;
    QVector<Row> m_rows;
};
