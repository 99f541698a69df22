#pragma once

#include <QCoreApplication>
#include <QRectF>

class KRGPXTrackSelection;
class KRMapProjection;
class QPainter;
class QSize;

/**
 * Names the tracks of a map, each with a sample of its look, in a light box in the upper right corner.
 *
 * Names that are too long are cut; of tracks that are too many, the first ones stand there and the number of the
 * others. Scale bar and credits stay free. In pictures with no room for it there is no legend.
 */
class KRMapLegend
{
    Q_DECLARE_TR_FUNCTIONS(KRMapLegend)

public:
    /// @param size of the picture in pixels; @p factor multiplies letters and samples, 1 on a normal screen
    static void paint(QPainter &painter, const KRGPXTrackSelection &selection, const KRMapProjection &projection,
                      const QSize &size, double factor);

    /// Where it is painted, empty where it is not.
    static QRectF box(const KRGPXTrackSelection &selection, const KRMapProjection &projection, const QSize &size,
                      double factor);

private:
    struct Layout;
    static Layout layout(const KRGPXTrackSelection &selection, const KRMapProjection &projection, const QSize &size,
                         double factor);
};
