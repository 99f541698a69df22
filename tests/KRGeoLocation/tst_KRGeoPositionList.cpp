#include <KRGeoLocation/KRGeoPositionList.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QPainterPath>
#include <QtTest>

namespace {

const KRGeoPositionList threeInARow = {KRGeoPosition(1, 1), KRGeoPosition(1, 11), KRGeoPosition(1, 2)};

} // namespace

class tst_KRGeoPositionList : public QObject
{
    Q_OBJECT

private slots:
    void averageAndCenter();
    void boundingBox();
    void painterPath();
    void filterStrayPositions();
    void filteringTakesApart();
};

void tst_KRGeoPositionList::averageAndCenter()
{
    const KRGeoPositionList empty;
    QCOMPARE(empty.average(), KRGeoPosition());
    QCOMPARE(empty.center(), KRGeoPosition());
    QCOMPARE(empty.boundingBox(), KRGeoPositionRect());
    QVERIFY(empty.toPainterPath().isEmpty());
    QCOMPARE(empty.filterStrayPositions(1.0, true, 0), empty);
    QCOMPARE(threeInARow.average(), KRGeoPosition(1, 14.0 / 3.0));
    QCOMPARE(threeInARow.center(), KRGeoPosition(1, 6));
}

void tst_KRGeoPositionList::boundingBox()
{
    const KRTestTable<KRGeoPositionList, KRGeoPosition, KRGeoPosition> table{
        {"one", KRGeoPositionList{{53, 8}}, KRGeoPosition(53, 8), KRGeoPosition(53, 8)},
        {"invalid ones do not count", KRGeoPositionList{{}, {53, 8}, KRGeoPosition::null(), {54, 9}},
         KRGeoPosition(53, 8), KRGeoPosition(54, 9)},
        // Intended: a box grown point by point never crosses the date line.
        {"both sides of the date line", KRGeoPositionList{{10, 170}, {20, -170}}, KRGeoPosition(10, -170),
         KRGeoPosition(20, 170)},
    };
    table.forEach(
        [](const KRGeoPositionList &positions, const KRGeoPosition &southWest, const KRGeoPosition &northEast) {
            QCOMPARE(positions.boundingBox(), KRGeoPositionRect(southWest, northEast));
        });
}

void tst_KRGeoPositionList::painterPath()
{
    const QPainterPath point = KRGeoPositionList{{53, 8}}.toPainterPath();
    QCOMPARE(point.elementCount(), 1);
    QCOMPARE(point.currentPosition(), QPointF(8, 53));

    const QPainterPath line = KRGeoPositionList{{53, 8}, {54, 9}, {53, 10}}.toPainterPath();
    QCOMPARE(line.elementCount(), 3);
    QVERIFY(line.elementAt(0).isMoveTo());
    QVERIFY(line.elementAt(1).isLineTo());
    QCOMPARE(QPointF(line.elementAt(1)), QPointF(9, 54));
    QCOMPARE(line.currentPosition(), QPointF(10, 53));
}

void tst_KRGeoPositionList::filterStrayPositions()
{
    // The average is at longitude 4.67, the centre at 6: only the stray 11 is nearer to the centre.
    const KRGeoPositionList stray = {{1, 11}};
    const KRGeoPositionList others = {{1, 1}, {1, 2}};
    const KRTestTable<double, bool, int, KRGeoPositionList> table{
        {"keeps what is near the average", 1.0, false, 3, others},
        {"inverted keeps the stray ones", 1.0, true, 3, stray},
        {"a larger factor forgives", 2.0, false, 3, threeInARow},
        {"factor 0 keeps nothing", 0.0, false, 3, KRGeoPositionList()},
        {"too few to judge, inverted", 2.0, true, 4, threeInARow},
    };
    table.forEach([](double factor, bool invert, int minimumCount, const KRGeoPositionList &expected) {
        QCOMPARE(threeInARow.filterStrayPositions(factor, invert, minimumCount), expected);
    });
}

void tst_KRGeoPositionList::filteringTakesApart()
{
    KRGeoPositionList positions;
    for (int i = 1; i < 100; ++i)
        positions.append(KRGeoPosition((i * 37) % 80, (i * 53) % 170));
    for (const double factor : {0.5, 0.9, 1.0, 1.1, 2.0}) {
        const KRGeoPositionList kept = positions.filterStrayPositions(factor, false, 0);
        KRGeoPositionList rest = positions;
        for (const KRGeoPosition &position : kept)
            QVERIFY(rest.removeOne(position));
        QCOMPARE(positions.filterStrayPositions(factor, true, 0), rest);
    }
    // Average and centre in one place: no farther from the one than from the other.
    const KRGeoPositionList single = {KRGeoPosition(53, 8)};
    QCOMPARE(single.filterStrayPositions(1.0, false, 1), single);
}

static const KRTestRegistration<tst_KRGeoPositionList> registration;

#include "tst_KRGeoPositionList.moc"
