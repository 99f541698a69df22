#include <KRCore/KRRange.h>

#include "KRTestRegistry.h"

#include <QtTest>

Q_DECLARE_METATYPE(KRRange<int>)

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
    void overlaps_data();
    void overlaps();
    void derivedRuleForOneValueAppliesToRanges();
    void order_data();
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

void tst_KRRange::overlaps_data()
{
    QTest::addColumn<IntRange>("range");
    QTest::addColumn<IntRange>("other");
    QTest::addColumn<bool>("contains");
    QTest::addColumn<bool>("intersects");
    QTest::newRow("same") << IntRange(1, 5) << IntRange(1, 5) << true << true;
    QTest::newRow("inside") << IntRange(1, 5) << IntRange(2, 3) << true << true;
    QTest::newRow("around") << IntRange(2, 3) << IntRange(1, 5) << false << true;
    QTest::newRow("over the upper end") << IntRange(1, 5) << IntRange(4, 8) << false << true;
    QTest::newRow("over the lower end") << IntRange(4, 8) << IntRange(1, 5) << false << true;
    QTest::newRow("common end") << IntRange(1, 5) << IntRange(5, 8) << false << true;
    QTest::newRow("apart") << IntRange(1, 5) << IntRange(6, 8) << false << false;
}

void tst_KRRange::overlaps()
{
    QFETCH(IntRange, range);
    QFETCH(IntRange, other);
    QTEST(range.contains(other), "contains");
    QTEST(range.intersects(other), "intersects");
    QTEST(other.intersects(range), "intersects");
}

void tst_KRRange::derivedRuleForOneValueAppliesToRanges()
{
    const OddRange odd(1, 9);
    QVERIFY(odd.contains(IntRange(3, 5)));
    QVERIFY(!odd.contains(IntRange(3, 6)));
    QVERIFY(odd.intersects(IntRange(3, 20)));
    QVERIFY(!odd.intersects(IntRange(4, 6)));
}

void tst_KRRange::order_data()
{
    QTest::addColumn<IntRange>("range");
    QTest::addColumn<IntRange>("other");
    QTest::addColumn<bool>("isLess");
    QTest::newRow("upper ends decide") << IntRange(0, 10) << IntRange(0, 20) << true;
    QTest::newRow("lower ends decide") << IntRange(0, 20) << IntRange(5, 6) << true;
    QTest::newRow("greater") << IntRange(5, 6) << IntRange(0, 20) << false;
    QTest::newRow("same") << IntRange(5, 6) << IntRange(5, 6) << false;
    QTest::newRow("valid before invalid") << IntRange(5, 6) << IntRange(2, 1) << true;
    QTest::newRow("invalid is never less") << IntRange(2, 1) << IntRange(5, 6) << false;
    QTest::newRow("not even than invalid") << IntRange(2, 1) << IntRange(9, 8) << false;
}

void tst_KRRange::order()
{
    QFETCH(IntRange, range);
    QFETCH(IntRange, other);
    QTEST(range < other, "isLess");
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
