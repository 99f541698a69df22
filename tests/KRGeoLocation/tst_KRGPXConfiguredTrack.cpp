#include <KRGeoLocation/KRGPXConfiguredTrack.h>

#include "KRTemporarySettings.h"
#include "KRTestRegistry.h"
#include "KRTestXml.h"

#include <KRGeoLocation/KRGeoLocationSettings.h>

#include <QtTest>

#include <functional>
#include <limits>

using KRTestXml::element;

namespace {

using Change = std::function<void(KRGPXConfiguredTrack &)>;

const QDir noDir = QDir(QString());
const QString onePoint = QStringLiteral("8,53");
const QString openLine = QStringLiteral("8,53 9,53 10,53 11,53");
const QString closedLine = QStringLiteral("8,50 12,50 12,54 9,54 8,50");

KRGPXTrack track(const QString &coordinates)
{
    return KRGPXTrack::decodeKml(QStringLiteral("Weg"), QString(), coordinates, LineStringTrackShape);
}

KRGPXTrackConfiguration withShape(int shape)
{
    KRGPXTrackConfiguration configuration;
    configuration.setTrackShape(static_cast<KRGPXTrackShapeEnum>(shape));
    return configuration;
}

/// A track whose configured shape is just this one, also when it is auto or unknown.
KRGPXConfiguredTrack configuredAs(int shape, const QString &coordinates)
{
    QDomElement parent = element("<document/>");
    track(coordinates).toXml(parent, noDir);
    withShape(shape).toXml(parent);
    return KRGPXConfiguredTrack(parent, noDir);
}

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_KRGPXConfiguredTrack : public QObject
{
    Q_OBJECT

private slots:
    void takesTheNaturalShape_data();
    void takesTheNaturalShape();
    void effectiveShapeOfAutoIsThatOfTheTrack();
    void drawingPoints_data();
    void drawingPoints();
    void positionRelativeFromStart_data();
    void positionRelativeFromStart();
    void unknownShapeChangesNothing();
    void differentAspects_data();
    void differentAspects();
    void roundTrip();
    void roundTripThroughFiles();
    void startsAsTheUserWants();
    void answersForItsTrack();
};

void tst_KRGPXConfiguredTrack::takesTheNaturalShape_data()
{
    QTest::addColumn<int>("configured");
    QTest::addColumn<QString>("coordinates");
    QTest::addColumn<int>("expected");
    QTest::newRow("auto: open line") << 256 << openLine << int(LineStringTrackShape);
    QTest::newRow("auto: closed line") << 256 << closedLine << int(PolygonTrackShape);
    QTest::newRow("auto: one point") << 256 << onePoint << int(PointTrackShape);
    QTest::newRow("auto: no points") << 256 << QString() << int(UnknownTrackShape);
    QTest::newRow("auto bit among others") << 257 << openLine << int(LineStringTrackShape);
    QTest::newRow("unknown") << 0 << closedLine << int(PolygonTrackShape);
    QTest::newRow("anything else stays") << 4 << onePoint << int(LineStringTrackShape);
}

void tst_KRGPXConfiguredTrack::takesTheNaturalShape()
{
    QFETCH(int, configured);
    QFETCH(QString, coordinates);
    const KRGPXConfiguredTrack configuredTrack(track(coordinates), withShape(configured));
    QTEST(int(configuredTrack.configuration().trackShape().value()), "expected");
    // Reading leaves the shape alone.
    QCOMPARE(int(configuredAs(configured, coordinates).configuration().trackShape().value()), configured);
}

void tst_KRGPXConfiguredTrack::effectiveShapeOfAutoIsThatOfTheTrack()
{
    QCOMPARE(configuredAs(AutoTrackShape, closedLine).effectiveShape().value(), LineStringTrackShape);
    QCOMPARE(configuredAs(AutoTrackShape, closedLine).naturalShape().value(), PolygonTrackShape);
    QCOMPARE(configuredAs(257, closedLine).effectiveShape().value(), static_cast<KRGPXTrackShapeEnum>(257));
    QCOMPARE(configuredAs(HopTrackShape, closedLine).effectiveShape().value(), HopTrackShape);
}

void tst_KRGPXConfiguredTrack::drawingPoints_data()
{
    QTest::addColumn<int>("shape");
    QTest::addColumn<QString>("coordinates");
    QTest::addColumn<QString>("expected");
    QTest::newRow("line as a point: its middle") << 1 << openLine << QStringLiteral("10,53");
    QTest::newRow("area as a point: the centre of its box") << 1 << closedLine << QStringLiteral("10,52");
    QTest::newRow("point as a point") << 1 << onePoint << onePoint;
    QTest::newRow("line as an area") << 8 << openLine << openLine;
    QTest::newRow("area as a line") << 4 << closedLine << closedLine;
    QTest::newRow("line as a flight line") << 2 << openLine << openLine;
    QTest::newRow("auto") << 256 << openLine << openLine;
    QTest::newRow("nothing as an area") << 8 << QString() << QString();
}

void tst_KRGPXConfiguredTrack::drawingPoints()
{
    QFETCH(int, shape);
    QFETCH(QString, coordinates);
    QFETCH(QString, expected);
    QCOMPARE(configuredAs(shape, coordinates).drawingPoints(), track(expected).allPoints());
}

void tst_KRGPXConfiguredTrack::positionRelativeFromStart_data()
{
    QTest::addColumn<int>("shape");
    QTest::addColumn<double>("fraction");
    QTest::addColumn<double>("longitude"); // 720 for a position that is not valid
    QTest::newRow("start") << 4 << 0.0 << 8.0;
    QTest::newRow("end") << 4 << 1.0 << 11.0;
    QTest::newRow("half way between two points: the later one") << 4 << 0.5 << 10.0;
    QTest::newRow("just before") << 4 << 0.49 << 9.0;
    QTest::newRow("half a point before the start is outside") << 4 << -0.5 / 3 << 720.0;
    QTest::newRow("less than that is not") << 4 << -0.4 / 3 << 8.0;
    QTest::newRow("behind the end") << 4 << 1.2 << 720.0;
    QTest::newRow("huge") << 4 << 1e300 << 720.0;
    QTest::newRow("not a number") << 4 << std::numeric_limits<double>::quiet_NaN() << 720.0;
    QTest::newRow("flight line: always the centre") << 2 << 1.0 << 9.5;
    QTest::newRow("area: always the centre") << 8 << 1e300 << 9.5;
    QTest::newRow("auto: by the track's shape") << 256 << 1.0 << 11.0;
}

void tst_KRGPXConfiguredTrack::positionRelativeFromStart()
{
    QFETCH(int, shape);
    QFETCH(double, fraction);
    QFETCH(double, longitude);
    const KRGeoPosition position = configuredAs(shape, openLine).positionRelativeFromStart(fraction);
    QCOMPARE(position.longitude().decimalDegrees(), longitude);
    QCOMPARE(position.latitude().decimalDegrees(), longitude == 720.0 ? 720.0 : 53.0);
    QVERIFY(!configuredAs(LineStringTrackShape, QString()).positionRelativeFromStart(0.0).isValid());
}

void tst_KRGPXConfiguredTrack::unknownShapeChangesNothing()
{
    KRGPXConfiguredTrack configuredTrack(track(openLine), withShape(HopTrackShape));
    QVERIFY(!configuredTrack.setConfiguration(withShape(UnknownTrackShape)));
    KRGPXTrackConfiguration wide = withShape(UnknownTrackShape);
    wide.setLineWidth(99.0);
    QVERIFY(configuredTrack.setConfiguration(wide));
    QCOMPARE(configuredTrack.configuration().trackShape().value(), HopTrackShape);
    QCOMPARE(configuredTrack.lineWidth(), KRDistance(99.0));
}

void tst_KRGPXConfiguredTrack::differentAspects_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<int>("expected");
    const auto add = [](const char *name, int expected, const Change &change) {
        QTest::newRow(name) << change << expected;
    };
    add("nothing", 0, [](KRGPXConfiguredTrack &) {});
    add("line width", 1, [](KRGPXConfiguredTrack &t) { t.setLineWidth(3.0); });
    add("line colour", 2, [](KRGPXConfiguredTrack &t) { t.setLineColor(Qt::red); });
    add("points", 4, [](KRGPXConfiguredTrack &t) { t.setTrack(track(closedLine)); });
    add("all of them", 7, [](KRGPXConfiguredTrack &t) {
        t.setLineWidth(3.0);
        t.setLineColor(Qt::red);
        t.setTrack(track(closedLine));
    });
    add("the fill colour is none", 0, [](KRGPXConfiguredTrack &t) { t.setFillColor(Qt::red); });
    add("the pen style is none", 0, [](KRGPXConfiguredTrack &t) { t.setPenStyle(Qt::DotLine); });
    add("smoothing is none", 0, [](KRGPXConfiguredTrack &t) { t.setSmoothingStrength(1); });
}

