#include "KRKmlPreparation.h"

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRQtCompat.h>

#include <QLoggingCategory>
#include <QtTest>

namespace {

const QByteArray here = "<Point><coordinates>8,53</coordinates></Point>";

KRKmlPreparation prepared(const QByteArray &kml)
{
    KRKmlPreparation preparation(QStringLiteral("test.kml"));
    if (!preparation.read(kml, nullptr))
        qWarning("the test document is broken");
    return preparation;
}

KRKmlPreparation preparedPlacemark(const QByteArray &content)
{
    return prepared("<kml><Document><Placemark><name>P</name>" + content + "</Placemark></Document></kml>");
}

/// "geometry part | part" of every figure, with semicolons between them.
QString figures(const KRKmlPreparation &preparation)
{
    static const QStringList geometries{QStringLiteral("shape"), QStringLiteral("point"), QStringLiteral("line"),
                                        QStringLiteral("area")};
    QStringList texts;
    for (const KRKmlFigure &figure : preparation.figures()) {
        QStringList parts;
        for (const KRKmlCoordinates &part : figure.parts)
            parts.append(part.toText());
        texts.append(geometries.at(figure.geometry) + QLatin1Char(' ') + parts.join(QStringLiteral(" | ")));
    }
    return texts.join(QStringLiteral("; "));
}

} // namespace

class tst_KRKmlPreparation : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("kr.io=false")); }
    void cleanupTestCase() { QLoggingCategory::setFilterRules(QString()); }
    void findsPlacemarks();
    void readsGeometries();
    void reports();
    void times();
    void documentInParts();
    void broken();
    void refusesBeyondLimits();
};

void tst_KRKmlPreparation::findsPlacemarks()
{
    const auto placemark = [](const char *name) {
        return QByteArray("<Placemark><name>") + name + "</name>" + here + "</Placemark>";
    };
    const QByteArray a = placemark("a");
    const QByteArray b = placemark("b");
    const QByteArray c = placemark("c");
    const KRTestTable<QByteArray, const char *> table{
        {"folders", "<kml><Document>" + a + "<Folder><Folder>" + b + "</Folder></Folder>" + c + "</Document></kml>",
         "a b c"},
        {"several documents",
         "<kml><Document>" + a + "<Document>" + b + "</Document></Document><Document>" + c + "</Document></kml>",
         "a b c"},
        {"no document", "<kml>" + a + "<Folder>" + b + "</Folder>" + c + "</kml>", "a b c"},
        {"the placemark is all there is", a, "a"},
        {"prefixes",
         "<kml:kml xmlns:kml='http://earth.google.com/kml/2.1'><kml:Placemark><kml:name>a</kml:name><kml:Point>"
         "<kml:coordinates>2,49,0</kml:coordinates></kml:Point></kml:Placemark></kml:kml>",
         "a"},
        {"elements of others around", "<envelope><kml>" + a + "<more>" + b + c + "</more></kml></envelope>", "a b c"},
        {"inside of another one",
         "<kml><Placemark><name>b</name>" + here + "<MultiGeometry>" + a + "</MultiGeometry></Placemark>" + c
             + "</kml>",
         "a b c"},
    };
    table.forEach([](const QByteArray &kml, const char *expected) {
        const KRKmlPreparation preparation = prepared(kml);
        QStringList names;
        for (const KRKmlFigure &figure : preparation.figures())
            names.append(figure.name);
        QCOMPARE(names.join(QLatin1Char(' ')), QLatin1String(expected));
        QCOMPARE(preparation.report().summary(), QString());
    });
}

