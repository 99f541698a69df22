#include <KRGeoLocation/KRGeoPosition.h>
#include <KRGeoLocation/KRGeoPositionSamples.h>

#include "KRTest.h"
#include "KRTestXml.h"

#include <KRCore/KRMath.h>

namespace {

constexpr double kmPerDegree = 6370.0 * 3.141592653589793 / 180.0;

} // namespace

class tst_KRGeoPosition : public QObject
{
    Q_OBJECT

private slots:
    void isValid()
    {
        const KRTestTable<KRGeoPosition, bool> table{
            {"by default", KRGeoPosition(), false},
            // Intended: (0, 0) counts as no position, though it is one in the Gulf of Guinea.
            {"null", KRGeoPosition::null(), false},
            {"next to null", KRGeoPosition(0.0, 0.000001), true},
            {"any angle will do", KRGeoPosition(-360.0, 360.0), true},
            {"no latitude", KRGeoPosition(KRLatitude(), 8.0), false},
            {"no longitude", KRGeoPosition(53.0, 361.0), false},
            {"not a number", KRGeoPosition(qQNaN(), 8.0), false},
        };
        table.forEach([](const KRGeoPosition &position, bool expected) {
            QCOMPARE(position.isValid(), expected);
            QDomElement parent = KRTestXml::element("<p/>");
            position.writeToXml(parent);
            QCOMPARE(parent.attributes().size(), expected ? 2 : 0);
        });
    }

    void constructionFromHemispheres()
    {
        QCOMPARE(KRGeoPosition(53.0, 'N', 8.0, 'E').toPointF(), QPointF(8.0, 53.0));
        QCOMPARE(KRGeoPosition(53.0, 'S', -8.0, 'W').toPointF(), QPointF(8.0, -53.0));
        // Anything but the two capitals negates.
        QCOMPARE(KRGeoPosition(53.0, 'n', 8.0, 'O').toPointF(), QPointF(-8.0, -53.0));
    }

    void parse()
    {
        const KRGeoPosition position(53.14, 8.21);
        const KRTestTable<KRText, KRGeoPosition> table{
            {"any run of blanks, and around", " N53.14 \t\n E8.21 ", position},
            {"south west", "S53.14 W8.21", KRGeoPosition(-53.14, -8.21)},
            {"three words", "N53.14 E8.21 E8.21", KRGeoPosition()},
            {"empty", {}, KRGeoPosition()},
            {"longitude first", "E8.21 N53.14", KRGeoPosition()},
            {"one unreadable: both unset", "N53.14 Ost", KRGeoPosition()},
            {"one out of all range: both unset", "N53.14 E361", KRGeoPosition()},
            {"null reads, though it is not valid", "N0 E0", KRGeoPosition::null()},
        };
        table.forEach(
            [](const QString &text, const KRGeoPosition &expected) { QCOMPARE(KRGeoPosition::parse(text), expected); });
    }

    void fromString()
    {
        const KRGeoPosition position(53.0 + 8.0 / 60.0, 8.2);
        QCOMPARE(KRGeoPosition::fromString(QStringLiteral("53,8,0N; 8,12,0E;1,2,3")), position);
        QCOMPARE(KRGeoPosition::fromString(QStringLiteral("53,8,0N 8,12,0E")), KRGeoPosition());
        QCOMPARE(KRGeoPosition::fromString(QStringLiteral(";53,8,0N;8,12,0E")), KRGeoPosition());
        QCOMPARE(KRGeoPosition::fromString(QStringLiteral("53,8,0N; 8,12")), KRGeoPosition());
    }

    void xml()
    {
        QCOMPARE(KRGeoPosition::fromXml(KRTestXml::element("<p/>")), KRGeoPosition(-720.0, -720.0));
        QCOMPARE(KRGeoPosition::fromXml(KRTestXml::element("<p latitude='N3' longitude='8,2'/>")),
                 KRGeoPosition(0.0, 0.0));
        QCOMPARE(KRGeoPosition::fromXml(KRTestXml::element("<p latitude='' longitude='8'/>")), KRGeoPosition(0.0, 8.0));
        QCOMPARE(KRGeoPosition::fromXml(KRTestXml::element("<p latitude='95' longitude='400'/>")),
                 KRGeoPosition(95.0, 400.0));
        for (const KRGeoPosition &position : {KRGeoPosition(53.14118, -8.21467), KRGeoPosition(-1.0 / 3.0, 1e-7)}) {
            QDomElement parent = KRTestXml::element("<p/>");
            position.writeToXml(parent);
            // To the last digit: a new value would be another one.
            KRGeoPosition readBack = KRGeoPosition::fromXml(parent);
            QVERIFY(!readBack.setLatitude(position.latitude()));
            QVERIFY(!readBack.setLongitude(position.longitude()));
            QVERIFY(readBack.setLatitude(position.latitude() + 1e-7));
            QVERIFY(readBack.setLongitude(position.longitude() + 1e-7));
        }
    }

