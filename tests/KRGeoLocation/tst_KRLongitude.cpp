#include <KRGeoLocation/KRLongitude.h>

#include "KRRecordingTranslator.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QDebug>
#include <QtTest>

#include <limits>

class tst_KRLongitude : public QObject
{
    Q_OBJECT

private slots:
    void parse();
    void folding();
    void band();
    void eastAndWest();
    void hemispheres();
    void comparisonKnowsNoDateLine();
    void texts();
    void textsAreTranslated();
};

void tst_KRLongitude::parse()
{
    const KRTestTable<QString, double> table{
        {"east", QStringLiteral("E8.25"), 8.25},
        {"west", QStringLiteral("W8.25"), -8.25},
        {"no letter", QStringLiteral("-8.25"), -8.25},
        {"lower case", QStringLiteral("w8.25"), KRGeoArc::invalidDegrees},
        {"the German letter is none", QStringLiteral("O8.25"), KRGeoArc::invalidDegrees},
        {"letter of a latitude", QStringLiteral("N8.25"), KRGeoArc::invalidDegrees},
    };
    table.forEach(
        [](const QString &text, double expected) { QCOMPARE(KRLongitude::parse(text).decimalDegrees(), expected); });
}

void tst_KRLongitude::folding()
{
    const KRTestTable<double, double> table{
        {"inside", -8.25, -8.25},
        {"180 stays", 180.0, 180.0},
        {"-180 stays", -180.0, -180.0},
        {"just over the date line", 190.0, -170.0},
        {"just over the date line westwards", -190.0, 170.0},
        {"one and a half turns", 540.0, 180.0},
        {"one and a half turns westwards", -540.0, -180.0},
        {"many turns", 360e9 + 30.0, 30.0},
        {"infinite", std::numeric_limits<double>::infinity(), KRGeoArc::invalidDegrees},
        {"not a number", std::numeric_limits<double>::quiet_NaN(), KRGeoArc::invalidDegrees},
    };
    table.forEach([](double degrees, double expected) {
        QCOMPARE(KRLongitude::safeLongitude(degrees).decimalDegrees(), expected);
        QCOMPARE(KRLongitude(degrees).normalized().decimalDegrees(), expected);
        QVERIFY(KRLongitude(-1e300).normalized().isInValidRange());
    });
}

void tst_KRLongitude::band()
{
    QVERIFY(KRLongitude(180.0000005).isInValidRange());
    QVERIFY(KRLongitude(-180.0000005).isInValidRange());
    QVERIFY(!KRLongitude(180.00001).isInValidRange());
    QVERIFY(!KRLongitude().isInValidRange());
    QCOMPARE(KRLongitude(180.0000005).bounded().decimalDegrees(), 180.0);
    QCOMPARE(KRLongitude(-190.0).bounded().decimalDegrees(), -180.0);
    QCOMPARE(KRLongitude(-179.0).bounded().decimalDegrees(), -179.0);
}

void tst_KRLongitude::eastAndWest()
{
    const KRTestTable<double, double, bool, bool> table{
        {"same", 10.0, 10.0, false, false},
        {"east", 10.0, -160.0, true, false},
        {"opposite is neither", 10.0, -170.0, false, false},
        {"the other way is shorter", 10.0, -171.0, false, true},
        {"across the date line", -170.0, 170.0, true, false},
        {"across the date line westwards", 170.0, -170.0, false, true},
        {"both names of the date line", 180.0, -180.0, false, false},
    };
    table.forEach([](double degrees, double other, bool isEast, bool isWest) {
        QCOMPARE(KRLongitude(degrees).isEastOf(other), isEast);
        QCOMPARE(KRLongitude(degrees).isWestOf(other), isWest);
    });
}

void tst_KRLongitude::hemispheres()
{
    const KRTestTable<double, bool> table{
        {"prime meridian", 0.0, false},
        {"a little west", -1e-9, true},
        {"nearly the date line", -179.999, true},
        {"date line", 180.0, false},
        {"date line from the west", -180.0, false},
        {"beyond the date line", 190.0, true},
        {"beyond the date line westwards", -190.0, false},
    };
    table.forEach([](double degrees, bool isWestern) {
        QCOMPARE(KRLongitude(degrees).isInWesternHemisphere(), isWestern);
        QCOMPARE(KRLongitude(degrees).isInEasternHemisphere(), !isWestern);
    });
}

void tst_KRLongitude::comparisonKnowsNoDateLine()
{
    QVERIFY(KRLongitude(170.0) > -170.0);
    QVERIFY(KRLongitude(180.0) != -180.0);
    KRLongitude longitude = KRLongitude(170.0) + 20.0;
    longitude += 1.0;
    QCOMPARE(longitude.decimalDegrees(), 191.0);
}

void tst_KRLongitude::texts()
{
    const KRTestTable<double, QString, QString> table{
        {"east", 8.5, QStringLiteral("8° 30′ 0″ Ost"), QStringLiteral("E8.50000000")},
        {"west", -0.5, QStringLiteral("0° 30′ 0″ West"), QStringLiteral("W0.50000000")},
        {"date line", -180.0, QStringLiteral("180° 0′ 0″ Ost"), QStringLiteral("E180.00000000")},
        // Intended: the letter tells the hemisphere of the meridian, the number is not folded.
        {"beyond", 190.0, QStringLiteral("190° 0′ 0″ West"), QStringLiteral("W190.00000000")},
        {"invalid", KRGeoArc::invalidDegrees, {}, {}},
    };
    table.forEach([](double degrees, const QString &longText, const QString &shortText) {
        const KRLongitude longitude = degrees;
        QCOMPARE(longitude.toString(true), longText);
        QCOMPARE(longitude.toString(false), shortText);
        QCOMPARE(longitude.toString(false).isNull(), !longitude.isValid());
        QString text;
        QDebug(&text) << longitude;
        QCOMPARE(text, longitude.toString(false) + QLatin1Char(' '));
    });
}

void tst_KRLongitude::textsAreTranslated()
{
    const KRRecordingTranslator translator;
    for (const double degrees : {1.0, -1.0}) {
        const KRLongitude longitude = degrees;
        QVERIFY(!longitude.toString(true).isEmpty());
        QVERIFY(!longitude.toString(false).isEmpty());
    }
    // Blanks and spelling of the comments belong to the key of existing translations.
    const QStringList expected = {
        QStringLiteral("QObject|%1° %2′ %3″ Ost|Coordinate / Nautilal Bearing   Longitude/Länge"),
        QStringLiteral("KRLongitude|E|short for 'east'"),
        QStringLiteral("QObject|%1° %2′ %3″ West|Coordinate / Nautilal Bearing   Longitude/Länge"),
        QStringLiteral("KRLongitude|W|short for 'west'"),
    };
    QCOMPARE(translator.requests(), expected);
}

static const KRTestRegistration<tst_KRLongitude> registration;

#include "tst_KRLongitude.moc"
