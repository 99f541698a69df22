#include <KRGeoLocation/KRGPXTrackFile.h>

#include "KRTest.h"
#include "KRTestFolder.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRQtCompat.h>

class tst_KRGPXTrackFile : public QObject
{
    Q_OBJECT

private slots:
    void tracksAndTheirNames()
    {
        const QByteArray unnamed = "<trk><trkseg/></trk>";
        const QByteArray invalid = "<trk><name>invalid</name></trk>";
        const QByteArray named = "<trk><name>Deich</name><trkseg/></trk>";
        const QString tour = QStringLiteral("Tour.gpx");
        const KRTestTable<KRText, QByteArray, QStringList> table{
            {"unnamed ones are numbered among all", tour, named + unnamed + invalid + unnamed,
             QStringList{QStringLiteral("Deich"), QStringLiteral("Tour 2"), QStringLiteral("Tour 4")}},
            {"base name up to the first dot", "a.b.gpx", unnamed, QStringList{QStringLiteral("a 1")}},
            {"percent signs are no placeholders", "100%2.gpx", unnamed, QStringList{QStringLiteral("100%2 1")}},
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

    void readableAsDomOnly()
    {
        const auto track = [](const QByteArray &name) { return "<gpx><trk>" + name + "<trkseg/></trk></gpx>"; };
        const QString refused;
        // The names that Qt 5 and Qt 6 read.
        const KRTestTable<QByteArray, KRText, KRText> table{
            {"carriage returns", track("<name>a\r\nb</name>"), "a\r\nb", "a\nb"},
            {"undeclared entity", track("<name>a&nbsp;b</name>"), "ab", refused},
            {"declared entity", "<!DOCTYPE gpx [<!ENTITY e 'abc'>]>" + track("<name>&e;</name>"), "abc", "abc"},
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

    void unreadable()
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
        folder.write(QStringLiteral("large.gpx"), "<!DOCTYPE gpx>\n<gpx/>");
        QVERIFY(QFile::resize(large.filePath(), KRInputLimits::documentBytes + 1));
        history.clear();
        QVERIFY(!KRGPXTrackFile(large, &history).isValid());
        QCOMPARE(history.entries().size(), 1);
        QVERIFY(history.entries().first().reason.contains(QStringLiteral("Dokumenttyp")));
    }
};

template class KRTestRegistration<tst_KRGPXTrackFile>;

#include "tst_KRGPXTrackFile.moc"
