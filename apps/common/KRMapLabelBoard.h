#pragma once

#include "KRMapLabel.h"

#include <QRectF>
#include <QVector>

class QPainter;

/// Gathers the labels of a map so that none covers another or leaves the map; who comes first, has the place.
class KRMapLabelBoard
{
public:
    /// @p margin is kept free around each label and along the edge of @p area; all are pixels.
    KRMapLabelBoard(const QRectF &area, double margin) : m_area(area), m_margin(margin) { }

    const QVector<KRMapLabel> &labels() const { return m_labels; }

    /// True when the box lies inside the area and apart from all that was added or kept free.
    bool isFree(const QRectF &box) const;

    /// No label will cover the box.
    void keepFree(const QRectF &box) { m_taken << box; }
    /// Adds the label if its place is free, and tells whether it was.
    bool tryAdd(const KRMapLabel &label);

    void paint(QPainter *painter) const;

private:
    QRectF m_area;
    double m_margin;
    QVector<QRectF> m_taken;
    QVector<KRMapLabel> m_labels;
};
