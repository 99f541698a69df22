#include "KRGPXTrackPoint.h"

#include "KRGPXTrackPointImpl.h"

#include <QVector>

namespace {

/// In local time; invalid where the milliseconds that QDateTime keeps would not fit into 64 bits.
QDateTime timeOfSeconds(qint64 secondsSinceEpoch)
{
    constexpr qint64 mostSeconds = 9223372036854775;
    if (secondsSinceEpoch > mostSeconds || secondsSinceEpoch < -mostSeconds)
        return QDateTime();
    return QDateTime::fromSecsSinceEpoch(secondsSinceEpoch);
}

} // namespace

KRGPXTrackPoint::KRGPXTrackPoint() : d(new KRGPXTrackPointImpl) { }

KRGPXTrackPoint::KRGPXTrackPoint(const KRGeoPosition &position, int elevation, const QDateTime &timeStamp,
                                 const QString &description)
    : d(new KRGPXTrackPointImpl(position, elevation, timeStamp, description))
{ }

KRGPXTrackPoint::KRGPXTrackPoint(const QDomElement &trkpt) : d(new KRGPXTrackPointImpl(trkpt)) { }

KRGPXTrackPoint::KRGPXTrackPoint(const KRGPXTrackPoint &other) = default;
KRGPXTrackPoint::KRGPXTrackPoint(KRGPXTrackPoint &&other) noexcept = default;
KRGPXTrackPoint &KRGPXTrackPoint::operator=(const KRGPXTrackPoint &other) = default;
KRGPXTrackPoint &KRGPXTrackPoint::operator=(KRGPXTrackPoint &&other) noexcept = default;
KRGPXTrackPoint::~KRGPXTrackPoint() = default;

KRGPXTrackPoint KRGPXTrackPoint::decodeKml(const QString &text)
{
    return decodeKml(QStringRef(&text));
}

KRGPXTrackPoint KRGPXTrackPoint::decodeKml(const QStringRef &text)
{
    const QVector<QStringRef> fields = text.split(QLatin1Char(','));
    const KRGeoPosition position(safeDouble(fields.value(1)), safeDouble(fields.value(0)));
    const int elevation = fields.value(2).toInt();
    const QDateTime timeStamp = fields.size() > 3 ? timeOfSeconds(fields.at(3).toLongLong()) : QDateTime();
    return KRGPXTrackPoint(position, elevation, timeStamp, QString());
}

KRGeoPosition KRGPXTrackPoint::position() const
{
    return d->position();
}

int KRGPXTrackPoint::elevation() const
{
    return d->elevation();
}

QDateTime KRGPXTrackPoint::timeStamp() const
{
    return d->timeStamp();
}

QString KRGPXTrackPoint::description() const
{
    return d->description();
}

KRGeoPositionList KRGPXTrackPoint::allPoints() const
{
    return d->allPoints();
}

QList<KRGeoPositionList> KRGPXTrackPoint::chunkedPoints() const
{
    return d->chunkedPoints();
}

bool KRGPXTrackPoint::isSinglePoint() const
{
    return d->isSinglePoint();
}

KRGeoPosition KRGPXTrackPoint::firstPoint() const
{
    return d->firstPoint();
}

KRGeoPosition KRGPXTrackPoint::lastPoint() const
{
    return d->lastPoint();
}

QList<QDateTime> KRGPXTrackPoint::allTimeStamps() const
{
    return d->allTimeStamps();
}

bool KRGPXTrackPoint::isNull() const
{
    return d->isNull();
}

bool KRGPXTrackPoint::operator==(const KRGPXTrackPoint &other) const
{
    return d == other.d || *d == *other.d;
}

QString KRGPXTrackPoint::toKml() const
{
    return d->toKml();
}

void KRGPXTrackPoint::toXml(QDomElement &parent) const
{
    d->toXml(parent);
}
