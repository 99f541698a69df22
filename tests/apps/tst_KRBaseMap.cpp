#include "KRBaseMap.h"

#include "KRTest.h"
#include "KRTestMap.h"
#include "KRTestPicture.h"

#include <QPainter>

class tst_KRBaseMap : public QObject
{
    Q_OBJECT

private slots:
    void ground()
    {
        const KRTestMap world{-60, 78, -180, 180};
        const KRTestMap whole{-85.05, 85.05, -180, 180};
        const KRTestMap bering{60, 72, 170, -160};
        const QSize wide(1000, 500);
        const KRTestTable<KRTestMap, QSize, double, double, int> table{
            {"world: Caspian Sea, a hole in the land", world, wide, 41.7, 50.7, int(Sea)},
            {"world: Chukotka, east of 180 degrees", world, wide, 66.6, -177.0, int(Land)},
            {"three worlds: copy in the west", whole, QSize(1500, 500), 22.0, 12.0 - 360.0, int(Land)},
            {"Antarctica at 85 degrees", whole, QSize(800, 800), -85.0, 40.0, int(Land)},
            {"Bering Strait: sea on 180 degrees", bering, wide, 62.3, 179.1, int(Sea)},
            {"Fiji: sea between the islands", {-22, -10, 174, -168}, wide, -17.1, 188.5, int(Sea)},
            {"street", {53.1400, 53.1404, 8.2, 8.2008}, wide, 53.14021, 8.20043, int(Land)},
        };
        table.forEach([&](const KRTestMap &area, const QSize &size, double latitude, double longitude, int expected) {
            const QPoint pixel = area.projection(size).getPixelCoordinateByMapCoordinate(latitude, longitude).toPoint();
            QVERIFY(QRect(QPoint(), size).contains(pixel));
            QCOMPARE(int(groundAt(picture(area, size).pixelColor(pixel))), expected);
            QCOMPARE(int(groundAt(picture(area, size, 2.0).pixelColor(pixel))), expected);
        });
    }

    void noSeamAtTheDateLine()
    {
        // Land of Chukotka and of Antarctica on both sides of 180 degrees.
        for (const KRTestMap &area : {KRTestMap{66.9, 67.1, 179.8, -179.8}, KRTestMap{-84.9, -84.88, 179.8, -179.8}}) {
            const QImage image = picture(area, QSize(600, 300));
            for (int x = 0; x < image.width(); ++x)
                QVERIFY2(groundAt(image.pixelColor(x, 220)) != Sea, qPrintable(QString::number(x)));
        }
    }

    void linesAreDrawn()
    {
        const KRTestTable<KRTestMap, QColor> table{
            {"coast of Jutland", {56.05, 56.35, 7.9, 8.4}, QColor(104, 141, 168)},
            {"border along the Oder", {52.2, 52.5, 14.3, 14.9}, QColor(176, 154, 146)},
        };
        table.forEach([](const KRTestMap &area, const QColor &color) {
            const QImage image = picture(area, QSize(500, 500), 3.0);
            // Near the lower edge, where there are no names.
            int hits = 0;
            for (int x = 0; x < image.width(); ++x)
                hits += image.pixelColor(x, 480) == color ? 1 : 0;
            QVERIFY2(hits >= 1 && hits < 20, qPrintable(QString::number(hits)));
        });
    }

    void staysInItsRectangle()
    {
        const QSize size(300, 300);
        const KRBaseMap map({{QStringLiteral("Am Rand"), KRGeoPosition(51.0, 5.0)}});
        QVERIFY(KRTestPicture::fills(size, [&](QPainter *painter) {
            painter->setPen(Qt::green);
            map.paint(painter, size, KRTestMap{47, 55, 5, 15}.projection(size), 3.0);
            QCOMPARE(painter->pen().color(), QColor(Qt::green));
            QVERIFY(!painter->hasClipping());
        }));
    }

    void extremes()
    {
        const KRTestMap world{-85.0511287798066, 85.0511287798066, -180, 180};
        const KRTestTable<KRTestMap, QSize, double> table{
            {"one pixel", world, QSize(1, 1), 1.0},
            {"narrow and high", world, QSize(3, 3000), 1.0},
            {"factor not a number", world, QSize(200, 100), qQNaN()},
            {"huge factor", world, QSize(200, 100), 1e9},
            {"no area", {50, 50, 8, 8}, QSize(20, 20), 1.0},
            {"beyond the map", {86, 89, 10, 20}, QSize(200, 100), 1.0},
            {"a thousandth of a millimetre", {53.14, 53.14000000001, 8.2, 8.20000000001}, QSize(200, 100), 1.0},
        };
        table.forEach([](const KRTestMap &area, const QSize &size, double factor) {
            const QImage image = picture(area, size, factor);
            for (int y = 0; y < size.height(); ++y) {
                for (int x = 0; x < size.width(); ++x)
                    QVERIFY2(qAlpha(image.pixel(x, y)) == 255, "a hole in the ground");
            }
        });
        QCOMPARE(groundAt(picture({-10, 10, -180, 180}, QSize(20, 200)).pixelColor(10, 195)), Paper);
        QCOMPARE(groundAt(picture(world, QSize(3000, 10)).pixelColor(1500, 5)), Paper); // three hundred worlds
        QImage null;
        KRBaseMap().paint(&null, world.projection(QSize(20, 20)), 1.0);
        QVERIFY(null.isNull());
    }

private:
    enum Ground { Land, Sea, Paper };

    static QImage picture(const KRTestMap &map, const QSize &size, double factor = 1.0)
    {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        KRBaseMap().paint(&image, map.projection(size), factor);
        return image;
    }

    /// Land is yellowish, water bluish, and the paper beyond the map has no colour to speak of.
    static Ground groundAt(const QColor &color)
    {
        const int warmth = color.red() - color.blue();
        return warmth > 8 ? Land : warmth < -8 ? Sea : Paper;
    }
};

template class KRTestRegistration<tst_KRBaseMap>;

#include "tst_KRBaseMap.moc"
