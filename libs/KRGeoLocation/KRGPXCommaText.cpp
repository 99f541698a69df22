#include "KRGPXCommaText.h"

#include "KRGPXTime.h"
#include "KRGPXTrackElement.h"

#include <array>
#include <charconv>
#include <cmath>
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

/// Whether the last decimal is half way between two digits, which only odd multiples of 1/2048 have.
bool isTie(double degrees)
{
    const double multiple = degrees * 1024.0;
    return multiple - std::floor(multiple) == 0.5;
}

/// As KRGPXTrackPointImpl::encode() writes angles, zero without a sign, but several times as fast.
QString textOf(double degrees)
{
    if (!std::isfinite(degrees))
        return QString::number(degrees);
    std::array<char, std::numeric_limits<double>::max_exponent10 + decimals + 4> text;
    const char *end =
        std::to_chars(text.data(), text.data() + text.size(), degrees + 0.0, std::chars_format::fixed, decimals).ptr;
    // Rounded to an even digit here, and away from zero there.
    const QByteArray tie = isTie(degrees) ? QByteArray::number(degrees, 'f', decimals) : QByteArray();
    const char *const begin = tie.isNull() ? text.data() : tie.constData();
    end = tie.isNull() ? end : tie.constData() + tie.size();
    // Intended: only zeroes go, the decimal point stays.
    while (end[-1] == '0')
        --end;
    return QString::fromLatin1(begin, int(end - begin));
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
    point.elevation = fields[2].toInt();
    // The writer puts milliseconds there. Intended: they are read as seconds.
    point.milliseconds = count == fields.size() ? millisecondsOf(fields[3].toLongLong()) : KRGPXTime::noTime;
    return point;
}

QString KRGPXCommaText::encode() const
{
    return join(textOf(longitude), textOf(latitude), elevation, milliseconds);
}

QString KRGPXCommaText::join(const QString &longitude, const QString &latitude, int elevation, qint64 milliseconds)
{
    const QLatin1Char comma(',');
    const bool hasTime = milliseconds != KRGPXTime::noTime;
    QString text = longitude + comma + latitude;
    if (elevation != 0 || hasTime)
        text += comma + QString::number(elevation);
    // Intended: milliseconds here, although decode() reads this field as seconds.
    if (hasTime)
        text += comma + QString::number(milliseconds);
    return text;
}
