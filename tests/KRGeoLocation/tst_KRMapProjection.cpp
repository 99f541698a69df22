#include <KRGeoLocation/KRGeoPositionSpan.h>
#include <KRGeoLocation/KRMapProjection.h>

#include "KRTest.h"
#include "KRTestMap.h"

#include <KRCore/KRMath.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr double mercatorLimit = 85.0511287798066;
constexpr int lowestInt = std::numeric_limits<int>::min();
constexpr int highestInt = std::numeric_limits<int>::max();

KRMapProjection wholeWorld(int size)
{
    return KRTestMap{-mercatorLimit, mercatorLimit, -180.0, 180.0}.projection(QSize(size, size));
}

/// Places all over the world, and places in and near the image as close to the edges of pixels as can be.
class RandomPlaces
{
public:
    RandomPlaces(const KRMapProjection &projection, const QSize &size) : m_projection(projection), m_size(size) { }

    /// @p count latitudes and longitudes of one kind, so that no place of another one changes how they are projected
    void append(int kind, int count, std::vector<double> *latitudes, std::vector<double> *longitudes)
    {
        for (int i = 0; i < count; ++i) {
            if (kind == 0) {
                latitudes->push_back(between(-89.0, 89.0));
                longitudes->push_back(between(-181.0, 181.0));
                continue;
            }
            const QPoint pixel(int(between(-1.0, 2.0) * m_size.width()), int(between(-1.0, 2.0) * m_size.height()));
            const KRGeoPosition corner = m_projection.convert(pixel);
            latitudes->push_back(corner.latitude().decimalDegrees() + (kind & 1 ? hair() : degreesOfAPixel()));
            longitudes->push_back(corner.longitude().decimalDegrees() + (kind & 2 ? hair() : degreesOfAPixel()));
        }
    }

private:
    double between(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_random); }
    double hair() { return between(-1.0, 1.0) * std::pow(10.0, between(-16.0, -7.0)); }
    double degreesOfAPixel()
    {
        return between(0.0, 360.0) / m_projection.getPixelCoordinateByMapCoordinate(0.0, 360.0).x();
    }

    const KRMapProjection &m_projection;
    QSize m_size;
    std::mt19937 m_random{4711};
};

} // namespace

class tst_KRMapProjection : public QObject
{
    Q_OBJECT

private slots:
    void normalized()
    {
        const KRTestTable<double, double, double, double> table{
            // EPSG Guidance Note 7-2, method 1024: 24 22' 54.433" N, 100 20' W is E -11169055.58 m, N 2800000.00 m on a
            // sphere of 6378137 m, whose equator is 40075016.6856 m long.
            {"worked example of EPSG", 24.0 + 22.0 / 60.0 + 54.433 / 3600.0, -(100.0 + 20.0 / 60.0),
             0.5 - 11169055.58 / 40075016.6856, 0.5 - 2800000.00 / 40075016.6856},
            {"north-west corner", mercatorLimit, -180.0, 0.0, 0.0},
            {"south-east corner", -mercatorLimit, 180.0, 1.0, 1.0},
        };
        table.forEach([](double latitude, double longitude, double x, double y) {
            const KRMapProjection projection = wholeWorld(256);
            QVERIFY(KRMath::epsilonEqual(projection.longitudeToNormalized(longitude), x, 1e-9));
            QVERIFY(KRMath::epsilonEqual(projection.latitudeToNormalized(latitude), y, 1e-9));
            QVERIFY(KRMath::epsilonEqual(projection.normalizedToLongitude(x), longitude, 1e-6));
            QVERIFY(KRMath::epsilonEqual(projection.normalizedToLatitude(y), latitude, 1e-6));
        });
    }

    void wholeWorldIsASquare()
    {
        const KRMapProjection projection = wholeWorld(256);
        QCOMPARE(projection.getPixelCoordinateByMapCoordinate(0.0, -90.0).x(), 64.0);
        QCOMPARE(projection.getPixelCoordinateByMapCoordinate(mercatorLimit, -180.0), QPointF(0.0, 0.0));
        // rounding may fold an end over the date line, so only the remainder of 360 counts
        const KRGeoPositionRect box = projection.resultBoundingBox();
        QVERIFY(KRMath::epsilonEqual(std::abs(std::remainder(box.west().decimalDegrees(), 360.0)), 180.0, 1e-6));
        QVERIFY(KRMath::epsilonEqual(std::abs(std::remainder(box.east().decimalDegrees(), 360.0)), 180.0, 1e-6));
        QVERIFY(KRMath::epsilonEqual(box.north().decimalDegrees(), mercatorLimit, 1e-6));
        QVERIFY(KRMath::epsilonEqual(box.south().decimalDegrees(), -mercatorLimit, 1e-6));
    }

