#include "KRGPXTime.h"

KRGPXTime KRGPXTime::of(const QDateTime &time)
{
    const bool hasFixedOffset = time.timeSpec() == Qt::UTC || time.timeSpec() == Qt::OffsetFromUTC;
    const qint64 milliseconds = time.isValid() && hasFixedOffset ? time.toMSecsSinceEpoch() : noTime;
    if (milliseconds < leastMilliseconds)
        return {noTime, utcZone, time};
    return {milliseconds, time.offsetFromUtc(), QDateTime()};
}

QDateTime KRGPXTime::toDateTime() const
{
    if (milliseconds == noTime)
        return dateTime;
    return zone == localZone ? QDateTime::fromMSecsSinceEpoch(milliseconds)
                             : QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::OffsetFromUTC, zone);
}

qint64 KRGPXTime::toMilliseconds() const
{
    if (milliseconds != noTime)
        return milliseconds;
    return dateTime.isValid() ? dateTime.toMSecsSinceEpoch() : noTime;
}
