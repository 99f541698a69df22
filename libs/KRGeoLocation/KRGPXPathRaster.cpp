#include "KRGPXPathRaster.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int bandRows = 64;
constexpr int subpixels = 256;
constexpr int subpixelBits = 8;

// Pixel that holds the coordinate.
constexpr int pixelOf(int coordinate)
{
    return coordinate >> subpixelBits;
}

// By how far straight lines may miss a curve, in pixels. The painter's own.
constexpr double flatnessPx = 0.25;
constexpr int mostHalvings = 9;

// The painter measures its curves before they are transformed.
double flatnessOf(const QTransform &transform)
{
    const double scale = std::max(std::abs(transform.m11()), std::abs(transform.m22()));
    return scale > 0.0 ? flatnessPx / scale : flatnessPx;
}

struct Curve {
    QPointF p1;
    QPointF p2;
    QPointF p3;
    QPointF p4;

    bool isFlat(double flatness) const
    {
        const QPointF chord = p4 - p1;
        const QPointF a = p1 - p2;
        const QPointF b = p1 - p3;
        const double length = chord.manhattanLength();
        if (length > 1.0)
            return std::abs(chord.x() * a.y() - chord.y() * a.x()) + std::abs(chord.x() * b.y() - chord.y() * b.x())
                   < flatness * length;
        return a.manhattanLength() + b.manhattanLength() < flatness;
    }

    std::pair<Curve, Curve> halves() const
    {
        const QPointF middle = (p2 + p3) * 0.5;
        const QPointF a2 = (p1 + p2) * 0.5;
        const QPointF b3 = (p3 + p4) * 0.5;
        const QPointF a3 = (a2 + middle) * 0.5;
        const QPointF b2 = (middle + b3) * 0.5;
        const QPointF centre = (a3 + b2) * 0.5;
        return {{p1, a2, a3, centre}, {centre, b2, b3, p4}};
    }
};

template <typename Visitor>
void visitLines(const Curve &curve, double flatness, int halvings, const Visitor &visitor)
{
    if (halvings == 0 || curve.isFlat(flatness)) {
        visitor(curve.p4);
        return;
    }
    const std::pair<Curve, Curve> halves = curve.halves();
    visitLines(halves.first, flatness, halvings - 1, visitor);
    visitLines(halves.second, flatness, halvings - 1, visitor);
}

std::int64_t roundedDown(std::int64_t dividend, std::int64_t divisor)
{
    return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}

// Quotients rounded down, of a sequence of dividends at equal distances.
class Quotients
{
public:
    Quotients(std::int64_t dividend, std::int64_t step, std::int64_t divisor)
        : m_divisor(divisor), m_quotient(roundedDown(dividend, divisor)), m_rest(dividend - m_quotient * divisor),
          m_step(roundedDown(step, divisor)), m_stepRest(step - m_step * divisor)
    { }

    int value() const { return int(m_quotient); }
    void next()
    {
        m_quotient += m_step;
        m_rest += m_stepRest;
        if (m_rest >= m_divisor) {
            m_rest -= m_divisor;
            ++m_quotient;
        }
    }

private:
    std::int64_t m_divisor;
    std::int64_t m_quotient;
    std::int64_t m_rest;
    std::int64_t m_step;
    std::int64_t m_stepRest;
};

// All four bytes times a fraction of 255, rounded like the painter does.
inline QRgb scaled(QRgb color, unsigned fraction)
{
    quint32 odd = (color & 0xff00ffU) * fraction;
    odd = ((odd + ((odd >> 8) & 0xff00ffU) + 0x800080U) >> 8) & 0xff00ffU;
    quint32 even = ((color >> 8) & 0xff00ffU) * fraction;
    even = (even + ((even >> 8) & 0xff00ffU) + 0x800080U) & 0xff00ff00U;
    return odd | even;
}

void paintPixels(QRgb *begin, QRgb *end, unsigned coverage, QRgb color)
{
    const QRgb source = coverage == 255 ? color : scaled(color, coverage);
    const unsigned rest = 255U - unsigned(qAlpha(source));
    if (rest == 0)
        std::fill(begin, end, source);
    else
        for (QRgb *pixel = begin; pixel != end; ++pixel)
            *pixel = source + scaled(*pixel, rest);
}

// Of 255.
unsigned coverageOf(std::uint32_t area, Qt::FillRule fillRule)
{
    int part = std::abs(int(area) >> (subpixelBits + 1));
    if (fillRule == Qt::OddEvenFill) {
        part %= 2 * subpixels;
        part = std::min(part, 2 * subpixels - part);
    }
    return unsigned(std::min(part, 255));
}

} // namespace

