#include "KRGeoPositionRect.h"

#include "KRGeoPositionSpan.h"

#include <QDebug>
#include <QUrlQuery>

#include <algorithm>
#include <cmath>
#include <limits>

KRGeoPositionRect::KRGeoPositionRect(const KRGeoPosition &a, const KRGeoPosition &b)
    : m_latitudeRange(a.latitude(), b.latitude()), m_longitudeRange(a.longitude(), b.longitude())
{ }

KRGeoPositionRect::KRGeoPositionRect(const KRLatitudeRange &latitudeRange, const KRLongitudeRange &longitudeRange)
    : m_latitudeRange(latitudeRange), m_longitudeRange(longitudeRange)
{ }

KRGeoPositionRect KRGeoPositionRect::spawn(const KRGeoPosition &a, const KRGeoPosition &b)
{
    return KRGeoPositionRect(KRLatitudeRange::spawn(a.latitude(), b.latitude()),
                             KRLongitudeRange::spawn(a.longitude(), b.longitude()));
}

KRGeoPositionRect KRGeoPositionRect::parse(const QUrlQuery &query)
{
    return KRGeoPositionRect(KRLatitudeRange::parse(query), KRLongitudeRange::parse(query));
}

KRGeoPositionRect KRGeoPositionRect::europeanUnion()
{
    return KRGeoPositionRect(KRLatitudeRange(40.0, 60.0), KRLongitudeRange(-10.0, 30.0));
}

KRGeoPosition KRGeoPositionRect::center() const
{
    return KRGeoPosition(m_latitudeRange.center(), m_longitudeRange.center());
}

KRGeoArc KRGeoPositionRect::maxExtension() const
{
    const KRGeoArc height = north().absDistance(south());
    const KRGeoArc width = east().absDistance(west());
    return height < width ? width : height;
}

bool KRGeoPositionRect::isDefault() const
{
    return *this == europeanUnion();
}

bool KRGeoPositionRect::isValid() const
{
    return m_longitudeRange.isValid() && m_latitudeRange.isValid();
}

bool KRGeoPositionRect::isVerySmall() const
{
    return maxExtension() < 1.0;
}

bool KRGeoPositionRect::contains(const KRGeoPosition &position) const
{
    return m_latitudeRange.contains(position.latitude()) && m_longitudeRange.contains(position.longitude());
}

bool KRGeoPositionRect::contains(const KRGeoPositionRect &other) const
{
    return m_latitudeRange.contains(other.m_latitudeRange) && m_longitudeRange.contains(other.m_longitudeRange);
}

bool KRGeoPositionRect::operator==(const KRGeoPositionRect &other) const
{
    return m_latitudeRange == other.m_latitudeRange && m_longitudeRange == other.m_longitudeRange;
}

KRGeoPositionRect KRGeoPositionRect::operator+(const KRGeoPositionRect &other) const
{
    KRGeoPositionRect sum = *this;
    sum.expandTo(other);
    return sum;
}

KRGeoPositionRect KRGeoPositionRect::blownUp(double degrees) const
{
    KRGeoPositionRect larger = *this;
    larger.blowUp(degrees);
    return larger;
}

KRGeoPositionRect KRGeoPositionRect::withPadding(double percentage) const
{
    constexpr double marginOfAPoint = 0.1;
    if (!isValid() || percentage == 0.0)
        return *this;
    const KRGeoArc extension = maxExtension();
    return blownUp(extension == 0.0 ? marginOfAPoint : extension.decimalDegrees() * percentage / 100.0);
}

KRGeoPositionRect KRGeoPositionRect::toReasonableSize() const
{
    return isVerySmall() ? blownUp(1.0) : *this;
}

void KRGeoPositionRect::expandTo(const KRGeoPosition &position)
{
    if (!position.isValid())
        return;
    m_latitudeRange.expandTo(position.latitude());
    m_longitudeRange.expandTo(position.longitude());
}

void KRGeoPositionRect::expandTo(const KRGeoPositionRect &other)
{
    if (!other.isValid())
        return;
    m_latitudeRange.expandTo(other.north());
    m_latitudeRange.expandTo(other.south());
    m_longitudeRange.expandTo(other.east());
    m_longitudeRange.expandTo(other.west());
}

void KRGeoPositionRect::expandTo(const KRGeoPositionSpan &positions)
{
    if (m_longitudeRange.crossesDateLine()) { // what lies between two of them may lie outside
        for (int i = 0; i < positions.count; ++i)
            expandTo(KRGeoPosition(positions.latitudes[i], positions.longitudes[i]));
        return;
    }
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double fullTurn = 360.0;
    double south = infinity;
    double north = -infinity;
    double west = infinity;
    double east = -infinity;
    for (int i = 0; i < positions.count; ++i) {
        // The rule of KRGeoPosition::isValid() without its objects, which would take most of the time.
        const double latitude = positions.latitudes[i];
        const double longitude = positions.longitudes[i];
        if (std::abs(latitude) <= fullTurn && std::abs(longitude) <= fullTurn
            && (latitude != 0.0 || longitude != 0.0)) {
            south = std::min(south, latitude);
            north = std::max(north, latitude);
            west = std::min(west, longitude);
            east = std::max(east, longitude);
        }
    }
    if (south > north)
        return;
    m_latitudeRange.expandTo(south);
    m_latitudeRange.expandTo(north);
    m_longitudeRange.expandTo(west);
    m_longitudeRange.expandTo(east);
}

void KRGeoPositionRect::blowUp(double degrees)
{
    m_latitudeRange.blowUp(degrees);
    m_longitudeRange.blowUp(degrees);
}

QString KRGeoPositionRect::toString(bool inDegreesMinutesSeconds) const
{
    return m_latitudeRange.toString(inDegreesMinutesSeconds) + QStringLiteral(" ; ")
           + m_longitudeRange.toString(inDegreesMinutesSeconds);
}

void KRGeoPositionRect::writeTo(QUrlQuery &query) const
{
    m_latitudeRange.writeTo(query);
    m_longitudeRange.writeTo(query);
}

QDebug operator<<(QDebug debug, const KRGeoPositionRect &rect)
{
    debug << "Lat: " << rect.latitudeRange() << " ; Lon:" << rect.longitudeRange();
    return debug;
}
