#include <KRGeoLocation/KRLatitudeRange.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QDebug>
#include <QUrlQuery>
#include <QtTest>

class tst_KRLatitudeRange : public QObject
{
    Q_OBJECT

private slots:
    void spawn();
    void isValid();
    void growth();
    void tolerantEnds();
    void blowUp();
    void unreadable();
};

void tst_KRLatitudeRange::spawn()
{
    QVERIFY(KRLatitudeRange::spawn(10, -5) == KRLatitudeRange(-5, 10));
    QVERIFY(KRLatitudeRange::spawn(-5, 10) == KRLatitudeRange(-5, 10));
}

void tst_KRLatitudeRange::isValid()
{
    const KRTestTable<double, double, bool> table{
        {"all latitudes", -90.0, 90.0, true},
        {"a single one", 53.0, 53.0, true},
        {"upside down", 10.0, -5.0, false},
        {"upside down within the tolerance", 10.0000005, 10.0, true},
        {"beyond the north pole", 80.0, 90.1, false},
        {"beyond the south pole", -90.1, 80.0, false},
        {"unset", 720.0, 720.0, false},
    };
    table.forEach(
        [](double south, double north, bool expected) { QCOMPARE(KRLatitudeRange(south, north).isValid(), expected); });
}

void tst_KRLatitudeRange::growth()
{
    KRLatitudeRange range;
    QVERIFY(range.isNull());
    range.expandTo(5.0);
    QVERIFY(range == KRLatitudeRange(5.0, 5.0));
    range.expandTo(-7.0);
    range.expandTo(0.0);
    QVERIFY(range == KRLatitudeRange(-7.0, 5.0));
    QCOMPARE(range.center().decimalDegrees(), -1.0);
    // Valid comes before invalid also where a derived range says what is valid.
    QVERIFY(range < KRLatitudeRange(-100.0, 0.0));
}

void tst_KRLatitudeRange::tolerantEnds()
{
    const KRLatitudeRange range(-5.0, 10.0);
    QVERIFY(range.contains(10.0000005));
    QVERIFY(range.contains(-5.0000005));
    QVERIFY(!range.contains(10.00001));
    QVERIFY(range.contains(KRLatitudeRange(-5.0, 3.0)));
    QVERIFY(range.intersects(KRLatitudeRange(9.0, 20.0)));
    QVERIFY(!range.intersects(KRLatitudeRange(11.0, 20.0)));
}

void tst_KRLatitudeRange::blowUp()
{
    const KRTestTable<double, double, double> table{
        {"not beyond the pole", 5.0, 75.0, 90.0},
        {"nowhere beyond", 200.0, -90.0, 90.0},
        {"shrinks", -1.0, 81.0, 88.0},
    };
    table.forEach([](double margin, double south, double north) {
        KRLatitudeRange range(80.0, 89.0);
        range.blowUp(margin);
        QCOMPARE(range.south().decimalDegrees(), south);
        QCOMPARE(range.north().decimalDegrees(), north);
    });
}

void tst_KRLatitudeRange::unreadable()
{
    QVERIFY(KRLatitudeRange::parse(QUrlQuery()) == KRLatitudeRange());
    const KRLatitudeRange half = KRLatitudeRange::parse(QStringLiteral("S5"), QStringLiteral("ten"));
    QVERIFY(half == KRLatitudeRange(-5.0, KRGeoArc::invalidDegrees));
    QVERIFY(!half.isValid());
    // A percent sign that was encoded twice stays encoded once, and that is no number.
    QUrlQuery encodedTwice(QStringLiteral("latitude_min=1&latitude_max=%252B5"));
    QCOMPARE(KRLatitudeRange::parse(encodedTwice).north().decimalDegrees(), KRGeoArc::invalidDegrees);
}

static const KRTestRegistration<tst_KRLatitudeRange> registration;

#include "tst_KRLatitudeRange.moc"