struct KRGPXPathRaster::Band {
    Qt::FillRule fillRule;
    int firstRow;
    int endRow;
    int width;
    std::vector<Cell> cells;
    // of the touched cells of each row
    std::vector<int> first;
    std::vector<int> last;

    void add(int row, int column, int height, int area)
    {
        const int index = std::max(column, -1) + 1;
        Cell &cell = cells[std::size_t(row) * std::size_t(width + 1) + std::size_t(index)];
        cell.height += std::uint32_t(height);
        cell.area += std::uint32_t(area);
        first[std::size_t(row)] = std::min(first[std::size_t(row)], index);
        last[std::size_t(row)] = std::max(last[std::size_t(row)], index);
    }
};

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
            const Curve curve{outline.elementAt(i - 1), element, outline.elementAt(i + 1), outline.elementAt(i + 2)};
            visitLines(curve, flatness, mostHalvings, lineTo);
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
    m_left = std::min({m_left, from.x, to.x});
    m_right = std::max({m_right, from.x, to.x});
    if (std::min(from.x, to.x) < m_size.width() * subpixels)
        m_edges.push_back({from, to});
}

// The numbers of the edges, band after band; @p starts gets where each band begins, and the end of the last one.
std::vector<std::size_t> KRGPXPathRaster::sortIntoBands(std::vector<std::size_t> *starts) const
{
    const int count = (m_size.height() + bandRows - 1) / bandRows;
    const auto visitAll = [&](const auto &visitor) {
        for (std::size_t i = 0; i < m_edges.size(); ++i) {
            const auto range = std::minmax(m_edges[i].from.y, m_edges[i].to.y);
            const int first = std::max(0, pixelOf(range.first)) / bandRows;
            const int last = std::min(count - 1, std::max(0, pixelOf(range.second)) / bandRows);
            for (int band = first; band <= last; ++band)
                visitor(std::size_t(band), i);
        }
    };
    starts->assign(std::size_t(count) + 1, 0);
    visitAll([&](std::size_t band, std::size_t) { ++(*starts)[band + 1]; });
    for (std::size_t band = 1; band < starts->size(); ++band)
        (*starts)[band] += (*starts)[band - 1];
    std::vector<std::size_t> sorted(starts->back());
    std::vector<std::size_t> ends(starts->begin(), starts->end() - 1);
    visitAll([&](std::size_t band, std::size_t edge) { sorted[ends[band]++] = edge; });
    return sorted;
}

void KRGPXPathRaster::paint(uchar *pixels, int bytesPerLine, QRgb color) const
{
    if (m_edges.empty())
        return;
    std::vector<std::size_t> starts;
    const std::vector<std::size_t> sorted = sortIntoBands(&starts);
    const int firstColumn = std::max(0, pixelOf(m_left));
    const int lastColumn = std::min(m_size.width() - 1, std::max(firstColumn, pixelOf(m_right)));
    const auto moved = [left = firstColumn * subpixels](const Edge &edge) {
        return Edge{{edge.from.x - left, edge.from.y}, {edge.to.x - left, edge.to.y}};
    };
    const auto rows = std::size_t(std::min(bandRows, m_size.height()));
    Band band;
    band.fillRule = m_fillRule;
    band.width = lastColumn - firstColumn + 1;
    band.cells.assign(rows * std::size_t(band.width + 1), {0, 0});
    band.first.assign(rows, std::numeric_limits<int>::max());
    band.last.assign(rows, -1);
    for (std::size_t i = 0; i + 1 < starts.size(); ++i) {
        band.firstRow = int(i) * bandRows;
        band.endRow = std::min(band.firstRow + bandRows, m_size.height());
        for (std::size_t edge = starts[i]; edge < starts[i + 1]; ++edge)
            addEdge(&band, moved(m_edges[sorted[edge]]));
        for (int row = band.firstRow; row < band.endRow; ++row)
            paintRow(&band, row - band.firstRow,
                     reinterpret_cast<QRgb *>(pixels + std::ptrdiff_t(row) * bytesPerLine) + firstColumn, color);
    }
}

