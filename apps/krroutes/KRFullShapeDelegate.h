#pragma once

#include <QStyledItemDelegate>

/**
 * Draws the rows of a KRGPXFullShapeListModel as tiles: the marker, or the line or area where there is none.
 *
 * The texts are left to tool tips, since all markers of a point have the same one.
 */
class KRFullShapeDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// The side of a tile in pixels.
    static constexpr int tileSize = 44;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
