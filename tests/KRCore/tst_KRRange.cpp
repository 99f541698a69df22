#include <KRCore/KRRange.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QtTest>

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
    void expandTo();
    void overlaps();
    void derivedRuleForOneValueAppliesToRanges();
    void order();
    void validity();
    void center();
    void timeFrame();
    void invalidTimesCount();
};

void tst_KRRange::expandTo()
{
    IntRange range;
    QVERIFY(range.isNull());
    range.expandTo(5);
    QVERIFY(range == IntRange(5, 5));
    QVERIFY(!range.isNull());
    range.expandTo(9);
    range.expandTo(-3);
    range.expandTo(7);
    QVERIFY(range == IntRange(-3, 9));
    QVERIFY(range != IntRange(-3, 8));
}

void tst_KRRange::overlaps()
{
    const KRTestTable<IntRange, IntRange, bool, bool> table{
        {"same", IntRange(1, 5), IntRange(1, 5), true, true},
        {"inside", IntRange(1, 5), IntRange(2, 3), true, true},
        {"around", IntRange(2, 3), IntRange(1, 5), false, true},
        {"over the upper end", IntRange(1, 5), IntRange(4, 8), false, true},
        {"over the lower end", IntRange(4, 8), IntRange(1, 5), false, true},
        {"common end", IntRange(1, 5), IntRange(5, 8), false, true},
        {"apart", IntRange(1, 5), IntRange(6, 8), false, false},
    };
    table.forEach([](const IntRange &range, const IntRange &other, bool contains, bool intersects) {
        QCOMPARE(range.contains(other), contains);
        QCOMPARE(range.intersects(other), intersects);
        QCOMPARE(other.intersects(range), intersects);
    });
}

void tst_KRRange::derivedRuleForOneValueAppliesToRanges()
{
    const OddRange odd(1, 9);
    QVERIFY(odd.contains(IntRange(3, 5)));
    QVERIFY(!odd.contains(IntRange(3, 6)));
    QVERIFY(odd.intersects(IntRange(3, 20)));
    QVERIFY(!odd.intersects(IntRange(4, 6)));
}

void tst_KRRange::order()
{
    const KRTestTable<IntRange, IntRange, bool> table{
        {"upper ends decide", IntRange(0, 10), IntRange(0, 20), true},
        {"lower ends decide", IntRange(0, 20), IntRange(5, 6), true},
        {"greater", IntRange(5, 6), IntRange(0, 20), false},
        {"same", IntRange(5, 6), IntRange(5, 6), false},
        {"valid before invalid", IntRange(5, 6), IntRange(2, 1), true},
        {"invalid is never less", IntRange(2, 1), IntRange(5, 6), false},
        {"not even than invalid", IntRange(2, 1), IntRange(9, 8), false},
    };
    table.forEach([](const IntRange &range, const IntRange &other, bool isLess) { QCOMPARE(range < other, isLess); });
}

void tst_KRRange::validity()
{
    QVERIFY(IntRange(5, 5).isValid());
    QVERIFY(IntRange(-1, 5).isValid());
    QVERIFY(!IntRange(5, 4).isValid());
    // A time frame without a duration is none; its ends may be in any order.
    QVERIFY(!TimeFrame().isValid());
    QVERIFY(!TimeFrame(at(8), at(8)).isValid());
    QVERIFY(TimeFrame(at(8), at(9)).isValid());
    QVERIFY(TimeFrame(at(9), at(8)).isValid());
}

void tst_KRRange::center()
{
    QCOMPARE(IntRange(2, 8).center(), 5);
    QCOMPARE(TimeFrame(at(8), at(10)).center(), at(9));
    QCOMPARE(TimeFrame(at(10), at(8)).center(), at(9));
    QVERIFY(!TimeFrame().center().isValid());
}

void tst_KRRange::timeFrame()
{
    TimeFrame frame;
    QVERIFY(frame.isNull());
    frame.expandTo(at(10));
    QVERIFY(frame == TimeFrame(at(10), at(10)));
    frame.expandTo(at(8));
    frame.expandTo(at(12));
    QVERIFY(frame == TimeFrame(at(8), at(12)));
    QVERIFY(frame.contains(at(8)));
    QVERIFY(frame.contains(TimeFrame(at(9), at(12))));
    QVERIFY(!frame.contains(at(13)));
    QVERIFY(frame.intersects(TimeFrame(at(12), at(13))));
    QVERIFY(frame < TimeFrame(at(9), at(10)));
}

void tst_KRRange::invalidTimesCount()
{
    // Intended: an invalid time is earlier than every other, and nothing skips it.
    TimeFrame frame(at(8), at(8));
    frame.expandTo(QDateTime());
    frame.expandTo(at(9));
    QVERIFY(frame == TimeFrame(QDateTime(), at(9)));
    QVERIFY(frame.isValid());
}

static const KRTestRegistration<tst_KRRange> registration;

#include "tst_KRRange.moc"
