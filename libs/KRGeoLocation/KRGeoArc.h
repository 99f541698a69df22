#pragma once

#include "KRGeoLocationExport.h"

#include <QString>

#include <cmath>

class QDebug;
class QUrlQuery;
class QVariant;

/**
 * An angle in decimal degrees; negative is south or west where it serves as a coordinate.
 *
 * Valid from -360 to 360, both inclusive. An angle that was never set, could not be read or came of a division by
 * zero holds invalidDegrees. Nothing throws, and no operation wraps or clamps.
 *
 * Intended: == forgives less than 1e-6 degrees (11 cm on the ground) and so do <= and >=, while < and > are plain.
 * Two angles may thus be equal and one of them less. A value: any thread may use its own copy.
 */
class KRGEOLOCATION_EXPORT KRGeoArc
{
public:
    static constexpr double invalidDegrees = 720.0; ///< what stands for "no angle"

    /// invalidDegrees
    KRGeoArc() = default;
    /// Implicit, so that a plain number of degrees can stand for an angle. No checks.
    KRGeoArc(double decimalDegrees) : m_decimalDegrees(decimalDegrees) { }
    KRGeoArc(const KRGeoArc &other) = default;
    KRGeoArc(KRGeoArc &&other) noexcept = default;
    KRGeoArc &operator=(const KRGeoArc &other) = default;
    KRGeoArc &operator=(KRGeoArc &&other) noexcept = default;
    virtual ~KRGeoArc() = default;

    static KRGeoArc fromRadians(double radians);
    /// A null variant gives invalidDegrees; one that holds no number gives 0.
    static KRGeoArc fromVariant(const QVariant &variant);
    /**
     * Reads "53,8,12.5N": whole degrees, whole minutes and seconds between commas. The marks ° ' " and blanks are
     * ignored, parts beyond the third too, and an unreadable part counts as 0. Fewer parts give invalidDegrees.
     *
     * S or W anywhere (also in lower case) makes every part negative, then N or E makes every part positive.
     * Without any of these letters each part keeps its own sign: "-8,30,0" is -7.5.
     */
    static KRGeoArc fromString(const QString &text);

    double decimalDegrees() const { return m_decimalDegrees; }
    double radians() const;
    QVariant toVariant() const;

    /// Whole degrees, cut toward zero; carries the sign, as minute() and second() do.
    int degree() const;
    /// Whole minutes beyond degree(), -59 to 59.
    int minute() const;
    /// Seconds beyond minute(). Not rounded: 8.2 degrees has 11 minutes and 59.999… seconds.
    double second() const;

    bool isValid() const { return m_decimalDegrees >= -360.0 && m_decimalDegrees <= 360.0; }
    /// True for exactly 0.
    bool isNull() const { return m_decimalDegrees == 0.0; }

    bool operator==(const KRGeoArc &other) const { return std::abs(m_decimalDegrees - other.m_decimalDegrees) < 1e-6; }
    bool operator!=(const KRGeoArc &other) const { return !(*this == other); }
    bool operator<(const KRGeoArc &other) const { return m_decimalDegrees < other.m_decimalDegrees; }
    bool operator>(const KRGeoArc &other) const { return m_decimalDegrees > other.m_decimalDegrees; }
    bool operator<=(const KRGeoArc &other) const { return *this < other || *this == other; }
    bool operator>=(const KRGeoArc &other) const { return *this > other || *this == other; }

    KRGeoArc operator+(const KRGeoArc &other) const { return m_decimalDegrees + other.m_decimalDegrees; }
    KRGeoArc operator-(const KRGeoArc &other) const { return m_decimalDegrees - other.m_decimalDegrees; }
    KRGeoArc operator*(double factor) const { return m_decimalDegrees * factor; }
    /// A divisor of exactly 0 gives invalidDegrees.
    KRGeoArc operator/(double divisor) const { return divisor == 0.0 ? invalidDegrees : m_decimalDegrees / divisor; }
    /// The plain difference without its sign: between 170 and -170 lie 340 degrees.
    KRGeoArc absDistance(const KRGeoArc &other) const { return std::abs(m_decimalDegrees - other.m_decimalDegrees); }

    KRGeoArc &operator+=(const KRGeoArc &other);
    /// Stores the angle as given. Setters tell whether the stored number changed.
    bool setDecimalDegrees(double decimalDegrees);
    /// The parts are added with their own signs: for -8.5 degrees pass (-8, -30, 0).
    bool setDegree(int degree, int minute, double second);

    /// Decimal degrees with 16 decimals.
    QString toString() const;
    /// "53/1 8/1 1248000/100000": degrees, minutes, seconds, all without sign, as Exif keeps the hemisphere apart.
    QString toExifRational() const;
    /// Adds toString(), percent-encoded, under @p key.
    void writeTo(QUrlQuery &query, const QString &key) const;

protected:
    /// A number behind an optional hemisphere letter in front, which decides the sign; else invalidDegrees.
    static double parseDegrees(const QString &text, QChar positiveLetter, QChar negativeLetter);
    /// Adds or subtracts @p limit twice until the angle lies in -limit … limit; invalidDegrees if not finite.
    static double foldedInto(double decimalDegrees, double limit);
    /// Puts degree, minute and second, without sign, in place of %1, %2 and %3.
    QString fillPattern(const QString &pattern) const;

private:
    double m_decimalDegrees = invalidDegrees;
};

/// Prints toString().
KRGEOLOCATION_EXPORT QDebug operator<<(QDebug debug, const KRGeoArc &angle);
