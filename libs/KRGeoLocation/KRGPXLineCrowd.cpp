#include "KRGPXLineCrowd.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double smallestSquarePx = 4.0;
// Small beside the pen, too, or lines on one side of a square would hide those on the other.
constexpr double squaresOfReach = 16.0;

// In squares, of a line: shorter ones are not divided, nor is so little left out between two parts.
constexpr int fewSteps = 16;
constexpr double shortGap = 8.0;

constexpr double fixedOne = 4294967296.0;

constexpr std::size_t knownLines = 4096; // a power of two

double squarePxFor(double reach)
{
    return std::max(smallestSquarePx, reach / squaresOfReach);
}

// Of a wider pen fewer lines through a square show: as many as through a larger one.
int linesFor(double reach, int mostLines)
{
    constexpr double largeSquaresOfReach = 4.0;
    const double largeSquarePx = std::max(smallestSquarePx, reach / largeSquaresOfReach);
    return std::max(2, int(std::lround(mostLines * squarePxFor(reach) / largeSquarePx)));
}

// Farther away nothing is on an image, and quarters of pixels still are whole numbers.
constexpr double farthestPx = 1e8;

int quarters(double pixels)
{
    return int(std::lround(pixels * 4.0));
}

} // namespace

KRGPXLineCrowd::KRGPXLineCrowd(const QSize &size, double reach, int mostLines)
    : m_area(QRectF(QPointF(), size).marginsAdded(QMarginsF() + std::clamp(reach, 0.0, farthestPx))),
      m_squarePx(squarePxFor((m_area.width() - size.width()) / 2.0)),
      m_mostLines(linesFor((m_area.width() - size.width()) / 2.0, mostLines)),
      m_columns(std::size_t(m_area.width() / m_squarePx) + 3),
      m_squares(m_columns * (std::size_t(m_area.height() / m_squarePx) + 3)), m_known(knownLines)
{ }

int KRGPXLineCrowd::mostLinesFor(double widthPx)
{
    constexpr int mostWideLines = 8;
    return widthPx >= smallestSquarePx ? mostWideLines : usualMostLines;
}

double KRGPXLineCrowd::mostLengthFor(const QSize &size, double reach, int mostLines)
{
    const double area = (size.width() + 2.0 * reach) * (size.height() + 2.0 * reach);
    return linesFor(reach, mostLines) * area / squarePxFor(reach);
}

const std::vector<KRGPXLineCrowd::Part> &KRGPXLineCrowd::partsThatShow(const QPointF &from, const QPointF &to)
{
    m_parts.clear();
    const Part inArea = partInArea(from, to);
    if (inArea.first > inArea.last || isKnown(from, to))
        return m_parts;
    // What rounding leaves of places far away is cut off.
    const auto inside = [this](const QPointF &place) {
        return QPointF(std::clamp(place.x(), m_area.left(), m_area.right()),
                       std::clamp(place.y(), m_area.top(), m_area.bottom()));
    };
    const QPointF begin = inside(from + (to - from) * inArea.first);
    const QPointF end = inside(from + (to - from) * inArea.last);
    const QPointF way = (end - begin) / m_squarePx;
    const int steps = int(std::max(std::abs(way.x()), std::abs(way.y()))) + 1;
    // A line counts once for a square, and not again for that where it goes on from the one before.
    const std::size_t endSquare = squareOf(fixedPlaceOf(end));
    FixedPlace place = fixedPlaceOf(begin);
    std::size_t last = squareOf(place) == endSquare ? m_squares.size() : m_lastSquare;
    const FixedPlace step{std::llround(way.x() / steps * fixedOne), std::llround(way.y() / steps * fixedOne)};
    for (int i = 0; i <= steps; ++i) {
        const std::size_t square = i < steps ? squareOf(place) : endSquare;
        std::uint8_t &lines = m_squares[square];
        if (lines < m_mostLines) {
            if (m_parts.empty() || i - m_parts.back().last > shortGap)
                m_parts.push_back({double(i), double(i)});
            m_parts.back().last = i;
            if (square != last)
                ++lines;
        }
        last = square;
        place.x += step.x;
        place.y += step.y;
    }
    m_lastSquare = endSquare;
    if (!m_parts.empty())
        divide(inArea, steps);
    return m_parts;
}

