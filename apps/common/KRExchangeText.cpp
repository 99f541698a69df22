#include "KRExchangeText.h"

#include <KRCore/KRDecimalText.h>
#include <KRGeoLocation/KRGPXTime.h>
#include <KRGeoLocation/KRGeoPosition.h>
#include <KRXML/KRXMLBuilder.h>

#include <QStringList>
#include <QXmlStreamWriter>

#include <array>
#include <charconv>
#include <limits>

namespace {

constexpr int decimals = 7;
constexpr qint64 millisecondsPerDay = 86400000;

/// A number from 0 with leading zeroes, and what stands behind it.
char *writeDigits(char *at, int number, int count, char behind)
{
    for (int i = count - 1; i >= 0; --i, number /= 10)
        at[i] = char('0' + number % 10);
    at[count] = behind;
    return at + count + 1;
}

} // namespace

bool KRExchangeText::isExchangeable(const KRGeoPosition &position)
{
    return position.isValid() && position.latitude().isInValidRange();
}

QString KRExchangeText::degrees(const KRGeoArc &angle)
{
    QByteArray text;
    appendDegrees(angle, &text);
    return QString::fromLatin1(text);
}

void KRExchangeText::appendDegrees(const KRGeoArc &angle, QByteArray *text)
{
    const KRDecimalText digits(angle.decimalDegrees(), decimals);
    const char *begin = digits.begin();
    const char *const end = digits.end()[-1] == '.' ? digits.end() - 1 : digits.end();
    if (end - begin == 2 && begin[0] == '-' && begin[1] == '0')
        ++begin;
    text->append(begin, int(end - begin));
}

void KRExchangeText::appendNumber(int number, QByteArray *text)
{
    std::array<char, std::numeric_limits<int>::digits10 + 2> digits;
    char *const begin = digits.data();
    text->append(begin, int(std::to_chars(begin, begin + digits.size(), number).ptr - begin));
}

bool KRExchangeText::hasUtc(const KRGPXTime &time)
{
    constexpr qint64 first = -62135596800000; // the year 1
    constexpr qint64 end = 253402300800000; // of the year 9999
    const qint64 milliseconds = time.isValid() ? time.toMilliseconds() : KRGPXTime::noTime;
    return milliseconds >= first && milliseconds < end;
}

void KRExchangeText::write(const QString &text, QXmlStreamWriter *xml)
{
    const QStringList parts = KRXMLBuilder::readableText(text).split(QLatin1Char('\r'));
    xml->writeCharacters(parts.first());
    for (int i = 1; i < parts.size(); ++i) {
        xml->writeEntityReference(QStringLiteral("#13"));
        xml->writeCharacters(parts.at(i));
    }
}

QByteArray KRExchangeText::toXml(const QString &text)
{
    return KRXMLBuilder::readableText(text).toHtmlEscaped().toUtf8().replace('\r', "&#13;");
}

QString KRExchangeText::utc(const KRGPXTime &time)
{
    QByteArray text;
    appendUtc(time, &text);
    return QString::fromLatin1(text);
}

void KRExchangeText::appendUtc(const KRGPXTime &time, QByteArray *text)
{
    static const qint64 firstDay = QDate(1970, 1, 1).toJulianDay();
    if (!hasUtc(time))
        return;
    const qint64 milliseconds = time.toMilliseconds();
    const qint64 afterMidnight = (milliseconds % millisecondsPerDay + millisecondsPerDay) % millisecondsPerDay;
    const qint64 day = milliseconds / millisecondsPerDay - (milliseconds % millisecondsPerDay < 0 ? 1 : 0);
    int year = 0;
    int month = 0;
    int dayOfMonth = 0;
    QDate::fromJulianDay(firstDay + day).getDate(&year, &month, &dayOfMonth);
    std::array<char, sizeof("2025-05-17T08:30:00.000Z")> digits;
    char *at = writeDigits(digits.data(), year, 4, '-');
    at = writeDigits(at, month, 2, '-');
    at = writeDigits(at, dayOfMonth, 2, 'T');
    const int seconds = int(afterMidnight / 1000);
    const int fraction = int(afterMidnight % 1000);
    at = writeDigits(at, seconds / 3600, 2, ':');
    at = writeDigits(at, seconds / 60 % 60, 2, ':');
    at = writeDigits(at, seconds % 60, 2, fraction == 0 ? 'Z' : '.');
    if (fraction != 0)
        at = writeDigits(at, fraction, 3, 'Z');
    text->append(digits.data(), int(at - digits.data()));
}
