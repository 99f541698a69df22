#include "KRTrackFigures.h"

#include "KRTestRegistry.h"
#include "KRTestTrack.h"

#include <KRGeoLocation/KRGPXConfiguredTrack.h>

#include <QtTest>

#include <algorithm>
#include <climits>

namespace {

using KRTestTrack::Point;

KRTrackFigures figuresOf(const QList<QList<Point>> &segments)
{
    return KRTrackFigures(KRGPXConfiguredTrack(KRTestTrack::northwards(segments), KRGPXTrackConfiguration()));
}

} // namespace

class tst_KRTrackFigures : public QObject
{
    Q_OBJECT

private slots:
    void climbs_data();
    void climbs();
    void speeds_data();
    void speeds();
    void leavesGapsOut();
};

void tst_KRTrackFigures::climbs_data()
{
    QTest::addColumn<QList<int>>("elevations");
    QTest::addColumn<qint64>("climb");
    QTest::addColumn<qint64>("descent");
    QTest::addColumn<int>("lowest");
    QTest::addColumn<int>("highest");
    QTest::newRow("no elevation at all") << QList<int>{0, 0, 0} << qint64(0) << qint64(0) << 0 << 0;
    QTest::newRow("up and down") << QList<int>{100, 150, 200, 120} << qint64(100) << qint64(80) << 100 << 200;
    QTest::newRow("wavering at rest") << QList<int>{100, 104, 99, 102, 98, 101} << qint64(0) << qint64(0) << 98 << 104;
    QTest::newRow("wavering on the way up")
        << QList<int>{100, 110, 107, 120, 117, 130} << qint64(30) << qint64(0) << 100 << 130;
    QTest::newRow("slow rise in small steps")
        << QList<int>{10, 12, 14, 16, 18, 20} << qint64(10) << qint64(0) << 10 << 20;
    QTest::newRow("slightly down before the rise")
        << QList<int>{100, 97, 96, 99, 110} << qint64(14) << qint64(0) << 96 << 110;
    QTest::newRow("a turn of five metres counts")
        << QList<int>{100, 120, 115, 125} << qint64(30) << qint64(5) << 100 << 125;
    QTest::newRow("0 is no elevation") << QList<int>{500, 0, 510, 0, 500} << qint64(10) << qint64(10) << 500 << 510;
    QTest::newRow("ends of int") << QList<int>{INT_MAX, INT_MIN, INT_MAX} << qint64(UINT_MAX) << qint64(UINT_MAX)
                                 << INT_MIN << INT_MAX;
    QTest::newRow("below the sea") << QList<int>{-20, -400, -10} << qint64(390) << qint64(380) << -400 << -10;
}

void tst_KRTrackFigures::climbs()
{
    QFETCH(QList<int>, elevations);
    QList<Point> points;
    for (const int elevation : elevations)
        points.append({0.1 * points.size(), elevation, -1});
    const KRTrackFigures figures = figuresOf({points});
    QTEST(figures.climbMetres(), "climb");
    QTEST(figures.descentMetres(), "descent");
    QTEST(figures.lowestMetres(), "lowest");
    QTEST(figures.highestMetres(), "highest");
    QCOMPARE(figures.hasElevation(), elevations.first() != 0);
    QVERIFY(!figures.hasSpeed());
    std::reverse(points.begin(), points.end());
    const KRTrackFigures wayBack = figuresOf({points});
    QTEST(wayBack.descentMetres(), "climb");
    QTEST(wayBack.climbMetres(), "descent");
}

void tst_KRTrackFigures::speeds_data()
{
    QTest::addColumn<QList<double>>("kilometres");
    QTest::addColumn<QList<int>>("seconds");
    QTest::addColumn<double>("average");
    QTest::addColumn<double>("maximum");
    QTest::newRow("steady") << QList<double>{0, 1, 2} << QList<int>{0, 60, 120} << 60.0 << 60.0;
    QTest::newRow("a rest counts") << QList<double>{0, 1, 1} << QList<int>{0, 60, 120} << 30.0 << 60.0;
    QTest::newRow("a jump within a second")
        << QList<double>{0, 0, 0.1, 0.1} << QList<int>{0, 9, 10, 3600} << 0.1 << 36.0;
    QTest::newRow("missing times") << QList<double>{0, 1, 2} << QList<int>{0, -1, 120} << 60.0 << 60.0;
    QTest::newRow("the clock is set back")
        << QList<double>{0, 1, 2, 3} << QList<int>{3600, 3660, 0, 60} << 60.0 << 60.0;
    QTest::newRow("all at once") << QList<double>{0, 1000} << QList<int>{5, 5} << 0.0 << 0.0;
    QTest::newRow("one time") << QList<double>{0, 1} << QList<int>{5, -1} << 0.0 << 0.0;
}

void tst_KRTrackFigures::speeds()
{
    QFETCH(QList<double>, kilometres);
    QFETCH(QList<int>, seconds);
    QFETCH(double, average);
    QFETCH(double, maximum);
    QList<Point> points;
    for (int i = 0; i < kilometres.size(); ++i)
        points.append({kilometres.at(i), 0, seconds.at(i)});
    const KRTrackFigures figures = figuresOf({points});
    QVERIFY2(qAbs(figures.averageSpeedKmh() - average) < 1e-3, qPrintable(QString::number(figures.averageSpeedKmh())));
    QVERIFY2(qAbs(figures.maximumSpeedKmh() - maximum) < 1e-3, qPrintable(QString::number(figures.maximumSpeedKmh())));
    QCOMPARE(figures.hasSpeed(), average > 0.0);
}

void tst_KRTrackFigures::leavesGapsOut()
{
    // Between the segments a cable car: 10 km, 1000 m up, 10 minutes.
    const KRTrackFigures figures =
        figuresOf({{{0.0, 100, 0}, {1.0, 200, 600}}, {{11.0, 1200, 1200}, {12.0, 1190, 1800}}});
    QVERIFY(qAbs(figures.lengthKm() - 2.0) < 1e-6);
    QCOMPARE(figures.climbMetres(), qint64(100));
    QCOMPARE(figures.descentMetres(), qint64(10));
    QVERIFY(qAbs(figures.averageSpeedKmh() - 6.0) < 1e-6);
    QVERIFY(qAbs(figures.maximumSpeedKmh() - 6.0) < 1e-6);
    QCOMPARE(figures.durationSeconds(), 1800.0);
}

static const KRTestRegistration<tst_KRTrackFigures> registration;

#include "tst_KRTrackFigures.moc"
