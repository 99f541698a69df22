#pragma once

class KRMapProjection;
class QImage;
class QPainter;
class QSize;
class QString;

/**
 * Paints what stands at the lower edge of a map picture: the scale bar on the left, the credit on the right.
 */
class KRMapFurniture
{
public:
    /// The bar is right along the middle row of the picture; elsewhere the scale of the map is another.
    static void paintScaleBar(QImage *picture, const KRMapProjection &projection, double factor);
    static void paintAttribution(QImage *picture, double factor);
    /// Whom the ground is owed to, above the place of the attribution and in its look; long texts take several lines.
    /// @p size is that of the picture; nothing is painted for an empty text.
    static void paintCredit(QPainter *painter, const QSize &size, const QString &text, double factor);

    /// Pixels of the picture that a kilometre covers along its middle row; 0 where the picture shows no place.
    static double pixelsPerKilometre(const QImage &picture, const KRMapProjection &projection);
};
