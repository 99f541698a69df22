#include "KRKmlPreparation.h"

#include "KRTestRegistry.h"
#include "KRTestXml.h"

#include <KRCore/KRErrorHistory.h>

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

/// "name: geometry part | part" of every figure.
QStringList figures(const KRKmlPreparation &preparation)
{
    static const QStringList geometries{QStringLiteral("shape"), QStringLiteral("point"), QStringLiteral("line"),
                                        QStringLiteral("area")};
    QStringList texts;
    for (const KRKmlFigure &figure : preparation.figures()) {
        QStringList parts;
        for (const KRKmlCoordinates &part : figure.parts)
            parts.append(part.toText());
        texts.append(QStringLiteral("%1: %2 %3")
                         .arg(figure.name, geometries.at(figure.geometry), parts.join(QStringLiteral(" | "))));
    }
    return texts;
}

} // namespace

class tst_KRKmlPreparation : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("kr.io=false")); }
    void cleanupTestCase() { QLoggingCategory::setFilterRules(QString()); }
    void findsPlacemarks_data();
    void findsPlacemarks();
    void readsGeometries_data();
    void readsGeometries();
    void reports_data();
    void reports();
    void texts();
    void times();
    void document();
    void documentInParts();
    void broken();
    void manyPlacemarks();
    void refusesBeyondLimits_data();
    void refusesBeyondLimits();
};

