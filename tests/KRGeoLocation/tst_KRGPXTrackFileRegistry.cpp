#include <KRGeoLocation/KRGPXTrackFileRegistry.h>

#include "KRTestRegistry.h"

#include <KRCore/KRXMLLoader.h>

#include <QDomElement>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtConcurrentMap>
#include <QtTest>

namespace {

KRGPXTrack track(const QString &coordinates)
{
    return KRGPXTrack::decodeKml(QStringLiteral("track"), QString(), coordinates, LineStringTrackShape);
}

QStringList filesIn(const QDir &dir)
{
    return dir.entryList(QDir::Files, QDir::Name);
}

} // namespace

class tst_KRGPXTrackFileRegistry : public QObject
{
    Q_OBJECT

private slots:
    void unchangedTrackKeepsItsFile();
    void almostEqualTrackKeepsItsFile_data();
    void almostEqualTrackKeepsItsFile();
    void tracksGetTheirOwnFiles();
    void nameOfALostFileIsNotGivenAway();
    void failedWriteKeepsTheName();
    void savingFromSeveralThreads();
    void sameDirectory_data();
    void sameDirectory();
    void keys();
};

void tst_KRGPXTrackFileRegistry::unchangedTrackKeepsItsFile()
{
    const QTemporaryDir folder;
    const QDir dir(folder.path());
    KRGPXTrackFileRegistry registry;
    const KRGPXTrackFileRegistryKey key(track(QStringLiteral("8,53 9,54")), dir);
    QVERIFY(registry.fileName(key).isEmpty());
    QCOMPARE(registry.createAssignedFile(key), QStringLiteral("track.gps"));

    // An equal track built anew, after the file has gone: nothing is written again.
    QVERIFY(QFile::remove(registry.createFileInfo(key, QStringLiteral("track.gps")).filePath()));
    const KRGPXTrackFileRegistryKey equalKey(track(QStringLiteral("8,53 9,54")), dir);
    QCOMPARE(registry.createAssignedFile(equalKey), QStringLiteral("track.gps"));
    QVERIFY(filesIn(dir).isEmpty());
}

void tst_KRGPXTrackFileRegistry::almostEqualTrackKeepsItsFile_data()
{
    // Positions are equal up to 1e-6 degrees, wherever the registry draws lines between them.
    QTest::addColumn<QString>("coordinates");
    QTest::addColumn<QString>("almostEqual");
    QTest::newRow("south") << QStringLiteral("8.12345,53.00001 9,54") << QStringLiteral("8.12345,53.0000092 9,54");
    QTest::newRow("west") << QStringLiteral("8.00001,53.12345 9,54") << QStringLiteral("8.0000092,53.12345 9,54");
    QTest::newRow("north-east") << QStringLiteral("-8.0000004,-53.0000004 9,54")
                                << QStringLiteral("-7.9999996,-52.9999996 9,54");
    QTest::newRow("end") << QStringLiteral("8,53 9,54") << QStringLiteral("8,53 9.0000008,53.9999992");
    QTest::newRow("nothing") << QString() << QStringLiteral(" ");
}

void tst_KRGPXTrackFileRegistry::almostEqualTrackKeepsItsFile()
{
    QFETCH(QString, coordinates);
    QFETCH(QString, almostEqual);
    const QDir dir(QStringLiteral("/somewhere"));
    const KRGPXTrackFileRegistryKey key(track(coordinates), dir);
    const KRGPXTrackFileRegistryKey almostEqualKey(track(almostEqual), dir);
    KRGPXTrackFileRegistry registry;
    registry.registerFile(key, QStringLiteral("first.gps"));
    QCOMPARE(registry.fileName(almostEqualKey), QStringLiteral("first.gps"));
    registry.registerFile(almostEqualKey, QStringLiteral("second.gps"));
    QCOMPARE(registry.fileName(key), QStringLiteral("second.gps"));
}

void tst_KRGPXTrackFileRegistry::tracksGetTheirOwnFiles()
{
    const QTemporaryDir folder;
    const QTemporaryDir otherFolder;
    const QDir dir(folder.path());
    KRGPXTrackFileRegistry registry;
    const KRGPXTrack first = track(QStringLiteral("8,53 9,54"));
    KRGPXTrack renamed = first;
    renamed.setName(QStringLiteral("renamed"));
    QCOMPARE(registry.createAssignedFile(KRGPXTrackFileRegistryKey(first, dir)), QStringLiteral("track.gps"));
    QCOMPARE(registry.createAssignedFile(KRGPXTrackFileRegistryKey(renamed, dir)), QStringLiteral("track_1.gps"));
    const KRGPXTrackFileRegistryKey elsewhere(first, QDir(otherFolder.path()));
    QCOMPARE(registry.createAssignedFile(elsewhere), QStringLiteral("track.gps"));
    QCOMPARE(filesIn(dir), (QStringList{QStringLiteral("track.gps"), QStringLiteral("track_1.gps")}));

    const QDomElement root = KRXMLLoader::loadDocumentElement(QFileInfo(dir, QStringLiteral("track_1.gps")));
    QCOMPARE(KRGPXTrack(root.firstChildElement(), QDir(QString())), renamed);
}

