#include <KRXML/KRXMLParser.h>

#include "KRTestRegistry.h"

#include <QtTest>

#include <cmath>

namespace {

QDomElement element(const QByteArray &xml)
{
    QDomDocument document;
    document.setContent(xml);
    return document.documentElement();
}

} // namespace

class tst_KRXMLParser : public QObject
{
    Q_OBJECT

private slots:
    void numbers_data();
    void numbers();
    void texts();
    void dateTimeText_data();
    void dateTimeText();
    void readColor_data();
    void readColor();
    void readColorOfOtherByteOrder();
};

void tst_KRXMLParser::numbers_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("asDouble");
    QTest::addColumn<int>("asInt");
    QTest::newRow("plain") << QByteArray("12") << 12.0 << 12;
    QTest::newRow("blanks around") << QByteArray(" 7 ") << 7.0 << 7;
    QTest::newRow("a fraction is no int") << QByteArray("1.5") << 1.5 << -1;
    QTest::newRow("decimal comma is no number") << QByteArray("1,5") << -1.0 << -1;
    QTest::newRow("leading zero is not octal") << QByteArray("010") << 10.0 << 10;
    QTest::newRow("too large for a double") << QByteArray("1e400") << -1.0 << -1;
    QTest::newRow("empty") << QByteArray() << -1.0 << -1;
}

void tst_KRXMLParser::numbers()
{
    QFETCH(QByteArray, text);
    QFETCH(double, asDouble);
    QFETCH(int, asInt);
    const QDomElement node = element("<e n=\"" + text + "\"><c>" + text + "</c></e>");
    const QString name = QStringLiteral("n");
    QCOMPARE(KRXMLParser::doubleAttribute(node, name, -1.0), asDouble);
    QCOMPARE(KRXMLParser::intAttribute(node, name, -1), asInt);
    QCOMPARE(KRXMLParser::doubleText(node, QStringLiteral("c"), -1.0), asDouble);
    QCOMPARE(KRXMLParser::doubleText(node, QStringLiteral("missing"), 4.0), 4.0);
    QCOMPARE(KRXMLParser::intAttribute(node, QStringLiteral("missing"), 4), 4);
}

void tst_KRXMLParser::texts()
{
    const QDomElement node = element("<e><x><c>deep</c></x><c>first</c><c>second</c><empty/></e>");
    const QString fallback = QStringLiteral("fallback");
    QCOMPARE(KRXMLParser::text(node, QStringLiteral("c"), fallback), QStringLiteral("first"));
    QCOMPARE(KRXMLParser::text(node, QStringLiteral("empty"), fallback), QString());
    QCOMPARE(KRXMLParser::text(node, QStringLiteral("deep"), fallback), fallback);
    QCOMPARE(KRXMLParser::text(QDomElement(), QStringLiteral("c"), fallback), fallback);
}

void tst_KRXMLParser::dateTimeText_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QDateTime>("expected");
    const QDateTime noon(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC);
    QTest::newRow("UTC") << QByteArray("2024-05-01T12:00:00Z") << noon;
    QTest::newRow("line break behind UTC") << QByteArray("2024-05-01T12:00:00Z\n") << noon;
    QTest::newRow("blank in front") << QByteArray("  2024-05-01T12:00:00Z") << noon;
    QTest::newRow("offset is kept") << QByteArray("2024-05-01T14:00:00+02:00") << noon;
    QTest::newRow("no time at all") << QByteArray("yesterday") << QDateTime();
}

void tst_KRXMLParser::dateTimeText()
{
    QFETCH(QByteArray, text);
    QFETCH(QDateTime, expected);
    const QDomElement node = element("<e><time>" + text + "</time></e>");
    QCOMPARE(KRXMLParser::dateTimeText(node, QStringLiteral("time"), Qt::ISODate, QDateTime()), expected);
    QCOMPARE(KRXMLParser::dateTimeText(node, QStringLiteral("when"), Qt::ISODate, expected), expected);
}

void tst_KRXMLParser::readColor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QRgb>("expected");
    QTest::newRow("alpha first") << QStringLiteral("#50fca404") << qRgba(0xfc, 0xa4, 0x04, 0x50);
    QTest::newRow("opaque") << QStringLiteral("#FF9100") << qRgba(0xff, 0x91, 0x00, 0xff);
    QTest::newRow("name") << QStringLiteral("red") << qRgba(255, 0, 0, 255);
    QTest::newRow("blanks around") << QStringLiteral(" #ff9100\n") << qRgba(0xff, 0x91, 0x00, 0xff);
    QTest::newRow("empty") << QString() << qRgba(0, 0, 0, 0);
    QTest::newRow("only the sign") << QStringLiteral("#") << qRgba(0, 0, 0, 0);
    QTest::newRow("no colour") << QStringLiteral("#xyzxyz") << qRgba(0, 0, 0, 0);
}

void tst_KRXMLParser::readColor()
{
    QFETCH(QString, text);
    QTEST(KRXMLParser::readColor(text).rgba(), "expected");
}

void tst_KRXMLParser::readColorOfOtherByteOrder()
{
    QCOMPARE(KRXMLParser::readColor(QStringLiteral(" #7f0080ff "), AbgrByteOrder).rgba(), qRgba(0xff, 0x80, 0, 0x7f));
    QCOMPARE(KRXMLParser::readColor(QStringLiteral("#0080ff"), AbgrByteOrder).rgba(), qRgba(0, 0x80, 0xff, 0xff));
    QCOMPARE(KRXMLParser::readColor(QStringLiteral("chocolate"), AbgrByteOrder).rgba(),
             QColor(QStringLiteral("chocolate")).rgba()); // nine letters, as many as a sign and eight digits
}

static const KRTestRegistration<tst_KRXMLParser> registration;

#include "tst_KRXMLParser.moc"
