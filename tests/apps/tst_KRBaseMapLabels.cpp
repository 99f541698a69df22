#include "KRBaseMapCountryLabels.h"
#include "KRBaseMapData.h"
#include "KRBaseMapGraticule.h"
#include "KRBaseMapPlaceLabels.h"
#include "KRBaseMapView.h"
#include "KRMapLabelBoard.h"

#include "KRTest.h"
#include "KRTestMap.h"

#include <QPainter>

class tst_KRBaseMapLabels : public QObject
{
    Q_OBJECT

private slots:
    void countriesInView()
    {
        const KRTestMap europe{34, 71, -25, 45};
        const KRTestMap fiji{-22, -10, 174, -168};
        const KRTestMap world{-85.05, 85.05, -180, 180};
        const QSize large(1200, 1000);
        const KRTestTable<KRTestMap, QSize, bool, const char *, int> table{
            {"in German", europe, large, true, "Deutschland", 1},
            {"in English", europe, large, false, "Germany", 1},
            {"too small, enlarged", {49, 50.5, 5, 7}, large, false, "Luxembourg", 1},
            {"only its edge in view", {50, 54, 13, 19}, QSize(700, 500), true, "Deutschland", 1},
            {"on both sides of the date line", fiji, large, true, "Fidschi", 1},
            {"no small island on the world map", world, large, true, "Niue", 0},
            {"each copy of the world", world, QSize(2100, 700), true, "Australien", 3},
        };
        table.forEach([&](const KRTestMap &area, const QSize &size, bool isGerman, const char *name, int count) {
            const auto language = isGerman ? KRBaseMapCountryLabels::German : KRBaseMapCountryLabels::English;
            QCOMPARE(int(texts(countryLabels(view(area, size), language)).count(QLatin1String(name))), count);
        });
    }

    void germanyIsNamedInGermany()
    {
        const KRBaseMapView map = view({34, 71, -25, 45}, QSize(1200, 1000));
        const QVector<KRMapLabel> labels = countryLabels(map, KRBaseMapCountryLabels::German);
        const int index = texts(labels).indexOf(QStringLiteral("Deutschland"));
        QVERIFY(index >= 0);
        for (const KRBaseMapCountry &country : KRBaseMapData::instance()->countries()) {
            const QRectF box = labels.at(index).box();
            for (const KRBaseMapPath &outline : country.outlines) {
                for (const QPolygonF &pixels : map.toPixels(outline)) {
                    const bool isInside = pixels.containsPoint(box.topLeft(), Qt::OddEvenFill)
                                          || pixels.containsPoint(box.bottomRight(), Qt::OddEvenFill);
                    QVERIFY2(!isInside || country.englishName == QLatin1String("Germany"),
                             qPrintable(country.englishName));
                }
            }
        }
    }

    void labelsAreApartAndInside()
    {
        const KRTestTable<KRTestMap, QSize, double, int> table{
            {"world", {-60, 78, -180, 180}, QSize(1600, 800), 1.0, 40},
            {"high density", {34, 71, -25, 45}, QSize(2400, 2000), 2.0, 30},
            {"one pixel", {-60, 78, -180, 180}, QSize(1, 1), 1.0, 0},
        };
        table.forEach([&](const KRTestMap &area, const QSize &size, double factor, int atLeast) {
            const QVector<KRMapLabel> labels = countryLabels(view(area, size, factor), KRBaseMapCountryLabels::English);
            QVERIFY2(labels.size() >= atLeast, qPrintable(QString::number(labels.size())));
            for (int i = 0; i < labels.size(); ++i) {
                QVERIFY(QRectF(QPointF(), size).contains(labels.at(i).box()));
                for (int j = 0; j < i; ++j)
                    QVERIFY(!labels.at(i).box().intersects(labels.at(j).box()));
            }
        });
    }

    void countryThatFillsTheMap()
    {
        const KRBaseMapView city = view({53.05, 53.2, 8.1, 8.4}, QSize(1000, 800));
        const QVector<KRMapLabel> labels = countryLabels(city, KRBaseMapCountryLabels::German);
        QCOMPARE(texts(labels), QStringList{QStringLiteral("Deutschland")});
        QVERIFY2(labels.first().box().bottom() < 200.0, "the middle is for the tracks");
        QVERIFY(countryLabels(view({56.0, 56.2, 3.0, 3.4}, QSize(800, 600)), KRBaseMapCountryLabels::German).isEmpty());
    }

