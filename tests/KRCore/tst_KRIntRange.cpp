#include <KRCore/KRIntRange.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QImage>
#include <QThread>
#include <QtTest>

#include <algorithm>
#include <limits>

class tst_KRIntRange : public QObject
{
    Q_OBJECT

private slots:
    void splitEvenlyForCpuCores();
    void rowsAndColumns();
    void emptyRange();
};

void tst_KRIntRange::splitEvenlyForCpuCores()
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    const int cores = QThread::idealThreadCount();
    const KRTestTable<int, int, int> table{
        {"nothing", 0, -1, 0},
        {"far from anything", 10, -10, 0},
        {"one index", 7, 7, 1},
        {"as many as cores", 0, cores - 1, cores},
        {"one more than cores", 0, cores, cores},
        {"not from 0", -500, 501, cores},
        {"every int", lowest, highest, cores},
    };
    table.forEach([](int minimum, int maximum, int expectedParts) {
        const QList<KRIntRange> parts = KRIntRange(minimum, maximum).splitEvenlyForCpuCores();
        QCOMPARE(parts.size(), expectedParts);
        qint64 next = minimum;
        qint64 smallest = std::numeric_limits<qint64>::max();
        qint64 largest = 0;
        for (const KRIntRange &part : parts) {
            QCOMPARE(qint64(part.minimum()), next);
            const qint64 size = qint64(part.maximum()) - part.minimum() + 1;
            smallest = std::min(smallest, size);
            largest = std::max(largest, size);
            next += size;
        }
        if (!parts.isEmpty()) {
            QCOMPARE(next, qint64(maximum) + 1);
            QVERIFY(smallest >= 1);
            QVERIFY(largest - smallest <= 1);
        }
    });
}

void tst_KRIntRange::rowsAndColumns()
{
    const QImage image(30, 20, QImage::Format_ARGB32);
    QCOMPARE(KRIntRange::rowsOfImage(image), KRIntRange(0, 19));
    QCOMPARE(KRIntRange::columnsOfImage(image), KRIntRange(0, 29));
    QVERIFY(!KRIntRange::rowsOfImage(QImage()).isValid());
    QVERIFY(!KRIntRange::columnsOfImage(QImage()).isValid());
}

void tst_KRIntRange::emptyRange()
{
    const KRIntRange empty(0, -1);
    QCOMPARE(empty.lastIndexEvenIfUnvalid(), empty.minimum());
    QVERIFY(!empty.isValid());
    QVERIFY(!empty.contains(0));
}

static const KRTestRegistration<tst_KRIntRange> registration;

#include "tst_KRIntRange.moc"