void tst_KRKmlPreparation::readsGeometries()
{
    const auto ring = [](const char *coordinates) {
        return QByteArray("<LinearRing><coordinates>") + coordinates + "</coordinates></LinearRing>";
    };
    const QByteArray outline = ring("0,50 9,50 9,59 0,50");
    const KRTestTable<QByteArray, const char *> table{
        {"point", here, "point 8,53"},
        {"line", "<LineString><extrude>1</extrude><coordinates>8,53 9,54</coordinates></LineString>", "line 8,53 9,54"},
        {"ring outside of an area", "<LinearRing><coordinates>8,53 9,53 9,54 8,53</coordinates></LinearRing>",
         "line 8,53 9,53 9,54 8,53"},
        {"comment in the coordinates", "<Point><coordinates>8,<!-- north -->53</coordinates></Point>", "point 8,53"},
        {"several geometries",
         "<MultiGeometry>" + here + "<MultiGeometry><LineString><coordinates>1,2 3,4</coordinates></LineString>"
             + "</MultiGeometry><Point><coordinates>5,6</coordinates></Point></MultiGeometry>",
         "point 8,53; line 1,2 3,4; point 5,6"},
        {"geometries of others", "<GeometryCollection><member>" + here + "</member></GeometryCollection>",
         "point 8,53"},
        {"coordinates alone", "<coordinates>8,53 9,54</coordinates>", "shape 8,53 9,54"},
        {"what describes something else",
         "<ExtendedData>" + here + "</ExtendedData><Metadata>" + here + "</Metadata><Region>" + here
             + "</Region><LookAt>" + here + "</LookAt><Camera>" + here + "</Camera><BalloonStyle>" + here
             + "</BalloonStyle>" + here,
         "point 8,53"},
        {"area", "<Polygon><outerBoundaryIs>" + outline + "</outerBoundaryIs></Polygon>", "area 0,50 9,50 9,59 0,50"},
        {"open outline", "<Polygon><outerBoundaryIs>" + ring("0,50 9,50 9,59") + "</outerBoundaryIs></Polygon>",
         "area 0,50 9,50 9,59 0,50"},
        {"outline without boundary", "<Polygon>" + outline + "</Polygon>", "area 0,50 9,50 9,59 0,50"},
        {"holes",
         "<Polygon><outerBoundaryIs>" + outline + "</outerBoundaryIs><innerBoundaryIs>" + ring("5,51 6,51 6,52 5,51")
             + "</innerBoundaryIs><innerBoundaryIs>" + ring("7,51 8,51 8,52") + ring("5,53 6,53 6,54 5,53")
             + "</innerBoundaryIs></Polygon>",
         "area 0,50 9,50 9,59 0,50 | 5,51 6,51 6,52 5,51 | 7,51 8,51 8,52 7,51 | 5,53 6,53 6,54 5,53"},
        {"hole before the outline",
         "<Polygon><innerBoundaryIs>" + ring("5,51 6,51 6,52 5,51") + "</innerBoundaryIs><outerBoundaryIs>" + outline
             + "</outerBoundaryIs></Polygon>",
         "area 0,50 9,50 9,59 0,50 | 5,51 6,51 6,52 5,51"},
        {"what is no hole",
         "<Polygon><outerBoundaryIs>" + outline + "</outerBoundaryIs><innerBoundaryIs/><innerBoundaryIs>"
             + ring("5,51 6,51") + "</innerBoundaryIs></Polygon>",
         "area 0,50 9,50 9,59 0,50"},
        {"two outlines",
         "<Polygon><outerBoundaryIs>" + outline + ring("1,1 2,1 2,2 1,1") + "</outerBoundaryIs></Polygon>",
         "area 0,50 9,50 9,59 0,50; area 1,1 2,1 2,2 1,1"},
        {"record of a journey", "<gx:Track><gx:coord>8 53 1.5</gx:coord><gx:coord>9 54 2</gx:coord></gx:Track>",
         "line 8,53,1 9,54,2"},
        {"record with breaks",
         "<gx:MultiTrack><gx:interpolate>1</gx:interpolate><gx:Track><gx:coord>8 53 1</gx:coord><gx:coord/></gx:Track>"
         "<gx:Track/><gx:Track><gx:coord>9 54 2</gx:coord><Model/></gx:Track></gx:MultiTrack>",
         "line 8,53,1 | 9,54,2"},
    };
    table.forEach([](const QByteArray &content, const char *expected) {
        const KRKmlPreparation preparation = preparedPlacemark(content);
        QCOMPARE(figures(preparation), QLatin1String(expected));
        QCOMPARE(preparation.report().summary(), QString());
    });
}

