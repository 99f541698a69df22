#pragma once

#include "KRCoreExport.h"

#include <QList>
#include <QThread>

#include <atomic>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

/**
 * Blocking maps over several threads: split the work into a few items, which the calling thread works on together with
 * helpers, as many threads in all as the global thread pool may have, and at most maxRunningThreads.
 *
 * The items must not depend on each other, and the function is called from several threads at once: it may read
 * shared data through const access only and writes what nobody else touches.
 *
 * Whether there are helpers or the calling thread does all the work itself is decided here and nowhere else. It does
 * so too where the system starts no further thread.
 */
namespace KRConcurrent {

/// Three for each processor core. With so many jobs in the pool, or as many as it has threads, a thread other than the
/// main thread keeps its work to itself.
static const int maxRunningThreads = QThread::idealThreadCount() * 3;

/// True on the thread of the QCoreApplication; false everywhere as long as there is none.
KRCORE_EXPORT bool isMainThread();

/**
 * True on the main thread, elsewhere only while fewer jobs of the global thread pool are running than it has threads.
 *
 * Only those jobs count, no helpers. Where they keep all cores busy, helpers would gain nothing.
 */
KRCORE_EXPORT bool mayUsePool();

/// Starts a thread; false where the system allows no further one.
KRCORE_EXPORT bool start(QThread *thread, QThread::Priority priority = QThread::InheritPriority);

/**
 * Starts the threads of the global pool, as many as the system allows, and keeps them. False where it allows none.
 *
 * Qt converts pictures in that pool, and would wait for ever for a thread that could not be started. To be called
 * before the first use of the pool.
 */
KRCORE_EXPORT bool fillPool();

/// Calls @p work in this thread and meanwhile in others, one less than @p mostCalls and than the threads of the pool
/// at most; returns when all calls have returned.
KRCORE_EXPORT void runTogether(const std::function<void()> &work, int mostCalls);

/// Calls @p function once for every item and returns when all calls have returned; in any order.
template <typename Item, typename Function>
void blockingMap(const QList<Item> &items, const Function &function)
{
    if (items.size() > 1 && mayUsePool()) {
        const int count = int(items.size());
        std::atomic<int> next{0};
        const auto work = [&] {
            for (int i = next++; i < count; i = next++)
                function(items.at(i));
        };
        runTogether(work, count);
        return;
    }
    for (const Item &item : items)
        function(item);
}

/// The results of @p function for all items, in the order of the items. A result needs a
/// default constructor.
template <typename Item, typename Function>
QList<std::decay_t<std::invoke_result_t<Function, const Item &>>> blockingMapped(const QList<Item> &items,
                                                                                 const Function &function)
{
    using Result = std::decay_t<std::invoke_result_t<Function, const Item &>>;
    const auto found = std::make_unique<Result[]>(std::size_t(items.size()));
    QList<int> numbers;
    numbers.reserve(items.size());
    for (int i = 0; i < items.size(); ++i)
        numbers.append(i);
    blockingMap(numbers, [&, place = found.get()](int i) { place[i] = function(items.at(i)); });

    QList<Result> results;
    results.reserve(items.size());
    for (int i = 0; i < items.size(); ++i)
        results.append(std::move(found[std::size_t(i)]));
    return results;
}

} // namespace KRConcurrent
