#include <KRGeoLocation/KRGPXTrackRenderer.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXTrackConfiguration.h>
#include <KRGeoLocation/KRMapProjection.h>

#include <QPainter>
#include <QPixmap>
#include <QtTest>

#include <cmath>
#include <limits>
#include <memory>
#include <random>

namespace {

using Pixels = QVector<QPointF>;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// One pixel a degree by default: an image of 360 x 180 shows the world, and pixel (180, 90) is position (0, 0).
class PlainRenderer : public KRGPXTrackRenderer
{
public:
    explicit PlainRenderer(const KRGPXTrackSelection &selection, const QSize &size = QSize(360, 180),
                           double renderingFactor = 1.0, double pixelsPerDegree = 1.0)
        : KRGPXTrackRenderer(selection, size, renderingFactor), m_pixelsPerDegree(pixelsPerDegree)
    { }

    QPointF projectPosition(const KRGeoPosition &position) const override
    {
        return m_pixelsPerDegree
               * QPointF(position.longitude().decimalDegrees() + 180.0, 90.0 - position.latitude().decimalDegrees());
    }

private:
    double m_pixelsPerDegree;
};

class MercatorRenderer : public KRGPXTrackRenderer
{
public:
    MercatorRenderer(const KRGPXTrackSelection &selection, const KRGeoPositionRect &area, const QSize &size)
        : KRGPXTrackRenderer(selection, size, 1.0), m_projection(area, size)
    { }

    QPointF projectPosition(const KRGeoPosition &position) const override { return m_projection.projectate(position); }

private:
    KRMapProjection m_projection;
};

/// A segment through pixels of the PlainRenderer.
KRGPXTrackSegment segmentAt(const Pixels &pixels)
{
    QList<KRGPXTrackPoint> points;
    for (const QPointF &pixel : pixels)
        points.append(KRGPXTrackPoint(KRGeoPosition(90.0 - pixel.y(), pixel.x() - 180.0), 0, QDateTime(), QString()));
    return KRGPXTrackSegment(points);
}

KRGPXTrack trackAt(const QVector<Pixels> &segments, const KRGPXTrackShape &shape = LineStringTrackShape)
{
    QList<KRGPXTrackSegment> all;
    for (const Pixels &pixels : segments)
        all.append(segmentAt(pixels));
    return KRGPXTrack(QStringLiteral("track"), QString(), all, shape);
}

KRGPXTrack squareAt(const QRectF &rect)
{
    return trackAt({QPolygonF(rect)}, PolygonTrackShape);
}

KRGPXTrackConfiguration configurationOf(KRGPXTrackDisplayOptionsEnum options,
                                        KRGPXTrackShapeEnum shape = AutoTrackShape,
                                        KRGPXMarkerShapeEnum marker = DiskMarkerShape)
{
    return KRGPXTrackConfiguration(QColor(255, 0, 0, 128), 4.0, QColor(0, 0, 255, 64), 6.0, options, marker, shape,
                                   KRPenStyle(1), 100, 1);
}

KRGPXTrackSelection selectionOf(const KRGPXTrack &track,
                                const KRGPXTrackConfiguration &configuration = configurationOf(StrokeDisplayOption))
{
    return KRGPXTrackSelection(KRGPXConfiguredTrackList(KRGPXConfiguredTrack(track, configuration)));
}

int alphaAt(const QImage &image, int x, int y)
{
    return qAlpha(image.pixel(x, y));
}

bool isEmpty(const QImage &image)
{
    QImage blank(image.size(), image.format());
    blank.fill(Qt::transparent);
    return image == blank;
}

Pixels pathPoints(const QPainterPath &path)
{
    Pixels points;
    for (int i = 0; i < path.elementCount(); ++i)
        points.append(path.elementAt(i));
    return points;
}

KRGPXTrack randomTrack(int count)
{
    std::mt19937 random(4711);
    std::normal_distribution<double> step(0.4, 1.0);
    Pixels pixels;
    QPointF pixel(300.0, 90.0);
    for (int i = 0; i < count; ++i) {
        pixel += QPointF(step(random), step(random) - 0.4);
        pixels.append(QPointF(std::fmod(pixel.x(), 360.0), qBound(5.0, pixel.y(), 175.0)));
    }
    return trackAt({pixels.mid(0, count / 3), Pixels(), pixels.mid(count / 3)});
}

const QRectF square(100.0, 60.0, 60.0, 60.0);

} // namespace

class tst_KRGPXTrackRenderer : public QObject
{
    Q_OBJECT

private slots:
    void renderOptions();
    void penStyleAndFactor();
    void longDashedLine();
    void antialiasing();
    void laterTracksCoverEarlierOnes();
    void painterOfTheCaller();
    void enclavesAreHoles();
    void lineAsArea();
    void pathOfTrack();
    void smoothing();
    void dateLineCrossing();
    void lineOverTheDateLine();
    void mapOverTheDateLine();
    void visibleShifts();
    void unseenCopiesChangeNothing();
    void roundMapsHaveNoCopies();
    void markers();
    void invalidPositionHasNoMarker();
    void arrows();
    void crop();
    void cropOfFormats();
    void cropKeepsColours();
    void otherThreadsDrawTheSame();
    void awkwardTracks();
    void awkwardImages();
};