void tst_KRGPXConfiguredTrack::differentAspects()
{
    QFETCH(Change, change);
    const KRGPXConfiguredTrack before(track(openLine), withShape(AutoTrackShape));
    KRGPXConfiguredTrack after = before;
    change(after);
    QTEST(int(before.differentAspects(after)), "expected");
    QTEST(int(after.differentAspects(before)), "expected");
}

void tst_KRGPXConfiguredTrack::roundTrip()
{
    KRGPXConfiguredTrack configuredTrack = configuredAs(AutoTrackShape, closedLine);
    configuredTrack.setLineColor(QColor(1, 2, 3, 4));
    configuredTrack.setSmoothingSteps(7);
    QDomElement parent = element("<tracks/>");
    configuredTrack.toXml(parent, QStringLiteral("one"), noDir);
    QCOMPARE(KRGPXConfiguredTrack(parent.firstChildElement(QStringLiteral("one")), noDir), configuredTrack);

    const KRGPXConfiguredTrack empty(element("<one/>"), noDir);
    QVERIFY(!empty.track().isValid());
    QCOMPARE(empty.configuration().trackShape().value(), AutoTrackShape);
}

void tst_KRGPXConfiguredTrack::roundTripThroughFiles()
{
    const QTemporaryDir directory;
    const QDir dir(directory.path());
    const KRGPXConfiguredTrack configuredTrack(track(openLine), withShape(HopTrackShape));
    QDomElement parent = element("<tracks/>");
    configuredTrack.toXml(parent, QStringLiteral("one"), dir);
    QCOMPARE(dir.entryList(QDir::Files).size(), 1);
    const QDomElement one = parent.firstChildElement(QStringLiteral("one"));
    QCOMPARE(KRGPXConfiguredTrack(one, dir), configuredTrack);
    QVERIFY(!KRGPXConfiguredTrack(one, noDir).track().isValid());
}

