#pragma once

#include "KRGPXMarkerShape.h"

#include <QBrush>
#include <QImage>
#include <QPen>

#include <array>
#include <vector>

class QPainter;

/**
 * Draws many markers of a few looks as copies of a few pictures, which is faster by far than drawing each.
 *
 * Places are rounded to quarters of a pixel. Made for one drawing, on one thread.
 */
class KRGPXMarkerStamps
{
public:
    /// Of so many there are pictures at a time: those of a palette, and some more.
    static constexpr std::size_t mostLooks = 24;

    /// As KRGPXMarkerShape::draw() with both radii @p radius, and with the painter's pen and brush. False, with nothing
    /// drawn, where copies cannot do it.
    bool draw(QPainter *painter, const KRGPXMarkerShape &shape, const QPointF &centre, double radius);

private:
    static constexpr int steps = 4; // of a pixel

    /// What markers are drawn with, and their pictures as far as there are any.
    struct Look {
        KRGPXMarkerShape shape;
        double radius = 0.0;
        QPen pen;
        QBrush brush;
        std::array<QImage, std::size_t(steps) * steps> stamps;
    };

    Look *lookFor(const QPainter *painter, const KRGPXMarkerShape &shape, double radius);
    static QImage stamp(const QPainter *painter, const Look &look, const QPointF &centre);

    std::vector<Look> m_looks;
    std::size_t m_oldest = 0; // which gives way to the next new one
};
