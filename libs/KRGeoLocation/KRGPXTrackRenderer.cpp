#include "KRGPXTrackRenderer.h"

#include "KRGPXConfiguredTrack.h"
#include "KRGPXCroppingAlpha.h"
#include "KRGPXImageMemory.h"
#include "KRGPXImageStrips.h"
#include "KRGPXLineBundle.h"
#include "KRGPXMarkerShape.h"
#include "KRGPXMarkerStamps.h"
#include "KRGPXPagePainter.h"
#include "KRGPXPathPainter.h"
#include "KRGPXPenKeeper.h"
#include "KRGPXTrack.h"
#include "KRGPXTrackChunks.h"
#include "KRGPXTrackConfiguration.h"
#include "KRGPXTrackDisplayOptions.h"
#include "KRGPXTrackRendererDashes.h"
#include "KRGPXTrackShape.h"
#include "KRGPXTrackSmoothing.h"
#include "KRGPXWorldCopies.h"
#include "KRGPXWorldStrip.h"
#include "KRGeoPositionList.h"
#include "KRGeoPositionSpan.h"

#include <KRCore/KRConcurrent.h>
#include <KRCore/KRQtCompat.h>

#include <QPaintEngine>
#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

namespace {

// pixels at rendering factor 1; a point farther than this from the last one kept is kept too (Manhattan distance)
constexpr double minimumStep = 4.0;

// pixels at rendering factor 1
constexpr double shortestArrow = 10.0;
constexpr double longestArrow = 100.0;

// of what is antialiased, in pixels
constexpr double softEdge = 2.0;

// degrees between an arrow's shaft and each of its barbs
constexpr double barbAngle = 30.0;

// Pixels beyond are no places on any map, and their distances no numbers to draw with.
constexpr double farthestPixel = 1e12;
constexpr double widestLine = 32767.0;

bool isPixel(const QPointF &point)
{
    return std::abs(point.x()) <= farthestPixel && std::abs(point.y()) <= farthestPixel;
}

// 0, which QPainter draws as a hairline, for negative widths and what is no number
double drawableWidth(double width)
{
    return width > 0.0 ? std::min(width, widestLine) : 0.0;
}

// 1 for a step eastwards over longitude 180, -1 for one westwards, else 0
int dateLineCrossing(const KRLongitude &from, const KRLongitude &to)
{
    const bool startsInTheEast = from.isInEasternHemisphere();
    if (startsInTheEast == to.isInEasternHemisphere() || from == to)
        return 0;
    if (from.isEastOf(to) == startsInTheEast)
        return 0; // over the prime meridian
    return startsInTheEast ? 1 : -1;
}

bool crossesDateLine(const QList<KRGeoPositionSpan> &chunks)
{
    if (chunks.isEmpty())
        return false;
    KRLongitude from = chunks.first().longitudes[0];
    for (const KRGeoPositionSpan &chunk : chunks) {
        for (int i = 0; i < chunk.count; ++i) {
            const KRLongitude to = chunk.longitudes[i];
            if (dateLineCrossing(from, to) != 0)
                return true;
            from = to;
        }
    }
    return false;
}

/// For a mask, which has no colours: what looks alike is drawn faster.
KRGPXConfiguredTrackList inOneColor(KRGPXConfiguredTrackList tracks)
{
    for (KRGPXConfiguredTrack &track : tracks) {
        KRGPXTrackConfiguration configuration = track.configuration();
        configuration.setLineColor(Qt::black);
        configuration.setFillColor(Qt::black);
        track.setConfiguration(configuration);
    }
    return tracks;
}

/// Not valid if there is none. The list of a long track takes some 70 bytes for each point.
KRGeoPosition firstDrawingPoint(const KRGPXConfiguredTrack &track)
{
    if (track.effectiveShape() == PointTrackShape && track.effectiveShape() != track.naturalShape())
        return track.drawingPoints().value(0);
    std::optional<KRGeoPosition> first;
    track.visitPositions([&](const KRGeoPositionSpan &positions) {
        if (!first && positions.count > 0)
            first = positions.at(0);
    });
    return first.value_or(KRGeoPosition());
}

} // namespace

