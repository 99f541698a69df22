#include "KRGPXMarkerStamps.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

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
    Look *const look = lookFor(painter, shape, radius);
    const QPoint step(int(std::floor(place.x() * steps)), int(std::floor(place.y() * steps)));
    const QPoint phase(step.x() & (steps - 1), step.y() & (steps - 1));
    const int middle = int(std::ceil(reach));
    QImage &stamp = look->stamps[std::size_t(phase.y()) * steps + std::size_t(phase.x())];
    if (stamp.isNull())
        stamp = KRGPXMarkerStamps::stamp(painter, *look, QPointF(middle, middle) + QPointF(phase) / steps);
    painter->save();
    painter->resetTransform();
    painter->drawImage((step - phase) / steps - QPoint(middle, middle), stamp);
    painter->restore();
    return true;
}

KRGPXMarkerStamps::Look *KRGPXMarkerStamps::lookFor(const QPainter *painter, const KRGPXMarkerShape &shape,
                                                    double radius)
{
    const auto known = std::find_if(m_looks.begin(), m_looks.end(), [&](const Look &look) {
        return look.shape == shape && look.radius == radius && look.pen == painter->pen()
               && look.brush == painter->brush();
    });
    if (known != m_looks.end())
        return &*known;
    Look look{shape, radius, painter->pen(), painter->brush(), {}};
    if (m_looks.size() < mostLooks) {
        m_looks.push_back(std::move(look));
        return &m_looks.back();
    }
    m_oldest = (m_oldest + 1) % mostLooks;
    m_looks[m_oldest] = std::move(look);
    return &m_looks[m_oldest];
}

/// A picture of the marker with its centre at that place.
QImage KRGPXMarkerStamps::stamp(const QPainter *painter, const Look &look, const QPointF &centre)
{
    const int side = 2 * int(std::ceil(reachOf(look.radius, look.pen))) + 1;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter stampPainter(&image);
    stampPainter.setRenderHints(painter->renderHints());
    stampPainter.setPen(look.pen);
    stampPainter.setBrush(look.brush);
    look.shape.draw(&stampPainter, centre, look.radius, look.radius);
    return image;
}
