#include <KRGeoLocation/KRGPXTrackFile.h>

#include "KRTestRegistry.h"

#include <KRCore/KRErrorHistory.h>

#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

class tst_KRGPXTrackFile : public QObject
{
    Q_OBJECT

private slots:
    void tracksAndTheirNames_data();
    void tracksAndTheirNames();
    void unreadable_data();
    void unreadable();
};

void tst_KRGPXTrackFile::tracksAndTheirNames_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QStringList>("expected");
    const QByteArray unnamed = "<trk><trkseg/></trk>";
    const QByteArray invalid = "<trk><name>invalid</name></trk>";
    const QByteArray named = "<trk><name>Deich</name><trkseg/></trk>";
    const QString tour = QStringLiteral("Tour.gpx");
    QTest::newRow("unnamed ones are numbered among all")
        << tour << named + unnamed + invalid + unnamed
        << QStringList{QStringLiteral("Deich"), QStringLiteral("Tour 2"), QStringLiteral("Tour 4")};
    QTest::newRow("base name up to the first dot")
        << QStringLiteral("a.b.gpx") << unnamed << QStringList{QStringLiteral("a 1")};
    QTest::newRow("percent signs are no placeholders")
        << QStringLiteral("100%2.gpx") << unnamed << QStringList{QStringLiteral("100%2 1")};
    QTest::newRow("only children of the root") << tour << QByteArray("<rte/><x>") + named + "</x>" << QStringList{};
    QTest::newRow("prefixed ones are others") << tour << QByteArray("<g:trk><trkseg/></g:trk>") << QStringList{};
}

void tst_KRGPXTrackFile::tracksAndTheirNames()
{
    QFETCH(QString, fileName);
    QFETCH(QByteArray, xml);
    QFETCH(QStringList, expected);
    const QTemporaryDir folder;
    QFile file(folder.filePath(fileName));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<gpx>" + xml + "</gpx>");
    file.close();

    KRErrorHistory history;
    const KRGPXTrackFile trackFile(QFileInfo(file), &history);
    QStringList names;
    for (const KRGPXTrack &track : trackFile.tracks())
        names.append(track.name());
    QCOMPARE(names, expected);
    QCOMPARE(trackFile.isValid(), !expected.isEmpty());
    QVERIFY(history.isEmpty());
}

void tst_KRGPXTrackFile::unreadable_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<int>("line");
    QTest::newRow("cut off behind a whole track") << QByteArray("<gpx>\n<trk><trkseg/></trk>\n<trk>") << 3;
    QTest::newRow("wrong nesting") << QByteArray("<gpx><trk><trkseg></trk></trkseg></gpx>") << 1;
    QTest::newRow("text behind the end") << QByteArray("<gpx><trk><trkseg/></trk></gpx>\nmore") << 2;
    QTest::newRow("empty") << QByteArray() << 0;
}

void tst_KRGPXTrackFile::unreadable()
{
    QFETCH(QByteArray, xml);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("broken.gpx")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(xml);
    file.close();

    KRErrorHistory history;
    QVERIFY(!KRGPXTrackFile(QFileInfo(file), &history).isValid());
    QCOMPARE(history.entries().size(), 1);
    QCOMPARE(history.entries().first().fileName, file.fileName());
    QTEST(history.entries().first().line, "line");
    QVERIFY(!history.entries().first().reason.isEmpty());
}

static const KRTestRegistration<tst_KRGPXTrackFile> registration;

#include "tst_KRGPXTrackFile.moc"
