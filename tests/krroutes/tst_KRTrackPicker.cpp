#include <KRMapArea.h>
#include <KRMapViewport.h>
#include <KRTest.h>
#include <KRTestTrack.h>
#include <KRTrackPicker.h>

#include <cmath>

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

using KRTestTrack::through;

KRGPXTrack track(const Pixels &pixels, const KRGPXTrackShape &shape = LineStringTrackShape)
{
    Positions positions;
    for (const QPointF &pixel : pixels)
        positions.append(view().positionAt(pixel));
    return through(positions, shape);
}

KRGPXConfiguredTrack drawn(const KRGPXTrack &plain, double width, const KRGPXTrackShape &shape = AutoTrackShape,
                           const QColor &fill = QColor())
{
    KRGPXTrackConfiguration look = KRGPXTrackConfiguration::defaultValue();
    look.setLineWidth(width);
    look.setTrackShape(shape);
    look.setFillColor(fill);
    if (fill.isValid())
        look.setCurrentDisplayOptions(KRGPXTrackDisplayOptions(AllDisplayOptions));
    KRGPXConfiguredTrack configured(plain, look);
    configured.setConfiguration(look);
    return configured;
}

Pixels square(double left, double top, double right, double bottom)
{
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}, {left, top}};
}

KRGPXTrackSelection only(const KRGPXConfiguredTrack &track)
{
    return KRGPXTrackSelection(KRGPXConfiguredTrackList(track));
}

KRGPXTrackSelection scene()
{
    KRGPXTrack withHole = track(square(400, 50, 580, 200), PolygonTrackShape);
    withHole.addEnclave(track(square(450, 120, 500, 170), PolygonTrackShape));
    const QColor translucent(255, 0, 0, 100);
    const Pixels open{{100, 300}, {250, 300}, {250, 400}, {100, 400}};
    return KRGPXTrackSelection(KRGPXConfiguredTrackList{
        drawn(track(Pixels{{100, 100}, {300, 100}}), 10.0), drawn(track(Pixels{{200, 50}, {200, 150}}), 4.0),
        drawn(track(Pixels{{420, 80}, {560, 80}}), 4.0), drawn(withHole, 2.0, PolygonTrackShape, translucent),
        drawn(track(Pixels{{620, 100}, {780, 100}}), 4.0),
        drawn(track(square(600, 50, 790, 200), PolygonTrackShape), 2.0, PolygonTrackShape, Qt::red),
        drawn(track(open), 4.0, PolygonTrackShape),
        drawn(track(Pixels{{400, 350}}, PointTrackShape), 10.0, PointTrackShape),
        drawn(track(Pixels{{500, 300}, {550, 350}, {600, 400}}), 6.0, PointTrackShape),
        drawn(track(Pixels{{700, 350}, {702, 350}}), 12.0)});
}

} // namespace

class tst_KRTrackPicker : public QObject
{
    Q_OBJECT

private slots:
    void picks()
    {
        const KRTestTable<QPointF, int> table{
            {"its edge and the tolerance", {150, 109}, 0},
            {"beyond", {150, 111}, -1},
            {"the upper one of two", {200, 101}, 1},
            {"the one under the pixel, not the upper one beside it", {205, 100}, 0},
            {"in its hole", {475, 145}, -1},
            {"a line through a translucent area", {500, 80}, 2},
            {"no line through an opaque one", {700, 100}, 5},
            {"inside an outline", {175, 350}, -1},
            {"the edge that closes it", {101, 350}, 6},
            {"a marker, as large as it is drawn", {409, 350}, 7},
            {"a line drawn as marker in its middle", {554, 350}, 8},
            {"a line too short to be one", {700, 361}, 9},
        };
        const KRTrackPicker picker(scene());
        table.forEach(
            [&](const QPointF &pixel, int row) { QCOMPARE(picker.hitAt(pixel, view(), tolerancePx).row, row); });
    }

    void tellsWhereOnTheTrack()
    {
        const Positions positions{{qQNaN(), qQNaN()}, view().positionAt({100, 100}), view().positionAt({200, 100}),
                                  {qQNaN(), 8.0},     view().positionAt({400, 100}), view().positionAt({400, 300})};
        const KRTrackPicker picker(only(drawn(through(positions), 2.0)));
        const auto along = [&](const QPointF &pixel) { return picker.hitAt(pixel, view(), tolerancePx).along; };
        QVERIFY(std::abs(along({150, 102}) - 1.5) < 1e-6);
        QVERIFY(std::abs(along({250, 98}) - 3.25) < 1e-6);
        QVERIFY(std::abs(along({401, 305}) - 5.0) < 1e-6);
        const KRGeoPosition position = picker.hitAt({404, 200}, view(), tolerancePx).position;
        QVERIFY((view().pixelOf(position) - QPointF(400, 200)).manhattanLength() < 1e-6);
    }

