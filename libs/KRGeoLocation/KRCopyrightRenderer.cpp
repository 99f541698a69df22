#include "KRCopyrightRenderer.h"

#include "KRMapCaption.h"

#include <KRCore/KRMath.h>

#include <QImage>
#include <QPainter>

KRCopyrightRenderer::KRCopyrightRenderer() = default;

QString KRCopyrightRenderer::copyrightText() const
{
    return QString::fromUtf8(KR_ATTRIBUTION);
}

QFont KRCopyrightRenderer::copyrightFont(double factor) const
{
    return KRMapCaption::font(factor);
}

QSizeF KRCopyrightRenderer::copyrightTextSize(double factor) const
{
    return KRMapCaption::size(copyrightText(), factor);
}

QRectF KRCopyrightRenderer::copyrightRect(const QRect &area, double factor) const
{
    const QSizeF size = copyrightTextSize(factor);
    const double margin = KRMapCaption::margin * factor;
    return QRectF(QPointF(area.right() - size.width() - margin, area.bottom() - size.height() - margin), size);
}

void KRCopyrightRenderer::renderCopyRight(QImage *image, double factor) const
{
    if (!image || image->isNull())
        return;
    QPainter painter(image);
    paintCopyRight(&painter, image->rect(), factor);
    painter.end();
}

void KRCopyrightRenderer::paintCopyRight(QPainter *painter, const QRect &area, double factor) const
{
    if (!KRMapCaption::isUsableFactor(factor))
        return;
    const QRectF box = copyrightRect(area, factor);
    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter->setFont(KRMapCaption::fontFor(*painter, factor));
    if (factor < KRMapCaption::smallestReadableFactor) {
        const int y = KRMath::toInt(box.center().y());
        painter->fillRect(box, KRMapCaption::semiOpaqueWhite);
        painter->setPen(QPen(KRMapCaption::semiOpaqueBlack, 1.0, Qt::DashDotLine));
        painter->drawLine(KRMath::toInt(box.center().x()), y, KRMath::toInt(box.right()), y);
    } else {
        const double radius = box.height() * 0.5;
        painter->setBrush(KRMapCaption::semiOpaqueWhite);
        painter->setPen(KRMapCaption::semiOpaqueWhite);
        painter->drawRoundedRect(box, radius, radius);
        painter->setPen(KRMapCaption::semiOpaqueBlack);
        painter->drawText(box, Qt::AlignHCenter | Qt::AlignVCenter, copyrightText());
    }
    painter->restore();
}
