#pragma once

#include "KRGeoArc.h"

/**
 * A latitude in decimal degrees, north positive, meant for -90 … 90.
 *
 * Values beyond the poles are kept as given until bounded(), catchOutOfBound() or safeLatitude() is asked for;
 * isInValidRange() tells. A failed parse() holds invalidDegrees. Comparisons and arithmetic are those of KRGeoArc.
 */
class KRGEOLOCATION_EXPORT KRLatitude : public KRGeoArc
{
public:
    static constexpr double highestDegrees = 90.0;

    KRLatitude() = default;
    /// Implicit, so that a plain number of degrees can stand for a latitude.
    KRLatitude(double decimalDegrees) : KRGeoArc(decimalDegrees) { }
    /// Explicit, so that no longitude turns into a latitude unnoticed.
    explicit KRLatitude(const KRGeoArc &angle) : KRGeoArc(angle) { }

    /// Reads "N53.5", "S53.5" or "53.5"; the letter is a capital and comes first. Else invalidDegrees.
    static KRLatitude parse(const QString &text);
    /// Any finite number as a latitude in -90 … 90, by adding or subtracting 180; else invalidDegrees.
    static KRLatitude safeLatitude(double decimalDegrees);

    /// True in -90 … 90, with the tolerance of KRGeoArc at both ends.
    bool isInValidRange() const { return *this >= -highestDegrees && *this <= highestDegrees; }
    bool isNorthOf(const KRLatitude &other) const { return *this > other; }
    bool isSouthOf(const KRLatitude &other) const { return *this < other; }
    /// The equator belongs to the northern hemisphere.
    bool isInNorthernHemisphere() const { return !isInSouthernHemisphere(); }
    bool isInSouthernHemisphere() const { return decimalDegrees() < 0.0; }

    /// Clamped to -90 … 90, without tolerance.
    [[nodiscard]] KRLatitude bounded() const;
    /// A latitude at a pole (with tolerance) or beyond becomes 89.99 or -89.99; others stay.
    [[nodiscard]] KRLatitude catchOutOfBound() const;

    bool operator==(const KRLatitude &other) const { return KRGeoArc::operator==(other); }
    bool operator!=(const KRLatitude &other) const { return KRGeoArc::operator!=(other); }
    bool operator<(const KRLatitude &other) const { return KRGeoArc::operator<(other); }
    bool operator<=(const KRLatitude &other) const { return KRGeoArc::operator<=(other); }
    bool operator>(const KRLatitude &other) const { return KRGeoArc::operator>(other); }
    bool operator>=(const KRLatitude &other) const { return KRGeoArc::operator>=(other); }

    KRLatitude operator+(const KRLatitude &other) const { return KRLatitude(KRGeoArc::operator+(other)); }
    KRLatitude operator-(const KRLatitude &other) const { return KRLatitude(KRGeoArc::operator-(other)); }
    KRLatitude operator*(double factor) const { return KRLatitude(KRGeoArc::operator*(factor)); }
    KRLatitude operator/(double divisor) const { return KRLatitude(KRGeoArc::operator/(divisor)); }
    KRLatitude &operator+=(const KRLatitude &other);

    using KRGeoArc::toString;
    /// For users: "53° 8′ 12.5″ Nord" when @p inDegreesMinutesSeconds, else "N53.13680556", which parse() reads.
    /// A null text outside -360 … 360.
    QString toString(bool inDegreesMinutesSeconds) const;
};

/// Prints toString(false).
KRGEOLOCATION_EXPORT QDebug operator<<(QDebug debug, const KRLatitude &latitude);