void tst_KRGPXConfiguredTrack::startsAsTheUserWants()
{
    const KRTemporarySettings settings;
    const auto wanted = withShape(PolygonTrackShape);
    KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(wanted);
    QCOMPARE(KRGPXConfiguredTrack().configuration(), wanted);
    QVERIFY(!KRGPXConfiguredTrack().track().isValid());
    KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(KRGPXTrackConfiguration::defaultValue());
}

void tst_KRGPXConfiguredTrack::answersForItsTrack()
{
    const QDateTime noon(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC);
    const KRGPXTrackPoint point(KRGeoPosition(53.0, 8.0), 10, noon, QStringLiteral("Turm"));
    const KRGPXConfiguredTrack pointTrack(point, withShape(AutoTrackShape));
    QCOMPARE(pointTrack.name(), QStringLiteral("Turm"));
    QCOMPARE(pointTrack.configuration().trackShape().value(), PointTrackShape);
    QVERIFY(pointTrack.isSinglePoint());
    QCOMPARE(pointTrack.allTimeStamps(), QList<QDateTime>{noon});

    const KRGPXTrack line = track(openLine);
    const KRGPXConfiguredTrack lineTrack(line, withShape(AutoTrackShape));
    QVERIFY(!lineTrack.isSinglePoint());
    QCOMPARE(lineTrack.firstPoint(), line.firstPoint());
    QCOMPARE(lineTrack.lastPoint(), line.lastPoint());
    QCOMPARE(lineTrack.chunkedPoints(), line.chunkedPoints());
}

static const KRTestRegistration<tst_KRGPXConfiguredTrack> registration;

#include "tst_KRGPXConfiguredTrack.moc"
