#include <KRGeoLocation/KRGPXTrackFileRegistry.h>

#include "KRTest.h"
#include "KRTestFolder.h"
#include "KRTestTrack.h"

#include <KRCore/KRXMLLoader.h>

#include <QDomElement>

using KRTestTrack::track;

class tst_KRGPXTrackFileRegistry : public QObject
{
    Q_OBJECT

private slots:
    void unchangedTrackKeepsItsFile()
    {
        const KRTestFolder folder;
        const QDir dir = folder.dir();
        KRGPXTrackFileRegistry registry;
        const KRGPXTrackFileRegistryKey key(track(QStringLiteral("8,53 9,54")), dir);
        QVERIFY(registry.fileName(key).isEmpty());
        QCOMPARE(registry.createAssignedFile(key), QStringLiteral("track.gps"));

        // An equal track built anew, after the file has gone: nothing is written again.
        QVERIFY(QFile::remove(registry.createFileInfo(key, QStringLiteral("track.gps")).filePath()));
        const KRGPXTrackFileRegistryKey equalKey(track(QStringLiteral("8,53 9,54")), dir);
        QCOMPARE(registry.createAssignedFile(equalKey), QStringLiteral("track.gps"));
        QVERIFY(folder.files().isEmpty());
        // Nor is the name of a file given away that was only read, and is lost.
        const KRGPXTrackFileRegistryKey lost(track(QStringLiteral("7,53")), dir);
        registry.registerFile(lost, QStringLiteral("track_1.gps"));
        const KRGPXTrackFileRegistryKey fresh(track(QStringLiteral("9,54")), dir);
        QCOMPARE(registry.createAssignedFile(fresh), QStringLiteral("track_2.gps"));
    }

    void almostEqualTrackKeepsItsFile()
    {
        // Positions are equal up to 1e-6 degrees, wherever the registry draws lines between them.
        const KRTestTable<KRText, KRText> table{
            {"south", "8.12345,53.00001 9,54", "8.12345,53.0000092 9,54"},
            {"north-east", "-8.0000004,-53.0000004 9,54", "-7.9999996,-52.9999996 9,54"},
            {"end", "8,53 9,54", "8,53 9.0000008,53.9999992"},
        };
        table.forEach([](const QString &coordinates, const QString &almostEqual) {
            const QDir dir(QStringLiteral("/somewhere"));
            const KRGPXTrackFileRegistryKey key(track(coordinates), dir);
            const KRGPXTrackFileRegistryKey almostEqualKey(track(almostEqual), dir);
            KRGPXTrackFileRegistry registry;
            registry.registerFile(key, QStringLiteral("first.gps"));
            QCOMPARE(registry.fileName(almostEqualKey), QStringLiteral("first.gps"));
            registry.registerFile(almostEqualKey, QStringLiteral("second.gps"));
            QCOMPARE(registry.fileName(key), QStringLiteral("second.gps"));
        });
    }

    void tracksGetTheirOwnFiles()
    {
        const KRTestFolder folder;
        const KRTestFolder otherFolder;
        const QDir dir = folder.dir();
        KRGPXTrackFileRegistry registry;
        const KRGPXTrack first = track(QStringLiteral("8,53 9,54"));
        KRGPXTrack renamed = first;
        renamed.setName(QStringLiteral("renamed"));
        QCOMPARE(registry.createAssignedFile(KRGPXTrackFileRegistryKey(first, dir)), QStringLiteral("track.gps"));
        QCOMPARE(registry.createAssignedFile(KRGPXTrackFileRegistryKey(renamed, dir)), QStringLiteral("track_1.gps"));
        const KRGPXTrackFileRegistryKey elsewhere(first, otherFolder.dir());
        QCOMPARE(registry.createAssignedFile(elsewhere), QStringLiteral("track.gps"));
        QCOMPARE(folder.files(), (QStringList{QStringLiteral("track.gps"), QStringLiteral("track_1.gps")}));

        const QDomElement root = KRXMLLoader::loadDocumentElement(QFileInfo(dir, QStringLiteral("track_1.gps")));
        QCOMPARE(KRGPXTrack(root.firstChildElement(), KRTestTrack::noDir), renamed);
    }

    void failedWriteKeepsTheName()
    {
        const KRTestFolder folder;
        const QDir missing(folder.path(QStringLiteral("missing")));
        KRGPXTrackFileRegistry registry;
        const KRGPXTrackFileRegistryKey key(track(QStringLiteral("8,53")), missing);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("track\\.gps: .+")));
        QCOMPARE(registry.createAssignedFile(key), QStringLiteral("track.gps"));
        QCOMPARE(registry.fileName(key), QStringLiteral("track.gps"));
        QVERIFY(!missing.exists());
    }

    void sameDirectory()
    {
        const KRTestFolder folder;
        const QDir dir = folder.dir();
        QVERIFY(dir.mkdir(QStringLiteral("sub")));
        QVERIFY(QFile::link(dir.path(), folder.path(QStringLiteral("link"))));
        const KRGPXTrack points = track(QStringLiteral("8,53"));
        KRGPXTrackFileRegistry registry;
        registry.registerFile(KRGPXTrackFileRegistryKey(points, dir), QStringLiteral("mine.gps"));
        for (const char *const suffix : {"/", "/sub/..", "/link"}) {
            QDir sameDir(dir.path() + QLatin1String(suffix));
            sameDir.setNameFilters({QStringLiteral("*.gpx")});
            QCOMPARE(registry.fileName(KRGPXTrackFileRegistryKey(points, sameDir)), QStringLiteral("mine.gps"));
            QCOMPARE(qHash(sameDir), qHash(dir));
        }
        // A name that is taken through the link is taken, although no such file is there.
        const KRGPXTrackFileRegistryKey linked(track(QStringLiteral("9,54")),
                                               QDir(dir.path() + QLatin1String("/link")));
        registry.registerFile(linked, QStringLiteral("track.gps"));
        const KRGPXTrackFileRegistryKey fresh(track(QStringLiteral("7,50")), dir);
        QCOMPARE(registry.createAssignedFile(fresh), QStringLiteral("track_1.gps"));
    }

    void keys()
    {
        const KRGPXTrack points = track(QStringLiteral("8,53 9,54"));
        const QDir somewhere(QStringLiteral("/somewhere"));
        const KRGPXTrackFileRegistryKey key(points, somewhere);
        QCOMPARE(key.hash(), 2u);
        QVERIFY(key.isValid());
        QVERIFY(!KRGPXTrackFileRegistryKey(KRGPXTrack(), somewhere).isValid());
        QVERIFY(!KRGPXTrackFileRegistryKey(points, KRTestTrack::noDir).isValid());
        QVERIFY(KRGPXTrackFileRegistryKey(points, QDir(QDir::currentPath())).isValid());
        QVERIFY(key != KRGPXTrackFileRegistryKey(points, QDir(QStringLiteral("/elsewhere"))));
        QVERIFY(key != KRGPXTrackFileRegistryKey(track(QStringLiteral("8,53 9,55")), somewhere));
    }
};

template class KRTestRegistration<tst_KRGPXTrackFileRegistry>;

#include "tst_KRGPXTrackFileRegistry.moc"
