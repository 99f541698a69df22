#include "KRMapViewport.h"

#include <KRMapArea.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double initialWorldWidth = 2048.0;

// The world repeats so often at most, and so much empty paper is the most to be seen.
constexpr double smallestShareOfWidth = 0.25;
constexpr double smallestShareOfHeight = 1.0 / 3.0;
constexpr double smallestWorld = 128.0;
/// Pixels of the screen: about four centimetres each, and far from the end of int, which pixels are cut to.
constexpr double largestWorldOnScreen = 1 << 30;

const KRMapProjection &wholeWorld()
{
    static const KRMapProjection projection(
        KRGeoPositionRect(KRLatitudeRange(KRLatitude(-85.0), KRLatitude(85.0)),
                          KRLongitudeRange(KRLongitude(-180.0), KRLongitude(180.0))),
        QSize(256, 256));
    return projection;
}

double onMap(double latitude)
{
    return std::clamp(latitude, -KRMapArea::maximumLatitude, KRMapArea::maximumLatitude);
}

} // namespace

QPointF KRMapViewport::toWorld(double latitude, double longitude)
{
    return QPointF(wholeWorld().longitudeToNormalized(longitude), wholeWorld().latitudeToNormalized(latitude));
}

KRGeoPosition KRMapViewport::toPosition(const QPointF &world)
{
    const double x = world.x() - std::floor(world.x());
    return KRGeoPosition(wholeWorld().normalizedToLatitude(world.y()), wholeWorld().normalizedToLongitude(x));
}

KRMapViewport::KRMapViewport() : m_worldWidth(initialWorldWidth)
{
    const KRGeoPosition middle = KRGeoPositionRect::europeanUnion().center();
    m_center = toWorld(middle.latitude().decimalDegrees(), middle.longitude().decimalDegrees());
}

QSize KRMapViewport::deviceSize() const
{
    return QSize(qRound(m_size.width() * m_devicePixelRatio), qRound(m_size.height() * m_devicePixelRatio));
}

KRGeoPosition KRMapViewport::center() const
{
    return toPosition(m_center);
}

KRGeoPosition KRMapViewport::positionAt(const QPointF &pixel) const
{
    const QPointF world = worldAt(pixel);
    return world.y() < 0.0 || world.y() > 1.0 ? KRGeoPosition() : toPosition(world);
}

QPointF KRMapViewport::pixelOf(const KRGeoPosition &position) const
{
    QPointF world = toWorld(position.latitude().decimalDegrees(), position.longitude().decimalDegrees());
    world.rx() -= std::round(world.x() - m_center.x());
    return pixelOfWorld(world);
}

QPointF KRMapViewport::worldAt(const QPointF &pixel) const
{
    return m_center + (pixel - QRectF(QPointF(), m_size).center()) / m_worldWidth;
}

QPointF KRMapViewport::pixelOfWorld(const QPointF &world) const
{
    return (world - m_center) * m_worldWidth + QRectF(QPointF(), m_size).center();
}

// Whole pixels of the screen, so that a picture can be moved without being drawn anew.
QPointF KRMapViewport::deviceOrigin() const
{
    const QSize size = deviceSize();
    const double world = m_worldWidth * m_devicePixelRatio;
    return QPointF(std::round(m_center.x() * world - size.width() / 2.0),
                   std::round(m_center.y() * world - size.height() / 2.0));
}

QRectF KRMapViewport::rectOf(const KRMapViewport &other) const
{
    const double scale = m_worldWidth / (other.m_worldWidth * other.m_devicePixelRatio);
    QPointF corner = other.deviceOrigin() * scale - deviceOrigin() / m_devicePixelRatio;
    const double turns = std::round(other.m_center.x() - m_center.x());
    corner.rx() -= std::round(turns * m_worldWidth * m_devicePixelRatio) / m_devicePixelRatio;
    return QRectF(corner, QSizeF(other.deviceSize()) * scale);
}

