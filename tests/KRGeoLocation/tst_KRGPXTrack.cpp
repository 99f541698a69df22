#include <KRGeoLocation/KRGPXTrack.h>

#include "KRTest.h"
#include "KRTestFolder.h"
#include "KRTestTrack.h"
#include "KRTestXml.h"

#include <KRCore/KRXMLLoader.h>
#include <KRGeoLocation/KRGPXTrackFileRegistry.h>

#include <algorithm>

using KRTestTrack::noDir;
using KRTestTrack::track;
using KRTestXml::childrenOf;

namespace {

KRGPXTrack read(const QByteArray &children)
{
    return KRGPXTrack(KRTestXml::element("<trk>" + children + "</trk>"), noDir);
}

QString squareText(double size)
{
    return QStringLiteral("%1,%1 %2,%1 %2,%2 %1,%2 %1,%1").arg(10 - size).arg(10 + size);
}

} // namespace

class tst_KRGPXTrack : public QObject
{
    Q_OBJECT

private slots:
    void shapeAfterReading()
    {
        const QByteArray open = "<trkseg><compressedPoints>8,53 9,54</compressedPoints></trkseg>";
        const QByteArray closed = "<trkseg><compressedPoints>8,53 9,54 8.0000001,53</compressedPoints></trkseg>";
        const QByteArray single = "<trkseg><trkpt lat=\"53\" lon=\"8\"/></trkseg>";
        const QByteArray automatic = "<shape>auto</shape>";
        const KRTestTable<QByteArray, int> table{
            {"auto, ends apart", automatic + open, int(LineStringTrackShape)},
            {"auto, ends together", automatic + closed, int(PolygonTrackShape)},
            {"auto, one point", automatic + single, int(PointTrackShape)},
            {"auto, nothing", automatic, int(UnknownTrackShape)},
            {"auto, two points in two segments", automatic + single + single, int(PolygonTrackShape)},
            {"auto, empty segment: its ends are two positions", automatic + "<trkseg/>", int(LineStringTrackShape)},
            {"the last shape wins", "<shape>point</shape><shape>hop</shape>" + open, int(HopTrackShape)},
        };
        table.forEach(
            [](const QByteArray &xml, int expected) { QCOMPARE(int(::read(xml).shape().value()), expected); });
        // Only reading XML replaces auto.
        QVERIFY(track(squareText(1), AutoTrackShape).hasShape(AutoTrackShape));
    }

    void read()
    {
        const KRTestTable<QByteArray, KRText, KRText, int, int> table{
            {"the last of them wins", "<name>a</name><desc>b</desc><name>c</name><desc>d</desc>", "c", "d", 0, 0},
            {"each child of enclaves is one, whatever its name",
             "<trkseg/><enclaves><trk/><island><trkseg/></island></enclaves><enclaves><trk/></enclaves><trkseg/>",
             QString(), QString(), 2, 3},
            {"includes are ignored without a directory", "<include>/etc/passwd</include>", {}, {}, 0, 0},
        };
        table.forEach([](const QByteArray &xml, const QString &name, const QString &text, int segments, int enclaves) {
            const KRGPXTrack read = ::read(xml);
            QCOMPARE(read.name(), name);
            QCOMPARE(read.description(), text);
            QCOMPARE(read.segments().size(), segments);
            QCOMPARE(read.enclaves().size(), enclaves);
            // What is read comes to what there is.
            KRGPXTrack more = track(QStringLiteral("1,1 2,2"));
            more.fromXml(KRTestXml::element("<trk>" + xml + "</trk>"), noDir);
            QCOMPARE(more.segments().size(), segments + 1);
            QCOMPARE(more.name(), xml.contains("<name>") ? name : QStringLiteral("track"));
        });
    }

