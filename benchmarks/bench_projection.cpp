#include "KRBenchmarkTracks.h"

#include <benchmark/benchmark.h>

#include <QPointF>

#include <cmath>
#include <vector>

// The floor does the same arithmetic over two plain arrays; projecting positions should cost little more than that.

namespace {

const QSize imageSize(2048, 2048);

} // namespace

static void projectPositions(benchmark::State &state)
{
    const KRGeoPositionList positions = KRBenchmarkTracks::randomPositions(int(state.range(0)));
    const KRMapProjection projection(KRBenchmarkTracks::area(), imageSize);
    std::vector<QPointF> pixels(std::size_t(positions.size()));
    for (auto _ : state) {
        QPointF *pixel = pixels.data();
        for (const KRGeoPosition &position : positions)
            *pixel++ = projection.projectate(position);
        benchmark::DoNotOptimize(pixels.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(projectPositions)->RangeMultiplier(10)->Range(KRBenchmarkTracks::smallest, KRBenchmarkTracks::largest);

static void floorLibmOverArrays(benchmark::State &state)
{
    const auto walk = KRBenchmarkTracks::randomWalk(int(state.range(0)));
    std::vector<double> latitudes;
    std::vector<double> longitudes;
    for (const auto &[latitude, longitude] : walk) {
        latitudes.push_back(latitude);
        longitudes.push_back(longitude);
    }
    constexpr double worldSize = 360.0 * 2048.0;
    constexpr double xOffset = worldSize * 188.0 / 360.0;
    constexpr double yOffset = worldSize * 0.32;
    std::vector<QPointF> pixels(walk.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            const double x = (longitudes[i] + 180.0) / 360.0 * worldSize - xOffset;
            const double y =
                (std::log(std::tan((90.0 - latitudes[i]) * M_PI / 360.0)) / (2.0 * M_PI) + 0.5) * worldSize - yOffset;
            pixels[i] = QPointF(int(x), int(y));
        }
        benchmark::DoNotOptimize(pixels.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(floorLibmOverArrays)->RangeMultiplier(10)->Range(KRBenchmarkTracks::smallest, KRBenchmarkTracks::largest);

BENCHMARK_MAIN();
