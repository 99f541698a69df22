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
    KRMapCaption::prepare(painter, factor);
    if (factor < KRMapCaption::smallestReadableFactor) {
        const int y = KRMath::toInt(box.center().y());
        const QLine line(KRMath::toInt(box.center().x()), y, KRMath::toInt(box.right()), y);
        KRMapCaption::paintLine(painter, box, line);
    } else {
        KRMapCaption::paintText(painter, box, box.height() * 0.5, box, copyrightText());
    }
    painter->restore();
}
