#include <KRGeoLocation/KRGPXTrack.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"
#include "KRTestXml.h"

#include <KRCore/KRXMLLoader.h>
#include <KRGeoLocation/KRGPXTrackFileRegistry.h>

#include <QDir>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <algorithm>

namespace {

const QDir noDir = QDir(QString());

KRGPXTrack read(const QByteArray &xml)
{
    return KRGPXTrack(KRTestXml::element(xml), noDir);
}

/// A track of one segment from comma texts.
KRGPXTrack track(const QString &coordinates, KRGPXTrackShapeEnum shape = LineStringTrackShape)
{
    return KRGPXTrack::decodeKml(QStringLiteral("track"), QString(), coordinates, shape);
}

QString square(double size)
{
    return QStringLiteral("%1,%1 %2,%1 %2,%2 %1,%2 %1,%1").arg(10 - size).arg(10 + size);
}

/// The children of an element as "name=text;", those without text of their own as "name;".
QString childrenOf(const QDomElement &parent)
{
    QString children;
    for (QDomElement child = parent.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        children += child.tagName()
                    + (child.text().isEmpty() ? QString() : QLatin1Char('=') + child.text().simplified())
                    + QLatin1Char(';');
    return children;
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

} // namespace

class tst_KRGPXTrack : public QObject
{
    Q_OBJECT

private slots:
    void shapeAfterReading();
    void read();
    void readingAddsToTheTrack();
    void fromPoint();
    void fromKml();
    void elementQueries();
    void queriesWithoutPoints();
    void body();
    void externalFile();
    void include();
    void includeRegistersTheFile();
    void missingIncludeIsRegistered();
    void currentDirectoryIsADirectory();
    void saveAsGpxFile();
    void isEnclave();
    void equality();
    void order();
};

void tst_KRGPXTrack::shapeAfterReading()
{
    const QByteArray open = "<trkseg><compressedPoints>8,53 9,54</compressedPoints></trkseg>";
    const QByteArray closed = "<trkseg><compressedPoints>8,53 9,54 8.0000001,53</compressedPoints></trkseg>";
    const QByteArray single = "<trkseg><trkpt lat=\"53\" lon=\"8\"/></trkseg>";
    const QByteArray automatic = "<shape>auto</shape>";
    const KRTestTable<QByteArray, int> table{
        {"none written", closed, int(LineStringTrackShape)},
        {"auto, ends apart", automatic + open, int(LineStringTrackShape)},
        {"auto, ends together", automatic + closed, int(PolygonTrackShape)},
        {"auto, one point", automatic + single, int(PointTrackShape)},
        {"auto, nothing", automatic, int(UnknownTrackShape)},
        {"auto, two points in two segments", automatic + single + single, int(PolygonTrackShape)},
        {"auto, empty segment: its ends are different positions", automatic + "<trkseg/>", int(LineStringTrackShape)},
        {"auto behind the points", single + automatic, int(PointTrackShape)},
        {"the last shape wins", "<shape>point</shape><shape>hop</shape>" + open, int(HopTrackShape)},
        {"no key", "<shape>blob</shape>" + open, int(UnknownTrackShape)},
    };
    table.forEach([](const QByteArray &body, int expected) {
        QCOMPARE(int(::read("<trk>" + body + "</trk>").shape().value()), expected);
    });
}

void tst_KRGPXTrack::read()
{
    const KRTestTable<QByteArray, QString, QString, int, int> table{
        {"the last name and description win", "<trk><name>a</name><desc>b</desc><name>c</name><desc>d</desc></trk>",
         QStringLiteral("c"), QStringLiteral("d"), 0, 0},
        {"an empty one too", "<trk><name>a</name><name/></trk>", {}, {}, 0, 0},
        {"text of nested elements belongs to the name",
         "<trk><name>a <b>bold<![CDATA[ & ]]></b><!-- not me -->one</name></trk>",
         QStringLiteral("a bold & one"),
         {},
         0,
         0},
        {"prefixed and deeper elements are others",
         "<trk><gpx:name>a</gpx:name><x><trkseg/></x><rte/></trk>",
         {},
         {},
         0,
         0},
        {"each child of enclaves is one, whatever its name",
         "<trk><trkseg/><enclaves><trk/><island><trkseg/></island></enclaves><enclaves><trk/></enclaves>"
         "<trkseg/></trk>",
         {},
         {},
         2,
         3},
        {"includes are ignored without a directory", "<trk><include>/etc/passwd</include></trk>", {}, {}, 0, 0},
    };
    table.forEach(
        [](const QByteArray &xml, const QString &name, const QString &description, int segments, int enclaves) {
            const KRGPXTrack track = ::read(xml);
            QCOMPARE(track.name(), name);
            QCOMPARE(track.description(), description);
            QCOMPARE(track.segments().size(), segments);
            QCOMPARE(track.enclaves().size(), enclaves);
        });
}

void tst_KRGPXTrack::readingAddsToTheTrack()
{
    KRGPXTrack track = ::track(QStringLiteral("1,1 2,2"));
    track.fromXml(KRTestXml::element("<trk><trkseg/><desc>more</desc></trk>"), noDir);
    QCOMPARE(track.segments().size(), 2);
    QCOMPARE(track.name(), QStringLiteral("track"));
    QCOMPARE(track.description(), QStringLiteral("more"));
    track.fromXml(QDomElement(), noDir);
    QCOMPARE(track.segments().size(), 2);
}

void tst_KRGPXTrack::fromPoint()
{
    const KRTestTable<double, double, bool> table{
        {"somewhere", 53.0, 8.0, true},
        {"(0, 0) is no position", 0.0, 0.0, false},
        {"beyond any angle", 720.0, 8.0, false},
    };
    table.forEach([](double latitude, double longitude, bool isValid) {
        const KRGPXTrack track(
            KRGPXTrackPoint(KRGeoPosition(latitude, longitude), 3, QDateTime(), QStringLiteral("Leuchtturm")));
        QCOMPARE(track.name(), QStringLiteral("Leuchtturm"));
        QVERIFY(track.description().isEmpty());
        QVERIFY(track.hasShape(PointTrackShape));
        QCOMPARE(track.isValid(), isValid);
        QCOMPARE(track.isSinglePoint(), isValid);
    });
}

void tst_KRGPXTrack::fromKml()
{
    const KRGPXTrack track = KRGPXTrack::decodeKml(QStringLiteral("Weg"), QStringLiteral("lang"),
                                                   QStringLiteral("\n8,53,0 9,54,0\n"), AutoTrackShape);
    QCOMPARE(track.name(), QStringLiteral("Weg"));
    QCOMPARE(track.description(), QStringLiteral("lang"));
    QCOMPARE(track.countPoints(), 2);
    // Only reading XML replaces auto.
    QVERIFY(track.hasShape(AutoTrackShape));
    QCOMPARE(track.naturalShape(), KRGPXTrackShape(LineStringTrackShape));
}

void tst_KRGPXTrack::elementQueries()
{
    const KRGPXTrack track = ::read("<trk><trkseg><compressedPoints>1,1 2,2 3,3 4,4 5,5</compressedPoints></trkseg>"
                                    "<trkseg/><trkseg><compressedPoints>6,6,0,0 7,7</compressedPoints></trkseg></trk>");
    QCOMPARE(track.countPoints(), 7);
    const KRGeoPositionList positions = track.allPoints();
    QCOMPARE(positions.size(), 7);
    QCOMPARE(track.firstPoint(), KRGeoPosition(1, 1));
    QCOMPARE(track.lastPoint(), KRGeoPosition(7, 7));
    QVERIFY(!track.isSinglePoint());

    const QList<QDateTime> timeStamps = track.allTimeStamps();
    QCOMPARE(timeStamps.size(), 7);
    QCOMPARE(timeStamps.at(5), QDateTime::fromSecsSinceEpoch(0));
    QVERIFY(!timeStamps.at(6).isValid());

    // No chunk spans two segments, and an empty segment has none.
    const int cores = QThread::idealThreadCount();
    const QList<KRGeoPositionList> chunks = track.chunkedPoints();
    QCOMPARE(chunks.size(), std::min(5, cores) + std::min(2, cores));
    KRGeoPositionList joined;
    for (const KRGeoPositionList &chunk : chunks)
        joined += chunk;
    QCOMPARE(joined, positions);
}

void tst_KRGPXTrack::queriesWithoutPoints()
{
    const KRGPXTrack none;
    QCOMPARE(none.firstPoint(), KRGeoPosition::null());
    QCOMPARE(none.lastPoint(), KRGeoPosition());
    QVERIFY(!none.isSinglePoint());
    QVERIFY(!none.isValid());
    QVERIFY(none.allPoints().isEmpty());
    QVERIFY(none.chunkedPoints().isEmpty());
    QVERIFY(none.timeFrame().isNull());

    const KRGPXTrack endsEmpty = ::read("<trk><trkseg/><trkseg><trkpt/></trkseg><trkseg/></trk>");
    QVERIFY(endsEmpty.isValid());
    QCOMPARE(endsEmpty.firstPoint(), KRGeoPosition::null());
    QCOMPARE(endsEmpty.lastPoint(), KRGeoPosition());
    QVERIFY(!endsEmpty.isSinglePoint());
    QCOMPARE(endsEmpty.boundingBox(), KRGeoPositionRect(KRGeoPosition(1, 1), KRGeoPosition(1, 1)));
}

void tst_KRGPXTrack::body()
{
    QDomElement root = KRTestXml::element("<root/>");
    KRGPXTrack track = ::track(QStringLiteral("8,53 9,54"), PolygonTrackShape);
    track.fromXml(KRTestXml::element("<trk><desc>gone</desc><trkseg/></trk>"), noDir);
    track.addEnclave(KRGPXTrack());
    track.toXml(root, noDir);
    QCOMPARE(childrenOf(root.firstChildElement(QStringLiteral("trk"))),
             QStringLiteral("name=track;shape=polygon;trkseg=8.,53. 9.,54.;trkseg;enclaves=linestring;"));

    QDomElement bare = KRGPXTrack().buildTrackElement(root);
    KRGPXTrack().buildXmlBody(bare);
    QCOMPARE(childrenOf(bare), QStringLiteral("name;shape=linestring;"));
}

void tst_KRGPXTrack::externalFile()
{
    const QTemporaryDir folder;
    const QDir dir(folder.path());
    KRGPXTrack lake = track(square(2), PolygonTrackShape);
    KRGPXTrack island = track(square(1), PolygonTrackShape);
    island.addEnclave(track(square(0.5), PolygonTrackShape));
    lake.addEnclave(island);
    QDomElement root = KRTestXml::element("<root/>");
    lake.toXml(root, dir);
    const QDomElement trk = root.firstChildElement(QStringLiteral("trk"));
    QCOMPARE(childrenOf(trk), QStringLiteral("include=track.gps;"));

    const QDomElement included = KRXMLLoader::loadDocumentElement(QFileInfo(dir, QStringLiteral("track.gps")));
    QCOMPARE(included.tagName(), QStringLiteral("includedTrack"));
    QCOMPARE(KRGPXTrack(included.firstChildElement(), noDir), lake);
    QCOMPARE(KRGPXTrack(trk, dir), lake);
}

void tst_KRGPXTrack::include()
{
    const KRTestTable<QByteArray, QString, int> table{
        {"merged into what stands around it",
         "<trk><name>outer</name><trkseg><trkpt/></trkseg><include>two.gps</include>"
         "<trkseg><trkpt/></trkseg></trk>",
         QStringLiteral("two"), 4},
        {"what follows wins", "<trk><include>two.gps</include><name>outer</name></trk>", QStringLiteral("outer"), 2},
        {"several", "<trk><include>two.gps</include><include>two.gps</include></trk>", QStringLiteral("two"), 4},
        {"no include within an include", "<trk><include>nested.gps</include></trk>", QStringLiteral("nested"), 0},
        {"no include within an enclave",
         "<trk><enclaves><trk><include>two.gps</include></trk></enclaves></trk>",
         {},
         0},
        {"not there", "<trk><name>outer</name><include>three.gps</include></trk>", QStringLiteral("outer"), 0},
        {"broken", "<trk><include>broken.gps</include></trk>", {}, 0},
        {"without a track", "<trk><include>empty.gps</include></trk>", {}, 0},
        {"names nothing, so the directory", "<trk><include/></trk>", {}, 0},
    };
    table.forEach([](const QByteArray &xml, const QString &name, int points) {
        const QTemporaryDir folder;
        writeFile(folder.filePath(QStringLiteral("two.gps")),
                  "<x><y/><trk><name>two</name><trkseg><trkpt/><trkpt/></trkseg></trk>"
                  "<trk><name>second</name></trk></x>");
        writeFile(folder.filePath(QStringLiteral("nested.gps")),
                  "<x><trk><name>nested</name><include>two.gps</include></trk></x>");
        writeFile(folder.filePath(QStringLiteral("broken.gps")),
                  "<x><trk><name>broken</name><trkseg><trkpt/></trkseg>");
        writeFile(folder.filePath(QStringLiteral("empty.gps")), "<x/>");
        const KRGPXTrack track(KRTestXml::element(xml), QDir(folder.path()));
        QCOMPARE(track.name(), name);
        QCOMPARE(track.countPoints(), points);
    });
}

void tst_KRGPXTrack::includeRegistersTheFile()
{
    const QTemporaryDir folder;
    const QDir dir(folder.path());
    writeFile(folder.filePath(QStringLiteral("mine.gps")),
              "<x><trk><shape>auto</shape><trkseg><compressedPoints>1,1 2,2 1,1</compressedPoints></trkseg></trk></x>");
    const KRGPXTrack track(KRTestXml::element("<trk><include>mine.gps</include></trk>"), dir);
    QVERIFY(track.hasShape(PolygonTrackShape));

    QDomElement root = KRTestXml::element("<root/>");
    track.toXml(root, dir);
    QCOMPARE(childrenOf(root.firstChildElement()), QStringLiteral("include=mine.gps;"));
    QCOMPARE(dir.entryList(QDir::Files), QStringList{QStringLiteral("mine.gps")});
}

void tst_KRGPXTrack::missingIncludeIsRegistered()
{
    const QTemporaryDir folder;
    const QDir dir(folder.path());
    const KRGPXTrack track(KRTestXml::element("<trk><name>outer</name><include>gone.gps</include></trk>"), dir);
    QCOMPARE(KRGPXTrackFileRegistry::instance().fileName(KRGPXTrackFileRegistryKey(track, dir)),
             QStringLiteral("gone.gps"));
}

void tst_KRGPXTrack::currentDirectoryIsADirectory()
{
    // Comparing directories would take the current one for "no directory", and the points would be lost.
    const QTemporaryDir folder;
    writeFile(folder.filePath(QStringLiteral("mine.gps")), "<x><trk><trkseg><trkpt/></trkseg></trk></x>");
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    const KRGPXTrack track(KRTestXml::element("<trk><include>mine.gps</include></trk>"), QDir(QDir::currentPath()));
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(track.countPoints(), 1);
}

void tst_KRGPXTrack::saveAsGpxFile()
{
    const QTemporaryDir folder;
    const QFileInfo file(folder.filePath(QStringLiteral("out.gpx")));
    const KRGPXTrack track = ::track(QStringLiteral("8,53,4 9,54"));
    track.saveAsGpxFile(file);
    const QDomElement root = KRXMLLoader::loadDocumentElement(file);
    QCOMPARE(root.tagName(), QStringLiteral("gpx"));
    QCOMPARE(root.childNodes().size(), 1);
    QCOMPARE(KRGPXTrack(root.firstChildElement(), noDir), track);
}

void tst_KRGPXTrack::isEnclave()
{
    const KRTestTable<QString, QString, bool> table{
        {"inside", square(2), square(1), true},
        {"outside", square(1), square(2), false},
        {"not closed", QStringLiteral("0,0.1 9,0.1 9,9 0,9"), QStringLiteral("2,2 3,2 3,3"), true},
        {"shared edge", square(2), QStringLiteral("8,9 9,9 9,11 8,11"), false},
        {"crossing", square(2), QStringLiteral("9,9 20,9 20,10 9,10"), false},
        {"identical", square(2), square(2), false},
        {"empty", square(2), {}, false},
    };
    table.forEach([](const QString &outer, const QString &inner, bool expected) {
        const KRGPXTrack area = track(outer, PolygonTrackShape);
        QCOMPARE(area.isEnclave(track(inner, PolygonTrackShape)), expected);
        QVERIFY(!area.isEnclave(track(inner, LineStringTrackShape)));
        QVERIFY(!track(outer, LineStringTrackShape).isEnclave(track(inner, PolygonTrackShape)));
    });
}

void tst_KRGPXTrack::equality()
{
    const QList<KRGPXTrackSegment> segments{KRGPXTrackSegment::decodeKml(QStringLiteral("8,53 9,54"))};
    const QString name = QStringLiteral("a");
    const QString description = QStringLiteral("b");
    const KRGPXTrack track(name, description, segments, LineStringTrackShape);
    QCOMPARE(track, KRGPXTrack(name, description, {KRGPXTrackSegment::decodeKml(QStringLiteral("8,53 9,54"))},
                               LineStringTrackShape));
    QVERIFY(track != KRGPXTrack(QString(), description, segments, LineStringTrackShape));
    QVERIFY(track != KRGPXTrack(name, QString(), segments, LineStringTrackShape));
    QVERIFY(track != KRGPXTrack(name, description, {}, LineStringTrackShape));
    QVERIFY(track != KRGPXTrack(name, description, segments, PolygonTrackShape));
    KRGPXTrack withEnclave = track;
    withEnclave.addEnclave(KRGPXTrack());
    QVERIFY(track != withEnclave);
}

void tst_KRGPXTrack::order()
{
    const QByteArray one = "<trk><trkseg><trkpt lat=\"9\" lon=\"9\"/></trkseg></trk>";
    const QByteArray two = "<trk><trkseg><trkpt/></trkseg><trkseg><trkpt/></trkseg></trk>";
    const KRTestTable<QByteArray, QByteArray, bool> table{
        {"fewer points", one, two, true},
        {"none at all", "<trk/>", one, true},
        {"both without points", "<trk/>", "<trk><trkseg/></trk>", false},
        {"first position decides, empty segments do not count", "<trk><trkseg><trkpt lat=\"-9\"/></trkseg></trk>",
         "<trk><trkseg/><trkseg><trkpt lat=\"-8\"/></trkseg></trk>", true},
        {"same first position", one, one, false},
    };
    table.forEach([](const QByteArray &smaller, const QByteArray &larger, bool differ) {
        const KRGPXTrack a = ::read(smaller);
        const KRGPXTrack b = ::read(larger);
        QCOMPARE(a < b, differ);
        QCOMPARE(b > a, differ);
        QVERIFY(!(b < a));
        QVERIFY(!(a > b));
    });
}

static const KRTestRegistration<tst_KRGPXTrack> registration;

#include "tst_KRGPXTrack.moc"
