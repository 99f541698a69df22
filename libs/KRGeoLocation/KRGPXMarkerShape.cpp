#include "KRGPXMarkerShape.h"

#include "KRGPXPenKeeper.h"

#include <KRCore/KRQtCompat.h>
#include <KRXML/KRXMLBuilder.h>

#include <QDomElement>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include <cmath>

namespace {

const QString markerShapeElement = QStringLiteral("markerShape");
constexpr double usualPenWidth = 5.0;

// strokePath() instead of drawPath(), which would fill a second time: a translucent filling would come out too dense.
void fillAndStroke(QPainter *painter, const QPainterPath &path)
{
    painter->fillPath(path, painter->brush());
    painter->strokePath(path, painter->pen());
}

QImage drawnImage(const KRGPXMarkerShape &shape, const QSize &size, int margin, double penWidth, const QColor &pen,
                  const QColor &fill)
{
    QImage image(size.width() + margin, size.height() + margin, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);

    QPainter painter(&image);
    painter.translate(QPoint(margin / 2, margin / 2));
    painter.setPen(QPen(QBrush(pen), penWidth, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.setBrush(fill);
    const QPointF centre(std::round(size.width() * 0.5), std::round(size.height() * 0.5));
    shape.draw(&painter, centre, centre.x(), centre.y());
    return image;
}

} // namespace

KRGPXMarkerShape::KRGPXMarkerShape(const QString &keys)
{
    setValue(enumToStringTable().decodeCSV(keys));
}

KRGPXMarkerShape KRGPXMarkerShape::fromXml(const QDomElement &parent)
{
    const QDomElement child = parent.firstChildElement(markerShapeElement);
    return child.isNull() ? KRGPXMarkerShape(DiskMarkerShape) : KRGPXMarkerShape(child.text());
}

QList<KRGPXMarkerShape> KRGPXMarkerShape::allPointShapes()
{
    static const QList<KRGPXMarkerShape> shapes{DiskMarkerShape,  CircleMarkerShape, Star6MarkerShape,
                                                Star9MarkerShape, Star12MarkerShape, XMarkerShape,
                                                BlockMarkerShape, RectMarkerShape,   RhombusMarkerShape};
    return shapes;
}

QList<KRGPXMarkerShape> KRGPXMarkerShape::allLineStringShapes()
{
    static const QList<KRGPXMarkerShape> shapes{NoMarkerShape, ArrowMarkerShape};
    return shapes;
}

void KRGPXMarkerShape::fillTable(KREnumToStringTable<KRGPXMarkerShapeEnum> *table) const
{
    table->add(DiskMarkerShape, QStringLiteral("disk"));
    table->add(CircleMarkerShape, QStringLiteral("circle"));
    table->add(XMarkerShape, QStringLiteral("x"));
    table->add(BlockMarkerShape, QStringLiteral("block"));
    table->add(RhombusMarkerShape, QStringLiteral("rhombus"));
    table->add(Star6MarkerShape, QStringLiteral("star6"));
    table->add(Star9MarkerShape, QStringLiteral("star9"));
    table->add(Star12MarkerShape, QStringLiteral("star12"));
    table->add(ArrowMarkerShape, QStringLiteral("arrow"));
}

void KRGPXMarkerShape::draw(QPainter *painter, const QPointF &centre, double rx, double ry) const
{
    const double growth = isSolid() ? 0.0 : 0.4 * painter->pen().width();
    const QRectF target = targetRect(centre, rx + growth, ry + growth);
    const KRGPXPenKeeper keeper(painter, painter->pen(), painter->brush());
    const QPainter::RenderHints hints = painter->renderHints();
    configurePainter(painter, target);
    drawShape(painter, target);
    painter->setRenderHints(KRQtCompat::antialiasing() & ~hints, false);
}

QRectF KRGPXMarkerShape::targetRect(const QPointF &centre, double rx, double ry) const
{
    return {centre - QPointF(rx, ry), QSizeF(2.0 * rx, 2.0 * ry)};
}

QImage KRGPXMarkerShape::createImage(const QSize &size, int margin, const QColor &pen, const QColor &fill) const
{
    return drawnImage(*this, size, margin, usualPenWidth, pen, fill);
}

QIcon KRGPXMarkerShape::createIcon(const QColor &pen, const QColor &fill) const
{
    if (!isValid() || *this == ArrowMarkerShape)
        return {};
    // Shapes grow with their pen, not with the scale of the painter.
    QIcon icon;
    for (const int ratio : {1, 2, 3}) {
        QPixmap pixmap =
            QPixmap::fromImage(drawnImage(*this, QSize(20, 20) * ratio, 12 * ratio, usualPenWidth * ratio, pen, fill));
        pixmap.setDevicePixelRatio(ratio);
        icon.addPixmap(pixmap);
    }
    return icon;
}

void KRGPXMarkerShape::configurePainter(QPainter *painter, const QRectF & /*target*/) const
{
    painter->setRenderHints(KRQtCompat::antialiasing());
    if (isSolid())
        return;
    QPen pen = painter->pen();
    if (pen.width() > 9) {
        pen.setWidth(pen.width() / 5);
    } else {
        pen.setWidth(1);
        pen.setCosmetic(true);
    }
    painter->setPen(pen);
}

void KRGPXMarkerShape::drawShape(QPainter *painter, const QRectF &target) const
{
    switch (value()) {
    case XMarkerShape:
        return drawX(painter, target);
    case BlockMarkerShape:
    case RectMarkerShape:
        return drawBlock(painter, target);
    case RhombusMarkerShape:
        return drawRhombus(painter, target);
    case Star6MarkerShape:
        return drawStar(painter, target, 6, 0.5);
    case Star9MarkerShape:
        return drawStar(painter, target, 9, 0.3);
    case Star12MarkerShape:
        return drawStar(painter, target, 12, 0.7);
    case NoMarkerShape:
    case DiskMarkerShape:
    case CircleMarkerShape:
    case EllipseMarkerShape:
    case ArrowMarkerShape:
        break;
    }
    painter->drawEllipse(target);
}

void KRGPXMarkerShape::drawX(QPainter *painter, const QRectF &target) const
{
    const QPointF centre = target.center();
    const double innerX = target.width() / 5.0;
    const double innerY = target.height() / 5.0;
    // Intended: only the ends of the bars start at whole pixels, the inner corners do not.
    const double outerX = std::trunc(innerX);
    const double outerY = std::trunc(innerY);

    QPainterPath path(QPointF(target.left() + outerX, target.top()));
    path.lineTo(target.left(), target.top() + outerY);
    path.lineTo(centre.x() - innerX, centre.y());
    path.lineTo(target.left(), target.bottom() - outerY);
    path.lineTo(target.left() + outerX, target.bottom());
    path.lineTo(centre.x(), centre.y() + innerY);
    path.lineTo(target.right() - outerX, target.bottom());
    path.lineTo(target.right(), target.bottom() - outerY);
    path.lineTo(centre.x() + innerX, centre.y());
    path.lineTo(target.right(), target.top() + outerY);
    path.lineTo(target.right() - outerX, target.top());
    path.lineTo(centre.x(), centre.y() - innerY);
    path.closeSubpath();
    fillAndStroke(painter, path);
}

void KRGPXMarkerShape::drawBlock(QPainter *painter, const QRectF &target) const
{
    QPainterPath path;
    path.addRect(target);
    fillAndStroke(painter, path);
}

void KRGPXMarkerShape::drawRhombus(QPainter *painter, const QRectF &target) const
{
    const QPointF centre = target.center();
    QPainterPath path(QPointF(centre.x(), target.top()));
    path.lineTo(target.left(), centre.y());
    path.lineTo(centre.x(), target.bottom());
    path.lineTo(target.right(), centre.y());
    path.closeSubpath();
    fillAndStroke(painter, path);
}

void KRGPXMarkerShape::drawStar(QPainter *painter, const QRectF &target, int points, double innerRatio) const
{
    const QPointF centre = target.center();
    QPolygonF star;
    for (int corner = 0; corner < 2 * points; ++corner) {
        const double angle = corner * M_PI / points;
        const double radius = corner % 2 == 0 ? innerRatio : 1.0; // the first corner, below the centre, is an inner one
        star << centre + QPointF(std::sin(angle) * target.width(), std::cos(angle) * target.height()) * radius / 2.0;
    }
    star << star.first();
    painter->drawPolygon(star, Qt::WindingFill);
}

void KRGPXMarkerShape::toXml(QDomElement &parent) const
{
    KRXMLBuilder::buildDomElement(parent, markerShapeElement, keys());
}
