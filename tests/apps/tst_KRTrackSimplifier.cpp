#include "KRTrackSimplifier.h"

#include "KRTest.h"

#include <KRGeoLocation/KRGPXBeelineCreator.h>
#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <cmath>

namespace {

constexpr double metresPerDegree = 111177.4733520461; // on the sphere of 6370 km

struct Place {
    double x;
    double y;
};

KRGPXTrackSegment spawnSegment(const QVector<Place> &metres, double longitude, double latitude)
{
    const double scale = std::cos(latitude * 3.14159265358979 / 180.0);
    KRGPXTrackSegment segment;
    for (const Place &place : metres) {
        const double eastern = longitude + place.x / metresPerDegree / scale;
        segment.append(latitude + place.y / metresPerDegree, eastern > 180.0 ? eastern - 360.0 : eastern,
                       segment.count() + 1, QDateTime::fromSecsSinceEpoch(segment.count(), Qt::UTC),
                       QString::number(segment.count()));
    }
    return segment;
}

KRGPXConfiguredTrack configured(const QList<KRGPXTrackSegment> &segments)
{
    return KRGPXConfiguredTrack(KRGPXTrack(QStringLiteral("T"), QStringLiteral("D"), segments, LineStringTrackShape),
                                KRGPXTrackConfiguration());
}

KRGPXConfiguredTrack spawnTrack(const QVector<Place> &metres, double longitude = 8.0, double latitude = 53.0)
{
    return configured({spawnSegment(metres, longitude, latitude)});
}

QString numbersLeft(const KRGPXConfiguredTrack &track)
{
    QStringList numbers;
    for (const KRGPXTrackSegment &segment : track.track().segments()) {
        for (const KRGPXTrackPoint &point : segment.trackPoints())
            numbers.append(point.description());
    }
    return numbers.join(QLatin1Char(' '));
}

} // namespace

class tst_KRTrackSimplifier : public QObject
{
    Q_OBJECT

private slots:
    void leavesOut()
    {
        const KRTestTable<double, const char *> table{
            {"none: only what lies on the line", 0.0, "0 2 3 4 7"},
            {"below the bump", 9.0, "0 3 4 7"},
            {"above the bump", 11.0, "0 4 7"},
            {"above everything", 1e9, "0 7"},
        };
        table.forEach([&](double tolerance, const char *left) {
            // Along a line with a bump of 10 metres, then round a corner.
            const KRGPXConfiguredTrack track =
                spawnTrack({{0, 0}, {50, 0}, {100, 0}, {150, 10}, {1000, 0}, {1000, 10.5}, {1000, 500}, {1000, 1000}});
            const KRTrackSimplifier simplifier(track);
            const KRGPXConfiguredTrack simplified = simplifier.simplified(tolerance);
            QCOMPARE(numbersLeft(simplified), QString::fromUtf8(left));
            QCOMPARE(simplifier.countPoints(tolerance), simplified.track().countPoints());
            QCOMPARE(simplifier.countAllPoints(), 8);
            QVERIFY(simplified.configuration() == track.configuration());
            // Points are left as they were.
            QVERIFY(simplified.track().segments().first().trackPoints().last()
                    == track.track().segments().first().trackPoints().last());
        });
    }

    void metresAnywhere()
    {
        const KRTestTable<double, double> table{
            {"equator", 8.0, 0.5},
            {"north", 8.0, 80.0},
            {"date line", 179.9995, 53.0},
        };
        table.forEach([&](double longitude, double latitude) {
            // A bump of 10 metres is one of 10 metres everywhere, in either direction.
            for (const QVector<Place> &places :
                 {QVector<Place>{{0, 0}, {50, 10}, {100, 0}}, {{0, 0}, {10, 50}, {0, 100}}}) {
                const KRTrackSimplifier simplifier(spawnTrack(places, longitude, latitude));
                QCOMPARE(simplifier.countPoints(9.9), 3);
                QCOMPARE(simplifier.countPoints(10.1), 2);
            }
        });
    }

