#include "KRMapComposition.h"

#include "KRBaseMap.h"
#include "KRHaloPainter.h"
#include "KRMapTrackRenderer.h"

#include <KRGeoLocation/KRGeoPositionSamples.h>
#include <KRGeoLocation/KRMapProjection.h>

#include <QPainter>

namespace {

/// The only places that the base map knows by name.
QVector<KRBaseMapPlace> samplePlaces()
{
    QVector<KRBaseMapPlace> places;
    const KRGeoPositionSamples *const samples = KRGeoPositionSamples::instance();
    for (int i = OldenburgSample; i <= PassauSample; ++i) {
        const auto sample = static_cast<KRGeoPositionSamplesEnum>(i);
        places.append({samples->name(sample), samples->position(sample)});
    }
    return places;
}

} // namespace

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
    } else {
        KRBaseMap(samplePlaces()).paint(&painter, m_size, projection, m_factor);
    }
    return ground;
}
