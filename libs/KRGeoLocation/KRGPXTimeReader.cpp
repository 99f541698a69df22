#include "KRGPXTimeReader.h"

#include <KRCore/KRInputLimits.h>
#include <KRXML/KRXMLParser.h>

#include <QDate>
#include <QTime>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr int notDigits = -1;
constexpr int longestByDigits = 35; // characters: nine digits of a fraction, and an offset
constexpr qint64 millisecondsPerDay = 86400000;
constexpr int tokensPerFraction = 2; // that is read by QTime

// Cells of time are the days of UTC. No clock is changed by more than one, nor twice within three.
constexpr qint64 secondsPerCell = 86400;
// From 1971 to 2036 Qt leaves local time to the system; before and behind it has its own ways in some versions.
constexpr qint64 firstClockSecond = 31536000;
constexpr qint64 endOfClockSeconds = 2114380800;

int digits(const char *text, int count)
{
    int value = 0;
    for (int i = 0; i < count; ++i) {
        if (text[i] < '0' || text[i] > '9')
            return notDigits;
        value = value * 10 + (text[i] - '0');
    }
    return value;
}

/// Reads a point and three digits, which nearly all fractions have.
inline bool readMilliseconds(const char **at, const char *end, int *millisecond)
{
    constexpr int length = 4;
    const auto left = end - *at;
    const int value = left < length ? notDigits : digits(*at + 1, length - 1);
    if (value == notDigits || (left > length && digits(*at + length, 1) != notDigits))
        return false;
    *at += length;
    *millisecond = value;
    return true;
}

/// Seconds of "+02:00", "+0200" and "+02".
bool readOffset(const char *text, const char *end, int *seconds)
{
    const auto length = end - text;
    const bool hasColon = length == 6 && text[3] == ':';
    if ((length != 3 && length != 5 && !hasColon) || (*text != '+' && *text != '-'))
        return false;
    const int hours = digits(text + 1, 2);
    const int minutes = length == 3 ? 0 : digits(end - 2, 2);
    if (hours < 0 || hours > 23 || minutes < 0 || minutes > 59)
        return false;
    *seconds = (*text == '-' ? -60 : 60) * (hours * 60 + minutes);
    return true;
}

} // namespace

void KRGPXTimeReader::read(const char *text, int length, KRGPXTime *time)
{
    if (!readDigits(text, length, time))
        *time = read(QString::fromUtf8(text, length));
}

KRGPXTime KRGPXTimeReader::read(const QString &text)
{
    const QString trimmed = text.trimmed();
    const QByteArray characters = trimmed.size() <= longestByDigits ? trimmed.toLatin1() : QByteArray();
    KRGPXTime time;
    if (trimmed.isEmpty() || readDigits(characters.constData(), int(characters.size()), &time))
        return time;
    return KRGPXTime::of(readOther(trimmed));
}

qint64 KRGPXTimeReader::takeTokens()
{
    return std::exchange(m_tokens, 0);
}

/// False, without a time, where QDateTime has to decide.
bool KRGPXTimeReader::readDigits(const char *text, int length, KRGPXTime *time)
{
    constexpr int shortestLength = 19;
    time->milliseconds = KRGPXTime::noTime;
    time->zone = KRGPXTime::utcZone;
    m_isClockUncertain = false;
    if (length < shortestLength || (text[10] != 'T' && text[10] != ' ') || text[13] != ':' || text[16] != ':')
        return false;
    const int hour = digits(text + 11, 2);
    const int minute = digits(text + 14, 2);
    const int second = digits(text + 17, 2);
    // 24:00:00 is a time too, but none of these.
    const bool isTime = hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
    const qint64 day = isTime ? readDay(text) : KRGPXTime::noTime;
    const char *const end = text + length;
    const char *at = text + shortestLength;
    int millisecond = 0;
    if (day == KRGPXTime::noTime)
        return false;
    if (at != end && *at == '.' && !readMilliseconds(&at, end, &millisecond) && !readFraction(&at, end, &millisecond))
        return false;

    const qint64 clock = day * millisecondsPerDay + ((hour * 60 + minute) * 60 + second) * qint64(1000) + millisecond;
    if (end - at == 1 && *at == 'Z') {
        time->milliseconds = clock;
    } else if (at == end) {
        time->milliseconds = millisecondsOfLocal(clock);
        time->zone = KRGPXTime::localZone;
    } else if (readOffset(at, end, &time->zone)) {
        time->milliseconds = clock - qint64(time->zone) * 1000;
    }
    return time->milliseconds != KRGPXTime::noTime;
}

