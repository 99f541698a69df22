#include "KRMapCaption.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>

#include <cmath>

QFont KRMapCaption::font(double factor)
{
    QFont result(QStringLiteral("Arial"));
    const double pointSize = 24.0 * factor;
    if (pointSize > 0.0)
        result.setPointSizeF(pointSize);
    return result;
}

QFont KRMapCaption::fontFor(const QPainter &painter, double factor)
{
    // Text is measured for images; paper and files have other points to the inch.
    const double imageDpi = QImage(1, 1, QImage::Format_Mono).logicalDpiY();
    const int deviceDpi = painter.device()->logicalDpiY();
    return font(deviceDpi > 0 ? factor * imageDpi / deviceDpi : factor);
}

QSizeF KRMapCaption::size(const QString &text, double factor)
{
    const QSizeF textSize = QFontMetrics(font(1.0)).size(Qt::TextSingleLine, text);
    return (textSize + QSizeF(20.0, 5.0)) * factor;
}

bool KRMapCaption::isUsableFactor(double factor)
{
    return std::isfinite(factor) && factor > 0.0;
}

void KRMapCaption::prepare(QPainter *painter, double factor)
{
    painter->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter->setFont(fontFor(*painter, factor));
}

void KRMapCaption::paintText(QPainter *painter, const QRectF &box, double radius, const QRectF &label,
                             const QString &text)
{
    painter->setBrush(semiOpaqueWhite);
    painter->setPen(semiOpaqueWhite);
    painter->drawRoundedRect(box, radius, radius);
    painter->setPen(semiOpaqueBlack);
    painter->drawText(label, Qt::AlignHCenter | Qt::AlignVCenter, text);
}

void KRMapCaption::paintLine(QPainter *painter, const QRectF &box, const QLineF &line)
{
    painter->fillRect(box, semiOpaqueWhite);
    painter->setPen(QPen(semiOpaqueBlack, 1.0, Qt::DashDotLine));
    painter->drawLine(line);
}