    void fromPoint()
    {
        for (const double latitude : {53.0, 0.0}) { // (0, 0) is no position
            const KRGPXTrackPoint point(KRGeoPosition(latitude, 0.0), 3, QDateTime(), QStringLiteral("Leuchtturm"));
            const KRGPXTrack place(point);
            QCOMPARE(place.name(), QStringLiteral("Leuchtturm"));
            QVERIFY(place.description().isEmpty() && place.hasShape(PointTrackShape));
            QVERIFY(place.isValid() == (latitude != 0.0) && place.isSinglePoint() == (latitude != 0.0));
        }
    }

    void elementQueries()
    {
        const KRGPXTrack walk = ::read("<trkseg><compressedPoints>1,1 2,2 3,3 4,4 5,5</compressedPoints></trkseg>"
                                       "<trkseg/><trkseg><compressedPoints>6,6,0,0 7,7</compressedPoints></trkseg>");
        QCOMPARE(walk.countPoints(), 7);
        QCOMPARE(walk.allPoints().size(), 7);
        QCOMPARE(walk.firstPoint(), KRGeoPosition(1, 1));
        QCOMPARE(walk.lastPoint(), KRGeoPosition(7, 7));
        QVERIFY(!walk.isSinglePoint());

        QCOMPARE(walk.allTimeStamps().at(5), QDateTime::fromSecsSinceEpoch(0));
        QVERIFY(walk.allTimeStamps().size() == 7 && !walk.allTimeStamps().at(6).isValid());

        // No chunk spans two segments, and an empty segment has none.
        const int cores = QThread::idealThreadCount();
        QCOMPARE(walk.chunkedPoints().size(), std::min(5, cores) + std::min(2, cores));

        const KRGPXTrack endsEmpty = ::read("<trkseg/><trkseg><trkpt/></trkseg><trkseg/>");
        for (const KRGPXTrack &odd : {KRGPXTrack(), endsEmpty}) {
            QCOMPARE(odd.firstPoint(), KRGeoPosition::null());
            QCOMPARE(odd.lastPoint(), KRGeoPosition());
            QVERIFY(!odd.isSinglePoint());
            QCOMPARE(odd.isValid(), odd == endsEmpty);
            QCOMPARE(odd.chunkedPoints().size(), odd.countPoints());
            QVERIFY(odd.timeFrame().isNull());
        }
        QCOMPARE(endsEmpty.boundingBox(), KRGeoPositionRect(KRGeoPosition(1, 1), KRGeoPosition(1, 1)));
    }

    void body()
    {
        QDomElement root = KRTestXml::element("<root/>");
        KRGPXTrack area = track(QStringLiteral("8,53 9,54"), PolygonTrackShape);
        area.fromXml(KRTestXml::element("<trk><desc>gone</desc><trkseg/></trk>"), noDir);
        area.addEnclave(KRGPXTrack());
        area.toXml(root, noDir);
        QCOMPARE(childrenOf(root.firstChildElement(QStringLiteral("trk"))),
                 QStringLiteral("name=track;shape=polygon;trkseg=8.,53. 9.,54.;trkseg;enclaves=linestring;"));
        area.addEnclave(area);
        QCOMPARE(area.enclaves().last().enclaves().size(), 1);

        QDomElement bare = KRGPXTrack().buildTrackElement(root);
        KRGPXTrack().buildXmlBody(bare);
        QCOMPARE(childrenOf(bare), QStringLiteral("name;shape=linestring;"));
    }