void tst_KRKmlPreparation::findsPlacemarks_data()
{
    QTest::addColumn<QByteArray>("kml");
    QTest::addColumn<QStringList>("names");
    const auto row = [](const char *name, const QByteArray &kml, const QStringList &names) {
        QTest::newRow(name) << kml << names;
    };
    const auto placemark = [](const char *name) {
        return QByteArray("<Placemark><name>") + name + "</name>" + here + "</Placemark>";
    };
    const QByteArray a = placemark("a");
    const QByteArray b = placemark("b");
    const QByteArray c = placemark("c");
    const QStringList abc{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    row("folders", "<kml><Document>" + a + "<Folder><Folder>" + b + "</Folder></Folder>" + c + "</Document></kml>",
        abc);
    row("several documents",
        "<kml><Document>" + a + "<Document>" + b + "</Document></Document><Document>" + c + "</Document></kml>", abc);
    row("no document", "<kml>" + a + "<Folder>" + b + "</Folder>" + c + "</kml>", abc);
    row("the placemark is all there is", a, {QStringLiteral("a")});
    row("prefixes",
        "<kml:kml xmlns:kml='http://earth.google.com/kml/2.1'><kml:Placemark><kml:name>a</kml:name><kml:Point>"
        "<kml:coordinates>2,49,0</kml:coordinates></kml:Point></kml:Placemark></kml:kml>",
        {QStringLiteral("a")});
    row("elements of others around", "<envelope><kml>" + a + "<more>" + b + c + "</more></kml></envelope>", abc);
    row("inside of another one",
        "<kml><Placemark><name>b</name>" + here + "<MultiGeometry>" + a + "</MultiGeometry></Placemark>" + c + "</kml>",
        abc);
}

void tst_KRKmlPreparation::findsPlacemarks()
{
    QFETCH(QByteArray, kml);
    const KRKmlPreparation preparation = prepared(kml);
    QStringList names;
    for (const KRKmlFigure &figure : preparation.figures())
        names.append(figure.name);
    QTEST(names, "names");
    QCOMPARE(preparation.report().summary(), QString());
}

void tst_KRKmlPreparation::readsGeometries_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const QByteArray &content, const QStringList &expected) {
        QTest::newRow(name) << content << expected;
    };
    row("point", here, {QStringLiteral("P: point 8,53")});
    row("line", "<LineString><extrude>1</extrude><coordinates>8,53 9,54</coordinates></LineString>",
        {QStringLiteral("P: line 8,53 9,54")});
    row("ring outside of an area", "<LinearRing><coordinates>8,53 9,53 9,54 8,53</coordinates></LinearRing>",
        {QStringLiteral("P: line 8,53 9,53 9,54 8,53")});
    row("comment in the coordinates", "<Point><coordinates>8,<!-- north -->53</coordinates></Point>",
        {QStringLiteral("P: point 8,53")});
    row("several geometries",
        "<MultiGeometry>" + here + "<MultiGeometry><LineString><coordinates>1,2 3,4</coordinates></LineString>"
            + "</MultiGeometry><Point><coordinates>5,6</coordinates></Point></MultiGeometry>",
        {QStringLiteral("P: point 8,53"), QStringLiteral("P: line 1,2 3,4"), QStringLiteral("P: point 5,6")});
    row("geometries of others", "<GeometryCollection><member>" + here + "</member></GeometryCollection>",
        {QStringLiteral("P: point 8,53")});
    row("coordinates alone", "<coordinates>8,53 9,54</coordinates>", {QStringLiteral("P: shape 8,53 9,54")});
    row("what describes something else",
        "<ExtendedData>" + here + "</ExtendedData><Region>" + here + "</Region>" + here,
        {QStringLiteral("P: point 8,53")});

    const auto ring = [](const char *coordinates) {
        return QByteArray("<LinearRing><coordinates>") + coordinates + "</coordinates></LinearRing>";
    };
    const QByteArray outline = ring("0,50 9,50 9,59 0,50");
    row("area", "<Polygon><outerBoundaryIs>" + outline + "</outerBoundaryIs></Polygon>",
        {QStringLiteral("P: area 0,50 9,50 9,59 0,50")});
    row("open outline", "<Polygon><outerBoundaryIs>" + ring("0,50 9,50 9,59") + "</outerBoundaryIs></Polygon>",
        {QStringLiteral("P: area 0,50 9,50 9,59 0,50")});
    row("outline without boundary", "<Polygon>" + outline + "</Polygon>",
        {QStringLiteral("P: area 0,50 9,50 9,59 0,50")});
    row("holes",
        "<Polygon><outerBoundaryIs>" + outline + "</outerBoundaryIs><innerBoundaryIs>" + ring("5,51 6,51 6,52 5,51")
            + "</innerBoundaryIs><innerBoundaryIs>" + ring("7,51 8,51 8,52") + ring("5,53 6,53 6,54 5,53")
            + "</innerBoundaryIs></Polygon>",
        {QStringLiteral("P: area 0,50 9,50 9,59 0,50 | 5,51 6,51 6,52 5,51 | 7,51 8,51 8,52 7,51 | "
                        "5,53 6,53 6,54 5,53")});
    row("hole before the outline",
        "<Polygon><innerBoundaryIs>" + ring("5,51 6,51 6,52 5,51") + "</innerBoundaryIs><outerBoundaryIs>" + outline
            + "</outerBoundaryIs></Polygon>",
        {QStringLiteral("P: area 0,50 9,50 9,59 0,50 | 5,51 6,51 6,52 5,51")});
    row("what is no hole",
        "<Polygon><outerBoundaryIs>" + outline + "</outerBoundaryIs><innerBoundaryIs/><innerBoundaryIs>"
            + ring("5,51 6,51") + "</innerBoundaryIs></Polygon>",
        {QStringLiteral("P: area 0,50 9,50 9,59 0,50")});
    row("two outlines",
        "<Polygon><outerBoundaryIs>" + outline + ring("1,1 2,1 2,2 1,1") + "</outerBoundaryIs></Polygon>",
        {QStringLiteral("P: area 0,50 9,50 9,59 0,50"), QStringLiteral("P: area 1,1 2,1 2,2 1,1")});

    row("record of a journey", "<gx:Track><gx:coord>8 53 1.5</gx:coord><gx:coord>9 54 2</gx:coord></gx:Track>",
        {QStringLiteral("P: line 8,53,1 9,54,2")});
    row("record with breaks",
        "<gx:MultiTrack><gx:interpolate>1</gx:interpolate><gx:Track><gx:coord>8 53 1</gx:coord><gx:coord/></gx:Track>"
        "<gx:Track/><gx:Track><gx:coord>9 54 2</gx:coord><Model/></gx:Track></gx:MultiTrack>",
        {QStringLiteral("P: line 8,53,1 | 9,54,2")});
}

void tst_KRKmlPreparation::readsGeometries()
{
    QFETCH(QByteArray, content);
    const KRKmlPreparation preparation = preparedPlacemark(content);
    QTEST(figures(preparation), "expected");
    QCOMPARE(preparation.report().summary(), QString());
}