void tst_KRGPXTrackRenderer::renderOptions()
{
    // alphas: outside, in the halo, on the line, in the area
    const KRTestTable<int, int, QVector<int>> table{
        {"styled: stroke", StyledRender, StrokeDisplayOption, {0, 0, 128, 0}},
        {"styled: fill", StyledRender, FillDisplayOption, {0, 0, 0, 64}},
        {"styled: both", StyledRender, StrokeDisplayOption | FillDisplayOption, {0, 0, 128, 64}},
        {"styled: nothing", StyledRender, NoDisplayOption, {0, 0, 0, 0}},
        {"opaque: both in any case", OpaqueRender, NoDisplayOption, {0, 255, 255, 255}},
        {"halo: stroke", HaloRender, StrokeDisplayOption, {0, 128, 128, 0}},
        {"halo: fill", HaloRender, FillDisplayOption, {0, 0, 0, 64}},
        {"any other number is halo", 17, StrokeDisplayOption | FillDisplayOption, {0, 128, 128, 64}},
    };
    table.forEach([](int option, int displayOptions, const QVector<int> &alphas) {
        const auto configuration = configurationOf(KRGPXTrackDisplayOptionsEnum(displayOptions));
        const PlainRenderer renderer(selectionOf(squareAt(square), configuration));
        const QImage image = renderer.render(TrackRenderOption(option));
        // the line covers 98 ... 102, with its halo 95 ... 105
        const QVector<int> seen{alphaAt(image, 90, 90), alphaAt(image, 96, 90), alphaAt(image, 99, 90),
                                alphaAt(image, 130, 90)};
        QCOMPARE(seen, alphas);
        if (alphas.at(2) > 0)
            QCOMPARE(image.pixelColor(99, 90).red(), 255);
        if (alphas.at(3) > 0)
            QCOMPARE(image.pixelColor(130, 90).blue(), 255);
    });
}

void tst_KRGPXTrackRenderer::penStyleAndFactor()
{
    KRGPXTrackConfiguration configuration = configurationOf(StrokeDisplayOption);
    configuration.setPenStyle(KRPenStyle(Qt::DotLine));
    const KRGPXTrackSelection dotted = selectionOf(trackAt({{{100.0, 90.0}, {260.0, 90.0}}}), configuration);
    const auto gaps = [&dotted](TrackRenderOption option) {
        const QImage image = PlainRenderer(dotted).render(option);
        int count = 0;
        for (int x = 105; x < 255; ++x)
            count += alphaAt(image, x, 90) == 0 ? 1 : 0;
        return count;
    };
    QVERIFY(gaps(StyledRender) > 20);
    QCOMPARE(gaps(OpaqueRender), 0);
    QCOMPARE(gaps(HaloRender), 0);

    const QImage twice = PlainRenderer(selectionOf(squareAt(square)), QSize(360, 180), 2.0).render(StyledRender);
    QCOMPARE(alphaAt(twice, 97, 90), 128);
    QCOMPARE(alphaAt(twice, 95, 90), 0);
}

