#pragma once

#include "KRMapEffort.h"

#include <QPen>

#include <vector>

/**
 * Estimates how long the tracks of a page of PDF take.
 *
 * Only half transparent lines and halos count, which become outlines there: what takes long is to pack their
 * coordinates. A page keeps everything else as it is.
 */
class KRPageEffort : public KRMapEffort
{
public:
    /// @param renderer of the page; it stays with the caller
    explicit KRPageEffort(const KRGPXTrackRenderer *renderer);

    /// They are drawn as StyledRender unless this is called.
    void setRenderOption(TrackRenderOption option) { m_option = option; }

    /// The tracks without all that takes long: opaque and without halos.
    static KRGPXTrackSelection simplified(const KRGPXTrackSelection &selection);

protected:
    std::vector<double> effortsOf(const KRGPXTrackSelection &selection) const override;

private:
    /// Lines of one look that become one.
    struct Stroke {
        QPen pen;
        Extent extent;
    };

    double effortOf(const KRGPXConfiguredTrack &track, Stroke *halo) const;
    double effortOfMarker(const KRGPXConfiguredTrack &track, const QPen &pen) const;
    Extent extentOnPage(const QPainterPath &path, const QPen &pen) const;
    double effortOfOutlines(const Extent &extent, const QPen &pen) const;

    TrackRenderOption m_option = StyledRender;
};