// Where the edge passes into the next row it is rounded as seen from where it comes from.
void KRGPXPathRaster::addEdge(Band *band, const Edge &edge)
{
    const Point &from = edge.from;
    const Point &to = edge.to;
    const int row = pixelOf(from.y);
    const int endRow = pixelOf(to.y);
    if (row == endRow) {
        if (row >= band->firstRow && row < band->endRow)
            addInRow(band, row - band->firstRow, {from.x, from.y - row * subpixels}, {to.x, to.y - row * subpixels});
        return;
    }
    const int direction = to.y > from.y ? 1 : -1;
    const int entry = direction > 0 ? 0 : subpixels; // into a row
    const int exit = subpixels - entry;
    const int first = direction > 0 ? std::max(row, band->firstRow) : std::min(row, band->endRow - 1);
    const int last = direction > 0 ? std::min(endRow, band->endRow - 1) : std::max(endRow, band->firstRow);
    if ((last - first) * direction < 0)
        return;
    const std::int64_t dx = std::int64_t(to.x) - from.x;
    const std::int64_t height = std::abs(to.y - from.y);
    const std::int64_t way = std::abs(first * subpixels + exit - from.y); // to the next row
    Point place{from.x, from.y - row * subpixels};
    if (first != row)
        place = {from.x + int(roundedDown((way - subpixels) * dx, height)), entry};
    Quotients x(way * dx, subpixels * dx, height);
    for (int current = first;; current += direction) {
        const Point next = current == endRow ? Point{to.x, to.y - endRow * subpixels} : Point{from.x + x.value(), exit};
        addInRow(band, current - band->firstRow, place, next);
        if (current == last)
            return;
        place = {next.x, entry};
        x.next();
    }
}

// The same from pixel to pixel of a row.
void KRGPXPathRaster::addInRow(Band *band, int row, const Point &from, const Point &to)
{
    const int height = to.y - from.y;
    if (height == 0)
        return;
    const int column = pixelOf(from.x);
    const int endColumn = pixelOf(to.x);
    if (std::max(column, endColumn) < 0) {
        band->add(row, -1, height, 0);
        return;
    }
    if (column == endColumn) {
        if (column < band->width)
            band->add(row, column, height, (from.x + to.x - 2 * column * subpixels) * height);
        return;
    }
    const int direction = to.x > from.x ? 1 : -1;
    const int entry = direction > 0 ? 0 : subpixels; // into a pixel
    const int exit = subpixels - entry;
    const int first = direction > 0 ? std::max(column, -1) : std::min(column, band->width - 1);
    const int last = direction > 0 ? std::min(endColumn, band->width - 1) : std::max(endColumn, -1);
    if ((last - first) * direction < 0)
        return;
    const std::int64_t width = std::abs(to.x - from.x);
    const std::int64_t way = std::abs(first * subpixels + exit - from.x); // to the next pixel
    Point place{from.x - column * subpixels, from.y};
    if (first != column && first >= 0)
        place = {entry, from.y + int(roundedDown((way - subpixels) * height, width))};
    Quotients y(way * height, std::int64_t(subpixels) * height, width);
    for (int current = first;; current += direction) {
        const bool isEnd = current == endColumn || (current == last && current < 0 && direction < 0);
        const Point next = isEnd ? Point{to.x - endColumn * subpixels, to.y} : Point{exit, from.y + y.value()};
        const int part = next.y - place.y;
        band->add(row, current, part, (place.x + next.x) * part);
        if (current == last)
            return;
        place = {entry, next.y};
        y.next();
    }
}

void KRGPXPathRaster::paintRow(Band *band, int row, QRgb *pixels, QRgb color)
{
    int &first = band->first[std::size_t(row)];
    int &last = band->last[std::size_t(row)];
    Cell *const cells = band->cells.data() + std::size_t(row) * std::size_t(band->width + 1);
    std::uint32_t height = 0;
    for (int i = first; i <= last;) {
        height += cells[i].height;
        const unsigned coverage = coverageOf(height * (2 * subpixels) - cells[i].area, band->fillRule);
        if (i > 0 && coverage > 0)
            paintPixels(pixels + i - 1, pixels + i, coverage, color);
        cells[i] = {0, 0};
        const int untouched = ++i;
        while (i <= last && cells[i].height == 0 && cells[i].area == 0)
            ++i;
        const unsigned full = coverageOf(height * (2 * subpixels), band->fillRule);
        if (full > 0 && i > untouched)
            paintPixels(pixels + untouched - 1, pixels + i - 1, full, color);
    }
    const unsigned coverage = coverageOf(height * (2 * subpixels), band->fillRule);
    if (coverage > 0 && last < band->width)
        paintPixels(pixels + last, pixels + band->width, coverage, color);
    first = std::numeric_limits<int>::max();
    last = -1;
}