void tst_KRGPXTrackFileRegistry::nameOfALostFileIsNotGivenAway()
{
    const QTemporaryDir folder;
    const QDir dir(folder.path());
    KRGPXTrackFileRegistry registry;
    const KRGPXTrackFileRegistryKey lost(track(QStringLiteral("8,53")), dir);
    registry.registerFile(lost, QStringLiteral("track.gps"));
    const KRGPXTrackFileRegistryKey fresh(track(QStringLiteral("9,54")), dir);
    QCOMPARE(registry.createAssignedFile(fresh), QStringLiteral("track_1.gps"));
    QCOMPARE(registry.createAssignedFile(lost), QStringLiteral("track.gps"));
}

void tst_KRGPXTrackFileRegistry::failedWriteKeepsTheName()
{
    const QTemporaryDir folder;
    const QDir missing(folder.filePath(QStringLiteral("missing")));
    KRGPXTrackFileRegistry registry;
    const KRGPXTrackFileRegistryKey key(track(QStringLiteral("8,53")), missing);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("track\\.gps: .+")));
    QCOMPARE(registry.createAssignedFile(key), QStringLiteral("track.gps"));
    QCOMPARE(registry.fileName(key), QStringLiteral("track.gps"));
    QVERIFY(!missing.exists());
}

void tst_KRGPXTrackFileRegistry::savingFromSeveralThreads()
{
    const QTemporaryDir folder;
    const QDir dir(folder.path());
    KRGPXTrackFileRegistry registry;
    QList<KRGPXTrackFileRegistryKey> keys;
    for (int i = 1; i <= 20; ++i)
        keys.append(KRGPXTrackFileRegistryKey(track(QStringLiteral("%1,53 9,54").arg(i)), dir));
    QtConcurrent::blockingMap(keys, [&](const KRGPXTrackFileRegistryKey &key) { registry.createAssignedFile(key); });
    QSet<QString> names;
    for (const KRGPXTrackFileRegistryKey &key : keys)
        names.insert(registry.fileName(key));
    QCOMPARE(names.size(), keys.size());
    QCOMPARE(filesIn(dir).size(), keys.size());
}

void tst_KRGPXTrackFileRegistry::sameDirectory_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::newRow("slash at the end") << QStringLiteral("/");
    QTest::newRow("there and back") << QStringLiteral("/sub/..");
    QTest::newRow("through a link") << QStringLiteral("/link");
}

void tst_KRGPXTrackFileRegistry::sameDirectory()
{
    QFETCH(QString, suffix);
    const QTemporaryDir folder;
    const QDir dir(folder.path());
    QVERIFY(dir.mkdir(QStringLiteral("sub")));
    QVERIFY(QFile::link(folder.path(), folder.filePath(QStringLiteral("link"))));
    QDir sameDir(folder.path() + suffix);
    sameDir.setNameFilters({QStringLiteral("*.gpx")});

    const KRGPXTrack points = track(QStringLiteral("8,53"));
    KRGPXTrackFileRegistry registry;
    registry.registerFile(KRGPXTrackFileRegistryKey(points, dir), QStringLiteral("mine.gps"));
    QCOMPARE(registry.fileName(KRGPXTrackFileRegistryKey(points, sameDir)), QStringLiteral("mine.gps"));
    QCOMPARE(qHash(sameDir), qHash(dir));
}

void tst_KRGPXTrackFileRegistry::keys()
{
    const KRGPXTrack points = track(QStringLiteral("8,53 9,54"));
    const QDir somewhere(QStringLiteral("/somewhere"));
    const KRGPXTrackFileRegistryKey key(points, somewhere);
    QCOMPARE(key.hash(), 2u);
    QVERIFY(key.isValid());
    QVERIFY(!KRGPXTrackFileRegistryKey(KRGPXTrack(), somewhere).isValid());
    QVERIFY(!KRGPXTrackFileRegistryKey(points, QDir(QString())).isValid());
    QVERIFY(KRGPXTrackFileRegistryKey(points, QDir(QDir::currentPath())).isValid());
    QVERIFY(key != KRGPXTrackFileRegistryKey(points, QDir(QStringLiteral("/elsewhere"))));
    QVERIFY(key != KRGPXTrackFileRegistryKey(track(QStringLiteral("8,53 9,55")), somewhere));
}

static const KRTestRegistration<tst_KRGPXTrackFileRegistry> registration;

#include "tst_KRGPXTrackFileRegistry.moc"