/// Days since 1970 of "2024-05-01".
qint64 KRGPXTimeReader::readDay(const char *text)
{
    static const qint64 firstDay = QDate(1970, 1, 1).toJulianDay();
    if (text[4] != '-' || text[7] != '-')
        return KRGPXTime::noTime;
    if (std::equal(m_dayText.cbegin(), m_dayText.cend(), text))
        return m_day;
    const int year = digits(text, 4);
    const QDate date(year, digits(text + 5, 2), digits(text + 8, 2));
    // QDate knows a year -1.
    if (year <= 0 || !date.isValid())
        return KRGPXTime::noTime;
    std::copy_n(text, m_dayText.size(), m_dayText.begin());
    m_day = date.toJulianDay() - firstDay;
    return m_day;
}

/// Reads a point and digits; false where they make a whole second, or are none or too many.
bool KRGPXTimeReader::readFraction(const char **at, const char *end, int *millisecond)
{
    constexpr int decimals = 3;
    constexpr int mostDigits = 9;
    const char *const begin = *at + 1;
    *millisecond = 0;
    *at = begin;
    for (int unit = 100; *at != end && **at >= '0' && **at <= '9'; ++*at, unit /= 10)
        *millisecond += unit * (**at - '0');
    const int count = int(*at - begin);
    if (count == 0 || count > mostDigits)
        return false;
    if (count <= decimals || begin[decimals] < '5')
        return true;
    if (begin[decimals] > '5') {
        ++*millisecond;
    } else {
        // Versions of Qt do not agree on how many digits count, and how.
        m_tokens += tokensPerFraction;
        const QString text = QStringLiteral("00:00:00.") + QLatin1String(begin, count);
        *millisecond = QTime(0, 0).msecsTo(QTime::fromString(text, Qt::ISODate));
    }
    return *millisecond < 1000;
}

/// The text that comes again is not read again: all points may have the time of a device without a clock.
const QDateTime &KRGPXTimeReader::readOther(const QString &text)
{
    if (text == m_otherText)
        return m_otherTime;
    askForLastClock();
    m_otherText = text;
    m_otherTime = KRXMLParser::dateTime(text, Qt::ISODate, QDateTime());
    // The system is asked for times that its clock leaves out, too; what looks like no time takes next to nothing.
    const bool isTime = m_otherTime.isValid();
    const bool isLocal = m_isClockUncertain || (isTime && m_otherTime.timeSpec() == Qt::LocalTime);
    if (isTime || isLocal)
        m_tokens += isLocal ? KRInputLimits::tokensPerLocalTime : KRInputLimits::tokensPerOtherTime;
    else
        m_tokens += KRInputLimits::tokensPerUnreadableTime;
    return m_otherTime;
}

/// Of two hours that show the same on the clock the system takes the one nearer to what it has been asked for last:
/// in a record, to the point before.
void KRGPXTimeReader::askForLastClock()
{
    const qint64 clock = std::exchange(m_lastClock, KRGPXTime::noTime);
    if (clock == KRGPXTime::noTime)
        return;
    m_tokens += KRInputLimits::tokensPerLocalTime;
    const QDateTime shown = QDateTime::fromMSecsSinceEpoch(clock, Qt::UTC);
    QDateTime(shown.date(), shown.time(), Qt::LocalTime).toMSecsSinceEpoch();
}

