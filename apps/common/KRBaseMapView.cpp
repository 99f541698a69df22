#include "KRBaseMapView.h"

#include <KRCore/KRMath.h>

#include <QPoint>

#include <cmath>

namespace {

// Below this nothing can be told apart any more, and no screen or printer goes beyond that.
constexpr double smallestFactor = 0.05;
constexpr double largestFactor = 50.0;

/// Points of a path closer to each other than this many pixels of a normal screen are drawn as one.
constexpr double smallestStep = 0.4;

/// With more worlds side by side, in a low and wide picture, there is nothing to see but specks.
constexpr double mostWorlds = 200.0;

/// Paths of fewer pixels in both directions are left out.
constexpr double smallestPath = 0.25;

/// The distance of the two pixels from whose longitudes the scale is read; large, to keep its digits.
constexpr int referenceDistance = 1 << 20;

} // namespace

KRBaseMapView::KRBaseMapView(const KRMapProjection &projection, const QSizeF &imageSize, double factor)
    : m_projection(projection), m_imageSize(imageSize), m_factor(qBound(smallestFactor, factor, largestFactor))
{
    const auto normalizedX = [&](int x) {
        return projection.longitudeToNormalized(projection.convert(QPoint(x, 0)).longitude().decimalDegrees());
    };
    m_worldSize = referenceDistance / (normalizedX(referenceDistance) - normalizedX(0));
    m_offset.setX(normalizedX(0) * m_worldSize);

    // The vertical place is read at the equator, where no digits are lost: the top of the image may lie at the pole.
    const int equator = KRMath::toInt(projection.getPixelCoordinateByMapCoordinate(0.0, 0.0).y());
    const double latitude = projection.convert(QPoint(0, equator)).latitude().decimalDegrees();
    m_offset.setY(projection.latitudeToNormalized(latitude) * m_worldSize - equator);

    if (isValid())
        m_visible = QRectF(m_offset / m_worldSize, m_imageSize / m_worldSize);
}

bool KRBaseMapView::isValid() const
{
    return !m_imageSize.isEmpty() && m_worldSize > 0.0 && std::isfinite(m_worldSize) && std::isfinite(m_offset.x())
           && std::isfinite(m_offset.y());
}

QRectF KRBaseMapView::mapRect() const
{
    const double top = qMax(0.0, toPixel(QPointF(0.0, 0.0)).y());
    const double bottom = qMin(m_imageSize.height(), toPixel(QPointF(0.0, 1.0)).y());
    if (!isValid() || bottom <= top || m_imageSize.width() > mostWorlds * m_worldSize)
        return QRectF();
    return QRectF(0.0, top, m_imageSize.width(), bottom - top);
}

QPointF KRBaseMapView::toPixel(double latitude, double longitude) const
{
    return toPixel(normalized(latitude, longitude));
}

double KRBaseMapView::longitudeAt(double x) const
{
    return m_projection.normalizedToLongitude((x + m_offset.x()) / m_worldSize);
}

double KRBaseMapView::latitudeAt(double y) const
{
    return m_projection.normalizedToLatitude((y + m_offset.y()) / m_worldSize);
}

QVector<QPolygonF> KRBaseMapView::toPixels(const KRBaseMapPath &path) const
{
    QVector<QPolygonF> copies;
    const QRectF &bounds = path.bounds();
    if (qMax(bounds.width(), bounds.height()) * m_worldSize < smallestPath)
        return copies;
    const KRIntRange turns = turnsInView(bounds);
    if (!turns.isValid())
        return copies;
    const QPolygonF pixels = thinnedPixels(path.points());
    for (int turn = turns.minimum(); turn <= turns.maximum(); ++turn)
        copies << pixels.translated(turn * m_worldSize, 0.0);
    return copies;
}

QVector<QPointF> KRBaseMapView::toPixels(const KRGeoPosition &position) const
{
    QVector<QPointF> copies;
    const QPointF point = normalized(position.latitude().decimalDegrees(), position.longitude().decimalDegrees());
    const KRIntRange turns = turnsInView(QRectF(point, point));
    for (int turn = turns.minimum(); turn <= turns.maximum(); ++turn)
        copies << toPixel(point + QPointF(turn, 0.0));
    return copies;
}

KRIntRange KRBaseMapView::turnsInView(const QRectF &bounds) const
{
    if (bounds.bottom() < m_visible.top() || bounds.top() > m_visible.bottom())
        return KRIntRange(0, -1);
    return KRIntRange(KRMath::toInt(std::ceil(m_visible.left() - bounds.right())),
                      KRMath::toInt(std::floor(m_visible.right() - bounds.left())));
}

QPointF KRBaseMapView::normalized(double latitude, double longitude) const
{
    const double y = m_projection.latitudeToNormalized(latitude);
    return QPointF(m_projection.longitudeToNormalized(longitude), qBound(0.0, y, 1.0));
}

QPointF KRBaseMapView::toPixel(const QPointF &normalized) const
{
    return normalized * m_worldSize - m_offset;
}

QPolygonF KRBaseMapView::thinnedPixels(const QPolygonF &normalized) const
{
    QPolygonF pixels;
    pixels.reserve(normalized.size());
    const double step = smallestStep * qMax(1.0, m_factor);
    for (const QPointF &point : normalized) {
        const QPointF pixel = toPixel(point);
        if (pixels.isEmpty() || (pixel - pixels.last()).manhattanLength() >= step)
            pixels << pixel;
    }
    // Both ends stay, so that lines which meet there still do.
    if (pixels.size() > 1)
        pixels.last() = toPixel(normalized.last());
    return pixels;
}
