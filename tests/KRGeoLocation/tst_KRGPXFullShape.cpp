#include <KRGeoLocation/KRGPXFullShape.h>

#include "KRTestRegistry.h"

#include <QIcon>
#include <QtTest>

Q_DECLARE_METATYPE(KRGPXTrackShapeEnum)

class tst_KRGPXFullShape : public QObject
{
    Q_OBJECT

private slots:
    void normalized_data();
    void normalized();
    void describesItself();
};

void tst_KRGPXFullShape::normalized_data()
{
    QTest::addColumn<KRGPXTrackShapeEnum>("trackShape");
    QTest::addColumn<int>("marker");
    QTest::addColumn<int>("expected");
    QTest::newRow("a point has no arrow") << PointTrackShape << (ArrowMarkerShape | DiskMarkerShape) << 1;
    QTest::newRow("a point keeps every marker but 4") << PointTrackShape << 0x7FF << 0x3FB;
    QTest::newRow("a line has nothing but the arrow") << LineStringTrackShape << 0x7FF << 0x400;
    QTest::newRow("an area has no marker") << PolygonTrackShape << 1 << 0;
    QTest::newRow("a flight line has no marker") << HopTrackShape << 0x400 << 0;
    QTest::newRow("auto has no marker") << AutoTrackShape << 1 << 0;
}

void tst_KRGPXFullShape::normalized()
{
    QFETCH(KRGPXTrackShapeEnum, trackShape);
    QFETCH(int, marker);
    KRGPXFullShape shape(trackShape, static_cast<KRGPXMarkerShapeEnum>(marker));
    const KRGPXFullShape normalized = shape.normalized();
    QCOMPARE(static_cast<int>(shape.markerShape().value()), marker);
    QTEST(static_cast<int>(normalized.markerShape().value()), "expected");
    QCOMPARE(normalized.trackShape().value(), trackShape);
    shape.normalize();
    QVERIFY(shape == normalized);
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
