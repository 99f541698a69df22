#include "KRAutosave.h"

#include "KRRouteWorkspace.h"
#include "KRTestRegistry.h"

#include <KRRouteDocument.h>

#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QDirIterator>
#include <QTemporaryDir>
#include <QtTest>

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

} // namespace

class tst_KRAutosave : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void workSurvivesACrash_data();
    void workSurvivesACrash();
    void runningProgramsKeepTheirWork();
    void pointsAreWrittenOnce();
    void savingRemovesIt();
    void anEndWithoutCrashLeavesNothing();
    void recoveredDocumentRefersToItsUnreadableFiles();
    void workStaysWithItsDocument();
    void unusablePlaceIsReported();

private:
    QDir place() const { return QDir(m_dir->filePath(QStringLiteral("recovery"))); }
    QDir afterCrash() const { return QDir(m_dir->filePath(QStringLiteral("crashed"))); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

static const KRTestRegistration<tst_KRAutosave> registration;

void tst_KRAutosave::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
}

void tst_KRAutosave::workSurvivesACrash_data()
{
    QTest::addColumn<int>("largestFile");
    QTest::newRow("in one file") << 1000;
    QTest::newRow("with track files") << 3;
}

void tst_KRAutosave::workSurvivesACrash()
{
    QFETCH(int, largestFile);
    KRRouteWorkspace workspace;
    KRAutosave autosave(&workspace, place());
    autosave.setDelay(10);
    autosave.setLargestFile(largestFile);
    const QString document = m_dir->filePath(QStringLiteral("Reise.krroute"));
    workspace.addTracks(oneTrack(QStringLiteral("Tour")), QString());
    QVERIFY(workspace.save(document, nullptr));
    workspace.addTracks(oneTrack(QStringLiteral("Neu")), QString());
    workspace.setCroppingOpacity(17);
    QVERIFY(QSignalSpy(&autosave, &KRAutosave::written).wait());
    copyAsAfterCrash(place(), afterCrash());

    auto folders = KRRecoveryFolder::leftBehind(afterCrash());
    QCOMPARE(folders.size(), std::size_t(1));
    QCOMPARE(folders.front()->documentFile(), document);

    KRRouteWorkspace recovered;
    QVERIFY(recovered.recover(folders.front()->recoveryFile(), folders.front()->documentFile(), nullptr));
    QVERIFY(recovered.selection() == workspace.selection());
    QCOMPARE(recovered.selection().allTimeStamps(), workspace.selection().allTimeStamps());
    QVERIFY(recovered.isModified());
    QCOMPARE(recovered.fileName(), document);

    // What has been recovered stays safe, and is asked for once.
    {
        KRAutosave next(&recovered, afterCrash());
        next.setDelay(10);
        next.adopt(std::move(folders.front()));
        QVERIFY(KRRecoveryFolder::leftBehind(afterCrash()).empty());
        QCOMPARE(filesBelow(afterCrash()).filter(QStringLiteral("unsaved.krroute")).size(), 1);
    }
    QCOMPARE(filesBelow(afterCrash()), QStringList());
}

void tst_KRAutosave::runningProgramsKeepTheirWork()
{
    KRRouteWorkspace workspaces[2];
    KRAutosave first(&workspaces[0], place());
    first.setDelay(10);
    KRAutosave second(&workspaces[1], place());
    second.setDelay(10);
    QSignalSpy firstWritten(&first, &KRAutosave::written);
    QSignalSpy secondWritten(&second, &KRAutosave::written);
    workspaces[0].addTracks(oneTrack(QStringLiteral("A")), QString());
    workspaces[1].addTracks(oneTrack(QStringLiteral("B")), QString());
    QTRY_COMPARE(firstWritten.count(), 1);
    QTRY_COMPARE(secondWritten.count(), 1);
    QVERIFY(KRRecoveryFolder::leftBehind(place()).empty());
    QCOMPARE(filesBelow(place()).filter(QStringLiteral("unsaved.krroute")).size(), 2);
}

void tst_KRAutosave::pointsAreWrittenOnce()
{
    KRRouteWorkspace workspace;
    KRAutosave autosave(&workspace, place());
    autosave.setDelay(10);
    autosave.setLargestFile(1);
    QSignalSpy written(&autosave, &KRAutosave::written);
    workspace.addTracks(oneTrack(QStringLiteral("Tour")), QString());
    QVERIFY(written.wait());
    const QStringList trackFiles = filesBelow(place()).filter(QStringLiteral(".tracks/"));
    QCOMPARE(trackFiles.size(), 1);
    const QString trackFile = place().filePath(trackFiles.first());
    const QDateTime firstTime = QFileInfo(trackFile).lastModified();

    KRGPXTrackConfiguration look = workspace.selection().configuration(0);
    look.setLineWidth(3.0);
    workspace.setConfiguration(0, look);
    QVERIFY(written.wait());
    QCOMPARE(filesBelow(place()).filter(QStringLiteral(".tracks/")), trackFiles);
    QCOMPARE(QFileInfo(trackFile).lastModified(), firstTime);
}

