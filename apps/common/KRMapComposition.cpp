#include "KRMapComposition.h"

#include "KRHaloPainter.h"
#include "KRMapFurniture.h"
#include "KRMapGround.h"
#include "KRMapLegend.h"
#include "KRMapTrackRenderer.h"
#include "KRTrackLabels.h"

#include <KRGeoLocation/KRMapProjection.h>

#include <QPainter>
#include <QVector>

KRMapComposition::KRMapComposition(const KRGPXTrackSelection &selection, const KRGeoPositionRect &area,
                                   const QSize &size, double factor)
    : m_selection(selection), m_area(area), m_size(size), m_factor(factor)
{ }

QImage KRMapComposition::render() const
{
    const KRMapProjection projection(m_area, m_size);
    const KRMapTrackRenderer renderer(m_selection, projection, m_size, m_factor);

    QImage map = renderer.crop(groundImage(projection)).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (map.isNull())
        return map;
    QPainter painter(&map);
    const bool hasHalos = KRHaloPainter::paint(painter, m_selection, projection, m_size, m_factor);
    const QImage tracks = renderer.render(m_renderOption);
    if (!hasHalos || tracks.isNull())
        return QImage();
    painter.drawImage(0, 0, tracks);
    paintNames(&painter, projection);
    paintFurniture(&painter, projection);
    return map;
}

bool KRMapComposition::paint(QPainter *painter) const
{
    const KRMapProjection projection(m_area, m_size);
    const KRMapTrackRenderer renderer(m_selection, projection, m_size, m_factor);

    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::LosslessImageRendering);
    painter->setClipRect(QRect(QPoint(), m_size), Qt::IntersectClip);
    const bool isWhole = paintGround(painter, projection);
    KRHaloPainter::paintShapes(*painter, m_selection, projection, m_size, m_factor);
    renderer.renderWith(*painter, m_renderOption);
    paintNames(painter, projection);
    paintFurniture(painter, projection);
    painter->restore();
    return isWhole;
}

bool KRMapComposition::isCropped() const
{
    return m_selection.effectiveCroppingOpacity() < 255;
}

QImage KRMapComposition::groundImage(const KRMapProjection &projection) const
{
    QImage ground(m_size, QImage::Format_ARGB32_Premultiplied);
    ground.fill(Qt::transparent);
    if (m_ground && !ground.isNull()) {
        QPainter painter(&ground);
        // Names of what is cropped fade with it.
        if (isCropped())
            m_ground->paint(&painter, m_size, projection, m_factor);
        else
            m_ground->paintBelow(&painter, m_size, projection, m_factor);
    }
    return ground;
}

bool KRMapComposition::paintGround(QPainter *painter, const KRMapProjection &projection) const
{
    if (!m_ground)
        return true;
    if (m_ground->isVector() && !isCropped()) {
        m_ground->paintBelow(painter, m_size, projection, m_factor);
        return true;
    }
    const KRMapTrackRenderer renderer(m_selection, projection, m_size, m_factor);
    const QImage ground = renderer.crop(groundImage(projection));
    painter->drawImage(0, 0, ground);
    return !ground.isNull();
}

void KRMapComposition::paintNames(QPainter *painter, const KRMapProjection &projection) const
{
    QVector<QRectF> taken;
    if (m_hasLegend)
        taken << KRMapLegend::box(m_selection, projection, m_size, m_factor);
    if (m_ground && m_hasScaleBar)
        taken << KRMapFurniture::scaleBarBox(m_size, projection, m_factor);
    if (m_ground && m_hasAttribution)
        taken << KRMapFurniture::creditsBox(m_size, *m_ground, m_factor);
    KRMapLabelBoard labels(QRectF(), 0.0);
    if (m_hasLabels)
        labels = KRTrackLabels::arranged(m_selection, projection, m_size, m_factor, taken);
    for (const KRMapLabel &label : labels.labels())
        taken << label.box();
    if (m_ground && !isCropped())
        m_ground->paintNames(painter, m_size, projection, m_factor, taken);
    labels.paint(painter);
}

void KRMapComposition::paintFurniture(QPainter *painter, const KRMapProjection &projection) const
{
    if (m_ground && m_hasScaleBar)
        KRMapFurniture::paintScaleBar(painter, m_size, projection, m_factor);
    if (m_ground && m_hasAttribution)
        KRMapFurniture::paintCredits(painter, m_size, *m_ground, m_factor);
    if (m_hasLegend)
        KRMapLegend::paint(*painter, m_selection, projection, m_size, m_factor);
}
