#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QRect>
#include <QTransform>

#include <vector>

/**
 * A filled path, reduced to what decides about the pixels of a part of the image.
 *
 * Nothing is cut, for a cut end is no longer exactly where the line was, and antialiasing shows that. Stretches that
 * lie beyond one side of the part become one line there instead: above, below and to the right no line leaves marks,
 * and to the left only the heights count where it begins and ends. So the part gets the very pixels that it has of the
 * whole path, with either fill rule.
 */
class KRGPXPathExcerpt
{
public:
    /// @param transform from the path to pixels of the image, affine
    KRGPXPathExcerpt(const QPainterPath &path, const QTransform &transform);

    bool isEmpty() const { return m_elements.empty(); }
    std::size_t elementCount() const { return m_elements.size(); }

    /// What of this matters for a part, in pixels of the image.
    KRGPXPathExcerpt reducedTo(const QRect &part) const;
    QPainterPath toPath() const;

private:
    /// One point of the path with its place in the image.
    struct Element {
        QPointF point;
        QPointF pixel;
        QPainterPath::ElementType type;
    };
    using Elements = std::vector<Element>;

    explicit KRGPXPathExcerpt(Qt::FillRule fillRule) : m_fillRule(fillRule) { }

    void appendReduced(const Element *begin, const Element *end, const QRectF &surroundings);

    Elements m_elements;
    Qt::FillRule m_fillRule;
};
