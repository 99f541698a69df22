#include "KRLatitude.h"

#include <QCoreApplication>
#include <QDebug>
#include <QObject>

#include <algorithm>

KRLatitude KRLatitude::parse(const QString &text)
{
    return parseDegrees(text, QLatin1Char('N'), QLatin1Char('S'));
}

KRLatitude KRLatitude::safeLatitude(double decimalDegrees)
{
    // Intended: shifted by half a turn, not mirrored at the pole; 100 becomes -80.
    return foldedInto(decimalDegrees, highestDegrees);
}

KRLatitude KRLatitude::bounded() const
{
    return std::clamp(decimalDegrees(), -highestDegrees, highestDegrees);
}

KRLatitude KRLatitude::catchOutOfBound() const
{
    constexpr double distanceFromPole = 0.01;
    if (*this <= -highestDegrees)
        return -highestDegrees + distanceFromPole;
    if (*this >= highestDegrees)
        return highestDegrees - distanceFromPole;
    return *this;
}

KRLatitude &KRLatitude::operator+=(const KRLatitude &other)
{
    KRGeoArc::operator+=(other);
    return *this;
}

QString KRLatitude::toString(bool inDegreesMinutesSeconds) const
{
    if (!isValid())
        return QString();
    if (inDegreesMinutesSeconds) {
        return fillPattern(isInSouthernHemisphere()
                               ? QObject::tr("%1° %2′ %3″ Süd", "Coordinate / Nautical Bearing  Latitude  Breite")
                               : QObject::tr("%1° %2′ %3″ Nord", "Coordinate / Nautical Bearing  Latitude  Breite"));
    }
    const QString letter = isInSouthernHemisphere()
                               ? QCoreApplication::translate("KRLatitude", "S", "short for 'south'")
                               : QCoreApplication::translate("KRLatitude", "N", "short for 'north'");
    return letter + QString::number(std::abs(decimalDegrees()), 'f', 8);
}

QDebug operator<<(QDebug debug, const KRLatitude &latitude)
{
    const QDebugStateSaver saver(debug);
    debug.noquote() << latitude.toString(false);
    return debug;
}
