#include <KRMapViewport.h>
#include <KRTest.h>
#include <KRTestMap.h>

#include <cmath>

namespace {

KRMapViewport viewOf(const KRGeoPosition &middle, const QSize &size, double devicePixelRatio = 1.0)
{
    return KRMapViewport().resized(size, devicePixelRatio).centeredOn(middle);
}

double distance(const QPointF &a, const QPointF &b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

} // namespace

class tst_KRMapViewport : public QObject
{
    Q_OBJECT

private slots:
    void zoomKeepsThePlaceUnderThePointer()
    {
        const KRTestTable<KRGeoPosition, QPointF> table{
            {"beside the middle", {53.14, 8.21}, {100.0, 500.0}},
            {"across the date line", {-17.0, 179.9}, {790.0, 300.0}},
        };
        table.forEach([&](const KRGeoPosition &middle, const QPointF &pixel) {
            KRMapViewport view = viewOf(middle, {800, 600});
            const KRGeoPosition place = view.positionAt(pixel);
            for (int i = 0; i < 40; ++i) {
                view = view.zoomed(1.2, pixel);
                QVERIFY(distance(view.pixelOf(place), pixel) < 0.01);
            }
            for (int i = 0; i < 40; ++i)
                view = view.zoomed(1.0 / 1.2, pixel);
            QVERIFY(distance(view.pixelOf(middle), QPointF(400.0, 300.0)) < 0.01);
        });
    }

    void panGoesRoundTheWorldAndStopsAtTheEnds()
    {
        const KRMapViewport start = viewOf({53.0, 170.0}, {800, 600});
        const KRMapViewport east = start.panned(QPointF(-start.worldWidth() / 18.0, 0.0));
        QVERIFY(std::abs(east.center().longitude().decimalDegrees() + 170.0) < 1e-9);
        QVERIFY(start.panned(QPointF(7.0 * start.worldWidth(), 0.0)).center() == start.center());

        const KRMapViewport north = start.panned(QPointF(0.0, 1e6));
        QVERIFY(std::abs(north.worldAt(QPointF(0.0, 0.0)).y()) < 1e-12);
        const KRMapViewport south = start.panned(QPointF(0.0, -1e6));
        QVERIFY(std::abs(south.worldAt(QPointF(0.0, 600.0)).y() - 1.0) < 1e-12);
        // All of it in view: it stands in the middle.
        const KRMapViewport small = start.zoomed(0.0, QPointF(400.0, 0.0)).panned(QPointF(0.0, 50.0));
        QVERIFY(std::abs(small.center().latitude().decimalDegrees()) < 1e-9);
    }

    void fitsAreas()
    {
        const KRTestTable<KRTestMap, double> table{
            {"wide", {53.0, 53.1, 7.0, 9.0}, 8.0},
            {"across the date line", {-20.0, -13.0, 177.0, -171.0}, -177.0},
        };
        table.forEach([&](const KRTestMap &shown, double longitude) {
            const KRMapViewport view = KRMapViewport().resized({800, 600}, 1.0).fitted(shown.area(), 20);
            QVERIFY(std::abs(view.center().longitude().decimalDegrees() - longitude) < 1e-9);
            double free = 1000.0;
            for (const KRGeoPosition &corner : {shown.area().northWest(), shown.area().southEast()}) {
                const QPointF pixel = view.pixelOf(corner);
                for (const double side : {pixel.x(), 800.0 - pixel.x(), pixel.y(), 600.0 - pixel.y()})
                    free = std::min(free, side);
            }
            QVERIFY2(std::abs(free - 20.0) < 1e-6, qPrintable(QString::number(free)));
            QVERIFY(view.fitted(KRGeoPositionRect(), 20) == view);
        });
    }

