#include <KRMapArea.h>
#include <KRMapViewport.h>
#include <KRTestRegistry.h>
#include <KRTrackPicker.h>

#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QPolygonF>
#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

constexpr double tolerancePx = 5.0;

using Pixels = QVector<QPointF>;
using Positions = QList<KRGeoPosition>;

KRMapViewport view()
{
    return KRMapViewport()
        .resized({800, 600}, 1.0)
        .centeredOn(KRGeoPosition(53.0, 8.0))
        .zoomed(50.0, QPointF(400.0, 300.0));
}

KRGPXTrack trackOf(const Positions &positions, const KRGPXTrackShape &shape = LineStringTrackShape)
{
    QList<KRGPXTrackPoint> points;
    for (const KRGeoPosition &position : positions)
        points.append(KRGPXTrackPoint(position, 0, QDateTime(), QString()));
    return KRGPXTrack(QString(), QString(), {KRGPXTrackSegment(points)}, shape);
}

KRGPXTrack trackOf(const Pixels &pixels, const KRGPXTrackShape &shape)
{
    Positions positions;
    for (const QPointF &pixel : pixels)
        positions.append(view().positionAt(pixel));
    return trackOf(positions, shape);
}

KRGPXConfiguredTrack drawn(const KRGPXTrack &track, double width, const KRGPXTrackShape &shape = AutoTrackShape,
                           const QColor &fill = QColor())
{
    KRGPXTrackConfiguration look = KRGPXTrackConfiguration::defaultValue();
    look.setLineWidth(width);
    look.setTrackShape(shape);
    look.setFillColor(fill);
    if (fill.isValid())
        look.setCurrentDisplayOptions(KRGPXTrackDisplayOptions(AllDisplayOptions));
    KRGPXConfiguredTrack configured(track, look);
    configured.setConfiguration(look);
    return configured;
}

Pixels square(double left, double top, double right, double bottom)
{
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}, {left, top}};
}

KRGPXTrackSelection scene()
{
    KRGPXTrack withHole = trackOf(square(400, 50, 580, 200), PolygonTrackShape);
    withHole.addEnclave(trackOf(square(450, 120, 500, 170), PolygonTrackShape));
    const QColor translucent(255, 0, 0, 100);
    const Pixels open{{100, 300}, {250, 300}, {250, 400}, {100, 400}};
    return KRGPXTrackSelection(KRGPXConfiguredTrackList{
        drawn(trackOf(Pixels{{100, 100}, {300, 100}}, LineStringTrackShape), 10.0),
        drawn(trackOf(Pixels{{200, 50}, {200, 150}}, LineStringTrackShape), 4.0),
        drawn(trackOf(Pixels{{420, 80}, {560, 80}}, LineStringTrackShape), 4.0),
        drawn(withHole, 2.0, PolygonTrackShape, translucent),
        drawn(trackOf(Pixels{{620, 100}, {780, 100}}, LineStringTrackShape), 4.0),
        drawn(trackOf(square(600, 50, 790, 200), PolygonTrackShape), 2.0, PolygonTrackShape, Qt::red),
        drawn(trackOf(open, LineStringTrackShape), 4.0, PolygonTrackShape),
        drawn(trackOf(Pixels{{400, 350}}, PointTrackShape), 10.0, PointTrackShape),
        drawn(trackOf(Pixels{{500, 300}, {550, 350}, {600, 400}}, LineStringTrackShape), 6.0, PointTrackShape),
        drawn(trackOf(Pixels{{700, 350}, {702, 350}}, LineStringTrackShape), 12.0)});
}

} // namespace

class tst_KRTrackPicker : public QObject
{
    Q_OBJECT

private slots:
    void picks_data();
    void picks();
    void tellsWhereOnTheTrack();
    void findsEveryCopyOfTheWorld();
    void agreesWithLookingAtEveryPoint();
    void followsTheSmoothedLine();
    void area_data();
    void area();
    void leavesOutWhatIsNotSeen();
    void takesOverWhatItKnows();
};

static const KRTestRegistration<tst_KRTrackPicker> registration;

void tst_KRTrackPicker::picks_data()
{
    QTest::addColumn<QPointF>("pixel");
    QTest::addColumn<int>("row");
    QTest::newRow("on a line") << QPointF(150, 100) << 0;
    QTest::newRow("its edge and the tolerance") << QPointF(150, 109) << 0;
    QTest::newRow("beyond") << QPointF(150, 111) << -1;
    QTest::newRow("the upper one of two") << QPointF(200, 101) << 1;
    QTest::newRow("the one under the pixel, not the upper one beside it") << QPointF(205, 100) << 0;
    QTest::newRow("the end") << QPointF(306, 100) << 0;
    QTest::newRow("inside an area") << QPointF(420, 160) << 3;
    QTest::newRow("in its hole") << QPointF(475, 145) << -1;
    QTest::newRow("a line through a translucent area") << QPointF(500, 80) << 2;
    QTest::newRow("no line through an opaque one") << QPointF(700, 100) << 5;
    QTest::newRow("inside an outline") << QPointF(175, 350) << -1;
    QTest::newRow("the edge that closes it") << QPointF(101, 350) << 6;
    QTest::newRow("a marker, as large as it is drawn") << QPointF(409, 350) << 7;
    QTest::newRow("a line drawn as marker in its middle") << QPointF(554, 350) << 8;
    QTest::newRow("and nowhere else") << QPointF(525, 325) << -1;
    QTest::newRow("a line too short to be one") << QPointF(700, 361) << 9;
}

