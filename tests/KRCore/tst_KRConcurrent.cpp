#include <KRCore/KRConcurrent.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QThreadPool>
#include <QtTest>

#include <atomic>
#include <memory>
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

/// Gives the global pool another size until the end of the scope.
class PoolSize
{
public:
    explicit PoolSize(int threads) { QThreadPool::globalInstance()->setMaxThreadCount(threads); }
    ~PoolSize() { QThreadPool::globalInstance()->setMaxThreadCount(QThread::idealThreadCount()); }
    Q_DISABLE_COPY(PoolSize)
};

/// Makes the global pool count @p threads more as active until the end of the scope.
class BusyThreads
{
public:
    explicit BusyThreads(int threads) : m_threads(threads)
    {
        for (int i = 0; i < m_threads; ++i)
            QThreadPool::globalInstance()->reserveThread();
    }
    ~BusyThreads()
    {
        for (int i = 0; i < m_threads; ++i)
            QThreadPool::globalInstance()->releaseThread();
    }
    Q_DISABLE_COPY(BusyThreads)

private:
    const int m_threads;
};

} // namespace

class tst_KRConcurrent : public QObject
{
    Q_OBJECT

private slots:
    void mayUsePool();
    void busyPoolIsLeftAlone();
    void resultsKeepTheOrderOfTheItems();
};

void tst_KRConcurrent::mayUsePool()
{
    const int limit = KRConcurrent::maxRunningThreads;
    const KRTestTable<int, int, bool> table{
        {"one below the limit", limit + 2, limit - 1, true},
        {"at the limit", limit + 2, limit, false},
        {"small pool with one thread left", 2, 1, true},
        {"small pool, all busy", 2, 2, false},
    };
    table.forEach([](int poolSize, int busy, bool expectedElsewhere) {
        const PoolSize size(poolSize);
        const BusyThreads busyThreads(busy);
        bool elsewhere = false;
        runInForeignThread([&] { elsewhere = KRConcurrent::mayUsePool(); });
        QCOMPARE(elsewhere, expectedElsewhere);
        QVERIFY(KRConcurrent::mayUsePool());
    });
}

void tst_KRConcurrent::busyPoolIsLeftAlone()
{
    const BusyThreads busyThreads(KRConcurrent::maxRunningThreads);
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
    QCOMPARE(threads.size(), 1);
    QCOMPARE(squares.size(), 20);
    QCOMPARE(squares.last(), 361);
}

void tst_KRConcurrent::resultsKeepTheOrderOfTheItems()
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
        QVERIFY(std::all_of(visits.cbegin(), visits.cend(), [](const std::atomic<int> &visit) { return visit == 1; }));
    }
}

static const KRTestRegistration<tst_KRConcurrent> registration;

#include "tst_KRConcurrent.moc"
