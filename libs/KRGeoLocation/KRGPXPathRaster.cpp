#include "KRGPXPathRaster.h"

#include "KRGPXBuckets.h"
#include "KRGPXCubicCurve.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int bandRows = 64;
constexpr int subpixels = KRGPXRasterBand::subpixels;

// The painter measures its curves before they are transformed.
double flatnessOf(const QTransform &transform)
{
    const double scale = std::max(std::abs(transform.m11()), std::abs(transform.m22()));
    return scale > 0.0 ? KRGPXCubicCurve::flatnessPx / scale : KRGPXCubicCurve::flatnessPx;
}

} // namespace

void KRGPXPathRaster::add(const QPainterPath &outline, const QTransform &transform)
{
    const double flatness = flatnessOf(transform);
    const auto rounded = [&transform](const QPointF &point) {
        const QPointF pixel = transform.map(point);
        return Point{qRound(pixel.x() * 64.0) * 4, qRound(pixel.y() * 64.0) * 4};
    };
    Point start{0, 0};
    Point place{0, 0};
    const auto lineTo = [&](const QPointF &point) {
        const Point end = rounded(point);
        addEdge(place, end);
        place = end;
    };
    for (int i = 0; i < outline.elementCount(); ++i) {
        const QPainterPath::Element &element = outline.elementAt(i);
        if (element.isMoveTo()) {
            addEdge(place, start);
            start = rounded(element);
            place = start;
        } else if (element.isLineTo()) {
            lineTo(element);
        } else {
            const KRGPXCubicCurve curve{outline.elementAt(i - 1), element, outline.elementAt(i + 1),
                                        outline.elementAt(i + 2)};
            curve.visitLines(flatness, lineTo);
            i += 2;
        }
    }
    addEdge(place, start);
}

int KRGPXPathRaster::bandOf(int coordinate) const
{
    return std::max(0, KRGPXRasterBand::pixelOf(coordinate) - m_area.top()) / bandRows;
}

// Level edges, and those above, below and to the right of the area, decide about nothing in it.
void KRGPXPathRaster::addEdge(const Point &from, const Point &to)
{
    const bool isBeside = from.y != to.y && std::max(from.y, to.y) > m_area.top() * subpixels
                          && std::min(from.y, to.y) < (m_area.bottom() + 1) * subpixels;
    if (!isBeside)
        return;
    if (std::min(from.x, to.x) < (m_area.right() + 1) * subpixels)
        m_edges.push_back({from, to});
    else
        m_goesOnToTheRight = true;
}

void KRGPXPathRaster::paint(uchar *pixels, int bytesPerLine, QRgb color) const
{
    if (m_edges.empty())
        return;
    const int bandCount = (m_area.height() + bandRows - 1) / bandRows;
    const KRGPXBuckets bands(bandCount, [&](const auto &visitor) {
        for (std::size_t i = 0; i < m_edges.size(); ++i) {
            const auto range = std::minmax(m_edges[i].from.y, m_edges[i].to.y);
            const int last = std::min(bandCount - 1, bandOf(range.second));
            for (int band = bandOf(range.first); band <= last; ++band)
                visitor(band, int(i));
        }
    });
    // Room for a band is not taken anew for each of many thousand lines.
    thread_local KRGPXRasterBand band;
    band.setFillRule(m_fillRule);
    for (int i = 0; i < bandCount; ++i) {
        if (bands.isEmpty(i))
            continue;
        const QRect place = placeOf(i, bands.begin(i), bands.end(i));
        band.moveTo(place.top(), place.bottom() + 1, place.left(), place.right() + 1);
        std::for_each(bands.begin(i), bands.end(i), [&](int edge) { band.add(m_edges[std::size_t(edge)]); });
        for (int row = place.top(); row <= place.bottom(); ++row)
            band.paintRow(row - place.top(),
                          reinterpret_cast<QRgb *>(pixels + std::ptrdiff_t(row) * bytesPerLine) + place.left(), color);
    }
}

/// What of the image the edges of a band enclose, in pixels; the edges are those with these numbers.
QRect KRGPXPathRaster::placeOf(int bandNumber, const int *begin, const int *end) const
{
    constexpr double roundingPx = 1.0;
    const int firstRow = m_area.top() + bandNumber * bandRows;
    const int endRow = std::min(firstRow + bandRows, m_area.bottom() + 1);
    const double areaLeft = m_area.left();
    const double areaRight = m_area.right() + 1;
    double left = areaRight;
    double right = m_goesOnToTheRight ? areaRight : areaLeft;
    for (const int *number = begin; number != end; ++number) {
        const Edge &edge = m_edges[std::size_t(*number)];
        const double slope = double(edge.to.x - edge.from.x) / (edge.to.y - edge.from.y);
        const auto range = std::minmax(edge.from.y, edge.to.y);
        for (const int row : {firstRow, endRow}) {
            const int y = std::clamp(row * subpixels, range.first, range.second);
            const double x = (edge.from.x + slope * (y - edge.from.y)) / subpixels;
            left = std::min(left, x);
            right = std::max(right, x);
        }
    }
    const int firstColumn = int(std::clamp(std::floor(left - roundingPx), areaLeft, areaRight - 1.0));
    const int endColumn = int(std::clamp(std::ceil(right + roundingPx), firstColumn + 1.0, areaRight));
    return QRect(firstColumn, firstRow, endColumn - firstColumn, endRow - firstRow);
}