    void pixelsAreCutTowardZero()
    {
        const KRTestTable<double, double> table{
            {"0.7 is 0", -179.93, 0.0},
            {"-0.7 is 0", -180.07, 0.0},
            {"-1.7 is -1", -180.17, -1.0},
        };
        table.forEach([](double longitude, double expected) {
            const KRMapProjection tenPixelsADegree = wholeWorld(3600);
            const double x = tenPixelsADegree.projectate(KRGeoPosition(10.0, longitude)).x();
            QCOMPARE(x, expected);
            QVERIFY(!std::signbit(x) || x < 0.0);
        });
    }

    void manyAtOnceAsOneByOne()
    {
        const KRTestTable<KRTestMap, QSize> table{
            {"world", {-85.0, 85.0, -180.0, 180.0}, QSize(1000, 1000)},
            {"antarctic garden", {-85.05001, -85.05, -70.00001, -70.0}, QSize(2000, 2000)},
            {"over the date line", {-50.0, -30.0, 165.0, -170.0}, QSize(500, 500)},
            {"poster", {-5.0, 5.0, -20.0, 20.0}, QSize(8000000, 4000000)},
            {"grain of sand", {47.0, 47.00000001, -120.00000001, -120.0}, QSize(2000, 2000)},
            {"strip of many worlds", {-1e-9, 1e-9, -90.0, 90.0}, QSize(20000, 2)},
            {"upside down", {54.0, 50.0, 6.0, 18.0}, QSize(300, 900)},
            {"nothing", {53.0, 53.0, 8.0, 8.0}, QSize(100, 100)},
        };
        table.forEach([](const KRTestMap &requested, const QSize &size) {
            const KRMapProjection projection = requested.projection(size);
            RandomPlaces places(projection, size);
            std::vector<double> latitudes;
            std::vector<double> longitudes;
            for (int kind = 0; kind < 4; ++kind)
                places.append(kind, 10001, &latitudes, &longitudes);
            for (const double odd : {0.0, -0.0, 85.06, -85.06, 90.0, -90.0, 270.0, 720.0, -1e9, 1e300, qInf(), qQNaN()})
                for (const double even : {1.0, odd, 1.0}) {
                    latitudes.push_back(odd);
                    longitudes.push_back(even);
                    latitudes.push_back(even);
                    longitudes.push_back(odd);
                }

            std::vector<QPointF> pixels(latitudes.size());
            projection.projectate({latitudes.data(), longitudes.data(), int(pixels.size())}, pixels.data());
            for (std::size_t i = 0; i < pixels.size(); ++i) {
                const QPointF pixel = projection.getPixelCoordinateByMapCoordinate(latitudes[i], longitudes[i]);
                const bool isSame = pixels[i].x() == pixel.x() && pixels[i].y() == pixel.y();
                QVERIFY2(
                    isSame,
                    qPrintable(QStringLiteral("%1, %2").arg(latitudes[i], 0, 'g', 17).arg(longitudes[i], 0, 'g', 17)));
            }
        });
    }

    void wideningIsSymmetric()
    {
        const KRTestTable<KRTestMap, QSize> table{
            {"wide image", {50.0, 54.0, 6.0, 8.0}, QSize(1000, 200)},
            {"tall image", {50.0, 54.0, 6.0, 18.0}, QSize(200, 1000)},
            {"over the date line", {-5.0, 5.0, 175.0, -175.0}, QSize(640, 200)},
            {"360 times its width is no int", {-5.0, 5.0, -20.0, 20.0}, QSize(8000000, 4000000)},
        };
        table.forEach([](const KRTestMap &requested, const QSize &size) {
            const KRMapProjection projection = requested.projection(size);
            const QPointF topLeft = projection.projectate(requested.area().northWest());
            const QPointF bottomRight = projection.getPixelCoordinateByMapCoordinate(
                requested.south, requested.east < requested.west ? requested.east + 360.0 : requested.east);
            const double leftMargin = topLeft.x();
            const double topMargin = topLeft.y();
            QVERIFY(KRMath::epsilonEqual(leftMargin, size.width() - bottomRight.x(), 1.0));
            QVERIFY(KRMath::epsilonEqual(topMargin, size.height() - bottomRight.y(), 1.0));
            QVERIFY2(KRMath::epsilonEqual(leftMargin, 0.0, 1.0) || KRMath::epsilonEqual(topMargin, 0.0, 1.0),
                     "only one direction is widened");
            QVERIFY(leftMargin > 10.0 || topMargin > 10.0);
            // Cutting may lose the pixel itself when rounding leaves its corner a hair short.
            const QPoint pixel(size.width() / 3, size.height() / 5);
            const QPointF again = projection.projectate(projection.convert(pixel));
            QVERIFY((again - pixel).manhattanLength() <= 2.0);
            const KRGeoPositionRect fitting = projection.resultBoundingBox();
            QVERIFY(KRMapProjection(fitting, size).resultBoundingBox() == fitting);
        });
    }

