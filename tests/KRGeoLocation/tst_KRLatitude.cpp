#include <KRGeoLocation/KRLatitude.h>

#include "KRRecordingTranslator.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QDebug>
#include <QtTest>

#include <limits>

class tst_KRLatitude : public QObject
{
    Q_OBJECT

private slots:
    void parse();
    void safeLatitude();
    void band();
    void hemispheres();
    void operatorsKeepTheType();
    void texts();
    void textsAreTranslated();
    void shortTextReadsBack();
    void debugStream();
};

void tst_KRLatitude::parse()
{
    const KRTestTable<QString, double> table{
        {"north", QStringLiteral("N53.5"), 53.5},
        {"south", QStringLiteral("S53.5"), -53.5},
        {"no letter", QStringLiteral("53.5"), 53.5},
        {"sign and letter multiply", QStringLiteral("S-53.5"), 53.5},
        {"blank behind the letter", QStringLiteral("N 53.5"), 53.5},
        {"beyond the pole", QStringLiteral("S120"), -120.0},
        {"lower case", QStringLiteral("n53.5"), KRGeoArc::invalidDegrees},
        {"blank in front of the letter", QStringLiteral(" N53.5"), KRGeoArc::invalidDegrees},
        {"letter at the end", QStringLiteral("53.5N"), KRGeoArc::invalidDegrees},
        {"letter of a longitude", QStringLiteral("E53.5"), KRGeoArc::invalidDegrees},
        {"two letters", QStringLiteral("NS53.5"), KRGeoArc::invalidDegrees},
        {"decimal comma", QStringLiteral("N53,5"), KRGeoArc::invalidDegrees},
        {"too large for a number", QStringLiteral("S1e400"), KRGeoArc::invalidDegrees},
        {"only the letter", QStringLiteral("S"), KRGeoArc::invalidDegrees},
        {"empty", {}, KRGeoArc::invalidDegrees},
    };
    table.forEach(
        [](const QString &text, double expected) { QCOMPARE(KRLatitude::parse(text).decimalDegrees(), expected); });
}

void tst_KRLatitude::safeLatitude()
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const KRTestTable<double, double> table{
        {"pole", 90.0, 90.0},
        {"south pole", -90.0, -90.0},
        // Intended: half a turn, not a reflection.
        {"beyond the north pole", 100.0, -80.0},
        {"beyond the south pole", -95.0, 85.0},
        {"several turns", 725.0, 5.0},
        {"many turns", 180e9 + 30.0, 30.0},
        {"infinite", infinity, KRGeoArc::invalidDegrees},
        {"minus infinite", -infinity, KRGeoArc::invalidDegrees},
        {"not a number", std::numeric_limits<double>::quiet_NaN(), KRGeoArc::invalidDegrees},
    };
    table.forEach([](double degrees, double expected) {
        QCOMPARE(KRLatitude::safeLatitude(degrees).decimalDegrees(), expected);
        QVERIFY(KRLatitude::safeLatitude(1e300).isInValidRange());
    });
}

void tst_KRLatitude::band()
{
    const double northernmost = 90.0 - 0.01;
    const double southernmost = -90.0 + 0.01;
    const KRTestTable<double, bool, double, double> table{
        {"inside", 45.0, true, 45.0, 45.0},
        {"closer to the pole than 0.01", 89.995, true, 89.995, 89.995},
        {"within the tolerance of the pole", 89.9999995, true, 89.9999995, northernmost},
        {"pole", 90.0, true, 90.0, northernmost},
        {"a hair beyond", 90.0000005, true, 90.0, northernmost},
        {"beyond", 95.0, false, 90.0, northernmost},
        {"within the tolerance of the south pole", -89.9999995, true, -89.9999995, southernmost},
        {"a hair beyond the south pole", -90.0000005, true, -90.0, southernmost},
        {"beyond the south pole", -95.0, false, -90.0, southernmost},
    };
    table.forEach([](double degrees, bool isInside, double bounded, double caught) {
        const KRLatitude latitude = degrees;
        QCOMPARE(latitude.isInValidRange(), isInside);
        QCOMPARE(latitude.bounded().decimalDegrees(), bounded);
        QCOMPARE(latitude.catchOutOfBound().decimalDegrees(), caught);
    });
}

