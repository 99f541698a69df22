#include <KRCore/KRDistance.h>
#include <KRCore/KRDistanceUnit.h>

#include "KRTest.h"

class tst_KRDistance : public QObject
{
    Q_OBJECT

private slots:
    void describe()
    {
        QCOMPARE(KRDistance(10.0).describe(KRDistanceUnit::pixel(), 0, true), QStringLiteral("10 px"));
        QCOMPARE(KRDistance(10.0).describe(KRDistanceUnit::pixel(), 2, true), QStringLiteral("10.00 px"));
        QCOMPARE(KRDistance(7.77).describe(KRDistanceUnit::pixel(), 1, false), QStringLiteral("7.8"));
        QCOMPARE(KRDistance(2500000.0).describe(KRDistanceUnit::pixel(), 0, false), QStringLiteral("2500000"));
    }

    void nullIsExact()
    {
        QVERIFY(KRDistance().isNull());
        QVERIFY(KRDistance(-0.0).isNull());
        QVERIFY(!KRDistance(1e-300).isNull());
        QVERIFY(KRDistance(10.0) != KRDistance(10.0000001));
    }
};

template class KRTestRegistration<tst_KRDistance>;

#include "tst_KRDistance.moc"
