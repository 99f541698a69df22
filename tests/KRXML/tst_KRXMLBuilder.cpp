#include <KRCore/KRErrorHistory.h>
#include <KRXML/KRXMLBuilder.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QtTest>

class tst_KRXMLBuilder : public QObject
{
    Q_OBJECT

private slots:
    void attributesAreSorted();
    void indentation();
    void foreignNodes();
    void textsSurvive();
    void deepTreesNeedNoStack();
    void saveReplacesTheFile();
    void failedSaveKeepsTheOldFileAndTells();
};

void tst_KRXMLBuilder::attributesAreSorted()
{
    QDomDocument document;
    QDomElement root = KRXMLBuilder::buildRootElement(document, QStringLiteral("config"));
    for (const char *name : {"smoothingSteps", "b", "smoothing", "a"})
        root.setAttribute(QLatin1String(name), 1);
    QCOMPARE(KRXMLBuilder::toText(document),
             QStringLiteral("<config a=\"1\" b=\"1\" smoothing=\"1\" smoothingSteps=\"1\"/>"));
}

void tst_KRXMLBuilder::indentation()
{
    const KRTestTable<int, QString> table{
        {"none", -1, QStringLiteral("<r><a><b>x</b></a><m>t<i/></m></r>")},
        {"lines only", 0, QStringLiteral("<r>\n<a>\n<b>x</b>\n</a>\n<m>t<i/></m>\n</r>")},
        {"two blanks", 2, QStringLiteral("<r>\n  <a>\n    <b>x</b>\n  </a>\n  <m>t<i/></m>\n</r>")},
    };
    table.forEach([](int indent, const QString &expected) {
        QDomDocument document;
        QVERIFY(document.setContent(QByteArray("<r><a><b>x</b></a><m>t<i/></m></r>")));
        QCOMPARE(KRXMLBuilder::toText(document, indent), expected);
    });
}

void tst_KRXMLBuilder::foreignNodes()
{
    QDomDocument document;
    QVERIFY(document.setContent(QByteArray("<r><a><!-- <c> --></a><b><![CDATA[<&]]></b><?p i?></r>")));
    QCOMPARE(KRXMLBuilder::toText(document), QStringLiteral("<r><a><!-- <c> --></a><b>&lt;&amp;</b></r>"));
    QCOMPARE(KRXMLBuilder::toText(QDomDocument()), QString());
}

void tst_KRXMLBuilder::textsSurvive()
{
    const KRTestTable<QString, QString> table{
        {"markup", QStringLiteral("a<b>&\"c\" ]]> '"), QStringLiteral("a<b>&\"c\" ]]> '")},
        {"line breaks and tabs", QStringLiteral("8.2,53.1\n\t9.5,53.6\r\nend"),
         QStringLiteral("8.2,53.1\n\t9.5,53.6\r\nend")},
        {"beyond the basic plane", QString::fromUtf8("Grüße \xF0\x9F\x9A\xB2"),
         QString::fromUtf8("Grüße \xF0\x9F\x9A\xB2")},
        {"control characters are left out", QStringLiteral("a\u0001b\u0000c\uFFFFd").replace(QChar(0), QChar(2)),
         QStringLiteral("abcd")},
        {"private characters", QStringLiteral("a\uE000b"), QStringLiteral("a\uE000b")},
        {"half a character at the end", QString(QStringLiteral("x") + QChar(0xD800)), QStringLiteral("x")},
        {"half a character is left out", QString(QStringLiteral("x") + QChar(0xD800) + QStringLiteral("y")),
         QStringLiteral("xy")},
    };
    table.forEach([](const QString &text, const QString &readBack) {
        QDomDocument document;
        QDomElement root = KRXMLBuilder::buildRootElement(document, QStringLiteral("r"));
        root.setAttribute(QStringLiteral("n"), text);
        KRXMLBuilder::buildDomElement(root, QStringLiteral("c"), text);
        for (const int indent : {-1, 1}) {
            QDomDocument again;
            QVERIFY(again.setContent(KRXMLBuilder::toText(document, indent).toUtf8()));
            QCOMPARE(again.documentElement().attribute(QStringLiteral("n")), readBack);
            QCOMPARE(again.documentElement().firstChildElement().text(), readBack);
        }
    });
}

void tst_KRXMLBuilder::deepTreesNeedNoStack()
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

void tst_KRXMLBuilder::saveReplacesTheFile()
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
    QFile saved(file.filePath());
    QVERIFY(saved.open(QIODevice::ReadOnly));
    const QByteArray bytes = saved.readAll();
    QVERIFY(bytes.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"));
    QVERIFY(bytes.contains("<c>\xC3\x9F</c>"));
    QVERIFY(!bytes.contains("first"));
}

void tst_KRXMLBuilder::failedSaveKeepsTheOldFileAndTells()
{
    const QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("taken.xml")));
    QDomDocument document;
    KRXMLBuilder::buildRootElement(document, QStringLiteral("r"));
    KRErrorHistory history;
    const QFileInfo occupied(QDir(dir.path()), QStringLiteral("taken.xml"));
    const QFileInfo folderless(QDir(dir.path()), QStringLiteral("missing/file.xml"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("taken\\.xml: .+")));
    QVERIFY(!KRXMLBuilder::saveUTF8(document, occupied, &history));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("file\\.xml: .+")));
    QVERIFY(!KRXMLBuilder::saveUTF8(document, folderless, &history));
    QCOMPARE(history.entries().size(), 2);
    QVERIFY(!history.entries().at(0).reason.isEmpty());
    QVERIFY(occupied.isDir());
}

static const KRTestRegistration<tst_KRXMLBuilder> registration;

#include "tst_KRXMLBuilder.moc"
