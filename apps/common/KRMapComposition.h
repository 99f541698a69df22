#pragma once

#include <KRGeoLocation/KRGPXTrackRenderer.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRGeoPositionRect.h>

#include <QImage>
#include <QSize>

class KRMapGround;
class KRMapProjection;
class QPainter;

/**
 * Puts a map together: ground, crop, halos, tracks, names of places and of tracks, scale bar, credits and legend, from
 * bottom to top.
 *
 * The selection's cropping opacity makes the ground translucent outside the tracks. A composition is a value; several
 * threads may draw one at once, as long as its ground lives.
 */
class KRMapComposition
{
public:
    /**
     * @param area to be seen at least; the map shows more where the picture has other proportions
     * @param size of the picture in pixels
     * @param factor for screens of high density: multiplies widths, markers and fonts, 1 on a normal screen
     */
    KRMapComposition(const KRGPXTrackSelection &selection, const KRGeoPositionRect &area, const QSize &size,
                     double factor);

    QSize size() const { return m_size; }
    double factor() const { return m_factor; }

    /// Not owned; without one, which is how it starts, the tracks stand alone.
    void setGround(KRMapGround *ground) { m_ground = ground; }
    void setRenderOption(TrackRenderOption option) { m_renderOption = option; }
    /// Both are painted unless they are switched off or there is no ground.
    void setScaleBar(bool isPainted) { m_hasScaleBar = isPainted; }
    void setAttribution(bool isPainted) { m_hasAttribution = isPainted; }
    /// Neither is painted unless it is switched on.
    void setLegend(bool isPainted) { m_hasLegend = isPainted; }
    void setLabels(bool isPainted) { m_hasLabels = isPainted; }

    /// Null where the memory does not suffice.
    QImage render() const;

    /**
     * Paints the same onto any device, into the rectangle of the size at (0, 0) in the painter's own coordinates.
     *
     * Whatever is made of lines, areas and text stays so; a ground that is not, or is cropped, is painted as one
     * image, of the size unless isGroundReduced(). False where the memory does not suffice for that.
     */
    bool paint(QPainter *painter) const;

    /// Whether the image that paint() makes of the ground would take too much memory in full size, and is a smaller
    /// one.
    bool isGroundReduced() const;

private:
    bool isCropped() const;
    bool isGroundImage() const;
    QImage groundImage(const KRMapProjection &projection, const QSize &size, double factor) const;
    bool paintGround(QPainter *painter, const KRMapProjection &projection) const;
    void paintNames(QPainter *painter, const KRMapProjection &projection) const;
    void paintFurniture(QPainter *painter, const KRMapProjection &projection) const;

    KRGPXTrackSelection m_selection;
    KRGeoPositionRect m_area;
    QSize m_size;
    double m_factor;
    KRMapGround *m_ground = nullptr;
    TrackRenderOption m_renderOption = StyledRender;
    bool m_hasScaleBar = true;
    bool m_hasAttribution = true;
    bool m_hasLegend = false;
    bool m_hasLabels = false;
};
