#include "KRMapTrackRenderer.h"

KRMapTrackRenderer::KRMapTrackRenderer(const KRGPXTrackSelection &selection, const KRMapProjection &projection,
                                       const QSize &size, double factor)
    : KRGPXTrackRenderer(selection, size, factor), m_projection(projection)
{ }

QPointF KRMapTrackRenderer::projectPosition(const KRGeoPosition &position) const
{
    return m_projection.projectate(position);
}

void KRMapTrackRenderer::projectPositions(const KRGeoPositionSpan &positions, QPointF *pixels) const
{
    m_projection.projectate(positions, pixels);
}
