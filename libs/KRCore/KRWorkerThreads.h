#pragma once

#include <QtGlobal>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

/**
 * Threads that help others with their work. They are started when first needed and kept until the process ends.
 *
 * Where the system starts no further thread, whoever has the work does it alone. QThreadPool would wait for ever then,
 * for a thread that has never begun. May be called from several threads, also from the helpers.
 */
class KRWorkerThreads
{
public:
    static KRWorkerThreads &instance();

    /// Calls @p work in this thread and meanwhile in at most @p mostHelpers others; returns when all have returned.
    void run(const std::function<void()> &work, int mostHelpers);

private:
    struct Job {
        const std::function<void()> *work;
        int wanted; ///< calls by helpers that have not begun
        int running = 0;
    };

    KRWorkerThreads() = default;
    ~KRWorkerThreads() = default;
    Q_DISABLE_COPY(KRWorkerThreads)

    void startThreads(int count);
    void help();

    std::mutex m_mutex; // of all that follows
    std::condition_variable m_wakeUp;
    std::condition_variable m_returned;
    std::deque<Job *> m_jobs; ///< with calls wanted
    int m_threads = 0; ///< that have been started
};
