#pragma once

#include <KRGeoLocation/KRGPXTrackRenderer.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QRect>

#include <vector>

class QPainterPath;
class QPen;

/**
 * Estimates how long it takes to draw the tracks of a map, in nanoseconds of an ordinary processor.
 *
 * Nothing is measured, so that a file gives the same picture everywhere. An estimate holds what a few bytes of a file
 * can make as large as they like; what many small ones take is not in it.
 */
class KRMapEffort
{
public:
    /// Nanoseconds.
    struct Allowance {
        double forPoint;
        double forTrack;
    };

    /**
     * @param renderer of the picture; it stays with the caller
     * @param allowance beyond what any picture may take
     * @param isOnPage whether it is a page of SVG or PDF
     */
    KRMapEffort(const KRGPXTrackRenderer *renderer, const Allowance &allowance, bool isOnPage);
    virtual ~KRMapEffort() = default;

    /// What all tracks together may take. That of thousands of real ones is less.
    double mostFor(const KRGPXTrackSelection &selection) const;
    bool isAffordable(const KRGPXTrackSelection &selection) const;

protected:
    /// What paths take up in the picture, in all copies of the world.
    struct Extent {
        double lines = 0.0;
        double corners = 0.0; ///< between lines, and ends; slight turns are none
        double length = 0.0; ///< of the lines, across and down, in pixels
        double area = 0.0; ///< of the rectangles around them in pixels, as far as they are in the picture
        double copies = 0.0; ///< of the world, in which they lie
    };

    /// KRHaloPainter paints a halo as two bands.
    static constexpr int bandsOfHalo = 2;

    /// For each track.
    virtual std::vector<double> effortsOf(const KRGPXTrackSelection &selection) const = 0;

    static double totalOf(const std::vector<double> &efforts);
    /// @param reach of the pen beside the lines, in pixels
    Extent extentOf(const QPainterPath &path, double reach) const;
    Extent sumOf(const Extent &first, const Extent &second) const;
    /// Opaque, and as wide as the wider band.
    QPen haloPenOf(const KRGPXTrackConfiguration &configuration) const;
    /// 0 with a solid pen. @p width of the pen as it is drawn
    static double dashesOf(const QPen &pen, double width, double length);

    /// How often a place near the middle of the world is in the picture, with marks that reach so far.
    double copiesOfPlace(double reach) const;

    const KRGPXTrackRenderer *const m_renderer;
    const QRect m_drawn; ///< a part of the picture that all copies of the world show, or all of it

private:
    const Allowance m_allowance;
};
