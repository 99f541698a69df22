#include "KRKmlImport.h"
#include "KRKmlPreparation.h"
#include "KRKmzArchive.h"

#include "KRTemporarySettings.h"
#include "KRTestArchive.h"
#include "KRTestFile.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"
#include "KRTestTrack.h"
#include "KRTestXml.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRQtCompat.h>
#include <KRGeoLocation/KRTrackSelectionFactoryKmlFile.h>

#include <QtTest>

namespace {

QByteArray placemark(const QByteArray &content)
{
    return "<Placemark>" + content + "</Placemark>";
}

const QByteArray point = "<Point><coordinates>8,53</coordinates></Point>";

} // namespace

class tst_KRKmlImport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("kr.*=false")); }
    void cleanupTestCase() { QLoggingCategory::setFilterRules(QString()); }
    void readsPlainDocumentAsTheImporter();
    void findsPlacemarks();
    void readsGeometries();
    void namesAndDescriptions();
    void reports();
    void styles();
    void encodings();
    void choosesDocument();
    void readsArchive();
    void documentInParts();
    void broken();
    void refusesBeyondLimits();

private:
    QString path(const char *name) const { return m_dir.filePath(QLatin1String(name)); }
    KRGPXConfiguredTrackList read(const char *name, const QByteArray &content);

    KRTemporarySettings m_settings;
    QTemporaryDir m_dir;
    KRErrorHistory m_history;
    KRImportReport m_report;
};

KRGPXConfiguredTrackList tst_KRKmlImport::read(const char *name, const QByteArray &content)
{
    KRKmlImport import(QFileInfo(KRTestFile::write(path(name), content)));
    import.read();
    const KRGPXConfiguredTrackList tracks = import.configuredTracks();
    m_history = import.problems();
    m_report = import.report();
    return tracks;
}

void tst_KRKmlImport::readsPlainDocumentAsTheImporter()
{
    const QByteArray kml =
        "<kml><Document><Style id='s'><LineStyle><color>7f0000ff</color><width>3</width></LineStyle>"
        "<PolyStyle><color>40ff00ff</color></PolyStyle></Style><Style id='icon'><IconStyle/></Style><Folder>"
        + placemark("<name>Line</name><description>D</description><styleUrl>#s</styleUrl><LineString><coordinates>"
                    "8.123456789,53,4 9,54\n10,55,6</coordinates></LineString>")
        + placemark("<name>Area</name><styleUrl>#s</styleUrl><Polygon><outerBoundaryIs><LinearRing><coordinates>"
                    "1,1 2,1 2,2 1,1</coordinates></LinearRing></outerBoundaryIs></Polygon>")
        + "</Folder>" + placemark("<styleUrl>#icon</styleUrl>" + point) + placemark(point)
        + placemark("<shape>hop</shape><coordinates>8,53 9,54</coordinates>") + "</Document></kml>";
    const KRGPXConfiguredTrackList tracks = read("plain.kml", kml);
    const KRGPXConfiguredTrackList expected =
        KRTrackSelectionFactoryKmlFile().createConfiguredTrackList(QFileInfo(path("plain.kml")));
    QCOMPARE(tracks.size(), 5);
    QVERIFY(tracks == expected);
    QVERIFY(m_report.isEmpty());

    // Longer than what the importer gets as a text.
    QByteArray coordinates;
    for (int i = 0; i < 150000; ++i)
        coordinates += QByteArray::number(i / 1000.0) + ",53.1234567," + QByteArray::number(i) + " ";
    const KRGPXConfiguredTrackList lengthy =
        read("long.kml", "<kml><Document>"
                             + placemark("<LineString><coordinates>" + coordinates + "</coordinates></LineString>")
                             + "</Document></kml>");
    QCOMPARE(lengthy.size(), 1);
    QVERIFY(lengthy == KRTrackSelectionFactoryKmlFile().createConfiguredTrackList(QFileInfo(path("long.kml"))));
    const KRGPXConfiguredTrackList area =
        read("long.kml", placemark("<Polygon><coordinates>" + coordinates + "</coordinates></Polygon>"));
    QCOMPARE(area.value(0).allPoints().size(), 150001); // closed
}

