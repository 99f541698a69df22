#include "KRFileSizeLimit.h"
#include "KRNumberedRoutes.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <KRRouteDocument.h>

#include <KRCore/KRErrorHistory.h>

#include <QtTest>

#include <sys/mount.h>
#include <unistd.h>

namespace {

constexpr int endless = 1000000;
constexpr int nobody = 65534;
constexpr int patienceMs = 60000;

using KRNumberedRoutes::labelOf;

/// The program that saves, with what it says.
class Writer
{
public:
    void setEnvironment(const QString &name, int value)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(name, QString::number(value));
        m_process.setProcessEnvironment(environment);
    }
    void start(const QString &document, const QString &writer, int first, int count)
    {
        m_process.start(QStringLiteral(KR_ROUTES_WRITER),
                        {document, writer, QString::number(first), QString::number(count)});
    }
    bool waitForBegin() { return m_process.waitForReadyRead(patienceMs); }
    bool isRunning() const { return m_process.state() != QProcess::NotRunning; }
    void waitALittle() { m_process.waitForFinished(5); }
    void kill() { m_process.kill(); }
    /// The lines that were said.
    QStringList finish()
    {
        m_process.waitForFinished(patienceMs);
        return QString::fromUtf8(m_process.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    bool hasSucceeded() const { return m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0; }
    int exitCode() const { return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1; }

private:
    QProcess m_process;
};

/// The number behind the last line that begins with @p word, -1 without one.
int lastNumber(const QStringList &lines, const QString &word)
{
    int number = -1;
    for (const QString &line : lines.filter(QRegularExpression(QLatin1Char('^') + word)))
        number = line.section(QLatin1Char(' '), 1).toInt();
    return number;
}

} // namespace

/// Saves while everything goes wrong that can: what can be read afterwards is the old document or the new one, whole.
class tst_KRSaving : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void killedInTheMiddle();
    void hindered();
    void fullDisk();
    void twoAtOnce();
    void replacedTrackFiles();
    void nameTakenAfterAFailure();
    void sameTracksFromAnotherProcess();

private:
    QString path(const char *name) const { return m_dir->filePath(QLatin1String(name)); }
    QString document() const { return path("place/Reise.krroute"); }
    QDir tracks() const { return KRRouteDocument::trackFolder(QFileInfo(document())); }
    /// Saves in a process of its own; what it complains about, empty when all went well.
    QString save(int number, const char *variable = nullptr, int value = 0) const;

    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_KRSaving::init()
{
    // In memory where there is such a folder: many saves wait for a disk for long.
    const QString memory = QStringLiteral("/dev/shm");
    m_dir = QFileInfo(memory).isWritable() ? std::make_unique<QTemporaryDir>(memory + QStringLiteral("/krXXXXXX"))
                                           : std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("place")));
    QLoggingCategory::setFilterRules(QStringLiteral("kr.io=false"));
    // For writers that are not the superuser.
    QVERIFY(QFile::setPermissions(m_dir->path(), QFile::Permissions(0x7755)));
    if (::geteuid() == 0)
        QCOMPARE(::chown(QFile::encodeName(path("place")).constData(), nobody, gid_t(nobody)), 0);
}

QString tst_KRSaving::save(int number, const char *variable, int value) const
{
    Writer writer;
    if (variable != nullptr)
        writer.setEnvironment(QLatin1String(variable), value);
    writer.start(document(), QStringLiteral("w"), number, 1);
    const QStringList lines = writer.finish();
    if (writer.hasSucceeded())
        return QString();
    return writer.exitCode() == 1 && lines.size() == 2 ? lines.last() : QStringLiteral("!");
}