    void staysWithinTolerance()
    {
        QVector<Place> walk;
        double direction = 0.0;
        for (int i = 0; i < 3000; ++i) {
            direction += std::sin(i * 0.37) + std::cos(i * 0.011);
            const Place last = walk.isEmpty() ? Place{0, 0} : walk.last();
            walk.append({last.x + 10 * std::cos(direction), last.y + 10 * std::sin(direction)});
        }
        const KRTrackSimplifier simplifier(spawnTrack(walk));
        int countBefore = simplifier.countAllPoints();
        for (const double tolerance : {1.0, 5.0, 20.0, 100.0}) {
            const QStringList left = numbersLeft(simplifier.simplified(tolerance)).split(QLatin1Char(' '));
            QVERIFY(left.size() < countBefore);
            countBefore = left.size();
            int next = 0;
            for (int i = 0; i < walk.size() - 1; ++i) {
                if (i == left.at(next).toInt())
                    ++next;
                const auto place = [&](int k) { return QPointF(walk.at(k).x, walk.at(k).y); };
                const QPointF from = place(left.at(next - 1).toInt());
                const QPointF way = place(left.at(next).toInt()) - from;
                const double square = QPointF::dotProduct(way, way);
                const double part = square > 0 ? QPointF::dotProduct(place(i) - from, way) / square : 0.0;
                const double away = QLineF(from + qBound(0.0, part, 1.0) * way, place(i)).length();
                QVERIFY2(away < tolerance * 1.01, qPrintable(QString::number(away)));
            }
        }
    }

    void keepsRings()
    {
        QVector<Place> circle;
        for (int i = 0; i <= 36; ++i)
            circle.append({100 * std::cos(i % 36 * 0.1745329), 100 * std::sin(i % 36 * 0.1745329)});
        KRGPXTrack area = spawnTrack(circle).track();
        area.addEnclave(
            KRGPXTrack(QStringLiteral("E"), QString(), {spawnSegment(circle, 8.0, 53.0)}, PolygonTrackShape));
        const KRTrackSimplifier simplifier(KRGPXConfiguredTrack(area, KRGPXTrackConfiguration()));
        const KRGPXConfiguredTrack simplified = simplifier.simplified(1e6);
        QCOMPARE(simplified.track().countPoints(), 4);
        QVERIFY(simplified.naturalShape() == PolygonTrackShape);
        QCOMPARE(simplified.track().enclaves().value(0).countPoints(), 4);
        QCOMPARE(simplified.track().enclaves().value(0).name(), QStringLiteral("E"));
        QCOMPARE(simplifier.countPoints(1e6), 8);
        QCOMPARE(simplifier.countPoints(1.0), 74);
    }

    void keepsFlightLine()
    {
        // Its points lie on one great circle, but maps join them by straight lines.
        const KRGPXTrack flight =
            KRGPXBeelineCreator(KRGeoPosition(53.0, 8.0), KRGeoPosition(40.7, -74.0)).createBeeline(QString());
        const KRGPXConfiguredTrack track(flight, KRGPXTrackConfiguration());
        QCOMPARE(KRTrackSimplifier(track).countPoints(100.0), flight.countPoints());
    }

    void keepsSegmentsAndOddPoints()
    {
        KRGPXTrackSegment odd = spawnSegment({{0, 0}, {50, 0}, {100, 0}}, 8.0, 53.0);
        odd.append(720.0, 720.0, 0, QDateTime(), QStringLiteral("nowhere"));
        odd.append(95.0, 8.0, 0, QDateTime(), QStringLiteral("beyond the pole"));
        const KRGPXConfiguredTrack track = configured({odd, KRGPXTrackSegment(), spawnSegment({{0, 0}}, 9.0, 53.0)});
        const KRGPXConfiguredTrack simplified = KRTrackSimplifier(track).simplified(10.0);
        QCOMPARE(simplified.track().segments().size(), 3);
        QVERIFY(numbersLeft(simplified).contains(QStringLiteral("nowhere")));
        QVERIFY(numbersLeft(simplified).contains(QStringLiteral("beyond the pole")));
        QCOMPARE(KRTrackSimplifier(KRGPXConfiguredTrack()).countPoints(1.0), 0);
    }

    void manyPoints()
    {
        // With time n² each of these would take minutes. What each point adds: eastwards, northwards, to odd points.
        const KRTestTable<double, double, double, int> table{
            {"zigzag", 30.0, 0.0, 20.0, 99000},
            {"one place", 0.0, 0.0, 0.0, 0},
            {"straight", 0.1, 0.2, 0.0, 0},
            {"growing zigzag", 0.1, 0.0, -0.001, 0},
        };
        table.forEach([](double east, double north, double odd, int atLeast) {
            QVector<Place> places;
            for (int i = 0; i < 100000; ++i)
                places.append({i * east, i * north + i % 2 * (odd < 0.0 ? -odd * i : odd)});
            const KRTrackSimplifier simplifier(spawnTrack(places));
            QVERIFY(simplifier.countPoints(1e5) < 5);
            QVERIFY(simplifier.countPoints(1.0) > atLeast);
        });
    }
};

template class KRTestRegistration<tst_KRTrackSimplifier>;

#include "tst_KRTrackSimplifier.moc"
