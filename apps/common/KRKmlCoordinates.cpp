#include "KRKmlCoordinates.h"

#include <KRCore/KRInputLimits.h>
#include <KRCore/KRMath.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace {

constexpr int decimals = 7;
constexpr qint64 unitsPerDegree = 10000000;
constexpr qint64 fullTurn = 360 * unitsPerDegree;

bool startsWith(QLatin1String text, char character)
{
    return text.size() > 0 && text.data()[0] == character;
}

std::optional<double> toDouble(QLatin1String text)
{
    // from_chars() knows no plus sign.
    const char *const begin = text.data() + (startsWith(text, '+') ? 1 : 0);
    const char *const end = text.data() + text.size();
    double value = 0.0;
    const std::from_chars_result result = std::from_chars(begin, end, value);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(value))
        return std::nullopt;
    return value;
}

/// Digits with at most one point, cut behind the seventh decimal; not set for anything else, which may be a number.
std::optional<qint64> plainUnits(QLatin1String text)
{
    qint64 units = 0;
    int decimalsRead = -1; // before the point
    int digits = 0;
    const bool hasSign = startsWith(text, '-') || startsWith(text, '+');
    for (int i = hasSign ? 1 : 0; i < text.size(); ++i) {
        const char character = text.data()[i];
        if (character == '.' && decimalsRead < 0) {
            decimalsRead = 0;
            continue;
        }
        if (character < '0' || character > '9')
            return std::nullopt;
        ++digits;
        if (decimalsRead == decimals || units > fullTurn * unitsPerDegree)
            continue;
        units = units * 10 + (character - '0');
        if (decimalsRead >= 0)
            ++decimalsRead;
    }
    if (digits == 0)
        return std::nullopt;
    for (int i = std::max(decimalsRead, 0); i < decimals && units <= fullTurn; ++i)
        units *= 10;
    return startsWith(text, '-') ? -units : units;
}

/// In 1e-7 degrees; not set when it is no number between -limit and +limit degrees.
std::optional<qint64> toUnits(QLatin1String text, qint64 limitDegrees)
{
    std::optional<qint64> units = plainUnits(text);
    if (!units) {
        const std::optional<double> degrees = toDouble(text);
        if (!degrees || std::abs(*degrees) > double(limitDegrees))
            return std::nullopt;
        units = std::llround(*degrees * double(unitsPerDegree));
    }
    if (std::abs(*units) > limitDegrees * unitsPerDegree)
        return std::nullopt;
    return units;
}

void appendUnits(QString *text, qint32 units)
{
    if (units < 0)
        text->append(QLatin1Char('-'));
    const qint64 positive = std::abs(qint64(units));
    text->append(QString::number(positive / unitsPerDegree));
    qint64 rest = positive % unitsPerDegree;
    if (rest == 0)
        return;
    text->append(QLatin1Char('.'));
    for (qint64 digit = unitsPerDegree / 10; rest > 0; digit /= 10) {
        text->append(QLatin1Char(char('0' + rest / digit)));
        rest %= digit;
    }
}

} // namespace

bool KRKmlCoordinates::isClosed() const
{
    return count() > 1 && m_positions.first().latitude == m_positions.last().latitude
           && m_positions.first().longitude == m_positions.last().longitude;
}

void KRKmlCoordinates::append(QLatin1String longitude, QLatin1String latitude, QLatin1String elevation)
{
    std::optional<qint64> longitudeUnits = toUnits(longitude, 360);
    std::optional<qint64> latitudeUnits = toUnits(latitude, 90);
    if (!longitudeUnits || !latitudeUnits || isFull()) {
        ++m_unreadableCount;
        return;
    }
    if (*longitudeUnits > fullTurn / 2)
        *longitudeUnits -= fullTurn;
    else if (*longitudeUnits < -fullTurn / 2)
        *longitudeUnits += fullTurn;
    if (*longitudeUnits == 0 && *latitudeUnits == 0)
        latitudeUnits = 1;
    m_positions.append(
        {qint32(*latitudeUnits), qint32(*longitudeUnits), KRMath::toInt(toDouble(elevation).value_or(0.0))});
}

void KRKmlCoordinates::appendTrackPosition(const QString &text, const KRGPXTime &time)
{
    const QList<QByteArray> fields = text.left(KRInputLimits::positionCharacters).simplified().toLatin1().split(' ');
    if (fields.first().isEmpty())
        return;
    const auto field = [&fields](int index) {
        return index < fields.size() ? QLatin1String(fields.at(index)) : QLatin1String();
    };
    append(field(0), field(1), field(2));
    if (m_times.size() < m_positions.size())
        m_times.append(time);
}

void KRKmlCoordinates::setTime(const KRGPXTime &time)
{
    m_times.fill(time, count());
}

void KRKmlCoordinates::close()
{
    if (count() > 2 && !isClosed())
        m_positions.append(m_positions.first());
}

QString KRKmlCoordinates::toText(int mostPositions) const
{
    QString text;
    for (int i = 0; i < std::min(count(), mostPositions); ++i) {
        const Position &position = m_positions.at(i);
        if (i > 0)
            text.append(QLatin1Char(' '));
        appendUnits(&text, position.longitude);
        text.append(QLatin1Char(','));
        appendUnits(&text, position.latitude);
        if (position.elevation != 0)
            text.append(QLatin1Char(',') + QString::number(position.elevation));
    }
    return text;
}

KRGPXTrackSegment KRKmlCoordinates::toSegment() const
{
    KRGPXTrackSegment segment;
    for (int i = 0; i < count(); ++i) {
        const Position &position = m_positions.at(i);
        segment.append(double(position.latitude) / double(unitsPerDegree),
                       double(position.longitude) / double(unitsPerDegree), position.elevation, m_times.value(i));
    }
    segment.squeeze();
    return segment;
}
