#include "KRAutosave.h"

#include "KRRouteWorkspace.h"
#include "KRTest.h"
#include "KRTestFile.h"
#include "KRWorkspaceFile.h"

#include <KRRouteDocument.h>

#include <KRGeoLocation/KRGPXTrackFileRegistry.h>
#include <KRGeoLocation/KRGPXTrackFileRegistryKey.h>
#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QSemaphore>
#include <QThreadPool>

#include <sys/stat.h>

#include <atomic>

namespace {

KRGPXConfiguredTrackList oneTrack(const QString &name)
{
    const QDateTime start(QDate(2025, 5, 17), QTime(8, 30), Qt::UTC);
    const KRGPXTrackSegment segment({KRGPXTrackPoint(KRGeoPosition(53.1, 8.2), 4, start, QStringLiteral("Ecke")),
                                     KRGPXTrackPoint(KRGeoPosition(53.2, 8.3), 5, QDateTime(), QString())});
    return KRGPXConfiguredTrackList(KRGPXConfiguredTrack(KRGPXTrack(name, QString(), {segment}, LineStringTrackShape),
                                                         KRGPXTrackConfiguration::defaultValue()));
}

QStringList filesBelow(const QDir &dir)
{
    QStringList files;
    QDirIterator iterator(dir.path(), QDir::Files, QDirIterator::Subdirectories);
    while (iterator.hasNext())
        files.append(dir.relativeFilePath(iterator.next()));
    files.sort();
    return files;
}

/// What a crash leaves: all that is there but the lock, which ended with the process.
void copyAsAfterCrash(const QDir &place, const QDir &copy)
{
    for (const QString &file : filesBelow(place)) {
        if (file.endsWith(QLatin1String(".lock")))
            continue;
        QVERIFY(copy.mkpath(QFileInfo(file).path()));
        QVERIFY(QFile::copy(place.filePath(file), copy.filePath(file)));
    }
}

/// A document that is saved unasked, after a moment.
struct Work {
    explicit Work(const QDir &place) : autosave(&workspace, place) { autosave.setDelay(10); }
    void add(const char *name) { workspace.addTracks(oneTrack(QLatin1String(name)), QString()); }
    bool wait() { return QSignalSpy(&autosave, &KRAutosave::written).wait(); }

    KRRouteWorkspace workspace;
    KRAutosave autosave;
};

} // namespace