/// Makes parts of the line out of steps.
void KRGPXLineCrowd::divide(const Part &inArea, int steps)
{
    double length = 0.0;
    for (Part &part : m_parts) {
        // in the squares before and behind as well, as far as they are not entered in the middle
        part = {std::max(0.0, part.first - 1.0), std::min<double>(steps, part.last + 1.0)};
        length += part.last - part.first;
    }
    if (steps < fewSteps || length > steps / 2.0) {
        m_parts.assign(1, {0.0, 1.0});
        return;
    }
    const double stepsToPart = (inArea.last - inArea.first) / steps;
    for (Part &part : m_parts)
        part = {part.first > 0.0 ? inArea.first + part.first * stepsToPart : 0.0,
                part.last < steps ? inArea.first + part.last * stepsToPart : 1.0};
}

bool KRGPXLineCrowd::isKnown(const QPointF &from, const QPointF &to)
{
    // Beyond, quarters of pixels are no whole numbers.
    const double farthest = std::max({std::abs(from.x()), std::abs(from.y()), std::abs(to.x()), std::abs(to.y())});
    if (!(farthest <= farthestPx))
        return false;
    const bool isForward = from.x() < to.x() || (from.x() == to.x() && from.y() < to.y());
    const QPointF &first = isForward ? from : to;
    const QPointF &last = isForward ? to : from;
    const Line line{quarters(first.x()), quarters(first.y()), quarters(last.x()), quarters(last.y())};
    const std::uint64_t ends[] = {(std::uint64_t(std::uint32_t(line.x1)) << 32) | std::uint32_t(line.y1),
                                  (std::uint64_t(std::uint32_t(line.x2)) << 32) | std::uint32_t(line.y2)};
    // Multiplied by odd numbers all bits decide about the upper ones (Knuth 1973, 6.4).
    const std::uint64_t mixed = ends[0] * 0x9E3779B97F4A7C15U ^ ends[1] * 0xC2B2AE3D27D4EB4FU;
    Line &known = m_known[(mixed >> 40) % knownLines];
    if (known == line)
        return true;
    known = line;
    return false;
}

/// Its end before its begin when nothing of the line is in the area (Liang and Barsky 1984).
KRGPXLineCrowd::Part KRGPXLineCrowd::partInArea(const QPointF &from, const QPointF &to) const
{
    const QPointF way = to - from;
    Part part{0.0, 1.0};
    const auto cut = [&](double outwards, double room) {
        if (outwards < 0.0)
            part.first = std::max(part.first, room / outwards);
        else if (outwards > 0.0)
            part.last = std::min(part.last, room / outwards);
        return part.first <= part.last && (outwards != 0.0 || room >= 0.0);
    };
    const bool isInside = cut(-way.x(), from.x() - m_area.left()) && cut(way.x(), m_area.right() - from.x())
                          && cut(-way.y(), from.y() - m_area.top()) && cut(way.y(), m_area.bottom() - from.y());
    return isInside ? part : Part{1.0, 0.0};
}

KRGPXLineCrowd::FixedPlace KRGPXLineCrowd::fixedPlaceOf(const QPointF &place) const
{
    const double x = place.x() - m_area.left();
    const double y = place.y() - m_area.top();
    // Behind the outer square, where what rounding leaves of the last step ends.
    return {std::llround((x / m_squarePx + 1.0) * fixedOne), std::llround((y / m_squarePx + 1.0) * fixedOne)};
}

QPainterPath KRGPXLineCrowd::thinned(const QPainterPath &path, const QTransform &transform, const QSize &size,
                                     double reach, int mostLines)
{
    return KRGPXLineCrowd(size, reach, mostLines).thinned(path, transform);
}

QPainterPath KRGPXLineCrowd::thinned(const QPainterPath &path, const QTransform &transform)
{
    m_lastSquare = m_squares.size();
    QPainterPath lines;
    lines.setFillRule(path.fillRule());
    QPointF place; // in pixels
    bool isAtEnd = false; // of what has been taken
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPointF element = path.elementAt(i);
        const QPointF next = transform.map(element);
        bool isTaken = false;
        if (path.elementAt(i).isLineTo()) {
            const QPointF begin = path.elementAt(i - 1);
            for (const Part &part : partsThatShow(place, next)) {
                if (!isAtEnd || part.first > 0.0)
                    lines.moveTo(begin + (element - begin) * part.first);
                isTaken = part.last == 1.0;
                lines.lineTo(isTaken ? element : begin + (element - begin) * part.last);
            }
        }
        isAtEnd = isTaken;
        place = next;
    }
    return lines;
}
