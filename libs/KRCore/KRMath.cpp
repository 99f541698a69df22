#include "KRMath.h"

#include <cmath>
#include <limits>

bool KRMath::epsilonEqual(double a, double b, double epsilon)
{
    return std::abs(a - b) <= epsilon;
}

int KRMath::toInt(double value)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    if (std::isnan(value))
        return 0;
    if (value <= lowest)
        return lowest;
    if (value >= highest)
        return highest;
    return static_cast<int>(value);
}
