#include <KRCore/KRConcurrent.h>

#include <QCoreApplication>
#include <QMutex>
#include <QMutexLocker>
#include <QThread>

#include <atomic>
#include <cstdio>
#include <thread>

namespace {

int counter = 0;
std::atomic<int> arrived{0};

/// Waits until both parts run; without any order that would make the race none.
void meet()
{
    arrived.fetch_add(1, std::memory_order_relaxed);
    for (int i = 0; arrived.load(std::memory_order_relaxed) < 2 && i < 1000; ++i)
        QThread::msleep(1);
}

/// Two parts of a parallel loop write to one place.
void raceInMap()
{
    KRConcurrent::blockingMap(QList<int>{1, 2}, [](int number) {
        meet();
        counter += number;
    });
}

/// Two threads hold a lock each, but not the same.
void raceInSpiteOfLocks()
{
    QMutex mutexes[2];
    const auto count = [&mutexes](int number) {
        meet();
        const QMutexLocker locker(&mutexes[number]);
        counter += number;
    };
    std::thread first(count, 0);
    std::thread second(count, 1);
    first.join();
    second.join();
}

} // namespace

/// Has a race, which ThreadSanitizer is to find.
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().value(1) == QLatin1String("map"))
        raceInMap();
    else
        raceInSpiteOfLocks();
    std::printf("%d\n", counter);
    return 0;
}
