#pragma once

class KRMapProjection;
class QImage;

/**
 * Paints what stands at the lower edge of a map picture: the scale bar on the left, the credit on the right.
 */
class KRMapFurniture
{
public:
    /// The bar is right along the middle row of the picture; elsewhere the scale of the map is another.
    static void paintScaleBar(QImage *picture, const KRMapProjection &projection, double factor);
    static void paintAttribution(QImage *picture, double factor);

    /// Pixels of the picture that a kilometre covers along its middle row; 0 where the picture shows no place.
    static double pixelsPerKilometre(const QImage &picture, const KRMapProjection &projection);
};