void tst_KRKmlImport::findsPlacemarks()
{
    const QByteArray a = placemark("<name>a</name>" + point);
    const QByteArray b = placemark("<name>b</name>" + point);
    const QByteArray c = placemark("<name>c</name>" + point);
    const KRTestTable<QByteArray, const char *> table{
        {"several documents",
         "<kml><Document>" + a + "<Document>" + b + "</Document></Document><Document>" + c + "</Document></kml>",
         "a b c"},
        {"the placemark is all tpoint is", a, "a"},
        {"prefixes",
         "<kml:kml xmlns:kml='http://earth.google.com/kml/2.1'><kml:Placemark><kml:name>a</kml:name><kml:Point>"
         "<kml:coordinates>2,49,0</kml:coordinates></kml:Point></kml:Placemark></kml:kml>",
         "a"},
        {"elements of others around", "<envelope><kml>" + a + "<more>" + b + c + "</more></kml></envelope>", "a b c"},
        {"inside of another one",
         "<kml><Placemark><name>b</name>" + point + "<MultiGeometry>" + a + "</MultiGeometry></Placemark>" + c
             + "</kml>",
         "a b c"},
    };
    table.forEach([this](const QByteArray &kml, const char *expected) {
        QStringList names;
        for (const KRGPXConfiguredTrack &track : read("x.kml", kml))
            names.append(track.name());
        QCOMPARE(names.join(QLatin1Char(' ')), QLatin1String(expected));
        QCOMPARE(m_report.summary(), QString());
    });
}

void tst_KRKmlImport::readsGeometries()
{
    const auto ring = [](const char *coordinates) {
        return QByteArray("<LinearRing><coordinates>") + coordinates + "</coordinates></LinearRing>";
    };
    const QByteArray outline = ring("0,50 9,50 9,59 0,50");
    const QByteArray a = "<when>2021-05-29T18:06:21.767Z</when>";
    const QByteArray b = "<when> 2021-05-29T20:06:22.042+02:00 </when>";
    const QByteArray coord = "<gx:coord>8 53 1</gx:coord>";
    const QByteArray zero = "<gx:coord>0 0 2</gx:coord>";
    const char *const timed = "linestring: 8,53,1,1622311581767 0,1e-07,2,1622311582042";
    const KRTestTable<QByteArray, const char *> table{
        {"comment in the coordinates", "<Point><coordinates>8,<!-- north -->53</coordinates></Point>", "point: 8,53"},
        {"several geometries",
         "<MultiGeometry>" + point + "<MultiGeometry><LineString><coordinates>1,2 3,4</coordinates></LineString>"
             + "</MultiGeometry><Point><coordinates>5,6</coordinates></Point></MultiGeometry>",
         "point: 8,53; linestring: 1,2 3,4; point: 5,6"},
        {"what describes something else",
         "<ExtendedData>" + point + "</ExtendedData><Metadata>" + point + "</Metadata><Region>" + point
             + "</Region><LookAt>" + point + "</LookAt><Camera>" + point + "</Camera><BalloonStyle>" + point
             + "</BalloonStyle>" + point,
         "point: 8,53"},
        {"holes",
         "<Polygon><outerBoundaryIs>" + outline + "</outerBoundaryIs><innerBoundaryIs>" + ring("5,51 6,51 6,52 5,51")
             + "</innerBoundaryIs><innerBoundaryIs>" + ring("7,51 8,51 8,52") + ring("5,53 6,53 6,54 5,53")
             + "</innerBoundaryIs></Polygon>",
         "polygon: 0,50 9,50 9,59 0,50 {5,51 6,51 6,52 5,51} {7,51 8,51 8,52 7,51} {5,53 6,53 6,54 5,53}"},
        {"hole before the outline",
         "<Polygon><innerBoundaryIs>" + ring("5,51 6,51 6,52 5,51") + "</innerBoundaryIs><outerBoundaryIs>" + outline
             + "</outerBoundaryIs></Polygon>",
         "polygon: 0,50 9,50 9,59 0,50 {5,51 6,51 6,52 5,51}"},
        {"what is no hole",
         "<Polygon><outerBoundaryIs>" + outline + "</outerBoundaryIs><innerBoundaryIs/><innerBoundaryIs>"
             + ring("5,51 6,51") + "</innerBoundaryIs></Polygon>",
         "polygon: 0,50 9,50 9,59 0,50"},
        {"two outlines",
         "<Polygon><outerBoundaryIs>" + outline + ring("1,1 2,1 2,2 1,1") + "</outerBoundaryIs></Polygon>",
         "polygon: 0,50 9,50 9,59 0,50; polygon: 1,1 2,1 2,2 1,1"},
        {"record with breaks",
         "<gx:MultiTrack><gx:interpolate>1</gx:interpolate><gx:Track><gx:coord>8 53 1</gx:coord><gx:coord/></gx:Track>"
         "<gx:Track/><gx:Track><gx:coord>9 54 2</gx:coord><Model/></gx:Track></gx:MultiTrack>",
         "linestring: 8,53,1 | 9,54,2"},
        // Neither segment alone would be a line, and all together end where they begin.
        {"record that ends where it begins",
         "<gx:MultiTrack><gx:Track><gx:coord>8 53 1</gx:coord></gx:Track><gx:Track><gx:coord>9 54 2</gx:coord>"
         "<gx:coord>8 53 1</gx:coord></gx:Track></gx:MultiTrack>",
         "polygon: 8,53,1 | 9,54,2 8,53,1"},
        // Times before, between and behind the positions. The second lies beside (0, 0), which would be no position.
        {"times first", "<gx:Track>" + a + b + coord + zero + "</gx:Track>", timed},
        {"times last, of which many are missing",
         "<gx:Track>" + coord + zero + a + b + QByteArray("<when/>").repeated(1100000) + "</gx:Track>", timed},
        {"a missing position takes its time with it",
         "<gx:Track>" + a + "<when/>" + b + coord + "<gx:coord/>" + zero + "</gx:Track>", timed},
        {"a missing time leaves the position", "<gx:Track>" + a + coord + zero + "</gx:Track>",
         "linestring: 8,53,1,1622311581767 0,1e-07,2"},
        {"ring alone", outline, "polygon: 0,50 9,50 9,59 0,50"},
        {"time of a place", "<TimeStamp>" + a + "</TimeStamp>" + point, "point: 8,53,0,1622311581767"},
    };
    table.forEach([this](const QByteArray &content, const char *expected) {
        const QString text =
            KRTestTrack::text(read("x.kml", "<kml>" + placemark("<name>P</name>" + content) + "</kml>"));
        QCOMPARE(QString(text).remove(QLatin1String("P (x.kml) ")), QLatin1String(expected));
        QCOMPARE(m_report.summary(), QString());
    });
}

