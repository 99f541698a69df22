#include <KRCore/KRPenStyle.h>

#include "KRTestRegistry.h"

#include <QDomDocument>
#include <QPen>
#include <QtTest>

class tst_KRPenStyle : public QObject
{
    Q_OBJECT

private slots:
    void fromXml_data();
    void fromXml();
    void roundTrip();
    void modifyPenKeepsTheRest();
};

void tst_KRPenStyle::fromXml_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<int>("expected");
    QTest::newRow("dashes") << QByteArray("<c><penStyle>2</penStyle></c>") << int(Qt::DashLine);
    QTest::newRow("no line") << QByteArray("<c><penStyle>0</penStyle></c>") << int(Qt::NoPen);
    QTest::newRow("missing") << QByteArray("<c/>") << int(Qt::SolidLine);
    QTest::newRow("empty") << QByteArray("<c><penStyle/></c>") << int(Qt::SolidLine);
    QTest::newRow("no number") << QByteArray("<c><penStyle>dash</penStyle></c>") << int(Qt::SolidLine);
    QTest::newRow("negative") << QByteArray("<c><penStyle>-1</penStyle></c>") << int(Qt::SolidLine);
    QTest::newRow("custom dashes need a pattern") << QByteArray("<c><penStyle>6</penStyle></c>") << int(Qt::SolidLine);
    QTest::newRow("huge") << QByteArray("<c><penStyle>99999999999</penStyle></c>") << int(Qt::SolidLine);
}

void tst_KRPenStyle::fromXml()
{
    QFETCH(QByteArray, xml);
    QDomDocument document;
    QVERIFY(document.setContent(xml));
    QTEST(KRPenStyle::fromXml(document.documentElement()).number(), "expected");
}

void tst_KRPenStyle::roundTrip()
{
    for (int number = Qt::NoPen; number <= Qt::DashDotDotLine; ++number) {
        QDomDocument document;
        QDomElement parent = document.createElement(QStringLiteral("c"));
        KRPenStyle(number).toXml(parent);
        QCOMPARE(KRPenStyle::fromXml(parent).number(), number);
    }
}

void tst_KRPenStyle::modifyPenKeepsTheRest()
{
    QPen pen(QBrush(Qt::red), 7.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    QPen expected = pen;
    expected.setStyle(Qt::DotLine);
    KRPenStyle(Qt::DotLine).modifyPen(pen);
    QCOMPARE(pen, expected);
}

static const KRTestRegistration<tst_KRPenStyle> registration;

#include "tst_KRPenStyle.moc"
