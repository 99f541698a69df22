#include <KRGeoLocation/KRGeoPositionList.h>

#include "KRTest.h"

#include <QPainterPath>

namespace {

const KRGeoPositionList threeInARow = {KRGeoPosition(1, 1), KRGeoPosition(1, 11), KRGeoPosition(1, 2)};

} // namespace

class tst_KRGeoPositionList : public QObject
{
    Q_OBJECT

private slots:
    void averageAndCenter()
    {
        const KRGeoPositionList empty;
        QCOMPARE(empty.average(), KRGeoPosition());
        QCOMPARE(empty.center(), KRGeoPosition());
        QCOMPARE(empty.boundingBox(), KRGeoPositionRect());
        QVERIFY(empty.toPainterPath().isEmpty());
        QCOMPARE(empty.filterStrayPositions(1.0, true, 0), empty);
        QCOMPARE(threeInARow.average(), KRGeoPosition(1, 14.0 / 3.0));
        QCOMPARE(threeInARow.center(), KRGeoPosition(1, 6));
        QPainterPath path(QPointF(1, 1));
        path.lineTo(11, 1);
        path.lineTo(2, 1);
        QCOMPARE(threeInARow.toPainterPath(), path);
    }

    void filterStrayPositions()
    {
        // The average is at longitude 4.67, the centre at 6: only the stray 11 is nearer to the centre.
        const KRGeoPositionList stray = {{1, 11}};
        const KRGeoPositionList others = {{1, 1}, {1, 2}};
        const KRTestTable<double, bool, int, KRGeoPositionList> table{
            {"keeps what is near the average", 1.0, false, 3, others},
            {"inverted keeps the stray ones", 1.0, true, 3, stray},
            {"a larger factor forgives", 2.0, false, 3, threeInARow},
            {"too few to judge, inverted", 2.0, true, 4, threeInARow},
        };
        table.forEach([](double factor, bool invert, int minimumCount, const KRGeoPositionList &expected) {
            QCOMPARE(threeInARow.filterStrayPositions(factor, invert, minimumCount), expected);
        });
    }

    void filteringTakesApart()
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
};

template class KRTestRegistration<tst_KRGeoPositionList>;

#include "tst_KRGeoPositionList.moc"