void tst_KRKmlImport::namesAndDescriptions()
{
    QCOMPARE(KRTestTrack::text(read("a b.KML", placemark("<name> </name>" + point))),
             QLatin1String("a b.KML (a b.KML) point: 8,53"));
    QCOMPARE(KRTestTrack::text(read(
                 "a b.KML", placemark("<name>\n N </name><description><![CDATA[<i>D</i>]]></description><MultiGeometry>"
                                      + point + point + "</MultiGeometry>"))),
             QLatin1String("N (<i>D</i>) point: 8,53; N (<i>D</i>) point: 8,53"));
}

void tst_KRKmlImport::reports()
{
    // below the first line, the number of geometries, and "line: [count] kind name" of what is reported
    const KRTestTable<QByteArray, int, const char *> table{
        {"what is no placemark",
         "<NetworkLink><name>n</name><Link><href>a.kml</href></Link></NetworkLink>\n"
         "<GroundOverlay><Icon/><name>g</name></GroundOverlay>\n<ScreenOverlay/>\n"
         "<PhotoOverlay>"
             + point + "</PhotoOverlay>\n<gx:Tour><gx:Playlist><Placemark/></gx:Playlist></gx:Tour>",
         0, "2: networkLink n; 3: groundOverlay g; 4: screenOverlay; 5: photoOverlay; 6: tour"},
        {"no geometry", "<Placemark/>\n<Placemark><description/>\n<name>n</name></Placemark>", 0,
         "2: placemarkWithoutGeometry; 3: placemarkWithoutGeometry n"},
        {"empty geometries",
         "<Placemark><Point/></Placemark>\n<Placemark><Polygon><outerBoundaryIs/></Polygon></Placemark>\n"
         "<Placemark><LineString><coordinates> </coordinates></LineString></Placemark>\n"
         "<Placemark><gx:Track><when>2024-05-01</when></gx:Track></Placemark>",
         0,
         "2: placemarkWithoutPosition; 3: placemarkWithoutPosition; 4: placemarkWithoutPosition; 5: "
         "placemarkWithoutPosition"},
        {"hole that cannot be read",
         "<Placemark><Polygon><outerBoundaryIs><coordinates>0,50 9,50 9,59</coordinates></outerBoundaryIs>"
         "<innerBoundaryIs><coordinates>x y</coordinates></innerBoundaryIs></Polygon></Placemark>",
         1, "2: 2 unreadablePosition"},
        {"hole without an outline",
         "<Placemark><Polygon><outerBoundaryIs><coordinates> </coordinates></outerBoundaryIs><innerBoundaryIs>"
         "<coordinates>0,50 9,50 9,59</coordinates></innerBoundaryIs></Polygon></Placemark>",
         0, "2: placemarkWithoutPosition"},
        {"positions of a record",
         "<Placemark><gx:Track><gx:coord>8 53 1</gx:coord><gx:coord>x y</gx:coord><gx:coord>9 54 1</gx:coord>"
         "</gx:Track></Placemark>",
         1, "2: unreadablePosition"},
        {"one of several geometries",
         "<Placemark><MultiGeometry>" + point
             + "\n<Point><coordinates>x,y</coordinates></Point></MultiGeometry>"
               "<name>n</name></Placemark>",
         1, "3: geometryWithoutPosition n"},
        {"some positions of a line",
         "<Placemark>\n<LineString><coordinates>8,53 x,y 9,54 8,99</coordinates></LineString></Placemark>", 1,
         "3: 2 unreadablePosition"},
        {"model beside something else", "<Placemark>\n<MultiGeometry><Model/>" + point + "</MultiGeometry></Placemark>",
         1, "3: model"},
    };
    table.forEach([this](const QByteArray &kml, int geometries, const char *expected) {
        QCOMPARE(read("x.kml", "<kml><Document>\n" + kml + "</Document></kml>").size(), geometries);
        QStringList items;
        for (const KRImportReport::Item &item : m_report.items()) {
            const QString count = item.count == 1 ? QString() : QStringLiteral("%1 ").arg(item.count);
            items.append(QStringLiteral("%1: %2%3 %4")
                             .arg(QString::number(item.line), count, KRImportReport::key(item.kind), item.name)
                             .trimmed());
        }
        QCOMPARE(items.join(QStringLiteral("; ")), QLatin1String(expected));
    });
}

