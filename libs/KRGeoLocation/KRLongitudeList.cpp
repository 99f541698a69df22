#include "KRLongitudeList.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <numeric>

KRLongitude KRLongitudeList::average() const
{
    return std::accumulate(cbegin(), cend(), KRLongitude(0.0)) / size();
}

KRLongitude KRLongitudeList::easternBound() const
{
    return isEmpty() ? KRLongitude() : *std::max_element(cbegin(), cend());
}

KRLongitude KRLongitudeList::westernBound() const
{
    return isEmpty() ? KRLongitude() : *std::min_element(cbegin(), cend());
}

KRLongitudeList KRLongitudeList::onlyWesternHemisphere() const
{
    KRLongitudeList western;
    std::copy_if(cbegin(), cend(), std::back_inserter(western), std::mem_fn(&KRLongitude::isInWesternHemisphere));
    return western;
}

KRLongitudeList KRLongitudeList::onlyEasternHemisphere() const
{
    KRLongitudeList eastern;
    std::copy_if(cbegin(), cend(), std::back_inserter(eastern), std::mem_fn(&KRLongitude::isInEasternHemisphere));
    return eastern;
}

KRLongitudeRange KRLongitudeList::naiveRange() const
{
    return KRLongitudeRange(westernBound(), easternBound());
}

KRLongitudeRange KRLongitudeList::effectiveRange() const
{
    const KRLongitudeList western = onlyWesternHemisphere();
    const KRLongitudeList eastern = onlyEasternHemisphere();
    if (western.isEmpty() || eastern.isEmpty())
        return naiveRange();
    // Intended: -180 is an eastern longitude and the smallest of all; longitudes next to 180 are then left out.
    if (eastern.average().absDistance(western.average()) > 180.0)
        return KRLongitudeRange(eastern.westernBound(), western.easternBound());
    return naiveRange();
}
