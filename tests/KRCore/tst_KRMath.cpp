#include <KRCore/KRMath.h>

#include "KRTest.h"

#include <limits>

class tst_KRMath : public QObject
{
    Q_OBJECT

private slots:
    void toInt()
    {
        constexpr int highest = std::numeric_limits<int>::max();
        constexpr int lowest = std::numeric_limits<int>::min();
        const KRTestTable<double, int> table{
            {"positive fractions are cut", 10.9, 10}, {"negative fractions are cut toward zero", -0.7, 0},
            {"largest int", 2147483647.0, highest},   {"one past the largest int", 2147483648.0, highest},
            {"smallest int", -2147483648.0, lowest},  {"huge", 1e300, highest},
            {"minus infinity", -qInf(), lowest},      {"not a number", qQNaN(), 0},
        };
        table.forEach([](double value, int expected) { QCOMPARE(KRMath::toInt(value), expected); });
    }

    void epsilonEqual()
    {
        QVERIFY(KRMath::epsilonEqual(1.0, 1.5, 0.5));
        QVERIFY(!KRMath::epsilonEqual(1.0, 1.5, 0.25));
        QVERIFY(!KRMath::epsilonEqual(qQNaN(), qQNaN(), 1.0));
    }
};

template class KRTestRegistration<tst_KRMath>;

#include "tst_KRMath.moc"