void tst_KRKmlImport::styles()
{
    const QByteArray line = "<LineString><coordinates>1,1 2,1 2,2</coordinates></LineString>";
    const QByteArray area = "<Polygon><coordinates>1,1 2,1 2,2 1,1</coordinates></Polygon>";
    const QByteArray circle = "<LineString><coordinates>1,1 2,1 2,2 1,1</coordinates></LineString>";
    const QByteArray blueLine = "<LineStyle><color>ffff0000</color></LineStyle>";
    const auto map = [](const QByteArray &id, const QByteArray &key, const QByteArray &style) {
        return "<StyleMap id='" + id + "'><x/><Pair><key>" + key + "</key>" + style + "</Pair></StyleMap>";
    };
    const QByteArray styles =
        map("outer", "normal", "<x/><styleUrl>#map</styleUrl>") + map("odd", "other", "<styleUrl>#red</styleUrl>")
        + map("circle", "normal", "<styleUrl>#back</styleUrl>") + map("back", "normal", "<styleUrl>#circle</styleUrl>")
        + map("inside", "normal", "<Style>" + blueLine + "</Style>")
        + "<gx:CascadingStyle kml:id='cascading'><x/><styleUrl>http://other#main</styleUrl><Style>" + blueLine
        + "</Style></gx:CascadingStyle>";
    const int stroke = StrokeDisplayOption;
    const int both = StrokeDisplayOption | FillDisplayOption;
    const QColor red(255, 0, 0);
    const QColor blue(0, 0, 255);
    const QColor black(0, 0, 0);
    const QColor yellow(255, 255, 0);
    const QColor standard = KRGPXTrackConfiguration::defaultValue().lineColor();
    const KRTestTable<QByteArray, QColor, int> table{
        {"closed line is no area", "<styleUrl>#red</styleUrl>" + circle, red, stroke},
        {"inline over shared",
         "<styleUrl>#red</styleUrl><Style><LineStyle><color>ffff0000</color></LineStyle></Style>" + line, blue, both},
        {"inline map", "<StyleMap><Pair><key>normal</key><styleUrl>#red</styleUrl></Pair></StyleMap>" + line, red,
         both},
        {"icon", "<styleUrl>#icon</styleUrl>" + point, yellow, both},
        {"icon of its own, and a label",
         "<Style><LabelStyle/><IconStyle><color>ff00ffff</color></IconStyle></Style>" + point, yellow, both},
        {"area alone", "<Style><PolyStyle><color>ffff0000</color></PolyStyle></Style>" + area, blue,
         int(FillDisplayOption)},
        {"what is no colour",
         "<Style><LineStyle><x/><color>ffff0000</color></LineStyle><PolyStyle><x/></PolyStyle></Style>" + line, blue,
         both},
        {"coordinates alone", "<styleUrl>#red</styleUrl><coordinates>1,1 2,1 2,2</coordinates>", red, both},
        {"endless address", "<styleUrl>" + QByteArray(2000, 'x') + "#red</styleUrl>" + line, standard, stroke},
        {"map of a map", "<styleUrl>#outer</styleUrl>" + line, red, both},
        {"style inside of a map", "<styleUrl>#inside</styleUrl>" + line, blue, stroke},
        {"texts are escaped", "<Style><LineStyle><color>&lt;&amp;</color></LineStyle></Style>" + line, black, stroke},
        {"map without a normal style", "<styleUrl>#odd</styleUrl>" + line, red, both},
        {"maps in a circle end, and say nothing", "<styleUrl>#circle</styleUrl>" + line, black, stroke},
        {"cascading style", "<styleUrl>#cascading</styleUrl>" + line, blue, stroke},
        {"no fill", "<Style>" + blueLine + "<PolyStyle><fill>0</fill></PolyStyle></Style>" + area, blue, stroke},
        {"no outline", "<Style>" + blueLine + "<PolyStyle><outline> 0 </outline></PolyStyle></Style>" + area, black,
         int(FillDisplayOption)},
        {"neither leaves the outline",
         "<Style>" + blueLine + "<PolyStyle><fill>false</fill><outline>0</outline></PolyStyle></Style>" + area, blue,
         stroke},
        {"no outline means nothing for a line",
         "<Style>" + blueLine + "<PolyStyle><outline>0</outline></PolyStyle></Style>" + line, blue, both},
        {"white says nothing about an icon", "<Style><IconStyle><color>ffFFffff</color></IconStyle></Style>" + point,
         standard, stroke},
    };
    table.forEach([&](const QByteArray &placemarkContent, const QColor &lineColor, int options) {
        const KRGPXConfiguredTrackList tracks = read(
            "styles.kml",
            "<kml><Document><StyleMap id='map'><Pair><key>highlight</key><styleUrl>#icon</styleUrl></Pair><Pair>"
            "<key>normal</key><styleUrl>#red</styleUrl></Pair></StyleMap>"
                + styles + placemark(placemarkContent)
                + "<Folder><Style id='red'><LineStyle><color>ff0000ff</color></LineStyle><PolyStyle/></Style>"
                  "<Style id='icon'><IconStyle><color>ff00ffff</color></IconStyle></Style></Folder></Document></kml>");
        QCOMPARE(tracks.size(), 1);
        QCOMPARE(tracks.first().lineColor(), lineColor);
        QCOMPARE(int(tracks.first().configuration().currentDisplayOptions().value()), options);
    });
}

