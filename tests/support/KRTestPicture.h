#pragma once

#include <QColor>
#include <QImage>
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

} // namespace KRTestPicture
