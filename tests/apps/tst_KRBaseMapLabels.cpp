#include "KRBaseMapCountryLabels.h"
#include "KRBaseMapData.h"
#include "KRBaseMapPlaceLabels.h"
#include "KRBaseMapView.h"
#include "KRMapLabelBoard.h"

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QPainter>
#include <QtTest>

class tst_KRBaseMapLabels : public QObject
{
    Q_OBJECT

private slots:
    void countriesInView();
    void germanyIsNamedInGermany();
    void labelsAreApartAndInside();
    void countryThatFillsTheMap();
    void places();

private:
    static KRBaseMapView view(const QList<double> &area, const QSize &size, double factor = 1.0);
    static QVector<KRMapLabel> countryLabels(const KRBaseMapView &view, KRBaseMapCountryLabels::Language language);
    static QStringList texts(const QVector<KRMapLabel> &labels);
};

/// @p area is south, north, west, east.
KRBaseMapView tst_KRBaseMapLabels::view(const QList<double> &area, const QSize &size, double factor)
{
    const KRGeoPositionRect rect(KRLatitudeRange(area.at(0), area.at(1)), KRLongitudeRange(area.at(2), area.at(3)));
    return KRBaseMapView(KRMapProjection(rect, size), size, factor);
}

QVector<KRMapLabel> tst_KRBaseMapLabels::countryLabels(const KRBaseMapView &view,
                                                       KRBaseMapCountryLabels::Language language)
{
    KRMapLabelBoard board(view.mapRect(), 2.0 * view.factor());
    KRBaseMapCountryLabels(view, language).addTo(&board);
    return board.labels();
}

QStringList tst_KRBaseMapLabels::texts(const QVector<KRMapLabel> &labels)
{
    QStringList texts;
    for (const KRMapLabel &label : labels)
        texts << QString(label.text()).replace(QLatin1Char('\n'), QLatin1Char(' '));
    return texts;
}

void tst_KRBaseMapLabels::countriesInView()
{
    const QList<double> europe{34, 71, -25, 45};
    const QList<double> fiji{-22, -10, 174, -168};
    const QList<double> world{-85.05, 85.05, -180, 180};
    const QSize large(1200, 1000);
    const KRTestTable<QList<double>, QSize, bool, QString, int> table{
        {"in German", europe, large, true, QStringLiteral("Deutschland"), 1},
        {"in English", europe, large, false, QStringLiteral("Germany"), 1},
        {"in two lines", europe, large, false, QStringLiteral("United Kingdom"), 1},
        {"too small here", europe, large, false, QStringLiteral("Luxembourg"), 0},
        {"too small, enlarged", QList<double>{49, 50.5, 5, 7}, large, false, QStringLiteral("Luxembourg"), 1},
        {"not in view", europe, large, true, QStringLiteral("Australien"), 0},
        {"only its edge in view", QList<double>{50, 54, 13, 19}, QSize(700, 500), true, QStringLiteral("Deutschland"),
         1},
        {"on both sides of the date line", fiji, large, true, QStringLiteral("Fidschi"), 1},
        {"small island", fiji, large, true, QStringLiteral("Niue"), 1},
        {"no small island on the world map", world, large, true, QStringLiteral("Niue"), 0},
        {"each copy of the world", world, QSize(2100, 700), true, QStringLiteral("Australien"), 3},
    };
    table.forEach([&](const QList<double> &area, const QSize &size, bool isGerman, const QString &name, int count) {
        const auto language = isGerman ? KRBaseMapCountryLabels::German : KRBaseMapCountryLabels::English;
        QCOMPARE(int(texts(countryLabels(view(area, size), language)).count(name)), count);
    });
}

void tst_KRBaseMapLabels::germanyIsNamedInGermany()
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
                QVERIFY2(!isInside || country.englishName == QLatin1String("Germany"), qPrintable(country.englishName));
            }
        }
    }
}

void tst_KRBaseMapLabels::labelsAreApartAndInside()
{
    const KRTestTable<QList<double>, QSize, double, int> table{
        {"world", QList<double>{-60, 78, -180, 180}, QSize(1600, 800), 1.0, 40},
        {"Caribbean", QList<double>{9, 28, -90, -58}, QSize(1200, 800), 1.0, 25},
        {"high density", QList<double>{34, 71, -25, 45}, QSize(2400, 2000), 2.0, 30},
        {"narrow", QList<double>{30, 60, 8, 12}, QSize(60, 1400), 1.0, 1},
        {"one pixel", QList<double>{-60, 78, -180, 180}, QSize(1, 1), 1.0, 0},
    };
    table.forEach([&](const QList<double> &area, const QSize &size, double factor, int atLeast) {
        const QVector<KRMapLabel> labels = countryLabels(view(area, size, factor), KRBaseMapCountryLabels::English);
        QVERIFY2(labels.size() >= atLeast, qPrintable(QString::number(labels.size())));
        for (int i = 0; i < labels.size(); ++i) {
            QVERIFY(QRectF(QPointF(), size).contains(labels.at(i).box()));
            for (int j = 0; j < i; ++j)
                QVERIFY(!labels.at(i).box().intersects(labels.at(j).box()));
        }
    });
}

void tst_KRBaseMapLabels::countryThatFillsTheMap()
{
    const KRBaseMapView city = view({53.05, 53.2, 8.1, 8.4}, QSize(1000, 800));
    const QVector<KRMapLabel> labels = countryLabels(city, KRBaseMapCountryLabels::German);
    QCOMPARE(texts(labels), QStringList{QStringLiteral("Deutschland")});
    QVERIFY2(labels.first().box().bottom() < 200.0, "the middle is for the tracks");
    QVERIFY(countryLabels(view({56.0, 56.2, 3.0, 3.4}, QSize(800, 600)), KRBaseMapCountryLabels::German).isEmpty());
}

void tst_KRBaseMapLabels::places()
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

static const KRTestRegistration<tst_KRBaseMapLabels> registration;

#include "tst_KRBaseMapLabels.moc"