void tst_KRGPXTrackRenderer::longDashedLine()
{
    // Through the image, away by a hundred of its widths, and through it again: some twenty thousand dots, painted
    // one by one here and by the renderer.
    const Pixels far{{100.0, 20.0}, {100.0, 170.0}, {40000.0, 150.0}, {40000.0, 100.0}, {30.0, 60.0}, {30.0, 10.0}};
    Pixels degrees;
    for (const QPointF &pixel : far)
        degrees.append(pixel / 1000.0);
    KRGPXTrackConfiguration configuration = configurationOf(StrokeDisplayOption);
    configuration.setPenStyle(KRPenStyle(Qt::DotLine));
    configuration.setLineWidth(2.0);
    const PlainRenderer renderer(selectionOf(trackAt({degrees}), configuration), QSize(360, 180), 1.0, 1000.0);
    QImage expected(360, 180, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    QPainter painter(&expected);
    painter.setPen(renderer.penFromTrack(configuration, StyledRender));
    painter.drawPolyline(far.constData(), far.size());
    painter.end();
    QCOMPARE(renderer.renderQuickAndDirty(StyledRender), expected);
}

void tst_KRGPXTrackRenderer::antialiasing()
{
    const PlainRenderer renderer(selectionOf(trackAt({{{100.0, 20.0}, {260.0, 160.0}}})));
    const auto alphas = [](const QImage &image) {
        QSet<int> found;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                found.insert(alphaAt(image, x, y));
        return found;
    };
    const QImage smooth = renderer.render(OpaqueRender);
    QCOMPARE(smooth.format(), QImage::Format_ARGB32);
    QVERIFY(alphas(smooth).size() > 10);

    const QImage quick = renderer.renderForeground();
    QCOMPARE(quick.format(), QImage::Format_ARGB32_Premultiplied);
    QCOMPARE(alphas(quick), (QSet<int>{0, 255}));
    QCOMPARE(quick, renderer.renderQuickAndDirty(OpaqueRender));
}

void tst_KRGPXTrackRenderer::laterTracksCoverEarlierOnes()
{
    KRGPXTrackConfiguration green = configurationOf(StrokeDisplayOption);
    green.setLineColor(Qt::green);
    KRGPXTrackSelection selection = selectionOf(trackAt({{{100.0, 90.0}, {260.0, 90.0}}}));
    selection.addTrack(KRGPXConfiguredTrack(trackAt({{{180.0, 20.0}, {180.0, 160.0}}}), green));
    const QImage image = PlainRenderer(selection).render(StyledRender);
    QCOMPARE(image.pixelColor(180, 90), QColor(Qt::green));
    QCOMPARE(image.pixelColor(100, 90), QColor(255, 0, 0, 128));
}

void tst_KRGPXTrackRenderer::painterOfTheCaller()
{
    // three sides of a square, which a brush left in the painter must not fill
    KRGPXTrackSelection selection =
        selectionOf(trackAt({{{100.0, 60.0}, {160.0, 60.0}, {160.0, 120.0}, {100.0, 120.0}}}));
    selection.addTrack(
        KRGPXConfiguredTrack(squareAt(square.translated(80.0, 0.0)), configurationOf(FillDisplayOption)));
    QImage image(360, 180, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setPen(QPen(Qt::black, 3.0));
    painter.setBrush(Qt::black);
    painter.translate(10.0, 0.0);
    const QTransform transform = painter.transform();
    PlainRenderer(selection).renderWith(painter, StyledRender);
    QCOMPARE(painter.pen(), QPen(Qt::black, 3.0));
    QCOMPARE(painter.brush(), QBrush(Qt::black));
    QCOMPARE(painter.transform(), transform);
    QCOMPARE(alphaAt(image, 140, 90), 0);
    QCOMPARE(alphaAt(image, 140, 59), 128);
    QCOMPARE(alphaAt(image, 220, 90), 64);
}

void tst_KRGPXTrackRenderer::enclavesAreHoles()
{
    KRGPXTrack track = squareAt(square);
    track.addEnclave(squareAt(square.adjusted(15.0, 15.0, -15.0, -15.0)));
    const QImage filled = PlainRenderer(selectionOf(track, configurationOf(FillDisplayOption))).render(StyledRender);
    QCOMPARE(alphaAt(filled, 107, 90), 64);
    QCOMPARE(alphaAt(filled, 130, 90), 0);
    const QImage stroked = PlainRenderer(selectionOf(track)).render(StyledRender);
    QCOMPARE(alphaAt(stroked, 114, 90), 128);
    QCOMPARE(alphaAt(stroked, 107, 90), 0);
}

void tst_KRGPXTrackRenderer::lineAsArea()
{
    const Pixels open{{100.0, 60.0}, {160.0, 60.0}, {160.0, 120.0}, {100.0, 120.0}};
    const auto both = KRGPXTrackDisplayOptionsEnum(StrokeDisplayOption | FillDisplayOption);
    const KRGPXTrackSelection area = selectionOf(trackAt({open}), configurationOf(both, PolygonTrackShape));
    const QImage areaImage = PlainRenderer(area).render(StyledRender);
    QCOMPARE(alphaAt(areaImage, 130, 90), 64);
    QCOMPARE(alphaAt(areaImage, 99, 90), 128); // the side that closes it
    const KRGPXTrackSelection line = selectionOf(trackAt({open}), configurationOf(both));
    const QImage lineImage = PlainRenderer(line).render(StyledRender);
    QCOMPARE(alphaAt(lineImage, 130, 90), 0);
    QCOMPARE(alphaAt(lineImage, 99, 90), 0);
}

void tst_KRGPXTrackRenderer::pathOfTrack()
{
    const QPointF gap(notANumber, notANumber);
    const KRTestTable<QVector<Pixels>, double, Pixels> table{
        {"no segment", {}, 1.0, {}},
        {"empty segments", {Pixels(), Pixels()}, 1.0, {}},
        {"one point", {{{10.0, 50.0}}}, 1.0, {}},
        {"three pixels apart", {{{10.0, 50.0}, {13.0, 50.0}}}, 1.0, {}},
        {"four pixels apart", {{{10.0, 50.0}, {12.0, 52.0}}}, 1.0, {}},
        {"five pixels apart", {{{10.0, 50.0}, {15.0, 50.0}}}, 1.0, {{10.0, 50.0}, {15.0, 50.0}}},
        {"five pixels on a dense screen", {{{10.0, 50.0}, {15.0, 50.0}}}, 2.0, {}},
        {"close points are left out, the last one is kept",
         {{{10.0, 50.0}, {12.0, 50.0}, {15.0, 50.0}, {17.0, 52.0}, {18.0, 50.0}}},
         1.0,
         {{10.0, 50.0}, {15.0, 50.0}, {18.0, 50.0}}},
        {"segments are joined",
         {{{10.0, 50.0}, {20.0, 50.0}}, {}, {{20.0, 80.0}}},
         1.0,
         {{10.0, 50.0}, {20.0, 50.0}, {20.0, 80.0}}},
        {"gaps are left out",
         {{gap, {10.0, 50.0}, {infinity, 50.0}, {20.0, 50.0}, gap}},
         1.0,
         {{10.0, 50.0}, {20.0, 50.0}}},
        {"only gaps", {{gap, gap}}, 1.0, {}},
        {"eastwards over the date line",
         {{{350.0, 50.0}, {355.0, 50.0}}, {}, {{5.0, 50.0}}},
         1.0,
         {{350.0, 50.0}, {355.0, 50.0}, {365.0, 50.0}}},
        {"westwards over the date line",
         {{{5.0, 50.0}, {355.0, 50.0}, {345.0, 50.0}}},
         1.0,
         {{5.0, 50.0}, {-5.0, 50.0}, {-15.0, 50.0}}},
        {"there and back",
         {{{355.0, 50.0}, {5.0, 50.0}, {355.0, 50.0}}},
         1.0,
         {{355.0, 50.0}, {365.0, 50.0}, {355.0, 50.0}}},
        {"twice around the world",
         {{{180.0, 50.0}, {300.0, 50.0}, {60.0, 50.0}, {181.0, 50.0}, {300.0, 50.0}, {60.0, 50.0}}},
         1.0,
         {{180.0, 50.0}, {300.0, 50.0}, {420.0, 50.0}, {541.0, 50.0}, {660.0, 50.0}, {780.0, 50.0}}},
        {"over the prime meridian", {{{175.0, 50.0}, {185.0, 50.0}}}, 1.0, {{175.0, 50.0}, {185.0, 50.0}}},
        {"a gap is no step over the date line", {{{5.0, 50.0}, gap, {20.0, 50.0}}}, 1.0, {{5.0, 50.0}, {20.0, 50.0}}},
    };
    table.forEach([](const QVector<Pixels> &segments, double factor, const Pixels &expected) {
        const PlainRenderer renderer(KRGPXTrackSelection(), QSize(360, 180), factor);
        QCOMPARE(pathPoints(renderer.createPainterPath(trackAt(segments), 100, 1)), expected);
    });
}

void tst_KRGPXTrackRenderer::smoothing()
{
    const KRTestTable<int, double> table{
        {"100 per cent of its own place", 100, 40.0},
        {"half way to the chord", 50, 20.0},
        {"on the chord", 0, 0.0},
    };
    table.forEach([](int strength, double height) {
        const KRGPXTrack zigzag = trackAt({{{20.0, 90.0}, {60.0, 70.0}, {100.0, 110.0}, {140.0, 70.0}, {180.0, 90.0}}});
        KRGPXTrackConfiguration configuration = configurationOf(StrokeDisplayOption);
        configuration.setSmoothingStrength(strength);
        const PlainRenderer renderer(selectionOf(zigzag, configuration));
        const QPainterPath path = renderer.createPainterPath(KRGPXConfiguredTrack(zigzag, configuration));
        QCOMPARE(path.boundingRect().height(), height);
        QCOMPARE(path.elementAt(0).x, 20.0);
        QCOMPARE(path.currentPosition(), QPointF(180.0, 90.0));
    });
}

void tst_KRGPXTrackRenderer::dateLineCrossing()
{
    const KRTestTable<double, double, int> table{
        {"eastwards", 179.0, -179.0, 1},
        {"westwards", -179.0, 179.0, -1},
        {"prime meridian eastwards", -1.0, 1.0, 0},
        {"prime meridian westwards", 1.0, -1.0, 0},
        {"eastern hemisphere", 10.0, 20.0, 0},
        {"western hemisphere", -20.0, -10.0, 0},
        {"-180 belongs to the east", 179.0, -180.0, 0},
        {"the step after it crosses", -180.0, -179.0, 1},
        {"half the world from the east", 90.0, -90.0, 1},
        {"half the world from the west", -90.0, 90.0, 0},
        {"equal within the tolerance of angles", 3e-7, -3e-7, 0},
    };
    table.forEach([](double from, double to, int expected) {
        const PlainRenderer renderer{KRGPXTrackSelection()};
        QCOMPARE(renderer.checkDateLineCrossing(KRGeoPosition(1.0, from), KRGeoPosition(2.0, to)), expected);
    });
}

void tst_KRGPXTrackRenderer::lineOverTheDateLine()
{
    const QImage image = PlainRenderer(selectionOf(trackAt({{{350.0, 90.0}, {10.0, 90.0}}}))).render(StyledRender);
    QCOMPARE(alphaAt(image, 359, 90), 128);
    QCOMPARE(alphaAt(image, 0, 90), 128);
    QCOMPARE(alphaAt(image, 345, 90), 0);
    QCOMPARE(alphaAt(image, 180, 90), 0);
    QCOMPARE(alphaAt(image, 15, 90), 0);
}

void tst_KRGPXTrackRenderer::mapOverTheDateLine()
{
    const KRGeoPositionRect area(KRGeoPosition(-5.0, 170.0), KRGeoPosition(5.0, -170.0));
    const QSize size(400, 200);
    const KRGPXTrack track = trackAt({{{355.0, 90.0}, {5.0, 90.0}}}); // longitude 175 to -175
    const QImage image = MercatorRenderer(selectionOf(track), area, size).render(StyledRender);
    const int y = int(KRMapProjection(area, size).projectate(KRGeoPosition(0.0, 180.0)).y());
    QCOMPARE(alphaAt(image, 110, y), 128);
    QCOMPARE(alphaAt(image, 200, y), 128);
    QCOMPARE(alphaAt(image, 290, y), 128);
    QCOMPARE(alphaAt(image, 80, y), 0);
    QCOMPARE(alphaAt(image, 320, y), 0);
}

void tst_KRGPXTrackRenderer::visibleShifts()
{
    const KRTestTable<int, double, int> table{
        {"image narrower than the world", 300, 360.0, 1}, {"one world", 360, 360.0, 2},
        {"two worlds and a bit", 800, 360.0, 3},          {"the world is cut to whole pixels", 361, 180.9, 3},
        {"world below one pixel", 300, 0.5, 1},           {"world of no width", 300, 0.0, 1},
        {"world the wrong way round", 300, -100.0, 1},    {"infinite world", 300, infinity, 1},
        {"world of unknown width", 300, notANumber, 1},   {"no device", 0, 360.0, 1},
    };
    table.forEach([](int imageWidth, double worldWidth, int last) {
        const PlainRenderer renderer(KRGPXTrackSelection(), QSize(10, 10), 1.0, worldWidth / 360.0);
        QImage image(imageWidth, 20, QImage::Format_ARGB32_Premultiplied);
        QPainter painter;
        if (!image.isNull())
            painter.begin(&image);
        const KRIntRange shifts = renderer.visibleShifts(&painter);
        QCOMPARE(shifts.minimum(), -last);
        QCOMPARE(shifts.maximum(), last);
    });
}

void tst_KRGPXTrackRenderer::unseenCopiesChangeNothing()
{
    // On a pixmap every copy is drawn. The pen and the arrow of the line reach into the image, the line does not.
    KRGPXTrackConfiguration wide = configurationOf(StrokeDisplayOption, LineStringTrackShape, ArrowMarkerShape);
    wide.setLineWidth(24.0);
    KRGPXTrackSelection selection = selectionOf(trackAt({{{-100.0, 191.0}, {200.0, 191.0}, {365.0, 191.0}}}), wide);
    selection.addTrack(KRGPXConfiguredTrack(squareAt({355.0, 20.0, 50.0, 50.0}), configurationOf(AllDisplayOptions)));
    selection.addTrack(KRGPXConfiguredTrack(trackAt({{{3.0, 100.0}}}), configurationOf(AllDisplayOptions)));
    const PlainRenderer renderer(selection);
    QPixmap pixmap(360, 180);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.renderWith(painter, HaloRender);
    painter.end();
    const QImage all = pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QCOMPARE(renderer.renderQuickAndDirty(HaloRender), all);
    QVERIFY(alphaAt(all, 300, 179) > 0);
    QVERIFY(alphaAt(all, 0, 40) > 0);
    QVERIFY(alphaAt(all, 359, 100) > 0);
}

void tst_KRGPXTrackRenderer::roundMapsHaveNoCopies()
{
    class RoundRenderer : public KRGPXTrackRenderer
    {
    public:
        explicit RoundRenderer(const KRGPXTrackSelection &selection)
            : KRGPXTrackRenderer(selection, QSize(360, 180), 1.0)
        { }
        QPointF projectPosition(const KRGeoPosition &position) const override
        {
            const double turn = (position.longitude() - KRLongitude(8.0)).radians();
            return QPointF(180.0 + 5000.0 * std::sin(turn), 90.0 - 90.0 * position.latitude().decimalDegrees());
        }
    };
    const KRGPXTrackSegment ring =
        KRGPXTrackSegment::decodeKml(QStringLiteral("7.5,-0.5 8.5,-0.5 8.5,0.5 7.5,0.5 7.5,-0.5"));
    const KRGPXTrack area(QStringLiteral("area"), QString(), {ring}, PolygonTrackShape);
    const RoundRenderer renderer(selectionOf(area, configurationOf(FillDisplayOption)));
    // 180 and -180 are one place here, but for what computing leaves of their difference
    QVERIFY(!renderer.aroundTheWorldOffset().isNull());
    QVERIFY(renderer.aroundTheWorldOffset().manhattanLength() < 1e-9);
    QCOMPARE(alphaAt(renderer.render(StyledRender), 180, 90), 64);
}

void tst_KRGPXTrackRenderer::markers()
{
    const KRGPXTrack point = trackAt({{{180.0, 90.0}}}, PointTrackShape);
    const QVector<int> ring{0, 128, 128, 0, 0}; // a disk of radius 10 with a pen of 10
    // alphas: at distances 0, 8, 12, 16 and 21 east of pixel (180, 90)
    const KRTestTable<KRGPXTrack, int, int, int, QVector<int>> table{
        {"point: stroke", point, PointTrackShape, StrokeDisplayOption, StyledRender, ring},
        {"point: fill", point, PointTrackShape, FillDisplayOption, StyledRender, {64, 64, 0, 0, 0}},
        {"point: nothing", point, PointTrackShape, NoDisplayOption, StyledRender, {0, 0, 0, 0, 0}},
        {"point: the third flag draws nothing", point, PointTrackShape, MarkDisplayOption, HaloRender, {0, 0, 0, 0, 0}},
        {"point: halo widens the pen only",
         point,
         PointTrackShape,
         StrokeDisplayOption,
         HaloRender,
         {0, 128, 128, 128, 0}},
        {"point: opaque", point, PointTrackShape, NoDisplayOption, OpaqueRender, {255, 255, 255, 255, 0}},
        {"line of one point", trackAt({{{180.0, 90.0}}}), LineStringTrackShape, StrokeDisplayOption, StyledRender,
         ring},
        {"short line: at its first point", trackAt({{{180.0, 90.0}, {177.0, 90.0}}}), LineStringTrackShape,
         StrokeDisplayOption, StyledRender, ring},
        {"area of one point", trackAt({{{180.0, 90.0}}}), PolygonTrackShape, StrokeDisplayOption, StyledRender, ring},
        {"area as a point: in its middle", trackAt({{{150, 60}, {210, 60}, {210, 120}, {150, 120}, {150, 60}}}),
         PointTrackShape, StrokeDisplayOption, StyledRender, ring},
        {"no point", trackAt({}), LineStringTrackShape, StrokeDisplayOption, StyledRender, {0, 0, 0, 0, 0}},
        {"no point: as a point",
         trackAt({Pixels()}),
         PointTrackShape,
         AllDisplayOptions,
         OpaqueRender,
         {0, 0, 0, 0, 0}},
    };
    table.forEach([&](const KRGPXTrack &track, int shape, int displayOptions, int option, QVector<int> expectedAlphas) {
        KRGPXTrackConfiguration configuration =
            configurationOf(KRGPXTrackDisplayOptionsEnum(displayOptions), KRGPXTrackShapeEnum(shape));
        configuration.setLineWidth(10.0);
        const QImage image = PlainRenderer(selectionOf(track, configuration)).render(TrackRenderOption(option));
        QVector<int> alphas;
        for (const int distance : {0, 8, 12, 16, 21})
            alphas.append(alphaAt(image, 180 + distance, 90));
        QCOMPARE(alphas, expectedAlphas);
    });
}

void tst_KRGPXTrackRenderer::invalidPositionHasNoMarker()
{
    // 720 degrees project onto the equator two and a half worlds further east, so that a copy would be in view
    const KRGPXTrack nowhere(QString(), QString(),
                             {KRGPXTrackSegment(KRGPXTrackPoint(KRGeoPosition(), 0, QDateTime(), QString()))},
                             PointTrackShape);
    const KRGeoPositionRect world(KRGeoPosition(-85.0511287798066, -180.0), KRGeoPosition(85.0511287798066, 180.0));
    const auto configuration = configurationOf(AllDisplayOptions, PointTrackShape);
    QVERIFY(
        isEmpty(MercatorRenderer(selectionOf(nowhere, configuration), world, QSize(300, 300)).render(OpaqueRender)));
}

void tst_KRGPXTrackRenderer::arrows()
{
    const KRTestTable<Pixels, double, double, QVector<QPoint>, QPoint> table{
        // barbs of half the distance from start to end, 30 degrees to both sides of the line
        {"east", Pixels{{100, 90}, {160, 90}}, 1.0, 0.0, QVector<QPoint>{{136, 76}, {136, 103}}, QPoint(128, 72)},
        {"west", Pixels{{160, 90}, {100, 90}}, 1.0, 180.0, QVector<QPoint>{{123, 76}, {123, 103}}, QPoint(132, 72)},
        {"south", Pixels{{180, 60}, {180, 120}}, 1.0, 270.0, QVector<QPoint>{{166, 96}, {193, 96}}, QPoint(162, 88)},
        {"at most 100 pixels", Pixels{{20, 90}, {180, 90}, {340, 90}}, 1.0, 0.0, QVector<QPoint>{{256, 42}, {256, 137}},
         QPoint(240, 32)},
        {"at least 10 pixels", Pixels{{176, 90}, {184, 90}}, 1.0, 0.0, QVector<QPoint>{{174, 82}, {174, 97}},
         QPoint(166, 80)},
        {"on a dense screen", Pixels{{100, 90}, {160, 90}}, 2.0, 0.0, QVector<QPoint>{{110, 61}, {110, 118}},
         QPoint(92, 50)},
        {"only the end of the line counts", Pixels{{100, 170}, {100, 90}, {160, 90}}, 1.0, 0.0,
         QVector<QPoint>{{122, 68}, {122, 111}}, QPoint(111, 60)},
        {"copy beyond the date line", Pixels{{330, 90}, {30, 90}}, 1.0, 0.0, QVector<QPoint>{{6, 76}, {6, 103}},
         QPoint(358, 72)},
    };
    table.forEach([](const Pixels &line, double factor, double angle, const QVector<QPoint> &covered, QPoint empty) {
        const auto withArrow = configurationOf(StrokeDisplayOption, LineStringTrackShape, ArrowMarkerShape);
        const KRGPXTrack track = trackAt({line});
        const PlainRenderer renderer(selectionOf(track, withArrow), QSize(360, 180), factor);
        QVERIFY(std::abs(renderer.detectAngleOfPath(renderer.createPainterPath(track, 100, 1)) - angle) < 1e-6);

        const QImage image = renderer.render(OpaqueRender);
        for (const QPoint &pixel : covered)
            QCOMPARE(alphaAt(image, pixel.x(), pixel.y()), 255);
        QCOMPARE(alphaAt(image, empty.x(), empty.y()), 0);
        const QImage without = PlainRenderer(selectionOf(track), QSize(360, 180), factor).render(OpaqueRender);
        QCOMPARE(alphaAt(without, covered.first().x(), covered.first().y()), 0);
    });
}

void tst_KRGPXTrackRenderer::crop()
{
    const QSize same(360, 180);
    const KRTestTable<int, QSize, int> table{
        {"nothing remains", 0, same, 0},
        {"something remains", 100, same, 100},
        {"everything remains", 255, same, 255},
        {"below the range", -5, same, 0},
        {"above the range", 300, same, 255},
        {"map larger than the target", 100, QSize(400, 250), 100},
        {"map smaller than the target", 100, QSize(200, 100), 100},
    };
    table.forEach([](int opacity, const QSize &mapSize, int clamped) {
        KRGPXTrackSelection selection = selectionOf(squareAt(square.translated(0.5, 0.5)));
        selection.setCroppingOpacity(opacity);
        const PlainRenderer renderer(selection);
        QImage map(mapSize, QImage::Format_ARGB32);
        map.fill(QColor(10, 200, 30, 77));
        const QImage cropped = renderer.crop(map);
        if (clamped == 255) {
            QCOMPARE(cropped, map);
            return;
        }
        QCOMPARE(cropped.format(), QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(cropped.size(), mapSize);
        QCOMPARE(map.pixelColor(1, 1), QColor(10, 200, 30, 77));
        const QImage mask = renderer.render(OpaqueRender);
        int edges = 0;
        for (int y = 0; y < mapSize.height(); ++y) {
            for (int x = 0; x < mapSize.width(); ++x) {
                const int drawn = mask.valid(x, y) ? alphaAt(mask, x, y) : 0;
                QCOMPARE(alphaAt(cropped, x, y), clamped + drawn * (255 - clamped) / 255);
                edges += drawn > 0 && drawn < 255 ? 1 : 0;
            }
        }
        QVERIFY(edges > 50);
        QCOMPARE(alphaAt(cropped, 130, 90), 255);
        QCOMPARE(alphaAt(cropped, 50, 50), clamped);
    });
}

void tst_KRGPXTrackRenderer::cropOfFormats()
{
    const QSize large(700, 400);
    const KRTestTable<QImage::Format, QSize> table{
        {"colours and alpha", QImage::Format_ARGB32, large},
        {"premultiplied", QImage::Format_ARGB32_Premultiplied, large},
        {"premultiplied, one row", QImage::Format_ARGB32_Premultiplied, QSize(20000, 1)},
        {"premultiplied, one column", QImage::Format_ARGB32_Premultiplied, QSize(1, 500)},
        {"premultiplied, many pages of memory", QImage::Format_ARGB32_Premultiplied, QSize(1100, 1000)},
        {"no alpha", QImage::Format_RGB32, large},
        {"16 bits", QImage::Format_RGB16, large},
        {"64 bits", QImage::Format_RGBA64, large},
        {"table of colours", QImage::Format_Indexed8, large},
        {"table of two colours", QImage::Format_Mono, large},
    };
    table.forEach([](const QImage::Format &format, const QSize &size) {
        QImage map(size, QImage::Format_ARGB32);
        for (int y = 0; y < map.height(); ++y)
            for (int x = 0; x < map.width(); ++x)
                map.setPixel(x, y, qRgba(x & 255, y & 255, (x * y) & 255, (x / 3 + 5 * y) & 255));
        map = map.convertToFormat(format);
        map.setDevicePixelRatio(2.0);
        map.setText(QStringLiteral("Title"), QStringLiteral("map"));

        KRGPXTrackSelection selection = selectionOf(squareAt(square), configurationOf(AllDisplayOptions));
        selection.setCroppingOpacity(100);
        const PlainRenderer renderer(selection, QSize(500, 300));
        const QImage mask = renderer.render(OpaqueRender);
        QImage expected = map.convertToFormat(QImage::Format_ARGB32);
        for (int y = 0; y < map.height(); ++y) {
            for (int x = 0; x < map.width(); ++x) {
                const int drawn = mask.valid(x, y) ? alphaAt(mask, x, y) : 0;
                const QRgb color = expected.pixel(x, y);
                expected.setPixel(x, y, qRgba(qRed(color), qGreen(color), qBlue(color), 100 + drawn * 155 / 255));
            }
        }
        expected = expected.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        const QImage cropped = renderer.crop(map);
        QCOMPARE(cropped, expected);
        QCOMPARE(cropped.devicePixelRatio(), 2.0);
        QCOMPARE(cropped.text(QStringLiteral("Title")), QStringLiteral("map"));
    });
}

void tst_KRGPXTrackRenderer::cropKeepsColours()
{
    KRGPXTrackSelection selection = selectionOf(squareAt(square));
    selection.setCroppingOpacity(100);
    QImage map(360, 180, QImage::Format_RGB32);
    map.fill(QColor(10, 200, 30));
    const QImage cropped = PlainRenderer(selection).crop(map);
    QCOMPARE(cropped.pixelColor(130, 90), QColor(10, 200, 30));
    const QColor outside = cropped.pixelColor(50, 50);
    QVERIFY(std::abs(outside.red() - 10) <= 2 && std::abs(outside.green() - 200) <= 2
            && std::abs(outside.blue() - 30) <= 2);

    QVERIFY(PlainRenderer(selection).crop(QImage()).isNull());
    KRGPXTrackSelection nothing;
    nothing.setCroppingOpacity(0);
    QCOMPARE(PlainRenderer(nothing).crop(map), map);
}

void tst_KRGPXTrackRenderer::otherThreadsDrawTheSame()
{
    KRGPXTrackSelection selection = selectionOf(randomTrack(20000), configurationOf(AllDisplayOptions));
    selection.setCroppingOpacity(40);
    const PlainRenderer renderer(selection);
    QImage map(360, 180, QImage::Format_RGB32);
    map.fill(Qt::darkGreen);
    const QImage expected = renderer.render(StyledRender);
    const QImage expectedCrop = renderer.crop(map);
    QVERIFY(!isEmpty(expected));

    std::vector<std::unique_ptr<QThread>> threads;
    std::vector<QImage> images(3);
    std::vector<QImage> crops(3);
    for (std::size_t i = 0; i < images.size(); ++i) {
        threads.emplace_back(QThread::create([&renderer, &map, image = &images[i], cropped = &crops[i]] {
            *image = renderer.render(StyledRender);
            *cropped = renderer.crop(map);
        }));
        threads.back()->start();
    }
    for (const std::unique_ptr<QThread> &thread : threads)
        thread->wait();
    for (std::size_t i = 0; i < images.size(); ++i) {
        QCOMPARE(images[i], expected);
        QCOMPARE(crops[i], expectedCrop);
    }
}

void tst_KRGPXTrackRenderer::awkwardTracks()
{
    const KRTestTable<Pixels> table{
        {"nothing", {}},
        {"not a number", Pixels{{notANumber, notANumber}}},
        {"infinite", Pixels{{infinity, -infinity}, {-infinity, infinity}}},
        {"invalid markers", Pixels{{900.0, -630.0}, {900.0, -630.0}, {180.0, 90.0}}},
        {"poles", Pixels{{0.0, 0.0}, {180.0, 180.0}, {360.0, 0.0}}},
        {"beyond all ranges", Pixels{{180.0, 90.0}, {1e300, -1e300}, {-1e18, 1e12}, {1e9, 1e9}}},
    };
    table.forEach([](const Pixels &pixels) {
        // alone and before a line that must show all the same
        const KRGeoPositionRect area(KRGeoPosition(-60.0, -150.0), KRGeoPosition(60.0, 150.0));
        for (const auto shape :
             {PointTrackShape, LineStringTrackShape, PolygonTrackShape, HopTrackShape, UnknownTrackShape}) {
            KRGPXTrackConfiguration configuration = configurationOf(AllDisplayOptions, shape, ArrowMarkerShape);
            configuration.setPenStyle(KRPenStyle(Qt::DashDotLine));
            KRGPXTrackSelection selection = selectionOf(trackAt({pixels}, shape), configuration);
            selection.addTrack(
                KRGPXConfiguredTrack(trackAt({{{100.0, 90.0}, {260.0, 90.0}}}), configurationOf(StrokeDisplayOption)));
            selection.setCroppingOpacity(20);
            for (const auto option : {StyledRender, OpaqueRender, HaloRender}) {
                QVERIFY(alphaAt(PlainRenderer(selection).render(option), 180, 90) >= 128);
                const QImage mercator = MercatorRenderer(selection, area, QSize(300, 200)).render(option);
                QVERIFY(alphaAt(mercator, 150, 99) >= 128);
            }
        }
    });
}

void tst_KRGPXTrackRenderer::awkwardImages()
{
    const QSize normal(360, 180);
    const KRTestTable<QSize, double, double, double, bool> table{
        {"no area", QSize(0, 0), 1.0, 1.0, 4.0, false},
        {"no height", QSize(360, 0), 1.0, 1.0, 4.0, false},
        {"negative normal", QSize(-5, -5), 1.0, 1.0, 4.0, false},
        {"too large for any memory", QSize(2000000000, 2000000000), 1.0, 1.0, 4.0, false},
        {"line without width is a hairline", normal, 1.0, 1.0, 0.0, true},
        {"negative line width", normal, 1.0, 1.0, -4.0, true},
        {"line width not a number", normal, 1.0, 1.0, notANumber, true},
        {"infinite line width", normal, 1.0, 1.0, infinity, true},
        {"huge line width", normal, 1.0, 1.0, 1e12, true},
        {"rendering factor 0", normal, 0.0, 1.0, 4.0, true},
        {"rendering factor not a number", normal, notANumber, 1.0, 4.0, false},
        {"world of no width", normal, 1.0, 0.0, 4.0, true},
        {"world below a pixel", normal, 1.0, 0.002, 4.0, true},
        {"world of unknown width", normal, 1.0, notANumber, 4.0, false},
        {"infinite world", normal, 1.0, infinity, 4.0, false},
    };
    table.forEach([&](const QSize &size, double factor, double pixelsPerDegree, double lineWidth, bool drawn) {
        KRGPXTrackConfiguration configuration = configurationOf(AllDisplayOptions, AutoTrackShape, ArrowMarkerShape);
        configuration.setLineWidth(lineWidth);
        KRGPXTrackSelection selection = selectionOf(trackAt({{{100.0, 90.0}, {260.0, 90.0}}}), configuration);
        selection.addTrack(KRGPXConfiguredTrack(squareAt(square), configuration));
        selection.addTrack(KRGPXConfiguredTrack(trackAt({{{300.0, 50.0}}}, PointTrackShape), configuration));
        selection.setCroppingOpacity(20);
        const PlainRenderer renderer(selection, size, factor, pixelsPerDegree);
        QCOMPARE(!isEmpty(renderer.render(StyledRender)), drawn);
        QCOMPARE(!isEmpty(renderer.renderForeground()), drawn);
        QImage map(50, 40, QImage::Format_RGB32);
        map.fill(Qt::white);
        QCOMPARE(renderer.crop(map).size(), map.size());
    });
}

static const KRTestRegistration<tst_KRGPXTrackRenderer> registration;

#include "tst_KRGPXTrackRenderer.moc"
