#pragma once

#include <QColor>

class KRGPXConfiguredTrack;
class KRMapProjection;
class QPainter;
class QSize;

/**
 * Paints one track so that it stands out from all others: once more, above them, within a coloured band.
 */
class KRTrackEmphasis
{
public:
    /// @param size of the picture in pixels; @p factor multiplies all widths
    static void paint(QPainter *painter, const KRGPXConfiguredTrack &track, const KRMapProjection &projection,
                      const QSize &size, double factor);

    /// Of the band around a line of the given colour.
    static QColor bandColorFor(const QColor &lineColor);
};
