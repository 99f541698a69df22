#include "KRMapComposition.h"

#include "KRHaloPainter.h"
#include "KRMapFurniture.h"
#include "KRMapGround.h"
#include "KRMapLegend.h"
#include "KRMapTrackRenderer.h"
#include "KRTrackLabels.h"

#include <KRCore/KRInputLimits.h>
#include <KRGeoLocation/KRMapProjection.h>

#include <QPainter>
#include <QVector>

#include <algorithm>
#include <cmath>

namespace {

// A ground with its mask, what is made of both, and what a PDF makes of that.
constexpr double bytesOfGroundPixel = 12.0;

/// How many times as large as the map an image of its ground is, which is to take no more memory than other pictures.
double reductionOf(const QSize &size)
{
    const double bytes = bytesOfGroundPixel * size.width() * size.height();
    return std::min(1.0, std::sqrt(KRInputLimits::pictureMemoryBytes / bytes));
}

} // namespace

KRMapComposition::KRMapComposition(const KRGPXTrackSelection &selection, const KRGeoPositionRect &area,
                                   const QSize &size, double factor)
    : m_selection(selection), m_area(area), m_size(size), m_factor(factor)
{ }

QImage KRMapComposition::render() const
{
    const KRMapProjection projection(m_area, m_size);
    const KRMapTrackRenderer renderer(m_selection, projection, m_size, m_factor);

    QImage map =
        renderer.crop(groundImage(projection, m_size, m_factor)).convertToFormat(QImage::Format_ARGB32_Premultiplied);
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

bool KRMapComposition::isGroundImage() const
{
    return m_ground && (!m_ground->isVector() || isCropped());
}

bool KRMapComposition::isGroundReduced() const
{
    return isGroundImage() && reductionOf(m_size) < 1.0;
}

QImage KRMapComposition::groundImage(const KRMapProjection &projection, const QSize &size, double factor) const
{
    QImage ground(size, QImage::Format_ARGB32_Premultiplied);
    ground.fill(Qt::transparent);
    if (m_ground && !ground.isNull()) {
        QPainter painter(&ground);
        // Names of what is cropped fade with it.
        if (isCropped())
            m_ground->paint(&painter, size, projection, factor);
        else
            m_ground->paintBelow(&painter, size, projection, factor);
    }
    return ground;
}

bool KRMapComposition::paintGround(QPainter *painter, const KRMapProjection &projection) const
{
    if (!m_ground)
        return true;
    if (!isGroundImage()) {
        m_ground->paintBelow(painter, m_size, projection, m_factor);
        return true;
    }
    const double reduction = reductionOf(m_size);
    const QSize size = (QSizeF(m_size) * reduction).toSize().expandedTo(QSize(1, 1));
    const double factor = m_factor * reduction;
    const KRMapProjection groundProjection(m_area, size);
    const KRMapTrackRenderer renderer(m_selection, groundProjection, size, factor);
    const QImage ground = renderer.crop(groundImage(groundProjection, size, factor));
    painter->drawImage(QRect(QPoint(), m_size), ground);
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
