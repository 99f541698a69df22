#include "KRBenchmarkTracks.h"

#include <KRGeoLocation/KRGPXTrackConfiguration.h>

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <QPen>

#include <functional>

// The peer hands QPainter the same thinned path in one go. In PDF a half transparent line becomes an outline either
// way, most of the time goes into packing it, and less than half of the bytes is to be expected, in half of the time.

namespace {

const QSize pageSize(1600, 1200);
const QColor halfTransparent(255, 145, 0, 128);

/// How many bytes the PDF of the page has.
int drawPage(const std::function<void(QPainter *)> &draw)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(96);
    writer.setPageSize(QPageSize(QSizeF(pageSize) * 0.75, QPageSize::Point));
    QPainter painter(&writer);
    draw(&painter);
    painter.end();
    return int(buffer.data().size());
}

} // namespace

static void drawHalfTransparentWalk(benchmark::State &state)
{
    KRGPXTrackSelection selection =
        KRBenchmarkTracks::selectionOf(KRBenchmarkTracks::randomPositions(int(state.range(0))));
    KRGPXTrackConfiguration configuration = selection.value(0).configuration();
    configuration.setLineColor(halfTransparent);
    selection.setConfiguration(0, configuration);
    const KRBenchmarkRenderer renderer(selection, pageSize);
    int bytes = 0;
    for (auto _ : state)
        bytes = drawPage([&](QPainter *painter) { renderer.renderWith(*painter, StyledRender); });
    state.counters["bytes"] = bytes;
}
BENCHMARK(drawHalfTransparentWalk)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);

static void peerHalfTransparentWalkAsOnePath(benchmark::State &state)
{
    const KRGPXTrackSelection selection =
        KRBenchmarkTracks::selectionOf(KRBenchmarkTracks::randomPositions(int(state.range(0))));
    const KRBenchmarkRenderer renderer(selection, pageSize);
    const QPen pen(QBrush(halfTransparent), 10.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    int bytes = 0;
    for (auto _ : state)
        bytes = drawPage(
            [&](QPainter *painter) { painter->strokePath(renderer.createPainterPath(selection.value(0)), pen); });
    state.counters["bytes"] = bytes;
}
BENCHMARK(peerHalfTransparentWalkAsOnePath)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