void tst_KRKmlPreparation::reports_data()
{
    QTest::addColumn<QByteArray>("kml");
    QTest::addColumn<int>("figures");
    QTest::addColumn<QStringList>("items"); // "line: kind name"
    const auto row = [](const char *name, const QByteArray &kml, int figureCount, const QStringList &items) {
        QTest::newRow(name) << "<kml><Document>\n" + kml + "</Document></kml>" << figureCount << items;
    };
    row("what is no placemark",
        "<NetworkLink><name>n</name><Link><href>a.kml</href></Link></NetworkLink>\n"
        "<GroundOverlay><Icon/><name>g</name></GroundOverlay>\n<ScreenOverlay/>\n"
        "<PhotoOverlay>"
            + here + "</PhotoOverlay>\n<gx:Tour><gx:Playlist><Placemark/></gx:Playlist></gx:Tour>",
        0,
        {QStringLiteral("2: networkLink n"), QStringLiteral("3: groundOverlay g"), QStringLiteral("4: screenOverlay "),
         QStringLiteral("5: photoOverlay "), QStringLiteral("6: tour ")});
    row("no geometry", "<Placemark/>\n<Placemark><description/>\n<name>n</name></Placemark>", 0,
        {QStringLiteral("2: placemarkWithoutGeometry "), QStringLiteral("3: placemarkWithoutGeometry n")});
    row("empty geometries",
        "<Placemark><Point/></Placemark>\n<Placemark><Polygon><outerBoundaryIs/></Polygon></Placemark>\n"
        "<Placemark><LineString><coordinates> </coordinates></LineString></Placemark>\n"
        "<Placemark><gx:Track><when>2024-05-01</when></gx:Track></Placemark>",
        0,
        {QStringLiteral("2: placemarkWithoutPosition "), QStringLiteral("3: placemarkWithoutPosition "),
         QStringLiteral("4: placemarkWithoutPosition "), QStringLiteral("5: placemarkWithoutPosition ")});
    row("area of holes only",
        "<Placemark><Polygon><innerBoundaryIs><coordinates>5,51 6,51 6,52 5,51</coordinates></innerBoundaryIs>"
        "</Polygon></Placemark>",
        0, {QStringLiteral("2: placemarkWithoutPosition ")});
    row("hole that cannot be read",
        "<Placemark><Polygon><outerBoundaryIs><coordinates>0,50 9,50 9,59</coordinates></outerBoundaryIs>"
        "<innerBoundaryIs><coordinates>x y</coordinates></innerBoundaryIs></Polygon></Placemark>",
        1, {QStringLiteral("2: 2 unreadablePosition ")});
    row("one of several geometries",
        "<Placemark><MultiGeometry>" + here
            + "\n<Point><coordinates>x,y</coordinates></Point></MultiGeometry>"
              "<name>n</name></Placemark>",
        1, {QStringLiteral("3: geometryWithoutPosition n")});
    row("some positions of a line",
        "<Placemark>\n<LineString><coordinates>8,53 x,y 9,54 8,99</coordinates></LineString></Placemark>", 1,
        {QStringLiteral("3: 2 unreadablePosition ")});
    row("model", "<Placemark>\n<Model><Location/></Model><name>m</name></Placemark>", 0,
        {QStringLiteral("3: model m")});
    row("model beside something else", "<Placemark>\n<MultiGeometry><Model/>" + here + "</MultiGeometry></Placemark>",
        1, {QStringLiteral("3: model ")});
}

void tst_KRKmlPreparation::reports()
{
    QFETCH(QByteArray, kml);
    QFETCH(int, figures);
    const KRKmlPreparation preparation = prepared(kml);
    QCOMPARE(preparation.figures().size(), figures);
    QStringList items;
    for (const KRImportReport::Item &item : preparation.report().items())
        items.append(QStringLiteral("%1: %2%3 %4")
                         .arg(QString::number(item.line),
                              item.count == 1 ? QString() : QStringLiteral("%1 ").arg(item.count),
                              KRImportReport::key(item.kind), item.name));
    QTEST(items, "items");
    QCOMPARE(preparation.report().fileName(), QStringLiteral("test.kml"));
}

