#pragma once

#include <QPainterPath>
#include <QRgb>
#include <QSize>
#include <QTransform>

#include <cstdint>
#include <limits>
#include <vector>

/**
 * Fills outlines with one colour, with the same pixels as QPainter's antialiasing, in linear time.
 *
 * Coordinates are rounded like there: places to 1/64 pixel, and where an edge passes from one pixel to the next to
 * 1/256 pixel towards the top left. Instead of a sorted list of the touched pixels of a row there is a sum for each
 * pixel of a few rows, so that many edges side by side cost no more than the same edges apart, and a long edge is
 * walked along just once. Made for one image, on one thread.
 */
class KRGPXPathRaster
{
public:
    /// @param size of the image in pixels
    KRGPXPathRaster(const QSize &size, Qt::FillRule fillRule) : m_size(size), m_fillRule(fillRule) { }

    /// Whether coordinates up to here can be kept.
    static constexpr double farthestPx = 1e6;

    /**
     * Adds a path to the area that is painted.
     *
     * @param transform from the path to pixels; moves and scales only
     */
    void add(const QPainterPath &outline, const QTransform &transform);

    /**
     * Paints the area over the pixels, whose format must be RGB32 or ARGB32_Premultiplied.
     *
     * @param color premultiplied
     */
    void paint(uchar *pixels, int bytesPerLine, QRgb color) const;

private:
    /// In 1/256 pixels.
    struct Point {
        int x;
        int y;
    };
    struct Edge {
        Point from;
        Point to;
    };
    /// What the edges in one pixel add up to: their heights, and their heights times twice the way to their left.
    struct Cell {
        std::uint32_t height;
        std::uint32_t area;
    };
    /// Some rows of the touched columns, with one cell more in front of each for all that lies to the left.
    struct Band;

    void addEdge(const Point &from, const Point &to);
    std::vector<std::size_t> sortIntoBands(std::vector<std::size_t> *starts) const;
    static void addEdge(Band *band, const Edge &edge);
    static void addInRow(Band *band, int row, const Point &from, const Point &to);
    static void paintRow(Band *band, int row, QRgb *pixels, QRgb color);

    QSize m_size;
    Qt::FillRule m_fillRule;
    std::vector<Edge> m_edges;
    // how far the outline reaches in the rows of the image, in 1/256 pixels
    int m_left = std::numeric_limits<int>::max();
    int m_right = std::numeric_limits<int>::min();
};
