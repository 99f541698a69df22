#pragma once

#include "KRMapLabel.h"

#include <QRect>
#include <QRectF>
#include <QVector>

#include <cstddef>
#include <vector>

class QPainter;

/// Gathers the labels of a map so that none covers another or leaves the map; who comes first, has the place.
class KRMapLabelBoard
{
public:
    /// @p margin is kept free around each label and along the edge of @p area; all are pixels.
    KRMapLabelBoard(const QRectF &area, double margin);

    const QVector<KRMapLabel> &labels() const { return m_labels; }

    /// True when the box lies inside the area and apart from all that was added or kept free.
    bool isFree(const QRectF &box) const;

    /// No label will cover the box.
    void keepFree(const QRectF &box);
    /// Adds the label if its place is free, and tells whether it was.
    bool tryAdd(const KRMapLabel &label);

    void paint(QPainter *painter) const;

private:
    /// Columns and rows of the squares in which the box lies.
    QRect squaresOf(const QRectF &box) const;
    std::size_t indexOf(int column, int row) const
    {
        return std::size_t(row) * std::size_t(m_columns) + std::size_t(column);
    }

    QRectF m_area;
    double m_margin;
    int m_columns;
    int m_rows;
    std::vector<QVector<QRectF>> m_taken; ///< in each square of the area
    QVector<KRMapLabel> m_labels;
};
