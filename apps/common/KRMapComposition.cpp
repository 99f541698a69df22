#include "KRMapComposition.h"

#include "KRHaloPainter.h"
#include "KRMapFurniture.h"
#include "KRMapGround.h"
#include "KRMapTrackRenderer.h"

#include <KRGeoLocation/KRMapProjection.h>

#include <QPainter>

KRMapComposition::KRMapComposition(const KRGPXTrackSelection &selection, const KRGeoPositionRect &area,
                                   const QSize &size, double factor)
    : m_selection(selection), m_area(area), m_size(size), m_factor(factor)
{ }

QImage KRMapComposition::render() const
{
    const KRMapProjection projection(m_area, m_size);
    const KRMapTrackRenderer renderer(m_selection, projection, m_size, m_factor);

    QImage map = renderer.crop(groundImage(projection)).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&map);
    KRHaloPainter::paint(painter, m_selection, projection, m_size, m_factor);
    painter.drawImage(0, 0, renderer.render(m_renderOption));
    paintFurniture(&painter, projection);
    return map;
}

void KRMapComposition::paint(QPainter *painter) const
{
    const KRMapProjection projection(m_area, m_size);
    const KRMapTrackRenderer renderer(m_selection, projection, m_size, m_factor);

    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::LosslessImageRendering);
    painter->setClipRect(QRect(QPoint(), m_size), Qt::IntersectClip);
    paintGround(painter, projection);
    KRHaloPainter::paintShapes(*painter, m_selection, projection, m_size, m_factor);
    renderer.renderWith(*painter, m_renderOption);
    paintFurniture(painter, projection);
    painter->restore();
}

QImage KRMapComposition::groundImage(const KRMapProjection &projection) const
{
    QImage ground(m_size, QImage::Format_ARGB32_Premultiplied);
    ground.fill(Qt::transparent);
    if (m_ground) {
        QPainter painter(&ground);
        m_ground->paint(&painter, m_size, projection, m_factor);
    }
    return ground;
}

void KRMapComposition::paintGround(QPainter *painter, const KRMapProjection &projection) const
{
    if (!m_ground)
        return;
    const bool isCropped = m_selection.effectiveCroppingOpacity() < 255;
    if (m_ground->isVector() && !isCropped) {
        m_ground->paint(painter, m_size, projection, m_factor);
        return;
    }
    const KRMapTrackRenderer renderer(m_selection, projection, m_size, m_factor);
    painter->drawImage(0, 0, renderer.crop(groundImage(projection)));
}

void KRMapComposition::paintFurniture(QPainter *painter, const KRMapProjection &projection) const
{
    if (m_ground && m_hasScaleBar)
        KRMapFurniture::paintScaleBar(painter, m_size, projection, m_factor);
    if (m_ground && m_hasAttribution) {
        KRMapFurniture::paintAttribution(painter, m_size, m_factor);
        KRMapFurniture::paintCredit(painter, m_size, m_ground->credit(), m_factor);
    }
}