void tst_KRAutosave::savingRemovesIt()
{
    KRRouteWorkspace workspace;
    KRAutosave autosave(&workspace, place());
    autosave.setDelay(10);
    workspace.addTracks(oneTrack(QStringLiteral("Tour")), QString());
    QVERIFY(QSignalSpy(&autosave, &KRAutosave::written).wait());
    QVERIFY(workspace.save(m_dir->filePath(QStringLiteral("Reise.krroute")), nullptr));
    QCOMPARE(filesBelow(place()).filter(QStringLiteral("unsaved.krroute")), QStringList());
}

void tst_KRAutosave::anEndWithoutCrashLeavesNothing()
{
    KRRouteWorkspace workspace;
    {
        KRAutosave autosave(&workspace, place());
        autosave.setDelay(10);
        workspace.addTracks(oneTrack(QStringLiteral("Tour")), QString());
        QVERIFY(QSignalSpy(&autosave, &KRAutosave::written).wait());
    }
    QVERIFY(place().entryList(QDir::AllEntries | QDir::NoDotAndDotDot).isEmpty());
}

void tst_KRAutosave::recoveredDocumentRefersToItsUnreadableFiles()
{
    const QString document = m_dir->filePath(QStringLiteral("Reise.krroute"));
    const QDir trackFolder = KRRouteDocument::trackFolder(QFileInfo(document));
    KRRouteWorkspace writer;
    writer.addTracks(oneTrack(QStringLiteral("Tour")), QString());
    QVERIFY(writer.save(document, nullptr));
    QFile damaged(trackFolder.filePath(trackFolder.entryList(QDir::Files).first()));
    QVERIFY(damaged.open(QIODevice::WriteOnly));
    damaged.write("<includedTrack><trk>");
    damaged.close();

    KRRouteWorkspace workspace;
    KRAutosave autosave(&workspace, place());
    autosave.setDelay(10);
    QVERIFY(workspace.open(document, nullptr));
    workspace.setCroppingOpacity(17);
    QVERIFY(QSignalSpy(&autosave, &KRAutosave::written).wait());
    copyAsAfterCrash(place(), afterCrash());
    const auto folders = KRRecoveryFolder::leftBehind(afterCrash());
    KRRouteWorkspace recovered;
    QVERIFY(recovered.recover(folders.front()->recoveryFile(), document, nullptr));
    QVERIFY(!recovered.isChangedOutside());
    QVERIFY(recovered.save(document, nullptr));
    // Put off until the document has been worked on once more: what was saved then is not replaced unasked.
    QFile saved(document);
    QVERIFY(saved.open(QIODevice::ReadWrite));
    QVERIFY(saved.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    saved.close();
    QVERIFY(recovered.recover(folders.front()->recoveryFile(), document, nullptr));
    QVERIFY(recovered.isChangedOutside());
    QCOMPARE(trackFolder.entryList(QDir::Files).size(), 1);
    QVERIFY(damaged.open(QIODevice::ReadOnly));
    QCOMPARE(damaged.readAll(), QByteArray("<includedTrack><trk>"));
}

void tst_KRAutosave::workStaysWithItsDocument()
{
    const std::unique_ptr<KRRecoveryFolder> folder = KRRecoveryFolder::create(place());
    QVERIFY(folder->setDocumentFile(QStringLiteral("/first.krroute")));
    KRRouteWorkspace workspace;
    workspace.addTracks(oneTrack(QStringLiteral("Tour")), QString());
    QVERIFY(workspace.save(folder->recoveryFile(), nullptr));
    QVERIFY(folder->setDocumentFile(QStringLiteral("/first.krroute")));
    QVERIFY(folder->holdsWork());
    QVERIFY(folder->setDocumentFile(QStringLiteral("/second.krroute")));
    QVERIFY(!folder->holdsWork());
    QCOMPARE(folder->documentFile(), QStringLiteral("/second.krroute"));
}

void tst_KRAutosave::unusablePlaceIsReported()
{
    QFile inTheWay(place().path());
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    KRRouteWorkspace workspace;
    KRAutosave autosave(&workspace, place());
    autosave.setDelay(10);
    QSignalSpy failed(&autosave, &KRAutosave::failed);
    workspace.addTracks(oneTrack(QStringLiteral("Tour")), QString());
    QVERIFY(failed.wait());
    QVERIFY(!failed.first().first().toString().isEmpty());
}

#include "tst_KRAutosave.moc"
