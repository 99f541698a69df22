#include <KRGeoLocation/KRGPXBeelineCreator.h>

#include "KRTest.h"

#include <cmath>

class tst_KRGPXBeelineCreator : public QObject
{
    Q_OBJECT

private slots:
    void numberOfIntermediatePoints()
    {
        const KRTestTable<KRGeoPosition, KRGeoPosition, int> table{
            // A degree of longitude at latitude 0.5 is 111.17 km.
            {"199.5 km apart", KRGeoPosition(0.5, 10.0), KRGeoPosition(0.5, 11.7945), 0},
            {"200.5 km apart", KRGeoPosition(0.5, 10.0), KRGeoPosition(0.5, 11.8035), 1},
            {"one meridian", KRGeoPosition(-60.0, 10.0), KRGeoPosition(60.0, 10.0), 0},
            {"one meridian, two numbers: round the globe", KRGeoPosition(10.0, 180.0), KRGeoPosition(50.0, -180.0),
             132},
            {"to no position", KRGeoPosition(53.0, 8.0), KRGeoPosition(), 0},
            {"to (0, 0), which is no position either", KRGeoPosition(53.0, 8.0), KRGeoPosition::null(), 24},
            {"infinite", KRGeoPosition(53.0, qInf()), KRGeoPosition(53.0, 100.0), 0},
        };
        table.forEach([](const KRGeoPosition &from, const KRGeoPosition &to, int expected) {
            const KRGPXBeelineCreator creator(from, to);
            QCOMPARE(creator.createIntermediatePoints().size(), expected);
        });
    }

    void middle()
    {
        const KRTestTable<KRGeoPosition, KRGeoPosition, double, double> table{
            // Between equal latitudes the vertex of the great circle: tan(vertex) = tan(latitude) / cos(half the
            // difference).
            {"northern hemisphere", KRGeoPosition(40.0, -60.0), KRGeoPosition(40.0, 60.0), 0.0, 59.2103},
            {"across the date line", KRGeoPosition(40.0, 120.0), KRGeoPosition(40.0, -120.0), 180.0, 59.2103},
        };
        table.forEach([](const KRGeoPosition &from, const KRGeoPosition &to, double middle, double latitude) {
            const KRGPXBeelineCreator creator(from, to);
            const KRLongitude longitude = creator.findLogicalCenterLongitude();
            QCOMPARE(std::abs(longitude.decimalDegrees()), middle);
            QVERIFY(std::abs(creator.estimateOptimalLatitude(longitude).decimalDegrees() - latitude) < 0.0002);
        });
    }

    void isTheShortestWay()
    {
        const KRTestTable<KRGeoPosition, KRGeoPosition> table{
            {"across the Atlantic", KRGeoPosition(40.73061, -73.935242), KRGeoPosition(53.0792962, 8.806422)},
            {"date line and equator", KRGeoPosition(-41.28646, 174.772996908), KRGeoPosition(21.315603, -157.858093)},
            {"westwards across the date line", KRGeoPosition(60.0, -150.0), KRGeoPosition(35.0, 140.0)},
        };
        table.forEach([](const KRGeoPosition &from, const KRGeoPosition &to) {
            const KRGeoPositionList points = KRGPXBeelineCreator(from, to).createPoints();
            QCOMPARE(points.first(), from);
            QCOMPARE(points.last(), to);
            double wayKm = 0.0;
            for (int i = 1; i < points.size(); ++i) {
                const double legKm = points.at(i - 1).distance(points.at(i));
                QVERIFY(legKm < 200.0);
                wayKm += legKm;
            }
            QVERIFY2(wayKm < 1.001 * from.distance(to), QByteArray::number(wayKm).constData());
        });
    }

    void endsNearThePolesAndNeverBeyond80()
    {
        const KRTestTable<KRGeoPosition, KRGeoPosition> table{
            {"200 near the pole", KRGeoPosition(85.0, 200.0), KRGeoPosition(-90.0, -160.0)},
            {"latitudes that do not exist", KRGeoPosition(95.0, 10.0), KRGeoPosition(-120.0, 200.0)},
            {"across the pole", KRGeoPosition(70.0, 10.0), KRGeoPosition(70.0, -169.0)},
        };
        table.forEach([](const KRGeoPosition &from, const KRGeoPosition &to) {
            const KRGeoPositionList points = KRGPXBeelineCreator(from, to).createIntermediatePoints();
            QVERIFY2(points.size() > 10 && points.size() < 600, QByteArray::number(points.size()).constData());
            for (const KRGeoPosition &point : points)
                QVERIFY(std::abs(point.latitude().decimalDegrees()) <= 80.0);
        });
    }

    void track()
    {
        const KRGeoPosition from(40.0, -60.0);
        const KRGeoPosition to(40.0, 60.0);
        const QDateTime before = QDateTime::currentDateTime();
        const KRGPXTrack track = KRGPXBeelineCreator(from, to).createBeeline(QStringLiteral("Reise"));
        const QDateTime after = QDateTime::currentDateTime();
        QCOMPARE(track.name(), QStringLiteral("Reise"));
        QCOMPARE(track.description(), QStringLiteral("Fluglinie"));
        QCOMPARE(track.shape().value(), LineStringTrackShape);
        QCOMPARE(track.segments().size(), 1);
        QCOMPARE(track.allPoints(), KRGPXBeelineCreator(from, to).createPoints());
        for (const KRGPXTrackPoint &point : track.segments().first().trackPoints()) {
            QVERIFY(point.timeStamp() >= before && point.timeStamp() <= after);
            QCOMPARE(point.elevation(), 0);
        }
    }
};

template class KRTestRegistration<tst_KRGPXBeelineCreator>;

#include "tst_KRGPXBeelineCreator.moc"
