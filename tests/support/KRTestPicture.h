#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRect>

#include <functional>

/// Asks what can be seen on a picture.
namespace KRTestPicture {

/// The smallest rectangle around all pixels that @p isMeant accepts; null when there is none.
inline QRect boundsOf(const QImage &image, const std::function<bool(const QColor &)> &isMeant)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (isMeant(image.pixelColor(x, y)))
                bounds |= QRect(x, y, 1, 1);
    return bounds;
}

/// Around all pixels darker than a translucent light box on white, such as text and lines.
inline QRect boundsOfDark(const QImage &image)
{
    return boundsOf(image, [](const QColor &color) { return color.lightness() < 190; });
}

/// Around all pixels that are not white.
inline QRect boundsOfPainted(const QImage &image)
{
    return boundsOf(image, [](const QColor &color) { return color != QColor(Qt::white); });
}

/// Whether @p paint covers a rectangle of that size at (0, 0), wherever that lies, and nothing else.
inline bool fills(const QSize &size, const std::function<void(QPainter *painter)> &paint)
{
    const QColor untouched(Qt::magenta);
    QImage sheet(size + QSize(150, 100), QImage::Format_RGB32);
    sheet.fill(untouched);
    QPainter painter(&sheet);
    painter.translate(100, 50);
    paint(&painter);
    painter.end();
    const QRect rect(QPoint(100, 50), size);
    return boundsOf(sheet, [&](const QColor &color) { return color != untouched; }) == rect
           && boundsOf(sheet.copy(rect), [&](const QColor &color) { return color == untouched; }).isNull();
}

} // namespace KRTestPicture
