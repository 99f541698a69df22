#include <KRXML/KRXMLBuilder.h>

#include "KRTest.h"
#include "KRTestFile.h"

class tst_KRXMLBuilder : public QObject
{
    Q_OBJECT

private slots:
    void indentation()
    {
        const KRTestTable<int, KRText> table{
            {"none", -1, "<r><a><b>x</b></a><m>t<i/></m></r>"},
            {"two blanks", 2, "<r>\n  <a>\n    <b>x</b>\n  </a>\n  <m>t<i/></m>\n</r>"},
        };
        table.forEach([](int indent, const QString &expected) {
            QDomDocument document;
            QVERIFY(document.setContent(QByteArray("<r><a><b>x</b></a><m>t<i/></m></r>")));
            QCOMPARE(KRXMLBuilder::toText(document, indent), expected);
        });
    }

    void foreignNodesAndSortedAttributes()
    {
        QDomDocument document;
        QVERIFY(document.setContent(QByteArray("<r><a><!-- <c> --></a><b><![CDATA[<&]]></b><?p i?></r>")));
        QCOMPARE(KRXMLBuilder::toText(document), QStringLiteral("<r><a><!-- <c> --></a><b>&lt;&amp;</b></r>"));
        QCOMPARE(KRXMLBuilder::toText(QDomDocument()), QString());
        QDomDocument withType(QStringLiteral("r"));
        KRXMLBuilder::buildDomElement(withType, QStringLiteral("r"));
        QCOMPARE(KRXMLBuilder::toText(withType), QStringLiteral("<r/>"));
        QVERIFY(document.setContent(QByteArray("<config smoothingSteps='1' b='2' smoothing='3' a='4'/>")));
        QCOMPARE(KRXMLBuilder::toText(document),
                 QStringLiteral("<config a=\"4\" b=\"2\" smoothing=\"3\" smoothingSteps=\"1\"/>"));
    }

    void textsSurvive()
    {
        const auto fromUtf8 = [](const char *utf8) { return QString::fromUtf8(utf8); };
        const QString half = QChar(0xD800);
        const KRTestTable<QString, QString> table{
            {"line breaks and tabs", fromUtf8("8.2,53.1\n\t9.5,53.6\r\nend"), fromUtf8("8.2,53.1\n\t9.5,53.6\r\nend")},
            {"beyond the basic plane", fromUtf8("Grüße \xF0\x9F\x9A\xB2"), fromUtf8("Grüße \xF0\x9F\x9A\xB2")},
            {"control characters are left out", fromUtf8("a\1b\2c\uFFFFd"), fromUtf8("abcd")},
            {"private characters", fromUtf8("a\uE000b"), fromUtf8("a\uE000b")},
            {"half a character is left out", fromUtf8("x") + half + fromUtf8("y"), fromUtf8("xy")},
            {"half a character at the end", fromUtf8("x") + half, fromUtf8("x")},
            {"what XML is made of", fromUtf8("<a b='c' d=\"e\"> & ]]>"), fromUtf8("<a b='c' d=\"e\"> & ]]>")},
        };
        table.forEach([](const QString &text, const QString &readBack) {
            QDomDocument document;
            QDomElement root = KRXMLBuilder::buildRootElement(document, QStringLiteral("r"));
            root.setAttribute(QStringLiteral("n"), text);
            KRXMLBuilder::buildDomElement(root, QStringLiteral("c"), text);
            QCOMPARE(KRXMLBuilder::readableText(text), readBack);
            for (const int indent : {-1, 1}) {
                QDomDocument again;
                QVERIFY(again.setContent(KRXMLBuilder::toText(document, indent).toUtf8()));
                QCOMPARE(again.documentElement().attribute(QStringLiteral("n")), readBack);
                QCOMPARE(again.documentElement().firstChildElement().text(), readBack);
            }
        });
    }

    void deepTreesNeedNoStack()
    {
        constexpr int depth = 7000; // QDom's own writer needs more than 8 MB of stack for it
        QDomDocument document;
        QDomElement element = KRXMLBuilder::buildRootElement(document, QStringLiteral("r"));
        for (int i = 1; i < depth; ++i)
            element = KRXMLBuilder::buildDomElement(element, QStringLiteral("r"));
        const QString text = KRXMLBuilder::toText(document);
        QCOMPARE(text.count(QLatin1String("<r>")), depth - 1);
        QCOMPARE(text.count(QLatin1String("</r>")), depth - 1);
        // QDom itself takes its trees apart by recursion: help it.
        while (!element.parentNode().isDocument()) {
            QDomNode parent = element.parentNode();
            parent.removeChild(element);
            element = parent.toElement();
        }
    }

    void saveReplacesTheFile()
    {
        const QTemporaryDir dir;
        const QFileInfo file(QDir(dir.path()), QStringLiteral("Straße.xml"));
        QDomDocument document;
        QDomElement root = KRXMLBuilder::buildRootElement(document, QStringLiteral("r"));
        for (const QString &text : {QStringLiteral("a long first text"), QStringLiteral("ß")}) {
            while (root.hasChildNodes())
                root.removeChild(root.firstChild());
            KRXMLBuilder::buildDomElement(root, QStringLiteral("c"), text);
            QVERIFY(KRXMLBuilder::saveUTF8(document, file, nullptr));
        }
        const QByteArray bytes = KRTestFile::content(file.filePath());
        QVERIFY(bytes.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"));
        QVERIFY(bytes.contains("<c>\xC3\x9F</c>"));
        QVERIFY(!bytes.contains("first"));
    }
};

template class KRTestRegistration<tst_KRXMLBuilder>;

#include "tst_KRXMLBuilder.moc"
