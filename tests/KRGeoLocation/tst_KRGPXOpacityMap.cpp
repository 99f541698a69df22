#include <KRGeoLocation/KRGPXOpacityMap.h>

#include "KRTest.h"

#include <QPainterPath>
#include <QTransform>

namespace {

QPainterPath rectangular(const QRectF &rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

bool isInSight(KRGPXOpacityMap *map, const QPainterPath &area)
{
    map->setArea(area, QTransform());
    return map->isInSight();
}

} // namespace

/// What is taken as hidden is not drawn.
class tst_KRGPXOpacityMap : public QObject
{
    Q_OBJECT

private slots:
    void layersHide()
    {
        // At least so many layers leave less than a level of a colour of what is below.
        const KRTestTable<int, int> table{{"opaque", 255, 1}, {"half transparent", 128, 8}, {"nearly clear", 10, 139}};
        const QPainterPath below = rectangular({20.0, 20.0, 40.0, 30.0});
        table.forEach([&](int alpha, int layers) {
            KRGPXOpacityMap map(QSize(101, 77));
            for (int i = 0; i < layers; ++i) {
                QVERIFY(isInSight(&map, below));
                map.setArea(rectangular({10.0, 10.0, 60.0, 50.0}), QTransform());
                map.add(alpha);
            }
            QVERIFY2(!isInSight(&map, below) || layers > 1, "one opaque layer hides");
            for (int i = 0; i < layers / 8 + 1; ++i) { // what rounding may take
                map.setArea(rectangular({10.0, 10.0, 60.0, 50.0}), QTransform());
                map.add(alpha);
            }
            QVERIFY(!isInSight(&map, below));
            QVERIFY(isInSight(&map, rectangular({20.0, 20.0, 60.0, 30.0})));
        });
    }

    void nothingIsHiddenBeside()
    {
        KRGPXOpacityMap map(QSize(101, 77));
        QPainterPath ring = rectangular({-20.0, -20.0, 200.0, 200.0});
        ring.addRect(40.0, 40.0, 12.0, 12.0);
        map.setArea(ring, QTransform());
        map.add(255);
        QVERIFY(!isInSight(&map, rectangular({0.0, 0.0, 101.0, 30.0})));
        QVERIFY(!isInSight(&map, rectangular({90.0, 60.0, 100.0, 100.0})));
        QVERIFY(isInSight(&map, rectangular({45.0, 45.0, 2.0, 2.0})));
        QVERIFY(isInSight(&map, rectangular({10.0, 30.0, 31.0, 20.0})));
        QVERIFY(!isInSight(&map, rectangular({-50.0, 0.0, 40.0, 10.0})));
        QVERIFY(isInSight(&map, rectangular({-1e9, 0.0, 2e9, 10.0}))); // too far to say
    }

    void linesThroughSquaresHideWhenManyOnly()
    {
        KRGPXOpacityMap map(QSize(100, 100));
        for (int lines = 0; lines < 50; ++lines) {
            QVERIFY(isInSight(&map, rectangular({50.0, 0.0, 1.0, 100.0})));
            map.setArea(rectangular({49.0 + lines % 3, 0.0, 1.0, 100.0}), QTransform());
            map.add(255);
        }
        for (int lines = 0; lines < 50; ++lines)
            map.add(255);
        QVERIFY(!isInSight(&map, rectangular({50.0, 0.0, 1.0, 100.0})));
    }
};

template class KRTestRegistration<tst_KRGPXOpacityMap>;

#include "tst_KRGPXOpacityMap.moc"