    void files()
    {
        const KRTestFolder folder;
        KRGPXTrack lake = track(squareText(2), PolygonTrackShape);
        KRGPXTrack island = track(squareText(1), PolygonTrackShape);
        island.addEnclave(track(squareText(0.5), PolygonTrackShape));
        lake.addEnclave(island);
        QDomElement root = KRTestXml::element("<root/>");
        lake.toXml(root, folder.dir());
        QCOMPARE(childrenOf(root.firstChildElement()), QStringLiteral("include=track.gps;"));

        const QDomElement included =
            KRXMLLoader::loadDocumentElement(QFileInfo(folder.path(QStringLiteral("track.gps"))));
        QCOMPARE(included.tagName(), QStringLiteral("includedTrack"));
        QCOMPARE(KRGPXTrack(included.firstChildElement(), noDir), lake);
        QCOMPARE(KRGPXTrack(root.firstChildElement(QStringLiteral("trk")), folder.dir()), lake);
        // Where there is no such folder, everything stands in the document.
        QDomElement whole = KRTestXml::element("<root/>");
        lake.toXml(whole, QDir(folder.path(QStringLiteral("missing"))));
        QCOMPARE(KRGPXTrack(whole.firstChildElement(), noDir), lake);

        const QFileInfo file(folder.path(QStringLiteral("out.gpx")));
        lake.saveAsGpxFile(file);
        const QDomElement gpx = KRXMLLoader::loadDocumentElement(file);
        QCOMPARE(gpx.tagName(), QStringLiteral("gpx"));
        QCOMPARE(gpx.childNodes().size(), 1);
        QCOMPARE(KRGPXTrack(gpx.firstChildElement(), noDir), lake);
    }

    void include()
    {
        const KRTestFolder folder;
        folder.write(QStringLiteral("two.gps"), "<x><y/><trk><name>two</name><trkseg><trkpt/><trkpt/></trkseg></trk>"
                                                "<trk><name>second</name></trk></x>");
        folder.write(QStringLiteral("nested.gps"), "<x><trk><name>nested</name><include>two.gps</include></trk></x>");
        const QString outer = QStringLiteral("outer");
        const QString two = QStringLiteral("two");
        const QByteArray point = "<trkseg><trkpt/></trkseg>";
        const KRTestTable<QByteArray, KRText, int> table{
            {"merged with what is around", "<name>outer</name>" + point + "<include>two.gps</include>" + point, two, 4},
            {"what follows wins", "<include>two.gps</include><name>outer</name>", outer, 2},
            {"no include within an include", "<include>nested.gps</include>", "nested", 0},
            {"no include within an enclave", "<enclaves><trk><include>two.gps</include></trk></enclaves>", {}, 0},
            {"names nothing, so the directory", "<include/>", {}, 0},
        };
        table.forEach([&](const QByteArray &xml, const QString &name, int points) {
            const KRGPXTrack merged(KRTestXml::element("<trk>" + xml + "</trk>"), folder.dir());
            QCOMPARE(merged.name(), name);
            QCOMPARE(merged.countPoints(), points);
        });
        // The shape is found where the file would have been read, so not from what follows.
        const KRGPXTrack around(KRTestXml::element("<trk><shape>auto</shape><include>gone.gps</include>"
                                                   "<trkseg><compressedPoints>1,1 2,2 1,1</compressedPoints></trkseg>"
                                                   "</trk>"),
                                folder.dir());
        QVERIFY(!around.hasShape(PolygonTrackShape));
    }

