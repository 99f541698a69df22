#include <KRGeoLocation/KRGPXTrackFile.h>

#include "KRTestFolder.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRQtCompat.h>

#include <QtTest>

class tst_KRGPXTrackFile : public QObject
{
    Q_OBJECT

private slots:
    void tracksAndTheirNames();
    void readableAsDomOnly();
    void unreadable();
};

void tst_KRGPXTrackFile::tracksAndTheirNames()
{
    const QByteArray unnamed = "<trk><trkseg/></trk>";
    const QByteArray invalid = "<trk><name>invalid</name></trk>";
    const QByteArray named = "<trk><name>Deich</name><trkseg/></trk>";
    const QString tour = QStringLiteral("Tour.gpx");
    const KRTestTable<QString, QByteArray, QStringList> table{
        {"unnamed ones are numbered among all", tour, named + unnamed + invalid + unnamed,
         QStringList{QStringLiteral("Deich"), QStringLiteral("Tour 2"), QStringLiteral("Tour 4")}},
        {"base name up to the first dot", QStringLiteral("a.b.gpx"), unnamed, QStringList{QStringLiteral("a 1")}},
        {"percent signs are no placeholders", QStringLiteral("100%2.gpx"), unnamed,
         QStringList{QStringLiteral("100%2 1")}},
        {"prefixed ones are others", tour, "<g:trk><trkseg/></g:trk>", QStringList{}},
    };
    table.forEach([](const QString &fileName, const QByteArray &xml, const QStringList &expected) {
        const KRTestFolder folder;
        KRErrorHistory history;
        const KRGPXTrackFile trackFile(folder.write(fileName, "<gpx>" + xml + "</gpx>"), &history);
        QStringList names;
        for (const KRGPXTrack &track : trackFile.tracks())
            names.append(track.name());
        QCOMPARE(names, expected);
        QCOMPARE(trackFile.isValid(), !expected.isEmpty());
        QVERIFY(history.isEmpty());
    });
}

void tst_KRGPXTrackFile::readableAsDomOnly()
{
    const auto track = [](const QByteArray &name) { return "<gpx><trk>" + name + "<trkseg/></trk></gpx>"; };
    const QString refused;
    // The names that Qt 5 and Qt 6 read.
    const KRTestTable<QByteArray, QString, QString> table{
        {"carriage returns", track("<name>a\r\nb</name>"), QStringLiteral("a\r\nb"), QStringLiteral("a\nb")},
        {"undeclared entity", track("<name>a&nbsp;b</name>"), QStringLiteral("ab"), refused},
        {"declared entity", "<!DOCTYPE gpx [<!ENTITY e 'abc'>]>" + track("<name>&e;</name>"), QStringLiteral("abc"),
         QStringLiteral("abc")},
    };
    table.forEach([](const QByteArray &xml, const QString &withQt5, const QString &withQt6) {
        const QString name = KRQtCompat::domReadsBrokenXml ? withQt5 : withQt6;
        const KRTestFolder folder;
        KRErrorHistory history;
        const KRGPXTrackFile trackFile(folder.write(QStringLiteral("dom.gpx"), xml), &history);
        QCOMPARE(trackFile.tracks().size(), name.isNull() ? 0 : 1);
        QCOMPARE(history.isEmpty(), !name.isNull());
        if (!name.isNull())
            QCOMPARE(trackFile.tracks().first().name(), name);
    });
}

void tst_KRGPXTrackFile::unreadable()
{
    const KRTestFolder folder;
    const QFileInfo file = folder.write(QStringLiteral("broken.gpx"), "<gpx>\n<trk><trkseg/></trk>\n<trk>");
    KRErrorHistory history;
    QVERIFY(!KRGPXTrackFile(file, &history).isValid());
    QCOMPARE(history.entries().size(), 1);
    QCOMPARE(history.entries().first().fileName, file.filePath());
    QCOMPARE(history.entries().first().line, 3);
    // Too large for a DOM: the rest of the file is a hole of zero bytes.
    const QFileInfo large = folder.write(QStringLiteral("large.gpx"), "<gpx>\n<trk><trkseg/></trk>\n");
    QVERIFY(QFile::resize(large.filePath(), KRInputLimits::documentBytes + 1));
    history.clear();
    QVERIFY(!KRGPXTrackFile(large, &history).isValid());
    QCOMPARE(history.entries().size(), 1);
    QCOMPARE(history.entries().first().line, 3);
}

static const KRTestRegistration<tst_KRGPXTrackFile> registration;

#include "tst_KRGPXTrackFile.moc"
