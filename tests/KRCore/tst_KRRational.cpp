#include <KRCore/KRRational.h>

#include "KRTestRegistry.h"

#include <QtTest>

class tst_KRRational : public QObject
{
    Q_OBJECT

private slots:
    void toString();
};

void tst_KRRational::toString()
{
    // Neither reduced nor checked.
    QCOMPARE(KRRational(1248000, 100000).toString(), QStringLiteral("1248000/100000"));
    QCOMPARE(KRRational(-6, 0).toString(), QStringLiteral("-6/0"));
}

static const KRTestRegistration<tst_KRRational> registration;

#include "tst_KRRational.moc"
