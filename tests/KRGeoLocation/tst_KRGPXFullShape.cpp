#include <KRGeoLocation/KRGPXFullShape.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QIcon>
#include <QtTest>

class tst_KRGPXFullShape : public QObject
{
    Q_OBJECT

private slots:
    void normalized();
    void describesItself();
};

void tst_KRGPXFullShape::normalized()
{
    const KRTestTable<KRGPXTrackShapeEnum, int, int> table{
        {"a point has no arrow", PointTrackShape, (ArrowMarkerShape | DiskMarkerShape), 1},
        {"a point keeps every marker but 4", PointTrackShape, 0x7FF, 0x3FB},
        {"a line has nothing but the arrow", LineStringTrackShape, 0x7FF, 0x400},
        {"an area has no marker", PolygonTrackShape, 1, 0},
        {"a flight line has no marker", HopTrackShape, 0x400, 0},
        {"auto has no marker", AutoTrackShape, 1, 0},
    };
    table.forEach([](KRGPXTrackShapeEnum trackShape, int marker, int expected) {
        KRGPXFullShape shape(trackShape, static_cast<KRGPXMarkerShapeEnum>(marker));
        const KRGPXFullShape normalized = shape.normalized();
        QCOMPARE(static_cast<int>(shape.markerShape().value()), marker);
        QCOMPARE(static_cast<int>(normalized.markerShape().value()), expected);
        QCOMPARE(normalized.trackShape().value(), trackShape);
        shape.normalize();
        QVERIFY(shape == normalized);
    });
}

void tst_KRGPXFullShape::describesItself()
{
    const KRGPXFullShape arrow(LineStringTrackShape, ArrowMarkerShape);
    QCOMPARE(arrow.describe(), QStringLiteral("Pfeil"));
    QCOMPARE(arrow.toolTip(), QStringLiteral("Alle Punkte werden zu einer Strecke verbunden."));
    QVERIFY(arrow.createIcon(Qt::black, Qt::red).isNull());
    QVERIFY(!KRGPXFullShape(PointTrackShape, DiskMarkerShape).createIcon(Qt::black, Qt::red).isNull());
}

static const KRTestRegistration<tst_KRGPXFullShape> registration;

#include "tst_KRGPXFullShape.moc"