void tst_KRKmlImport::encodings()
{
    const QString text = QStringLiteral("<kml>%1</kml>").arg(QString::fromUtf8(placemark("<name>Süd</name>" + point)));
    for (const QByteArray &kml : {KRTestXml::utf16(text), text.toUtf8() + QByteArray(3, '\0')}) {
        const KRGPXConfiguredTrackList tracks = read("encoding.kml", kml);
        QCOMPARE(tracks.size(), 1);
        QCOMPARE(tracks.first().name(), QStringLiteral("Süd"));
        QVERIFY(m_history.isEmpty());
    }
}

void tst_KRKmlImport::choosesDocument()
{
    const KRTestTable<const char *, const char *> table{
        {"first in the archive", "images/a.png b.kml doc.kml", "b.kml doc.kml"},
        {"folders and macOS", "__MACOSX/._doc.kml files/ x/doc.kml __MACOSX/x/._doc.kml", "x/doc.kml"},
        {"any case", "a.png DOC.KML b.Kml", "DOC.KML b.Kml"},
        {"the importer's choice goes first", "DOC.KML b.kml", "b.kml DOC.KML"},
        {"none", "a.png kml", ""},
    };
    table.forEach([](const char *entries, const char *expected) {
        const QStringList documents = KRKmzArchive::documents(QString::fromLatin1(entries).split(QLatin1Char(' ')));
        QCOMPARE(documents.join(QLatin1Char(' ')), QString::fromLatin1(expected));
    });
}

