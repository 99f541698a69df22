#include <KRGeoLocation/KRLatitude.h>
#include <KRGeoLocation/KRLongitude.h>

#include "KRRecordingTranslator.h"
#include "KRTest.h"

#include <cmath>

namespace {

constexpr double invalid = KRGeoArc::invalidDegrees;

} // namespace

/// Longitudes, and latitudes, which are written and read in the same way.
class tst_KRLongitude : public QObject
{
    Q_OBJECT

private slots:
    void parse()
    {
        const KRTestTable<KRText, double, double> table{
            {"south", "S53.5", -53.5, invalid},
            {"east", "E53.5", invalid, 53.5},
            {"no letter", "-53.5", -53.5, -53.5},
            {"sign and letter multiply", "S-53.5", 53.5, invalid},
            {"blank behind the letter", "N 53.5", 53.5, invalid},
            {"lower case", "n53.5", invalid, invalid},
            {"blank in front of the letter", " N53.5", invalid, invalid},
            {"the German letter is none", "O53.5", invalid, invalid},
            {"too large for a number", "S1e400", invalid, invalid},
            {"empty", {}, invalid, invalid},
        };
        table.forEach([](const QString &text, double latitude, double longitude) {
            QCOMPARE(KRLatitude::parse(text).decimalDegrees(), latitude);
            QCOMPARE(KRLongitude::parse(text).decimalDegrees(), longitude);
        });
        for (const double degrees : {-90.0, -33.8688, -1e-8, 0.0, 53.14118, 123.456}) {
            QCOMPARE(KRLatitude::parse(KRLatitude(degrees).toString(false)).decimalDegrees(), degrees);
            QCOMPARE(KRLongitude::parse(KRLongitude(degrees).toString(false)).decimalDegrees(), degrees);
        }
    }

    void folding()
    {
        // Both ends stay as they are, and what lies between them.
        for (int degrees = -2000; degrees <= 2000; ++degrees) {
            const double longitude = KRLongitude::safeLongitude(degrees).decimalDegrees();
            QCOMPARE(std::fmod(degrees - longitude, 360.0), 0.0);
            QVERIFY(std::abs(longitude) <= 180.0 && (std::abs(degrees) > 180 || longitude == degrees));
            QCOMPARE(KRLongitude(degrees).normalized().decimalDegrees(), longitude);
            // Intended: half a turn for latitudes, not a reflection.
            const double latitude = KRLatitude::safeLatitude(degrees).decimalDegrees();
            QCOMPARE(std::fmod(degrees - latitude, 180.0), 0.0);
            QVERIFY(std::abs(latitude) <= 90.0 && (std::abs(degrees) > 90 || latitude == degrees));
        }
        const KRTestTable<double, double> table{
            {"many turns", 360e9 + 30.0, 30.0},
            {"infinite", qInf(), invalid},
            {"not a number", qQNaN(), invalid},
        };
        table.forEach([](double degrees, double expected) {
            QCOMPARE(KRLatitude::safeLatitude(degrees).decimalDegrees(), expected);
            QCOMPARE(KRLongitude::safeLongitude(degrees).decimalDegrees(), expected);
            QCOMPARE(KRLongitude(degrees).normalized().decimalDegrees(), expected);
        });
        QVERIFY(KRLatitude::safeLatitude(1e300).isInValidRange());
        QVERIFY(KRLongitude(-1e300).normalized().isInValidRange());
    }

    void bands()
    {
        // of a latitude: inside, bounded, with a distance of 0.01 to the poles; each holds for the south as well
        const KRTestTable<double, bool, double, double> table{
            {"closer to the pole than 0.01", 89.995, true, 89.995, 89.995},
            {"within the tolerance of the pole", 89.9999995, true, 89.9999995, 89.99},
            {"pole", 90.0, true, 90.0, 89.99},
            {"a hair beyond", 90.0000005, true, 90.0, 89.99},
            {"beyond", 95.0, false, 90.0, 89.99},
        };
        table.forEach([](double degrees, bool isInside, double bounded, double caught) {
            for (const double sign : {1.0, -1.0}) {
                const KRLatitude latitude = sign * degrees;
                QCOMPARE(latitude.isInValidRange(), isInside);
                QCOMPARE(latitude.bounded().decimalDegrees(), sign * bounded);
                QCOMPARE(latitude.catchOutOfBound().decimalDegrees(), sign * caught);
                const KRLongitude longitude = sign * (90.0 + degrees);
                QCOMPARE(longitude.isInValidRange(), isInside);
                QCOMPARE(longitude.bounded().decimalDegrees(), sign * (90.0 + bounded));
            }
        });
        QVERIFY(!KRLongitude().isInValidRange());
    }

