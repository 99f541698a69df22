#include "KRGPXLineOutline.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double pi = 3.14159265358979323846;

double cross(const QPointF &a, const QPointF &b)
{
    return a.x() * b.y() - a.y() * b.x();
}

/// As long as @p length, to the left of the way on a map whose y grows upwards.
QPointF normalOf(const QPointF &from, const QPointF &to, double length)
{
    const QPointF way = to - from;
    return QPointF(-way.y(), way.x()) * (length / std::hypot(way.x(), way.y()));
}

} // namespace

// A mitre reaches beyond the circle by radius * (1 / cos(turn / 2) - 1).
KRGPXLineOutline::KRGPXLineOutline(double width, double tolerance)
    : m_radius(width / 2.0), m_slightTurn(2.0 * std::acos(m_radius / (m_radius + tolerance)))
{ }

bool KRGPXLineOutline::isFor(const QPainterPath &path)
{
    for (int i = 0; i < path.elementCount(); ++i)
        if (path.elementAt(i).isCurveTo())
            return false;
    return true;
}

QPainterPath KRGPXLineOutline::of(const QPainterPath &lines)
{
    m_outline = QPainterPath();
    m_outline.setFillRule(Qt::WindingFill);
    std::vector<QPointF> points;
    const auto finish = [&] {
        const bool isClosed = points.size() > 2 && points.front() == points.back();
        if (isClosed)
            points.pop_back();
        if (points.size() > 1)
            appendOutline(points, isClosed);
        points.clear();
    };
    for (int i = 0; i < lines.elementCount(); ++i) {
        const QPainterPath::Element &element = lines.elementAt(i);
        if (element.isMoveTo())
            finish();
        if (points.empty() || points.back() != element)
            points.push_back(element);
    }
    finish();
    return m_outline;
}

void KRGPXLineOutline::appendOutline(const std::vector<QPointF> &points, bool isClosed)
{
    m_isBeginning = true;
    appendSide(points, isClosed);
    m_isBeginning = isClosed;
    appendSide(std::vector<QPointF>(points.rbegin(), points.rend()), isClosed);
}

/// The left side from the first point to the last, and the cap there if there is one.
void KRGPXLineOutline::appendSide(const std::vector<QPointF> &points, bool isClosed)
{
    const std::size_t count = points.size();
    if (!isClosed)
        goTo(points[0] + normalOf(points[0], points[1], m_radius));
    for (std::size_t i = isClosed ? 0 : 1; i < count - (isClosed ? 0 : 1); ++i)
        appendJoin(points[(i + count - 1) % count], points[i], points[(i + 1) % count]);
    if (!isClosed)
        appendCap(points[count - 1], normalOf(points[count - 2], points[count - 1], m_radius));
}

void KRGPXLineOutline::appendJoin(const QPointF &before, const QPointF &place, const QPointF &after)
{
    const QPointF first = normalOf(before, place, m_radius);
    const QPointF second = normalOf(place, after, m_radius);
    const double turn = std::atan2(cross(first, second), QPointF::dotProduct(first, second));
    const QPointF sum = first + second;
    const double reach = m_radius * std::tan(std::min(std::abs(turn) / 2.0, m_slightTurn));
    const bool isSlight = std::abs(turn) <= m_slightTurn && reach <= (place - before).manhattanLength() / 2.0
                          && reach <= (after - place).manhattanLength() / 2.0;
    if (isSlight) {
        goTo(place + sum * (2.0 * m_radius * m_radius / QPointF::dotProduct(sum, sum)));
        return;
    }
    goTo(place + first);
    // The left side is the outer one where the way turns to the right, and both are where it turns back.
    if (turn < 0.0 || turn == pi) {
        appendArc(place, first, second, -std::abs(turn));
        return;
    }
    // Over the corner itself, so that nothing between the two sides is enclosed the other way round.
    goTo(place);
    goTo(place + second);
}

/// Of cubic Bezier curves, each around a quarter of a circle at most.
void KRGPXLineOutline::appendArc(const QPointF &centre, const QPointF &from, const QPointF &to, double angle)
{
    const auto turned = [](const QPointF &radius) { return QPointF(-radius.y(), radius.x()); };
    const int parts = int(std::ceil(std::abs(angle) / (pi / 2.0) - 1e-6));
    const double part = angle / parts;
    // Riskus 2006: at most 0.03 % of the radius beside the circle.
    const double handle = 4.0 / 3.0 * std::tan(part / 4.0);
    QPointF first = from;
    for (int i = 1; i <= parts; ++i) {
        const QPointF last = i < parts ? first * std::cos(part) + turned(first) * std::sin(part) : to;
        m_outline.cubicTo(centre + first + turned(first) * handle, centre + last - turned(last) * handle,
                          centre + last);
        first = last;
    }
}

void KRGPXLineOutline::appendCap(const QPointF &end, const QPointF &normal)
{
    goTo(end + normal);
    appendArc(end, normal, -normal, -pi);
}

void KRGPXLineOutline::goTo(const QPointF &place)
{
    if (m_isBeginning)
        m_outline.moveTo(place);
    else if (m_outline.currentPosition() != place)
        m_outline.lineTo(place);
    m_isBeginning = false;
}
