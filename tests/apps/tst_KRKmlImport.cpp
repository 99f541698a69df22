#include "KRKmlImport.h"
#include "KRKmzArchive.h"

#include "KRTemporarySettings.h"
#include "KRTestArchive.h"
#include "KRTestRegistry.h"

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
    void styles_data();
    void styles();
    void namesAndDescriptions();
    void logsOnce();
    void encodings_data();
    void encodings();
    void choosesDocument_data();
    void choosesDocument();
    void readsArchive();
    void explains_data();
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
        + "</Folder>" + placemark("<styleUrl>#icon</styleUrl>" + point) + placemark(point) + "</Document></kml>";
    const KRGPXConfiguredTrackList tracks = read(QStringLiteral("plain.kml"), kml);
    const KRGPXConfiguredTrackList expected = KRTrackSelectionFactoryKmlFile().createConfiguredTrackList(
        QFileInfo(m_dir.filePath(QStringLiteral("plain.kml"))));
    QCOMPARE(tracks.size(), 4);
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

void tst_KRKmlImport::styles_data()
{
    QTest::addColumn<QByteArray>("placemarkContent");
    QTest::addColumn<QColor>("lineColor");
    QTest::addColumn<int>("options");
    const QByteArray line = "<LineString><coordinates>1,1 2,1 2,2</coordinates></LineString>";
    const QByteArray circle = "<LineString><coordinates>1,1 2,1 2,2 1,1</coordinates></LineString>";
    const int stroke = StrokeDisplayOption;
    const int both = StrokeDisplayOption | FillDisplayOption;
    const QColor red(255, 0, 0);
    const QColor blue(0, 0, 255);
    const QColor standard = KRGPXTrackConfiguration::defaultValue().lineColor();
    QTest::newRow("shared") << "<styleUrl>#red</styleUrl>" + line << red << both;
    QTest::newRow("blanks around the reference") << "<styleUrl>\n #red </styleUrl>" + line << red << both;
    QTest::newRow("map") << "<styleUrl>#map</styleUrl>" + line << red << both;
    QTest::newRow("closed line is no area") << "<styleUrl>#red</styleUrl>" + circle << red << stroke;
    QTest::newRow("inline") << "<Style><LineStyle><color>ffff0000</color></LineStyle></Style>" + line << blue << stroke;
    QTest::newRow("inline over shared")
        << "<styleUrl>#red</styleUrl><Style><LineStyle><color>ffff0000</color></LineStyle></Style>" + line << blue
        << both;
    QTest::newRow("inline map") << "<StyleMap><Pair><key>normal</key><styleUrl>#red</styleUrl></Pair></StyleMap>" + line
                                << red << both;
    QTest::newRow("icon") << "<styleUrl>#icon</styleUrl>" + point << QColor(255, 255, 0) << both;
    QTest::newRow("unknown") << "<styleUrl>http://localhost/a.kml#x</styleUrl>" + line << standard << stroke;
    QTest::newRow("none") << line << standard << stroke;
    QTest::newRow("inline without colours") << "<Style><LabelStyle/></Style>" + point << standard << stroke;
}

void tst_KRKmlImport::styles()
{
    QFETCH(QByteArray, placemarkContent);
    QFETCH(int, options);
    const KRGPXConfiguredTrackList tracks =
        read(QStringLiteral("styles.kml"),
             "<kml><Document><StyleMap id='map'><Pair><key>highlight</key><styleUrl>#icon</styleUrl></Pair><Pair>"
             "<key>normal</key><styleUrl>#red</styleUrl></Pair></StyleMap>"
                 + placemark(placemarkContent)
                 + "<Folder><Style id='red'><LineStyle><color>ff0000ff</color></LineStyle><PolyStyle/></Style>"
                   "<Style id='icon'><IconStyle><color>ff00ffff</color></IconStyle></Style></Folder></Document></kml>");
    QCOMPARE(tracks.size(), 1);
    QTEST(tracks.first().lineColor(), "lineColor");
    QCOMPARE(int(tracks.first().configuration().currentDisplayOptions().value()), options);
}

