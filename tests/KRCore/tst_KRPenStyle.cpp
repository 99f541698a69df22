#include <KRCore/KRPenStyle.h>

#include "KRTest.h"
#include "KRTestXml.h"

#include <QPen>

class tst_KRPenStyle : public QObject
{
    Q_OBJECT

private slots:
    void fromXml()
    {
        const KRTestTable<QByteArray, int> table{
            {"missing", "<c/>", int(Qt::SolidLine)},
            {"no number", "<c><penStyle>dash</penStyle></c>", int(Qt::SolidLine)},
            {"negative", "<c><penStyle>-1</penStyle></c>", int(Qt::SolidLine)},
            {"custom dashes need a pattern", "<c><penStyle>6</penStyle></c>", int(Qt::SolidLine)},
        };
        table.forEach([](const QByteArray &xml, int expected) {
            QCOMPARE(KRPenStyle::fromXml(KRTestXml::element(xml)).number(), expected);
        });
    }

    void everyStyle()
    {
        for (int number = Qt::NoPen; number <= Qt::DashDotDotLine; ++number) {
            QDomElement parent = KRTestXml::element("<c/>");
            KRPenStyle(number).toXml(parent);
            QCOMPARE(KRPenStyle::fromXml(parent).number(), number);

            QPen pen(QBrush(Qt::red), 7.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
            QPen expected = pen;
            expected.setStyle(static_cast<Qt::PenStyle>(number));
            KRPenStyle(number).modifyPen(pen);
            QCOMPARE(pen, expected);
        }
    }
};

template class KRTestRegistration<tst_KRPenStyle>;

#include "tst_KRPenStyle.moc"
