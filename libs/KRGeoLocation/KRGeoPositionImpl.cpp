#include "KRGeoPositionImpl.h"

#include <QDomElement>
#include <QRegularExpression>
#include <QUrlQuery>

#include <algorithm>

namespace {

constexpr double earthRadiusKm = 6370.0;
constexpr double unknownDistanceKm = 6370000.0;
constexpr double kmPerNauticalMile = 1.852;
constexpr double kmPerDegree = 111.1774733520461; // of a great circle on the sphere of 6370 km

QString latitudeKey()
{
    return QStringLiteral("latitude");
}

QString longitudeKey()
{
    return QStringLiteral("longitude");
}

KRGeoPositionImpl validOrUnset(const KRLatitude &latitude, const KRLongitude &longitude)
{
    if (!latitude.isValid() || !longitude.isValid())
        return KRGeoPositionImpl();
    return KRGeoPositionImpl(latitude, longitude);
}

double squareOfSineOfHalf(double radians)
{
    const double sine = std::sin(radians / 2.0);
    return sine * sine;
}

} // namespace

KRGeoPositionImpl KRGeoPositionImpl::parse(const QString &text)
{
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    const QStringList words = text.trimmed().split(blanks);
    if (words.size() != 2)
        return KRGeoPositionImpl();
    return validOrUnset(KRLatitude::parse(words.at(0)), KRLongitude::parse(words.at(1)));
}

KRGeoPositionImpl KRGeoPositionImpl::fromString(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char(';'));
    if (parts.size() < 2)
        return KRGeoPositionImpl();
    return validOrUnset(KRLatitude(KRGeoArc::fromString(parts.at(0).trimmed())),
                        KRLongitude(KRGeoArc::fromString(parts.at(1).trimmed())));
}

void KRGeoPositionImpl::writeToXml(QDomElement &element) const
{
    if (!isValid())
        return;
    element.setAttribute(latitudeKey(), m_latitude.decimalDegrees());
    element.setAttribute(longitudeKey(), m_longitude.decimalDegrees());
}

KRGeoPositionImpl KRGeoPositionImpl::fromXml(const QDomElement &element)
{
    const QString missing = QStringLiteral("-720.0");
    return KRGeoPositionImpl(element.attribute(latitudeKey(), missing).toDouble(),
                             element.attribute(longitudeKey(), missing).toDouble());
}

bool KRGeoPositionImpl::isValid() const
{
    // Intended: exactly (0, 0) counts as "no position".
    return hasValidComponents() && !(m_latitude.isNull() && m_longitude.isNull());
}

bool KRGeoPositionImpl::operator==(const KRGeoPositionImpl &other) const
{
    return m_latitude == other.m_latitude && m_longitude == other.m_longitude;
}

bool KRGeoPositionImpl::operator<(const KRGeoPositionImpl &other) const
{
    return m_latitude == other.m_latitude ? m_longitude < other.m_longitude : m_latitude < other.m_latitude;
}

uint KRGeoPositionImpl::hashValue() const
{
    return uint(qHash(m_latitude.decimalDegrees() + m_longitude.decimalDegrees()));
}

KRGeoPositionImpl KRGeoPositionImpl::operator+(const KRGeoPositionImpl &other) const
{
    return KRGeoPositionImpl(m_latitude + other.m_latitude, m_longitude + other.m_longitude);
}

KRGeoPositionImpl KRGeoPositionImpl::operator/(double divisor) const
{
    return KRGeoPositionImpl(m_latitude / divisor, m_longitude / divisor);
}

KRLatitude KRGeoPositionImpl::latitudeDeviation(double km) const
{
    return km / kmPerNauticalMile / 60.0;
}

KRLongitude KRGeoPositionImpl::longitudeDeviation(double km) const
{
    // Even at a pole, where the circle of latitude has no length.
    if (km == 0.0)
        return 0.0;
    // Intended: the rounded pi, to which positions stored so far owe their last digits.
    const double latitudeRadians = m_latitude.decimalDegrees() * 3.14159265359 / 180;
    return km / (std::cos(latitudeRadians) * kmPerDegree);
}

double KRGeoPositionImpl::distance(const KRGeoPositionImpl &other) const
{
    if (!isValid() || !other.isValid())
        return unknownDistanceKm;
    // Haversine (Sinnott 1984).
    const double a = squareOfSineOfHalf(m_latitude.absDistance(other.m_latitude).radians())
                     + std::cos(m_latitude.radians()) * std::cos(other.m_latitude.radians())
                           * squareOfSineOfHalf(m_longitude.absDistance(other.m_longitude).radians());
    // Between antipodes rounding may lift it above 1, which has no square root below.
    const double haversine = std::min(a, 1.0);
    return 2.0 * std::atan2(std::sqrt(haversine), std::sqrt(1.0 - haversine)) * earthRadiusKm;
}

KRGeoPositionImpl &KRGeoPositionImpl::operator+=(const KRGeoPositionImpl &other)
{
    m_latitude += other.m_latitude;
    m_longitude += other.m_longitude;
    return *this;
}

KRGeoPositionImpl &KRGeoPositionImpl::operator/=(double divisor)
{
    m_latitude = m_latitude / divisor;
    m_longitude = m_longitude / divisor;
    return *this;
}

bool KRGeoPositionImpl::setLatitude(const KRLatitude &latitude)
{
    return m_latitude.setDecimalDegrees(latitude.decimalDegrees());
}

bool KRGeoPositionImpl::setLongitude(const KRLongitude &longitude)
{
    return m_longitude.setDecimalDegrees(longitude.decimalDegrees());
}

void KRGeoPositionImpl::catchLatitude()
{
    m_latitude = m_latitude.catchOutOfBound();
}

QString KRGeoPositionImpl::toString(bool inDegreesMinutesSeconds) const
{
    if (inDegreesMinutesSeconds && hasValidComponents())
        return m_latitude.toString(true) + QStringLiteral("<br>") + m_longitude.toString(true);
    return m_latitude.toString(false) + QStringLiteral("; ") + m_longitude.toString(false);
}

void KRGeoPositionImpl::writeTo(QUrlQuery &query) const
{
    m_latitude.writeTo(query, latitudeKey());
    m_longitude.writeTo(query, longitudeKey());
}
