#pragma once

#include <KRGeoLocation/KRGPXTrackRenderer.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QPen>
#include <QSizeF>

#include <vector>

class QPainterPath;

/**
 * Estimates how long it takes to draw the tracks of an image, in nanoseconds of an ordinary processor.
 *
 * Nothing is measured, so that a file gives the same picture everywhere: the estimate comes from the lengths of
 * outlines and from the pixels that they may enclose. It holds what a few bytes of a file can make as large as they
 * like: lines and areas across the whole picture, wide ones, one upon the other. What many small ones take is not in
 * it.
 */
class KRMapEffort
{
public:
    /// What the tracks of a picture may take.
    static double mostFor(const KRGPXTrackSelection &selection, const QSize &size);

    /// @param renderer of the picture; it stays with the caller
    explicit KRMapEffort(const KRGPXTrackRenderer *renderer) : m_renderer(renderer) { }

    /// Whether the tracks are drawn once more to crop the map; they are not unless this is called.
    void setCropped(bool isCropped) { m_isCropped = isCropped; }
    /// They and their halos are drawn as StyledRender unless this is called.
    void setRenderOption(TrackRenderOption option) { m_option = option; }
    /// For devices that keep lines and areas as such, where only what crops a map is an image.
    void setForMaskOnly() { m_isForMaskOnly = true; }

    /// The tracks; where all of them take more than @p most, as thousands of real ones do not, the cheapest of them,
    /// which take half as much.
    KRGPXTrackSelection affordable(const KRGPXTrackSelection &selection, double most) const;

private:
    std::vector<double> effortsOf(const KRGPXTrackSelection &selection) const;
    KRGPXTrackSelection cheapest(const KRGPXTrackSelection &selection, const std::vector<double> &efforts,
                                 double most) const;

    /// What paths take up in the image, in all copies of the world.
    struct Extent {
        double lines = 0.0;
        double length = 0.0; ///< of the lines, across and down, in pixels
        double area = 0.0; ///< of the rectangles around them in pixels, as far as they are in the image
        double copies = 0.0; ///< of the world, in which they lie
    };
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
    Extent sumOf(const Extent &first, const Extent &second) const;
    Extent extentOf(const QPainterPath &path, double reach) const;
    std::vector<Layer> layersOf(const KRGPXConfiguredTrack &track) const;
    static bool isBundled(const KRGPXConfiguredTrack &track, const Layer &layer);

    const KRGPXTrackRenderer *const m_renderer;
    bool m_isCropped = false;
    bool m_isForMaskOnly = false;
    TrackRenderOption m_option = StyledRender;
};