class tst_KRAutosave : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_dir = std::make_unique<QTemporaryDir>(); }

    void workSurvivesACrash()
    {
        for (const int mostPointsInOneFile : {1000, 3}) { // the second with track files
            init();
            Work work(place());
            work.autosave.setMostPointsInOneFile(mostPointsInOneFile);
            const QString document = path("Reise.krroute");
            work.add("Tour");
            QVERIFY(KRWorkspaceFile::save(&work.workspace, document));
            work.add("Neu");
            work.workspace.setCroppingOpacity(17);
            QVERIFY(work.wait());
            copyAsAfterCrash(place(), afterCrash());

            auto folders = KRRecoveryFolder::leftBehind(afterCrash());
            QCOMPARE(folders.size(), std::size_t(1));
            QCOMPARE(folders.front()->documentFile(), document);

            KRRouteWorkspace recovered;
            QVERIFY(KRWorkspaceFile::recover(&recovered, *folders.front()));
            QVERIFY(recovered.selection() == work.workspace.selection());
            QCOMPARE(recovered.selection().allTimeStamps(), work.workspace.selection().allTimeStamps());
            QVERIFY(recovered.isModified());
            QCOMPARE(recovered.fileName(), document);

            // What has been recovered stays safe, and is asked for once.
            {
                KRAutosave next(&recovered, afterCrash());
                next.setDelay(10);
                next.adopt(std::move(folders.front()));
                QVERIFY(KRRecoveryFolder::leftBehind(afterCrash()).empty());
                QCOMPARE(unsaved(afterCrash()).size(), 1);
            }
            QCOMPARE(filesBelow(afterCrash()), QStringList());
        }
    }

    void waitsForNobodyElse()
    {
        QThreadPool *const pool = QThreadPool::globalInstance();
        const int threads = pool->maxThreadCount();
        pool->setMaxThreadCount(1);
        QSemaphore end;
        pool->start([&end] { end.acquire(); });
        Work work(place());
        work.add("Tour");
        const bool isWritten = work.wait();
        end.release();
        pool->waitForDone();
        pool->setMaxThreadCount(threads);
        QVERIFY(isWritten);
    }

    void nothingStaysThatIsNotNeeded()
    {
        {
            Work work(place());
            work.add("Tour");
            QVERIFY(work.wait());
            QVERIFY(KRWorkspaceFile::save(&work.workspace, path("Reise.krroute")));
            QCOMPARE(unsaved(place()), QStringList());
            work.add("Neu");
            QVERIFY(work.wait());
            QCOMPARE(unsaved(place()).size(), 1);
        }
        QVERIFY(place().isEmpty());
    }

    void whatIsTooLargeIsTriedOnce()
    {
        static std::atomic<int> complaints; // of any thread
        complaints = 0;
        const auto count = [](QtMsgType, const QMessageLogContext &, const QString &) { ++complaints; };
        const QtMessageHandler previous = qInstallMessageHandler(count);
        const auto restore = qScopeGuard([previous] { qInstallMessageHandler(previous); });
        Work work(place());
        QSignalSpy failed(&work.autosave, &KRAutosave::failed);
        KRGPXConfiguredTrackList tracks;
        for (int i = 0; i < 50001; ++i)
            tracks.append(KRGPXConfiguredTrack());
        work.workspace.addTracks(tracks, QString());
        QVERIFY(failed.wait());
        const int firstComplaints = complaints;
        QVERIFY(firstComplaints > 0);
        work.workspace.setCroppingOpacity(17);
        QVERIFY(failed.wait());
        QCOMPARE(failed.at(1), failed.at(0));
        QCOMPARE(complaints, firstComplaints);
        work.workspace.replaceTracks(0, 50000, {}, QString());
        QVERIFY(work.wait());
        QCOMPARE(unsaved(place()).size(), 1);
    }

    void manyFoldersAreLeftBehind()
    {
        for (int i = 0; i < 55; ++i)
            KRTestFile::write(place().filePath(QStringLiteral("%1/unsaved.krroute").arg(i)), "<routes/>");
        for (const char *const name : {"recovery/0.lock", "recovery/1/document"})
            QCOMPARE(::mkfifo(QFile::encodeName(path(name)).constData(), 0600), 0);
        const auto first = KRRecoveryFolder::leftBehind(place());
        QCOMPARE(first.size(), std::size_t(50));
        const auto others = KRRecoveryFolder::leftBehind(place());
        QCOMPARE(others.size(), std::size_t(4));
        int pipes = 0;
        for (const auto *const folders : {&first, &others}) {
            for (const auto &folder : *folders)
                pipes += folder->setDocument(path("Reise.krroute"), QDateTime()) ? 0 : 1;
        }
        QCOMPARE(pipes, 1);
    }

    /// Of the folders in which there is no work.
    void onlyOwnFoldersAreCleared()
    {
        const QString own = QStringLiteral("6b1f4c9e-20f7-4c38-8d0e-0f7a5be0c1d");
        const auto folder = [&](int i) { return own + QString::number(i, 16); };
        KRTestFile::write(place().filePath(folder(0) + QStringLiteral("/unsaved.tracks/track_1.gps")), "");
        KRTestFile::write(place().filePath(folder(0) + QStringLiteral("/unsaved.krroute.aBcDeF")), "");
        KRTestFile::write(path("elsewhere/track.gps"), "");
        const QStringList foreign{folder(1) + QStringLiteral("/notes.txt"),
                                  folder(2) + QStringLiteral("/unsaved.tracks/tour.gps"),
                                  folder(3) + QStringLiteral("/.hidden"), QStringLiteral("backup/document"),
                                  folder(4) + QStringLiteral("/unsaved.krroute/x")};
        for (const QString &name : foreign)
            KRTestFile::write(place().filePath(name), "");
        QVERIFY(place().mkdir(folder(5))
                && QFile::link(path("elsewhere"), place().filePath(folder(5) + QStringLiteral("/unsaved.tracks"))));
        QVERIFY(KRRecoveryFolder::leftBehind(place()).empty());
        for (const QString &name : foreign)
            QVERIFY2(QFile::exists(place().filePath(name)), qPrintable(name));
        QVERIFY(!QFile::exists(place().filePath(folder(0))));

        // Nor is such a thing removed together with the work.
        KRTestFile::write(place().filePath(folder(1) + QStringLiteral("/unsaved.krroute")), "<routes/>");
        const auto folders = KRRecoveryFolder::leftBehind(place());
        QCOMPARE(folders.size(), std::size_t(1));
        folders.front()->discard();
        QCOMPARE(filesBelow(place()).filter(folder(1)), QStringList{foreign.first()});
        QVERIFY(QFile::exists(path("elsewhere/track.gps")));

        // Those that stay do not count.
        init();
        for (int i = 0; i < 420; ++i) {
            const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
            QVERIFY(place().mkpath(i % 2 == 0 ? name : name + QStringLiteral("/foreign")));
        }
        QVERIFY(KRRecoveryFolder::leftBehind(place()).empty());
        QCOMPARE(place().entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 220);
    }

    void recoveredDocumentRefersToItsUnreadableFiles()
    {
        const QString document = path("Reise.krroute");
        const QDir trackFolder = KRRouteDocument::trackFolder(QFileInfo(document));
        KRRouteWorkspace writer;
        writer.addTracks(oneTrack(QStringLiteral("Tour")), QString());
        QVERIFY(KRWorkspaceFile::save(&writer, document));
        const QString damaged = trackFolder.filePath(trackFolder.entryList(QDir::Files).first());
        KRTestFile::write(damaged, "<includedTrack><trk>");

        Work work(place());
        QVERIFY(KRWorkspaceFile::open(&work.workspace, document));
        work.workspace.setCroppingOpacity(17);
        QVERIFY(work.wait());
        copyAsAfterCrash(place(), afterCrash());
        const auto folders = KRRecoveryFolder::leftBehind(afterCrash());
        KRRouteWorkspace recovered;
        QVERIFY(KRWorkspaceFile::recover(&recovered, *folders.front()));
        QVERIFY(!recovered.isChangedOutside());
        QVERIFY(KRWorkspaceFile::save(&recovered, document));
        QCOMPARE(trackFolder.entryList(QDir::Files).size(), 1);
        QCOMPARE(KRTestFile::content(damaged), QByteArray("<includedTrack><trk>"));
    }

    void whatOthersSavedIsNotReplacedUnasked()
    {
        const QString document = path("Reise.krroute");
        Work work(place());
        work.add("Tour");
        QVERIFY(KRWorkspaceFile::save(&work.workspace, document));
        QFile saved(document);
        QVERIFY(saved.open(QIODevice::ReadWrite));
        QVERIFY(saved.setFileTime(QDateTime::currentDateTime().addSecs(-60), QFileDevice::FileModificationTime));
        saved.close();
        // Somebody else saved before this state was kept, so that its own time tells nothing.
        work.add("Neu");
        QVERIFY(work.wait());
        copyAsAfterCrash(place(), afterCrash());

        const auto folders = KRRecoveryFolder::leftBehind(afterCrash());
        KRRouteWorkspace recovered;
        QVERIFY(KRWorkspaceFile::recover(&recovered, *folders.front()));
        QCOMPARE(recovered.fileName(), document);
        QVERIFY(recovered.isChangedOutside());

        for (const char *name : {"victim.txt", "Reise.krroute/../victim.txt", "/dev/full", ""}) {
            QVERIFY(folders.front()->setDocument(path(name), QDateTime()));
            QCOMPARE(folders.front()->documentFile(), QString());
        }
    }

    void formerTrackFilesAreRemoved()
    {
        Work work(place());
        work.autosave.setMostPointsInOneFile(0);
        work.add("Tour");
        QVERIFY(work.wait());
        for (const char *name : {"a", "b", "c"}) {
            work.workspace.replaceTracks(0, 1, oneTrack(QLatin1String(name)), QString());
            QVERIFY(work.wait());
        }
        const auto trackFiles = [this] { return filesBelow(place()).filter(QStringLiteral("unsaved.tracks/")); };
        QCOMPARE(trackFiles().size(), 1);

        // Nor are their tracks remembered, and one that comes back is written again.
        const QDir folder(place().filePath(QFileInfo(trackFiles().value(0)).path()));
        const auto knownFile = [&](const char *name) {
            const KRGPXTrack track = oneTrack(QLatin1String(name)).first().track();
            return KRGPXTrackFileRegistry::instance().fileName(KRGPXTrackFileRegistryKey(track, folder));
        };
        QCOMPARE(knownFile("b"), QString());
        QVERIFY(!knownFile("c").isEmpty());
        work.workspace.undoStack()->undo();
        QVERIFY(work.wait());
        QCOMPARE(trackFiles().size(), 1);
        QCOMPARE(QFileInfo(trackFiles().value(0)).fileName(), knownFile("b"));
    }

private:
    QString path(const char *name) const { return m_dir->filePath(QLatin1String(name)); }
    QDir place() const { return QDir(path("recovery")); }
    QDir afterCrash() const { return QDir(path("crashed")); }
    QStringList unsaved(const QDir &dir) const { return filesBelow(dir).filter(QStringLiteral("unsaved.krroute")); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

template class KRTestRegistration<tst_KRAutosave>;

#include "tst_KRAutosave.moc"
