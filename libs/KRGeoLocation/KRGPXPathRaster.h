#pragma once

#include "KRGPXRasterBand.h"

#include <QPainterPath>
#include <QRect>
#include <QRgb>
#include <QTransform>

#include <vector>

/**
 * Fills outlines with one colour, with the same pixels as QPainter's antialiasing, in linear time.
 *
 * Coordinates are rounded like there: places to 1/64 pixel, and where an edge passes from one pixel to the next to
 * 1/256 pixel towards the top left. Instead of a sorted list of the touched pixels of a row there is a sum for each
 * pixel of a few rows, so that many edges side by side cost no more than the same edges apart, and a long edge is
 * walked along just once. Made for one area, on one thread.
 */
class KRGPXPathRaster
{
public:
    /// @param area of the image that is to be painted, in pixels
    KRGPXPathRaster(const QRect &area, Qt::FillRule fillRule) : m_area(area), m_fillRule(fillRule) { }

    /// Whether coordinates up to here can be kept.
    static constexpr double farthestPx = 1e6;

    /**
     * Adds a path to the area that is painted.
     *
     * @param transform from the path to pixels; moves and scales only
     */
    void add(const QPainterPath &outline, const QTransform &transform);

    /**
     * Paints over the pixels of the image, whose format must be RGB32 or ARGB32_Premultiplied.
     *
     * @param color premultiplied
     */
    void paint(uchar *pixels, int bytesPerLine, QRgb color) const;

private:
    using Point = KRGPXRasterBand::Point;
    using Edge = KRGPXRasterBand::Edge;

    int bandOf(int coordinate) const;
    void addEdge(const Point &from, const Point &to);
    QRect placeOf(int bandNumber, const int *begin, const int *end) const;

    QRect m_area;
    Qt::FillRule m_fillRule;
    std::vector<Edge> m_edges;
    bool m_goesOnToTheRight = false; // of the area, where no edges are kept
};