void tst_KRTrackPicker::picks()
{
    QFETCH(QPointF, pixel);
    const KRTrackPicker::Hit hit = KRTrackPicker(scene()).hitAt(pixel, view(), tolerancePx);
    QTEST(hit.row, "row");
}

void tst_KRTrackPicker::tellsWhereOnTheTrack()
{
    const double gap = std::numeric_limits<double>::quiet_NaN();
    const Positions positions{KRGeoPosition(gap, gap), view().positionAt({100, 100}), view().positionAt({200, 100}),
                              KRGeoPosition(gap, 8.0), view().positionAt({400, 100}), view().positionAt({400, 300})};
    const KRTrackPicker picker(KRGPXTrackSelection(KRGPXConfiguredTrackList{drawn(trackOf(positions), 2.0)}));
    const auto along = [&](const QPointF &pixel) { return picker.hitAt(pixel, view(), tolerancePx).along; };
    QVERIFY(std::abs(along({150, 102}) - 1.5) < 1e-6);
    QVERIFY(std::abs(along({250, 98}) - 3.25) < 1e-6);
    QVERIFY(std::abs(along({401, 305}) - 5.0) < 1e-6);
    const KRGeoPosition position = picker.hitAt({404, 200}, view(), tolerancePx).position;
    QVERIFY((view().pixelOf(position) - QPointF(400, 200)).manhattanLength() < 1e-6);
}

void tst_KRTrackPicker::findsEveryCopyOfTheWorld()
{
    const KRMapViewport wide = KRMapViewport().resized({3000, 600}, 1.0).zoomed(0.5, QPointF(1500, 300));
    const KRTrackPicker picker(KRGPXTrackSelection(
        KRGPXConfiguredTrackList{drawn(trackOf({KRGeoPosition(10.0, 170.0), KRGeoPosition(10.0, -170.0)}), 4.0)}));
    const QPointF onLine = wide.pixelOf(KRGeoPosition(10.0, -175.0));
    int hits = 0;
    for (int copy = -2; copy <= 2; ++copy) {
        const QPointF pixel = onLine + QPointF(copy * wide.worldWidth(), 0.0);
        if (pixel.x() < 0.0 || pixel.x() >= 3000.0)
            continue;
        ++hits;
        QVERIFY(std::abs(picker.hitAt(pixel, wide, tolerancePx).along - 0.75) < 1e-6);
        QVERIFY(!picker.hitAt(pixel - QPointF(wide.worldWidth() / 2.0, 0.0), wide, tolerancePx).isValid());
    }
    QVERIFY(hits >= 2);
}

void tst_KRTrackPicker::agreesWithLookingAtEveryPoint()
{
    QRandomGenerator random(4711);
    QPolygonF pixels;
    QPointF pixel(400.0, 300.0);
    Positions positions;
    for (int i = 0; i < 5000; ++i) {
        pixel += QPointF(random.bounded(16.0) - 8.0, random.bounded(16.0) - 8.0);
        pixel += (QPointF(400.0, 300.0) - pixel) * 0.002;
        pixels << pixel;
        positions << view().positionAt(pixel);
    }
    pixels << pixels.first();
    const KRTrackTrace trace(drawn(trackOf(positions, PolygonTrackShape), 1.0, PolygonTrackShape));
    int inside = 0;
    for (int i = 0; i < 500; ++i) {
        const QPointF place =
            pixels.boundingRect().topLeft()
            + QPointF(random.bounded(pixels.boundingRect().width()), random.bounded(pixels.boundingRect().height()));
        double nearest = 1e9;
        for (int k = 1; k < pixels.size(); ++k) {
            const QLineF line(pixels.at(k - 1), pixels.at(k));
            const QPointF way = line.p2() - line.p1();
            const double share =
                qBound(0.0, QPointF::dotProduct(place - line.p1(), way) / QPointF::dotProduct(way, way), 1.0);
            nearest = std::min(nearest, QLineF(line.pointAt(share), place).length());
        }
        const QPointF world = view().worldAt(place);
        QVERIFY(std::abs(trace.nearest(world, 1.0).distance * view().worldWidth() - nearest) < 1e-5);
        QCOMPARE(trace.encloses(world), pixels.containsPoint(place, Qt::OddEvenFill));
        inside += trace.encloses(world) ? 1 : 0;
    }
    QVERIFY(inside > 50 && inside < 450);
}

