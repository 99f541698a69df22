#include <KRCore/KRDistance.h>
#include <KRCore/KRDistanceUnit.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QtTest>

class tst_KRDistance : public QObject
{
    Q_OBJECT

private slots:
    void describe();
    void nullIsExact();
};

void tst_KRDistance::describe()
{
    const KRTestTable<double, int, bool, QString> table{
        {"whole", 10.0, 0, true, QStringLiteral("10 px")},
        {"decimals are kept", 10.0, 2, true, QStringLiteral("10.00 px")},
        {"rounded", 7.77, 1, false, QStringLiteral("7.8")},
        {"no exponent", 2500000.0, 0, false, QStringLiteral("2500000")},
    };
    table.forEach([](double value, int precision, bool withUnit, const QString &expected) {
        QCOMPARE(KRDistance(value).describe(KRDistanceUnit::pixel(), precision, withUnit), expected);
    });
}

void tst_KRDistance::nullIsExact()
{
    QVERIFY(KRDistance().isNull());
    QVERIFY(KRDistance(-0.0).isNull());
    QVERIFY(!KRDistance(1e-300).isNull());
    QVERIFY(KRDistance(10.0) != KRDistance(10.0000001));
}

static const KRTestRegistration<tst_KRDistance> registration;

#include "tst_KRDistance.moc"
