#include <KRGeoLocation/KRLatitudeList.h>
#include <KRGeoLocation/KRLongitudeList.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QtTest>

/// Lists of longitudes, and of latitudes, which share everything but the date line.
class tst_KRLongitudeList : public QObject
{
    Q_OBJECT

private slots:
    void emptyLists();
    void averages();
    void boundsIgnoreTheTolerance();
    void hemispheres();
    void effectiveRange();
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

void tst_KRLongitudeList::hemispheres()
{
    const KRLongitudeList longitudes = {-1, 0, 180, -180, 8, -179, 190};
    QCOMPARE(longitudes.onlyEasternHemisphere(), (KRLongitudeList{0, 180, -180, 8}));
    QCOMPARE(longitudes.onlyWesternHemisphere(), (KRLongitudeList{-1, -179, 190}));
}

void tst_KRLongitudeList::effectiveRange()
{
    const KRTestTable<KRLongitudeList, double, double> table{
        {"around the date line", KRLongitudeList{170, 175, -175, -170}, 170.0, -170.0},
        {"around the prime meridian", KRLongitudeList{20, -10}, -10.0, 20.0},
        {"averages half a turn apart", KRLongitudeList{90, -90}, -90.0, 90.0},
        {"a little more", KRLongitudeList{91, -90}, 91.0, -90.0},
        {"only eastern ones", KRLongitudeList{0, 180, -180, 8}, -180.0, 180.0},
        {"only western ones", KRLongitudeList{-1, -179}, -179.0, -1.0},
        // Intended: -180 is an eastern longitude, and the smallest of these; 175 and 179 are left out.
        {"-180 among the eastern ones", KRLongitudeList{175, 179, -180, -179}, -180.0, -179.0},
        {"empty", KRLongitudeList(), KRGeoArc::invalidDegrees, KRGeoArc::invalidDegrees},
    };
    table.forEach([](const KRLongitudeList &longitudes, double west, double east) {
        const KRLongitudeRange range = longitudes.effectiveRange();
        QCOMPARE(range.west().decimalDegrees(), west);
        QCOMPARE(range.east().decimalDegrees(), east);
    });
}

static const KRTestRegistration<tst_KRLongitudeList> registration;

#include "tst_KRLongitudeList.moc"
