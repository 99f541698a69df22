#include <KRCore/KRMath.h>

#include "KRTest.h"

#include <cmath>
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

    /// All texts of up to five of the characters that matter, and some long or odd ones.
    void toDouble()
    {
        const QString characters = QStringLiteral("05.eE+- n");
        QStringList texts{QString()};
        for (int first = 0, length = 1; length <= 5; ++length) {
            for (const int end = texts.size(); first < end; ++first) {
                for (const QChar character : characters)
                    texts.append(texts.at(first) + character);
            }
        }
        for (const char *const text : {"53.123456789012345678901234567890123", "1e400", "-1e-400", "4.9e-324", "inf",
                                       "nan", "0x5", "5,3", "\u00A05.5\u2003", "٥"})
            texts.append(QString::fromUtf8(text));
        for (const QString &text : qAsConst(texts)) {
            bool isNumber = false;
            const double expected = text.toDouble(&isNumber);
            const double value = KRMath::toDouble(text, -77.0);
            if (!(isNumber ? value == expected && std::signbit(value) == std::signbit(expected) : value == -77.0)
                && !(std::isnan(value) && std::isnan(expected)))
                QFAIL(qPrintable(QStringLiteral("“%1” is read as %2").arg(text).arg(value)));
        }
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
