#include <KRGeoLocation/KRTrackSelectionFactoryKmlFile.h>

#include "KRQuietFiles.h"
#include "KRTest.h"
#include "KRTestArchive.h"
#include "KRTestFolder.h"
#include "KRTestTrack.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRLogger.h>
#include <KRGeoLocation/KRTrackSelectionFactory.h>

using KRTestTrack::names;

namespace {

const QString fileName = QStringLiteral("a.kml");

QByteArray kml(const QByteArray &contents)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kml xmlns=\"http://www.opengis.net/kml/2.2\">\n<Document>"
           + contents + "</Document>\n</kml>";
}

QByteArray placemark(const QByteArray &name, const QByteArray &geometry = QByteArray())
{
    return "<Placemark><name>" + name + "</name>" + geometry + "</Placemark>";
}

QByteArray coordinates(const QByteArray &text)
{
    return "<coordinates>" + text + "</coordinates>";
}

KRGPXConfiguredTrackList decoded(const QByteArray &xml, KRErrorHistory *history = nullptr)
{
    return KRTrackSelectionFactoryKmlFile().decode(QString::fromUtf8(xml), fileName, history);
}

} // namespace

class tst_KRTrackSelectionFactoryKmlFile : public QObject
{
    Q_OBJECT

private slots:
    void supportsFile()
    {
        const KRTrackSelectionFactoryKmlFile importer;
        for (const char *const path : {"/nowhere/route.kml", "/nowhere/a.b.KMZ"})
            QVERIFY2(importer.supportsFile(QUrl::fromLocalFile(QLatin1String(path))), path);
        for (const char *const path : {"/nowhere/a.kml.zip", "/nowhere/a.kmlx", "/nowhere/kml", ""})
            QVERIFY2(!importer.supportsFile(QUrl::fromLocalFile(QLatin1String(path))), path);
        QVERIFY(importer.readFile(m_folder.write(QStringLiteral("a.txt"), kml(placemark("a")))).isNull());
        QVERIFY(!importer.supportsFile(QUrl(QStringLiteral("http://example.org/a.kml"))));

        // The whole factory asks it behind GPX.
        const KRTrackSelectionFactory factory;
        QCOMPARE(factory.supportedFileFormats().join(QLatin1Char(' ')), QStringLiteral("*.gpx *.kml *.kmz"));
        const QFileInfo file = m_folder.write(QStringLiteral("a.KML"), kml(placemark("a")));
        QStringList log;
        KRLogger::instance()->setWatcher([&](const QString &line) { log.append(line); });
        const auto tracks = factory.createConfiguredTrackList(QUrl::fromLocalFile(file.filePath()));
        KRLogger::instance()->setWatcher({});
        QCOMPARE(names(tracks), QStringLiteral("a"));
        QCOMPARE(log, QStringList{QStringLiteral("ACTION:useFactory VALUE:*.kml,*.kmz")});
    }

    void findsPlacemarks()
    {
        const QByteArray a = placemark("a");
        const QByteArray b = placemark("b");
        const QByteArray c = placemark("c");
        const KRTestTable<QByteArray, KRText> table{
            {"folders to any depth, in document order",
             kml("<Folder>" + a + "<Folder><Folder>" + b + "</Folder></Folder>" + placemark("d") + "</Folder>" + c),
             "a b d c"},
            {"none inside of placemarks",
             kml("<Placemark><name>a</name><MultiGeometry>" + b + "</MultiGeometry></Placemark>" + c), "a c"},
            {"only of the first document",
             "<kml>" + a + "<Document>" + b + "</Document><Document>" + c + "</Document></kml>", "b"},
            {"none directly below the root", "<kml>" + a + "</kml>", {}},
            {"document as the root", "<Document>" + a + "</Document>", {}},
            {"prefixed document", "<k:kml xmlns:k=\"x\"><k:Document>" + a + "</k:Document></k:kml>", {}},
        };
        table.forEach([](const QByteArray &xml, const QString &expected) { QCOMPARE(names(decoded(xml)), expected); });
    }

