#include "KRBenchmarkTracks.h"

#include <KRGeoLocation/KRGPXTrackConfiguration.h>

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include <cmath>
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

/// A round island with bays all along its coast.
KRGeoPositionList island(int corners)
{
    constexpr double fullTurn = 6.283185307179586;
    const KRGeoPosition centre = KRBenchmarkTracks::area().center();
    KRGeoPositionList positions;
    for (int i = 0; i <= corners; ++i) {
        const double angle = fullTurn * i / corners;
        const double radius = 0.4 + 0.05 * std::sin(37.0 * angle) + 0.01 * std::sin(0.3 * i); // degrees
        positions.append(KRGeoPosition(centre.latitude().decimalDegrees() + radius * 0.6 * std::sin(angle),
                                       centre.longitude().decimalDegrees() + radius * std::cos(angle)));
    }
    return positions;
}

void renderTrack(benchmark::State &state, const KRGeoPositionList &positions, KRGPXTrackShapeEnum shape)
{
    KRGPXTrackSelection selection = KRBenchmarkTracks::selectionOf(positions);
    KRGPXTrackConfiguration configuration = selection.value(0).configuration();
    configuration.setTrackShape(shape);
    configuration.setCurrentDisplayOptions(
        KRGPXTrackDisplayOptions(shape == PolygonTrackShape ? FillDisplayOption : StrokeDisplayOption));
    selection.setConfiguration(0, configuration);
    const KRBenchmarkRenderer renderer(selection, imageSize);
    for (auto _ : state)
        benchmark::DoNotOptimize(renderer.render(StyledRender));
    state.SetItemsProcessed(state.iterations() * positions.size());
}

void drawOnePath(benchmark::State &state, const KRGeoPositionList &positions, KRGPXTrackShapeEnum shape)
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
        if (shape == PolygonTrackShape)
            painter.fillPath(path, QColor(255, 145, 0, 80));
        else
            painter.strokePath(path, pen);
        painter.end();
        benchmark::DoNotOptimize(image.convertToFormat(QImage::Format_ARGB32));
    }
    state.SetItemsProcessed(state.iterations() * positions.size());
}

} // namespace

static void renderWalk(benchmark::State &state)
{
    renderTrack(state, KRBenchmarkTracks::randomPositions(int(state.range(0))), LineStringTrackShape);
}
BENCHMARK(renderWalk)
    ->RangeMultiplier(10)
    ->Range(KRBenchmarkTracks::smallest, KRBenchmarkTracks::largest)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

static void peerWalkAsOnePath(benchmark::State &state)
{
    drawOnePath(state, KRBenchmarkTracks::randomPositions(int(state.range(0))), LineStringTrackShape);
}
BENCHMARK(peerWalkAsOnePath)
    ->RangeMultiplier(10)
    ->Range(KRBenchmarkTracks::smallest, KRBenchmarkTracks::largest)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

static void renderZigzag(benchmark::State &state)
{
    renderTrack(state, zigzag(int(state.range(0))), LineStringTrackShape);
}
BENCHMARK(renderZigzag)->Arg(250)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

static void peerZigzagAsOnePath(benchmark::State &state)
{
    drawOnePath(state, zigzag(int(state.range(0))), LineStringTrackShape);
}
BENCHMARK(peerZigzagAsOnePath)->Arg(250)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

static void renderArea(benchmark::State &state)
{
    renderTrack(state, island(int(state.range(0))), PolygonTrackShape);
}
BENCHMARK(renderArea)
    ->RangeMultiplier(10)
    ->Range(KRBenchmarkTracks::smallest, KRBenchmarkTracks::largest)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

static void peerAreaAsOnePath(benchmark::State &state)
{
    drawOnePath(state, island(int(state.range(0))), PolygonTrackShape);
}
BENCHMARK(peerAreaAsOnePath)
    ->RangeMultiplier(10)
    ->Range(KRBenchmarkTracks::smallest, KRBenchmarkTracks::largest)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv); // whose thread may use the pool
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
