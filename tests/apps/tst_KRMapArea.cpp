#include "KRMapArea.h"

#include "KRTestRegistry.h"

#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QtTest>

#include <limits>

namespace {

using Positions = QList<KRGeoPosition>;

KRGPXTrackSegment line(const Positions &positions)
{
    QList<KRGPXTrackPoint> points;
    for (const KRGeoPosition &position : positions)
        points.append(KRGPXTrackPoint(position, 0, QDateTime(), QString()));
    return KRGPXTrackSegment(points);
}

} // namespace

class tst_KRMapArea : public QObject
{
    Q_OBJECT

private slots:
    void covered_data();
    void covered();
    void separateTracksMeetAcrossTheDateLine();
    void nothingToCover();
    void padding_data();
    void padding();
    void parse_data();
    void parse();
};

void tst_KRMapArea::covered_data()
{
    QTest::addColumn<Positions>("positions");
    QTest::addColumn<QList<double>>("southWestNorthEast");
    QTest::newRow("one side of the globe")
        << Positions{{53.0, 8.0}, {54.0, 9.5}, {52.5, 8.25}} << QList<double>{52.5, 8.0, 54.0, 9.5};
    QTest::newRow("across Greenwich") << Positions{{51.0, -1.0}, {50.0, 2.0}} << QList<double>{50.0, -1.0, 51.0, 2.0};
    QTest::newRow("east over the date line")
        << Positions{{-18.1, 178.4}, {-15.0, -179.0}, {-13.8, -171.8}} << QList<double>{-18.1, 178.4, -13.8, -171.8};
    QTest::newRow("west over the date line")
        << Positions{{10.0, -170.0}, {20.0, 170.0}} << QList<double>{10.0, 170.0, 20.0, -170.0};
    QTest::newRow("the long way when it was walked")
        << Positions{{0.0, 170.0}, {0.0, 60.0}, {1.0, -60.0}, {0.0, -170.0}} << QList<double>{0.0, -170.0, 1.0, 170.0};
    QTest::newRow("round the world") << Positions{{1.0, 0.0}, {1.0, 100.0}, {1.0, -160.0}, {1.0, -80.0}, {1.0, 0.0}}
                                     << QList<double>{1.0, -180.0, 1.0, 180.0};
    QTest::newRow("one place") << Positions{{53.14, 8.21}} << QList<double>{53.14, 8.21, 53.14, 8.21};
    QTest::newRow("invalid positions do not count")
        << Positions{{53.0, 8.0}, KRGeoPosition(), KRGeoPosition(0.0, 0.0), {54.0, 9.0}}
        << QList<double>{53.0, 8.0, 54.0, 9.0};
}

void tst_KRMapArea::covered()
{
    QFETCH(Positions, positions);
    QFETCH(QList<double>, southWestNorthEast);
    KRMapArea area;
    area.add(line(positions));
    const KRGeoPositionRect covered = area.covered();
    QVERIFY(covered.isValid());
    QCOMPARE(covered.south().decimalDegrees(), southWestNorthEast.at(0));
    QCOMPARE(covered.west().decimalDegrees(), southWestNorthEast.at(1));
    QCOMPARE(covered.north().decimalDegrees(), southWestNorthEast.at(2));
    QCOMPARE(covered.east().decimalDegrees(), southWestNorthEast.at(3));
}

void tst_KRMapArea::separateTracksMeetAcrossTheDateLine()
{
    KRMapArea area;
    area.add(line({{-18.0, 178.0}}));
    area.add(line({{-14.0, -172.0}}));
    QVERIFY(area.covered().longitudeRange().crossesDateLine());
    QCOMPARE(area.covered().west().decimalDegrees(), 178.0);
}

void tst_KRMapArea::nothingToCover()
{
    KRMapArea area;
    QVERIFY(!area.covered().isValid());
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    area.add(line({{notANumber, 8.0}, {53.0, notANumber}, {1e300, 1e300}}));
    QVERIFY(!area.covered().isValid());
    QVERIFY(!area.padded().isValid());
}

void tst_KRMapArea::padding_data()
{
    QTest::addColumn<Positions>("positions");
    QTest::addColumn<double>("west");
    QTest::addColumn<double>("east");
    QTest::newRow("a tenth of the larger side") << Positions{{50.0, 8.0}, {54.0, 9.0}} << 7.6 << 9.4;
    QTest::newRow("over the date line") << Positions{{0.0, 179.0}, {1.0, -171.0}} << 178.0 << -170.0;
    QTest::newRow("into the date line") << Positions{{0.5, 160.0}, {1.0, 179.9}} << 158.01 << -178.11;
    QTest::newRow("no more than the world") << Positions{{0.5, -175.0}, {1.0, 0.0}, {2.0, 175.0}} << -180.0 << 180.0;
    QTest::newRow("around one place") << Positions{{53.0, 8.0}} << 7.75 << 8.25;
    QTest::newRow("around a few steps") << Positions{{53.0, 8.0}, {53.0, 8.0002}} << 7.998 << 8.0022;
}

void tst_KRMapArea::padding()
{
    QFETCH(Positions, positions);
    QFETCH(double, west);
    QFETCH(double, east);
    KRMapArea area;
    area.add(line(positions));
    const KRGeoPositionRect padded = area.padded();
    QVERIFY(padded.isValid());
    QVERIFY(padded.south() < padded.north());
    QVERIFY2(qAbs(padded.west().decimalDegrees() - west) < 1e-9, qPrintable(padded.toString(false)));
    QVERIFY2(qAbs(padded.east().decimalDegrees() - east) < 1e-9, qPrintable(padded.toString(false)));
}

void tst_KRMapArea::parse_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isValid");
    QTest::newRow("decimal corners") << QStringLiteral("N53.5 E8.0 .. N53.0 E9.0") << true;
    QTest::newRow("no blanks around the dots") << QStringLiteral("N53.5 E8.0..N53.0 E9.0") << true;
    QTest::newRow("degrees, minutes, seconds") << QStringLiteral("53,30,0N;8,0,0E .. 53,0,0N;9,0,0E") << true;
    QTest::newRow("over the date line") << QStringLiteral("S10 E170 .. S20 W170") << true;
    QTest::newRow("from pole to pole") << QStringLiteral("N90 W180 .. S90 E180") << true;
    QTest::newRow("nothing but a pole") << QStringLiteral("N90 E8 .. N86 E9") << false;
    QTest::newRow("corners the wrong way round") << QStringLiteral("N53.0 E8.0 .. N53.5 E9.0") << false;
    QTest::newRow("no width") << QStringLiteral("N53.5 E8.0 .. N53.0 E8.0") << false;
    QTest::newRow("one corner") << QStringLiteral("N53.5 E8.0") << false;
    QTest::newRow("out of the world") << QStringLiteral("N99 E8.0 .. N53.0 E9.0") << false;
    QTest::newRow("not a number") << QStringLiteral("Nnan E8.0 .. N53.0 E9.0") << false;
    QTest::newRow("empty") << QString() << false;
}

void tst_KRMapArea::parse()
{
    QFETCH(QString, text);
    const KRGeoPositionRect area = KRMapArea::parse(text);
    QTEST(area.isValid(), "isValid");
    QVERIFY(!area.isValid() || area.north().decimalDegrees() <= KRMapArea::maximumLatitude);
}

static const KRTestRegistration<tst_KRMapArea> registration;

#include "tst_KRMapArea.moc"
