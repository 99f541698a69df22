#include "KRGPXTrackPoint.h"

#include "KRGPXCommaText.h"
#include "KRGPXTime.h"
#include "KRGPXTrackPointImpl.h"

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
    return decodeKml(QStringView(text));
}

KRGPXTrackPoint KRGPXTrackPoint::decodeKml(QStringView text)
{
    const KRGPXCommaText fields = KRGPXCommaText::decode(text);
    const bool hasTime = fields.milliseconds != KRGPXTime::noTime;
    return KRGPXTrackPoint(KRGeoPosition(fields.latitude, fields.longitude), fields.elevation,
                           hasTime ? QDateTime::fromMSecsSinceEpoch(fields.milliseconds) : QDateTime(), QString());
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
