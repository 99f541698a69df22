#pragma once

#include "KRGeoLocationExport.h"
#include "KRLongitude.h"

#include <KRCore/KRRange.h>

class QDebug;
class QUrlQuery;

/**
 * A closed interval of longitudes from west to east, in decimal degrees.
 *
 * A range whose west is greater than its east crosses the date line: west 170, east -170 spans 20 degrees, not 340,
 * and is valid. isValid() asks only that both ends lie in -180 … 180. Both ends belong to the range and compare with
 * the tolerance of KRGeoArc. An end that was never set or could not be read holds KRGeoArc::invalidDegrees.
 * Nothing throws; intersects() stops the program.
 */
class KRGEOLOCATION_EXPORT KRLongitudeRange : public KRRange<KRLongitude>
{
public:
    using KRRange<KRLongitude>::KRRange;

    /// Takes the shorter way round the globe; exactly 180 degrees apart, @p b becomes the west.
    static KRLongitudeRange spawn(const KRLongitude &a, const KRLongitude &b);
    /// Both texts as KRLongitude::parse() reads them.
    static KRLongitudeRange parse(const QString &west, const QString &east);
    /// From the items "longitude_min" and "longitude_max".
    static KRLongitudeRange parse(const QUrlQuery &query);

    KRLongitude west() const { return minimum(); }
    KRLongitude east() const { return maximum(); }
    /// Half way from west to east, in -180 … 180 if both ends are.
    KRLongitude center() const override;

    bool crossesDateLine() const { return west() > east(); }
    bool isValid() const override;
    bool contains(const KRLongitude &value) const override;
    /// Whether it contains both ends of @p other.
    bool contains(const KRRange<KRLongitude> &other) const override;
    bool coversNoMoreThanHalfOfTheEarth() const;
    /// Not for use: stops the program with a fatal message.
    bool intersects(const KRRange<KRLongitude> &other) const override;

    /// In a range that crosses the date line an eastern value becomes the new west, a western one the new east. One
    /// that does not cross it never starts to: 170 expanded to -170 spans 340 degrees.
    void expandTo(const KRLongitude &value) override;
    /// Moves both ends outwards, at most to the date line and never across it.
    void blowUp(const KRLongitude &margin);

    /// "W10.00000000 - E20.00000000", both ends as KRLongitude::toString() writes them.
    QString toString(bool inDegreesMinutesSeconds) const;
    /// Adds "longitude_max", then "longitude_min".
    void writeTo(QUrlQuery &query) const;
};

/// Prints toString(false).
KRGEOLOCATION_EXPORT QDebug operator<<(QDebug debug, const KRLongitudeRange &range);
