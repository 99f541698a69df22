#include "KRGPXPathExcerpt.h"

#include <algorithm>

namespace {

// around a part: beyond, no rounding of the rasteriser leads back into it
constexpr double marginPx = 1.0;

// The sides of a rectangle beyond which a point lies, one bit each (Cohen and Sutherland 1967).
unsigned sidesOf(const QPointF &pixel, const QRectF &rect)
{
    return (pixel.x() < rect.left() ? 1U : 0U) | (pixel.x() > rect.right() ? 2U : 0U)
           | (pixel.y() < rect.top() ? 4U : 0U) | (pixel.y() > rect.bottom() ? 8U : 0U);
}

} // namespace

KRGPXPathExcerpt::KRGPXPathExcerpt(const QPainterPath &path, const QTransform &transform) : m_fillRule(path.fillRule())
{
    m_elements.reserve(std::size_t(path.elementCount()));
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element &element = path.elementAt(i);
        m_elements.push_back({element, transform.map(QPointF(element)), element.type});
    }
}

KRGPXPathExcerpt KRGPXPathExcerpt::reducedTo(const QRect &part) const
{
    KRGPXPathExcerpt excerpt(m_fillRule);
    const QRectF surroundings = QRectF(part).adjusted(-marginPx, -marginPx, marginPx, marginPx);
    const Element *const end = m_elements.data() + m_elements.size();
    for (const Element *begin = m_elements.data(); begin != end;) {
        const Element *const next =
            std::find_if(begin + 1, end, [](const Element &e) { return e.type == QPainterPath::MoveToElement; });
        excerpt.appendReduced(begin, next, surroundings);
        begin = next;
    }
    return excerpt;
}

// One subpath. All of it beyond one side leaves no marks, since it ends where it began.
void KRGPXPathExcerpt::appendReduced(const Element *begin, const Element *end, const QRectF &surroundings)
{
    const std::size_t start = m_elements.size();
    m_elements.push_back(*begin);
    unsigned pointSides = sidesOf(begin->pixel, surroundings); // where the last point lies
    unsigned stretchSides = pointSides; // beyond which all of the stretch left out so far lies
    bool isLeavingOut = false;
    bool isSeen = false;
    for (const Element *element = begin + 1; element != end;) {
        const int count = element->type == QPainterPath::CurveToElement ? 3 : 1;
        unsigned sides = pointSides;
        for (int i = 0; i < count; ++i) {
            pointSides = sidesOf(element[i].pixel, surroundings);
            sides &= pointSides;
        }
        if ((sides & stretchSides) != 0) {
            stretchSides &= sides;
            isLeavingOut = true;
        } else {
            isSeen = true;
            if (isLeavingOut)
                m_elements.push_back({element[-1].point, element[-1].pixel, QPainterPath::LineToElement});
            isLeavingOut = sides != 0;
            stretchSides = sides != 0 ? sides : pointSides;
            if (!isLeavingOut)
                m_elements.insert(m_elements.end(), element, element + count);
        }
        element += count;
    }
    if (isLeavingOut)
        m_elements.push_back({end[-1].point, end[-1].pixel, QPainterPath::LineToElement});
    if (!isSeen)
        m_elements.resize(start);
}

QPainterPath KRGPXPathExcerpt::toPath() const
{
    QPainterPath path;
    path.setFillRule(m_fillRule);
    for (std::size_t i = 0; i < m_elements.size(); ++i) {
        const Element &element = m_elements[i];
        if (element.type == QPainterPath::MoveToElement) {
            path.moveTo(element.point);
        } else if (element.type == QPainterPath::LineToElement) {
            path.lineTo(element.point);
        } else {
            path.cubicTo(element.point, m_elements[i + 1].point, m_elements[i + 2].point);
            i += 2;
        }
    }
    return path;
}
