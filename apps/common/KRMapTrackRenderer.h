#pragma once

#include <KRGeoLocation/KRGPXTrackRenderer.h>
#include <KRGeoLocation/KRMapProjection.h>

/// Draws the tracks of a selection where the map projection puts them.
class KRMapTrackRenderer : public KRGPXTrackRenderer
{
public:
    /// @param size of the picture in pixels; @p factor multiplies all widths, 1 on a normal screen
    KRMapTrackRenderer(const KRGPXTrackSelection &selection, const KRMapProjection &projection, const QSize &size,
                       double factor);

    QPointF projectPosition(const KRGeoPosition &position) const override;
    void projectPositions(const KRGeoPositionSpan &positions, QPointF *pixels) const override;

private:
    KRMapProjection m_projection;
};
