#pragma once

#include "KRGeoLocationExport.h"
#include "KRLatitude.h"
#include "KRLatitudeRange.h"

#include <QList>

/**
 * Latitudes in decimal degrees, in the order of insertion.
 *
 * Bounds compare plain numbers, without tolerance; of equal ones the first is taken. What an empty list has no answer
 * for is KRGeoArc::invalidDegrees.
 */
class KRGEOLOCATION_EXPORT KRLatitudeList : public QList<KRLatitude>
{
public:
    using QList<KRLatitude>::QList;
    KRLatitudeList() = default;
    /// Implicit, as the operations inherited from QList return one.
    KRLatitudeList(const QList<KRLatitude> &list) : QList<KRLatitude>(list) { }
    KRLatitudeList(const KRLatitudeList &other) = default;
    KRLatitudeList(KRLatitudeList &&other) noexcept = default;
    KRLatitudeList &operator=(const KRLatitudeList &other) = default;
    KRLatitudeList &operator=(KRLatitudeList &&other) noexcept = default;
    virtual ~KRLatitudeList() = default;

    KRLatitude average() const;
    KRLatitude northernBound() const;
    KRLatitude southernBound() const;
    /// From the southern to the northern bound.
    KRLatitudeRange range() const;
};
