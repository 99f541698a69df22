#include <KRCore/KRMath.h>

#include "KRTestRegistry.h"

#include <QtTest>

#include <limits>

class tst_KRMath : public QObject
{
    Q_OBJECT

private slots:
    void toInt_data();
    void toInt();
    void epsilonEqual();
};

void tst_KRMath::toInt_data()
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr int highest = std::numeric_limits<int>::max();
    constexpr int lowest = std::numeric_limits<int>::min();
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");
    QTest::newRow("positive fractions are cut") << 10.9 << 10;
    QTest::newRow("negative fractions are cut toward zero") << -0.7 << 0;
    QTest::newRow("largest int") << 2147483647.0 << highest;
    QTest::newRow("one past the largest int") << 2147483648.0 << highest;
    QTest::newRow("smallest int") << -2147483648.0 << lowest;
    QTest::newRow("huge") << 1e300 << highest;
    QTest::newRow("minus infinity") << -infinity << lowest;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0;
}

void tst_KRMath::toInt()
{
    QFETCH(double, value);
    QTEST(KRMath::toInt(value), "expected");
}

void tst_KRMath::epsilonEqual()
{
    QVERIFY(KRMath::epsilonEqual(1.0, 1.5, 0.5));
    QVERIFY(!KRMath::epsilonEqual(1.0, 1.5, 0.25));
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    QVERIFY(!KRMath::epsilonEqual(notANumber, notANumber, 1.0));
}

static const KRTestRegistration<tst_KRMath> registration;

#include "tst_KRMath.moc"
