#include "KRRecoveryFolder.h"
#include "KRRouteWorkspace.h"
#include "KRTest.h"
#include "KRWorkspaceFile.h"

namespace {

QProcessEnvironment environment(const QTemporaryDir &home)
{
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    variables.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        variables.insert(QLatin1String(name), home.path());
    return variables;
}

} // namespace

/// The program itself, as a process of its own.
class tst_krroutes : public QObject
{
    Q_OBJECT

private slots:
    void answersOnTheCommandLine()
    {
        const KRTestTable<const char *, int, const char *> table{
            {"help", "--help", 0, "--version"},
            {"version", "--version", 0, "krroutes "},
            {"unknown option", "--no-such-option", 2, "no-such-option"},
        };
        table.forEach([&](const char *argument, int exitCode, const char *answer) {
            const QTemporaryDir home;
            QProcess process;
            process.setProcessEnvironment(environment(home));
            process.setProcessChannelMode(QProcess::MergedChannels);
            process.start(QStringLiteral(KR_KRROUTES), {QString::fromUtf8(argument)});
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.exitCode(), exitCode);
            QVERIFY(QString::fromLocal8Bit(process.readAll()).contains(QString::fromUtf8(answer)));
        });
    }

    void workSurvivesBeingKilled()
    {
        const QTemporaryDir home;
        const QDir place(home.filePath(QStringLiteral("KRGeoLocation/krroutes/recovery")));
        QProcess process;
        process.setProcessEnvironment(environment(home));
        process.start(QStringLiteral(KR_KRROUTES), {QStringLiteral(KR_SAMPLES_DIR "/oldenburg-radtour.gpx")});
        QVERIFY(process.waitForStarted());
        const auto unsavedFile = [&] {
            const QStringList folders = place.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
            return place.filePath(folders.value(0) + QStringLiteral("/unsaved.krroute"));
        };
        constexpr int patienceMs = 20000;
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(unsavedFile()).isFile(), patienceMs);
        QVERIFY(KRRecoveryFolder::leftBehind(place).empty());

        process.kill();
        QVERIFY(process.waitForFinished());
        const auto folders = KRRecoveryFolder::leftBehind(place);
        QCOMPARE(folders.size(), std::size_t(1));
        KRRouteWorkspace workspace;
        QVERIFY(KRWorkspaceFile::recover(&workspace, *folders.front()));
        QCOMPARE(workspace.selection().value(0).name(), QStringLiteral("Radtour um Oldenburg"));
        QCOMPARE(workspace.selection().value(0).track().countPoints(), 308);
    }
};

template class KRTestRegistration<tst_krroutes>;

#include "tst_krroutes.moc"
