#include "KRGPXCommaText.h"

#include "KRGPXTime.h"
#include "KRGPXTrackElement.h"

#include <KRCore/KRDecimalText.h>

#include <array>
#include <charconv>
#include <limits>

namespace {

constexpr int mostFields = 4;
constexpr int decimals = 10;

/// noTime where the milliseconds that QDateTime keeps would not fit into 64 bits.
qint64 millisecondsOf(qint64 seconds)
{
    constexpr qint64 mostSeconds = 9223372036854775;
    return seconds > mostSeconds || seconds < -mostSeconds ? KRGPXTime::noTime : seconds * 1000;
}

/// -1 for anything but digits, and for too many of them. Qt's own functions take ten times as long.
qint64 plainNumber(QStringView text)
{
    if (text.isEmpty() || text.size() > std::numeric_limits<qint64>::digits10)
        return -1;
    qint64 number = 0;
    for (const QChar character : text) {
        const ushort unicode = character.unicode();
        if (unicode < '0' || unicode > '9')
            return -1;
        number = number * 10 + (unicode - '0');
    }
    return number;
}

int toInt(QStringView text)
{
    const qint64 number = plainNumber(text);
    return number >= 0 && number <= std::numeric_limits<int>::max() ? int(number) : text.toInt();
}

qint64 toLongLong(QStringView text)
{
    const qint64 number = plainNumber(text);
    return number >= 0 ? number : text.toLongLong();
}

/// As KRGPXTrackPointImpl::encode() writes angles. Intended: the decimal point stays.
void appendDegrees(double degrees, QString *text)
{
    const KRDecimalText digits(degrees, decimals);
    *text += QLatin1String(digits.begin(), digits.size());
}

void appendField(qint64 number, QString *text)
{
    std::array<char, 1 + std::numeric_limits<qint64>::digits10 + 2> field{','};
    const std::to_chars_result result = std::to_chars(field.data() + 1, field.data() + field.size(), number);
    *text += QLatin1String(field.data(), int(result.ptr - field.data()));
}

/// What stands behind the angles. The elevation is left out where it is 0 and no time follows.
void appendRest(int elevation, qint64 milliseconds, QString *text)
{
    const bool hasTime = milliseconds != KRGPXTime::noTime;
    if (elevation != 0 || hasTime)
        appendField(elevation, text);
    // Intended: milliseconds here, although decode() reads this field as seconds.
    if (hasTime)
        appendField(milliseconds, text);
}

} // namespace

int KRGPXCommaText::count(QStringView texts)
{
    int count = 0;
    bool isBetween = true;
    for (const QChar character : texts) {
        const bool isBehind = isBetween;
        isBetween = isSeparator(character);
        count += isBehind && !isBetween;
    }
    return count;
}

KRGPXCommaText KRGPXCommaText::decode(QStringView text)
{
    std::array<QStringView, mostFields> fields;
    std::size_t count = 0;
    for (qsizetype begin = 0; begin <= text.size() && count < fields.size(); ++count) {
        const qsizetype comma = text.indexOf(QLatin1Char(','), begin);
        const qsizetype end = comma < 0 ? text.size() : comma;
        fields[count] = text.mid(begin, end - begin);
        begin = end + 1;
    }

    KRGPXCommaText point;
    point.longitude = KRGPXTrackElement::safeDouble(fields[0]);
    point.latitude = KRGPXTrackElement::safeDouble(fields[1]);
    point.elevation = toInt(fields[2]);
    // The writer puts milliseconds there. Intended: they are read as seconds.
    point.milliseconds = count == fields.size() ? millisecondsOf(toLongLong(fields[3])) : KRGPXTime::noTime;
    return point;
}

void KRGPXCommaText::appendTo(QString *text) const
{
    appendDegrees(longitude, text);
    *text += QLatin1Char(',');
    appendDegrees(latitude, text);
    appendRest(elevation, milliseconds, text);
}

QString KRGPXCommaText::join(const QString &longitude, const QString &latitude, int elevation, qint64 milliseconds)
{
    QString text = longitude + QLatin1Char(',') + latitude;
    appendRest(elevation, milliseconds, &text);
    return text;
}