void tst_KRTrackPicker::followsTheSmoothedLine()
{
    const KRGPXTrack zigzag =
        trackOf(Pixels{{100, 300}, {200, 200}, {300, 300}, {400, 200}, {500, 300}}, LineStringTrackShape);
    KRGPXConfiguredTrack track = drawn(zigzag, 2.0);
    track.setSmoothingStrength(0);
    track.setSmoothingSteps(1);
    const KRTrackPicker picker(KRGPXTrackSelection(KRGPXConfiguredTrackList{track}));
    QVERIFY(picker.hitAt({200, 300}, view(), tolerancePx).isValid());
    QVERIFY(!picker.hitAt({200, 200}, view(), tolerancePx).isValid());
}

void tst_KRTrackPicker::area_data()
{
    QTest::addColumn<QList<Positions>>("tracks");
    QTest::newRow("two beside each other") << QList<Positions>{{{53.0, 8.0}, {54.0, 9.5}}, {{50.0, -3.0}, {51.0, 2.0}}};
    QTest::newRow("on both sides of the date line") << QList<Positions>{{{-18.0, 177.0}}, {{-13.0, -171.0}}};
    QTest::newRow("across it, and beside") << QList<Positions>{{{1.0, 179.0}, {2.0, -179.0}}, {{3.0, -178.0}}};
    QTest::newRow("across it, and inside")
        << QList<Positions>{{{1.0, 170.0}, {2.0, -170.0}}, {{3.0, 175.0}, {3.0, 176.0}}, {{3.0, -172.0}}};
    QTest::newRow("round the world") << QList<Positions>{{{1.0, 0.0}, {1.0, 120.0}, {1.0, -120.0}, {1.0, 1.0}}};
    QTest::newRow("no fix at first") << QList<Positions>{{{0.0, 0.0}, {53.0, 8.0}, {54.0, 9.0}}, {{0.0, 0.0}}, {}};
    QTest::newRow("nothing") << QList<Positions>{{}};
}

void tst_KRTrackPicker::area()
{
    QFETCH(QList<Positions>, tracks);
    KRMapArea expected;
    KRGPXConfiguredTrackList list;
    for (const Positions &positions : std::as_const(tracks)) {
        list.append(drawn(trackOf(positions), 2.0));
        expected.add(list.last());
    }
    const KRTrackPicker picker((KRGPXTrackSelection(list)));
    QVERIFY(picker.area() == expected.covered());
    KRMapArea first;
    first.add(list.first());
    QVERIFY(picker.areaOf(0) == first.covered());
    QVERIFY(!picker.areaOf(tracks.size()).isValid());
}

void tst_KRTrackPicker::leavesOutWhatIsNotSeen()
{
    const KRTrackPicker picker(scene());
    QCOMPARE(picker.visibleIn(view()).count(), scene().count());
    const KRMapViewport corner = view().panned(QPointF(-620.0, 150.0)).resized({200, 100}, 1.0);
    const KRGPXTrackSelection visible = picker.visibleIn(corner.zoomed(3.0, QPointF(100.0, 50.0)));
    QVERIFY(visible.count() > 0 && visible.count() < 6);

    KRGPXTrackSelection cropping = scene();
    cropping.setCroppingOpacity(40);
    const KRMapViewport elsewhere = view().centeredOn(KRGeoPosition(-33.9, 151.2));
    QCOMPARE(KRTrackPicker(cropping).visibleIn(elsewhere).effectiveCroppingOpacity(), 40);

    const KRTrackPicker fiji(KRGPXTrackSelection(
        KRGPXConfiguredTrackList{drawn(trackOf({KRGeoPosition(53.0, 8.0)}), 2.0),
                                 drawn(trackOf({KRGeoPosition(-18.0, 179.0), KRGeoPosition(-18.0, -179.0)}), 2.0)}));
    for (const double longitude : {179.5, -179.5}) {
        const KRGPXTrackSelection near = fiji.visibleIn(view().centeredOn(KRGeoPosition(-18.0, longitude)));
        QCOMPARE(near.count(), 1);
        QVERIFY(near.tracks().first()
                == drawn(trackOf({KRGeoPosition(-18.0, 179.0), KRGeoPosition(-18.0, -179.0)}), 2.0));
    }
}

void tst_KRTrackPicker::takesOverWhatItKnows()
{
    KRGPXTrackSelection selection = scene();
    const KRTrackPicker before(selection);
    selection.moveTrack(0, 9);
    selection.removeAt(0);
    KRGPXTrackConfiguration thin = selection.configuration(8);
    thin.setLineWidth(1.0);
    selection.setConfiguration(8, thin);
    const KRTrackPicker after(selection, before);
    QCOMPARE(after.hitAt({150, 100}, view(), tolerancePx).row, 8);
    QVERIFY(!after.hitAt({150, 109}, view(), tolerancePx).isValid());
    QCOMPARE(after.hitAt({420, 160}, view(), tolerancePx).row, 1);
    QCOMPARE(after.hitAt({101, 350}, view(), tolerancePx).row, 4);
}

#include "tst_KRTrackPicker.moc"
