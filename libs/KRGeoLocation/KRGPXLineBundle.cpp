#include "KRGPXLineBundle.h"

#include "KRGPXConfiguredTrack.h"
#include "KRGPXMarkerShape.h"
#include "KRGPXPathPainter.h"
#include "KRGPXPenKeeper.h"
#include "KRGPXTrackConfiguration.h"
#include "KRGPXTrackDisplayOptions.h"
#include "KRGPXTrackShape.h"
#include "KRGPXWorldCopies.h"
#include "KRGeoPositionSpan.h"

#include <QPainter>

#include <algorithm>

namespace {

// in all tracks together
constexpr int manyPoints = 200000;

} // namespace

bool KRGPXLineBundle::areWorthUniting(const KRGPXConfiguredTrackList &tracks)
{
    if (tracks.size() > fewTracks)
        return true;
    int points = 0;
    for (const KRGPXConfiguredTrack &track : tracks)
        track.visitPositions([&points](const KRGeoPositionSpan &positions) {
            points = std::min(points + positions.count, manyPoints + 1);
        });
    return points > manyPoints;
}

KRGPXLineBundle::KRGPXLineBundle(const KRGPXTrackRenderer *renderer, QPainter *painter, TrackRenderOption option)
    : m_renderer(renderer), m_painter(painter), m_option(option)
{ }

bool KRGPXLineBundle::take(const KRGPXConfiguredTrack &track)
{
    const QPen pen = m_renderer->penFromTrack(track.configuration(), m_option);
    if (!isForBundle(track, pen))
        return false;
    const QPainterPath path = m_renderer->createPainterPath(track);
    if (path.isEmpty())
        return false;
    if (pen != m_pen)
        draw();
    else if (m_lines.elementCount() > mostElements)
        drawLines();
    m_pen = pen;
    m_lines.addPath(path);
    return true;
}

bool KRGPXLineBundle::hasColorOf(const KRGPXConfiguredTrack &track) const
{
    const KRGPXTrackConfiguration configuration = track.configuration();
    const bool isFilled = m_option == OpaqueRender || configuration.hasDrawOption(FillDisplayOption);
    // Arrows have the colour of the line also where that is not drawn.
    return m_renderer->lineColor(configuration, m_option) == m_pen.color()
           && (!isFilled || m_renderer->fillColor(configuration, m_option) == m_pen.color());
}

bool KRGPXLineBundle::isForBundle(const KRGPXConfiguredTrack &track, const QPen &pen) const
{
    const KRGPXTrackShape shape = track.effectiveShape();
    const KRGPXTrackConfiguration configuration = track.configuration();
    const bool isStroked = m_option == OpaqueRender || configuration.hasDrawOption(StrokeDisplayOption);
    const bool isFilled =
        shape == PolygonTrackShape && (m_option == OpaqueRender || configuration.hasDrawOption(FillDisplayOption));
    const bool hasArrow = (configuration.markerShape() & ArrowMarkerShape) != 0;
    return isStroked && !isFilled && !hasArrow && shape != PointTrackShape && pen.style() == Qt::SolidLine
           && (m_isUniting || pen.color().alpha() == 255);
}

void KRGPXLineBundle::draw()
{
    drawLines();
    m_crowd.reset();
}

void KRGPXLineBundle::drawLines()
{
    if (m_lines.isEmpty())
        return;
    constexpr double softEdgePx = 2.0;
    const KRGPXPenKeeper keeper(m_painter, m_pen, Qt::NoBrush);
    KRGPXWorldCopies(m_renderer->aroundTheWorldOffset())
        .forEach(m_painter, m_lines, m_pen.widthF() + softEdgePx,
                 [this] { KRGPXPathPainter::drawPath(m_painter, m_lines, &m_crowd); });
    m_lines = QPainterPath();
}
