#include "KRMapGround.h"

KRMapGaps KRMapGround::paintWhole(QPainter *painter, const QSize &size, const KRMapProjection &projection,
                                  double factor, const KRMapPatience & /*patience*/)
{
    paint(painter, size, projection, factor);
    return {};
}

void KRMapGround::paintBelow(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor)
{
    paint(painter, size, projection, factor);
}

void KRMapGround::paintNames(QPainter * /*painter*/, const QSize & /*size*/, const KRMapProjection & /*projection*/,
                             double /*factor*/, const QVector<QRectF> & /*keptFree*/)
{ }