void tst_KRSaving::killedInTheMiddle()
{
    const int kills = qEnvironmentVariableIsSet("KR_KILLS") ? qEnvironmentVariableIntValue("KR_KILLS") : 40;
    const quint32 longestWaitUs = 30000;
    const QString name = QStringLiteral("w");
    QCOMPARE(save(0), QString());
    QString state = labelOf(name, 0);
    int next = 1;
    int hits = 0;
    for (int kill = 0; kill < kills; ++kill) {
        Writer writer;
        writer.start(document(), name, next, endless);
        QVERIFY(writer.waitForBegin());
        QThread::usleep(QRandomGenerator::global()->bounded(longestWaitUs));
        writer.kill();
        const QStringList lines = writer.finish();
        const int begun = lastNumber(lines, QStringLiteral("begin"));
        const int ended = lastNumber(lines, QStringLiteral("end"));
        const QString old = ended < 0 ? state : labelOf(name, ended);
        state = KRNumberedRoutes::wholeFile(document());
        QVERIFY2(state == old || state == labelOf(name, begun), qPrintable(state + QStringLiteral(" after ") + old));
        next = begun + 1;
        hits += begun > ended ? 1 : 0;
    }
    qInfo("%d of %d kills hit a running save", hits, kills);
    QVERIFY(hits > kills / 2);
    QCOMPARE(save(next), QString());
    QCOMPARE(KRNumberedRoutes::wholeFile(document()), labelOf(name, next));
}

void tst_KRSaving::hindered()
{
    const auto shell = [this](const char *command) {
        QProcess process;
        process.setWorkingDirectory(m_dir->path());
        process.start(QStringLiteral("sh"), {QStringLiteral("-ec"), QLatin1String(command)});
        return process.waitForFinished() && process.exitCode() == 0;
    };
    const char *const user = "KR_WRITER_USER";
    // A shell command in the folder above, its reverse, what it hinders, and the limits of the writer.
    const KRTestTable<const char *, const char *, const char *, const char *, int> table{
        {"folder of the document read-only", "chmod 555 place", "chmod 755 place", "Reise.krroute", user, nobody},
        {"folder of the tracks read-only", "chmod 555 place/Reise.tracks", "chmod 755 place/Reise.tracks", "track_",
         user, nobody},
        {"folder of the tracks not to be entered", "chmod 000 place/Reise.tracks", "chmod 755 place/Reise.tracks",
         "Reise.tracks", user, nobody},
        {"document read-only", "chmod 444 place/Reise.krroute", "chmod 644 place/Reise.krroute", "Reise.krroute", user,
         nobody},
        {"folder in the place of the document", "mv place/Reise.krroute old; mkdir place/Reise.krroute",
         "rmdir place/Reise.krroute; mv old place/Reise.krroute", "Reise.krroute", user, nobody},
        {"file in the place of the folder", "mv place/Reise.tracks old; touch place/Reise.tracks",
         "rm place/Reise.tracks; mv old place/Reise.tracks", "Reise.tracks", user, nobody},
        {"folder away", "mv place old", "mv old place", "Reise.tracks", user, nobody},
        {"link to a folder that is away", "mv place/Reise.tracks old; ln -s nowhere place/Reise.tracks",
         "rm place/Reise.tracks; mv old place/Reise.tracks", "Reise.tracks", user, nobody},
        {"no byte can be written", "true", "true", "track_", "KR_WRITER_LIMIT", 0},
        {"part of a track can be written", "true", "true", "track_", "KR_WRITER_LIMIT", 3000},
#ifndef __SANITIZE_ADDRESS__ // which opens files itself
        {"no descriptor left for a file", "true", "true", "track_", "KR_WRITER_FILES", 0},
#endif
    };
    table.forEach([&](const char *fault, const char *remedy, const char *named, const char *variable, int value) {
        init();
        QCOMPARE(save(0, user, nobody), QString());
        QVERIFY(shell(fault));
        const QString complaint = save(1, variable, value);
        const QRegularExpression expected(QLatin1String(named) + QStringLiteral("[^:]*: .+"));
        QVERIFY2(complaint.contains(expected), qPrintable(complaint));
        QVERIFY(shell(remedy));
        QCOMPARE(KRNumberedRoutes::wholeFile(document()), QStringLiteral("w/0"));
        QVERIFY(tracks().entryInfoList(QDir::Files).size() < 20);
        QCOMPARE(save(1, user, nobody), QString());
        QCOMPARE(KRNumberedRoutes::wholeFile(document()), QStringLiteral("w/1"));
    });
}

