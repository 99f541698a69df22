#include "KRMapDrawingThread.h"

#include <QMutexLocker>

namespace {

// A picture of another scale or of elsewhere is of no use any more, one that was only moved a little is.
constexpr double largestChangeOfScale = 1.25;
constexpr double smallestShareInView = 0.5;

bool isUseful(const KRMapViewport &drawn, const KRMapViewport &wanted)
{
    const double change = wanted.worldWidth() / drawn.worldWidth();
    if (change > largestChangeOfScale || change < 1.0 / largestChangeOfScale)
        return false;
    const QRectF whole(QPointF(), drawn.size());
    const QRectF seen = whole & drawn.rectOf(wanted);
    return seen.width() * seen.height() >= smallestShareInView * whole.width() * whole.height();
}

} // namespace

KRMapDrawingThread::KRMapDrawingThread(QObject *parent) : QThread(parent) { }

void KRMapDrawingThread::setGround(KRMapGround *ground)
{
    const QMutexLocker locker(&m_groundMutex);
    m_ground = ground;
}

void KRMapDrawingThread::draw(const Task &task)
{
    const QMutexLocker locker(&m_mutex);
    m_next = task;
    m_wakeUp.wakeAll();
    if (!isRunning())
        start(QThread::LowPriority);
}

void KRMapDrawingThread::stop()
{
    {
        const QMutexLocker locker(&m_mutex);
        m_isStopping = true;
        m_wakeUp.wakeAll();
    }
    wait();
}

bool KRMapDrawingThread::isSuperseded(const Task &task)
{
    const QMutexLocker locker(&m_mutex);
    return m_isStopping || (m_next && !isUseful(task.window, m_next->window));
}

void KRMapDrawingThread::withGround(const std::function<void(KRMapGround *)> &use)
{
    const QMutexLocker locker(&m_groundMutex);
    if (m_ground != nullptr)
        use(m_ground);
}

void KRMapDrawingThread::run()
{
    Task task;
    while (take(&task)) {
        if (work(task))
            emit taskDone(task.number);
    }
}

bool KRMapDrawingThread::take(Task *task)
{
    const QMutexLocker locker(&m_mutex);
    while (!m_next && !m_isStopping)
        m_wakeUp.wait(&m_mutex);
    if (m_isStopping)
        return false;
    *task = *m_next;
    m_next.reset();
    return true;
}
