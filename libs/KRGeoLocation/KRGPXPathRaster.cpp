#include "KRGPXPathRaster.h"

#include "KRGPXCubicCurve.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>

namespace {

constexpr int subpixels = KRGPXRasterBand::subpixels;

// The painter measures its curves before they are transformed.
double flatnessOf(const QTransform &transform)
{
    const double scale = std::max(std::abs(transform.m11()), std::abs(transform.m22()));
    return scale > 0.0 ? KRGPXCubicCurve::flatnessPx / scale : KRGPXCubicCurve::flatnessPx;
}

// All four bytes times a fraction of 255, rounded like the painter does.
inline QRgb scaled(QRgb color, unsigned fraction)
{
    quint32 odd = (color & 0xff00ffU) * fraction;
    odd = ((odd + ((odd >> 8) & 0xff00ffU) + 0x800080U) >> 8) & 0xff00ffU;
    quint32 even = ((color >> 8) & 0xff00ffU) * fraction;
    even = (even + ((even >> 8) & 0xff00ffU) + 0x800080U) & 0xff00ff00U;
    return odd | even;
}

inline void paintPixel(QRgb *pixel, unsigned coverage, QRgb color)
{
    const QRgb source = scaled(color, coverage);
    *pixel = source + scaled(*pixel, 255U - unsigned(qAlpha(source)));
}

void paintPixels(QRgb *begin, QRgb *end, unsigned coverage, QRgb color)
{
    const QRgb source = scaled(color, coverage);
    const unsigned rest = 255U - unsigned(qAlpha(source));
    if (rest == 0) {
        std::fill(begin, end, source);
        return;
    }
    // Four pixels at once, byte by byte, is what compilers turn into one instruction for all.
    constexpr int bytesAtOnce = 16;
    const std::array<QRgb, 4> sources{source, source, source, source};
    std::array<uchar, bytesAtOnce> sourceBytes;
    std::memcpy(sourceBytes.data(), sources.data(), bytesAtOnce);
    for (; end - begin >= 4; begin += 4) {
        std::array<uchar, bytesAtOnce> bytes;
        std::memcpy(bytes.data(), begin, bytesAtOnce);
        for (std::size_t i = 0; i < bytesAtOnce; ++i) {
            const auto product = quint16(bytes[i] * rest);
            bytes[i] = uchar(sourceBytes[i] + (quint16(product + (product >> 8) + 128) >> 8));
        }
        std::memcpy(begin, bytes.data(), bytesAtOnce);
    }
    for (; begin != end; ++begin)
        *begin = source + scaled(*begin, rest);
}

} // namespace

void KRGPXPathRaster::clear(Qt::FillRule fillRule)
{
    m_band.setFillRule(fillRule);
    m_edges.clear();
    m_goesOnToTheRight = false;
}

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

// Level edges, and those above, below and to the right of the image, decide about nothing in it.
void KRGPXPathRaster::addEdge(const Point &from, const Point &to)
{
    const bool isBeside =
        from.y != to.y && std::max(from.y, to.y) > 0 && std::min(from.y, to.y) < m_size.height() * subpixels;
    if (!isBeside)
        return;
    if (std::min(from.x, to.x) < m_size.width() * subpixels)
        m_edges.push_back({from, to});
    else
        m_goesOnToTheRight = true;
}

void KRGPXPathRaster::paint(uchar *pixels, int bytesPerLine, QRgb color)
{
    visit([=](int row, int first, int end, unsigned coverage) {
        QRgb *const rowPixels = reinterpret_cast<QRgb *>(pixels + std::ptrdiff_t(row) * bytesPerLine);
        if (end == first + 1)
            paintPixel(rowPixels + first, coverage, color);
        else
            paintPixels(rowPixels + first, rowPixels + end, coverage, color);
    });
}

KRGPXBuckets KRGPXPathRaster::sortedIntoBands() const
{
    const int count = (m_size.height() + bandRows - 1) / bandRows;
    const auto bandOf = [](int y) { return std::max(0, KRGPXRasterBand::pixelOf(y)) / bandRows; };
    return KRGPXBuckets(count, [&](const auto &visitor) {
        for (std::size_t i = 0; i < m_edges.size(); ++i) {
            const auto range = std::minmax(m_edges[i].from.y, m_edges[i].to.y);
            const int last = std::min(count - 1, bandOf(range.second));
            for (int band = bandOf(range.first); band <= last; ++band)
                visitor(band, int(i));
        }
    });
}

/// What of the image the edges of a band enclose, in pixels; the edges are those with these numbers.
QRect KRGPXPathRaster::placeOf(int bandNumber, const int *begin, const int *end) const
{
    constexpr double roundingPx = 1.0;
    const int firstRow = bandNumber * bandRows;
    const int endRow = std::min(firstRow + bandRows, m_size.height());
    double left = m_size.width();
    double right = m_goesOnToTheRight ? m_size.width() : 0.0;
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
    const double width = m_size.width();
    const int firstColumn = int(std::clamp(std::floor(left - roundingPx), 0.0, width - 1.0));
    const int endColumn = int(std::clamp(std::ceil(right + roundingPx), firstColumn + 1.0, width));
    return QRect(firstColumn, firstRow, endColumn - firstColumn, endRow - firstRow);
}