void tst_KRKmlPreparation::texts()
{
    const KRKmlPreparation preparation =
        prepared("<Placemark><name>\n <![CDATA[<b> & \"c\"]]> \n</name>" + here
                 + "<description><p>one</p>two</description>"
                   "<ExtendedData><Data><name>other</name></Data></ExtendedData></Placemark>");
    const KRKmlFigure figure = preparation.figures().value(0);
    QCOMPARE(figure.name, QStringLiteral("<b> & \"c\""));
    QCOMPARE(figure.description, QStringLiteral("onetwo"));

    int count = 0;
    const QDomElement root = KRTestXml::element(preparation.document(0, &count).toUtf8());
    const QDomElement placemark = root.firstChildElement().firstChildElement(QStringLiteral("Placemark"));
    QCOMPARE(placemark.firstChildElement(QStringLiteral("name")).text(), figure.name);
    QCOMPARE(placemark.firstChildElement(QStringLiteral("description")).text(), figure.description);
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

/// The document holds nothing that the importer does not know.
void tst_KRKmlPreparation::document()
{
    const KRKmlPreparation preparation = prepared(
        "<kml><Folder><Style id='s'><LineStyle><color>ff0000ff</color></LineStyle></Style></Folder>"
        "<Placemark><name>a</name><styleUrl> #s </styleUrl>"
        + here
        + "</Placemark>"
          "<Placemark><name>b</name><Style><LineStyle><color>ff0000ff</color></LineStyle></Style>"
          "<LineString><coordinates>1,2 3,4</coordinates></LineString></Placemark>"
          "<Placemark><Polygon><coordinates>1,1 2,1 2,2</coordinates></Polygon><styleUrl>#other</styleUrl></Placemark>"
          "<Placemark><shape>point,hop</shape><coordinates>1,2 3,4</coordinates></Placemark></kml>");
    int count = 0;
    QCOMPARE(preparation.document(0, &count),
             QStringLiteral("<kml><Document>"
                            "<Placemark><name>a</name><description></description>"
                            "<Point><coordinates>8,53</coordinates></Point><styleUrl>#0</styleUrl></Placemark>"
                            "<Placemark><name>b</name><description></description>"
                            "<LineString><coordinates>1,2 3,4</coordinates></LineString><styleUrl>#0</styleUrl>"
                            "</Placemark>"
                            "<Placemark><name></name><description></description>"
                            "<Polygon><coordinates>1,1 2,1 2,2 1,1</coordinates></Polygon></Placemark>"
                            "<Placemark><name></name><description></description>"
                            "<shape>point,hop</shape><coordinates>1,2 3,4</coordinates></Placemark>"
                            "<Style id=\"0\"><LineStyle><color>ff0000ff</color></LineStyle></Style>"
                            "</Document></kml>"));
    QCOMPARE(count, 4);
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
    QVERIFY(preparation.read("<kml><Placemark>" + here + "</Placemark><NetworkLink/>&nbsp;</kml>", &history));
    QVERIFY(history.isEmpty());
    QCOMPARE(preparation.figures().size(), 1);
    QCOMPARE(preparation.report().count(KRImportReport::NetworkLink), 1);
}

void tst_KRKmlPreparation::manyPlacemarks()
{
    QByteArray kml = "<kml>";
    for (int i = 0; i < 10000; ++i)
        kml += "<Placemark><name>" + QByteArray::number(i) + "</name><Style><LineStyle><color>ff"
               + QByteArray::number(100000 + i) + "</color></LineStyle></Style>" + here + "</Placemark>";
    const KRKmlPreparation preparation = prepared(kml + "</kml>");
    QCOMPARE(preparation.figures().size(), 10000);
    QCOMPARE(preparation.figures().last().name, QStringLiteral("9999"));
}

void tst_KRKmlPreparation::refusesBeyondLimits_data()
{
    QTest::addColumn<QByteArray>("kml");
    const QByteArray tuples = QByteArray("1,2 ").repeated(KRKmlPreparation::maximumPositions / 2 + 1);
    const QByteArray line = "<LineString><coordinates>" + tuples + "</coordinates></LineString>";
    QTest::newRow("positions of one line")
        << "<Placemark><LineString><coordinates>" + tuples + tuples + "</coordinates></LineString></Placemark>";
    QTest::newRow("positions of several lines") << "<Placemark><a>" + line + line + "</a></Placemark>";
    QTest::newRow("figures") << "<Placemark><a>" + here.repeated(KRKmlPreparation::maximumFigures + 1)
                                    + "</a></Placemark>";
}

void tst_KRKmlPreparation::refusesBeyondLimits()
{
    QFETCH(QByteArray, kml);
    KRErrorHistory history;
    KRKmlPreparation preparation(QStringLiteral("test.kml"));
    QVERIFY(!preparation.read("<kml>" + kml + "</kml>", &history));
    QCOMPARE(history.entries().size(), 1);
    QCOMPARE(history.entries().first().fileName, QStringLiteral("test.kml"));
}

static const KRTestRegistration<tst_KRKmlPreparation> registration;

#include "tst_KRKmlPreparation.moc"
