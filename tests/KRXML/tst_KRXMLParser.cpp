#include <KRXML/KRXMLParser.h>

#include "KRTest.h"
#include "KRTestXml.h"

using KRTestXml::element;

class tst_KRXMLParser : public QObject
{
    Q_OBJECT

private slots:
    void numbers()
    {
        const KRTestTable<QByteArray, double, int> table{
            {"blanks around", " 7 ", 7.0, 7},
            {"a fraction is no int", "1.5", 1.5, -1},
            {"decimal comma is no number", "1,5", -1.0, -1},
            {"leading zero is not octal", "010", 10.0, 10},
            {"too large for a double", "1e400", -1.0, -1},
        };
        table.forEach([](const QByteArray &text, double asDouble, int asInt) {
            const QDomElement node = element("<e n=\"" + text + "\"><c>" + text + "</c></e>");
            const QString name = QStringLiteral("n");
            QCOMPARE(KRXMLParser::doubleAttribute(node, name, -1.0), asDouble);
            QCOMPARE(KRXMLParser::intAttribute(node, name, -1), asInt);
            QCOMPARE(KRXMLParser::doubleText(node, QStringLiteral("c"), -1.0), asDouble);
            QCOMPARE(KRXMLParser::doubleText(node, QStringLiteral("missing"), 4.0), 4.0);
            QCOMPARE(KRXMLParser::intAttribute(node, QStringLiteral("missing"), 4), 4);
        });
    }

    void texts()
    {
        const QDomElement node = element("<e><x><c>deep</c></x><c>first</c><c>second</c><empty/></e>");
        const QString fallback = QStringLiteral("fallback");
        QCOMPARE(KRXMLParser::text(node, QStringLiteral("c"), fallback), QStringLiteral("first"));
        QCOMPARE(KRXMLParser::text(node, QStringLiteral("empty"), fallback), QString());
        QCOMPARE(KRXMLParser::text(node, QStringLiteral("deep"), fallback), fallback);
        QCOMPARE(KRXMLParser::text(QDomElement(), QStringLiteral("c"), fallback), fallback);
    }

    void dateTimeText()
    {
        const QDateTime noon(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC);
        const KRTestTable<QByteArray, QDateTime> table{
            {"line break behind UTC", "2024-05-01T12:00:00Z\n", noon},
            {"offset is kept", "2024-05-01T14:00:00+02:00", noon},
            {"no time at all", "yesterday", QDateTime()},
        };
        table.forEach([](const QByteArray &text, const QDateTime &expected) {
            const QDomElement node = element("<e><time>" + text + "</time></e>");
            QCOMPARE(KRXMLParser::dateTimeText(node, QStringLiteral("time"), Qt::ISODate, QDateTime()), expected);
            QCOMPARE(KRXMLParser::dateTimeText(node, QStringLiteral("when"), Qt::ISODate, expected), expected);
        });
    }

    void readColor()
    {
        const KRTestTable<KRText, QRgb> table{
            {"alpha first", "#50fca404", qRgba(0xfc, 0xa4, 0x04, 0x50)},
            {"name", "red", qRgba(255, 0, 0, 255)},
            {"blanks around", " #ff9100\n", qRgba(0xff, 0x91, 0x00, 0xff)},
            {"empty", {}, qRgba(0, 0, 0, 0)},
            {"only the sign", "#", qRgba(0, 0, 0, 0)},
            {"no colour", "#xyzxyz", qRgba(0, 0, 0, 0)},
        };
        table.forEach([](const QString &text, QRgb color) { QCOMPARE(KRXMLParser::readColor(text).rgba(), color); });
    }

    void readColorOfOtherByteOrder()
    {
        QCOMPARE(KRXMLParser::readColor(QStringLiteral(" #7f0080ff "), AbgrByteOrder).rgba(), qRgba(255, 128, 0, 127));
        QCOMPARE(KRXMLParser::readColor(QStringLiteral("#0080ff"), AbgrByteOrder).rgba(), qRgba(0, 0x80, 0xff, 0xff));
        QCOMPARE(KRXMLParser::readColor(QStringLiteral("chocolate"), AbgrByteOrder).rgba(),
                 QColor(QStringLiteral("chocolate")).rgba()); // nine letters, as many as a sign and eight digits
    }
};

template class KRTestRegistration<tst_KRXMLParser>;

#include "tst_KRXMLParser.moc"
