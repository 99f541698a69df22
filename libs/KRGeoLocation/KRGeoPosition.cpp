#include "KRGeoPosition.h"

#include "KRGeoPositionImpl.h"

#include <QDebug>
#include <QDomElement>
#include <QUrlQuery>

KRGeoPosition::KRGeoPosition() : d(new KRGeoPositionImpl) { }

KRGeoPosition::KRGeoPosition(const KRLatitude &latitude, const KRLongitude &longitude)
    : d(new KRGeoPositionImpl(latitude, longitude))
{ }

KRGeoPosition::KRGeoPosition(double latitude, double longitude) : d(new KRGeoPositionImpl(latitude, longitude)) { }

KRGeoPosition::KRGeoPosition(double latitude, char northOrSouth, double longitude, char eastOrWest)
    : KRGeoPosition(northOrSouth == 'N' ? latitude : -latitude, eastOrWest == 'E' ? longitude : -longitude)
{ }

KRGeoPosition::KRGeoPosition(KRGeoPositionImpl *impl) : d(impl) { }

KRGeoPosition::KRGeoPosition(const KRGeoPosition &other) = default;
KRGeoPosition::KRGeoPosition(KRGeoPosition &&other) noexcept = default;
KRGeoPosition &KRGeoPosition::operator=(const KRGeoPosition &other) = default;
KRGeoPosition &KRGeoPosition::operator=(KRGeoPosition &&other) noexcept = default;
KRGeoPosition::~KRGeoPosition() = default;

KRGeoPosition KRGeoPosition::null()
{
    return KRGeoPosition(0.0, 0.0);
}

KRGeoPosition KRGeoPosition::parse(const QString &text)
{
    return KRGeoPosition(new KRGeoPositionImpl(KRGeoPositionImpl::parse(text)));
}

KRGeoPosition KRGeoPosition::fromString(const QString &text)
{
    return KRGeoPosition(new KRGeoPositionImpl(KRGeoPositionImpl::fromString(text)));
}

KRGeoPosition KRGeoPosition::fromXml(const QDomElement &element)
{
    return KRGeoPosition(new KRGeoPositionImpl(KRGeoPositionImpl::fromXml(element)));
}

KRLatitude KRGeoPosition::latitude() const
{
    return d->latitude();
}

KRLongitude KRGeoPosition::longitude() const
{
    return d->longitude();
}

QPointF KRGeoPosition::toPointF() const
{
    return d->toPointF();
}

bool KRGeoPosition::isValid() const
{
    return d->isValid();
}

bool KRGeoPosition::isNorthOf(const KRGeoPosition &other) const
{
    return isNorthOf(other.d->latitude());
}

bool KRGeoPosition::isNorthOf(const KRLatitude &latitude) const
{
    return d->latitude().isNorthOf(latitude);
}

bool KRGeoPosition::isSouthOf(const KRGeoPosition &other) const
{
    return isSouthOf(other.d->latitude());
}

bool KRGeoPosition::isSouthOf(const KRLatitude &latitude) const
{
    return d->latitude().isSouthOf(latitude);
}

bool KRGeoPosition::isEastOf(const KRGeoPosition &other) const
{
    return isEastOf(other.d->longitude());
}

bool KRGeoPosition::isEastOf(const KRLongitude &longitude) const
{
    return d->longitude().isEastOf(longitude);
}

bool KRGeoPosition::isWestOf(const KRGeoPosition &other) const
{
    return isWestOf(other.d->longitude());
}

bool KRGeoPosition::isWestOf(const KRLongitude &longitude) const
{
    return d->longitude().isWestOf(longitude);
}

bool KRGeoPosition::isInNorthernHemisphere() const
{
    return d->latitude().isInNorthernHemisphere();
}

bool KRGeoPosition::isInSouthernHemisphere() const
{
    return d->latitude().isInSouthernHemisphere();
}

bool KRGeoPosition::isInEasternHemisphere() const
{
    return d->longitude().isInEasternHemisphere();
}

bool KRGeoPosition::isInWesternHemisphere() const
{
    return d->longitude().isInWesternHemisphere();
}

bool KRGeoPosition::operator==(const KRGeoPosition &other) const
{
    return d == other.d || *d == *other.d;
}

bool KRGeoPosition::operator!=(const KRGeoPosition &other) const
{
    return !(*this == other);
}

bool KRGeoPosition::operator<(const KRGeoPosition &other) const
{
    return *d < *other.d;
}

bool KRGeoPosition::operator>(const KRGeoPosition &other) const
{
    return *other.d < *d;
}

uint KRGeoPosition::hashValue() const
{
    return d->hashValue();
}

KRGeoPosition KRGeoPosition::operator+(const KRGeoPosition &other) const
{
    return KRGeoPosition(new KRGeoPositionImpl(*d + *other.d));
}

KRGeoPosition KRGeoPosition::operator/(double divisor) const
{
    return KRGeoPosition(new KRGeoPositionImpl(*d / divisor));
}

KRLatitude KRGeoPosition::latitudeDeviation(double km) const
{
    return d->latitudeDeviation(km);
}

KRLongitude KRGeoPosition::longitudeDeviation(double km) const
{
    return d->longitudeDeviation(km);
}

KRGeoPosition KRGeoPosition::moveNorthBy(double km) const
{
    return KRGeoPosition(d->latitude() + d->latitudeDeviation(km), d->longitude());
}

KRGeoPosition KRGeoPosition::moveEastBy(double km) const
{
    return KRGeoPosition(d->latitude(), d->longitude() + d->longitudeDeviation(km));
}

KRGeoPosition KRGeoPosition::normalized() const
{
    return KRGeoPosition(d->latitude(), d->longitude().normalized());
}

double KRGeoPosition::distance(const KRGeoPosition &other) const
{
    return d->distance(*other.d);
}

KRGeoPosition &KRGeoPosition::operator+=(const KRGeoPosition &other)
{
    // A copy of the record, not of the handle: sums over long lists stay without allocations, and position += position
    // reads no record that detaching has just let go.
    const KRGeoPositionImpl addend(*other.d);
    *d += addend;
    return *this;
}

KRGeoPosition &KRGeoPosition::operator/=(double divisor)
{
    *d /= divisor;
    return *this;
}

bool KRGeoPosition::setLatitude(const KRLatitude &latitude)
{
    return d->setLatitude(latitude);
}

bool KRGeoPosition::setLongitude(const KRLongitude &longitude)
{
    return d->setLongitude(longitude);
}

void KRGeoPosition::catchLatitude()
{
    d->catchLatitude();
}

QString KRGeoPosition::toString(bool inDegreesMinutesSeconds) const
{
    return d->toString(inDegreesMinutesSeconds);
}

void KRGeoPosition::writeToXml(QDomElement &element) const
{
    d->writeToXml(element);
}

void KRGeoPosition::writeTo(QUrlQuery &query) const
{
    d->writeTo(query);
}

QDebug operator<<(QDebug debug, const KRGeoPosition &position)
{
    const QDebugStateSaver saver(debug);
    const auto digits = [](const KRGeoArc &angle) { return QString::number(angle.decimalDegrees(), 'g', 8); };
    debug.noquote() << "Lat" << digits(position.latitude()) << "; Lon" << digits(position.longitude());
    return debug;
}
