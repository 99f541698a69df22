#include <KRCore/KRDecimalText.h>

#include "KRTest.h"

#include <QRandomGenerator>

#include <limits>

class tst_KRDecimalText : public QObject
{
    Q_OBJECT

private slots:
    void digits()
    {
        using Limits = std::numeric_limits<double>;
        QList<double> numbers{0.0,
                              -0.0,
                              1.0,
                              -12.5,
                              1e-12,
                              -1e-12,
                              123456789.0,
                              1e300,
                              Limits::max(),
                              Limits::min(),
                              Limits::infinity(),
                              -Limits::infinity(),
                              Limits::quiet_NaN()};
        for (int i = -300; i < 300; ++i)
            numbers << i / 256.0 << i / 2048.0 << i / 16.0 << i / 1e7 << i / 2e7; // half way for some of the decimals
        for (int i = 0; i < 1000; ++i)
            numbers << QRandomGenerator::global()->generateDouble() * 360.0 - 180.0;
        for (const int decimals : {1, 3, 7, 10, 15}) {
            for (const double number : qAsConst(numbers)) {
                QString expected = QString::number(number, 'f', decimals);
                while (expected.endsWith(QLatin1Char('0')))
                    expected.chop(1);
                const KRDecimalText text(number, decimals);
                QCOMPARE(QString::fromLatin1(text.begin(), text.size()), expected);
            }
        }
    }
};

template class KRTestRegistration<tst_KRDecimalText>;

#include "tst_KRDecimalText.moc"