    void dateLine()
    {
        const KRTestMap area{-7.0, 7.0, 170.0, -170.0};
        const KRMapProjection projection = area.projection(QSize(400, 200));
        const KRGeoPositionRect box = projection.resultBoundingBox();
        QVERIFY(box.longitudeRange().crossesDateLine());
        QVERIFY(box.contains(area.area()));
        QVERIFY(KRMath::epsilonEqual(projection.projectate(KRGeoPosition(0.0, 180.0)).x(), 200.0, 1.0));
        QVERIFY(projection.convert(QPoint(400, 100)).longitude().decimalDegrees() > 189.0);

        // Intended: nothing is wrapped, -175 lies west of the image by nearly one world.
        const double worldWidth = projection.getPixelCoordinateByMapCoordinate(0.0, 180.0).x()
                                  - projection.getPixelCoordinateByMapCoordinate(0.0, -180.0).x();
        const double x = projection.projectate(KRGeoPosition(0.0, -175.0)).x();
        QVERIFY(x < -400.0);
        QVERIFY(
            KRMath::epsilonEqual(x + worldWidth, projection.getPixelCoordinateByMapCoordinate(0.0, 185.0).x(), 1.0));
    }

    void outsideTheMercatorSquare()
    {
        const KRTestTable<double, double, QPointF> table{
            {"north pole", 90.0, 0.0, QPointF(500.0, lowestInt)},
            {"beyond the south pole", -100.0, 0.0, QPointF(500.0, 0.0)},
            {"invalid marker", 720.0, 720.0, QPointF(2500.0, 500.0)},
            {"not a number", qQNaN(), qQNaN(), QPointF(0.0, 0.0)},
            {"infinite longitude", 0.0, qInf(), QPointF(highestInt, 500.0)},
            {"huge longitude", 0.0, -1e300, QPointF(lowestInt, 500.0)},
        };
        table.forEach([](double latitude, double longitude, QPointF pixel) {
            const QPointF projected = wholeWorld(1000).projectate(KRGeoPosition(latitude, longitude));
            QVERIFY(KRMath::epsilonEqual(projected.x(), pixel.x(), 1.0)
                    && KRMath::epsilonEqual(projected.y(), pixel.y(), 1.0));
        });
    }

    void epsilonEqual()
    {
        const KRGeoPosition position(53.0, 8.0);
        QVERIFY(KRMapProjection::epsilonEqual(position, KRGeoPosition(53.25, 7.75), 0.25));
        QVERIFY(!KRMapProjection::epsilonEqual(position, KRGeoPosition(53.0, 8.5), 0.25));
        QVERIFY(!KRMapProjection::epsilonEqual(position, KRGeoPosition(53.5, 8.0), 0.25));
    }

    void emptyAreaOrImage()
    {
        const KRTestMap town{53.10, 53.16, 8.15, 8.28};
        const KRTestTable<KRTestMap, QSize> table{
            {"no image", town, QSize(0, 0)},
            {"single point", {53.0, 53.0, 8.0, 8.0}, QSize(100, 100)},
            {"unset", {720.0, 720.0, 720.0, 720.0}, QSize(100, 100)},
            {"pole to pole", {-90.0, 90.0, -180.0, 180.0}, QSize(100, 100)},
            {"not a number", {qQNaN(), qQNaN(), qQNaN(), qQNaN()}, QSize(100, 100)},
        };
        table.forEach([](const KRTestMap &requested, const QSize &size) {
            const KRMapProjection projection = requested.projection(size);
            const QPointF pixel = projection.projectate(KRGeoPosition(53.1, 8.2));
            QVERIFY(pixel.x() >= lowestInt && pixel.x() <= highestInt);
            QVERIFY(pixel.y() >= lowestInt && pixel.y() <= highestInt);
            // every call comes to an end, whatever its result is worth
            const KRGeoPositionRect box = projection.resultBoundingBox();
            QVERIFY(box.west().decimalDegrees() <= 720.0);
            projection.convert(QPoint(1, 1));
        });
    }
};

template class KRTestRegistration<tst_KRMapProjection>;

#include "tst_KRMapProjection.moc"
