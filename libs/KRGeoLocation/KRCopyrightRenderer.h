#pragma once

#include "KRGeoLocationExport.h"

#include <QFont>
#include <QRectF>
#include <QSizeF>
#include <QString>

class QImage;
class QPainter;
class QRect;

/**
 * Writes the credit of the map data into the bottom-right corner of a map image, on a translucent box.
 *
 * Lengths are pixels of the image at the paint factor 1, which suits a normal screen; factors above enlarge, factors
 * below shrink. The factor has to be finite and above 0. Like all text, it needs a QGuiApplication.
 */
class KRGEOLOCATION_EXPORT KRCopyrightRenderer
{
public:
    KRCopyrightRenderer();

    /// One line, fixed when the library was built.
    QString copyrightText() const;
    QFont copyrightFont(double factor) const;
    /// Of the box: the text with the space around it.
    QSizeF copyrightTextSize(double factor) const;
    /// The box, 10 pixels from the right and the bottom edge of @p area.
    QRectF copyrightRect(const QRect &area, double factor) const;

    /// Below a factor of 0.1 a dash-dotted line stands for the text. Nothing is painted onto a null image.
    void renderCopyRight(QImage *image, double factor) const;
    /// The same onto any device, for a picture that fills the rectangle.
    void paintCopyRight(QPainter *painter, const QRect &area, double factor) const;
};
