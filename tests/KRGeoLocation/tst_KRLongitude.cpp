#include <KRGeoLocation/KRLongitude.h>

#include "KRRecordingTranslator.h"
#include "KRTestRegistry.h"

#include <QDebug>
#include <QtTest>

#include <limits>

class tst_KRLongitude : public QObject
{
    Q_OBJECT

private slots:
    void parse_data();
    void parse();
    void folding_data();
    void folding();
    void band();
    void eastAndWest_data();
    void eastAndWest();
    void hemispheres_data();
    void hemispheres();
    void comparisonKnowsNoDateLine();
    void texts_data();
    void texts();
    void textsAreTranslated();
};

void tst_KRLongitude::parse_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");
    QTest::newRow("east") << QStringLiteral("E8.25") << 8.25;
    QTest::newRow("west") << QStringLiteral("W8.25") << -8.25;
    QTest::newRow("no letter") << QStringLiteral("-8.25") << -8.25;
    QTest::newRow("lower case") << QStringLiteral("w8.25") << KRGeoArc::invalidDegrees;
    QTest::newRow("the German letter is none") << QStringLiteral("O8.25") << KRGeoArc::invalidDegrees;
    QTest::newRow("letter of a latitude") << QStringLiteral("N8.25") << KRGeoArc::invalidDegrees;
}

void tst_KRLongitude::parse()
{
    QFETCH(QString, text);
    QTEST(KRLongitude::parse(text).decimalDegrees(), "expected");
}

void tst_KRLongitude::folding_data()
{
    QTest::addColumn<double>("degrees");
    QTest::addColumn<double>("expected");
    QTest::newRow("inside") << -8.25 << -8.25;
    QTest::newRow("180 stays") << 180.0 << 180.0;
    QTest::newRow("-180 stays") << -180.0 << -180.0;
    QTest::newRow("just over the date line") << 190.0 << -170.0;
    QTest::newRow("just over the date line westwards") << -190.0 << 170.0;
    QTest::newRow("one and a half turns") << 540.0 << 180.0;
    QTest::newRow("one and a half turns westwards") << -540.0 << -180.0;
    QTest::newRow("many turns") << 360e9 + 30.0 << 30.0;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << KRGeoArc::invalidDegrees;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << KRGeoArc::invalidDegrees;
}

void tst_KRLongitude::folding()
{
    QFETCH(double, degrees);
    QTEST(KRLongitude::safeLongitude(degrees).decimalDegrees(), "expected");
    QTEST(KRLongitude(degrees).normalized().decimalDegrees(), "expected");
    QVERIFY(KRLongitude(-1e300).normalized().isInValidRange());
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

void tst_KRLongitude::eastAndWest_data()
{
    QTest::addColumn<double>("degrees");
    QTest::addColumn<double>("other");
    QTest::addColumn<bool>("isEast");
    QTest::addColumn<bool>("isWest");
    QTest::newRow("same") << 10.0 << 10.0 << false << false;
    QTest::newRow("east") << 10.0 << -160.0 << true << false;
    QTest::newRow("opposite is neither") << 10.0 << -170.0 << false << false;
    QTest::newRow("the other way is shorter") << 10.0 << -171.0 << false << true;
    QTest::newRow("across the date line") << -170.0 << 170.0 << true << false;
    QTest::newRow("across the date line westwards") << 170.0 << -170.0 << false << true;
    QTest::newRow("both names of the date line") << 180.0 << -180.0 << false << false;
}

void tst_KRLongitude::eastAndWest()
{
    QFETCH(double, degrees);
    QFETCH(double, other);
    QTEST(KRLongitude(degrees).isEastOf(other), "isEast");
    QTEST(KRLongitude(degrees).isWestOf(other), "isWest");
}

void tst_KRLongitude::hemispheres_data()
{
    QTest::addColumn<double>("degrees");
    QTest::addColumn<bool>("isWestern");
    QTest::newRow("prime meridian") << 0.0 << false;
    QTest::newRow("a little west") << -1e-9 << true;
    QTest::newRow("nearly the date line") << -179.999 << true;
    QTest::newRow("date line") << 180.0 << false;
    QTest::newRow("date line from the west") << -180.0 << false;
    QTest::newRow("beyond the date line") << 190.0 << true;
    QTest::newRow("beyond the date line westwards") << -190.0 << false;
}

void tst_KRLongitude::hemispheres()
{
    QFETCH(double, degrees);
    QFETCH(bool, isWestern);
    QCOMPARE(KRLongitude(degrees).isInWesternHemisphere(), isWestern);
    QCOMPARE(KRLongitude(degrees).isInEasternHemisphere(), !isWestern);
}

void tst_KRLongitude::comparisonKnowsNoDateLine()
{
    QVERIFY(KRLongitude(170.0) > -170.0);
    QVERIFY(KRLongitude(180.0) != -180.0);
    KRLongitude longitude = KRLongitude(170.0) + 20.0;
    longitude += 1.0;
    QCOMPARE(longitude.decimalDegrees(), 191.0);
}

void tst_KRLongitude::texts_data()
{
    QTest::addColumn<double>("degrees");
    QTest::addColumn<QString>("longText");
    QTest::addColumn<QString>("shortText");
    QTest::newRow("east") << 8.5 << QStringLiteral("8° 30′ 0″ Ost") << QStringLiteral("E8.50000000");
    QTest::newRow("west") << -0.5 << QStringLiteral("0° 30′ 0″ West") << QStringLiteral("W0.50000000");
    QTest::newRow("date line") << -180.0 << QStringLiteral("180° 0′ 0″ Ost") << QStringLiteral("E180.00000000");
    // Intended: the letter tells the hemisphere of the meridian, the number is not folded.
    QTest::newRow("beyond") << 190.0 << QStringLiteral("190° 0′ 0″ West") << QStringLiteral("W190.00000000");
    QTest::newRow("invalid") << KRGeoArc::invalidDegrees << QString() << QString();
}

void tst_KRLongitude::texts()
{
    QFETCH(double, degrees);
    const KRLongitude longitude = degrees;
    QTEST(longitude.toString(true), "longText");
    QTEST(longitude.toString(false), "shortText");
    QCOMPARE(longitude.toString(false).isNull(), !longitude.isValid());
    QString text;
    QDebug(&text) << longitude;
    QCOMPARE(text, longitude.toString(false) + QLatin1Char(' '));
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
