#pragma once

#include "KRGPXOpacityMap.h"
#include "KRGPXTrackRenderer.h"

#include <vector>

/**
 * Which of very many tracks show nothing, because of what is drawn over them.
 *
 * Looking a track through takes far less than drawing it where it covers much of an image. So the time that areas take,
 * and lines of different looks, depends on how many of them can be seen. For one drawing, on one thread.
 */
class KRGPXHiddenTracks
{
public:
    /// Fewer figures that have to be drawn one by one are not looked through, and show to the last soft edge.
    static constexpr int fewFigures = 5000;

    /// For one drawing on @p painter; both stay with the caller.
    KRGPXHiddenTracks(const KRGPXTrackRenderer *renderer, QPainter *painter, TrackRenderOption option);

    /// True for each of the tracks that is hidden; those after it are drawn over it.
    std::vector<bool> among(const KRGPXConfiguredTrackList &tracks);

private:
    bool canLookThrough() const;
    bool areMany(const KRGPXConfiguredTrackList &tracks) const;
    bool isHidden(const KRGPXConfiguredTrack &track);
    bool lookThrough(const QPainterPath &path, const KRGPXConfiguredTrack &track);

    const KRGPXTrackRenderer *const m_renderer;
    QPainter *const m_painter;
    const TrackRenderOption m_option;
    KRGPXOpacityMap m_opacity{QSize(0, 0)};
};
