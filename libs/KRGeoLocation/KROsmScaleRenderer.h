#pragma once

#include "KRGeoLocationExport.h"

#include <KRCore/KRDistance.h>

#include <QCoreApplication>
#include <QFont>
#include <QRectF>
#include <QSize>
#include <QSizeF>
#include <QString>

class QImage;
class QPainter;
class QRect;

/**
 * Paints a scale bar into the bottom-left corner of a map image, on a translucent box.
 *
 * The bar stands for a round distance: 1, 2.5 or 5 times a power of ten, in metres or kilometres. It is at most 300
 * pixels and two thirds of the image long; at scales where a metre is longer than that it stands for a metre
 * nevertheless. A box that reaches beyond the left third of the image stands higher by one and a half of its heights,
 * which leaves room for a credit in the other corner.
 *
 * Lengths are pixels of the image at the paint factor 1, which suits a normal screen; factors above enlarge, factors
 * below shrink. The factor has to be finite and above 0. Like all text, it needs a QGuiApplication.
 */
class KRGEOLOCATION_EXPORT KROsmScaleRenderer
{
    Q_DECLARE_TR_FUNCTIONS(KROsmScaleRenderer)

public:
    /// @p pixelsPerKilometre is the scale of the map; nothing is painted unless it is finite and above 0.
    KROsmScaleRenderer(const KRDistance &pixelsPerKilometre, const QSize &imageSize);

    /// What the bar stands for; not a round distance above 100,000, and not finite without a scale.
    double shownKilometers() const;
    /// "250 m" or "2.5 km", with a decimal point in every locale; 2.5 m reads "3 m".
    QString scaleText() const;
    QFont textFont(double factor) const;
    /// Of the label with the space around it.
    QSizeF textSize(double factor) const;
    /// Not rounded.
    double strokeLength(double factor) const;
    /// The bar, in whole pixels; it stands on the bottom of the rectangle, whose height therefore is negative.
    QRectF strokeRect(const QRectF &area, double factor) const;
    /// The label, behind the bar. Its height is negative, too.
    QRectF textRect(const QRect &area, double factor) const;
    /// The paint factor that makes the bar as long as it may ever be at factor 1; 0 without a scale.
    double maximumPaintFactor() const;

    /// The box around bar and label of a picture that fills the rectangle; null where nothing is painted.
    QRectF scaleBox(const QRect &area, double factor) const;

    /// Below a factor of 0.1 a dash-dotted line stands for bar and label. Nothing is painted onto a null image.
    void renderScale(QImage *image, double factor) const;
    /// The same onto any device, for a picture that fills the rectangle.
    void paintScale(QPainter *painter, const QRect &area, double factor) const;

private:
    /// Where everything goes; bar and label have negative heights.
    struct Layout {
        QRectF bar;
        QRectF label;
        QRectF box;
    };
    Layout layout(const QRect &area, double factor) const;
    bool hasScale() const;
    /// What the longest bar that is allowed would stand for.
    double maximumKilometers() const;
    /// In whole pixels.
    int barLength(double factor) const;

    KRDistance m_pixelsPerKilometre;
    QSize m_imageSize;
};
