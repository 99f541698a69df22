#include "KRConcurrent.h"

#include <QCoreApplication>
#include <QThreadPool>

#include <algorithm>

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
