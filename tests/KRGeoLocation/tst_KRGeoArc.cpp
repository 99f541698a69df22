#include <KRGeoLocation/KRGeoArc.h>

#include "KRTest.h"

#include <cmath>
#include <limits>

namespace {

bool isNear(double value, double expected)
{
    return std::abs(value - expected) < 1e-9;
}

} // namespace

class tst_KRGeoArc : public QObject
{
    Q_OBJECT

private slots:
    void fromString()
    {
        const double angle = 53.0 + 8.0 / 60.0 + 12.5 / 3600.0;
        const KRTestTable<KRText, double> table{
            {"west in lower case", "53,8,12.5 w", -angle},
            {"marks and blanks", "53°, 8', 12.5\" N", angle},
            {"marks alone do not separate", "53° 8' 12.5\" N", KRGeoArc::invalidDegrees},
            {"two parts", "53,8", KRGeoArc::invalidDegrees},
            {"empty parts do not count", ",53,,8,12.5,", angle},
            {"a fourth part is ignored", "53,8,12.5,9", angle},
            {"N makes negative parts positive", "-53,-8,-12.5N", angle},
            {"S keeps negative parts negative", "-53,-8,-12.5S", -angle},
            {"letters of both kinds: positive", "8,30,0W e", 8.5},
            {"each part has its own sign", "-8,30,0", -7.5},
            {"a fraction of degrees does not read", "53.5,30,0", 0.5},
            {"rest of a word spoils the seconds", "8,30,12.5 Nord", 8.5},
            {"no number at all", "a,b,c", 0.0},
        };
        table.forEach([](const QString &text, double expected) {
            const double degrees = KRGeoArc::fromString(text).decimalDegrees();
            QVERIFY2(isNear(degrees, expected), qPrintable(QString::number(degrees, 'f', 12)));
            QVERIFY(degrees != 0.0 || !std::signbit(degrees));
        });
    }

    void parts()
    {
        const KRTestTable<double, int, int, double> table{
            {"all parts carry the sign", -53.1368, -53, -8, -12.48},
            // 8.2 * 60 is a little less than 492, so the twelfth minute is never reached.
            {"cut, not rounded", 8.2, 8, 11, 59.99999999999636},
            {"invalid marker", KRGeoArc::invalidDegrees, 720, 0, 0.0},
        };
        table.forEach([](double degrees, int degree, int minute, double second) {
            const KRGeoArc angle(degrees);
            QCOMPARE(angle.degree(), degree);
            QCOMPARE(angle.minute(), minute);
            QVERIFY2(isNear(angle.second(), second), qPrintable(QString::number(angle.second(), 'f', 12)));
        });
        QCOMPARE(KRGeoArc(1e300).degree(), std::numeric_limits<int>::max());
        QCOMPARE(KRGeoArc(-qInf()).degree(), std::numeric_limits<int>::min());
    }

    void setDegree()
    {
        KRGeoArc angle;
        angle.setDegree(-8, -30, 0.0);
        QVERIFY(isNear(angle.decimalDegrees(), -8.5));
        // Mixed signs are added as they are.
        angle.setDegree(-8, 30, 36.0);
        QVERIFY(isNear(angle.decimalDegrees(), -7.49));
        // A difference within the tolerance of == is stored all the same.
        const double almost = angle.decimalDegrees() + 1e-7;
        QVERIFY(angle.setDecimalDegrees(almost) && !angle.setDecimalDegrees(almost));
        QCOMPARE(angle.decimalDegrees(), almost);
    }

    void comparison()
    {
        const KRGeoArc one = 1.0;
        const KRGeoArc almostOne = 1.0000005;
        const KRGeoArc more = 1.000002;
        QVERIFY(one == almostOne && !(one != almostOne));
        // Intended: equal and less at once.
        QVERIFY(one < almostOne && almostOne > one);
        QVERIFY(almostOne <= one && one >= almostOne);
        QVERIFY(one != more && !(more <= one) && !(one >= more));
        QVERIFY(!(one < one));
    }

    void isValid()
    {
        const KRTestTable<KRGeoArc, bool> table{
            {"upper end", KRGeoArc(360.0), true},
            {"lower end", KRGeoArc(-360.0), true},
            {"beyond, within the tolerance of ==", KRGeoArc(360.0000001), false},
            {"missing coordinate in a file", KRGeoArc(-720.0), false},
            {"not a number", KRGeoArc(qQNaN()), false},
        };
        table.forEach([](const KRGeoArc &angle, bool expected) { QCOMPARE(angle.isValid(), expected); });
    }

    void arithmetic()
    {
        QCOMPARE((KRGeoArc(-170.0) - 20.0).decimalDegrees(), -190.0);
        QCOMPARE((KRGeoArc(10.0) / 4.0).decimalDegrees(), 2.5);
        for (const double degrees : {10.0, 0.0})
            QCOMPARE((KRGeoArc(degrees) / 0.0).decimalDegrees(), KRGeoArc::invalidDegrees);
        QCOMPARE(KRGeoArc(-170.0).absDistance(170.0).decimalDegrees(), 340.0);
        KRGeoArc sum = 1.0;
        sum += sum;
        QCOMPARE(sum.decimalDegrees(), 2.0);
        QVERIFY(isNear(KRGeoArc(180.0).radians(), 3.141592653589793));
        QVERIFY(isNear(KRGeoArc::fromRadians(-3.141592653589793 / 6.0).decimalDegrees(), -30.0));
    }

    void variants()
    {
        QCOMPARE(KRGeoArc::fromVariant(QVariant()).decimalDegrees(), KRGeoArc::invalidDegrees);
        QCOMPARE(KRGeoArc::fromVariant(QVariant(QString())).decimalDegrees(), KRGeoArc::invalidDegrees);
        QCOMPARE(KRGeoArc::fromVariant(QStringLiteral("no number")).decimalDegrees(), 0.0);
        QCOMPARE(KRGeoArc::fromVariant(KRGeoArc(-8.25).toVariant()).decimalDegrees(), -8.25);
    }

    void exifRational()
    {
        const KRTestTable<double, KRText> table{
            {"the sign is dropped, the fraction not reduced", -53.1368, "53/1 8/1 1248000/100000"},
            {"half a part is rounded up", 0.000025 / 3600.0, "0/1 0/1 3/100000"},
            {"rounding does not carry over", 8.2, "8/1 11/1 6000000/100000"},
            {"not a number", qQNaN(), "0/1 0/1 0/100000"},
        };
        table.forEach([](double degrees, const QString &text) { QCOMPARE(KRGeoArc(degrees).toExifRational(), text); });
        QVERIFY(KRGeoArc(-1e300).toExifRational().startsWith(QStringLiteral("2147483648/1 ")));
    }

    void texts()
    {
        QString text;
        QDebug(&text) << KRGeoArc(0.5) << QStringLiteral("quoted");
        QCOMPARE(text, QStringLiteral("0.5000000000000000 \"quoted\" "));
        text.clear();
        QDebug(&text).nospace() << KRGeoArc(0.5) << KRGeoArc(1.5);
        QCOMPARE(text, QStringLiteral("0.50000000000000001.5000000000000000"));
        QUrlQuery query;
        KRGeoArc(-8.2).writeTo(query, QStringLiteral("angle"));
        QCOMPARE(query.toString(), QStringLiteral("angle=-8.1999999999999993"));
    }
};

template class KRTestRegistration<tst_KRGeoArc>;

#include "tst_KRGeoArc.moc"
