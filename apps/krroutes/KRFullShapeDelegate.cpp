#include "KRFullShapeDelegate.h"

#include <KRGeoLocation/KRGPXFullShapeListModel.h>

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

namespace {

/// A way of three legs that fills the square from (0, 0) to (1, 1).
QPolygonF spawnWay()
{
    return QPolygonF({{0.0, 0.9}, {0.35, 0.2}, {0.6, 0.7}, {1.0, 0.1}});
}

QPolygonF spawnArrowHead()
{
    return QPolygonF({{0.72, 0.16}, {1.0, 0.1}, {0.96, 0.4}});
}

QPolygonF spawnOutline()
{
    return QPolygonF({{0.05, 0.35}, {0.55, 0.05}, {1.0, 0.4}, {0.8, 0.95}, {0.15, 0.85}, {0.05, 0.35}});
}

/// Lines, arrows and areas have no icon of their own.
void paintFigure(QPainter *painter, const QRectF &target, const KRGPXFullShapeListModel &model, int row)
{
    QTransform toTarget;
    toTarget.translate(target.x(), target.y());
    toTarget.scale(target.width(), target.height());
    const KRGPXFullShape shape = model.markerAt(row);
    const bool isArea = shape.trackShape() == PolygonTrackShape;
    painter->setPen(QPen(model.effectiveStrokeColor(), 3.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (isArea) {
        painter->setBrush(model.effectiveFillColor());
        painter->drawPolygon(toTarget.map(spawnOutline()));
        return;
    }
    QPainterPath path;
    path.addPolygon(spawnWay());
    if ((shape.markerShape() & ArrowMarkerShape) != 0)
        path.addPolygon(spawnArrowHead());
    painter->drawPath(toTarget.map(path));
}

void paintFocus(QPainter *painter, const QStyleOptionViewItem &option)
{
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(option);
    focus.backgroundColor = option.palette.color(QPalette::Highlight);
    const QStyle *const style = option.widget ? option.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, option.widget);
}

} // namespace

void KRFullShapeDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QRect figure = QRect(0, 0, 32, 32).translated(option.rect.center() - QPoint(15, 15));
    // The figure keeps the colours of the track, so it stands on a plate that suits them in every palette.
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    if ((option.state & QStyle::State_Selected) != 0) {
        painter->setBrush(option.palette.brush(QPalette::Highlight));
        painter->drawRoundedRect(option.rect.adjusted(1, 1, -1, -1), 4.0, 4.0);
    }
    painter->setBrush(QColor(0xf2, 0xef, 0xe9));
    painter->drawRoundedRect(figure.adjusted(-2, -2, 2, 2), 3.0, 3.0);
    const QIcon icon = qvariant_cast<QIcon>(index.data(Qt::DecorationRole));
    const auto *const model = qobject_cast<const KRGPXFullShapeListModel *>(index.model());
    if (!icon.isNull())
        icon.paint(painter, figure);
    else if (model)
        paintFigure(painter, QRectF(figure).adjusted(4.0, 4.0, -4.0, -4.0), *model, index.row());
    painter->restore();
    if ((option.state & QStyle::State_HasFocus) != 0)
        paintFocus(painter, option);
}

QSize KRFullShapeDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return QSize(tileSize, tileSize);
}