    void order()
    {
        const KRTestTable<KRGeoPosition, KRGeoPosition, bool, bool, bool> table{
            {"latitude decides", KRGeoPosition(1.0, 5.0), KRGeoPosition(2.0, 0.0), true, false, false},
            {"latitudes almost equal", KRGeoPosition(1.0000005, 2.0), KRGeoPosition(1.0, 3.0), true, false, false},
            {"equal within the tolerance, longitude less", KRGeoPosition(1.0000005, 2.0), KRGeoPosition(1.0, 2.0000005),
             true, false, true},
        };
        table.forEach([](const KRGeoPosition &a, const KRGeoPosition &b, bool isLess, bool isGreater, bool isEqual) {
            QCOMPARE(a < b, isLess);
            QCOMPARE(b > a, isLess);
            QCOMPARE(a > b, isGreater);
            QCOMPARE(b < a, isGreater);
            QCOMPARE(a == b, isEqual);
            QCOMPARE(a != b, !isEqual);
        });
    }

    void directions()
    {
        const KRGeoPosition auckland(-36.85, 174.76);
        const KRGeoPosition honolulu(21.32, -157.86);
        QVERIFY(honolulu.isNorthOf(auckland) && auckland.isSouthOf(honolulu)
                && !auckland.isNorthOf(KRLatitude(-36.85)));
        // The way across the date line is the shorter one.
        QVERIFY(honolulu.isEastOf(auckland) && auckland.isWestOf(honolulu) && !auckland.isWestOf(KRLongitude(0.0)));
        QVERIFY(auckland.isInSouthernHemisphere() && auckland.isInEasternHemisphere());
        QVERIFY(honolulu.isInNorthernHemisphere() && honolulu.isInWesternHemisphere());
        QCOMPARE(KRGeoPosition(95.0, 190.0).normalized().toPointF(), QPointF(-170.0, 95.0));
    }

    void sums()
    {
        KRGeoPosition sum = KRGeoPosition::null();
        sum += KRGeoPosition(10.0, 170.0);
        const KRGeoPosition shared = sum;
        sum += KRGeoPosition(20.0, 190.0);
        QCOMPARE(shared.toPointF(), QPointF(170.0, 10.0));
        QCOMPARE((sum / 2.0).toPointF(), QPointF(180.0, 15.0));
        sum += sum;
        QCOMPARE(sum.toPointF(), QPointF(720.0, 60.0));
        QCOMPARE(KRGeoPosition(1.0, 2.0) + KRGeoPosition(-3.0, 4.0), KRGeoPosition(-2.0, 6.0));
        QCOMPARE(KRGeoPosition(1.0, 0.0) / 0.0, KRGeoPosition());
    }

    void moving()
    {
        const KRGeoPosition pole(90.0, 0.0);
        QVERIFY(KRMath::epsilonEqual(pole.latitudeDeviation(1.852).decimalDegrees(), 1.0 / 60.0, 1e-9));
        QVERIFY(
            KRMath::epsilonEqual(KRGeoPosition(60.0, 8.0).longitudeDeviation(kmPerDegree).decimalDegrees(), 2.0, 1e-9));
        // No distance is no difference, wherever that is.
        QCOMPARE(pole.longitudeDeviation(0.0).decimalDegrees(), 0.0);
        QCOMPARE(KRGeoPosition(qQNaN(), 8.0).longitudeDeviation(0.0).decimalDegrees(), 0.0);
        QVERIFY(std::abs(pole.longitudeDeviation(1.0).decimalDegrees()) > 1e9);

        const KRGeoPosition start(53.0, 8.0);
        for (const double km : {10.0, -10.0}) {
            const KRGeoPosition north = start.moveNorthBy(km);
            const KRGeoPosition east = start.moveEastBy(km);
            QCOMPARE(north.longitude().decimalDegrees(), 8.0);
            QCOMPARE(east.latitude().decimalDegrees(), 53.0);
            QCOMPARE(north.isNorthOf(start), km > 0.0);
            QCOMPARE(east.isEastOf(start), km > 0.0);
            // A nautical mile per minute makes a slightly smaller earth than the sphere of distance().
            QVERIFY(KRMath::epsilonEqual(start.distance(north), 10.0, 0.01));
            QVERIFY(KRMath::epsilonEqual(start.distance(east), 10.0, 0.0001));
        }
    }