KRMapProjection KRMapViewport::projection() const
{
    const QSize size = deviceSize();
    const double world = m_worldWidth * m_devicePixelRatio;
    const QPointF northWest = deviceOrigin() / world;
    const QPointF southEast = northWest + QPointF(size.width(), size.height()) / world;
    // The longitudes may lie beyond 180 degrees and span more than 360.
    const KRLatitudeRange latitudes(KRLatitude(wholeWorld().normalizedToLatitude(southEast.y())),
                                    KRLatitude(wholeWorld().normalizedToLatitude(northWest.y())));
    const KRLongitudeRange longitudes(KRLongitude(wholeWorld().normalizedToLongitude(northWest.x())),
                                      KRLongitude(wholeWorld().normalizedToLongitude(southEast.x())));
    return KRMapProjection(KRGeoPositionRect(latitudes, longitudes), size);
}

KRMapViewport KRMapViewport::resized(const QSize &size, double devicePixelRatio) const
{
    KRMapViewport changed = *this;
    changed.m_size = size;
    changed.m_devicePixelRatio = devicePixelRatio;
    return changed.limited();
}

KRMapViewport KRMapViewport::panned(const QPointF &pixels) const
{
    KRMapViewport changed = *this;
    changed.m_center -= pixels / m_worldWidth;
    return changed.limited();
}

KRMapViewport KRMapViewport::zoomed(double factor, const QPointF &pixel) const
{
    const QPointF fixed = worldAt(pixel);
    KRMapViewport changed = *this;
    changed.m_worldWidth = std::clamp(m_worldWidth * factor, smallestWorldWidth(), largestWorldWidth());
    changed.m_center = fixed + (m_center - fixed) * (m_worldWidth / changed.m_worldWidth);
    return changed.limited();
}

KRMapViewport KRMapViewport::centeredOn(const KRGeoPosition &position) const
{
    KRMapViewport changed = *this;
    if (position.isValid())
        changed.m_center = toWorld(onMap(position.latitude().decimalDegrees()), position.longitude().decimalDegrees());
    return changed.limited();
}

KRMapViewport KRMapViewport::fitted(const KRGeoPositionRect &area, int marginPx) const
{
    if (!area.isValid())
        return *this;
    const QPointF northWest = toWorld(onMap(area.north().decimalDegrees()), area.west().decimalDegrees());
    QPointF southEast = toWorld(onMap(area.south().decimalDegrees()), area.east().decimalDegrees());
    if (southEast.x() < northWest.x())
        southEast.rx() += 1.0;

    const QPointF span = southEast - northWest;
    const double width = std::max(1, m_size.width() - 2 * marginPx);
    const double height = std::max(1, m_size.height() - 2 * marginPx);
    KRMapViewport changed = *this;
    changed.m_center = (northWest + southEast) / 2.0;
    changed.m_worldWidth = std::min({largestWorldWidth(), width / span.x(), height / span.y()});
    return changed.limited();
}

KRMapViewport KRMapViewport::grown(int marginPx) const
{
    KRMapViewport changed = *this;
    changed.m_size += QSize(2 * marginPx, 2 * marginPx);
    return changed;
}

bool KRMapViewport::operator==(const KRMapViewport &other) const
{
    return m_center.x() == other.m_center.x() && m_center.y() == other.m_center.y()
           && m_worldWidth == other.m_worldWidth && m_size == other.m_size
           && m_devicePixelRatio == other.m_devicePixelRatio;
}

double KRMapViewport::smallestWorldWidth() const
{
    return std::max({smallestWorld, m_size.width() * smallestShareOfWidth, m_size.height() * smallestShareOfHeight});
}

double KRMapViewport::largestWorldWidth() const
{
    return largestWorldOnScreen / m_devicePixelRatio;
}

KRMapViewport KRMapViewport::limited() const
{
    KRMapViewport changed = *this;
    changed.m_worldWidth = std::clamp(m_worldWidth, smallestWorldWidth(), largestWorldWidth());
    // Half of what is in view, in worlds; more than half a world when all of it is.
    const double halfHeight = std::min(0.5, m_size.height() / (2.0 * changed.m_worldWidth));
    changed.m_center.rx() -= std::floor(m_center.x());
    changed.m_center.ry() = std::clamp(m_center.y(), halfHeight, 1.0 - halfHeight);
    return changed;
}
