#include "KRQuickMercator.h"

#if defined(__GNUC__) && defined(__x86_64__)

#include "KRGeoPositionSpan.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <immintrin.h>

namespace {

constexpr double logarithmOf2 = 0.6931471805599453;

// The Mercator square ends a little earlier.
constexpr double highestLatitude = 85.06;

constexpr double surelyInt = 1e9;

// Measured, up to 85.06 degrees ours and the standard library's coordinates differ by 1e-14 worlds at most, which is
// what rounding 1 - sin amounts to there. Taken as ten times as much; and something for rounding pixels up to 1e9.
constexpr double relativeError = 1e-13;
constexpr double errorInPixels = 1e-4;

/// The coefficients of x, x^3, x^5, ...
using OddSeries = std::array<double, 10>;

// x - x^3 / 3! + x^5 / 5! - ...; what is left out is less than x^21 / 21!, 8e-17 at the highest latitude.
constexpr OddSeries makeSineSeries()
{
    OddSeries series{};
    double coefficient = 1.0;
    for (std::size_t k = 0; k < series.size(); ++k) {
        series[k] = coefficient;
        coefficient /= -double((2 * k + 2) * (2 * k + 3));
    }
    return series;
}

// x + x^3 / 3 + x^5 / 5 + ...; what is left out is about x^21 / 21, 1e-16 for x = 0.2.
constexpr OddSeries makeArtanhSeries()
{
    OddSeries series{};
    for (std::size_t k = 0; k < series.size(); ++k)
        series[k] = 1.0 / double(2 * k + 1);
    return series;
}

constexpr OddSeries sineSeries = makeSineSeries();
constexpr OddSeries artanhSeries = makeArtanhSeries();

// Every other coefficient in a sum of its own, so that the processor need not wait for one long chain of steps.
[[gnu::target("avx2,fma")]] inline __m256d sumUp(const OddSeries &series, __m256d x)
{
    const __m256d square = x * x;
    const __m256d fourthPower = square * square;
    __m256d even = _mm256_set1_pd(series[series.size() - 2]);
    __m256d odd = _mm256_set1_pd(series[series.size() - 1]);
    for (std::size_t k = series.size() - 2; k > 0; k -= 2) {
        even = even * fourthPower + series[k - 2];
        odd = odd * fourthPower + series[k - 1];
    }
    return (odd * square + even) * x;
}

/**
 * ln(a / b) of positive numbers whose quotient lies within 2^-1000 ... 2^1000.
 *
 * With a power of two near the quotient, p = 2^n, it is n ln(2) + 2 artanh((a - p b) / (a + p b)). Read as an integer,
 * the bits of a number are its logarithm to base 2, times 2^52, but for a constant and an error of 0.09: so the
 * difference of two such integers tells n, and the argument of artanh stays below 0.21.
 */
[[gnu::target("avx2,fma")]] inline __m256d logarithmOfQuotient(__m256d a, __m256d b)
{
    const __m256i exponentMask = _mm256_set1_epi64x(0x7ffLL << 52);
    const __m256i oneAndHalf = _mm256_set1_epi64x((0x3ffLL << 52) + (1LL << 51)); // the bits of 1, to be rounded
    const __m256i difference = _mm256_sub_epi64(_mm256_castpd_si256(a), _mm256_castpd_si256(b));
    const __m256i powerBits = _mm256_and_si256(_mm256_add_epi64(difference, oneAndHalf), exponentMask);
    const __m256d scaledB = b * _mm256_castsi256_pd(powerBits);

    // A small integer becomes a number as the last digits of 2^52.
    const __m256d shift = _mm256_set1_pd(0x1p52);
    const __m256i biasedExponent = _mm256_srli_epi64(powerBits, 52);
    const __m256d n = _mm256_or_pd(_mm256_castsi256_pd(biasedExponent), shift) - (0x1p52 + 1023.0);

    return n * logarithmOf2 + 2.0 * sumUp(artanhSeries, (a - scaledB) / (a + scaledB));
}

// Spherical Mercator, EPSG:3857, as ln((1 + sin) / (1 - sin)) / 2 (Snyder 1987, eq. 7-2a), scaled to the unit square.
[[gnu::target("avx2,fma")]] inline __m256d normalizedY(__m256d latitude)
{
    const __m256d sine = sumUp(sineSeries, latitude * (M_PI / 180.0));
    return 0.5 - logarithmOfQuotient(1.0 + sine, 1.0 - sine) * (0.25 / M_PI);
}

[[gnu::target("avx2,fma")]] inline __m256d absolute(__m256d x)
{
    return _mm256_andnot_pd(_mm256_set1_pd(-0.0), x);
}

/// All bits set where @p a is less than @p b, none also where one of them is no number.
[[gnu::target("avx2,fma")]] inline __m256d isLess(__m256d a, __m256d b)
{
    return _mm256_cmp_pd(a, b, _CMP_LT_OQ);
}

/// All bits set where an error of @p errorPx cannot change the whole pixel.
[[gnu::target("avx2,fma")]] inline __m256d isCertain(__m256d pixel, double errorPx)
{
    const __m256d nearest = _mm256_round_pd(pixel, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    return _mm256_and_pd(isLess(_mm256_set1_pd(errorPx), absolute(pixel - nearest)),
                         isLess(absolute(pixel), _mm256_set1_pd(surelyInt)));
}

[[gnu::target("avx2,fma")]] inline __m256d cutToWhole(__m256d pixel)
{
    return _mm256_cvtepi32_pd(_mm256_cvttpd_epi32(pixel));
}

[[gnu::target("avx2,fma")]] inline void store(__m256d x, __m256d y, QPointF *pixels)
{
    std::array<double, 4> xs;
    std::array<double, 4> ys;
    _mm256_storeu_pd(xs.data(), x);
    _mm256_storeu_pd(ys.data(), y);
    for (std::size_t i = 0; i < xs.size(); ++i)
        pixels[i] = QPointF(xs[i], ys[i]);
}

[[gnu::target("avx2,fma")]] int projectGroups(const KRGeoPositionSpan &positions, const KRQuickMercator::World &world,
                                              QPointF *pixels)
{
    const double pixelsPerDegree = world.size / 360.0;
    const double greatest = std::max({std::abs(world.size), std::abs(world.xOffset), std::abs(world.yOffset)});
    const double errorPx = greatest * relativeError + errorInPixels;
    int i = 0;
    for (; i + KRQuickMercator::groupSize <= positions.count; i += KRQuickMercator::groupSize) {
        const __m256d latitude = _mm256_loadu_pd(positions.latitudes + i);
        const __m256d longitude = _mm256_loadu_pd(positions.longitudes + i);
        const __m256d x = (longitude + 180.0) * pixelsPerDegree - world.xOffset;
        const __m256d y = normalizedY(latitude) * world.size - world.yOffset;
        const __m256d isInRange = isLess(absolute(latitude), _mm256_set1_pd(highestLatitude));
        const __m256d isSure = _mm256_and_pd(isCertain(x, errorPx), isCertain(y, errorPx));
        if (_mm256_movemask_pd(_mm256_and_pd(isInRange, isSure)) != 0xf)
            break;
        store(cutToWhole(x), cutToWhole(y), pixels + i);
    }
    return i;
}

} // namespace

int KRQuickMercator::project(const KRGeoPositionSpan &positions, const World &world, QPointF *pixels)
{
    const bool hasRegisters = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
    return hasRegisters ? projectGroups(positions, world, pixels) : 0;
}

#else

int KRQuickMercator::project(const KRGeoPositionSpan &, const World &, QPointF *)
{
    return 0;
}

#endif
