#pragma once

#include <QRunnable>
#include <QThread>
#include <QThreadPool>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

/// The same work in many threads.
namespace KRTestThreads {

/// Calls @p work with 0, 1, 2 … in as many threads at once, the even ones in the pool, and with -1 in this one.
inline void runEverywhere(int count, const std::function<void(int)> &work)
{
    std::atomic<int> arrived{0};
    const auto workTogether = [&](int i) {
        // Without any order between the threads, which would make races none; the pool may have too few of them.
        arrived.fetch_add(1, std::memory_order_relaxed);
        for (int ms = 0; arrived.load(std::memory_order_relaxed) <= count && ms < 20; ++ms)
            QThread::msleep(1);
        work(i);
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) {
        if (i % 2 == 0)
            QThreadPool::globalInstance()->start(QRunnable::create([&workTogether, i] { workTogether(i); }));
        else
            threads.emplace_back([&workTogether, i] { workTogether(i); });
    }
    workTogether(-1);
    for (std::thread &thread : threads)
        thread.join();
    QThreadPool::globalInstance()->waitForDone();
}

} // namespace KRTestThreads
