#pragma once

#include "KRMapLabelBoard.h"

#include <QRectF>
#include <QVector>

class KRGPXTrackSelection;
class KRMapProjection;
class QSize;

/**
 * Writes the names of tracks onto a map, beside their lines and markers and inside their areas.
 *
 * Names keep off each other and off the lines where they can. The first tracks have the first choice; a name without
 * room is left out. A track that shows in several copies of the world is named once.
 */
class KRTrackLabels
{
public:
    /**
     * The names with their places, to be painted.
     *
     * @param size of the picture in pixels
     * @param factor multiplies letters, 1 on a normal screen
     * @param keptFree where no name shall stand, in pixels
     */
    static KRMapLabelBoard arranged(const KRGPXTrackSelection &selection, const KRMapProjection &projection,
                                    const QSize &size, double factor, const QVector<QRectF> &keptFree);
};