    void includeRegistersTheFile()
    {
        const KRTestFolder folder;
        const QByteArray closed = "<trkseg><compressedPoints>1,1 2,2 1,1</compressedPoints></trkseg>";
        folder.write(QStringLiteral("mine.gps"), "<x><trk><shape>auto</shape>" + closed + "</trk></x>");
        for (const char *const fileName : {"mine.gps", "gone.gps"}) { // also when the file is missing
            const QByteArray xml = QByteArray("<trk><include>") + fileName + "</include></trk>";
            const KRGPXTrack included(KRTestXml::element(xml), folder.dir());
            QCOMPARE(included.hasShape(PolygonTrackShape), included.isValid());
            QDomElement root = KRTestXml::element("<root/>");
            included.toXml(root, folder.dir());
            QCOMPARE(childrenOf(root.firstChildElement()), QStringLiteral("include=%1;").arg(QLatin1String(fileName)));
            QCOMPARE(folder.files(), QStringList{QStringLiteral("mine.gps")});
        }
        // Comparing directories would take the current one for "no directory", and the points would be lost.
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder.dir().path()));
        const KRGPXTrack included(KRTestXml::element("<trk><include>mine.gps</include></trk>"),
                                  QDir(QDir::currentPath()));
        QVERIFY(QDir::setCurrent(before));
        QVERIFY(included.isValid());
    }

    void settersTellOfChanges()
    {
        KRGPXTrack lake = track(squareText(2), PolygonTrackShape);
        const KRGPXTrack before = lake;
        QVERIFY(!lake.setName(lake.name()) && !lake.setShape(PolygonTrackShape));
        QCOMPARE(lake, before);
        QVERIFY(lake.setName(QStringLiteral("Meer")) && lake.setShape(HopTrackShape));
        QCOMPARE(lake.name(), QStringLiteral("Meer"));
        QCOMPARE(lake.shape().value(), HopTrackShape);
        QCOMPARE(before.shape().value(), PolygonTrackShape);
    }

    void isEnclave()
    {
        const KRTestTable<KRText, KRText, bool> table{
            {"inside", squareText(2), squareText(1), true},
            {"not closed", "0,0.1 9,0.1 9,9 0,9", "2,2 3,2 3,3", true},
            {"shared edge", squareText(2), "8,9 9,9 9,11 8,11", false},
            {"crossing", squareText(2), "9,9 20,9 20,10 9,10", false},
            {"identical", squareText(2), squareText(2), false},
            {"empty", squareText(2), {}, false},
        };
        table.forEach([](const QString &outer, const QString &inner, bool expected) {
            const KRGPXTrack area = track(outer, PolygonTrackShape);
            QCOMPARE(area.isEnclave(track(inner, PolygonTrackShape)), expected);
            QVERIFY(!area.isEnclave(track(inner)));
            QVERIFY(!track(outer).isEnclave(track(inner, PolygonTrackShape)));
        });
    }

    void equality()
    {
        const auto trackOf = [](const char *name, const char *description, const QString &coordinates, int shape) {
            const QList<KRGPXTrackSegment> segments{KRGPXTrackSegment::decodeKml(coordinates)};
            return KRGPXTrack(QLatin1String(name), QLatin1String(description), segments, KRGPXTrackShapeEnum(shape));
        };
        const QString line = QStringLiteral("8,53 9,54");
        const KRGPXTrack walk = trackOf("a", "b", line, LineStringTrackShape);
        KRGPXTrack withEnclave = walk;
        QCOMPARE(withEnclave, trackOf("a", "b", line, LineStringTrackShape));
        withEnclave.addEnclave(KRGPXTrack());
        for (const KRGPXTrack &other : {trackOf("", "b", line, 4), trackOf("a", "", line, 4), trackOf("a", "b", {}, 4),
                                        trackOf("a", "b", line, PolygonTrackShape), withEnclave})
            QVERIFY(walk != other);
    }

    void order()
    {
        const QByteArray one = "<trkseg><trkpt lat=\"9\" lon=\"9\"/></trkseg>";
        const QByteArray two = "<trkseg><trkpt/></trkseg><trkseg><trkpt/></trkseg>";
        const KRTestTable<QByteArray, QByteArray, bool> table{
            {"fewer points", one, two, true},
            {"both without points", {}, "<trkseg/>", false},
            {"first position decides, empty segments do not count", "<trkseg><trkpt lat=\"-9\"/></trkseg>",
             "<trkseg/><trkseg><trkpt lat=\"-8\"/></trkseg>", true},
            {"same first position", one, one, false},
        };
        table.forEach([](const QByteArray &smaller, const QByteArray &larger, bool differ) {
            const KRGPXTrack a = ::read(smaller);
            const KRGPXTrack b = ::read(larger);
            QCOMPARE(a < b, differ);
            QCOMPARE(b > a, differ);
            QVERIFY(!(b < a) && !(a > b));
        });
    }
};

template class KRTestRegistration<tst_KRGPXTrack>;

#include "tst_KRGPXTrack.moc"