void tst_KRKmlImport::readsArchive()
{
    const QByteArray kml = "<kml>" + placemark("<name>A</name>" + point) + "<NetworkLink/></kml>";
    const KRGPXConfiguredTrackList tracks = read(
        "a.kmz", KRTestArchive::bytes({KRTestArchive::stored("a.png", "?"), KRTestArchive::deflated("doc/DOC.KML", kml),
                                       KRTestArchive::stored("second.KML", kml)}));
    QCOMPARE(tracks.size(), 1);
    QCOMPARE(tracks.first().name(), QStringLiteral("A"));
    QCOMPARE(m_report.summary(), QStringLiteral("1 Netzwerkverweis, 1 weiteres KML-Dokument nicht gezeichnet"));
}

void tst_KRKmlImport::documentInParts()
{
    const KRTestTable<int, QByteArray> table{
        {"many", 25000, placemark(point)},
        {"with long names", 5000, placemark("<name>" + QByteArray(1000, 'n') + "</name>" + point)},
    };
    table.forEach([](int placemarks, const QByteArray &xml) {
        KRKmlPreparation preparation(QStringLiteral("test.kml"));
        QVERIFY(preparation.read("<kml>" + xml.repeated(placemarks) + "</kml>", nullptr));
        int first = 0;
        int documents = 0;
        while (first < preparation.geometries().size()) {
            int count = 0;
            const QString text = preparation.document(first, &count);
            QVERIFY(count > 0);
            QCOMPARE(text.count(QLatin1String("</Placemark>")), count);
            first += count;
            ++documents;
        }
        QCOMPARE(first, placemarks);
        QVERIFY(documents > 1);
    });
}

void tst_KRKmlImport::broken()
{
    KRErrorHistory history;
    KRKmlPreparation preparation(QStringLiteral("test.kml"));
    QVERIFY(!preparation.read("<kml>\n<Placemark>" + point + "</Placemark>\n<Placemark></kml>", &history));
    QCOMPARE(history.entries().size(), 1);
    QCOMPARE(history.entries().first().line, 3);

    // Read by the DOM at last, which must not count what the stream had read before.
    history.clear();
    QCOMPARE(preparation.read("<kml><Placemark>" + point + "</Placemark><NetworkLink/>&nbsp;</kml>", &history),
             KRQtCompat::domReadsBrokenXml);
    QCOMPARE(history.isEmpty(), KRQtCompat::domReadsBrokenXml);
    QCOMPARE(preparation.geometries().size(), 1);
    QCOMPARE(preparation.report().count(KRImportReport::NetworkLink), 1);
}

void tst_KRKmlImport::refusesBeyondLimits()
{
    const QByteArray tuples = QByteArray("1,2 ").repeated(KRInputLimits::positions / 2 + 1);
    const QByteArray line = "<LineString><coordinates>" + tuples + "</coordinates></LineString>";
    const QByteArray points = point.repeated(KRInputLimits::geometries + 1);
    const KRTestTable<QByteArray> table{
        {"positions of one line",
         "<Placemark><LineString><coordinates>" + tuples + tuples + "</coordinates></LineString></Placemark>"},
        {"positions of several lines", "<Placemark><a>" + line + line + point + "</a></Placemark>"},
        {"geometries", "<Placemark><a>" + points + "</a></Placemark>"},
        {"geometries, read by the DOM", "&nbsp;<Placemark><a>" + points + "</a></Placemark>"},
        {"name", "<Placemark><name>" + QByteArray(KRInputLimits::keptCharacters + 1, 'n') + "</name></Placemark>"},
    };
    table.forEach([](const QByteArray &kml) {
        KRErrorHistory history;
        KRKmlPreparation preparation(QStringLiteral("test.kml"));
        QVERIFY(!preparation.read("<kml>" + kml + "</kml>", &history));
        QCOMPARE(history.entries().size(), 1);
        QCOMPARE(history.entries().first().fileName, QStringLiteral("test.kml"));
    });
}

template class KRTestRegistration<tst_KRKmlImport>;

#include "tst_KRKmlImport.moc"
