#include <KRAxis.h>
#include <KRElevationProfile.h>
#include <KRTest.h>
#include <KRTestTrack.h>

#include <cmath>

namespace {

using KRTestTrack::Point;

KRElevationProfile profileOf(const QList<QList<Point>> &segments)
{
    return KRElevationProfile(KRTestTrack::northwards(segments));
}

} // namespace

class tst_KRElevationProfile : public QObject
{
    Q_OBJECT

private slots:
    void drawable()
    {
        const KRTestTable<QList<Point>, bool, bool> table{
            {"no elevations", {{0, 0, -1}, {1, 0, -1}}, false, false},
            {"one point", {{1, 100, -1}}, true, false},
            {"one elevation", {{0, 0, -1}, {1, 100, -1}}, true, false},
            {"below the sea", {{0, -100, -1}, {1, -50, -1}}, true, true},
        };
        table.forEach([](const QList<Point> &points, bool hasElevation, bool isDrawable) {
            const KRElevationProfile profile = profileOf({points});
            QCOMPARE(profile.hasElevation(), hasElevation);
            QCOMPARE(profile.isDrawable(), isDrawable);
            QCOMPARE(profile.lines(100).isEmpty(), !isDrawable);
        });
    }

    void nearest()
    {
        const KRElevationProfile profile = profileOf({{{0, 100, -1}, {2, 100, -1}, {3, 100, -1}}});
        const QMap<double, int> expected{{-1.0, 0}, {0.9, 0}, {1.1, 1}, {2.0, 1}, {9.0, 2}};
        for (const double way : expected.keys())
            QCOMPARE(profile.nearest(way), expected.value(way));
        QCOMPARE(KRElevationProfile().nearest(1.0), -1);
    }

    void segmentsHaveNoWayBetween()
    {
        const KRElevationProfile profile =
            profileOf({{{0, 100, -1}, {1, 200, -1}}, {}, {{50, 700, -1}, {51, 0, -1}, {52, 800, -1}}});
        QVERIFY(qAbs(profile.lengthKm() - 3.0) < 1e-6);
        QCOMPARE(profile.gaps().size(), 1);
        QVERIFY(qAbs(profile.gaps().first() - 1.0) < 1e-6);
        // A point without elevation is passed over.
        QCOMPARE(profile.lines(100), (QVector<QVector<int>>{{0, 1}, {2, 4}}));
        QCOMPARE(profile.lowest(), 100);
        QCOMPARE(profile.highest(), 800);
    }

    void linesKeepExtremes()
    {
        QList<Point> points;
        for (int i = 0; i < 20000; ++i)
            points.append({i * 0.001, 500 + qRound(300 * std::sin(i * 0.0021) + 40 * std::sin(i * 1.7)), -1});
        points[7777].elevation = 2000;
        points[12345].elevation = -50;
        const KRElevationProfile profile = profileOf({points});
        const QVector<QVector<int>> lines = profile.lines(400);
        QCOMPARE(lines.size(), 1);
        const QVector<int> line = lines.first();
        QVERIFY(line.size() <= 4 * 401);
        QVERIFY(std::is_sorted(line.begin(), line.end()));
        for (const int index : {0, 7777, 12345, 19999})
            QVERIFY(line.contains(index));
        // In every pixel the line reaches as high and as low as all its points.
        QVector<QPair<int, int>> all(401, {9999, -9999});
        QVector<QPair<int, int>> drawn = all;
        const auto take = [&](QVector<QPair<int, int>> &columns, int index) {
            QPair<int, int> &column = columns[static_cast<int>(profile.at(index).wayKm * 400 / profile.lengthKm())];
            column.first = qMin(column.first, profile.at(index).elevation);
            column.second = qMax(column.second, profile.at(index).elevation);
        };
        for (int i = 0; i < profile.count(); ++i)
            take(all, i);
        for (const int index : line)
            take(drawn, index);
        QCOMPARE(drawn, all);
    }

    void speedAt()
    {
        // A steady walk with a position each second that wavers by as much as it goes, then a rest of an hour.
        QList<Point> points;
        for (int i = 0; i < 100; ++i)
            points.append({i * 0.0015 + (i % 2) * 0.0015, 100, i});
        points.append({points.last().kilometre, 100, 3700});
        const KRElevationProfile profile = profileOf({points, {{0, 100, 5000}}, {{0, 100, -1}, {1, 100, 6000}}});
        QVERIFY(qAbs(profile.speedKmhAt(50) - 5.4) < 0.6);
        QVERIFY(qAbs(profile.speedKmhAt(0) - 5.4) < 0.6);
        QVERIFY(profile.speedKmhAt(100) < 0.01);
        QCOMPARE(profile.speedKmhAt(101), 0.0); // alone in its segment
        QCOMPARE(profile.speedKmhAt(102), 0.0); // without time
        QCOMPARE(profile.speedKmhAt(103), 0.0); // alone with a time
        QCOMPARE(profile.speedKmhAt(-1), 0.0);
    }

    void axisMarks()
    {
        const KRTestTable<double, double, bool, QVector<double>, int> table{
            {"heights", 117.0, 388.0, true, {100, 150, 200, 250, 300, 350, 400}, 0},
            {"below the sea", -7.0, 13.0, true, {-10, -5, 0, 5, 10, 15}, 0},
            {"short way", 0.0, 1.19, false, {0, 0.2, 0.4, 0.6, 0.8, 1.0}, 1},
            {"ends at a mark", 0.0, 0.3, false, {0, 0.05, 0.1, 0.15, 0.2, 0.25, 0.3}, 2},
        };
        table.forEach([&](double from, double to, bool endsAtMarks, const QVector<double> &marks, int decimals) {
            const KRAxis axis(from, to, 500.0, 100.0, 60.0, endsAtMarks); // room for six marks
            QCOMPARE(axis.marks().size(), marks.size());
            for (int i = 0; i < marks.size(); ++i)
                QVERIFY(qAbs(axis.marks().at(i) - marks.at(i)) < 1e-9 * (1.0 + to));
            QCOMPARE(axis.decimals(), decimals);
            QCOMPARE(axis.number(axis.pixel(to)), to);
            QVERIFY(axis.from() <= from && axis.to() >= to);
        });
    }
};

template class KRTestRegistration<tst_KRElevationProfile>;

#include "tst_KRElevationProfile.moc"
