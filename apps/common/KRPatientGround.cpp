#include "KRPatientGround.h"

#include "KRMapPatience.h"

KRPatientGround::KRPatientGround(KRMapGround *ground, int timeLimitMs, QObject *parent)
    : KRMapGround(parent), m_ground(ground), m_timeLimitMs(timeLimitMs)
{ }

void KRPatientGround::paint(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor)
{
    const KRMapPatience patience(m_timeLimitMs, [this](int missing) {
        emit waiting(missing);
        return !m_isStopped;
    });
    m_gaps = m_ground->paintWhole(painter, size, projection, factor, patience);
}

void KRPatientGround::paintBelow(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor)
{
    // Only what is drawn has layers, and that is all at hand.
    if (isVector())
        m_ground->paintBelow(painter, size, projection, factor);
    else
        paint(painter, size, projection, factor);
}

void KRPatientGround::paintNames(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor,
                                 const QVector<QRectF> &keptFree)
{
    m_ground->paintNames(painter, size, projection, factor, keptFree);
}
