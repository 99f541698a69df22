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
