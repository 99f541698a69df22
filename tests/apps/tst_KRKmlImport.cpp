#include "KRKmlImport.h"
#include "KRKmzArchive.h"

#include "KRTemporarySettings.h"
#include "KRTestArchive.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"
#include "KRTestXml.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRLogger.h>
#include <KRGeoLocation/KRTrackSelectionFactoryKmlFile.h>

#include <QLoggingCategory>
#include <QTemporaryDir>
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
    void cleanup() { KRLogger::instance()->setWatcher({}); }
    void readsPlainDocumentAsTheImporter();
    void attachesHoles();
    void keepsTimes();
    void joinsSegments();
    void longLine();
    void styles();
    void namesAndDescriptions();
    void logsOnce();
    void encodings();
    void choosesDocument();
    void readsArchive();
    void explains();

private:
    QString write(const QString &name, const QByteArray &content);
    KRGPXConfiguredTrackList read(const QString &name, const QByteArray &content);

    KRTemporarySettings m_settings;
    QTemporaryDir m_dir;
    KRErrorHistory m_history;
    QString m_summary;
};

QString tst_KRKmlImport::write(const QString &name, const QByteArray &content)
{
    QFile file(m_dir.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

KRGPXConfiguredTrackList tst_KRKmlImport::read(const QString &name, const QByteArray &content)
{
    m_history.clear();
    KRKmlImport import(QFileInfo(write(name, content)));
    const KRGPXConfiguredTrackList tracks = import.read(&m_history);
    m_summary = import.report().summary();
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
    const KRGPXConfiguredTrackList tracks = read(QStringLiteral("plain.kml"), kml);
    const KRGPXConfiguredTrackList expected = KRTrackSelectionFactoryKmlFile().createConfiguredTrackList(
        QFileInfo(m_dir.filePath(QStringLiteral("plain.kml"))));
    QCOMPARE(tracks.size(), 5);
    QVERIFY(tracks == expected);
    QVERIFY(m_summary.isEmpty());
}

void tst_KRKmlImport::attachesHoles()
{
    const auto boundary = [](const char *element, const char *coordinates) {
        return QByteArray("<") + element + "><LinearRing><coordinates>" + coordinates + "</coordinates></LinearRing></"
               + element + ">";
    };
    const KRGPXConfiguredTrackList tracks =
        read(QStringLiteral("holes.kml"), placemark("<Polygon>" + boundary("outerBoundaryIs", "0,0 9,0 9,9 0,9 0,0")
                                                    + boundary("innerBoundaryIs", "1,1 2,1 2,2 1,1")
                                                    + boundary("innerBoundaryIs", "4,4 5,4 5,5 4,4") + "</Polygon>"));
    QCOMPARE(tracks.size(), 1);
    const KRGPXTrack track = tracks.first().track();
    QCOMPARE(track.countPoints(), 5);
    QCOMPARE(track.enclaves().size(), 2);
    QVERIFY(track.isEnclave(track.enclaves().first()));
    QVERIFY(track.isEnclave(track.enclaves().last()));
    QVERIFY(tracks.first().effectiveShape() == PolygonTrackShape);
}

void tst_KRKmlImport::keepsTimes()
{
    const KRGPXConfiguredTrackList tracks =
        read(QStringLiteral("times.kml"),
             "<kml>"
                 + placemark("<gx:Track><when>2021-05-29T18:06:21.767Z</when><gx:coord>8 53 1</gx:coord>"
                             "<when>2021-05-29T18:06:22.042Z</when><gx:coord>0 0 2</gx:coord></gx:Track>")
                 + placemark("<TimeStamp><when>2021-05-29T18:06:23Z</when></TimeStamp>" + point) + "</kml>");
    QCOMPARE(tracks.size(), 2);
    const QDateTime start(QDate(2021, 5, 29), QTime(18, 6, 21, 767), Qt::UTC);
    QCOMPARE(tracks.at(0).allTimeStamps(), (QList<QDateTime>{start, start.addMSecs(275)}));
    QVERIFY(tracks.at(0).effectiveShape() == LineStringTrackShape);
    // Beside (0, 0), which would be no position.
    QVERIFY(tracks.at(0).lastPoint().isValid());
    QCOMPARE(tracks.at(1).allTimeStamps(), QList<QDateTime>{start.addMSecs(1233)});
    QVERIFY(tracks.at(1).effectiveShape() == PointTrackShape);
}

void tst_KRKmlImport::joinsSegments()
{
    // The first segment alone would be a point, and both together end where they begin.
    const KRGPXConfiguredTrackList tracks =
        read(QStringLiteral("segments.kml"),
             placemark("<gx:MultiTrack><gx:Track><gx:coord>8 53 1</gx:coord></gx:Track><gx:Track><gx:coord>9 54 2"
                       "</gx:coord><gx:coord>8 53 1</gx:coord></gx:Track></gx:MultiTrack>"));
    QCOMPARE(tracks.size(), 1);
    QCOMPARE(tracks.first().track().segments().size(), 2);
    QVERIFY(tracks.first().effectiveShape() == PolygonTrackShape);
}

/// Longer than what the importer gets as a text.
void tst_KRKmlImport::longLine()
{
    QByteArray coordinates;
    for (int i = 0; i < 150000; ++i)
        coordinates += QByteArray::number(i / 1000.0) + ",53.1234567," + QByteArray::number(i) + " ";
    const KRGPXConfiguredTrackList tracks =
        read(QStringLiteral("long.kml"),
             "<kml><Document>" + placemark("<LineString><coordinates>" + coordinates + "</coordinates></LineString>")
                 + "</Document></kml>");
    const KRGPXConfiguredTrackList expected = KRTrackSelectionFactoryKmlFile().createConfiguredTrackList(
        QFileInfo(m_dir.filePath(QStringLiteral("long.kml"))));
    QCOMPARE(tracks.size(), 1);
    QVERIFY(tracks == expected);
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
        + "<Style id='twice'><PolyStyle/></Style><Style id='twice'>" + blueLine
        + "</Style><gx:CascadingStyle kml:id='cascading'><x/><styleUrl>http://other#main</styleUrl><Style>" + blueLine
        + "</Style></gx:CascadingStyle>";
    const int stroke = StrokeDisplayOption;
    const int both = StrokeDisplayOption | FillDisplayOption;
    const QColor red(255, 0, 0);
    const QColor blue(0, 0, 255);
    const QColor standard = KRGPXTrackConfiguration::defaultValue().lineColor();
    const KRTestTable<QByteArray, QColor, int> table{
        {"shared", "<styleUrl>#red</styleUrl>" + line, red, both},
        {"blanks around the reference", "<styleUrl>\n #red </styleUrl>" + line, red, both},
        {"map", "<styleUrl>#map</styleUrl>" + line, red, both},
        {"closed line is no area", "<styleUrl>#red</styleUrl>" + circle, red, stroke},
        {"inline", "<Style><LineStyle><color>ffff0000</color></LineStyle></Style>" + line, blue, stroke},
        {"inline over shared",
         "<styleUrl>#red</styleUrl><Style><LineStyle><color>ffff0000</color></LineStyle></Style>" + line, blue, both},
        {"inline map", "<StyleMap><Pair><key>normal</key><styleUrl>#red</styleUrl></Pair></StyleMap>" + line, red,
         both},
        {"icon", "<styleUrl>#icon</styleUrl>" + point, QColor(255, 255, 0), both},
        {"unknown", "<styleUrl>http://localhost/a.kml#x</styleUrl>" + line, standard, stroke},
        {"none", line, standard, stroke},
        {"inline icon", "<Style><IconStyle><color>ff00ffff</color></IconStyle></Style>" + point, QColor(255, 255, 0),
         both},
        {"what others say in a style",
         "<Style><LineStyle><x/><color>ffff0000</color></LineStyle><PolyStyle><x/><fill>1</fill></PolyStyle></Style>"
             + line,
         blue, both},
        {"inline without colours", "<Style><LabelStyle/></Style>" + point, standard, stroke},
        {"without #", "<styleUrl>red</styleUrl>" + line, red, both},
        {"the last of two", "<styleUrl>#twice</styleUrl>" + line, blue, stroke},
        {"map of a map", "<styleUrl>#outer</styleUrl>" + line, red, both},
        {"style inside of a map", "<styleUrl>#inside</styleUrl>" + line, blue, stroke},
        {"map without a normal style", "<styleUrl>#odd</styleUrl>" + line, red, both},
        {"maps in a circle end, and say nothing", "<styleUrl>#circle</styleUrl>" + line, QColor(0, 0, 0), stroke},
        {"cascading style", "<styleUrl>#cascading</styleUrl>" + line, blue, stroke},
        {"no fill", "<Style>" + blueLine + "<PolyStyle><fill>0</fill></PolyStyle></Style>" + area, blue, stroke},
        {"no outline", "<Style>" + blueLine + "<PolyStyle><outline> 0 </outline></PolyStyle></Style>" + area,
         QColor(0, 0, 0), int(FillDisplayOption)},
        {"neither leaves the outline",
         "<Style>" + blueLine + "<PolyStyle><fill>false</fill><outline>0</outline></PolyStyle></Style>" + area, blue,
         stroke},
        {"no outline means nothing for a line",
         "<Style>" + blueLine + "<PolyStyle><outline>0</outline></PolyStyle></Style>" + line, blue, both},
        {"the icon has no part in lines", "<styleUrl>#icon</styleUrl>" + line, QColor(0, 0, 0), stroke},
        {"a line style goes first", "<styleUrl>#icon</styleUrl><Style>" + blueLine + "</Style>" + point, blue, stroke},
        {"white says nothing about an icon", "<Style><IconStyle><color>ffFFffff</color></IconStyle></Style>" + point,
         standard, stroke},
        {"texts are escaped", "<Style><LineStyle><color>&lt;&amp;</color></LineStyle></Style>" + line, QColor(0, 0, 0),
         stroke},
    };
    table.forEach([&](const QByteArray &placemarkContent, const QColor &lineColor, int options) {
        const KRGPXConfiguredTrackList tracks = read(
            QStringLiteral("styles.kml"),
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

void tst_KRKmlImport::namesAndDescriptions()
{
    const KRGPXConfiguredTrackList tracks =
        read(QStringLiteral("a b.KML"),
             "<kml>" + placemark("<name> </name>" + point)
                 + placemark("<name>\n N </name><description><![CDATA[<i>D</i>]]></description><MultiGeometry>" + point
                             + point + "</MultiGeometry>")
                 + "</kml>");
    QCOMPARE(tracks.size(), 3);
    QCOMPARE(tracks.at(0).name(), QStringLiteral("a b.KML"));
    QCOMPARE(tracks.at(0).description(), QStringLiteral("a b.KML"));
    for (int i = 1; i <= 2; ++i) {
        QCOMPARE(tracks.at(i).name(), QStringLiteral("N"));
        QCOMPARE(tracks.at(i).description(), QStringLiteral("<i>D</i>"));
    }
}

void tst_KRKmlImport::logsOnce()
{
    QStringList lines;
    KRLogger::instance()->setWatcher([&lines](const QString &line) { lines.append(line); });
    const QStringList expected{QStringLiteral("ACTION:useFactory VALUE:*.kml,*.kmz")};
    read(QStringLiteral("log.kml"), placemark(point).repeated(2));
    QCOMPARE(lines, expected);
    lines.clear();
    read(QStringLiteral("log.kml"), "broken");
    QCOMPARE(lines, expected);
}

void tst_KRKmlImport::encodings()
{
    const QString text = QStringLiteral("<kml>%1</kml>").arg(QString::fromUtf8(placemark("<name>Süd</name>" + point)));
    const auto declared = [&text](const char *encoding) {
        return QStringLiteral("<?xml version='1.0' encoding='%1'?>").arg(QLatin1String(encoding)) + text;
    };
    const KRTestTable<QByteArray> table{
        {"UTF-8", text.toUtf8()},
        {"UTF-8 with a mark", "\xEF\xBB\xBF" + declared("UTF-8").toUtf8()},
        {"Latin-1", declared("ISO-8859-1").toLatin1()},
        {"UTF-16", KRTestXml::utf16(declared("UTF-16"))},
        {"UTF-16, but not really", declared("utf-16").toUtf8()},
        {"zero bytes behind the text", text.toUtf8() + QByteArray(3, '\0')},
    };
    table.forEach([&](const QByteArray &kml) {
        const KRGPXConfiguredTrackList tracks = read(QStringLiteral("encoding.kml"), kml);
        QCOMPARE(tracks.size(), 1);
        QCOMPARE(tracks.first().name(), QStringLiteral("Süd"));
        QVERIFY(m_history.isEmpty());
    });
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
    const KRGPXConfiguredTrackList tracks =
        read(QStringLiteral("a.kmz"),
             KRTestArchive::bytes({KRTestArchive::stored("a.png", "?"), KRTestArchive::deflated("doc/DOC.KML", kml),
                                   KRTestArchive::stored("second.KML", kml)}));
    QCOMPARE(tracks.size(), 1);
    QCOMPARE(tracks.first().name(), QStringLiteral("A"));
    QCOMPARE(m_summary, QStringLiteral("1 Netzwerkverweis, 1 weiteres KML-Dokument nicht gezeichnet"));
}

void tst_KRKmlImport::explains()
{
    const KRTestTable<QString, QByteArray> table{
        {"broken", QStringLiteral("a.kml"), QByteArray("<kml><Placemark>" + point)},
        {"empty", QStringLiteral("b.kml"), {}},
        {"no archive", QStringLiteral("c.kmz"), placemark(point)},
        {"archive without document", QStringLiteral("d.kmz"),
         KRTestArchive::bytes({KRTestArchive::stored("a.png", "?")})},
        {"empty document in an archive", QStringLiteral("e.kmz"),
         KRTestArchive::bytes({KRTestArchive::stored("a.kml", "")})},
    };
    table.forEach([&](const QString &name, const QByteArray &content) {
        QVERIFY(read(name, content).isEmpty());
        QCOMPARE(m_history.entries().size(), 1);
        QCOMPARE(m_history.entries().first().fileName, m_dir.filePath(name));
    });
}

static const KRTestRegistration<tst_KRKmlImport> registration;

#include "tst_KRKmlImport.moc"
