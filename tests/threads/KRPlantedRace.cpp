#include <KRCore/KRConcurrent.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QMutex>
#include <QMutexLocker>
#include <QObject>
#include <QThread>

#include <atomic>
#include <cstdio>
#include <memory>
#include <thread>

class KRPlantedSender : public QObject
{
    Q_OBJECT

signals:
    void sent(int number);
};

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
    const std::unique_ptr<QThread> first(QThread::create(count, 0));
    const std::unique_ptr<QThread> second(QThread::create(count, 1));
    first->start();
    second->start();
    first->wait();
    second->wait();
}

/// What a thread does after it has sent a signal has no order with what another does for that.
void raceBehindSignal()
{
    KRPlantedSender sender;
    QEventLoop loop;
    QObject::connect(&sender, &KRPlantedSender::sent, &loop, [&loop](int number) {
        meet();
        counter += number;
        loop.quit();
    });
    std::thread thread([&sender] {
        emit sender.sent(1);
        meet();
        counter += 2;
    });
    loop.exec();
    thread.join();
}

} // namespace

/// Has a race, which ThreadSanitizer is to find.
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QString kind = QCoreApplication::arguments().value(1);
    if (kind == QLatin1String("map"))
        raceInMap();
    else if (kind == QLatin1String("locks"))
        raceInSpiteOfLocks();
    else
        raceBehindSignal();
    std::printf("%d\n", counter);
    return 0;
}

#include "KRPlantedRace.moc"
