#pragma once

#include <KRGeoLocation/KRGPXTrackRenderer.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRGeoPositionRect.h>

#include <QImage>
#include <QSize>

class KRMapGround;
class KRMapProjection;

/**
 * Puts a map picture together: ground, crop, halos, tracks, scale bar and credit, from bottom to top.
 *
 * The ground is the world base map unless a picture takes its place or there shall be none. The selection's
 * cropping opacity makes the ground translucent outside the tracks.
 */
class KRMapComposition
{
public:
    enum class Ground {
        BaseMap,
        Picture,
        None,
    };

    /**
     * @param area to be seen at least; the map shows more where the picture has other proportions
     * @param size of the picture in pixels
     * @param factor for screens of high density: multiplies widths, markers and fonts, 1 on a normal screen
     */
    KRMapComposition(const KRGPXTrackSelection &selection, const KRGeoPositionRect &area, const QSize &size,
                     double factor);

    /// With Ground::Picture the picture is laid over the area exactly, whatever its own size is.
    void setGround(Ground ground, const QImage &picture = QImage());
    /// Takes the place of the base map, and is not owned; what it shows and its credit are those of render()'s time.
    void setMapGround(KRMapGround *ground) { m_mapGround = ground; }
    void setRenderOption(TrackRenderOption option) { m_renderOption = option; }
    /// Both are painted unless they are switched off or there is no ground.
    void setScaleBar(bool isPainted) { m_hasScaleBar = isPainted; }
    void setAttribution(bool isPainted) { m_hasAttribution = isPainted; }

    QImage render() const;

private:
    QImage renderGround(const KRMapProjection &projection) const;
    void paintCredits(QImage *map) const;

    KRGPXTrackSelection m_selection;
    KRGeoPositionRect m_area;
    QSize m_size;
    double m_factor;
    Ground m_ground = Ground::BaseMap;
    QImage m_picture;
    KRMapGround *m_mapGround = nullptr;
    TrackRenderOption m_renderOption = StyledRender;
    bool m_hasScaleBar = true;
    bool m_hasAttribution = true;
};
