#pragma once

#include "KRMapLabelBoard.h"

#include <QRectF>
#include <QVector>

class KRGPXTrackSelection;
class KRMapProjection;
class QPainter;
class QSize;

/**
 * Writes the names of tracks onto a map, beside their lines and markers and inside their areas.
 *
 * Names keep off each other, off scale bar and attribution, and off the lines where they can. The first tracks have
 * the first choice; a name without room is left out. A track that shows in several copies of the world is named once.
 */
class KRTrackLabels
{
public:
    /// @param size of the picture in pixels; @p factor multiplies letters, 1 on a normal screen
    static void paint(QPainter &painter, const KRGPXTrackSelection &selection, const KRMapProjection &projection,
                      const QSize &size, double factor);

    /// The names with their places, to be painted; @p keptFree is where none shall stand, in pixels.
    static KRMapLabelBoard arranged(const KRGPXTrackSelection &selection, const KRMapProjection &projection,
                                    const QSize &size, double factor, const QVector<QRectF> &keptFree);
};
