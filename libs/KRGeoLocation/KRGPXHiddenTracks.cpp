#include "KRGPXHiddenTracks.h"

#include "KRGPXConfiguredTrack.h"
#include "KRGPXMarkerShape.h"
#include "KRGPXTrackConfiguration.h"
#include "KRGPXTrackDisplayOptions.h"
#include "KRGPXTrackShape.h"
#include "KRGPXWorldCopies.h"

#include <QImage>
#include <QLineF>
#include <QPainter>

#include <algorithm>

namespace {

QSize sizeOf(const QPaintDevice *device)
{
    const auto *const image = dynamic_cast<const QImage *>(device);
    return image ? image->size() : QSize(0, 0);
}

// A rectangle around each line, all turning in the same direction; joins lie in two of them.
QPainterPath outlineOf(const QPainterPath &path, double width)
{
    QPainterPath outline;
    outline.setFillRule(Qt::WindingFill);
    for (int i = 1; i < path.elementCount(); ++i) {
        const QLineF line(path.elementAt(i - 1), path.elementAt(i));
        const double length = line.length();
        if (path.elementAt(i).isMoveTo() || !(length > 0.0))
            continue;
        const QPointF along = QPointF(line.dx(), line.dy()) * (width / 2.0 / length);
        const QPointF across(-along.y(), along.x());
        outline.moveTo(line.p1() - along - across);
        outline.lineTo(line.p2() + along - across);
        outline.lineTo(line.p2() + along + across);
        outline.lineTo(line.p1() - along + across);
        outline.closeSubpath();
    }
    return outline;
}

} // namespace

KRGPXHiddenTracks::KRGPXHiddenTracks(const KRGPXTrackRenderer *renderer, QPainter *painter, TrackRenderOption option)
    : m_renderer(renderer), m_painter(painter), m_option(option)
{ }

std::vector<bool> KRGPXHiddenTracks::among(const KRGPXConfiguredTrackList &tracks)
{
    std::vector<bool> hidden(std::size_t(tracks.size()), false);
    if (tracks.size() <= fewFigures || !canLookThrough() || !areMany(tracks))
        return hidden;
    m_opacity = KRGPXOpacityMap(sizeOf(m_painter->device()));
    for (int i = tracks.size() - 1; i >= 0; --i)
        hidden[std::size_t(i)] = isHidden(tracks.at(i));
    return hidden;
}

bool KRGPXHiddenTracks::canLookThrough() const
{
    return !sizeOf(m_painter->device()).isEmpty() && m_painter->isActive()
           && m_painter->testRenderHint(QPainter::Antialiasing)
           && m_painter->compositionMode() == QPainter::CompositionMode_SourceOver && m_painter->opacity() == 1.0
           && m_painter->deviceTransform().type() <= QTransform::TxTranslate;
}

/// Lines that look like the one before are drawn together with it.
bool KRGPXHiddenTracks::areMany(const KRGPXConfiguredTrackList &tracks) const
{
    int figures = 0;
    QPen last;
    for (int i = 0; i < tracks.size() && figures <= fewFigures; ++i) {
        const KRGPXTrackConfiguration configuration = tracks.at(i).configuration();
        const QPen pen = m_renderer->penFromTrack(configuration, m_option);
        const KRGPXTrackShape shape = tracks.at(i).effectiveShape();
        const bool isLikeLast = pen == last && pen.color().alpha() == 255 && shape != PolygonTrackShape;
        figures += shape == PointTrackShape || isLikeLast ? 0 : 1;
        last = pen;
    }
    return figures > fewFigures;
}

bool KRGPXHiddenTracks::isHidden(const KRGPXConfiguredTrack &track)
{
    const bool hasArrow = (track.markerShape() & ArrowMarkerShape) != 0;
    if (hasArrow || track.effectiveShape() == PointTrackShape)
        return false;
    const QPainterPath path = m_renderer->createPainterPath(track);
    if (path.isEmpty())
        return false; // a marker
    constexpr double softEdgePx = 2.0;
    const double reach = m_renderer->penFromTrack(track.configuration(), m_option).widthF() + softEdgePx;
    bool isInSight = false;
    KRGPXWorldCopies(m_renderer->aroundTheWorldOffset()).forEach(m_painter, path, reach, [&] {
        isInSight = lookThrough(path, track) || isInSight;
    });
    return !isInSight;
}

/// Whether any of the track is in sight, in one copy of the world. It hides what is below then.
bool KRGPXHiddenTracks::lookThrough(const QPainterPath &path, const KRGPXConfiguredTrack &track)
{
    const KRGPXTrackConfiguration configuration = track.configuration();
    const QTransform transform = m_painter->deviceTransform();
    const auto isDrawn = [&](KRGPXTrackDisplayOptionsEnum option) {
        return m_option == OpaqueRender || configuration.hasDrawOption(option);
    };
    bool isInSight = false;
    if (isDrawn(StrokeDisplayOption)) {
        const QPen pen = m_renderer->penFromTrack(configuration, m_option);
        m_opacity.setArea(outlineOf(path, std::max(1.0, pen.widthF())), transform);
        isInSight = m_opacity.isInSight();
        if (isInSight && pen.style() == Qt::SolidLine)
            m_opacity.add(pen.color().alpha());
    }
    if (track.effectiveShape() == PolygonTrackShape && isDrawn(FillDisplayOption)) {
        m_opacity.setArea(path, transform);
        if (m_opacity.isInSight()) {
            isInSight = true;
            m_opacity.add(m_renderer->fillColor(configuration, m_option).alpha());
        }
    }
    return isInSight;
}
