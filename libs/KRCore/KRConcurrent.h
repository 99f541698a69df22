#pragma once

#include "KRCoreExport.h"
#include "KRThreadHandover.h"

#include <QList>
#include <QThread>
#include <QtConcurrentMap>

#include <memory>
#include <type_traits>
#include <utility>

/**
 * Blocking maps over the global thread pool: split the work into a few items, hand them over, wait.
 *
 * The items must not depend on each other, and the function is called from several threads at once: it may read
 * shared data through const access only and writes what nobody else touches. Nothing here takes a lock.
 *
 * Whether the pool is used or the calling thread does all the work itself is decided here and nowhere else.
 */
namespace KRConcurrent {

/// Threads that are busy at most before a thread other than the main thread keeps its work to itself.
static const int maxRunningThreads = QThread::idealThreadCount() * 3;

/// True on the thread of the QCoreApplication; false everywhere as long as there is none.
KRCORE_EXPORT bool isMainThread();

/**
 * True on the main thread, elsewhere only while the pool has a thread to spare.
 *
 * The caller of a blocking map waits without working. If jobs of the pool could always wait for the pool, all of
 * its threads might end up waiting for work that no thread is left to do.
 */
KRCORE_EXPORT bool mayUsePool();

/// Calls @p function once for every item and returns when all calls have returned; in any order.
template <typename Item, typename Function>
void blockingMap(const QList<Item> &items, const Function &function)
{
    if (items.size() > 1 && mayUsePool()) {
        KRThreadHandover handover;
        QtConcurrent::blockingMap(items.constBegin(), items.constEnd(), [&](const Item &item) {
            function(item);
            handover.giveBack();
        });
        handover.takeBack();
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
