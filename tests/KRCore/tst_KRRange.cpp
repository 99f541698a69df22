#include <KRCore/KRIntRange.h>
#include <KRCore/KRRange.h>

#include "KRTest.h"

#include <QImage>

#include <algorithm>
#include <limits>

namespace {

using IntRange = KRRange<int>;
using TimeFrame = KRRange<QDateTime>;

QDateTime at(int hour)
{
    return QDateTime(QDate(2024, 5, 1), QTime(hour, 0), Qt::UTC);
}

/// Contains odd numbers only, as an example of a range with a rule of its own.
class OddRange : public IntRange
{
public:
    using IntRange::contains;
    using IntRange::IntRange;

    bool contains(const int &value) const override { return value % 2 != 0 && IntRange::contains(value); }
};

} // namespace

class tst_KRRange : public QObject
{
    Q_OBJECT

private slots:
    void expandTo()
    {
        IntRange range;
        QVERIFY(range.isNull());
        range.expandTo(5);
        QVERIFY(range == IntRange(5, 5) && !range.isNull());
        for (const int value : {9, -3, 7})
            range.expandTo(value);
        QVERIFY(range == IntRange(-3, 9) && range != IntRange(-3, 8));
        QCOMPARE(range.center(), 3);
    }

    void overlaps()
    {
        const KRTestTable<IntRange, IntRange, bool, bool> table{
            {"same", IntRange(1, 5), IntRange(1, 5), true, true},
            {"around", IntRange(2, 3), IntRange(1, 5), false, true},
            {"over the upper end", IntRange(1, 5), IntRange(4, 8), false, true},
            {"common end", IntRange(1, 5), IntRange(5, 8), false, true},
        };
        table.forEach([](const IntRange &range, const IntRange &other, bool contains, bool intersects) {
            QCOMPARE(range.contains(other), contains);
            QCOMPARE(range.intersects(other), intersects);
            QCOMPARE(other.intersects(range), intersects);
        });
        // A derived rule for one value applies to ranges.
        const OddRange odd(1, 9);
        QVERIFY(odd.contains(IntRange(3, 5)) && !odd.contains(IntRange(3, 6)));
        QVERIFY(odd.intersects(IntRange(3, 20)) && !odd.intersects(IntRange(4, 6)));
    }

    void order()
    {
        const KRTestTable<IntRange, IntRange, bool> table{
            {"upper ends decide", IntRange(0, 10), IntRange(0, 20), true},
            {"lower ends decide", IntRange(0, 20), IntRange(5, 6), true},
            {"valid before invalid", IntRange(5, 6), IntRange(2, 1), true},
            {"invalid is never less", IntRange(2, 1), IntRange(5, 6), false},
        };
        table.forEach([](const IntRange &a, const IntRange &b, bool isLess) { QCOMPARE(a < b, isLess); });
    }

    void validity()
    {
        QVERIFY(IntRange(5, 5).isValid() && IntRange(-1, 5).isValid() && !IntRange(5, 4).isValid());
        // A time frame without a duration is none; its ends may be in any order.
        QVERIFY(!TimeFrame().isValid() && !TimeFrame(at(8), at(8)).isValid());
        QVERIFY(TimeFrame(at(8), at(9)).isValid() && TimeFrame(at(9), at(8)).isValid());
    }

    void timeFrame()
    {
        TimeFrame frame;
        QVERIFY(frame.isNull());
        for (const int hour : {10, 8, 12})
            frame.expandTo(at(hour));
        QVERIFY(frame == TimeFrame(at(8), at(12)));
        QCOMPARE(frame.center(), at(10));
        QCOMPARE(TimeFrame(at(10), at(8)).center(), at(9));
        QVERIFY(!TimeFrame().center().isValid());
        QVERIFY(frame.contains(at(8)) && !frame.contains(at(13)) && frame.contains(TimeFrame(at(9), at(12))));
        QVERIFY(frame.intersects(TimeFrame(at(12), at(13))));
        QVERIFY(frame < TimeFrame(at(9), at(10)));
        // Intended: an invalid time is earlier than every other, and nothing skips it.
        frame.expandTo(QDateTime());
        QVERIFY(frame == TimeFrame(QDateTime(), at(12)) && frame.isValid());
    }

    void splitEvenlyForCpuCores()
    {
        constexpr int lowest = std::numeric_limits<int>::min();
        constexpr int highest = std::numeric_limits<int>::max();
        const int cores = QThread::idealThreadCount();
        const KRTestTable<int, int, int> table{
            {"far from anything", 10, -10, 0},
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

    void rowsAndColumns()
    {
        const QImage image(30, 20, QImage::Format_ARGB32);
        QCOMPARE(KRIntRange::rowsOfImage(image), KRIntRange(0, 19));
        QCOMPARE(KRIntRange::columnsOfImage(image), KRIntRange(0, 29));
        QVERIFY(!KRIntRange::rowsOfImage(QImage()).isValid());
        const KRIntRange none = KRIntRange::columnsOfImage(QImage());
        QVERIFY(!none.isValid() && !none.contains(0));
        QCOMPARE(none.lastIndexEvenIfUnvalid(), none.minimum());
    }
};

template class KRTestRegistration<tst_KRRange>;

#include "tst_KRRange.moc"