    void eastAndWest()
    {
        // The shorter way counts, opposite places are neither, and the date line has two names.
        for (int a = -180; a <= 180; a += 10) {
            for (int b = -180; b <= 180; b += 10) {
                const int eastwards = (a - b + 720) % 360;
                QCOMPARE(KRLongitude(a).isEastOf(b), eastwards > 0 && eastwards < 180);
                QCOMPARE(KRLongitude(a).isWestOf(b), eastwards > 180);
                // Numbers are compared as they are.
                QCOMPARE(KRLongitude(a) > b, a > b);
                QCOMPARE(KRLongitude(a) == b, a == b);
            }
        }
    }

    void hemispheres()
    {
        const KRTestTable<double, bool> table{
            {"prime meridian", 0.0, false},        {"a little west", -1e-9, true},
            {"date line", 180.0, false},           {"date line from the west", -180.0, false},
            {"beyond the date line", 190.0, true}, {"beyond the date line westwards", -190.0, false},
        };
        table.forEach([](double degrees, bool isWestern) {
            QCOMPARE(KRLongitude(degrees).isInWesternHemisphere(), isWestern);
            QCOMPARE(KRLongitude(degrees).isInEasternHemisphere(), !isWestern);
        });
        for (const double degrees : {0.0, -1e-9, 1e-9}) {
            QCOMPARE(KRLatitude(degrees).isInSouthernHemisphere(), degrees < 0.0);
            QCOMPARE(KRLatitude(degrees).isInNorthernHemisphere(), degrees >= 0.0);
            QCOMPARE(KRLatitude(degrees).isNorthOf(0.0), degrees > 0.0);
            QCOMPARE(KRLatitude(degrees).isSouthOf(0.0), degrees < 0.0);
        }
    }

    void texts()
    {
        const auto textsOf = [](const auto &angle) {
            QString debugText;
            QDebug(&debugText) << angle;
            return angle.toString(true) + QLatin1Char('|') + angle.toString(false) + QLatin1Char('|') + debugText;
        };
        const KRTestTable<KRText, KRText> table{
            {"south", textsOf(KRLatitude(-8.5)), "8° 30′ 0″ Süd|S8.50000000|S8.50000000 "},
            // Intended: the seconds are rounded for themselves.
            {"sixty seconds", textsOf(KRLatitude(8.2)), "8° 11′ 60″ Nord|N8.20000000|N8.20000000 "},
            {"invalid latitude", textsOf(KRLatitude()), "|| "},
            {"east", textsOf(KRLongitude(8.5)), "8° 30′ 0″ Ost|E8.50000000|E8.50000000 "},
            {"date line", textsOf(KRLongitude(-180.0)), "180° 0′ 0″ Ost|E180.00000000|E180.00000000 "},
            // Intended: the letter tells the hemisphere of the meridian, the number is not folded.
            {"beyond", textsOf(KRLongitude(190.0)), "190° 0′ 0″ West|W190.00000000|W190.00000000 "},
            {"invalid longitude", textsOf(KRLongitude()), "|| "},
        };
        table.forEach([](const QString &texts, const QString &expected) { QCOMPARE(texts, expected); });
        for (const bool isLong : {true, false})
            QVERIFY(KRLatitude().toString(isLong).isNull() && KRLongitude().toString(isLong).isNull());
    }

    void textsAreTranslated()
    {
        const KRRecordingTranslator translator;
        for (const double degrees : {1.0, -1.0}) {
            for (const bool isLong : {true, false})
                QVERIFY(!KRLatitude(degrees).toString(isLong).isEmpty());
            for (const bool isLong : {true, false})
                QVERIFY(!KRLongitude(degrees).toString(isLong).isEmpty());
        }
        // Blanks and spelling of the comments belong to the key of existing translations.
        const QStringList expected = {
            QStringLiteral("QObject|%1° %2′ %3″ Nord|Coordinate / Nautical Bearing  Latitude  Breite"),
            QStringLiteral("KRLatitude|N|short for 'north'"),
            QStringLiteral("QObject|%1° %2′ %3″ Ost|Coordinate / Nautilal Bearing   Longitude/Länge"),
            QStringLiteral("KRLongitude|E|short for 'east'"),
            QStringLiteral("QObject|%1° %2′ %3″ Süd|Coordinate / Nautical Bearing  Latitude  Breite"),
            QStringLiteral("KRLatitude|S|short for 'south'"),
            QStringLiteral("QObject|%1° %2′ %3″ West|Coordinate / Nautilal Bearing   Longitude/Länge"),
            QStringLiteral("KRLongitude|W|short for 'west'"),
        };
        QCOMPARE(translator.requests(), expected);
    }
};

template class KRTestRegistration<tst_KRLongitude>;

#include "tst_KRLongitude.moc"
