#pragma once

#include "KRMapEffort.h"

#include <QPen>

#include <vector>

/**
 * Estimates how long an image of the tracks takes.
 *
 * The estimate comes from the lengths of outlines and from the pixels that they may enclose: lines and areas across the
 * whole picture, wide ones, one upon the other.
 */
class KRImageEffort : public KRMapEffort
{
public:
    /// @param renderer of the image; it stays with the caller
    explicit KRImageEffort(const KRGPXTrackRenderer *renderer);

    /// Whether the tracks are drawn once more to crop the map; they are not unless this is called.
    void setCropped(bool isCropped) { m_isCropped = isCropped; }
    /// They and their halos are drawn as StyledRender unless this is called.
    void setRenderOption(TrackRenderOption option) { m_option = option; }
    /// For devices that keep lines and areas as such, where only what crops a map is an image.
    void setForMaskOnly() { m_isForMaskOnly = true; }

    /// The tracks; where all of them take too long, the cheapest of them, which take four tenths of what they may.
    KRGPXTrackSelection affordable(const KRGPXTrackSelection &selection) const;

protected:
    std::vector<double> effortsOf(const KRGPXTrackSelection &selection) const override;

private:
    KRGPXTrackSelection cheapest(const KRGPXTrackSelection &selection, const std::vector<double> &efforts,
                                 double most) const;

    /// How a track is drawn, one of the times that it is.
    struct Layer {
        QPen pen;
        bool isStroked;
        bool isFilled;
    };
    /// What is drawn in one go, for each time that the tracks are drawn: one track or several of the same look.
    struct Stroke {
        QPen pen;
        Extent extent;
    };
    /// What has been drawn before that helps to draw the next.
    struct Memory {
        std::vector<Stroke> strokes;
        std::vector<KRGPXTrackConfiguration> markers; ///< of which there are pictures
        std::size_t oldestMarker = 0;
    };

    double effortOf(const KRGPXConfiguredTrack &track, Memory *memory) const;
    static bool knowsMarker(const KRGPXTrackConfiguration &configuration, Memory *memory);
    double effortOfMarker(const KRGPXConfiguredTrack &track, Memory *memory) const;
    double effortOfLines(const Extent &extent, const QPen &pen) const;
    std::vector<Layer> layersOf(const KRGPXConfiguredTrack &track) const;
    static bool isBundled(const KRGPXConfiguredTrack &track, const Layer &layer);

    bool m_isCropped = false;
    bool m_isForMaskOnly = false;
    TrackRenderOption m_option = StyledRender;
};
