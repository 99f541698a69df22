#include "KRMapProjection.h"

#include "KRGeoPositionSpan.h"
#include "KRQuickMercator.h"
#include "KRVectorRegisters.h"

#include <KRCore/KRMath.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double twoPi = 6.283185307179586;

// Spherical Mercator, EPSG:3857 (Snyder 1987, eq. 7-1 to 7-5), scaled to the unit square; y grows southwards.
// Every point of a track comes through these two, and the compiler may not inline what the library exports.

inline double toNormalizedX(double longitude)
{
    return (longitude + 180.0) / 360.0;
}

inline double toNormalizedY(double latitude)
{
    return std::log(std::tan((90.0 - latitude) * M_PI / 360.0)) / twoPi + 0.5;
}

inline int toWholePixel(double pixel)
{
    constexpr double surelyInt = 1e9;
    return std::abs(pixel) < surelyInt ? int(pixel) : KRMath::toInt(pixel);
}

} // namespace

KRMapProjection::KRMapProjection(const KRGeoPositionRect &area, const QSize &size) : m_size(size)
{
    adjustMapData(area);
}

KRMapProjection::KRMapProjection(const KRMapProjection &other) = default;
KRMapProjection::KRMapProjection(KRMapProjection &&other) noexcept = default;
KRMapProjection &KRMapProjection::operator=(const KRMapProjection &other) = default;
KRMapProjection &KRMapProjection::operator=(KRMapProjection &&other) noexcept = default;
KRMapProjection::~KRMapProjection() = default;

void KRMapProjection::adjustMapData(const KRGeoPositionRect &area)
{
    m_south = area.south().decimalDegrees();
    m_north = area.north().decimalDegrees();
    m_west = area.west().decimalDegrees();
    m_east = area.east().decimalDegrees();
    if (m_east < m_west)
        m_east += 360.0;

    double longitudeSpan = m_east - m_west;
    double top = latitudeToNormalized(m_north);
    const double bottom = latitudeToNormalized(m_south);
    const double normalizedWidth = longitudeSpan / 360.0;
    const double normalizedHeight = bottom - top;
    const double areaAspect = normalizedWidth / normalizedHeight;
    const double imageAspect = double(m_size.width()) / double(m_size.height());

    if (imageAspect >= areaAspect) {
        const double margin = (longitudeSpan * imageAspect / areaAspect - longitudeSpan) * 0.5;
        m_west -= margin;
        m_east += margin;
        longitudeSpan = m_east - m_west;
    } else {
        const double margin = (normalizedWidth / imageAspect - normalizedHeight) * 0.5;
        m_south = normalizedToLatitude(bottom + margin);
        m_north = normalizedToLatitude(top - margin);
        top = latitudeToNormalized(m_north);
    }

    m_worldSize = double(qint64(m_size.width()) * 360) / longitudeSpan;
    m_xOffset = m_worldSize * (m_west + 180.0) / 360.0;
    m_yOffset = m_worldSize * top;
}

inline QPointF KRMapProjection::toPixel(double latitude, double longitude) const
{
    const double x = toNormalizedX(longitude) * m_worldSize - m_xOffset;
    const double y = toNormalizedY(latitude) * m_worldSize - m_yOffset;
    // Intended: cut toward zero, not rounded and not the floor.
    return QPointF(toWholePixel(x), toWholePixel(y));
}

QPointF KRMapProjection::projectate(const KRGeoPosition &position) const
{
    const QPointF degrees = position.toPointF();
    return toPixel(degrees.y(), degrees.x());
}

void KRMapProjection::projectate(const KRGeoPositionSpan &positions, QPointF *pixels) const
{
    KRVectorRegisters::releaseUpperHalves();
    const KRQuickMercator::World world{m_worldSize, m_xOffset, m_yOffset};
    for (int i = 0; i < positions.count;) {
        i += KRQuickMercator::project(positions.mid(i, positions.count - i), world, pixels + i);
        const int end = std::min(i + KRQuickMercator::groupSize, positions.count);
        for (; i < end; ++i)
            pixels[i] = toPixel(positions.latitudes[i], positions.longitudes[i]);
    }
}

QPointF KRMapProjection::getPixelCoordinateByMapCoordinate(double latitude, double longitude) const
{
    return toPixel(latitude, longitude);
}

KRGeoPosition KRMapProjection::convert(const QPoint &pixel) const
{
    const double longitude = normalizedToLongitude((pixel.x() + m_xOffset) / m_worldSize);
    const double latitude = normalizedToLatitude((pixel.y() + m_yOffset) / m_worldSize);
    return KRGeoPosition(latitude, longitude);
}

KRGeoPositionRect KRMapProjection::resultBoundingBox() const
{
    return KRGeoPositionRect(KRLatitudeRange(KRLatitude::safeLatitude(m_south), KRLatitude::safeLatitude(m_north)),
                             KRLongitudeRange(KRLongitude::safeLongitude(m_west), KRLongitude::safeLongitude(m_east)));
}

double KRMapProjection::longitudeToNormalized(double longitude) const
{
    return toNormalizedX(longitude);
}

double KRMapProjection::latitudeToNormalized(double latitude) const
{
    return toNormalizedY(latitude);
}

double KRMapProjection::normalizedToLongitude(double x) const
{
    return x * 360.0 - 180.0;
}

double KRMapProjection::normalizedToLatitude(double y) const
{
    return 90.0 - std::atan(std::exp((y - 0.5 + y - 0.5) * M_PI)) * 360.0 / M_PI;
}

bool KRMapProjection::epsilonEqual(const KRGeoArc &a, const KRGeoArc &b, double epsilon)
{
    return KRMath::epsilonEqual(a.decimalDegrees(), b.decimalDegrees(), epsilon);
}

bool KRMapProjection::epsilonEqual(const KRGeoPosition &a, const KRGeoPosition &b, double epsilon)
{
    return epsilonEqual(a.longitude(), b.longitude(), epsilon) && epsilonEqual(a.latitude(), b.latitude(), epsilon);
}
