#pragma once

#include "KRGeoLocationExport.h"

#include <KRCore/KRIntRange.h>

#include <QPainterPath>
#include <QPointF>

#include <functional>

class QPainter;
class QPen;
class QRectF;

/**
 * The copies of the world that lie side by side on a map.
 *
 * Copy 0 is the one that is projected, copy 1 its eastern neighbour. All lengths are pixels. A map without a world
 * width, or one below a pixel, has copy 0 only: the others would all lie on it.
 */
class KRGEOLOCATION_EXPORT KRGPXWorldCopies
{
public:
    /// @param worldOffset from longitude -180 to 180; need not be finite
    explicit KRGPXWorldCopies(const QPointF &worldOffset) : m_offset(worldOffset) { }

    /// The copies that may be in view, -1 to 1 at least; the neighbours are always among them.
    /// @param width of the picture
    KRIntRange visibleShifts(int width) const;
    /// The copies of a path that may be in view: farther ones of a line of many rounds around the world, too.
    KRIntRange visibleShifts(int width, const QPainterPath &path) const;

    /**
     * The hole, moved by whole worlds into its area, which lies over the date line and may have been projected into
     * another copy. A hole that lies in no copy of the area stays where it is.
     */
    QPainterPath broughtTo(const QRectF &area, const QPainterPath &hole) const;

    /**
     * Calls @p draw once for every copy in which marks of the path may be in sight, with the painter moved there.
     *
     * An inactive painter has nothing in sight.
     *
     * @param reach of the marks on all sides of the path
     */
    void forEach(QPainter *painter, const QPainterPath &path, double reach, const std::function<void()> &draw) const;

    /// What to hand to forEach() of a line: all of it, unless there are so many copies of so small a world that nearly
    /// all its pieces lie upon others, in whichever copy.
    QPainterPath linesToDraw(const QPainter *painter, const QPainterPath &path, const QPen &pen) const;

    /// Whether nothing within the bounds, in the painter's own coordinates, can leave marks.
    static bool surelyMissesDevice(const QPainter *painter, const QRectF &bounds);

private:
    QPainterPath differentLines(const QPainterPath &path) const;
    bool areSeveral() const;
    bool haveWidth() const;
    int finishedRounds(const QPainterPath &path) const;

    QPointF m_offset;
};
