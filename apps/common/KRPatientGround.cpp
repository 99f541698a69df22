#include "KRPatientGround.h"

#include <QDeadlineTimer>

#include <algorithm>
#include <limits>

namespace {

constexpr int sliceMs = 500; ///< after which a stop is noticed
constexpr int shareForProgress = 4;

} // namespace

KRPatientGround::KRPatientGround(KRMapGround *ground, int timeLimitMs, QObject *parent)
    : KRMapGround(parent), m_ground(ground), m_timeLimitMs(timeLimitMs)
{ }

void KRPatientGround::paint(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor)
{
    const QDeadlineTimer deadline(m_timeLimitMs);
    QDeadlineTimer progressDeadline(m_timeLimitMs / shareForProgress);
    int fewestGaps = std::numeric_limits<int>::max();
    bool isWaitOver = false;
    do {
        const QDeadlineTimer slice(std::min<qint64>(sliceMs, deadline.remainingTime()));
        m_gaps = m_ground->paintWhole(painter, size, projection, factor, int(slice.remainingTime()));
        if (m_gaps.count < fewestGaps) {
            fewestGaps = m_gaps.count;
            progressDeadline.setRemainingTime(m_timeLimitMs / shareForProgress);
        }
        // Where a slice ends early there is nothing to wait for, even if something is missing.
        isWaitOver = m_gaps.count == 0 || !slice.hasExpired() || deadline.hasExpired() || progressDeadline.hasExpired();
        if (!isWaitOver)
            emit waiting(m_gaps.count);
    } while (!isWaitOver && !m_isStopped);
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