    void distance()
    {
        const KRGeoPosition here(53.0, 8.0);
        constexpr double unknown = 6370000.0;
        const KRTestTable<KRGeoPosition, KRGeoPosition, double> table{
            {"same place", here, here, 0.0},
            {"across the date line", KRGeoPosition(0.0, 179.5), KRGeoPosition(0.0, -179.5), kmPerDegree},
            {"across the pole", KRGeoPosition(89.0, 8.0), KRGeoPosition(89.0, -172.0), 2.0 * kmPerDegree},
            // Nashville and Los Angeles airports: 2887.25995 km on a sphere of 6372.8 km, often given as worked
            // example.
            {"long way", KRGeoPosition(36.12, -86.67), KRGeoPosition(33.94, -118.40), 2887.2599506071 * 6370 / 6372.8},
            {"null", here, KRGeoPosition::null(), unknown},
            {"null to itself", KRGeoPosition::null(), KRGeoPosition::null(), unknown},
            {"nowhere", here, KRGeoPosition(), unknown},
            {"not a number", here, KRGeoPosition(qQNaN(), 8.0), unknown},
        };
        table.forEach([](const KRGeoPosition &a, const KRGeoPosition &b, double expectedKm) {
            for (const double km : {a.distance(b), b.distance(a)})
                QVERIFY2(KRMath::epsilonEqual(km, expectedKm, 1e-6), qPrintable(QString::number(km, 'f', 9)));
        });
    }

    void distanceOfAntipodes()
    {
        // Rounding lifts the haversine above 1 for about every twenty-seventh pair.
        QRandomGenerator random(1);
        for (int i = 0; i < 2000; ++i) {
            const double latitude = random.bounded(180.0) - 90.0;
            const double longitude = random.bounded(180.0) - 180.0;
            const double km = KRGeoPosition(latitude, longitude).distance(KRGeoPosition(-latitude, longitude + 180.0));
            QVERIFY2(KRMath::epsilonEqual(km, 180.0 * kmPerDegree, 0.001), qPrintable(QString::number(km, 'f', 9)));
        }
    }

    void texts()
    {
        const KRTestTable<KRGeoPosition, KRText, KRText> table{
            {"valid", KRGeoPosition(53.5, -8.25), "53° 30′ 0″ Nord<br>8° 15′ 0″ West", "N53.50000000; W8.25000000"},
            {"null", KRGeoPosition::null(), "0° 0′ 0″ Nord<br>0° 0′ 0″ Ost", "N0.00000000; E0.00000000"},
            {"half", KRGeoPosition(53.5, 720.0), "N53.50000000; ", "N53.50000000; "},
            {"unset", KRGeoPosition(), "; ", "; "},
        };
        table.forEach([](const KRGeoPosition &position, const QString &longText, const QString &shortText) {
            QCOMPARE(position.toString(true), longText);
            QCOMPARE(position.toString(false), shortText);
        });
        QUrlQuery query;
        KRGeoPosition(53.5, -8.25).writeTo(query);
        QCOMPARE(query.toString(), QStringLiteral("latitude=53.5000000000000000&longitude=-8.2500000000000000"));
        QString text;
        QDebug(&text) << KRGeoPosition(53.1411849, 8.21467);
        QCOMPARE(text, QStringLiteral("Lat 53.141185 ; Lon 8.21467 "));
    }

    void samples()
    {
        const KRGeoPositionSamples *const samples = KRGeoPositionSamples::instance();
        QString texts;
        for (int number = -1; number <= 13; ++number) { // callers may hold any number
            const auto sample = static_cast<KRGeoPositionSamplesEnum>(number);
            QCOMPARE(samples->position(sample).latitude(), samples->latitude(sample));
            QCOMPARE(samples->position(sample).longitude(), samples->longitude(sample));
            QCOMPARE(samples->name(sample).isNull(), !samples->position(sample).isValid());
            texts += samples->name(sample) + QLatin1Char(' ')
                     + QString::number(samples->latitude(sample).decimalDegrees(), 'g', 12) + QLatin1Char(' ')
                     + QString::number(samples->longitude(sample).decimalDegrees(), 'g', 12) + QLatin1Char('|');
        }
        // One of them in its settled spelling.
        QCOMPARE(
            texts,
            QStringLiteral(" 720 720|Oldenburg 53.14118 8.21467|Bremen 53.0792962 8.806422|"
                           "Wellington -41.28646 174.772996908|Sydney -33.865143 151.2099|New York 40.73061 -73.935242|"
                           "LA 34.052235 -118.243683|Honolulu 21.315603 -157.858093|Polynesien -17.679742 -149.3729275|"
                           "Greenich 51.507351 0|Windhoek -22.5631 17.0786|Helsinki 60.169471 24.929667|"
                           "Gibraltar 36.140751 -5.353585|Passau 48.5667364 13.4319466| 720 720|"));
    }
};

template class KRTestRegistration<tst_KRGeoPosition>;

#include "tst_KRGeoPosition.moc"
