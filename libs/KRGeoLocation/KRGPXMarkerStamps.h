#pragma once

#include "KRGPXMarkerShape.h"

#include <QBrush>
#include <QImage>
#include <QPen>

#include <array>

class QPainter;

/**
 * Draws many markers of the same look as copies of a few pictures, which is faster by far than drawing each.
 *
 * Places are rounded to quarters of a pixel. Made for one drawing, on one thread.
 */
class KRGPXMarkerStamps
{
public:
    /// As KRGPXMarkerShape::draw() with both radii @p radius, and with the painter's pen and brush. False, with nothing
    /// drawn, where copies cannot do it.
    bool draw(QPainter *painter, const KRGPXMarkerShape &shape, const QPointF &centre, double radius);

private:
    static constexpr int steps = 4; // of a pixel

    QImage stamp(const QPainter *painter, const QPointF &centre) const;

    KRGPXMarkerShape m_shape;
    double m_radius = 0.0;
    QPen m_pen;
    QBrush m_brush;
    std::array<QImage, std::size_t(steps) * steps> m_stamps;
};