    void places()
    {
        const KRBaseMapView map = view({50, 54, 7, 12}, QSize(800, 900));
        const QVector<KRBaseMapPlace> places{{QStringLiteral("Oldenburg"), KRGeoPosition(53.14118, 8.21467)},
                                             {QStringLiteral("Nebenan"), KRGeoPosition(53.14118, 8.3)},
                                             {QStringLiteral("Sydney"), KRGeoPosition(-33.865143, 151.2099)},
                                             {QStringLiteral("Nirgends"), KRGeoPosition()}};
        const KRBaseMapPlaceLabels labels(map, places);
        KRMapLabelBoard board(map.mapRect(), 2.0);
        labels.keepDotsFree(&board);
        labels.addNamesTo(&board);
        QCOMPARE(texts(board.labels()), QStringList({QStringLiteral("Oldenburg"), QStringLiteral("Nebenan")}));

        const QPointF oldenburg = map.toPixel(53.14118, 8.21467);
        const QPointF neighbour = map.toPixel(53.14118, 8.3);
        QVERIFY2(!board.labels().first().box().contains(neighbour), "a name over another place");
        QImage image(800, 900, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        labels.paintDots(&painter);
        QVERIFY(image.pixelColor(oldenburg.toPoint()).lightness() < 80);
    }

    void graticuleTexts()
    {
        const KRTestTable<KRTestMap, QSize, const char *, const char *> table{
            {"around the zero point", {-1.5, 1.5, -1.5, 1.5}, QSize(400, 400), "1° W, 0°, 1° O", "1° S, 0°, 1° N"},
            {"across the date line",
             {-1.5, 1.5, 178.5, -178.5},
             QSize(400, 400),
             "179° O, 180°, 179° W",
             "1° S, 0°, 1° N"},
            {"minutes",
             {53.09, 53.14, 8.01, 8.14},
             QSize(500, 330),
             "8° 02′ O, 8° 04′ O, 8° 06′ O, 8° 08′ O",
             "53° 06′ N, 53° 08′ N"},
            {"too small for any line", {-80, 80, -180, 180}, QSize(20000, 20), "", ""},
            {"seconds, south-west",
             {-0.00095, -0.0001, -0.0012, -0.0001},
             QSize(500, 386),
             "0° 00′ 04″ W, 0° 00′ 03″ W, 0° 00′ 02″ W, 0° 00′ 01″ W",
             "0° 00′ 03″ S, 0° 00′ 02″ S, 0° 00′ 01″ S"},
        };
        table.forEach([&](const KRTestMap &area, const QSize &size, const char *meridians, const char *parallels) {
            const auto textsOf = [](const QVector<KRBaseMapGraticule::Line> &lines) {
                QStringList texts;
                for (const KRBaseMapGraticule::Line &line : lines)
                    texts << line.text;
                return texts.join(QStringLiteral(", "));
            };
            const KRBaseMapGraticule graticule(view(area, size));
            QCOMPARE(textsOf(graticule.meridians()), QString::fromUtf8(meridians));
            QCOMPARE(textsOf(graticule.parallels()), QString::fromUtf8(parallels));
        });
    }

    void graticuleKeepsItsDistance()
    {
        for (double degrees = 100.0; degrees > 1e-4; degrees /= 3.0) {
            for (const double factor : {1.0, 2.0}) {
                const KRBaseMapView map =
                    view({50.0, 50.0 + degrees / 4.0, 8.0, 8.0 + degrees}, QSize(2000, 1000), factor);
                const KRBaseMapGraticule graticule(map);
                for (const QVector<KRBaseMapGraticule::Line> &lines : {graticule.meridians(), graticule.parallels()}) {
                    QVERIFY(degrees < 0.01 || lines.size() >= 2);
                    for (int i = 1; i < lines.size(); ++i)
                        QVERIFY(qAbs(lines.at(i).pixel - lines.at(i - 1).pixel) >= 60.0 * factor);
                }
            }
        }
    }

    void agreesWithTheProjection()
    {
        const KRTestTable<KRTestMap, QSize> table{
            {"world in a narrow image, beyond the poles", {-60.0, 60.0, -180.0, 180.0}, QSize(64, 400)},
            {"across the date line", {-22.0, -10.0, 174.0, -168.0}, QSize(1200, 800)},
            {"a few metres", {53.14, 53.14001, 8.2, 8.20001}, QSize(2000, 2000)},
            {"near the pole", {84.9, 85.05, 10.0, 20.0}, QSize(500, 500)},
        };
        table.forEach([](const KRTestMap &area, const QSize &size) {
            const KRMapProjection map = area.projection(size);
            const KRBaseMapView view(map, size, 1.0);
            QVERIFY(view.isValid());
            const double span = area.east - area.west + (area.east < area.west ? 360.0 : 0.0);
            for (const double part : {0.0, 0.123, 0.5, 0.987, 1.0}) {
                const double latitude = area.south + part * (area.north - area.south);
                const double longitude = area.west + part * span;
                const QPointF pixel = view.toPixel(latitude, longitude);
                const QPointF whole = map.getPixelCoordinateByMapCoordinate(latitude, longitude);
                // Beside the cut to whole pixels only rounding may tell them apart.
                QVERIFY(qAbs(pixel.x() - whole.x()) < 1.001 && qAbs(pixel.y() - whole.y()) < 1.001);
                QVERIFY(qAbs(view.longitudeAt(pixel.x()) - longitude) < 1e-9);
                QVERIFY(qAbs(view.latitudeAt(pixel.y()) - latitude) < 1e-9);
            }
        });

        const QSize size(900, 100);
        const KRBaseMapView world = view({-85.05, 85.05, -180.0, 180.0}, size);
        const QVector<QPointF> copies = world.toPixels(KRGeoPosition(10.0, 20.0));
        QCOMPARE(copies.size(), 9);
        QVERIFY(qAbs(copies.at(1).x() - copies.at(0).x() - world.worldSize()) < 1e-6);
    }

private:
    static KRBaseMapView view(const KRTestMap &map, const QSize &size, double factor = 1.0)
    {
        return KRBaseMapView(map.projection(size), size, factor);
    }

    static QVector<KRMapLabel> countryLabels(const KRBaseMapView &view, KRBaseMapCountryLabels::Language language)
    {
        KRMapLabelBoard board(view.mapRect(), 2.0 * view.factor());
        KRBaseMapCountryLabels(view, language).addTo(&board);
        return board.labels();
    }

    static QStringList texts(const QVector<KRMapLabel> &labels)
    {
        QStringList texts;
        for (const KRMapLabel &label : labels)
            texts << label.text().simplified();
        return texts;
    }
};

template class KRTestRegistration<tst_KRBaseMapLabels>;

#include "tst_KRBaseMapLabels.moc"
