#pragma once

#include "KRGeoLocationExport.h"
#include "KRLatitude.h"

#include <KRCore/KRRange.h>

class QDebug;
class QUrlQuery;

/**
 * A closed interval of latitudes from south to north, in decimal degrees.
 *
 * The ends are kept as given; isValid() asks that they are ordered and lie in -90 … 90. Both ends belong to the range
 * and compare with the tolerance of KRGeoArc. An end that was never set or could not be read holds
 * KRGeoArc::invalidDegrees. Nothing throws.
 */
class KRGEOLOCATION_EXPORT KRLatitudeRange : public KRRange<KRLatitude>
{
public:
    using KRRange<KRLatitude>::KRRange;

    /// The southern of the two becomes the south.
    static KRLatitudeRange spawn(const KRLatitude &a, const KRLatitude &b);
    /// Both texts as KRLatitude::parse() reads them.
    static KRLatitudeRange parse(const QString &south, const QString &north);
    /// From the items "latitude_min" and "latitude_max".
    static KRLatitudeRange parse(const QUrlQuery &query);

    KRLatitude south() const { return minimum(); }
    KRLatitude north() const { return maximum(); }

    bool isValid() const override;

    /// Moves both ends outwards, at most to the poles.
    void blowUp(const KRLatitude &margin);

    /// "S5.00000000 - N10.00000000", both ends as KRLatitude::toString() writes them.
    QString toString(bool inDegreesMinutesSeconds) const;
    /// Adds "latitude_max", then "latitude_min".
    void writeTo(QUrlQuery &query) const;
};

/// Prints toString(false).
KRGEOLOCATION_EXPORT QDebug operator<<(QDebug debug, const KRLatitudeRange &range);
