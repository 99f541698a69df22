#pragma once

#include <QColor>

class KRGPXTrackSelection;
class KRMapProjection;
class QPainter;
class QSize;

/**
 * Paints the halos of tracks: a band around the line that lets it stand off the map.
 *
 * Tracks without a halo width have none. The band is light around dark lines and dark around very light ones.
 * Only outlines get a band, so that the map under a filled area keeps its colours.
 */
class KRHaloPainter
{
public:
    /// @param size of the picture in pixels; @p factor multiplies all widths
    /// False where the memory does not suffice.
    static bool paint(QPainter &painter, const KRGPXTrackSelection &selection, const KRMapProjection &projection,
                      const QSize &size, double factor);
    /// The same as lines instead of images; where bands of a few tracks lie on each other they are less translucent.
    static void paintShapes(QPainter &painter, const KRGPXTrackSelection &selection, const KRMapProjection &projection,
                            const QSize &size, double factor);

    /// The colour of the band around a line of the given colour.
    static QColor tintFor(const QColor &lineColor);
};
