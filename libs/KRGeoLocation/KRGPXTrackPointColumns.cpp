#include "KRGPXTrackPointColumns.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr qint64 noTime = KRGPXTime::noTime;
// Among the milliseconds: the time lies in the side table.
constexpr qint64 unusualTime = noTime + 1;

// Zones are those of KRGPXTime, or this: the local one of a time that a comma text gave.
constexpr int commaTextZone = KRGPXTime::localZone + 1;

/// Columns end with the last value that is not the usual one.
template <typename Value>
void put(QVector<Value> &column, int index, Value value, Value usualValue)
{
    if (value == usualValue)
        return;
    if (column.size() < index)
        column.insert(column.size(), index - column.size(), usualValue);
    column.append(value);
}

template <typename Value>
Value valueAt(const QVector<QPair<int, Value>> &sideTable, int index)
{
    const auto entry = std::lower_bound(sideTable.cbegin(), sideTable.cend(), index,
                                        [](const QPair<int, Value> &left, int right) { return left.first < right; });
    return entry != sideTable.cend() && entry->first == index ? entry->second : Value();
}

bool isNoTime(const QDateTime &timeStamp)
{
    return timeStamp.isNull() && timeStamp.timeSpec() == Qt::LocalTime;
}

/// Whether two instants differ in local time, too, for clocks are set back by whole seconds, and by less than two days.
bool neverShareClock(qint64 milliseconds, qint64 other)
{
    constexpr qint64 farthest = Q_INT64_C(1) << 60; // QDateTime has clocks for all of these
    constexpr qint64 twoDays = qint64(2) * 24 * 3600 * 1000;
    if (std::abs(milliseconds) > farthest || std::abs(other) > farthest)
        return false;
    const qint64 difference = std::abs(milliseconds - other);
    return difference % 1000 != 0 || difference > twoDays;
}

} // namespace

KRGeoPositionSpan KRGPXTrackPointColumns::positions() const
{
    return {m_latitudes.constData(), m_longitudes.constData(), count()};
}

KRGPXTime KRGPXTrackPointColumns::time(int index) const
{
    const qint64 milliseconds = m_times.value(index, noTime);
    if (milliseconds == noTime)
        return KRGPXTime();
    if (milliseconds == unusualTime)
        return {noTime, KRGPXTime::utcZone, valueAt(m_unusualTimes, index)};
    const int zone = zoneAt(index);
    return {milliseconds, zone == commaTextZone ? KRGPXTime::localZone : zone, QDateTime()};
}

QString KRGPXTrackPointColumns::description(int index) const
{
    return valueAt(m_descriptions, index);
}

KRGPXTrackPoint KRGPXTrackPointColumns::point(int index) const
{
    return KRGPXTrackPoint(positions().at(index), elevation(index), timeStamp(index), description(index));
}

KRGPXCommaText KRGPXTrackPointColumns::commaText(int index) const
{
    return {m_latitudes.at(index), m_longitudes.at(index), elevation(index), time(index).toMilliseconds()};
}

qint64 KRGPXTrackPointColumns::secondsOfCommaText(int index) const
{
    const qint64 milliseconds = m_times.value(index, noTime);
    const bool isFromCommaText = milliseconds > unusualTime && zoneAt(index) == commaTextZone;
    return isFromCommaText ? milliseconds / 1000 : noTime;
}

bool KRGPXTrackPointColumns::operator==(const KRGPXTrackPointColumns &other) const
{
    const auto areEqualAngles = [](double a, double b) { return KRGeoArc(a) == KRGeoArc(b); };
    return count() == other.count()
           && std::equal(m_latitudes.cbegin(), m_latitudes.cend(), other.m_latitudes.cbegin(), areEqualAngles)
           && std::equal(m_longitudes.cbegin(), m_longitudes.cend(), other.m_longitudes.cbegin(), areEqualAngles)
           && m_elevations == other.m_elevations && hasEqualTimes(other) && m_descriptions == other.m_descriptions;
}

void KRGPXTrackPointColumns::reserve(int count)
{
    m_latitudes.reserve(count);
    m_longitudes.reserve(count);
}

void KRGPXTrackPointColumns::append(double latitude, double longitude, int elevation, const KRGPXTime &time,
                                    const QString &description)
{
    if (time.milliseconds >= KRGPXTime::leastMilliseconds) {
        appendTime(time.milliseconds, time.zone);
    } else if (!isNoTime(time.dateTime)) {
        appendTime(unusualTime, KRGPXTime::utcZone);
        m_unusualTimes.append({count(), time.dateTime});
    }
    if (!description.isEmpty())
        m_descriptions.append({count(), description});
    appendPlace(latitude, longitude, elevation);
}

void KRGPXTrackPointColumns::appendCommaText(double latitude, double longitude, int elevation, qint64 milliseconds)
{
    appendTime(milliseconds, commaTextZone);
    appendPlace(latitude, longitude, elevation);
}

void KRGPXTrackPointColumns::squeeze()
{
    m_latitudes.squeeze();
    m_longitudes.squeeze();
    m_elevations.squeeze();
    m_times.squeeze();
    m_zones.squeeze();
    m_unusualTimes.squeeze();
    m_descriptions.squeeze();
}

void KRGPXTrackPointColumns::appendTime(qint64 milliseconds, int zone)
{
    const int index = count();
    put(m_times, index, milliseconds, noTime);
    const int zoneBefore = m_zones.isEmpty() ? KRGPXTime::utcZone : m_zones.last().second;
    if (zone != zoneBefore && milliseconds > unusualTime)
        m_zones.append({index, zone});
}

void KRGPXTrackPointColumns::appendPlace(double latitude, double longitude, int elevation)
{
    put(m_elevations, count(), elevation, 0);
    m_latitudes.append(latitude);
    m_longitudes.append(longitude);
}

int KRGPXTrackPointColumns::zoneAt(int index) const
{
    const auto next = std::upper_bound(m_zones.cbegin(), m_zones.cend(), index,
                                       [](int left, const QPair<int, int> &right) { return left < right.first; });
    return next == m_zones.cbegin() ? KRGPXTime::utcZone : (next - 1)->second;
}

bool KRGPXTrackPointColumns::hasEqualTimes(const KRGPXTrackPointColumns &other) const
{
    if (m_times == other.m_times && m_zones == other.m_zones && m_unusualTimes.isEmpty()
        && other.m_unusualTimes.isEmpty())
        return true;
    const int end = std::max(m_times.size(), other.m_times.size());
    for (int i = 0; i < end; ++i) {
        if (!hasEqualTime(i, other))
            return false;
    }
    return true;
}

/// Comparing QDateTime takes microseconds for local times, and is left to times that need it.
bool KRGPXTrackPointColumns::hasEqualTime(int index, const KRGPXTrackPointColumns &other) const
{
    const qint64 milliseconds = m_times.value(index, noTime);
    const qint64 otherMilliseconds = other.m_times.value(index, noTime);
    const int zone = zoneAt(index);
    const int otherZone = other.zoneAt(index);
    const bool areNumbers = milliseconds > unusualTime && otherMilliseconds > unusualTime;
    const bool isLocal = std::min(zone, otherZone) <= commaTextZone;
    if (milliseconds == otherMilliseconds && milliseconds != unusualTime && (zone == otherZone || !areNumbers))
        return true;
    if (areNumbers && !isLocal)
        return milliseconds == otherMilliseconds;
    if (areNumbers && neverShareClock(milliseconds, otherMilliseconds))
        return false;
    return timeStamp(index) == other.timeStamp(index);
}
