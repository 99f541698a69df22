#include "KRConcurrent.h"

#include "KRWorkerThreads.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QRunnable>
#include <QSemaphore>
#include <QThreadPool>

#include <algorithm>
#include <system_error>
#include <thread>
#include <vector>

namespace {

constexpr int longestWaitMs = 5000;

/// Holds threads up until all are there.
class Gate
{
public:
    void pass()
    {
        m_arrived.release();
        m_opened.acquire();
    }
    /// False when fewer have arrived after a while.
    bool open(int count)
    {
        const bool areAllHere = m_arrived.tryAcquire(count, longestWaitMs);
        m_opened.release(count);
        return areAllHere;
    }

private:
    QSemaphore m_arrived;
    QSemaphore m_opened;
};

/// Those of this process, as far as the system tells; else 0.
int countOfThreads()
{
    return int(QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
}

/// How many threads the system starts beside those that there are, at most @p wanted.
int startableThreads(int wanted)
{
    const int before = countOfThreads();
    Gate gate;
    std::vector<std::thread> threads;
    try {
        while (threads.size() < std::size_t(wanted))
            threads.emplace_back([&gate] { gate.pass(); });
    } catch (const std::system_error &) {
        // That is what is asked here.
    }
    const int count = int(threads.size());
    gate.open(count);
    for (std::thread &thread : threads)
        thread.join();
    // The system counts those that have ended for a moment more.
    const QDeadlineTimer deadline(longestWaitMs);
    while (countOfThreads() > before && !deadline.hasExpired())
        QThread::msleep(1);
    return count;
}

} // namespace

bool KRConcurrent::isMainThread()
{
    const QCoreApplication *const application = QCoreApplication::instance();
    return application && application->thread() == QThread::currentThread();
}

bool KRConcurrent::mayUsePool()
{
    if (isMainThread())
        return true;
    const QThreadPool *const pool = QThreadPool::globalInstance();
    // A pool smaller than the limit would never report more active threads than it has.
    return pool->activeThreadCount() < std::min(maxRunningThreads, pool->maxThreadCount());
}

bool KRConcurrent::start(QThread *thread, QThread::Priority priority)
{
    thread->start(priority);
    return thread->isRunning() || thread->isFinished();
}

bool KRConcurrent::fillPool()
{
    QThreadPool *const pool = QThreadPool::globalInstance();
    int count = startableThreads(pool->maxThreadCount());
    // Threads that have just ended may still count.
    constexpr int mostAttempts = 10;
    constexpr int pauseMs = 20;
    for (int attempt = 1; count == 0 && attempt < mostAttempts; ++attempt) {
        QThread::msleep(pauseMs);
        count = startableThreads(pool->maxThreadCount());
    }
    if (count == 0)
        return false;
    pool->setMaxThreadCount(count);
    pool->setExpiryTimeout(-1);
    // All of them at once, so that none gets the work of another.
    const auto gate = std::make_shared<Gate>();
    for (int i = 0; i < count; ++i)
        pool->start(QRunnable::create([gate] { gate->pass(); }));
    return gate->open(count);
}

void KRConcurrent::runTogether(const std::function<void()> &work, int mostCalls)
{
    const int mostThreads = std::min(maxRunningThreads, QThreadPool::globalInstance()->maxThreadCount());
    KRWorkerThreads::instance().run(work, std::min(mostCalls, mostThreads) - 1);
}
