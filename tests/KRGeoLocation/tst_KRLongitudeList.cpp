#include <KRGeoLocation/KRLatitudeList.h>
#include <KRGeoLocation/KRLongitudeList.h>

#include "KRTestRegistry.h"

#include <QtTest>

Q_DECLARE_METATYPE(KRLongitudeList)

/// Lists of longitudes, and of latitudes, which share everything but the date line.
class tst_KRLongitudeList : public QObject
{
    Q_OBJECT

private slots:
    void emptyLists();
    void averages();
    void boundsIgnoreTheTolerance();
    void latitudeRange();
    void hemispheres();
    void effectiveRange_data();
    void effectiveRange();
    void conversionFromList();
};

void tst_KRLongitudeList::emptyLists()
{
    QCOMPARE(KRLatitudeList().average().decimalDegrees(), KRGeoArc::invalidDegrees);
    QCOMPARE(KRLatitudeList().northernBound().decimalDegrees(), KRGeoArc::invalidDegrees);
    QCOMPARE(KRLatitudeList().southernBound().decimalDegrees(), KRGeoArc::invalidDegrees);
    QVERIFY(KRLatitudeList().range() == KRLatitudeRange());
    QCOMPARE(KRLongitudeList().average().decimalDegrees(), KRGeoArc::invalidDegrees);
    QCOMPARE(KRLongitudeList().easternBound().decimalDegrees(), KRGeoArc::invalidDegrees);
    QCOMPARE(KRLongitudeList().westernBound().decimalDegrees(), KRGeoArc::invalidDegrees);
    QVERIFY(KRLongitudeList().naiveRange() == KRLongitudeRange());
}

void tst_KRLongitudeList::averages()
{
    QCOMPARE((KRLatitudeList{10, -5, 1}).average().decimalDegrees(), 2.0);
    // No wrap: the average of both sides of the date line is the prime meridian.
    QCOMPARE((KRLongitudeList{170, -170}).average().decimalDegrees(), 0.0);
}

void tst_KRLongitudeList::boundsIgnoreTheTolerance()
{
    // All three equal one another.
    const KRLatitudeList latitudes = {10.0, 10.0000004, 9.9999996};
    QCOMPARE(latitudes.northernBound().decimalDegrees(), 10.0000004);
    QCOMPARE(latitudes.southernBound().decimalDegrees(), 9.9999996);
    const KRLongitudeList longitudes = {10.0, 10.0000004, 9.9999996};
    QCOMPARE(longitudes.easternBound().decimalDegrees(), 10.0000004);
    QCOMPARE(longitudes.westernBound().decimalDegrees(), 9.9999996);
}

void tst_KRLongitudeList::latitudeRange()
{
    QVERIFY((KRLatitudeList{10, -33, 53, 0}).range() == KRLatitudeRange(-33, 53));
}

void tst_KRLongitudeList::hemispheres()
{
    const KRLongitudeList longitudes = {-1, 0, 180, -180, 8, -179, 190};
    QCOMPARE(longitudes.onlyEasternHemisphere(), (KRLongitudeList{0, 180, -180, 8}));
    QCOMPARE(longitudes.onlyWesternHemisphere(), (KRLongitudeList{-1, -179, 190}));
}

void tst_KRLongitudeList::effectiveRange_data()
{
    QTest::addColumn<KRLongitudeList>("longitudes");
    QTest::addColumn<double>("west");
    QTest::addColumn<double>("east");
    QTest::newRow("around the date line") << KRLongitudeList{170, 175, -175, -170} << 170.0 << -170.0;
    QTest::newRow("around the prime meridian") << KRLongitudeList{20, -10} << -10.0 << 20.0;
    QTest::newRow("averages half a turn apart") << KRLongitudeList{90, -90} << -90.0 << 90.0;
    QTest::newRow("a little more") << KRLongitudeList{91, -90} << 91.0 << -90.0;
    QTest::newRow("only eastern ones") << KRLongitudeList{0, 180, -180, 8} << -180.0 << 180.0;
    QTest::newRow("only western ones") << KRLongitudeList{-1, -179} << -179.0 << -1.0;
    // Intended: -180 is an eastern longitude, and the smallest of these; 175 and 179 are left out.
    QTest::newRow("-180 among the eastern ones") << KRLongitudeList{175, 179, -180, -179} << -180.0 << -179.0;
    QTest::newRow("empty") << KRLongitudeList() << KRGeoArc::invalidDegrees << KRGeoArc::invalidDegrees;
}

void tst_KRLongitudeList::effectiveRange()
{
    QFETCH(KRLongitudeList, longitudes);
    const KRLongitudeRange range = longitudes.effectiveRange();
    QTEST(range.west().decimalDegrees(), "west");
    QTEST(range.east().decimalDegrees(), "east");
}

void tst_KRLongitudeList::conversionFromList()
{
    const KRLongitudeList longitudes = KRLongitudeList{1, 2, 3}.mid(1);
    QCOMPARE(longitudes.average().decimalDegrees(), 2.5);
    const KRLatitudeList latitudes = KRLatitudeList{1, 2, 3}.mid(1);
    QCOMPARE(latitudes.average().decimalDegrees(), 2.5);
}

static const KRTestRegistration<tst_KRLongitudeList> registration;

#include "tst_KRLongitudeList.moc"
