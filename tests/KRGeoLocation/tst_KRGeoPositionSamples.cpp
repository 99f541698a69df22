#include <KRGeoLocation/KRGeoPositionSamples.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QtTest>

namespace {

/// Callers may hold any number, not only those that have a place.
KRGeoPositionSamplesEnum sample(int number)
{
    return static_cast<KRGeoPositionSamplesEnum>(number);
}

} // namespace

class tst_KRGeoPositionSamples : public QObject
{
    Q_OBJECT

private slots:
    void places_data();
    void places();
    void numbersWithoutPlace();
};

void tst_KRGeoPositionSamples::places_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<double>("latitude");
    QTest::addColumn<double>("longitude");
    QTest::newRow("Oldenburg") << 0 << 53.14118 << 8.21467;
    QTest::newRow("Bremen") << 1 << 53.0792962 << 8.806422;
    QTest::newRow("Wellington") << 2 << -41.28646 << 174.772996908;
    QTest::newRow("Sydney") << 3 << -33.865143 << 151.2099;
    QTest::newRow("New York") << 4 << 40.73061 << -73.935242;
    QTest::newRow("LA") << 5 << 34.052235 << -118.243683;
    QTest::newRow("Honolulu") << 6 << 21.315603 << -157.858093;
    QTest::newRow("Polynesien") << 7 << -17.679742 << -149.3729275;
    QTest::newRow("Greenich") << 8 << 51.507351 << 0.0;
    QTest::newRow("Windhoek") << 9 << -22.5631 << 17.0786;
    QTest::newRow("Helsinki") << 10 << 60.169471 << 24.929667;
    QTest::newRow("Gibraltar") << 11 << 36.140751 << -5.353585;
    QTest::newRow("Passau") << 12 << 48.5667364 << 13.4319466;
}

void tst_KRGeoPositionSamples::places()
{
    QFETCH(int, number);
    const KRGeoPositionSamples *const samples = KRGeoPositionSamples::instance();
    QCOMPARE(samples->name(sample(number)), QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(samples->position(sample(number)).isValid());
    QTEST(samples->latitude(sample(number)).decimalDegrees(), "latitude");
    QTEST(samples->longitude(sample(number)).decimalDegrees(), "longitude");
}

void tst_KRGeoPositionSamples::numbersWithoutPlace()
{
    const KRTestTable<int> table{
        {"below the first", -1},
        {"above the last", 13},
    };
    table.forEach([](int number) {
        const KRGeoPositionSamples *const samples = KRGeoPositionSamples::instance();
        QVERIFY(samples->name(sample(number)).isNull());
        QVERIFY(!samples->position(sample(number)).isValid());
        QCOMPARE(samples->latitude(sample(number)).decimalDegrees(), KRGeoArc::invalidDegrees);
        QCOMPARE(samples->longitude(sample(number)).decimalDegrees(), KRGeoArc::invalidDegrees);
    });
}

static const KRTestRegistration<tst_KRGeoPositionSamples> registration;

#include "tst_KRGeoPositionSamples.moc"
