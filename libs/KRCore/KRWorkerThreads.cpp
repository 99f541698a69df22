#include "KRWorkerThreads.h"

#include <QScopeGuard>

#include <algorithm>
#include <system_error>
#include <thread>

KRWorkerThreads &KRWorkerThreads::instance()
{
    // Intended: never deleted. While the process ends, other threads may still be at work.
    static auto *const threads = new KRWorkerThreads;
    return *threads;
}

void KRWorkerThreads::run(const std::function<void()> &work, int mostHelpers)
{
    if (mostHelpers <= 0) {
        work();
        return;
    }
    Job job{&work, mostHelpers};
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        startThreads(mostHelpers);
        m_jobs.push_back(&job);
    }
    m_wakeUp.notify_all();
    // Also if the work throws, for want of memory: helpers use what lies on this stack until they have returned.
    const auto withdrawal = qScopeGuard([this, &job] {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_jobs.erase(std::remove(m_jobs.begin(), m_jobs.end(), &job), m_jobs.end());
        m_returned.wait(lock, [&job] { return job.running == 0; });
    });
    work();
}

/// Until there are so many, or as many as the system allows.
void KRWorkerThreads::startThreads(int count)
{
    try {
        for (; m_threads < count; ++m_threads)
            std::thread([this] { help(); }).detach();
    } catch (const std::system_error &) {
        // The work gets done with fewer, or with none.
    }
}

void KRWorkerThreads::help()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_wakeUp.wait(lock, [this] { return !m_jobs.empty(); });
        Job *const job = m_jobs.front();
        ++job->running;
        if (--job->wanted == 0)
            m_jobs.pop_front();
        lock.unlock();
        (*job->work)();
        lock.lock();
        --job->running;
        m_returned.notify_all();
    }
}
