#include "KRLatitudeList.h"

#include <algorithm>
#include <numeric>

KRLatitude KRLatitudeList::average() const
{
    return std::accumulate(cbegin(), cend(), KRLatitude(0.0)) / size();
}

KRLatitude KRLatitudeList::northernBound() const
{
    return isEmpty() ? KRLatitude() : *std::max_element(cbegin(), cend());
}

KRLatitude KRLatitudeList::southernBound() const
{
    return isEmpty() ? KRLatitude() : *std::min_element(cbegin(), cend());
}

KRLatitudeRange KRLatitudeList::range() const
{
    return KRLatitudeRange(southernBound(), northernBound());
}
