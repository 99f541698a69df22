#pragma once

class KRMapGround;
class KRMapProjection;
class QPainter;
class QRectF;
class QSize;
class QString;

/**
 * Paints what stands at the lower edge of a map picture: the scale bar on the left, the credit on the right.
 *
 * The picture has the size in pixels and lies at (0, 0) of the painter, whatever the device is.
 */
class KRMapFurniture
{
public:
    /// The bar is right along the middle row of the picture; elsewhere the scale of the map is another.
    static void paintScaleBar(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor);
    /// The attribution of the library, and the credit of the ground above it.
    static void paintCredits(QPainter *painter, const QSize &size, const KRMapGround &ground, double factor);
    static void paintAttribution(QPainter *painter, const QSize &size, double factor);
    /// Above the place of the attribution and in its look; long texts take several lines. Nothing is painted for an
    /// empty text.
    static void paintCredit(QPainter *painter, const QSize &size, const QString &text, double factor);

    /// Where they are painted, for others to keep away from.
    static QRectF scaleBarBox(const QSize &size, const KRMapProjection &projection, double factor);
    /// Around both boxes.
    static QRectF creditsBox(const QSize &size, const KRMapGround &ground, double factor);
    static QRectF attributionBox(const QSize &size, double factor);
    static QRectF creditBox(const QSize &size, const QString &text, double factor);

    /// Pixels of the picture that a kilometre covers along its middle row; 0 where the picture shows no place.
    static double pixelsPerKilometre(const QSize &size, const KRMapProjection &projection);
};
