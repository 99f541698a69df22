#include "KRMapComposition.h"

#include "KRBaseMap.h"
#include "KRHaloPainter.h"
#include "KRMapFurniture.h"
#include "KRMapGround.h"
#include "KRMapTrackRenderer.h"
#include "KRSamplePlaces.h"

#include <KRGeoLocation/KRMapProjection.h>

#include <QPainter>

KRMapComposition::KRMapComposition(const KRGPXTrackSelection &selection, const KRGeoPositionRect &area,
                                   const QSize &size, double factor)
    : m_selection(selection), m_area(area), m_size(size), m_factor(factor)
{ }

void KRMapComposition::setGround(Ground ground, const QImage &picture)
{
    m_ground = ground;
    m_picture = picture;
}

QImage KRMapComposition::render() const
{
    const KRMapProjection projection(m_area, m_size);
    const KRMapTrackRenderer renderer(m_selection, projection, m_size, m_factor);

    QImage map = renderer.crop(renderGround(projection)).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&map);
    KRHaloPainter::paint(painter, m_selection, projection, m_size, m_factor);
    painter.drawImage(0, 0, renderer.render(m_renderOption));
    painter.end();
    if (m_ground != Ground::None && m_hasScaleBar)
        KRMapFurniture::paintScaleBar(&map, projection, m_factor);
    if (m_ground != Ground::None && m_hasAttribution)
        paintCredits(&map);
    return map;
}

QImage KRMapComposition::renderGround(const KRMapProjection &projection) const
{
    QImage ground(m_size, QImage::Format_ARGB32_Premultiplied);
    ground.fill(Qt::transparent);
    if (m_ground == Ground::None)
        return ground;

    QPainter painter(&ground);
    if (m_ground == Ground::Picture) {
        const QPointF northWest = projection.projectate(m_area.northWest());
        const double eastLongitude =
            m_area.east().decimalDegrees() + (m_area.longitudeRange().crossesDateLine() ? 360.0 : 0.0);
        const QPointF southEast =
            projection.getPixelCoordinateByMapCoordinate(m_area.south().decimalDegrees(), eastLongitude);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRectF(northWest, southEast), m_picture);
    } else if (m_mapGround != nullptr) {
        m_mapGround->paint(&painter, m_size, projection, m_factor);
    } else {
        KRBaseMap(KRSamplePlaces::all()).paint(&painter, m_size, projection, m_factor);
    }
    return ground;
}

void KRMapComposition::paintCredits(QImage *map) const
{
    KRMapFurniture::paintAttribution(map, m_factor);
    if (m_ground != Ground::BaseMap || m_mapGround == nullptr)
        return;
    QPainter painter(map);
    KRMapFurniture::paintCredit(&painter, m_size, m_mapGround->credit(), m_factor);
}
