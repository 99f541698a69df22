#pragma once

#include "KRGPXLineCrowd.h"
#include "KRGPXTrackRenderer.h"

#include <QPainterPath>
#include <QPen>

#include <optional>

/**
 * Draws many tracks of the same look at once, which is faster by far than one after the other.
 *
 * Lines of one opaque colour, and areas of which only the edge is drawn, leave the same marks either way, but for soft
 * edges where they meet. Whatever else a track may be is not for a bundle.
 */
class KRGEOLOCATION_EXPORT KRGPXLineBundle
{
public:
    /// Fewer tracks are worth no bundle.
    static constexpr int fewTracks = 1000;
    /// Beyond, more lines at once would only take memory.
    static constexpr int mostElements = 500000;

    /// Whether the tracks are so many, or have so many points, that half transparent lines of one look may become one.
    static bool areWorthUniting(const KRGPXConfiguredTrackList &tracks);

    /// For one drawing on @p painter; both stay with the caller.
    KRGPXLineBundle(const KRGPXTrackRenderer *renderer, QPainter *painter, TrackRenderOption option);

    /// Half transparent lines of one look become one, which does not get denser where they lie upon each other.
    void setUniting(bool isUniting) { m_isUniting = isUniting; }

    /// Takes the track over to be drawn with the next draw() or before. False when it is not for a bundle.
    bool take(const KRGPXConfiguredTrack &track);
    /// Whether the track shows alike below and above what has been taken: all of it has the same colour.
    bool hasColorOf(const KRGPXConfiguredTrack &track) const;
    /// Draws all that has been taken and not yet drawn.
    void draw();

private:
    void drawLines();
    bool isForBundle(const KRGPXConfiguredTrack &track, const QPen &pen) const;

    const KRGPXTrackRenderer *const m_renderer;
    QPainter *const m_painter;
    const TrackRenderOption m_option;
    bool m_isUniting = false;
    QPainterPath m_lines;
    QPen m_pen;
    std::optional<KRGPXLineCrowd> m_crowd; // of what the pen has drawn last
};
