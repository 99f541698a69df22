#pragma once

#include "KRCoreExport.h"

class KRDistanceUnit;
class QString;

/**
 * A length as one plain double, in the unit of whoever uses it; line and halo widths are pixels.
 *
 * Every number is allowed and nothing is rounded: comparisons are exact, and null is exactly 0.
 */
class KRCORE_EXPORT KRDistance
{
public:
    KRDistance() = default;
    /// Not explicit: a distance is that number.
    KRDistance(double value) : m_value(value) { }

    double toDouble() const { return m_value; }
    bool isNull() const { return m_value == 0.0; }

    bool operator==(const KRDistance &other) const { return m_value == other.m_value; }
    bool operator!=(const KRDistance &other) const { return !(*this == other); }
    KRDistance operator+(const KRDistance &other) const { return m_value + other.m_value; }
    KRDistance operator*(double factor) const { return m_value * factor; }

    /// With @p precision decimals and a decimal point in every locale; the unit's symbol follows after a blank.
    QString describe(const KRDistanceUnit &unit, int precision, bool withUnit) const;

private:
    double m_value = 0.0;
};
