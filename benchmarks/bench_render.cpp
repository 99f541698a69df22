#include "KRBenchmarkTracks.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include <vector>

// The peer knows the pixels already, leaves out what lies within four pixels and draws the rest as one path with the
// same pen. Nearly all its time goes into antialiasing, so whoever draws one path can hardly be faster.

namespace {

const QSize imageSize(2048, 2048);

std::vector<QPointF> pixelsOf(const KRGeoPositionList &positions)
{
    const KRMapProjection projection(KRBenchmarkTracks::area(), imageSize);
    std::vector<QPointF> pixels;
    for (const KRGeoPosition &position : positions)
        pixels.push_back(projection.projectate(position));
    return pixels;
}

/// Long strokes from top to bottom and back.
KRGeoPositionList zigzag(int strokes)
{
    KRGeoPositionList positions;
    const KRGeoPositionRect area = KRBenchmarkTracks::area();
    const double width = area.east().decimalDegrees() - area.west().decimalDegrees();
    for (int i = 0; i <= strokes; ++i)
        positions.append(KRGeoPosition(i % 2 == 0 ? area.north() : area.south(),
                                       KRLongitude(area.west().decimalDegrees() + width * i / strokes)));
    return positions;
}

void renderTrack(benchmark::State &state, const KRGeoPositionList &positions)
{
    const KRBenchmarkRenderer renderer(KRBenchmarkTracks::selectionOf(positions), imageSize);
    for (auto _ : state)
        benchmark::DoNotOptimize(renderer.render(StyledRender));
    state.SetItemsProcessed(state.iterations() * positions.size());
}

void drawOnePath(benchmark::State &state, const KRGeoPositionList &positions)
{
    const std::vector<QPointF> pixels = pixelsOf(positions);
    const QPen pen(QBrush(QColor(255, 145, 0)), 10.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    for (auto _ : state) {
        QPainterPath path(pixels.front());
        for (const QPointF &pixel : pixels)
            if ((pixel - path.currentPosition()).manhattanLength() > 4.0)
                path.lineTo(pixel);
        QImage image(imageSize, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen);
        painter.drawPath(path);
        painter.end();
        benchmark::DoNotOptimize(image.convertToFormat(QImage::Format_ARGB32));
    }
    state.SetItemsProcessed(state.iterations() * positions.size());
}

} // namespace

static void renderWalk(benchmark::State &state)
{
    renderTrack(state, KRBenchmarkTracks::randomPositions(int(state.range(0))));
}
BENCHMARK(renderWalk)
    ->RangeMultiplier(10)
    ->Range(KRBenchmarkTracks::smallest, KRBenchmarkTracks::largest)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

static void peerWalkAsOnePath(benchmark::State &state)
{
    drawOnePath(state, KRBenchmarkTracks::randomPositions(int(state.range(0))));
}
BENCHMARK(peerWalkAsOnePath)
    ->RangeMultiplier(10)
    ->Range(KRBenchmarkTracks::smallest, KRBenchmarkTracks::largest)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

static void renderZigzag(benchmark::State &state)
{
    renderTrack(state, zigzag(int(state.range(0))));
}
BENCHMARK(renderZigzag)->Arg(250)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

static void peerZigzagAsOnePath(benchmark::State &state)
{
    drawOnePath(state, zigzag(int(state.range(0))));
}
BENCHMARK(peerZigzagAsOnePath)->Arg(250)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv); // whose thread may use the pool
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
