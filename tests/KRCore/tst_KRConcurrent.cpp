#include <KRCore/KRConcurrent.h>

#include "KRTest.h"

#include <QThreadPool>

#include <atomic>
#include <memory>
#include <new>
#include <vector>

namespace {

/// Runs @p function in a thread of its own, outside the pool, and waits for it.
template <typename Function>
void runInForeignThread(const Function &function)
{
    const std::unique_ptr<QThread> thread(QThread::create(function));
    thread->start();
    thread->wait();
}

QList<int> firstNumbers(int count)
{
    QList<int> numbers;
    for (int i = 0; i < count; ++i)
        numbers.append(i);
    return numbers;
}

/// Makes the global pool count so many threads more, or less, as active.
void reserve(int threads)
{
    for (int i = 0; i < std::abs(threads); ++i)
        threads > 0 ? QThreadPool::globalInstance()->reserveThread() : QThreadPool::globalInstance()->releaseThread();
}

} // namespace

class tst_KRConcurrent : public QObject
{
    Q_OBJECT

private slots:
    void mayUsePool()
    {
        const int limit = KRConcurrent::maxRunningThreads;
        const KRTestTable<int, int, bool> table{
            {"one below the limit", limit + 2, limit - 1, true},
            {"at the limit", limit + 2, limit, false},
            {"small pool with one thread left", 2, 1, true},
            {"small pool, all busy", 2, 2, false},
        };
        table.forEach([](int poolSize, int busy, bool expectedElsewhere) {
            QThreadPool::globalInstance()->setMaxThreadCount(poolSize);
            reserve(busy);
            bool elsewhere = !expectedElsewhere;
            runInForeignThread([&] { elsewhere = KRConcurrent::mayUsePool(); });
            const bool here = KRConcurrent::mayUsePool();
            reserve(-busy);
            QThreadPool::globalInstance()->setMaxThreadCount(QThread::idealThreadCount());
            QCOMPARE(elsewhere, expectedElsewhere);
            QVERIFY(here);
        });
    }

    void busyPoolIsLeftAlone()
    {
        reserve(KRConcurrent::maxRunningThreads);
        QSet<const QThread *> threads;
        QList<int> squares;
        runInForeignThread([&] {
            threads.insert(QThread::currentThread());
            squares = KRConcurrent::blockingMapped(firstNumbers(20), [&](const int &number) {
                threads.insert(QThread::currentThread());
                return number * number;
            });
            KRConcurrent::blockingMap(firstNumbers(20), [&](int) { threads.insert(QThread::currentThread()); });
        });
        reserve(-KRConcurrent::maxRunningThreads);
        QCOMPARE(threads.size(), 1);
        QCOMPARE(squares.size(), 20);
        QCOMPARE(squares.last(), 361);
    }

    void resultsKeepTheOrderOfTheItems()
    {
        // The first items take longest, so that results come in against their order.
        const std::function<QList<int>(const int &)> slowAtFirst = [](const int &number) {
            if (number < 4)
                QThread::msleep(10);
            return QList<int>{number, -number};
        };
        for (const int count : {0, 1, 500}) {
            QList<QList<int>> expected;
            for (int number = 0; number < count; ++number)
                expected.append({number, -number});
            QCOMPARE(KRConcurrent::blockingMapped(firstNumbers(count), slowAtFirst), expected);

            std::vector<std::atomic<int>> visits(static_cast<size_t>(count));
            KRConcurrent::blockingMap(firstNumbers(count), [&](int number) { ++visits[size_t(number)]; });
            QVERIFY(std::all_of(visits.cbegin(), visits.cend(), [](const std::atomic<int> &n) { return n == 1; }));
        }
    }

    /// What the caller unwinds is still in use by its helpers.
    void waitsForHelpersWhenTheCallerThrows()
    {
        QThreadPool::globalInstance()->setMaxThreadCount(2);
        std::atomic<bool> hasHelperBegun{false};
        std::atomic<bool> hasHelperEnded{false};
        const auto work = [&](int) {
            if (KRConcurrent::isMainThread()) {
                for (int i = 0; i < 5000 && !hasHelperBegun; ++i)
                    QThread::msleep(1);
                throw std::bad_alloc();
            }
            hasHelperBegun = true;
            QThread::msleep(50);
            hasHelperEnded = true;
        };
        QVERIFY_EXCEPTION_THROWN(KRConcurrent::blockingMap(firstNumbers(2), work), std::bad_alloc);
        QThreadPool::globalInstance()->setMaxThreadCount(QThread::idealThreadCount());
        QVERIFY(hasHelperEnded);
    }
};

template class KRTestRegistration<tst_KRConcurrent>;

#include "tst_KRConcurrent.moc"
