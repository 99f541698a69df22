#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRFileHandler.h>
#include <KRCore/KRXMLGuard.h>

#include "KRTestRegistry.h"

#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

class tst_KRFileHandler : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void readsLines_data();
    void readsLines();
    void refusesText_data();
    void refusesText();
    void refusesWhatIsNoFile();
    void writesIntoPipes();

private:
    QFileInfo written(const QByteArray &content) const;

    QTemporaryDir m_dir;
};

void tst_KRFileHandler::initTestCase()
{
    QVERIFY(m_dir.isValid());
    QLoggingCategory::setFilterRules(QStringLiteral("kr.io=false"));
}

void tst_KRFileHandler::cleanupTestCase()
{
    QLoggingCategory::setFilterRules(QString());
}

QFileInfo tst_KRFileHandler::written(const QByteArray &content) const
{
    QFile file(m_dir.filePath(QStringLiteral("text")));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write the test file");
    return QFileInfo(file);
}

void tst_KRFileHandler::readsLines_data()
{
    const QString umlaut = QStringLiteral("ü");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("nothing") << QByteArray() << QStringList();
    QTest::newRow("end of the last line missing")
        << QByteArray("\xC3\xBC\nb") << QStringList{umlaut, QStringLiteral("b")};
    QTest::newRow("carriage returns") << QByteArray("\xC3\xBC\r\n\r\n") << QStringList{umlaut, QString()};
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF\xC3\xBC") << QStringList{umlaut};
    QTest::newRow("UTF-16, low byte first")
        << QByteArray("\xFF\xFE\xFC\0\n\0a\0", 8) << QStringList{umlaut, QStringLiteral("a")};
    QTest::newRow("declared Latin-1 stays UTF-8")
        << QByteArray("<?xml encoding='ISO-8859-1'?>\n\xC3\xBC")
        << QStringList{QStringLiteral("<?xml encoding='ISO-8859-1'?>"), umlaut};
    QTest::newRow("no UTF-8") << QByteArray("a\xFC"
                                            "b")
                              << QStringList{QStringLiteral("a\uFFFDb")};
    QTest::newRow("umlaut across the pieces that are read")
        << QByteArray(16383, 'x') + "\xC3\xBC" << QStringList{QString(16383, QLatin1Char('x')) + umlaut};
}

void tst_KRFileHandler::readsLines()
{
    QFETCH(QByteArray, content);
    KRErrorHistory history;
    QTEST(KRFileHandler::readTextFile(written(content), &history), "expected");
    QVERIFY(history.isEmpty());
}

void tst_KRFileHandler::refusesText_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isAccepted");
    QTest::newRow("as long as allowed") << QByteArray(KRXMLGuard::maximumBytes, 'x') << true;
    QTest::newRow("longer") << QByteArray(KRXMLGuard::maximumBytes + 1, 'x') << false;
    QTest::newRow("as many lines as allowed") << QByteArray(KRFileHandler::maximumLines, '\n') << true;
    QTest::newRow("one line more") << QByteArray(KRFileHandler::maximumLines, '\n') + 'x' << false;
}

void tst_KRFileHandler::refusesText()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, isAccepted);
    KRErrorHistory history;
    QCOMPARE(!KRFileHandler::readTextFile(written(content), &history).isEmpty(), isAccepted);
    QCOMPARE(history.entries().size(), isAccepted ? 0 : 1);
}

void tst_KRFileHandler::refusesWhatIsNoFile()
{
    for (const QString &path : {m_dir.path(), m_dir.filePath(QStringLiteral("missing")), QStringLiteral("/dev/zero")}) {
        KRErrorHistory history;
        QVERIFY(KRFileHandler::readTextFile(QFileInfo(path), &history).isEmpty());
        QCOMPARE(history.entries().size(), 1);
    }
}

void tst_KRFileHandler::writesIntoPipes()
{
    const QByteArray path = QFile::encodeName(m_dir.filePath(QStringLiteral("pipe")));
    QCOMPARE(::mkfifo(path.constData(), 0600), 0);
    const int reader = ::open(path.constData(), O_RDONLY | O_NONBLOCK);
    QVERIFY(reader >= 0);
    QVERIFY(KRFileHandler::writeAll(QFileInfo(QFile::decodeName(path)), "through the pipe", nullptr));
    QByteArray bytes(100, '\0');
    bytes.truncate(int(::read(reader, bytes.data(), size_t(bytes.size()))));
    ::close(reader);
    QCOMPARE(bytes, QByteArray("through the pipe"));
    QVERIFY(!QFileInfo(QFile::decodeName(path)).isFile());
}

static const KRTestRegistration<tst_KRFileHandler> registration;

#include "tst_KRFileHandler.moc"
