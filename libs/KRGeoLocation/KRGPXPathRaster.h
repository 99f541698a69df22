#pragma once

#include "KRGPXBuckets.h"
#include "KRGPXRasterBand.h"

#include <QPainterPath>
#include <QRect>
#include <QRectF>
#include <QRgb>
#include <QSize>
#include <QTransform>

#include <algorithm>
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
    KRGPXPathRaster(const QSize &size, Qt::FillRule fillRule) : m_size(size), m_band(fillRule) { }

    /// Whether coordinates up to here can be kept.
    static constexpr double farthestPx = 1e6;
    static bool reaches(const QRectF &bounds)
    {
        return QRectF(-farthestPx, -farthestPx, 2.0 * farthestPx, 2.0 * farthestPx).contains(bounds);
    }

    /// Begins again, with the memory that there is.
    void clear(Qt::FillRule fillRule);

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
    void paint(uchar *pixels, int bytesPerLine, QRgb color);

    /// Calls @p visitor with rows, stretches in them from the first pixel to before the end, and their coverage of 1 to
    /// 255; from top to bottom and from left to right.
    template <typename Visitor>
    void visit(const Visitor &visitor);

private:
    static constexpr int bandRows = 64;

    using Point = KRGPXRasterBand::Point;
    using Edge = KRGPXRasterBand::Edge;

    void addEdge(const Point &from, const Point &to);
    KRGPXBuckets sortedIntoBands() const;
    QRect placeOf(int bandNumber, const int *begin, const int *end) const;

    QSize m_size;
    KRGPXRasterBand m_band;
    std::vector<Edge> m_edges;
    bool m_goesOnToTheRight = false; // of the image, where no edges are kept
};

template <typename Visitor>
void KRGPXPathRaster::visit(const Visitor &visitor)
{
    if (m_edges.empty())
        return;
    const KRGPXBuckets bands = sortedIntoBands();
    for (int i = 0; i < bands.count(); ++i) {
        if (bands.isEmpty(i))
            continue;
        const QRect place = placeOf(i, bands.begin(i), bands.end(i));
        m_band.moveTo(place.top(), place.bottom() + 1, place.left(), place.right() + 1);
        std::for_each(bands.begin(i), bands.end(i), [&](int edge) { m_band.add(m_edges[std::size_t(edge)]); });
        for (int row = place.top(); row <= place.bottom(); ++row)
            m_band.takeRow(row - place.top(), [&](int first, int end, unsigned coverage) {
                visitor(row, place.left() + first, place.left() + end, coverage);
            });
    }
}
