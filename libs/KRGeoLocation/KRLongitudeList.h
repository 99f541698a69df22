#pragma once

#include "KRGeoLocationExport.h"
#include "KRLongitude.h"
#include "KRLongitudeRange.h"

#include <QList>

/**
 * Longitudes in decimal degrees, in the order of insertion.
 *
 * Averages and bounds take them for plain numbers and know no date line, only effectiveRange() does. Bounds compare
 * without tolerance; of equal ones the first is taken. What an empty list has no answer for is
 * KRGeoArc::invalidDegrees.
 */
class KRGEOLOCATION_EXPORT KRLongitudeList : public QList<KRLongitude>
{
public:
    using QList<KRLongitude>::QList;
    KRLongitudeList() = default;
    /// Implicit, as the operations inherited from QList return one.
    KRLongitudeList(const QList<KRLongitude> &list) : QList<KRLongitude>(list) { }
    KRLongitudeList(const KRLongitudeList &other) = default;
    KRLongitudeList(KRLongitudeList &&other) noexcept = default;
    KRLongitudeList &operator=(const KRLongitudeList &other) = default;
    KRLongitudeList &operator=(KRLongitudeList &&other) noexcept = default;
    virtual ~KRLongitudeList() = default;

    KRLongitude average() const;
    KRLongitude easternBound() const;
    KRLongitude westernBound() const;
    KRLongitudeList onlyWesternHemisphere() const;
    /// 0, 180 and -180 are among them.
    KRLongitudeList onlyEasternHemisphere() const;
    /// From the smallest to the largest number.
    KRLongitudeRange naiveRange() const;
    /// naiveRange(), unless the averages of both hemispheres lie more than 180 degrees apart: then the range runs
    /// across the date line, from the smallest eastern longitude to the largest western one.
    KRLongitudeRange effectiveRange() const;
};