void tst_KRSaving::fullDisk()
{
    const QByteArray place = QFile::encodeName(path("place"));
    if (::mount("tmpfs", place.constData(), "tmpfs", 0, "size=256k,mode=0777") != 0)
        QSKIP("this user may not mount a small disk");
    int number = 0;
    QString complaint;
    while (complaint.isEmpty() && number < 100)
        complaint = save(number++);
    const QString state = KRNumberedRoutes::wholeFile(document());
    const int emptyFiles = int(tracks().entryInfoList(QDir::Files).size());
    ::umount(place.constData());
    QVERIFY2(complaint.contains(QRegularExpression(QStringLiteral("(track_\\d+\\.gps|Reise.krroute): .+"))),
             qPrintable(complaint));
    QVERIFY(number > 2 && emptyFiles > 3);
    QCOMPARE(state, labelOf(QStringLiteral("w"), number - 2));
}

void tst_KRSaving::twoAtOnce()
{
    const KRTestTable<const char *> table{
        {"two documents in one folder", "place/Anders.krroute"},
        {"the same document", "place/Reise.krroute"},
        {"two documents with one folder of tracks", "place/Reise.KRROUTE"},
    };
    table.forEach([&](const char *second) {
        init();
        const int rounds = 60;
        const QStringList documents{document(), path(second)};
        const QStringList names{QStringLiteral("one"), QStringLiteral("two")};
        QCOMPARE(save(0), QString());
        Writer writers[2];
        for (int i = 0; i < 2; ++i)
            writers[i].start(documents.at(i), names.at(i), 1, rounds);
        int readings = 0;
        while (writers[0].isRunning() || writers[1].isRunning()) {
            for (Writer &writer : writers)
                writer.waitALittle();
            const QString state = KRNumberedRoutes::wholeFile(document());
            QVERIFY2(!state.startsWith(QLatin1Char('!')), qPrintable(state));
            ++readings;
        }
        QVERIFY(readings > 3);
        for (Writer &writer : writers) {
            writer.finish();
            QVERIFY(writer.hasSucceeded());
        }
        const QString last = KRNumberedRoutes::wholeFile(document());
        const bool isShared = documents.at(0) == documents.at(1);
        QVERIFY(last == labelOf(names.at(0), rounds) || (isShared && last == labelOf(names.at(1), rounds)));
        if (!isShared)
            QCOMPARE(KRNumberedRoutes::wholeFile(documents.at(1)), labelOf(names.at(1), rounds));
    });
}

/// Somebody puts other files in the place of those that this process has written or read.
void tst_KRSaving::replacedTrackFiles()
{
    const auto saveHere = [this](int number) {
        KRRouteDocument routes;
        routes.setSelection(KRNumberedRoutes::make(QStringLiteral("here"), number));
        return routes.save(QFileInfo(document()), nullptr);
    };
    QVERIFY(saveHere(1));
    QVERIFY(tracks().removeRecursively());
    QVERIFY(QFile::remove(document()));
    QCOMPARE(save(5), QString());
    const QString other = KRNumberedRoutes::wholeFile(document());
    QVERIFY(saveHere(1));
    QCOMPARE(KRNumberedRoutes::wholeFile(document()), QStringLiteral("here/1"));
    QCOMPARE(other, QStringLiteral("w/5"));
}

/// What could not be written has a name all the same, which another process may give to a file of its own.
void tst_KRSaving::nameTakenAfterAFailure()
{
    KRRouteDocument routes;
    routes.setSelection(KRNumberedRoutes::make(QStringLiteral("here"), 1));
    QVERIFY(QDir().mkpath(tracks().path()));
    QVERIFY(QFile::setPermissions(path("place"), QFile::Permissions(0x7777)));
    {
        const KRFileSizeLimit limit(100);
        KRErrorHistory history;
        QVERIFY(!routes.save(QFileInfo(document()), &history));
        QCOMPARE(history.entries().size(), 1);
    }
    QVERIFY(tracks().isEmpty());
    QCOMPARE(save(2), QString());
    QVERIFY(routes.save(QFileInfo(document()), nullptr));
    QCOMPARE(KRNumberedRoutes::wholeFile(document()), QStringLiteral("here/1"));
}

void tst_KRSaving::sameTracksFromAnotherProcess()
{
    QCOMPARE(save(1), QString());
    const QStringList files = tracks().entryList(QDir::Files);
    QCOMPARE(files.size(), 6);
    QCOMPARE(save(1), QString());
    QCOMPARE(tracks().entryList(QDir::Files), files);
    QCOMPARE(KRNumberedRoutes::wholeFile(document()), labelOf(QStringLiteral("w"), 1));
}

template class KRTestRegistration<tst_KRSaving>;

#include "tst_KRSaving.moc"