KRGPXTrackRenderer::KRGPXTrackRenderer(const KRGPXTrackSelection &selection, const QSize &targetImageSize,
                                       double renderingFactor)
    : m_selection(selection), m_targetImageSize(targetImageSize), m_renderingFactor(renderingFactor)
{ }

KRGPXTrackRenderer::~KRGPXTrackRenderer() = default;

void KRGPXTrackRenderer::projectPositions(const KRGeoPositionSpan &positions, QPointF *pixels) const
{
    // one record for all of them, as long as projectPosition() keeps no copy
    KRGeoPosition position;
    for (int i = 0; i < positions.count; ++i) {
        position.setLatitude(positions.latitudes[i]);
        position.setLongitude(positions.longitudes[i]);
        pixels[i] = projectPosition(position);
    }
}

QImage KRGPXTrackRenderer::render(TrackRenderOption option) const
{
    return paintImage(option, true).convertToFormat(QImage::Format_ARGB32);
}

QImage KRGPXTrackRenderer::renderQuickAndDirty(TrackRenderOption option) const
{
    return paintImage(option, false);
}

QImage KRGPXTrackRenderer::renderForeground() const
{
    return renderQuickAndDirty(OpaqueRender);
}

QImage KRGPXTrackRenderer::paintImage(TrackRenderOption option, bool antialiased) const
{
    QImage image(m_targetImageSize, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    paintOn(&image, m_selection.tracks(), option, antialiased);
    return image;
}

void KRGPXTrackRenderer::paintOn(QImage *image, const KRGPXConfiguredTrackList &tracks, TrackRenderOption option,
                                 bool antialiased) const
{
    if (image->isNull())
        return;
    QPainter painter(image);
    if (antialiased)
        painter.setRenderHints(KRQtCompat::antialiasing());
    drawTracks(&painter, tracks, option);
}

void KRGPXTrackRenderer::renderWith(QPainter &painter, TrackRenderOption option) const
{
    drawTracks(&painter, m_selection.tracks(), option);
}

void KRGPXTrackRenderer::renderUnited(QPainter &painter, TrackRenderOption option) const
{
    const KRGPXConfiguredTrackList tracks = m_selection.tracks();
    drawTracks(&painter, tracks, option, KRGPXLineBundle::areWorthUniting(tracks));
}

void KRGPXTrackRenderer::drawTracks(QPainter *painter, const KRGPXConfiguredTrackList &tracks, TrackRenderOption option,
                                    bool isUniting) const
{
    const KRGPXWorldStrip strip = worldStrip(tracks, painter->isActive() && KRGPXPagePainter::isFor(painter));
    if (strip.isWorthwhile())
        strip.draw(painter, [&](QPainter *stripPainter) { drawEach(stripPainter, tracks, option, isUniting); });
    else
        drawEach(painter, tracks, option, isUniting);
}

KRGPXWorldStrip KRGPXTrackRenderer::worldStrip(const KRGPXConfiguredTrackList &tracks, bool isOnPage) const
{
    KRGPXWorldStrip strip(projectPosition(KRGeoPosition(0.0, -180.0)), aroundTheWorldOffset(), m_targetImageSize);
    if (!strip.isPossible())
        return strip;
    constexpr double pointsPerTrack = 10.0; // that take as long as one
    double points = pointsPerTrack * tracks.size();
    double reach = 0.0;
    for (const KRGPXConfiguredTrack &track : tracks) {
        track.visitPositions([&points](const KRGeoPositionSpan &positions) { points += positions.count; });
        const bool hasArrow = (track.configuration().markerShape() & ArrowMarkerShape) != 0;
        // The radius of a marker is the width of the line, and so may be that of its pen.
        const double width = drawableWidth(scale((track.haloWidth() + track.lineWidth()).toDouble()));
        reach = std::max(reach, 2.0 * width + softEdge + (hasArrow ? scale(longestArrow) : 0.0));
    }
    strip.setContent(points, reach, isOnPage);
    return strip;
}

QRect KRGPXTrackRenderer::drawnRect(bool isOnPage) const
{
    const KRGPXWorldStrip strip = worldStrip(m_selection.tracks(), isOnPage);
    return strip.isWorthwhile() ? strip.rect() : QRect(QPoint(), m_targetImageSize);
}

void KRGPXTrackRenderer::drawEach(QPainter *painter, const KRGPXConfiguredTrackList &tracks, TrackRenderOption option,
                                  bool isUniting) const
{
    const bool isCrowd = tracks.size() > KRGPXLineBundle::fewTracks;
    const bool isCrowdOnImage = isCrowd && dynamic_cast<const QImage *>(painter->device());
    // Somebody may want to take an SVG apart.
    const bool isPdf = painter->isActive() && painter->paintEngine()->type() == QPaintEngine::Pdf;
    const bool isCrowdInPdf = isPdf && KRGPXLineBundle::areWorthUniting(tracks);
    const bool isBundled = isCrowdOnImage || isCrowdInPdf || isUniting;
    KRGPXLineBundle bundle(this, painter, option);
    bundle.setUniting(isUniting);
    KRGPXMarkerStamps stamps;
    for (const KRGPXConfiguredTrack &track : tracks) {
        if (isBundled && bundle.take(track))
            continue;
        if (!bundle.hasColorOf(track))
            bundle.draw();
        if (isCrowdOnImage && track.effectiveShape() == PointTrackShape)
            drawPoint(painter, track, option, &stamps);
        else
            drawTrack(painter, track, option);
    }
    bundle.draw();
}

void KRGPXTrackRenderer::drawTrack(QPainter *painter, const KRGPXConfiguredTrack &track, TrackRenderOption option) const
{
    const KRGPXTrackShape shape = track.effectiveShape();
    if (shape == PolygonTrackShape)
        drawPolygon(painter, track, option);
    else if (shape == PointTrackShape)
        drawPoint(painter, track, option);
    else
        drawLine(painter, track, option);
}

QImage KRGPXTrackRenderer::crop(const QImage &map) const
{
    const int opacity = qBound(0, m_selection.effectiveCroppingOpacity(), 255);
    if (opacity == 255 || map.isNull())
        return map;
    // only its alpha counts, which a conversion out of the premultiplied format would leave as it is
    QImage mask = KRGPXImageMemory::transparentImage(m_targetImageSize);
    paintOn(&mask, inOneColor(m_selection.tracks()), OpaqueRender, true);
    const AlphaTable table = KRGPXCroppingAlpha::tableFor(opacity);
    return KRGPXImageStrips::changed(
        map, QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied, [&](QImage *strip, int firstRow) {
            const int maskedRows = qBound(0, mask.height() - firstRow, strip->height());
            const QImage maskRows = maskedRows > 0 ? KRGPXImageStrips::rowsOf(mask, firstRow, maskedRows) : QImage();
            mergeCropping(*strip, maskRows, KRIntRange::rowsOfImage(*strip), table);
        });
}

void KRGPXTrackRenderer::mergeCropping(QImage &image, const QImage &mask, const KRIntRange &rows,
                                       const AlphaTable &table) const
{
    const int width = image.width();
    const int maskedWidth = std::min(mask.width(), width);
    for (int y = rows.minimum(); y <= rows.maximum(); ++y) {
        QRgb *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        int x = 0;
        if (y < mask.height()) {
            KRGPXCroppingAlpha::merge(line, reinterpret_cast<const QRgb *>(mask.constScanLine(y)), maskedWidth, table);
            x = maskedWidth;
        }
        KRGPXCroppingAlpha::fill(line + x, width - x, table[0]);
    }
}

QPointF KRGPXTrackRenderer::aroundTheWorldOffset() const
{
    return projectPosition(KRGeoPosition(0.0, 180.0)) - projectPosition(KRGeoPosition(0.0, -180.0));
}

KRGPXWorldCopies KRGPXTrackRenderer::worldCopies() const
{
    return KRGPXWorldCopies(aroundTheWorldOffset());
}

KRIntRange KRGPXTrackRenderer::visibleShifts(QPainter *painter) const
{
    const QPaintDevice *const device = painter->device();
    return worldCopies().visibleShifts(device ? device->width() : 0);
}

double KRGPXTrackRenderer::detectAngleOfPath(const QPainterPath &path) const
{
    // Intended: a plain mean of angles, although angles on both sides of 0 average to the opposite direction.
    double sum = 0.0;
    for (const double percent : {0.95, 0.96, 0.97, 0.98, 0.99})
        sum += path.angleAtPercent(percent);
    return sum / 5.0;
}

QPointF KRGPXTrackRenderer::carthesian(double distance, double angle) const
{
    const double theta = qDegreesToRadians(180.0 - angle);
    return QPointF(distance * std::cos(theta), distance * std::sin(theta));
}

QPointF KRGPXTrackRenderer::movePolar(const QPointF &point, double distance, double angle) const
{
    return point + carthesian(distance, angle);
}

QColor KRGPXTrackRenderer::lineColor(const KRGPXTrackConfiguration &configuration, TrackRenderOption option) const
{
    return adaptColor(configuration.lineColor(), option);
}

QColor KRGPXTrackRenderer::fillColor(const KRGPXTrackConfiguration &configuration, TrackRenderOption option) const
{
    return adaptColor(configuration.fillColor(), option);
}

QColor KRGPXTrackRenderer::adaptColor(const QColor &color, TrackRenderOption option) const
{
    QColor adapted = color;
    if (option == OpaqueRender)
        adapted.setAlpha(255);
    return adapted;
}

QPen KRGPXTrackRenderer::solidPenFromTrack(const KRGPXTrackConfiguration &configuration, TrackRenderOption option) const
{
    const KRDistance width =
        option == StyledRender ? configuration.lineWidth() : configuration.haloWidth() + configuration.lineWidth();
    return QPen(QBrush(lineColor(configuration, option)), drawableWidth(scale(width.toDouble())), Qt::SolidLine,
                Qt::RoundCap, Qt::RoundJoin);
}

QPen KRGPXTrackRenderer::penFromTrack(const KRGPXTrackConfiguration &configuration, TrackRenderOption option) const
{
    QPen pen = solidPenFromTrack(configuration, option);
    if (option == StyledRender)
        configuration.penStyle().modifyPen(pen);
    return pen;
}

QBrush KRGPXTrackRenderer::brushFromTrack(const KRGPXTrackConfiguration &configuration, TrackRenderOption option) const
{
    return QBrush(fillColor(configuration, option), Qt::SolidPattern);
}

QPainterPath KRGPXTrackRenderer::createPainterPath(const KRGPXConfiguredTrack &track) const
{
    const int strength = track.smoothingStrength();
    const int steps = track.smoothingSteps();
    QPainterPath path = createPainterPath(track.track(), strength, steps);
    // Intended: a natural polygon comes closed by its points and gets no join there.
    if (track.naturalShape() == LineStringTrackShape && track.effectiveShape() == PolygonTrackShape)
        path.closeSubpath();
    const QList<KRGPXTrack> enclaves = track.track().enclaves();
    if (enclaves.isEmpty())
        return path;
    const QRectF area = path.controlPointRect();
    const KRGPXWorldCopies copies = worldCopies();
    for (const KRGPXTrack &enclave : enclaves)
        path.addPath(copies.broughtTo(area, createPainterPath(enclave, strength, steps)));
    return path;
}

QPainterPath KRGPXTrackRenderer::createPainterPath(const KRGPXTrack &track, int smoothingStrength,
                                                   int smoothingSteps) const
{
    std::vector<QPointF> points = projectedPoints(track);
    if (smoothingStrength != 100)
        KRGPXTrackSmoothing(points.data(), int(points.size()), smoothingStrength / 100.0, smoothingSteps).run();
    return thinnedPath(std::move(points));
}

std::vector<QPointF> KRGPXTrackRenderer::projectedPoints(const KRGPXTrack &track) const
{
    const KRGPXTrackChunks chunks(track);
    const Chunks &spans = chunks.spans();
    const Ranges &ranges = chunks.ranges();
    bool crossed = false;
    std::unique_ptr<QPointF[]> offsets;
    if (crossesDateLine(spans))
        offsets.reset(createDateLineCrossingOffsets(spans, chunks.numbers(), chunks.pointCount(), ranges, &crossed));
    auto points = std::vector<QPointF>(std::size_t(chunks.pointCount()));
    QPointF *const target = points.data();
    KRConcurrent::blockingMap(chunks.numbers(), [&](int c) { projectPointsPP(c, spans, ranges, target); });
    if (crossed)
        KRConcurrent::blockingMap(chunks.numbers(), [&](int c) { shiftProjected(c, offsets.get(), ranges, target); });
    return points;
}

void KRGPXTrackRenderer::projectPointsPP(int c, const Chunks &chunks, const Ranges &ranges, QPointF *points) const
{
    projectPositions(chunks.at(c), points + ranges.at(c).minimum());
}

void KRGPXTrackRenderer::shiftProjected(int c, const QPointF *offsets, const Ranges &ranges, QPointF *points) const
{
    for (int k = ranges.at(c).minimum(); k <= ranges.at(c).maximum(); ++k)
        points[k] += offsets[k];
}

int KRGPXTrackRenderer::checkDateLineCrossing(const KRGeoPosition &a, const KRGeoPosition &b) const
{
    return dateLineCrossing(a.longitude(), b.longitude());
}

void KRGPXTrackRenderer::checkDateLineCrossings(int c, const Chunks &chunks, const Ranges &ranges, int *crossings) const
{
    const KRGeoPositionSpan &chunk = chunks.at(c);
    const KRGeoPositionSpan before = c == 0 ? chunk.mid(0, 1) : chunks.at(c - 1);
    int *crossing = crossings + ranges.at(c).minimum();
    KRLongitude from = before.longitudes[before.count - 1];
    for (int k = 0; k < chunk.count; ++k) {
        const KRLongitude to = chunk.longitudes[k];
        *crossing++ = dateLineCrossing(from, to);
        from = to;
    }
}

QPointF *KRGPXTrackRenderer::createDateLineCrossingOffsets(const Chunks &chunks, const QList<int> &chunkNumbers,
                                                           int pointCount, const Ranges &ranges, bool *crossed) const
{
    std::vector<int> crossings(std::size_t(pointCount), 0);
    int *const target = crossings.data();
    KRConcurrent::blockingMap(chunkNumbers, [&](int c) { checkDateLineCrossings(c, chunks, ranges, target); });

    const QPointF world = aroundTheWorldOffset();
    auto offsets = std::make_unique<QPointF[]>(std::size_t(pointCount));
    int running = 0;
    for (std::size_t k = 0; k < crossings.size(); ++k) {
        if (crossings[k] != 0) {
            running += crossings[k];
            *crossed = true;
        }
        if (running != 0)
            offsets[k] = running * world;
    }
    return offsets.release();
}

QPainterPath KRGPXTrackRenderer::thinnedPath(std::vector<QPointF> points) const
{
    points.erase(std::remove_if(points.begin(), points.end(), [](const QPointF &point) { return !isPixel(point); }),
                 points.end());
    if (points.empty())
        return QPainterPath();
    const QPointF lastOfAll = points.back();
    const double threshold = scale(minimumStep);
    auto lastKept = points.begin();
    for (auto point = points.begin() + 1; point != points.end(); ++point)
        if ((*lastKept - *point).manhattanLength() > threshold)
            *++lastKept = *point;
    if (lastKept == points.begin())
        return QPainterPath();

    QPainterPath path(points.front());
    path.reserve(int(lastKept - points.begin()) + 2);
    std::for_each(points.begin() + 1, lastKept + 1, [&path](const QPointF &point) { path.lineTo(point); });
    path.lineTo(lastOfAll);
    return path;
}

// How far from a path there may be marks: of its pen, an arrow head and the soft edge of antialiasing.
double KRGPXTrackRenderer::reachOf(const QPen &pen) const
{
    return pen.widthF() + scale(longestArrow) + softEdge;
}

void KRGPXTrackRenderer::drawLine(QPainter *painter, const KRGPXConfiguredTrack &track, TrackRenderOption option) const
{
    const QPainterPath path = createPainterPath(track);
    if (path.isEmpty()) {
        drawPoint(painter, track, option);
        return;
    }
    const KRGPXTrackConfiguration configuration = track.configuration();
    const QPen pen = penFromTrack(configuration, option);
    const QPainterPath lines = worldCopies().linesToDraw(painter, path, pen);
    worldCopies().forEach(painter, lines, reachOf(pen), [&] { drawPath(painter, lines, configuration, option); });
    if ((configuration.markerShape() & ArrowMarkerShape) != 0)
        worldCopies().forEach(painter, path, reachOf(pen),
                              [&] { drawArrowHead(painter, path, configuration, option); });
}

void KRGPXTrackRenderer::drawPolygon(QPainter *painter, const KRGPXConfiguredTrack &track,
                                     TrackRenderOption option) const
{
    const QPainterPath path = createPainterPath(track);
    if (path.isEmpty()) {
        drawPoint(painter, track, option);
        return;
    }
    const KRGPXTrackConfiguration configuration = track.configuration();
    worldCopies().forEach(painter, path, reachOf(penFromTrack(configuration, option)),
                          [&] { drawPolygon(painter, path, configuration, option); });
}

void KRGPXTrackRenderer::drawPolygon(QPainter *painter, const QPainterPath &path,
                                     const KRGPXTrackConfiguration &configuration, TrackRenderOption option) const
{
    if (option == OpaqueRender || configuration.hasDrawOption(FillDisplayOption))
        KRGPXPathPainter::fillPath(painter, path, brushFromTrack(configuration, option));
    drawPath(painter, path, configuration, option);
}

void KRGPXTrackRenderer::drawPath(QPainter *painter, const QPainterPath &path,
                                  const KRGPXTrackConfiguration &configuration, TrackRenderOption option) const
{
    if (option != OpaqueRender && !configuration.hasDrawOption(StrokeDisplayOption))
        return;
    const KRGPXPenKeeper keeper(painter, penFromTrack(configuration, option), Qt::NoBrush);
    KRGPXTrackRendererDashes::drawPath(painter, path);
}

void KRGPXTrackRenderer::drawArrowHead(QPainter *painter, const QPainterPath &path,
                                       const KRGPXTrackConfiguration &configuration, TrackRenderOption option) const
{
    const QPointF start = path.elementAt(0);
    const QPointF tip = path.currentPosition();
    const QPen pen = solidPenFromTrack(configuration, option);
    const double reach = reachOf(pen);
    const QRectF bounds = QRectF(tip, QSizeF(0.0, 0.0)).adjusted(-reach, -reach, reach, reach);
    if (KRGPXWorldCopies::surelyMissesDevice(painter, bounds))
        return;
    const double angle = detectAngleOfPath(path);
    const double halfDistance = std::hypot(tip.x() - start.x(), tip.y() - start.y()) * 0.5;
    const double length = scale(qBound(shortestArrow, halfDistance, longestArrow));

    const KRGPXPenKeeper keeper(painter, pen, painter->brush());
    painter->drawLine(tip, movePolar(tip, length, angle + barbAngle));
    painter->drawLine(tip, movePolar(tip, length, angle - barbAngle));
}

void KRGPXTrackRenderer::drawPoint(QPainter *painter, const KRGPXConfiguredTrack &track, TrackRenderOption option,
                                   KRGPXMarkerStamps *stamps) const
{
    const KRGPXTrackConfiguration configuration = track.configuration();
    const bool strokes = option == OpaqueRender || configuration.hasDrawOption(StrokeDisplayOption);
    const bool fills = option == OpaqueRender || configuration.hasDrawOption(FillDisplayOption);
    if (!strokes && !fills)
        return;
    const KRGeoPosition position = firstDrawingPoint(track);
    // Most projections give a position without valid angles a pixel all the same.
    if (!position.latitude().isValid() || !position.longitude().isValid())
        return;
    const QPointF centre = projectPosition(position);
    if (!isPixel(centre))
        return;

    const QPen pen = strokes ? penFromTrack(configuration, option) : QPen(Qt::transparent);
    const double size = drawableWidth(scale(configuration.lineWidth().toDouble()));
    const double reach = size + pen.widthF() + softEdge;
    const KRGPXPenKeeper keeper(painter, pen, fills ? brushFromTrack(configuration, option) : Qt::transparent);
    const KRGPXMarkerShape shape = configuration.markerShape();
    worldCopies().forEach(painter, QPainterPath(centre), reach, [&] {
        if (!stamps || !stamps->draw(painter, shape, centre, size))
            shape.draw(painter, centre, size, size);
    });
}
