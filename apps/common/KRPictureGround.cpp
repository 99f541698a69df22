#include "KRPictureGround.h"

#include <KRGeoLocation/KRMapProjection.h>

#include <QPainter>

KRPictureGround::KRPictureGround(const QImage &picture, const KRGeoPositionRect &area, QObject *parent)
    : KRMapGround(parent), m_picture(picture), m_area(area)
{ }

void KRPictureGround::paint(QPainter *painter, const QSize & /*size*/, const KRMapProjection &projection,
                            double /*factor*/)
{
    const QPointF northWest = projection.projectate(m_area.northWest());
    const double eastLongitude =
        m_area.east().decimalDegrees() + (m_area.longitudeRange().crossesDateLine() ? 360.0 : 0.0);
    const QPointF southEast =
        projection.getPixelCoordinateByMapCoordinate(m_area.south().decimalDegrees(), eastLongitude);
    painter->save();
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(QRectF(northWest, southEast), m_picture);
    painter->restore();
}
