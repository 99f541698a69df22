#include "KRPatientGround.h"

KRPatientGround::KRPatientGround(KRMapGround *ground, int timeLimitMs, QObject *parent)
    : KRMapGround(parent), m_ground(ground), m_timeLimitMs(timeLimitMs)
{ }

void KRPatientGround::paint(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor)
{
    m_gaps = m_ground->paintWhole(painter, size, projection, factor, m_timeLimitMs);
}
