#include "KRWorkerThreads.h"

#include <algorithm>
#include <system_error>

KRWorkerThreads &KRWorkerThreads::instance()
{
    static KRWorkerThreads threads;
    return threads;
}

KRWorkerThreads::~KRWorkerThreads()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isEnding = true;
    }
    m_wakeUp.notify_all();
    for (std::thread &thread : m_threads)
        thread.join();
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
    work();
    std::unique_lock<std::mutex> lock(m_mutex);
    m_jobs.erase(std::remove(m_jobs.begin(), m_jobs.end(), &job), m_jobs.end());
    m_returned.wait(lock, [&job] { return job.running == 0; });
}

/// Until there are so many, or as many as the system allows.
void KRWorkerThreads::startThreads(int count)
{
    try {
        while (m_threads.size() < std::size_t(count))
            m_threads.emplace_back([this] { help(); });
    } catch (const std::system_error &) {
        // The work gets done with fewer, or with none.
    }
}

void KRWorkerThreads::help()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_wakeUp.wait(lock, [this] { return m_isEnding || !m_jobs.empty(); });
        if (m_isEnding)
            return;
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
