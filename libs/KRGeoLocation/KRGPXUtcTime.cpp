#include "KRGPXUtcTime.h"

#include <KRXML/KRXMLParser.h>

#include <QDate>

#include <algorithm>

namespace {

constexpr int notDigits = -1;
constexpr int longestKept = 64; // characters of a time
constexpr qint64 millisecondsPerDay = 86400000;

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

} // namespace

qint64 KRGPXUtcTime::read(const char *text, int length)
{
    const bool hasMilliseconds = length == longLength;
    if ((length != shortLength && !hasMilliseconds) || text[10] != 'T' || text[13] != ':' || text[16] != ':'
        || text[length - 1] != 'Z' || (hasMilliseconds && text[19] != '.'))
        return noTime;
    const int hour = digits(text + 11, 2);
    const int minute = digits(text + 14, 2);
    const int second = digits(text + 17, 2);
    const int millisecond = hasMilliseconds ? digits(text + 20, 3) : 0;
    // 24:00:00 is a time too, but none of these.
    const bool isTime =
        hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60 && millisecond >= 0;
    const qint64 day = isTime ? readDay(text) : noTime;
    return day == noTime ? noTime
                         : day * millisecondsPerDay + ((hour * 60 + minute) * 60 + second) * 1000 + millisecond;
}

QDateTime KRGPXUtcTime::toDateTime(const QString &text)
{
    const QByteArray characters = text.size() <= longLength ? text.toLatin1() : QByteArray();
    const qint64 milliseconds = read(characters.constData(), characters.size());
    if (milliseconds != noTime)
        return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC);
    if (text.size() > longestKept)
        return KRXMLParser::dateTime(text, Qt::ISODate, QDateTime());
    if (text != m_unusualText) {
        m_unusualText = text;
        m_unusualTime = KRXMLParser::dateTime(text, Qt::ISODate, QDateTime());
    }
    return m_unusualTime;
}

/// Days since 1970 of "2024-05-01".
qint64 KRGPXUtcTime::readDay(const char *text)
{
    static const qint64 firstDay = QDate(1970, 1, 1).toJulianDay();
    if (std::equal(m_dayText.cbegin(), m_dayText.cend(), text))
        return m_day;
    const int year = digits(text, 4);
    const QDate date(year, digits(text + 5, 2), digits(text + 8, 2));
    // QDate knows a year -1.
    if (text[4] != '-' || text[7] != '-' || year <= 0 || !date.isValid())
        return noTime;
    std::copy_n(text, m_dayText.size(), m_dayText.begin());
    m_day = date.toJulianDay() - firstDay;
    return m_day;
}
