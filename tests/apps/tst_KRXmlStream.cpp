#include "KRXmlStream.h"

#include "KRTestRegistry.h"

#include <KRCore/KRErrorHistory.h>

#include <QBuffer>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// "name@line(text)" of every child of the document element.
QStringList childrenOf(const QByteArray &xml, KRErrorHistory *history = nullptr)
{
    QStringList found;
    const bool isRead = KRXmlStream::read(xml, QStringLiteral("test.xml"), history, [&found](KRXmlStream &stream) {
        found.clear();
        while (stream.readNextChild()) {
            const QString name = stream.name().toString();
            const int line = stream.line();
            found.append(QStringLiteral("%1@%2(%3)").arg(name, QString::number(line), stream.readText()));
        }
    });
    return isRead ? found : QStringList{QStringLiteral("unreadable")};
}

QByteArray nested(int levels)
{
    return QByteArray("<a>").repeated(levels) + QByteArray("</a>").repeated(levels);
}

QByteArray withAttributes(int count)
{
    QByteArray xml = "<a><b";
    for (int i = 0; i < count; ++i)
        xml += " n" + QByteArray::number(i) + "='1'";
    return xml + "/></a>";
}

} // namespace

class tst_KRXmlStream : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("kr.io=false")); }
    void cleanupTestCase() { QLoggingCategory::setFilterRules(QString()); }
    void reads_data();
    void reads();
    void attributes();
    void refuses_data();
    void refuses();
    void readsFileThroughFilter();
};

void tst_KRXmlStream::reads_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const QByteArray &xml, const QStringList &expected) {
        QTest::newRow(name) << xml << expected;
    };
    row("lines and nested text", "<a>\n<b>x<c>y</c>z</b>\n<d/>\n</a>",
        {QStringLiteral("b@2(xyz)"), QStringLiteral("d@3()")});
    row("prefixes, declared or not", "<k:a xmlns:k='u'><k:b>1</k:b><gx:c>2</gx:c></k:a>",
        {QStringLiteral("b@1(1)"), QStringLiteral("c@1(2)")});
    row("CDATA and comments", "<a><b>1<!-- 2 -->3<![CDATA[<4>]]></b></a>", {QStringLiteral("b@1(13<4>)")});
    row("Latin-1 as declared", "<?xml version='1.0' encoding='ISO-8859-1'?><a><b>\xFC</b></a>",
        {QStringLiteral("b@1(ü)")});
    row("byte order mark", "\xEF\xBB\xBF<a><b>\xC3\xBC</b></a>", {QStringLiteral("b@1(ü)")});
    row("UTF-16 declared, UTF-8 written", "<?xml version='1.0' encoding='UTF-16'?><a><b>\xC3\xBC</b></a>",
        {QStringLiteral("b@1(ü)")});
    // From here on the DOM helps, and lines are not known.
    row("undeclared entity", "<a>\n<b>x&nbsp;y</b></a>", {QStringLiteral("b@0(xy)")});
    row("declared entity", "<!DOCTYPE a [<!ENTITY e 'E'>]><a><b>&e;</b></a>", {QStringLiteral("b@0(E)")});
    row("duplicate attribute", "<a><b c='1' c='2'>x</b></a>", {QStringLiteral("b@0(x)")});
    row("control character", "<a><b>x\x01y</b></a>", {QStringLiteral("b@0(xy)")});
    row("256 levels", nested(256), {QStringLiteral("a@1()")});
    row("thousand attributes", withAttributes(1000), {QStringLiteral("b@1()")});
    row("thousand of them, read by the DOM", "<r>&nbsp;" + withAttributes(1000) + "</r>", {QStringLiteral("a@0()")});
}

void tst_KRXmlStream::reads()
{
    QFETCH(QByteArray, xml);
    KRErrorHistory history;
    QTEST(childrenOf(xml, &history), "expected");
    QVERIFY(history.isEmpty());
}

void tst_KRXmlStream::attributes()
{
    QString id;
    QString missing(QStringLiteral("not asked for"));
    KRXmlStream::read("<a k:id='7' other='8'/>", QString(), nullptr, [&](KRXmlStream &stream) {
        id = stream.attribute("id");
        missing = stream.attribute("ID");
    });
    QCOMPARE(id, QStringLiteral("7"));
    QCOMPARE(missing, QString());
}

void tst_KRXmlStream::refuses_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no XML") << QByteArray("PK\3\4");
    QTest::newRow("truncated") << QByteArray("<a><b>1</b>");
    QTest::newRow("fault behind all that is read") << QByteArray("<a><b>1</b></a><");
    QTest::newRow("too deep") << nested(257);
    QTest::newRow("far too deep") << nested(100000);
    QTest::newRow("entities without end")
        << QByteArray("<!DOCTYPE a [<!ENTITY e '" + QByteArray(4000, 'x') + "'>]><a><b>"
                      + QByteArray("&e;").repeated(20000) + "</b></a>");
    QTest::newRow("more attributes than can be compared") << withAttributes(50000);
    QTest::newRow("the same in what the DOM has read") << QByteArray("<a>&nbsp;" + withAttributes(50000) + "</a>");
}

void tst_KRXmlStream::refuses()
{
    QFETCH(QByteArray, xml);
    KRErrorHistory history;
    QCOMPARE(childrenOf(xml, &history), QStringList{QStringLiteral("unreadable")});
    QCOMPARE(history.entries().size(), 1);
    QCOMPARE(history.entries().first().fileName, QStringLiteral("test.xml"));
    QVERIFY(!history.entries().first().reason.isEmpty());
}

void tst_KRXmlStream::readsFileThroughFilter()
{
    const QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("a.xml")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<a><b/></a>");
    file.close();

    int elements = 0;
    const auto count = [&elements](KRXmlStream &stream) {
        while (stream.readNextChild()) {
            ++elements;
            stream.skipElement();
        }
    };
    const auto replacement = [](QIODevice * /*source*/) {
        auto buffer = std::make_unique<QBuffer>();
        buffer->setData("<a><b/><b/></a>");
        buffer->open(QIODevice::ReadOnly);
        return buffer;
    };
    QVERIFY(KRXmlStream::read(QFileInfo(file), nullptr, count));
    QCOMPARE(elements, 1);
    QVERIFY(KRXmlStream::read(QFileInfo(file), nullptr, count, replacement));
    QCOMPARE(elements, 3);

    KRErrorHistory history;
    QVERIFY(!KRXmlStream::read(QFileInfo(dir.path()), &history, count));
    QCOMPARE(history.entries().size(), 1);
}

static const KRTestRegistration<tst_KRXmlStream> registration;

#include "tst_KRXmlStream.moc"