void tst_KRKmlPreparation::reports()
{
    // below the first line, the number of figures, and "line: [count] kind name" of what is reported
    const KRTestTable<QByteArray, int, const char *> table{
        {"what is no placemark",
         "<NetworkLink><name>n</name><Link><href>a.kml</href></Link></NetworkLink>\n"
         "<GroundOverlay><Icon/><name>g</name></GroundOverlay>\n<ScreenOverlay/>\n"
         "<PhotoOverlay>"
             + here + "</PhotoOverlay>\n<gx:Tour><gx:Playlist><Placemark/></gx:Playlist></gx:Tour>",
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
        {"area of holes only",
         "<Placemark><Polygon><innerBoundaryIs><coordinates>5,51 6,51 6,52 5,51</coordinates></innerBoundaryIs>"
         "</Polygon></Placemark>",
         0, "2: placemarkWithoutPosition"},
        {"hole that cannot be read",
         "<Placemark><Polygon><outerBoundaryIs><coordinates>0,50 9,50 9,59</coordinates></outerBoundaryIs>"
         "<innerBoundaryIs><coordinates>x y</coordinates></innerBoundaryIs></Polygon></Placemark>",
         1, "2: 2 unreadablePosition"},
        {"one of several geometries",
         "<Placemark><MultiGeometry>" + here
             + "\n<Point><coordinates>x,y</coordinates></Point></MultiGeometry>"
               "<name>n</name></Placemark>",
         1, "3: geometryWithoutPosition n"},
        {"some positions of a line",
         "<Placemark>\n<LineString><coordinates>8,53 x,y 9,54 8,99</coordinates></LineString></Placemark>", 1,
         "3: 2 unreadablePosition"},
        {"model", "<Placemark>\n<Model><Location/></Model><name>m</name></Placemark>", 0, "3: model m"},
        {"model beside something else", "<Placemark>\n<MultiGeometry><Model/>" + here + "</MultiGeometry></Placemark>",
         1, "3: model"},
    };
    table.forEach([](const QByteArray &kml, int figures, const char *expected) {
        const KRKmlPreparation preparation = prepared("<kml><Document>\n" + kml + "</Document></kml>");
        QCOMPARE(preparation.figures().size(), figures);
        QStringList items;
        for (const KRImportReport::Item &item : preparation.report().items()) {
            const QString count = item.count == 1 ? QString() : QStringLiteral("%1 ").arg(item.count);
            items.append(QStringLiteral("%1: %2%3 %4")
                             .arg(QString::number(item.line), count, KRImportReport::key(item.kind), item.name)
                             .trimmed());
        }
        QCOMPARE(items.join(QStringLiteral("; ")), QLatin1String(expected));
        QCOMPARE(preparation.report().fileName(), QStringLiteral("test.kml"));
    });
}

void tst_KRKmlPreparation::times()
{
    const auto timesOf = [](const QByteArray &content) {
        QStringList times;
        const KRKmlPreparation preparation = preparedPlacemark(content);
        for (const QDateTime &time : preparation.figures().value(0).parts.value(0).toSegment().allTimeStamps())
            times.append(time.toUTC().toString(Qt::ISODateWithMs));
        return times;
    };
    const QByteArray a = "<when>2021-05-29T18:06:21.767Z</when>";
    const QByteArray b = "<when> 2021-05-29T20:06:22+02:00 </when>";
    const QByteArray coord = "<gx:coord>8 53 1</gx:coord>";
    const QStringList expected{QStringLiteral("2021-05-29T18:06:21.767Z"), QStringLiteral("2021-05-29T18:06:22.000Z")};
    QCOMPARE(timesOf("<gx:Track>" + a + b + coord + coord + "</gx:Track>"), expected);
    QCOMPARE(timesOf("<gx:Track>" + a + coord + b + coord + "</gx:Track>"), expected);
    QCOMPARE(timesOf("<gx:Track>" + coord + coord + a + b + "</gx:Track>"), expected);
    // A missing position takes its time with it, a missing time leaves the position.
    QCOMPARE(timesOf("<gx:Track>" + a + "<when/>" + b + coord + "<gx:coord/>" + coord + "</gx:Track>"), expected);
    QCOMPARE(timesOf("<gx:Track>" + a + coord + coord + "</gx:Track>"), (QStringList{expected.first(), QString()}));

    QCOMPARE(timesOf("<TimeStamp>" + a + "</TimeStamp>" + here), QStringList{expected.first()});
    QVERIFY(!preparedPlacemark("<TimeStamp><when>yesterday</when></TimeStamp>" + here)
                 .figures()
                 .first()
                 .parts.first()
                 .hasTimes());
}

void tst_KRKmlPreparation::documentInParts()
{
    const int placemarks = 25000;
    const KRKmlPreparation preparation =
        prepared("<kml>" + ("<Placemark>" + here + "</Placemark>").repeated(placemarks) + "</kml>");
    int first = 0;
    int documents = 0;
    while (first < preparation.figures().size()) {
        int count = 0;
        const QString text = preparation.document(first, &count);
        QVERIFY(count > 0);
        QCOMPARE(text.count(QLatin1String("</Placemark>")), count);
        first += count;
        ++documents;
    }
    QCOMPARE(first, placemarks);
    QVERIFY(documents > 1);
}

void tst_KRKmlPreparation::broken()
{
    KRErrorHistory history;
    KRKmlPreparation preparation(QStringLiteral("test.kml"));
    QVERIFY(!preparation.read("<kml>\n<Placemark>" + here + "</Placemark>\n<Placemark></kml>", &history));
    QCOMPARE(history.entries().size(), 1);
    QCOMPARE(history.entries().first().line, 3);

    // Read by the DOM at last, which must not count what the stream had read before.
    history.clear();
    QCOMPARE(preparation.read("<kml><Placemark>" + here + "</Placemark><NetworkLink/>&nbsp;</kml>", &history),
             KRQtCompat::domReadsBrokenXml);
    QCOMPARE(history.isEmpty(), KRQtCompat::domReadsBrokenXml);
    QCOMPARE(preparation.figures().size(), 1);
    QCOMPARE(preparation.report().count(KRImportReport::NetworkLink), 1);
}

void tst_KRKmlPreparation::refusesBeyondLimits()
{
    const QByteArray tuples = QByteArray("1,2 ").repeated(KRInputLimits::positions / 2 + 1);
    const QByteArray line = "<LineString><coordinates>" + tuples + "</coordinates></LineString>";
    const KRTestTable<QByteArray> table{
        {"positions of one line",
         "<Placemark><LineString><coordinates>" + tuples + tuples + "</coordinates></LineString></Placemark>"},
        {"positions of several lines", "<Placemark><a>" + line + line + "</a></Placemark>"},
        {"figures", "<Placemark><a>" + here.repeated(KRInputLimits::figures + 1) + "</a></Placemark>"},
    };
    table.forEach([](const QByteArray &kml) {
        KRErrorHistory history;
        KRKmlPreparation preparation(QStringLiteral("test.kml"));
        QVERIFY(!preparation.read("<kml>" + kml + "</kml>", &history));
        QCOMPARE(history.entries().size(), 1);
        QCOMPARE(history.entries().first().fileName, QStringLiteral("test.kml"));
    });
}

static const KRTestRegistration<tst_KRKmlPreparation> registration;

#include "tst_KRKmlPreparation.moc"