/// In UTC, of what a clock shows; noTime where its offset may have changed.
qint64 KRGPXTimeReader::millisecondsOfLocal(qint64 clockMilliseconds)
{
    const qint64 second = clockMilliseconds / 1000;
    m_isClockUncertain = (second < m_spanBegin || second >= m_spanEnd) && !findSpan(second);
    if (m_isClockUncertain)
        return KRGPXTime::noTime;
    m_lastClock = clockMilliseconds;
    return clockMilliseconds - m_spanOffset * 1000;
}

/// False where more than one second of UTC shows this on the clock, or none, and where Qt has its own ways.
bool KRGPXTimeReader::findSpan(qint64 clockSecond)
{
    if (clockSecond < firstClockSecond || clockSecond >= endOfClockSeconds)
        return false;
    // The first attempts may lead to cells near by, where the offset is another one.
    qint64 offset = m_spanOffset;
    for (int attempt = 0; attempt < 3; ++attempt) {
        if (setSpan(clockSecond, offset))
            return true;
        const qint64 cell = (clockSecond - offset) / secondsPerCell;
        offset = offsetAtCell(offset == offsetAtCell(cell) ? cell + 1 : cell);
    }
    return false;
}

/// Sets the span around a second of the clock, provided that it has this offset and no other.
bool KRGPXTimeReader::setSpan(qint64 clockSecond, qint64 offset)
{
    const qint64 cell = (clockSecond - offset) / secondsPerCell;
    qint64 begin = cell * secondsPerCell + offset;
    qint64 end = begin + secondsPerCell;
    // In the cells next to it there may be seconds for which the clock shows the same.
    for (qint64 near = cell - 1; near <= cell + 1; ++near) {
        const qint64 before = offsetAtCell(near);
        const qint64 after = offsetAtCell(near + 1);
        if (before == after)
            continue;
        const qint64 change = firstSecondBehindChange(near);
        if (clockSecond < change + std::min(before, after) && before == offset)
            end = std::min(end, change + std::min(before, after));
        else if (clockSecond >= change + std::max(before, after) && after == offset)
            begin = std::max(begin, change + std::max(before, after));
        else
            return false;
    }
    if (offsetAtCell(cell) != offset && offsetAtCell(cell + 1) != offset)
        return false;
    m_spanOffset = offset;
    m_spanBegin = begin;
    m_spanEnd = end;
    return true;
}

/// Within a cell whose ends have different offsets.
qint64 KRGPXTimeReader::firstSecondBehindChange(qint64 cell)
{
    const auto known = m_changes.constFind(cell);
    if (known != m_changes.cend())
        return *known;
    qint64 before = cell * secondsPerCell;
    qint64 behind = before + secondsPerCell;
    while (behind - before > 1) {
        const qint64 middle = (before + behind) / 2;
        (offsetAt(middle) == offsetAtCell(cell) ? before : behind) = middle;
    }
    m_changes.insert(cell, behind);
    return behind;
}

/// At its beginning.
int KRGPXTimeReader::offsetAtCell(qint64 cell)
{
    constexpr int unknown = std::numeric_limits<int>::min();
    // Some more at either end, for the offsets.
    constexpr qint64 firstCell = firstClockSecond / secondsPerCell - 3;
    constexpr qint64 endOfCells = endOfClockSeconds / secondsPerCell + 4;
    if (m_offsets.empty())
        m_offsets.resize(std::size_t(endOfCells - firstCell), unknown);
    int &offset = m_offsets[std::size_t(std::clamp(cell, firstCell, endOfCells - 1) - firstCell)];
    if (offset == unknown)
        offset = offsetAt(cell * secondsPerCell);
    return offset;
}

/// Seconds by which the clock is ahead of UTC.
int KRGPXTimeReader::offsetAt(qint64 second)
{
    m_tokens += KRInputLimits::tokensPerLocalTime;
    const QDateTime clock = QDateTime::fromSecsSinceEpoch(second);
    // offsetFromUtc() would ask the system once more.
    return int(QDateTime(clock.date(), clock.time(), Qt::UTC).toSecsSinceEpoch() - second);
}
