#include "KRGPXLineCrowd.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int squarePx = 4;
constexpr int mostLinesOfSquare = 32;

constexpr std::size_t knownLines = 4096; // a power of two

// Farther away nothing is on an image, and quarters of pixels still are whole numbers.
constexpr double farthestPx = 1e8;

int quarters(double pixels)
{
    return int(std::lround(std::clamp(pixels, -farthestPx, farthestPx) * 4.0));
}

} // namespace

KRGPXLineCrowd::KRGPXLineCrowd(const QSize &size)
    : m_area(0.0, 0.0, size.width(), size.height()), m_columns(size.width() / squarePx + 1),
      m_squares(std::size_t(m_columns) * std::size_t(size.height() / squarePx + 1)), m_known(knownLines)
{ }

bool KRGPXLineCrowd::takes(const QPointF &from, const QPointF &to)
{
    if (isKnown(from, to))
        return false;
    QPointF begin = from;
    QPointF end = to;
    cutToImage(&begin, &end);
    const QPointF way = end - begin;
    const int steps = int(std::max(std::abs(way.x()), std::abs(way.y()))) / squarePx + 1;
    bool isAnyFree = false;
    for (int i = 0; i <= steps; ++i) {
        const QPointF place = begin + way * (double(i) / steps);
        const auto row = std::size_t(place.y()) / squarePx;
        std::uint8_t &lines = m_squares[row * std::size_t(m_columns) + std::size_t(place.x()) / squarePx];
        if (lines < mostLinesOfSquare) {
            ++lines;
            isAnyFree = true;
        }
    }
    return isAnyFree;
}

/// Whether the line lies upon one of those before, in either direction; not all of them are remembered.
bool KRGPXLineCrowd::isKnown(const QPointF &from, const QPointF &to)
{
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

/// What lies beside the image counts at its edge, where the pen may reach.
void KRGPXLineCrowd::cutToImage(QPointF *from, QPointF *to) const
{
    const auto cutAt = [](double edge, double a, double b) { return (edge - a) / (b - a); };
    const auto cutEnd = [&](QPointF *end, const QPointF &other) {
        double part = 0.0; // of the way from this end to the other, that is outside
        if (end->x() < m_area.left() && other.x() > m_area.left())
            part = std::max(part, cutAt(m_area.left(), end->x(), other.x()));
        if (end->x() > m_area.right() && other.x() < m_area.right())
            part = std::max(part, cutAt(m_area.right(), end->x(), other.x()));
        if (end->y() < m_area.top() && other.y() > m_area.top())
            part = std::max(part, cutAt(m_area.top(), end->y(), other.y()));
        if (end->y() > m_area.bottom() && other.y() < m_area.bottom())
            part = std::max(part, cutAt(m_area.bottom(), end->y(), other.y()));
        *end += (other - *end) * part;
    };
    const QPointF start = *from;
    cutEnd(from, *to);
    cutEnd(to, start);
    for (QPointF *end : {from, to}) {
        end->setX(std::clamp(end->x(), m_area.left(), m_area.right()));
        end->setY(std::clamp(end->y(), m_area.top(), m_area.bottom()));
    }
}

QPainterPath KRGPXLineCrowd::thinned(const QPainterPath &path, const QTransform &transform, const QSize &size)
{
    KRGPXLineCrowd crowd(size);
    QPainterPath lines;
    lines.setFillRule(path.fillRule());
    QPointF place; // in pixels
    bool isAtEnd = false; // of what has been taken
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element &element = path.elementAt(i);
        const QPointF next = transform.map(QPointF(element));
        const bool isTaken = element.isLineTo() && crowd.takes(place, next);
        if (isTaken) {
            if (!isAtEnd)
                lines.moveTo(path.elementAt(i - 1));
            lines.lineTo(element);
        }
        isAtEnd = isTaken;
        place = next;
    }
    return lines;
}