    void geometry()
    {
        const QByteArray closed = coordinates("8,53 9,53 9,54 8,53");
        const QByteArray hole = coordinates("1,1 2,2 1,1");
        const auto ring = [](const QByteArray &edge, const QByteArray &text) {
            return "<" + edge + "><LinearRing>" + text + "</LinearRing></" + edge + ">";
        };
        const QString closedPoints = QStringLiteral("8.,53. 9.,53. 9.,54. 8.,53.");
        const QString twoPoints = QStringLiteral("8.,53. 9.,54.");
        const int none = UnknownTrackShape;
        const int line = LineStringTrackShape;
        const int area = PolygonTrackShape;
        const int automatic = AutoTrackShape;
        const KRTestTable<QByteArray, KRText, int, int> table{
            {"line", "<LineString>" + coordinates("\n8,53\n9,54,3\r\n\t10,55 ") + "</LineString>",
             "8.,53. 9.,54.,3 10.,55.", line, line},
            // Intended: what the geometry is called remains with the track, what its points form is how it is drawn.
            {"closed line", "<LineString>" + closed + "</LineString>", closedPoints, line, area},
            {"area with a hole",
             "<Polygon>" + ring("outerBoundaryIs", closed) + ring("innerBoundaryIs", hole) + "</Polygon>", closedPoints,
             area, area},
            {"hole in front of the outline, behind a blank one",
             "<Polygon>" + ring("innerBoundaryIs", coordinates(" \n ")) + ring("innerBoundaryIs", closed)
                 + ring("outerBoundaryIs", hole) + "</Polygon>",
             closedPoints, area, area},
            {"several geometries",
             "<MultiGeometry><LineString>" + coordinates("8,53 9,54") + "</LineString><Point>" + hole
                 + "</Point></MultiGeometry>",
             twoPoints, automatic, line},
            {"own shape", "<shape>hop</shape>" + coordinates("8,53 9,54"), twoPoints, int(HopTrackShape), line},
            {"without geometry", {}, {}, automatic, none},
        };
        table.forEach([](const QByteArray &geometry, const QString &points, int trackShape, int configuredShape) {
            const KRGPXConfiguredTrackList tracks = decoded(kml(placemark("a", geometry)));
            QCOMPARE(tracks.count(), 1);
            const KRGPXTrack track = tracks.first().track();
            QCOMPARE(track.segments().value(0).toKml().simplified(), points);
            QCOMPARE(int(track.shape().value()), trackShape);
            QCOMPARE(int(tracks.first().configuration().trackShape().value()), configuredShape);
        });
    }

    void namesAndDescriptions()
    {
        const KRGPXConfiguredTrackList tracks = decoded(kml(
            "<name>document</name><Placemark/>"
            "<Placemark><name>Deich</name></Placemark>"
            "<Placemark><name/><description><![CDATA[<b>am</b> Deich &amp;]]></description></Placemark>"
            "<Placemark><ExtendedData><name>deeper</name></ExtendedData><name>100 %1 &lt;ä&gt;</name></Placemark>"));
        QStringList texts;
        for (const KRGPXConfiguredTrack &track : tracks)
            texts << track.name() << track.description();
        QCOMPARE(texts, QStringList({fileName, fileName, QStringLiteral("Deich"), fileName, fileName,
                                     QStringLiteral("<b>am</b> Deich &amp;"), QStringLiteral("100 %1 <ä>"), fileName}));
    }

    void styles()
    {
        const QByteArray red = "<LineStyle><color>ff0000ff</color></LineStyle></Style>";
        const auto referring = [](const QByteArray &reference) {
            return "<Placemark><styleUrl>" + reference + "</styleUrl></Placemark>";
        };
        const KRGPXConfiguredTrackList tracks = decoded(
            kml("<Folder>" + referring("#behind") + "</Folder><Style id=\"behind\">" + red
                + "<Folder><Style id=\"deeper\">" + red + referring("#deeper") + "</Folder>" + referring("\n#behind\n")
                + "<Placemark><Style>" + red + "</Placemark><Style>" + red + "<Placemark/>"));
        QStringList colors;
        for (const KRGPXConfiguredTrack &track : tracks)
            colors.append(track.lineColor().name());
        // Intended: blanks count as part of a reference, and the style of a placemark itself does not count at all.
        const QString none = KRGPXTrackConfiguration::defaultValue().lineColor().name();
        QCOMPARE(colors, QStringList({QStringLiteral("#ff0000"), none, none, none, none}));
    }