    void agreesWithLookingAtEveryPoint()
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
        const KRTrackTrace trace(drawn(through(positions, PolygonTrackShape), 1.0, PolygonTrackShape));
        int inside = 0;
        for (int i = 0; i < 500; ++i) {
            const QPointF place = pixels.boundingRect().topLeft()
                                  + QPointF(random.bounded(pixels.boundingRect().width()),
                                            random.bounded(pixels.boundingRect().height()));
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

    void holesFollowTheirAreaOverTheDateLine()
    {
        const auto ring = [](double south, double north, double west, double east) {
            return through({{south, west}, {south, east}, {north, east}, {north, west}, {south, west}},
                           PolygonTrackShape);
        };
        KRGPXTrack island = ring(-20.0, -10.0, 170.0, -170.0);
        island.addEnclave(ring(-16.0, -14.0, -178.0, -175.0));
        island.addEnclave(ring(-16.0, -14.0, 172.0, 175.0));
        const KRGPXConfiguredTrack area = drawn(island, 2.0, PolygonTrackShape, Qt::red);
        const KRTrackPicker picker(only(area));
        KRMapArea expected;
        expected.add(area);
        QVERIFY(picker.areaOf(0) == expected.covered());
        const auto isHit = [&](double latitude, double longitude) {
            const KRMapViewport there = view().centeredOn(KRGeoPosition(latitude, longitude));
            return picker.hitAt(QPointF(400.0, 300.0), there, tolerancePx).isValid();
        };
        for (const double longitude : {171.0, 178.0, -179.0, -172.0})
            QVERIFY(isHit(-15.0, longitude));
        for (const double longitude : {173.5, -176.5, 165.0, -165.0})
            QVERIFY(!isHit(-15.0, longitude));
    }

    void followsTheSmoothedLine()
    {
        const KRGPXTrack zigzag = track(Pixels{{100, 300}, {200, 200}, {300, 300}, {400, 200}, {500, 300}});
        KRGPXConfiguredTrack smoothed = drawn(zigzag, 2.0);
        smoothed.setSmoothingStrength(0);
        smoothed.setSmoothingSteps(1);
        const KRTrackPicker picker(only(smoothed));
        QVERIFY(picker.hitAt({200, 300}, view(), tolerancePx).isValid());
        QVERIFY(!picker.hitAt({200, 200}, view(), tolerancePx).isValid());
    }

    void area()
    {
        const KRTestTable<QList<Positions>> table{
            {"on both sides of the date line", {{{-18.0, 177.0}}, {{-13.0, -171.0}}}},
            {"across it, and inside", {{{1.0, 170.0}, {2.0, -170.0}}, {{3.0, 175.0}, {3.0, 176.0}}, {{3.0, -172.0}}}},
            {"no fix at first", {{{0.0, 0.0}, {53.0, 8.0}, {54.0, 9.0}}, {{0.0, 0.0}}, {}}},
            {"nothing", {{}}},
        };
        table.forEach([&](const QList<Positions> &tracks) {
            KRMapArea expected;
            KRGPXConfiguredTrackList list;
            for (const Positions &positions : std::as_const(tracks)) {
                list.append(drawn(through(positions), 2.0));
                expected.add(list.last());
            }
            const KRTrackPicker picker((KRGPXTrackSelection(list)));
            QVERIFY(picker.area() == expected.covered());
            KRMapArea first;
            first.add(list.first());
            QVERIFY(picker.areaOf(0) == first.covered());
            QVERIFY(!picker.areaOf(tracks.size()).isValid());
        });
    }

    void leavesOutWhatIsNotSeen()
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

        const KRGPXConfiguredTrack ferry = drawn(through({{-18.0, 179.0}, {-18.0, -179.0}}), 2.0);
        const KRTrackPicker fiji(
            KRGPXTrackSelection(KRGPXConfiguredTrackList{drawn(through({KRGeoPosition(53.0, 8.0)}), 2.0), ferry}));
        for (const double longitude : {179.5, -179.5}) {
            const KRGPXTrackSelection near = fiji.visibleIn(view().centeredOn(KRGeoPosition(-18.0, longitude)));
            QVERIFY(near.tracks() == KRGPXConfiguredTrackList(ferry));
        }
    }

    void takesOverWhatItKnows()
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
};

template class KRTestRegistration<tst_KRTrackPicker>;

#include "tst_KRTrackPicker.moc"
