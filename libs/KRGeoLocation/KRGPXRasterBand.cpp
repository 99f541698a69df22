#include "KRGPXRasterBand.h"

#include "KRGPXQuotients.h"

#include <QtAlgorithms>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace {

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

// Of 255.
unsigned coverageOf(std::uint32_t area, Qt::FillRule fillRule)
{
    int part = std::abs(int(area) >> (KRGPXRasterBand::subpixelBits + 1));
    if (fillRule == Qt::OddEvenFill) {
        part %= 2 * KRGPXRasterBand::subpixels;
        part = std::min(part, 2 * KRGPXRasterBand::subpixels - part);
    }
    return unsigned(std::min(part, 255));
}

} // namespace

void KRGPXRasterBand::moveTo(int firstRow, int endRow, int firstColumn, int endColumn)
{
    m_firstRow = firstRow;
    m_endRow = endRow;
    m_left = firstColumn * subpixels;
    m_width = endColumn - firstColumn;
    const auto rows = std::size_t(endRow - firstRow);
    m_cells.resize(std::max(m_cells.size(), rows * std::size_t(m_width + 1)));
    m_touched.resize(std::max(m_touched.size(), rows * std::size_t(wordsOfRow())));
}

inline void KRGPXRasterBand::addCell(int row, int column, int height, int area)
{
    const int index = std::max(column, -1) + 1;
    Cell &cell = m_cells[std::size_t(row) * std::size_t(m_width + 1) + std::size_t(index)];
    cell.height += std::uint32_t(height);
    cell.area += std::uint32_t(area);
    m_touched[std::size_t(row) * std::size_t(wordsOfRow()) + std::size_t(index / wordBits)] |= Word(1)
                                                                                               << (index % wordBits);
}

// Where the edge passes into the next row it is rounded as seen from where it comes from.
void KRGPXRasterBand::add(const Edge &edge)
{
    const Point from{edge.from.x - m_left, edge.from.y};
    const Point to{edge.to.x - m_left, edge.to.y};
    const int row = pixelOf(from.y);
    const int endRow = pixelOf(to.y);
    if (row == endRow) {
        if (row >= m_firstRow && row < m_endRow)
            addInRow(row - m_firstRow, {from.x, from.y - row * subpixels}, {to.x, to.y - row * subpixels});
        return;
    }
    const int direction = to.y > from.y ? 1 : -1;
    const int entry = direction > 0 ? 0 : subpixels; // into a row
    const int exit = subpixels - entry;
    const int first = direction > 0 ? std::max(row, m_firstRow) : std::min(row, m_endRow - 1);
    const int last = direction > 0 ? std::min(endRow, m_endRow - 1) : std::max(endRow, m_firstRow);
    if ((last - first) * direction < 0)
        return;
    const std::int64_t dx = std::int64_t(to.x) - from.x;
    const std::int64_t height = std::abs(to.y - from.y);
    const std::int64_t way = std::abs(first * subpixels + exit - from.y); // to the next row
    Point place{from.x, from.y - row * subpixels};
    if (first != row)
        place = {from.x + int(KRGPXQuotients::roundedDown((way - subpixels) * dx, height)), entry};
    KRGPXQuotients x(way * dx, subpixels * dx, height);
    for (int current = first;; current += direction) {
        const Point next = current == endRow ? Point{to.x, to.y - endRow * subpixels} : Point{from.x + x.value(), exit};
        addInRow(current - m_firstRow, place, next);
        if (current == last)
            return;
        place = {next.x, entry};
        x.next();
    }
}

// The same from pixel to pixel of a row.
void KRGPXRasterBand::addInRow(int row, const Point &from, const Point &to)
{
    const int height = to.y - from.y;
    if (height == 0)
        return;
    const int column = pixelOf(from.x);
    const int endColumn = pixelOf(to.x);
    if (std::max(column, endColumn) < 0) {
        addCell(row, -1, height, 0);
        return;
    }
    if (column == endColumn) {
        if (column < m_width)
            addCell(row, column, height, (from.x + to.x - 2 * column * subpixels) * height);
        return;
    }
    const int direction = to.x > from.x ? 1 : -1;
    const int entry = direction > 0 ? 0 : subpixels; // into a pixel
    const int exit = subpixels - entry;
    const int first = direction > 0 ? std::max(column, -1) : std::min(column, m_width - 1);
    const int last = direction > 0 ? std::min(endColumn, m_width - 1) : std::max(endColumn, -1);
    if ((last - first) * direction < 0)
        return;
    const std::int64_t width = std::abs(to.x - from.x);
    const std::int64_t way = std::abs(first * subpixels + exit - from.x); // to the next pixel
    Point place{from.x - column * subpixels, from.y};
    if (first != column && first >= 0)
        place = {entry, from.y + int(KRGPXQuotients::roundedDown((way - subpixels) * height, width))};
    KRGPXQuotients y(way * height, std::int64_t(subpixels) * height, width);
    for (int current = first;; current += direction) {
        const bool isEnd = current == endColumn || (current == last && current < 0 && direction < 0);
        const Point next = isEnd ? Point{to.x - endColumn * subpixels, to.y} : Point{exit, from.y + y.value()};
        const int part = next.y - place.y;
        addCell(row, current, part, (place.x + next.x) * part);
        if (current == last)
            return;
        place = {entry, next.y};
        y.next();
    }
}

void KRGPXRasterBand::paintRow(int row, QRgb *pixels, QRgb color)
{
    Cell *const cells = m_cells.data() + std::size_t(row) * std::size_t(m_width + 1);
    Word *const touched = m_touched.data() + std::size_t(row) * std::size_t(wordsOfRow());
    std::uint32_t height = 0;
    int next = 0; // cell behind the last touched one
    const auto paintUntouched = [&](int end) {
        const unsigned coverage = next < end ? coverageOf(height * (2 * subpixels), m_fillRule) : 0;
        if (coverage > 0)
            paintPixels(pixels + next - 1, pixels + end - 1, coverage, color);
    };
    for (int word = 0; word < wordsOfRow(); ++word) {
        for (; touched[word] != 0; touched[word] &= touched[word] - 1) {
            const int i = word * wordBits + int(qCountTrailingZeroBits(touched[word]));
            paintUntouched(i);
            height += cells[i].height;
            const unsigned coverage = coverageOf(height * (2 * subpixels) - cells[i].area, m_fillRule);
            if (i > 0 && coverage > 0)
                paintPixel(pixels + i - 1, coverage, color);
            cells[i] = {0, 0};
            next = i + 1;
        }
    }
    paintUntouched(m_width + 1);
}
