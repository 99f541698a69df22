#pragma once

#include "KRGeoArc.h"

/**
 * A longitude in decimal degrees, east positive, meant for -180 … 180, where both ends are the date line.
 *
 * Values beyond are kept as given until bounded(), normalized() or safeLongitude() is asked for; isInValidRange()
 * tells. A failed parse() holds invalidDegrees. Comparisons and arithmetic are those of KRGeoArc, plain numbers
 * that do not wrap; isEastOf() and isWestOf() go the shorter way round the globe.
 */
class KRGEOLOCATION_EXPORT KRLongitude : public KRGeoArc
{
public:
    static constexpr double highestDegrees = 180.0;

    KRLongitude() = default;
    /// Implicit, so that a plain number of degrees can stand for a longitude.
    KRLongitude(double decimalDegrees) : KRGeoArc(decimalDegrees) { }
    /// Explicit, so that no latitude turns into a longitude unnoticed.
    explicit KRLongitude(const KRGeoArc &angle) : KRGeoArc(angle) { }

    /// Reads "E8.25", "W8.25" or "8.25"; the letter is a capital and comes first. Else invalidDegrees.
    static KRLongitude parse(const QString &text);
    /// Any finite number as a longitude in -180 … 180, by whole turns; else invalidDegrees.
    static KRLongitude safeLongitude(double decimalDegrees);

    /// True in -180 … 180, with the tolerance of KRGeoArc at both ends.
    bool isInValidRange() const { return *this >= -highestDegrees && *this <= highestDegrees; }
    /// True when less than half a turn leads eastwards from @p other to here; both have to lie in -180 … 180.
    bool isEastOf(const KRLongitude &other) const;
    /// True when less than half a turn leads westwards from @p other to here; both have to lie in -180 … 180.
    bool isWestOf(const KRLongitude &other) const;
    /// True when longitude 0 is east of here.
    bool isInWesternHemisphere() const;
    /// 0, 180 and -180 belong to the eastern hemisphere.
    bool isInEasternHemisphere() const { return !isInWesternHemisphere(); }

    /// Clamped to -180 … 180, without tolerance.
    [[nodiscard]] KRLongitude bounded() const;
    /// The same meridian in -180 … 180; 180 and -180 stay as they are.
    [[nodiscard]] KRLongitude normalized() const;

    bool operator==(const KRLongitude &other) const { return KRGeoArc::operator==(other); }
    bool operator!=(const KRLongitude &other) const { return KRGeoArc::operator!=(other); }
    bool operator<(const KRLongitude &other) const { return KRGeoArc::operator<(other); }
    bool operator<=(const KRLongitude &other) const { return KRGeoArc::operator<=(other); }
    bool operator>(const KRLongitude &other) const { return KRGeoArc::operator>(other); }
    bool operator>=(const KRLongitude &other) const { return KRGeoArc::operator>=(other); }

    KRLongitude operator+(const KRLongitude &other) const { return KRLongitude(KRGeoArc::operator+(other)); }
    KRLongitude operator-(const KRLongitude &other) const { return KRLongitude(KRGeoArc::operator-(other)); }
    KRLongitude operator*(double factor) const { return KRLongitude(KRGeoArc::operator*(factor)); }
    KRLongitude operator/(double divisor) const { return KRLongitude(KRGeoArc::operator/(divisor)); }
    KRLongitude &operator+=(const KRLongitude &other);

    using KRGeoArc::toString;
    /// For users: "8° 12′ 0″ Ost" when @p inDegreesMinutesSeconds, else "E8.20000000", which parse() reads.
    /// A null text outside -360 … 360.
    QString toString(bool inDegreesMinutesSeconds) const;
};

/// Prints toString(false).
KRGEOLOCATION_EXPORT QDebug operator<<(QDebug debug, const KRLongitude &longitude);
