#include "KRGPXTime.h"

KRGPXTime KRGPXTime::of(const QDateTime &time)
{
    const bool hasFixedOffset = time.timeSpec() == Qt::UTC || time.timeSpec() == Qt::OffsetFromUTC;
    const qint64 milliseconds = time.isValid() && hasFixedOffset ? time.toMSecsSinceEpoch() : noTime;
    if (milliseconds < leastMilliseconds)
        return {noTime, utcZone, time};
    return {milliseconds, time.offsetFromUtc(), QDateTime()};
}

bool KRGPXTime::isValid() const
{
    if (milliseconds == noTime)
        return dateTime.isValid();
    // Comma texts may have times at which the clock cannot be told in milliseconds.
    constexpr qint64 farthest = std::numeric_limits<qint64>::max() - qint64(2) * 24 * 3600 * 1000;
    return zone != localZone || (milliseconds > -farthest && milliseconds < farthest) || toDateTime().isValid();
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
