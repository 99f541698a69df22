#include "KRBaseMapGround.h"

#include "KRSamplePlaces.h"

KRBaseMapGround::KRBaseMapGround(QObject *parent) : KRMapGround(parent), m_map(KRSamplePlaces::all()) { }

void KRBaseMapGround::paint(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor)
{
    m_map.paint(painter, size, projection, factor);
}

void KRBaseMapGround::paintBelow(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor)
{
    m_map.paintBelow(painter, size, projection, factor);
}

void KRBaseMapGround::paintNames(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor,
                                 const QVector<QRectF> &keptFree)
{
    m_map.paintNames(painter, size, projection, factor, keptFree);
}