void tst_KRLatitude::hemispheres()
{
    QVERIFY(KRLatitude(0.0).isInNorthernHemisphere());
    QVERIFY(!KRLatitude(0.0).isInSouthernHemisphere());
    QVERIFY(KRLatitude(-1e-9).isInSouthernHemisphere());
    QVERIFY(!KRLatitude(-1e-9).isInNorthernHemisphere());
    QVERIFY(KRLatitude(1e-9).isNorthOf(0.0));
    QVERIFY(!KRLatitude(1.0).isNorthOf(1.0));
    QVERIFY(KRLatitude(-2.0).isSouthOf(-1.0));
}

void tst_KRLatitude::operatorsKeepTheType()
{
    KRLatitude latitude = (KRLatitude(80.0) + 20.0 - 40.0) * 3.0 / 2.0;
    QCOMPARE(latitude.decimalDegrees(), 90.0);
    latitude += 5.0;
    QCOMPARE(latitude.decimalDegrees(), 95.0);
    QCOMPARE((latitude / 0.0).decimalDegrees(), KRGeoArc::invalidDegrees);
}

void tst_KRLatitude::texts()
{
    const KRTestTable<double, QString, QString> table{
        {"south", -8.5, QStringLiteral("8° 30′ 0″ Süd"), QStringLiteral("S8.50000000")},
        {"equator", 0.0, QStringLiteral("0° 0′ 0″ Nord"), QStringLiteral("N0.00000000")},
        {"seconds with a fraction", 53.1368125, QStringLiteral("53° 8′ 12.525″ Nord"), QStringLiteral("N53.13681250")},
        // Intended: the seconds are rounded for themselves.
        {"sixty seconds", 8.2, QStringLiteral("8° 11′ 60″ Nord"), QStringLiteral("N8.20000000")},
        {"invalid", KRGeoArc::invalidDegrees, {}, {}},
    };
    table.forEach([](double degrees, const QString &longText, const QString &shortText) {
        const KRLatitude latitude = degrees;
        QCOMPARE(latitude.toString(true), longText);
        QCOMPARE(latitude.toString(false), shortText);
        QCOMPARE(latitude.toString(false).isNull(), !latitude.isValid());
        QCOMPARE(latitude.toString(true).isNull(), !latitude.isValid());
    });
}

void tst_KRLatitude::textsAreTranslated()
{
    const KRRecordingTranslator translator;
    for (const double degrees : {1.0, -1.0}) {
        const KRLatitude latitude = degrees;
        QVERIFY(!latitude.toString(true).isEmpty());
        QVERIFY(!latitude.toString(false).isEmpty());
    }
    // The blanks in the comments belong to the key of existing translations.
    const QStringList expected = {
        QStringLiteral("QObject|%1° %2′ %3″ Nord|Coordinate / Nautical Bearing  Latitude  Breite"),
        QStringLiteral("KRLatitude|N|short for 'north'"),
        QStringLiteral("QObject|%1° %2′ %3″ Süd|Coordinate / Nautical Bearing  Latitude  Breite"),
        QStringLiteral("KRLatitude|S|short for 'south'"),
    };
    QCOMPARE(translator.requests(), expected);
}

void tst_KRLatitude::shortTextReadsBack()
{
    for (const double degrees : {-90.0, -33.8688, -1e-8, 0.0, 53.14118, 123.456}) {
        const double readBack = KRLatitude::parse(KRLatitude(degrees).toString(false)).decimalDegrees();
        QVERIFY2(std::abs(readBack - degrees) < 1e-8, qPrintable(QString::number(readBack, 'f', 12)));
    }
}

void tst_KRLatitude::debugStream()
{
    QString text;
    QDebug(&text) << KRLatitude(-33.8688);
    QCOMPARE(text, QStringLiteral("S33.86880000 "));
}

static const KRTestRegistration<tst_KRLatitude> registration;

#include "tst_KRLatitude.moc"
