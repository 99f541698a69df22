#include "KRBenchmarkTracks.h"

#include <benchmark/benchmark.h>

#include <QPointF>

#include <cmath>
#include <vector>

// The floor does the same arithmetic over two plain arrays; projecting the columns of a track should cost no more.

namespace {

const QSize imageSize(2048, 2048);

struct Columns {
    explicit Columns(int count)
    {
        for (const auto &[latitude, longitude] : KRBenchmarkTracks::randomWalk(count)) {
            latitudes.push_back(latitude);
            longitudes.push_back(longitude);
        }
    }

    std::vector<double> latitudes;
    std::vector<double> longitudes;
};

} // namespace

static void projectColumns(benchmark::State &state)
{
    const Columns columns(int(state.range(0)));
    const KRMapProjection projection(KRBenchmarkTracks::area(), imageSize);
    std::vector<QPointF> pixels(columns.latitudes.size());
    for (auto _ : state) {
        projection.projectate({columns.latitudes.data(), columns.longitudes.data(), int(pixels.size())}, pixels.data());
        benchmark::DoNotOptimize(pixels.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(projectColumns)->RangeMultiplier(10)->Range(KRBenchmarkTracks::smallest, KRBenchmarkTracks::largest);

static void floorLibmOverArrays(benchmark::State &state)
{
    const Columns columns(int(state.range(0)));
    constexpr double worldSize = 360.0 * 2048.0;
    constexpr double xOffset = worldSize * 188.0 / 360.0;
    constexpr double yOffset = worldSize * 0.32;
    std::vector<QPointF> pixels(columns.latitudes.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            const double x = (columns.longitudes[i] + 180.0) / 360.0 * worldSize - xOffset;
            const double y =
                (std::log(std::tan((90.0 - columns.latitudes[i]) * M_PI / 360.0)) / (2.0 * M_PI) + 0.5) * worldSize
                - yOffset;
            pixels[i] = QPointF(int(x), int(y));
        }
        benchmark::DoNotOptimize(pixels.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(floorLibmOverArrays)->RangeMultiplier(10)->Range(KRBenchmarkTracks::smallest, KRBenchmarkTracks::largest);

BENCHMARK_MAIN();
