#include "KRBaseMapGround.h"

#include "KRSamplePlaces.h"

KRBaseMapGround::KRBaseMapGround(QObject *parent) : KRMapGround(parent), m_map(KRSamplePlaces::all()) { }

void KRBaseMapGround::paint(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor)
{
    m_map.paint(painter, size, projection, factor);
}