    void scaleIsLimited()
    {
        const KRTestTable<QSize, double> table{
            {"small", QSize(60, 40), 1.0},
            {"a wall at high density", QSize(12000, 3000), 3.0},
            {"tall", QSize(100, 4000), 1.5},
        };
        table.forEach([&](const QSize &size, double devicePixelRatio) {
            const QPointF middle(size.width() / 2.0, size.height() / 2.0);
            const KRMapViewport start = viewOf({-43.9, -176.5}, size, devicePixelRatio);
            for (const double factor : {1e300, 1e-300, 0.0}) {
                const KRMapViewport view = start.zoomed(factor, middle);
                // The pixels of one world, which the track renderer counts in int, and of a place at its other side.
                const KRMapProjection projection = view.projection();
                const double world = projection.getPixelCoordinateByMapCoordinate(0.0, 180.0).x()
                                     - projection.getPixelCoordinateByMapCoordinate(0.0, -180.0).x();
                QVERIFY(std::abs(world - view.worldWidth() * devicePixelRatio) <= 3.0);
                QVERIFY(world >= 127.0 && world <= (1 << 30) + 3.0);
                const KRGeoPosition top = projection.convert(QPoint(0, 0));
                QVERIFY(std::isfinite(top.latitude().decimalDegrees())
                        && std::isfinite(top.longitude().decimalDegrees()));
            }
        });
    }

    void pixelsAndPositions()
    {
        const KRMapViewport view = viewOf({10.0, 175.0}, {3000, 1000}).zoomed(0.5, QPointF(1500.0, 500.0));
        // The window is wider than the world and higher than the map.
        QCOMPARE(view.worldWidth(), 1024.0);
        const KRGeoPosition far = view.positionAt(QPointF(2900.0, 500.0));
        QVERIFY(std::abs(far.longitude().decimalDegrees()) <= 180.0);
        QVERIFY(std::abs(view.pixelOf(far).x() - (2900.0 - 1024.0)) < 1e-6);

        const KRMapViewport small = KRMapViewport().resized({400, 900}, 1.0).zoomed(0.0, QPointF());
        QVERIFY(!small.positionAt(QPointF(200.0, 10.0)).isValid());
        QVERIFY(!small.positionAt(QPointF(200.0, 890.0)).isValid());
        QVERIFY(small.positionAt(QPointF(200.0, 460.0)).isValid());
    }

    void projectionAgrees()
    {
        const KRTestTable<double, double> table{
            {"far away", 0.0, 1.0},
            {"street, high density", 4000.0, 2.0},
            {"as near as it gets, broken density", 1e9, 1.5},
        };
        table.forEach([&](double factor, double devicePixelRatio) {
            const KRMapViewport view =
                viewOf({-18.1, 179.9}, {801, 603}, devicePixelRatio).zoomed(factor, QPointF(400.0, 300.0)).grown(31);
            const KRMapProjection projection = view.projection();
            for (const QPointF &pixel : {QPointF(300.0, 380.0), QPointF(420.0, 300.0), QPointF(520.0, 410.0)}) {
                const QPointF world = view.worldAt(pixel);
                const QPointF projected = projection.getPixelCoordinateByMapCoordinate(
                    projection.normalizedToLatitude(world.y()), projection.normalizedToLongitude(world.x()));
                QVERIFY2(distance(projected, pixel * devicePixelRatio) < 2.0,
                         qPrintable(QStringLiteral("%1 %2").arg(projected.x()).arg(projected.y())));
            }
        });
    }

    void picturesMoveByWholePixels()
    {
        const KRTestTable<double, QPointF> table{
            {"broken density", 1.5, {-101.0, 13.0}},
            {"fine steps", 2.0, {-0.3, 0.2}},
        };
        table.forEach([&](double devicePixelRatio, const QPointF &step) {
            const KRMapViewport start =
                viewOf({53.0, 179.0}, {800, 600}, devicePixelRatio).zoomed(12.34, QPointF(17.0, 3.0)).grown(64);
            KRMapViewport view = start;
            for (int i = 0; i < 20; ++i) {
                view = view.panned(step);
                const QPointF corner = view.rectOf(start).topLeft() * devicePixelRatio;
                QVERIFY(distance(corner, QPointF(std::round(corner.x()), std::round(corner.y()))) < 1e-3);
                QVERIFY(distance(corner, (i + 1) * step * devicePixelRatio) <= 1.5);
            }
            // Half the scale: the other picture takes half the room.
            const QRectF scaled = start.zoomed(0.5, QPointF(464.0, 364.0)).rectOf(start);
            QVERIFY(std::abs(scaled.width() - 464.0) < 1e-6 && distance(scaled.center(), QPointF(464.0, 364.0)) < 2.0);
        });
    }
};

template class KRTestRegistration<tst_KRMapViewport>;

#include "tst_KRMapViewport.moc"
