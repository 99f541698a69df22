#include "KRGPXMarkerStamps.h"

#include <QPainter>

#include <cmath>

namespace {

// Larger ones are drawn one by one.
constexpr double largestReachPx = 100.0;

// Farther away there is no image.
constexpr double farthestPlacePx = 1e6;

double reachOf(double radius, const QPen &pen)
{
    constexpr double softEdgePx = 2.0;
    return radius + pen.widthF() + softEdgePx;
}

} // namespace

bool KRGPXMarkerStamps::draw(QPainter *painter, const KRGPXMarkerShape &shape, const QPointF &centre, double radius)
{
    const QTransform transform = painter->deviceTransform();
    const QPointF place = transform.map(centre);
    const double reach = reachOf(radius, painter->pen());
    if (transform.type() > QTransform::TxTranslate || reach > largestReachPx
        || place.manhattanLength() > farthestPlacePx)
        return false;
    if (shape != m_shape || radius != m_radius || painter->pen() != m_pen || painter->brush() != m_brush) {
        m_shape = shape;
        m_radius = radius;
        m_pen = painter->pen();
        m_brush = painter->brush();
        m_stamps.fill(QImage());
    }
    const QPoint step(int(std::floor(place.x() * steps)), int(std::floor(place.y() * steps)));
    const QPoint phase(step.x() & (steps - 1), step.y() & (steps - 1));
    const int middle = int(std::ceil(reach));
    QImage &stamp = m_stamps[std::size_t(phase.y()) * steps + std::size_t(phase.x())];
    if (stamp.isNull())
        stamp = this->stamp(painter, QPointF(middle, middle) + QPointF(phase) / steps);
    painter->save();
    painter->resetTransform();
    painter->drawImage((step - phase) / steps - QPoint(middle, middle), stamp);
    painter->restore();
    return true;
}

/// A picture of the marker with its centre at that place.
QImage KRGPXMarkerStamps::stamp(const QPainter *painter, const QPointF &centre) const
{
    const int side = 2 * int(std::ceil(reachOf(m_radius, m_pen))) + 1;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter stampPainter(&image);
    stampPainter.setRenderHints(painter->renderHints());
    stampPainter.setPen(m_pen);
    stampPainter.setBrush(m_brush);
    m_shape.draw(&stampPainter, centre, m_radius, m_radius);
    return image;
}