    void readsText()
    {
        const QByteArray umlaut = kml(placemark("\xC3\xBC"));
        const QString name = QStringLiteral("ü");
        const KRTestTable<QByteArray, QString> table{
            {"byte order mark", "\xEF\xBB\xBF" + umlaut, name},
            {"declared Latin-1, is UTF-8", QByteArray(umlaut).replace("UTF-8", "ISO-8859-1"), name},
            {"declared Latin-1 and so it is", kml(placemark("\xFC")).replace("UTF-8", "ISO-8859-1"),
             QString(QChar::ReplacementCharacter)},
        };
        table.forEach([&](const QByteArray &content, const QString &expected) {
            const KRTrackSelectionFactoryKmlFile importer;
            const auto archive = KRTestArchive::bytes({KRTestArchive::deflated("doc.kml", content)});
            QCOMPARE(names(importer.createConfiguredTrackList(m_folder.write(fileName, content))), expected);
            QCOMPARE(names(importer.createConfiguredTrackList(m_folder.write(QStringLiteral("a.kmz"), archive))),
                     expected);
        });
    }

    void readsArchives()
    {
        const auto entry = [](const char *name, const char *content) {
            return KRTestArchive::deflated(name, kml(placemark(content)));
        };
        const KRTestArchive::Entry doc = entry("doc.kml", "doc");
        const KRTestArchive::Entry other = entry("other.kml", "other");
        const KRTestArchive::Entry notKml = KRTestArchive::stored("__MACOSX/._doc.kml", "no XML");
        const KRTestTable<QByteArray, KRText> table{
            {"first one in the archive, whatever its name", KRTestArchive::bytes({entry("z/x.kml", "z"), doc}), "z"},
            {"not in upper case", KRTestArchive::bytes({entry("DOC.KML", "upper"), other}), "other"},
            {"only by its end", KRTestArchive::bytes({entry("doc.kml.bak", "bak"), entry(".kml", "hidden")}), "hidden"},
            {"no other one when the first is none", KRTestArchive::bytes({notKml, doc}), {}},
            {"up to the first zero byte",
             KRTestArchive::bytes({KRTestArchive::stored("doc.kml", kml(placemark("doc")) + '\0' + "<x>")}), "doc"},
        };
        table.forEach([&](const QByteArray &archive, const QString &expected) {
            const QFileInfo file = m_folder.write(QStringLiteral("a.KMZ"), archive);
            QCOMPARE(names(KRTrackSelectionFactoryKmlFile().createConfiguredTrackList(file)), expected);
        });
    }

    void tellsWhyThereIsNothing()
    {
        const KRTestFolder folder;
        const QString archive = QStringLiteral("a.kmz");
        KRTestArchive::Entry damaged = KRTestArchive::deflated("doc.kml", kml(placemark("a")));
        damaged.crc ^= 1;
        const KRTestTable<KRText, QByteArray, KRText, int> table{
            {"missing file", fileName, {}, "nicht gefunden", 0},
            {"empty file", fileName, "", "keinen KML-Text", 0},
            {"no document", fileName, "<kml/>", "„Document“", 0},
            {"no placemark", fileName, kml("<Folder/>"), "„Placemark“", 0},
            {"broken document", fileName, kml(placemark("a") + "<Folder>"), "XML", 3},
            {"no archive", archive, kml(placemark("a")), "ZIP", 0},
            {"none in the archive", archive, KRTestArchive::bytes({KRTestArchive::stored("a.png", "x")}), "*.kml", 0},
            {"damaged document in the archive", archive, KRTestArchive::bytes({damaged}), "„doc.kml“", 0},
        };
        table.forEach([&](const QString &name, const QByteArray &content, const QString &reason, int line) {
            const QFileInfo file = content.isNull() ? QFileInfo(folder.path(name)) : folder.write(name, content);
            const KRTrackSelectionFactoryKmlFile importer;
            KRErrorHistory history;
            QVERIFY(!importer.decode(importer.readFile(file, &history), file.fileName(), &history).isValid());
            QCOMPARE(history.entries().size(), 1);
            const KRErrorHistory::Entry entry = history.entries().first();
            QVERIFY2(entry.reason.contains(reason), qUtf8Printable(entry.reason));
            QCOMPARE(QFileInfo(entry.fileName).fileName(), name);
            QCOMPARE(entry.line, line);
            QVERIFY(!importer.createConfiguredTrackList(file).isValid());
        });
    }

private:
    const KRQuietFiles m_quiet;
    const KRTestFolder m_folder;
};

template class KRTestRegistration<tst_KRTrackSelectionFactoryKmlFile>;

#include "tst_KRTrackSelectionFactoryKmlFile.moc"
