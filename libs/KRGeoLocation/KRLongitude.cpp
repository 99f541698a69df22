#include "KRLongitude.h"

#include <QCoreApplication>
#include <QDebug>
#include <QObject>

#include <algorithm>

namespace {

/// Whether the way of so many degrees leads eastwards by less than half a turn; wraps once.
bool leadsEast(double degrees)
{
    const double eastwards = degrees < 0.0 ? degrees + 360.0 : degrees;
    return eastwards > 0.0 && eastwards < 180.0;
}

} // namespace

KRLongitude KRLongitude::parse(const QString &text)
{
    return parseDegrees(text, QLatin1Char('E'), QLatin1Char('W'));
}

KRLongitude KRLongitude::safeLongitude(double decimalDegrees)
{
    return foldedInto(decimalDegrees, highestDegrees);
}

bool KRLongitude::isEastOf(const KRLongitude &other) const
{
    return leadsEast(decimalDegrees() - other.decimalDegrees());
}

bool KRLongitude::isWestOf(const KRLongitude &other) const
{
    return leadsEast(other.decimalDegrees() - decimalDegrees());
}

bool KRLongitude::isInWesternHemisphere() const
{
    return leadsEast(0.0 - decimalDegrees());
}

KRLongitude KRLongitude::bounded() const
{
    return std::clamp(decimalDegrees(), -highestDegrees, highestDegrees);
}

KRLongitude KRLongitude::normalized() const
{
    return safeLongitude(decimalDegrees());
}

KRLongitude &KRLongitude::operator+=(const KRLongitude &other)
{
    KRGeoArc::operator+=(other);
    return *this;
}

QString KRLongitude::toString(bool inDegreesMinutesSeconds) const
{
    if (!isValid())
        return QString();
    if (inDegreesMinutesSeconds) {
        // "Nautilal" is part of the key by which existing translations find this text.
        return fillPattern(isInWesternHemisphere()
                               ? QObject::tr("%1° %2′ %3″ West", "Coordinate / Nautilal Bearing   Longitude/Länge")
                               : QObject::tr("%1° %2′ %3″ Ost", "Coordinate / Nautilal Bearing   Longitude/Länge"));
    }
    const QString letter = isInWesternHemisphere()
                               ? QCoreApplication::translate("KRLongitude", "W", "short for 'west'")
                               : QCoreApplication::translate("KRLongitude", "E", "short for 'east'");
    return letter + QString::number(std::abs(decimalDegrees()), 'f', 8);
}

QDebug operator<<(QDebug debug, const KRLongitude &longitude)
{
    const QDebugStateSaver saver(debug);
    debug.noquote() << longitude.toString(false);
    return debug;
}
