#include "KRBenchmarkTracks.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>

// The floor copies the map, which cropping cannot avoid; a short track keeps the drawing of the mask out of sight.
// Expect one and a half times the floor for large maps, and more for small ones, whose copies stay in the caches.

namespace {

QImage mapOf(const benchmark::State &state)
{
    QImage map(int(state.range(0)), int(state.range(0)), QImage::Format(state.range(1)));
    map.fill(QColor(10, 200, 30));
    return map;
}

void sizesAndFormats(benchmark::internal::Benchmark *benchmark)
{
    for (const int format : {QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied})
        for (const int size : {512, 1024, 2048, 4096})
            benchmark->Args({size, format});
    benchmark->ArgNames({"px", "format"})->Unit(benchmark::kMillisecond);
}

} // namespace

static void crop(benchmark::State &state)
{
    const QImage map = mapOf(state);
    KRGPXTrackSelection selection = KRBenchmarkTracks::selectionOf(KRBenchmarkTracks::randomPositions(10));
    selection.setCroppingOpacity(100);
    const KRBenchmarkRenderer renderer(selection, map.size());
    for (auto _ : state)
        benchmark::DoNotOptimize(renderer.crop(map));
    state.SetItemsProcessed(state.iterations() * map.width() * map.height());
}
BENCHMARK(crop)->Apply(sizesAndFormats)->MeasureProcessCPUTime()->UseRealTime();

static void floorCopy(benchmark::State &state)
{
    const QImage map = mapOf(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(map.copy());
    state.SetItemsProcessed(state.iterations() * map.width() * map.height());
}
BENCHMARK(floorCopy)->Apply(sizesAndFormats)->MeasureProcessCPUTime()->UseRealTime();

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv); // whose thread may use the pool
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
