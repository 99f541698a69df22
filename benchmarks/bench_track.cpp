#include "KRBenchmarkTracks.h"

#include <KRGeoLocation/KRGPXTrack.h>

#include <benchmark/benchmark.h>

#include <QDateTime>

#include <malloc.h>

#include <algorithm>
#include <vector>

// A track in memory: to build it, what it takes, and to walk over it. The floors do the same with bare arrays of
// numbers; a list of positions has to allocate each, so its floor builds such a list too.

namespace {

struct Columns {
    std::vector<double> latitudes;
    std::vector<double> longitudes;
    std::vector<int> elevations;
    std::vector<qint64> times;
};

const QDateTime start(QDate(2024, 6, 11), QTime(5, 0), Qt::UTC);

double bytesInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd);
}

KRGPXTrack trackOf(const std::vector<std::pair<double, double>> &walk)
{
    const qint64 firstTime = start.toMSecsSinceEpoch();
    KRGPXTrackSegment segment;
    int number = 0;
    for (const auto &[latitude, longitude] : walk) {
        segment.append(latitude, longitude, 10 + number % 90, firstTime + 1000 * number);
        ++number;
    }
    segment.squeeze();
    return KRGPXTrack(QStringLiteral("walk"), QString(), {segment}, LineStringTrackShape);
}

Columns columnsOf(const std::vector<std::pair<double, double>> &walk)
{
    Columns columns;
    int number = 0;
    for (const auto &[latitude, longitude] : walk) {
        columns.latitudes.push_back(latitude);
        columns.longitudes.push_back(longitude);
        columns.elevations.push_back(10 + number % 90);
        columns.times.push_back(1718082000000 + 1000 * number);
        ++number;
    }
    return columns;
}

template <typename Builder>
void measureBuilding(benchmark::State &state, const Builder &build)
{
    const auto walk = KRBenchmarkTracks::randomWalk(int(state.range(0)));
    double bytes = 0.0;
    for (auto _ : state) {
        const double before = bytesInUse();
        const auto built = build(walk);
        benchmark::DoNotOptimize(&built);
        bytes = bytesInUse() - before;
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["bytesPerPoint"] = bytes / double(state.range(0));
}

template <typename Subject, typename Walker>
void measureWalking(benchmark::State &state, const Subject &subject, const Walker &walk)
{
    for (auto _ : state) {
        const auto result = walk(subject);
        benchmark::DoNotOptimize(&result);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void sizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->RangeMultiplier(10)
        ->Range(KRBenchmarkTracks::smallest, KRBenchmarkTracks::largest)
        ->Unit(benchmark::kMicrosecond);
}

} // namespace

static void buildTrack(benchmark::State &state)
{
    measureBuilding(state, trackOf);
}
BENCHMARK(buildTrack)->Apply(sizes);

static void floorBuildArrays(benchmark::State &state)
{
    measureBuilding(state, columnsOf);
}
BENCHMARK(floorBuildArrays)->Apply(sizes);

static void boundingBox(benchmark::State &state)
{
    measureWalking(state, trackOf(KRBenchmarkTracks::randomWalk(int(state.range(0)))),
                   [](const KRGPXTrack &track) { return track.boundingBox(); });
}
BENCHMARK(boundingBox)->Apply(sizes);

static void floorExtremesOfArrays(benchmark::State &state)
{
    measureWalking(state, columnsOf(KRBenchmarkTracks::randomWalk(int(state.range(0)))), [](const Columns &columns) {
        return std::pair(std::minmax_element(columns.latitudes.begin(), columns.latitudes.end()),
                         std::minmax_element(columns.longitudes.begin(), columns.longitudes.end()));
    });
}
BENCHMARK(floorExtremesOfArrays)->Apply(sizes);

static void chunkedPoints(benchmark::State &state)
{
    measureWalking(state, trackOf(KRBenchmarkTracks::randomWalk(int(state.range(0)))),
                   [](const KRGPXTrack &track) { return track.chunkedPoints(); });
}
BENCHMARK(chunkedPoints)->Apply(sizes);

static void floorListOfPositions(benchmark::State &state)
{
    measureWalking(state, columnsOf(KRBenchmarkTracks::randomWalk(int(state.range(0)))), [](const Columns &columns) {
        KRGeoPositionList positions;
        positions.reserve(int(columns.latitudes.size()));
        for (std::size_t i = 0; i < columns.latitudes.size(); ++i)
            positions.append(KRGeoPosition(columns.latitudes[i], columns.longitudes[i]));
        return positions;
    });
}
BENCHMARK(floorListOfPositions)->Apply(sizes);

BENCHMARK_MAIN();
