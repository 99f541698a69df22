#include "KRBaseMapView.h"

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QtTest>

class tst_KRBaseMapView : public QObject
{
    Q_OBJECT

private slots:
    void agreesWithTheProjection();
    void copiesOfPositions();

private:
    static KRMapProjection projection(double south, double north, double west, double east, const QSize &size);
};

KRMapProjection tst_KRBaseMapView::projection(double south, double north, double west, double east, const QSize &size)
{
    return KRMapProjection(KRGeoPositionRect(KRLatitudeRange(south, north), KRLongitudeRange(west, east)), size);
}

void tst_KRBaseMapView::agreesWithTheProjection()
{
    const KRTestTable<double, double, double, double, QSize> table{
        {"world", -60.0, 78.0, -180.0, 180.0, QSize(1600, 800)},
        {"world in a narrow image, beyond the poles", -60.0, 60.0, -180.0, 180.0, QSize(64, 400)},
        {"across the date line", -22.0, -10.0, 174.0, -168.0, QSize(1200, 800)},
        {"city", 53.1, 53.2, 8.1, 8.3, QSize(1000, 700)},
        {"a few metres", 53.14, 53.14001, 8.2, 8.20001, QSize(2000, 2000)},
        {"near the pole", 84.9, 85.05, 10.0, 20.0, QSize(500, 500)},
    };
    table.forEach([&](double south, double north, double west, double east, const QSize &size) {
        const KRMapProjection map = projection(south, north, west, east, size);
        const KRBaseMapView view(map, size, 1.0);
        QVERIFY(view.isValid());
        const double span = east < west ? east + 360.0 - west : east - west;
        for (const double part : {0.0, 0.123, 0.5, 0.987, 1.0}) {
            const double latitude = south + part * (north - south);
            const double longitude = west + part * span;
            const QPointF pixel = view.toPixel(latitude, longitude);
            const QPointF whole = map.getPixelCoordinateByMapCoordinate(latitude, longitude);
            // Beside the cut to whole pixels only rounding may tell them apart.
            QVERIFY(qAbs(pixel.x() - whole.x()) < 1.001 && qAbs(pixel.y() - whole.y()) < 1.001);
            QVERIFY(qAbs(view.longitudeAt(pixel.x()) - longitude) < 1e-9);
            QVERIFY(qAbs(view.latitudeAt(pixel.y()) - latitude) < 1e-9);
        }
    });
}

void tst_KRBaseMapView::copiesOfPositions()
{
    const QSize size(900, 100);
    const KRBaseMapView world(projection(-85.05, 85.05, -180.0, 180.0, size), size, 1.0);
    const QVector<QPointF> copies = world.toPixels(KRGeoPosition(10.0, 20.0));
    QCOMPARE(copies.size(), 9);
    QVERIFY(qAbs(copies.at(1).x() - copies.at(0).x() - world.worldSize()) < 1e-6);
    const KRBaseMapView fiji(projection(-22.0, -10.0, 174.0, -168.0, size), size, 1.0);
    QCOMPARE(fiji.toPixels(KRGeoPosition(-16.0, -179.0)).size(), 1);
    QVERIFY(fiji.toPixels(KRGeoPosition(10.0, -179.0)).isEmpty());
}

static const KRTestRegistration<tst_KRBaseMapView> registration;

#include "tst_KRBaseMapView.moc"
