#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRXMLGuard.h>
#include <KRCore/KRXMLLoader.h>

#include "KRTestRegistry.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

namespace {

QByteArray nested(int levels)
{
    return QByteArray("<a>").repeated(levels) + QByteArray("</a>").repeated(levels);
}

} // namespace

class tst_KRXMLLoader : public QObject
{
    Q_OBJECT

private slots:
    void readsWhatIsWellFormed_data();
    void readsWhatIsWellFormed();
    void refusesWithReason_data();
    void refusesWithReason();
    void decodedTextKeepsItsCharacters();
    void decodedTextIsGuarded();
    void truncatedAnywhereGivesNothing();
    void onlyRegularFiles();
};

void tst_KRXMLLoader::readsWhatIsWellFormed_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("text");
    const QString umlaut = QStringLiteral("ü");
    QTest::newRow("UTF-8") << QByteArray("<r>\xC3\xBC</r>") << umlaut;
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF<r>\xC3\xBC</r>") << umlaut;
    QTest::newRow("declared Latin-1") << QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r>\xFC</r>")
                                      << umlaut;
    QTest::newRow("entity of its own") << QByteArray("<!DOCTYPE r [<!ENTITY e \"abc\">]><r>&e;</r>")
                                       << QStringLiteral("abc");
    const QString smile = QStringLiteral("\U0001F600");
    QTest::newRow("references beyond U+FFFF")
        << QByteArray("<r>&#x1F600;&#128512;&#xE4;</r>") << smile + smile + QStringLiteral("ä");
    QTest::newRow("no references in CDATA")
        << QByteArray("<r><![CDATA[&#x1F600;]]]>]&#x1F600;</r>") << QStringLiteral("&#x1F600;]]") + smile;
    QTest::newRow("as deep as allowed") << nested(KRXMLGuard::maximumDepth) << QString();
}

void tst_KRXMLLoader::readsWhatIsWellFormed()
{
    QFETCH(QByteArray, xml);
    KRErrorHistory history;
    const QDomElement root = KRXMLLoader::parseDocumentElement(xml, QStringLiteral("x"), &history);
    QVERIFY(!root.isNull());
    QTEST(root.text(), "text");
    QVERIFY(history.isEmpty());
}

void tst_KRXMLLoader::refusesWithReason_data()
{
    const QByteArray flatEntity =
        "<!DOCTYPE r [<!ENTITY e \"" + QByteArray(4000, 'x') + "\">]><r>" + QByteArray("&e;").repeated(20000) + "</r>";
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("leer");
    QTest::newRow("blanks only") << QByteArray(" \n ") << QStringLiteral("leer");
    QTest::newRow("no XML at all") << QByteArray("PK\x03\x04 zip") << QStringLiteral("Kein lesbares XML");
    QTest::newRow("unclosed element") << QByteArray("<r><a></r>") << QStringLiteral("Kein lesbares XML");
    QTest::newRow("one level too deep") << nested(KRXMLGuard::maximumDepth + 1) << QStringLiteral("256");
    QTest::newRow("hundred thousand levels") << nested(100000) << QStringLiteral("256");
    QTest::newRow("one flat entity again and again") << flatEntity << QStringLiteral("Entitäten");
    QTest::newRow("more nodes than allowed")
        << QByteArray("<r>" + QByteArray("<a/>").repeated(KRXMLGuard::maximumNodes) + "</r>")
        << QStringLiteral("Knoten");
}

void tst_KRXMLLoader::refusesWithReason()
{
    QFETCH(QByteArray, xml);
    QFETCH(QString, reason);
    KRErrorHistory history;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("x\\.gpx.*: .+")));
    QVERIFY(KRXMLLoader::parseDocumentElement(xml, QStringLiteral("x.gpx"), &history).isNull());
    QCOMPARE(history.entries().size(), 1);
    QVERIFY2(history.entries().at(0).reason.contains(reason), qUtf8Printable(history.entries().at(0).reason));
}

void tst_KRXMLLoader::decodedTextKeepsItsCharacters()
{
    KRErrorHistory history;
    const auto xml = QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r>ü€&#x1F600;</r>");
    QCOMPARE(KRXMLLoader::parseDocumentElement(xml, QString(), &history).text(), QStringLiteral("ü€\U0001F600"));
    QVERIFY(history.isEmpty());
}

void tst_KRXMLLoader::decodedTextIsGuarded()
{
    const auto tooDeep = QString::fromLatin1(nested(KRXMLGuard::maximumDepth + 1));
    KRErrorHistory history;
    QLoggingCategory::setFilterRules(QStringLiteral("kr.io=false"));
    for (const QString &xml : {tooDeep, QStringLiteral("<r>\n<a>"), QString()})
        QVERIFY(KRXMLLoader::parseDocumentElement(xml, QStringLiteral("x"), &history).isNull());
    QLoggingCategory::setFilterRules(QString());
    QCOMPARE(history.entries().size(), 3);
    QCOMPARE(history.entries().at(1).line, 2);
}

void tst_KRXMLLoader::truncatedAnywhereGivesNothing()
{
    const QByteArray whole = "<?xml version=\"1.0\"?>\n<gpx><trk><name>a</name><trkseg><trkpt lat=\"1\" lon=\"2\">"
                             "<ele>3</ele></trkpt></trkseg></trk></gpx>";
    QLoggingCategory::setFilterRules(QStringLiteral("kr.io=false"));
    for (int length = 0; length < whole.size(); ++length)
        QVERIFY2(KRXMLLoader::parseDocumentElement(whole.left(length), QString()).isNull(),
                 whole.left(length).constData());
    QLoggingCategory::setFilterRules(QString());
    QVERIFY(!KRXMLLoader::parseDocumentElement(whole, QString()).isNull());
}

void tst_KRXMLLoader::onlyRegularFiles()
{
    const QTemporaryDir dir;
    const auto path = [&dir](const char *name) { return dir.filePath(QLatin1String(name)); };
    QVERIFY(QFile::link(path("nowhere"), path("link")));
    QCOMPARE(::mkfifo(QFile::encodeName(path("fifo")).constData(), 0600), 0);
    QLoggingCategory::setFilterRules(QStringLiteral("kr.io=false"));
    QSet<QString> reasons;
    for (const QString &name : {path("missing"), path("link"), path("fifo"), dir.path(), QStringLiteral("/dev/zero")}) {
        KRErrorHistory history;
        QVERIFY(KRXMLLoader::loadDocumentElement(QFileInfo(name), &history).isNull());
        QCOMPARE(history.entries().size(), 1);
        QCOMPARE(history.entries().at(0).fileName, name);
        reasons.insert(history.entries().at(0).reason);
    }
    QLoggingCategory::setFilterRules(QString());
    QCOMPARE(reasons.size(), 4); // the pipe and the device share theirs
}

static const KRTestRegistration<tst_KRXMLLoader> registration;

#include "tst_KRXMLLoader.moc"