void tst_KRKmlImport::namesAndDescriptions()
{
    const KRGPXConfiguredTrackList tracks =
        read(QStringLiteral("a b.KML"),
             "<kml>" + placemark("<name> </name>" + point)
                 + placemark("<name>N</name><description><![CDATA[<i>D</i>]]></description><MultiGeometry>" + point
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

void tst_KRKmlImport::encodings_data()
{
    QTest::addColumn<QByteArray>("kml");
    const QString text = QStringLiteral("<kml>%1</kml>").arg(QString::fromUtf8(placemark("<name>Süd</name>" + point)));
    const auto declared = [&text](const char *encoding) {
        return QStringLiteral("<?xml version='1.0' encoding='%1'?>").arg(QLatin1String(encoding)) + text;
    };
    QTest::newRow("UTF-8") << text.toUtf8();
    QTest::newRow("UTF-8 with a mark") << "\xEF\xBB\xBF" + declared("UTF-8").toUtf8();
    QTest::newRow("Latin-1") << declared("ISO-8859-1").toLatin1();
    QTest::newRow("UTF-16") << QTextCodec::codecForName("UTF-16")->fromUnicode(declared("UTF-16"));
    QTest::newRow("UTF-16, but not really") << declared("utf-16").toUtf8();
    QTest::newRow("zero bytes behind the text") << text.toUtf8() + QByteArray(3, '\0');
}

void tst_KRKmlImport::encodings()
{
    QFETCH(QByteArray, kml);
    const KRGPXConfiguredTrackList tracks = read(QStringLiteral("encoding.kml"), kml);
    QCOMPARE(tracks.size(), 1);
    QCOMPARE(tracks.first().name(), QStringLiteral("Süd"));
    QVERIFY(m_history.isEmpty());
}

void tst_KRKmlImport::choosesDocument_data()
{
    QTest::addColumn<QString>("entries");
    QTest::addColumn<QString>("documents");
    const auto row = [](const char *name, const char *entries, const char *documents) {
        QTest::newRow(name) << QString::fromLatin1(entries) << QString::fromLatin1(documents);
    };
    row("first in the archive", "images/a.png b.kml doc.kml", "b.kml doc.kml");
    row("folders and macOS", "__MACOSX/._doc.kml files/ x/doc.kml __MACOSX/x/._doc.kml", "x/doc.kml");
    row("any case", "a.png DOC.KML b.Kml", "DOC.KML b.Kml");
    row("the importer's choice goes first", "DOC.KML b.kml", "b.kml DOC.KML");
    row("none", "a.png kml", "");
}

void tst_KRKmlImport::choosesDocument()
{
    QFETCH(QString, entries);
    QTEST(KRKmzArchive::documents(entries.split(QLatin1Char(' '))).join(QLatin1Char(' ')), "documents");
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

void tst_KRKmlImport::explains_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("broken") << QStringLiteral("a.kml") << QByteArray("<kml><Placemark>" + point);
    QTest::newRow("empty") << QStringLiteral("b.kml") << QByteArray();
    QTest::newRow("no archive") << QStringLiteral("c.kmz") << placemark(point);
    QTest::newRow("archive without document")
        << QStringLiteral("d.kmz") << KRTestArchive::bytes({KRTestArchive::stored("a.png", "?")});
    QTest::newRow("empty document in an archive")
        << QStringLiteral("e.kmz") << KRTestArchive::bytes({KRTestArchive::stored("a.kml", "")});
}

void tst_KRKmlImport::explains()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QVERIFY(read(name, content).isEmpty());
    QCOMPARE(m_history.entries().size(), 1);
    QCOMPARE(m_history.entries().first().fileName, m_dir.filePath(name));
}

static const KRTestRegistration<tst_KRKmlImport> registration;

#include "tst_KRKmlImport.moc"
