#include "KRTrackFigures.h"

#include "KRTest.h"
#include "KRTestTrack.h"

#include <KRGeoLocation/KRGPXConfiguredTrack.h>

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
    void climbs()
    {
        const KRTestTable<QList<int>, qint64, qint64, int, int> table{
            {"wavering at rest", {100, 104, 99, 102, 98, 101}, qint64(0), qint64(0), 98, 104},
            {"slow rise in small steps", {10, 12, 14, 16, 18, 20}, qint64(10), qint64(0), 10, 20},
            {"slightly down before the rise", {100, 97, 96, 99, 110}, qint64(14), qint64(0), 96, 110},
            {"a turn of five metres counts", {100, 120, 115, 125}, qint64(30), qint64(5), 100, 125},
            {"0 is no elevation", {500, 0, 510, 0, 500}, qint64(10), qint64(10), 500, 510},
            {"ends of int", {INT_MAX, INT_MIN, INT_MAX}, qint64(UINT_MAX), qint64(UINT_MAX), INT_MIN, INT_MAX},
            {"below the sea", {-20, -400, -10}, qint64(390), qint64(380), -400, -10},
        };
        table.forEach([&](const QList<int> &elevations, qint64 climb, qint64 descent, int lowest, int highest) {
            QList<Point> points;
            for (const int elevation : elevations)
                points.append({0.1 * points.size(), elevation, -1});
            const KRTrackFigures figures = figuresOf({points});
            QCOMPARE(figures.climbMetres(), climb);
            QCOMPARE(figures.descentMetres(), descent);
            QCOMPARE(figures.lowestMetres(), lowest);
            QCOMPARE(figures.highestMetres(), highest);
            QCOMPARE(figures.hasElevation(), elevations.first() != 0);
            QVERIFY(!figures.hasSpeed());
            std::reverse(points.begin(), points.end());
            const KRTrackFigures wayBack = figuresOf({points});
            QCOMPARE(wayBack.descentMetres(), climb);
            QCOMPARE(wayBack.climbMetres(), descent);
        });
    }

    void speeds()
    {
        const KRTestTable<QList<double>, QList<int>, double, double> table{
            {"a rest counts", {0, 1, 1}, {0, 60, 120}, 30.0, 60.0},
            {"a jump within a second", {0, 0, 0.1, 0.1}, {0, 9, 10, 3600}, 0.1, 36.0},
            {"missing times", {0, 1, 2}, {0, -1, 120}, 60.0, 60.0},
            {"the clock is set back", {0, 1, 2, 3}, {3600, 3660, 0, 60}, 60.0, 60.0},
            {"all at once", {0, 1000}, {5, 5}, 0.0, 0.0},
        };
        table.forEach([&](const QList<double> &kilometres, const QList<int> &seconds, double average, double maximum) {
            QList<Point> points;
            for (int i = 0; i < kilometres.size(); ++i)
                points.append({kilometres.at(i), 0, seconds.at(i)});
            const KRTrackFigures figures = figuresOf({points});
            QCOMPARE(qRound(figures.averageSpeedKmh() * 1000), qRound(average * 1000));
            QCOMPARE(qRound(figures.maximumSpeedKmh() * 1000), qRound(maximum * 1000));
            QCOMPARE(figures.hasSpeed(), average > 0.0);
        });
    }

    void leavesGapsOut()
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
};

template class KRTestRegistration<tst_KRTrackFigures>;

#include "tst_KRTrackFigures.moc"
