#include <KRGeoLocation/KRGPXTrackRenderer.h>

#include "KRTest.h"
#include "KRTestPicture.h"

#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXTrackConfiguration.h>

#include <QPainter>
#include <QPixmap>

#include <cmath>
#include <random>

namespace {

using Pixels = QVector<QPointF>;

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

/// A track through pixels of the PlainRenderer.
KRGPXTrack trackAt(const QVector<Pixels> &segments, const KRGPXTrackShape &shape = LineStringTrackShape)
{
    QList<KRGPXTrackSegment> all;
    for (const Pixels &pixels : segments) {
        all.append(KRGPXTrackSegment());
        for (const QPointF &pixel : pixels)
            all.last().append(90.0 - pixel.y(), pixel.x() - 180.0, 0, QDateTime(), QString());
    }
    return KRGPXTrack(QStringLiteral("track"), QString(), all, shape);
}

KRGPXTrack squareAt(const QRectF &rect)
{
    return trackAt({QPolygonF(rect)}, PolygonTrackShape);
}

KRGPXTrackConfiguration configurationOf(int options, int shape = AutoTrackShape, int marker = DiskMarkerShape,
                                        double lineWidth = 4.0)
{
    return KRGPXTrackConfiguration(QColor(255, 0, 0, 128), lineWidth, QColor(0, 0, 255, 64), 6.0,
                                   KRGPXTrackDisplayOptionsEnum(options), KRGPXMarkerShapeEnum(marker),
                                   KRGPXTrackShapeEnum(shape), KRPenStyle(1), 100, 1);
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

/// Eastwards and around the world.
Pixels randomWalk(int count)
{
    std::mt19937 random(4711);
    std::normal_distribution<double> step(0.4, 1.0);
    Pixels pixels;
    QPointF pixel(300.0, 90.0);
    for (int i = 0; i < count; ++i) {
        pixel += QPointF(step(random), step(random) - 0.4);
        pixels.append(QPointF(std::fmod(pixel.x(), 360.0), qBound(5.0, pixel.y(), 175.0)));
    }
    return pixels;
}

const QRectF square(100.0, 60.0, 60.0, 60.0);

// the colours of configurationOf()
constexpr QRgb red = 0x80ff0000;
constexpr QRgb blue = 0x400000ff;
constexpr QRgb fullRed = 0xffff0000;
constexpr QRgb fullBlue = 0xff0000ff;

struct Seen {
    int x;
    QRgb color;
};
/// In the middle row of a picture.
using Sight = QVector<Seen>;

/// Outside the square, in the halo of its line (92 ... 108), on the line (95 ... 105) and inside.
Sight acrossSquare(QRgb outside, QRgb halo, QRgb line, QRgb inside)
{
    return {{90, outside}, {93, halo}, {97, line}, {130, inside}};
}

/// From the middle of a marker outwards: a disk of radius 10 with a pen of 10, or 16 with its halo.
Sight acrossDisk(QRgb middle, QRgb inside, QRgb line, QRgb halo)
{
    return {{180, middle}, {188, inside}, {192, line}, {196, halo}, {201, 0}};
}

} // namespace

class tst_KRGPXTrackRenderer : public QObject
{
    Q_OBJECT

private slots:
    void pictures()
    {
        const int both = StrokeDisplayOption | FillDisplayOption;
        const int stroke = StrokeDisplayOption;
        const int fill = FillDisplayOption;
        const int point = PointTrackShape;
        const int line = LineStringTrackShape;
        const int area = PolygonTrackShape;
        KRGPXTrack box = squareAt(square);
        KRGPXTrack ring = box;
        ring.addEnclave(squareAt(square.adjusted(15.0, 15.0, -15.0, -15.0)));
        const KRGPXTrack threeSides = trackAt({{{100, 60}, {160, 60}, {160, 120}, {100, 120}}});
        const KRGPXTrack place = trackAt({{{180, 90}}});
        const KRGPXTrack nowhere = trackAt({Pixels()});
        const Sight circle = acrossDisk(0, red, red, 0);
        const KRTestTable<KRGPXTrack, int, int, int, Sight> table{
            {"stroke", box, area, stroke, StyledRender, acrossSquare(0, 0, red, 0)},
            {"fill", box, area, fill, StyledRender, acrossSquare(0, 0, 0, blue)},
            {"neither", box, area, NoDisplayOption, StyledRender, acrossSquare(0, 0, 0, 0)},
            {"opaque: both", box, area, NoDisplayOption, OpaqueRender, acrossSquare(0, fullRed, fullRed, fullBlue)},
            {"halo: stroke", box, area, stroke, HaloRender, acrossSquare(0, red, red, 0)},
            {"halo: fill", box, area, fill, HaloRender, acrossSquare(0, 0, 0, blue)},
            {"any other number is halo", box, area, both, 17, acrossSquare(0, red, red, blue)},
            {"enclaves are holes", ring, area, fill, StyledRender, {{107, blue}, {130, 0}}},
            {"enclaves have lines", ring, area, stroke, StyledRender, {{107, 0}, {114, red}, {122, 0}}},
            {"line as area is closed", threeSides, area, both, StyledRender, {{97, red}, {130, blue}}},
            {"line is neither filled nor closed", threeSides, line, both, StyledRender, {{97, 0}, {130, 0}}},
            {"point: stroke", place, point, stroke, StyledRender, circle},
            {"point: fill", place, point, fill, StyledRender, acrossDisk(blue, blue, 0, 0)},
            {"point: the third flag", place, point, MarkDisplayOption, HaloRender, acrossDisk(0, 0, 0, 0)},
            {"point: halo widens the pen only", place, point, stroke, HaloRender, acrossDisk(0, red, red, red)},
            {"point: opaque", place, point, 0, OpaqueRender, acrossDisk(fullBlue, fullRed, fullRed, fullRed)},
            {"line of one point", place, line, stroke, StyledRender, circle},
            {"area as a point", squareAt({150, 60, 60, 60}), point, stroke, StyledRender, circle},
            {"no point, as a point", nowhere, point, AllDisplayOptions, OpaqueRender, acrossDisk(0, 0, 0, 0)},
        };
        table.forEach([](const KRGPXTrack &track, int shape, int options, int renderOption, const Sight &sight) {
            const auto configuration = configurationOf(options, shape, DiskMarkerShape, 10.0);
            const QImage image =
                PlainRenderer(selectionOf(track, configuration)).render(TrackRenderOption(renderOption));
            for (const Seen &seen : sight)
                QCOMPARE(image.pixel(seen.x, 90), seen.color);
        });
        const QImage dense = PlainRenderer(selectionOf(box), QSize(360, 180), 2.0).render(StyledRender);
        QCOMPARE(dense.pixel(97, 90), red);
        QCOMPARE(dense.pixel(95, 90), QRgb(0));
    }

    void dashedLine()
    {
        // Through the image, away by a hundred of its widths, and through it again: some twenty thousand dots, painted
        // one by one here and by the renderer.
        const Pixels far{{100.0, 20.0}, {100.0, 170.0}, {40000.0, 150.0}, {40000.0, 100.0}, {30.0, 60.0}, {30.0, 10.0}};
        const KRTestTable<Pixels, double> table{
            {"long", far, 2.0},
            {"thinner than a pixel", {{20.0, 90.0}, {340.0, 90.0}}, 0.2},
        };
        table.forEach([](const Pixels &pixels, double width) {
            Pixels degrees;
            for (const QPointF &pixel : pixels)
                degrees.append(pixel / 1000.0);
            KRGPXTrackConfiguration configuration = configurationOf(StrokeDisplayOption);
            configuration.setPenStyle(KRPenStyle(Qt::DotLine));
            configuration.setLineWidth(width);
            const PlainRenderer renderer(selectionOf(trackAt({degrees}), configuration), QSize(360, 180), 1.0, 1000.0);
            QImage expected(360, 180, QImage::Format_ARGB32_Premultiplied);
            expected.fill(Qt::transparent);
            QPainter painter(&expected);
            painter.setPen(renderer.penFromTrack(configuration, StyledRender));
            painter.drawPolyline(pixels.constData(), pixels.size());
            painter.end();
            QCOMPARE(renderer.renderQuickAndDirty(StyledRender), expected);
        });
    }

    void antialiasing()
    {
        const PlainRenderer renderer(selectionOf(trackAt({{{100.0, 20.0}, {260.0, 160.0}}})));
        const auto isSmooth = [](const QImage &image) {
            const auto isPartly = [](const QColor &color) { return color.alpha() > 0 && color.alpha() < 255; };
            return KRTestPicture::boundsOf(image, isPartly).isValid();
        };
        const QImage smooth = renderer.render(OpaqueRender);
        QCOMPARE(smooth.format(), QImage::Format_ARGB32);
        QVERIFY(isSmooth(smooth));
        const QImage quick = renderer.renderForeground();
        QCOMPARE(quick.format(), QImage::Format_ARGB32_Premultiplied);
        QVERIFY(!isSmooth(quick) && !isEmpty(quick));
        QCOMPARE(quick, renderer.renderQuickAndDirty(OpaqueRender));
    }

    void laterTracksCoverEarlierOnes()
    {
        KRGPXTrackConfiguration green = configurationOf(StrokeDisplayOption);
        green.setLineColor(Qt::green);
        KRGPXTrackSelection selection = selectionOf(trackAt({{{100.0, 90.0}, {260.0, 90.0}}}));
        selection.addTrack(KRGPXConfiguredTrack(trackAt({{{180.0, 20.0}, {180.0, 160.0}}}), green));
        const QImage image = PlainRenderer(selection).render(StyledRender);
        QCOMPARE(image.pixelColor(180, 90), QColor(Qt::green));
        QCOMPARE(image.pixelColor(100, 90), QColor(255, 0, 0, 128));
    }

    void painterOfTheCaller()
    {
        // three sides of a square, which a brush left in the painter must not fill
        KRGPXTrackSelection selection = selectionOf(trackAt({{{100, 60}, {160, 60}, {160, 120}, {100, 120}}}));
        selection.addTrack(
            KRGPXConfiguredTrack(squareAt(square.translated(80, 0)), configurationOf(FillDisplayOption)));
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
        QCOMPARE(PlainRenderer(selection).visibleShifts(&painter).maximum(), 2);
        QCOMPARE(alphaAt(image, 140, 90), 0);
        QCOMPARE(alphaAt(image, 140, 59), 128);
        QCOMPARE(alphaAt(image, 220, 90), 64);
    }

    void pathOfTrack()
    {
        const QPointF gap(qQNaN(), qQNaN());
        const KRTestTable<QVector<Pixels>, double, Pixels> table{
            {"empty segments", {Pixels(), Pixels()}, 1.0, {}},
            {"one point", {{{10.0, 50.0}}}, 1.0, {}},
            {"four pixels apart", {{{10.0, 50.0}, {12.0, 52.0}}}, 1.0, {}},
            {"five pixels apart", {{{10.0, 50.0}, {15.0, 50.0}}}, 1.0, {{10.0, 50.0}, {15.0, 50.0}}},
            {"five pixels on a dense screen", {{{10.0, 50.0}, {15.0, 50.0}}}, 2.0, {}},
            {"close points are left out, but the last",
             {{{10, 50}, {12, 50}, {15, 50}, {17, 52}, {18, 50}}},
             1,
             {{10, 50}, {15, 50}, {18, 50}}},
            {"gaps are left out", {{gap, {10, 50}, {qInf(), 50}, {20, 50}, gap}}, 1, {{10, 50}, {20, 50}}},
            {"eastwards over the date line",
             {{{350, 50}, {355, 50}}, {}, {{5, 50}}},
             1,
             {{350, 50}, {355, 50}, {365, 50}}},
            {"there and back", {{{355, 50}, {5, 50}, {355, 50}}}, 1, {{355, 50}, {365, 50}, {355, 50}}},
            {"twice around the world",
             {{{180, 50}, {300, 50}, {60, 50}, {181, 50}, {300, 50}, {60, 50}}},
             1,
             {{180, 50}, {300, 50}, {420, 50}, {541, 50}, {660, 50}, {780, 50}}},
            {"a gap is no step over the date line",
             {{{5.0, 50.0}, gap, {20.0, 50.0}}},
             1.0,
             {{5.0, 50.0}, {20.0, 50.0}}},
        };
        table.forEach([](const QVector<Pixels> &segments, double factor, const Pixels &expected) {
            const PlainRenderer renderer(KRGPXTrackSelection(), QSize(360, 180), factor);
            const QPainterPath path = renderer.createPainterPath(trackAt(segments), 100, 1);
            QCOMPARE(path.elementCount(), expected.size());
            for (int i = 0; i < expected.size(); ++i)
                QCOMPARE(QPointF(path.elementAt(i)), expected.at(i));
        });
    }

    void pathOfLongTrack()
    {
        // A long segment is projected in several threads, short ones are not.
        const Pixels walk = randomWalk(20000);
        QVector<Pixels> pieces;
        for (int begin = 0; begin < walk.size(); begin += 100)
            pieces.append(walk.mid(begin, 100));
        const PlainRenderer renderer{KRGPXTrackSelection()};
        const QPainterPath expected = renderer.createPainterPath(trackAt(pieces), 100, 1);
        QVERIFY(expected.controlPointRect().width() > 2.0 * 360.0);
        QCOMPARE(renderer.createPainterPath(trackAt({walk}), 100, 1), expected);
    }

    void smoothing()
    {
        const KRTestTable<int, double> table{
            {"half way to the chord", 50, 20.0},
            {"on the chord", 0, 0.0},
        };
        table.forEach([](int strength, double height) {
            const KRGPXTrack zigzag =
                trackAt({{{20.0, 90.0}, {60.0, 70.0}, {100.0, 110.0}, {140.0, 70.0}, {180.0, 90.0}}});
            KRGPXTrackConfiguration configuration = configurationOf(StrokeDisplayOption);
            configuration.setSmoothingStrength(strength);
            const PlainRenderer renderer{KRGPXTrackSelection()};
            const QPainterPath path = renderer.createPainterPath(KRGPXConfiguredTrack(zigzag, configuration));
            QCOMPARE(path.boundingRect().height(), height);
            QCOMPARE(path.elementAt(0).x, 20.0);
            QCOMPARE(path.currentPosition(), QPointF(180.0, 90.0));
        });
    }

    void dateLineCrossing()
    {
        const KRTestTable<double, double, int> table{
            {"eastwards", 179.0, -179.0, 1},
            {"westwards", -179.0, 179.0, -1},
            {"prime meridian eastwards", -1.0, 1.0, 0},
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

    void unseenCopiesChangeNothing()
    {
        // On a pixmap every copy is drawn. The pen and the arrow of the line reach into the image, the line does not.
        KRGPXTrackConfiguration wide = configurationOf(StrokeDisplayOption, LineStringTrackShape, ArrowMarkerShape);
        wide.setLineWidth(24.0);
        KRGPXTrackSelection selection = selectionOf(trackAt({{{-100.0, 191.0}, {200.0, 191.0}, {365.0, 191.0}}}), wide);
        selection.addTrack(
            KRGPXConfiguredTrack(squareAt({355.0, 20.0, 50.0, 50.0}), configurationOf(AllDisplayOptions)));
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

    void arrows()
    {
        // barbs of half the distance from start to end, 30 degrees to both sides of the line
        const KRTestTable<Pixels, double, double, QPoint, QPoint, QPoint> table{
            {"east", {{100, 90}, {160, 90}}, 1, 0, {136, 76}, {136, 103}, {128, 72}},
            {"south", {{180, 60}, {180, 120}}, 1, 270, {166, 96}, {193, 96}, {162, 88}},
            {"at most 100 pixels", {{20, 90}, {180, 90}, {340, 90}}, 1, 0, {256, 42}, {256, 137}, {240, 32}},
            {"on a dense screen", {{100, 90}, {160, 90}}, 2, 0, {110, 61}, {110, 118}, {92, 50}},
            {"only the end counts", {{100, 170}, {100, 90}, {160, 90}}, 1, 0, {122, 68}, {122, 111}, {111, 60}},
            {"beyond the date line", {{330, 90}, {30, 90}}, 1, 0, {6, 76}, {6, 103}, {358, 72}},
        };
        table.forEach(
            [](const Pixels &line, double factor, double angle, QPoint barb, QPoint otherBarb, QPoint beyond) {
                const auto withArrow = configurationOf(StrokeDisplayOption, LineStringTrackShape, ArrowMarkerShape);
                const PlainRenderer renderer(selectionOf(trackAt({line}), withArrow), QSize(360, 180), factor);
                const QPainterPath path = renderer.createPainterPath(trackAt({line}), 100, 1);
                QVERIFY(std::abs(renderer.detectAngleOfPath(path) - angle) < 1e-6);
                const QImage image = renderer.render(OpaqueRender);
                QCOMPARE(qAlpha(image.pixel(barb)), 255);
                QCOMPARE(qAlpha(image.pixel(otherBarb)), 255);
                QCOMPARE(qAlpha(image.pixel(beyond)), 0);
                const QImage bare =
                    PlainRenderer(selectionOf(trackAt({line})), QSize(360, 180), factor).render(OpaqueRender);
                QCOMPARE(qAlpha(bare.pixel(barb)), 0);
            });
    }

    void crop()
    {
        const QSize large(700, 400);
        const auto straight = QImage::Format_ARGB32;
        const auto premultiplied = QImage::Format_ARGB32_Premultiplied;
        const KRTestTable<QImage::Format, QSize, int> table{
            {"nothing remains", straight, large, 0},
            {"everything remains", straight, large, 255},
            {"below the range", straight, large, -5},
            {"above the range", straight, large, 300},
            {"map smaller than the target", straight, QSize(200, 100), 100},
            {"premultiplied", premultiplied, large, 100},
            {"premultiplied, one row", premultiplied, QSize(20000, 1), 100},
            {"premultiplied, one column", premultiplied, QSize(1, 500), 100},
            {"no alpha", QImage::Format_RGB32, large, 100},
            {"table of colours", QImage::Format_Indexed8, large, 100},
        };
        KRGPXTrackSelection selection = selectionOf(squareAt(square.translated(0.5, 0.5)));
        const QImage mask = PlainRenderer(selection).render(OpaqueRender);
        table.forEach([&](QImage::Format format, const QSize &size, int opacity) {
            QImage map(size, QImage::Format_ARGB32);
            for (int y = 0; y < map.height(); ++y)
                for (int x = 0; x < map.width(); ++x)
                    map.setPixel(x, y, qRgba(x & 255, y & 255, (x * y) & 255, (x / 3 + 5 * y) & 255));
            map = map.convertToFormat(format);
            map.setDevicePixelRatio(2.0);
            map.setText(QStringLiteral("Title"), QStringLiteral("map"));
            const QImage before = map.copy();

            const int least = qBound(0, opacity, 255);
            QImage expected = map.convertToFormat(QImage::Format_ARGB32);
            for (int y = 0; y < map.height(); ++y) {
                for (int x = 0; x < map.width(); ++x) {
                    const int drawn = mask.valid(x, y) ? alphaAt(mask, x, y) : 0;
                    const QRgb color = expected.pixel(x, y) & RGB_MASK;
                    expected.setPixel(x, y, color | (QRgb(least + drawn * (255 - least) / 255) << 24));
                }
            }
            selection.setCroppingOpacity(opacity);
            const QImage cropped = PlainRenderer(selection).crop(map);
            QCOMPARE(cropped, least == 255 ? before : expected.convertToFormat(premultiplied));
            QCOMPARE(cropped.devicePixelRatio(), 2.0);
            QCOMPARE(cropped.text(QStringLiteral("Title")), QStringLiteral("map"));
            QCOMPARE(map, before);
            QVERIFY(PlainRenderer(selection).crop(QImage()).isNull());
        });
        KRGPXTrackSelection empty;
        empty.setCroppingOpacity(0);
        QImage map(30, 20, QImage::Format_RGB32);
        map.fill(Qt::darkGreen);
        QCOMPARE(PlainRenderer(empty).crop(map), map);
    }

    void oneStripForManyCopies()
    {
        const KRTestTable<double, int, int, bool> table{
            {"lines and points", 4.0, DiskMarkerShape, 120, true},
            {"arrows, which reach over several copies", 4.0, ArrowMarkerShape, 120, true},
            {"wider than the world", 60.0, DiskMarkerShape, 120, true},
            {"wider than a strip may be", 2000.0, DiskMarkerShape, 120, false},
            {"few", 4.0, DiskMarkerShape, 20, false},
        };
        table.forEach([](double width, int marker, int count, bool hasStrip) {
            KRGPXTrackSelection selection;
            const Pixels walk = randomWalk(count * 100);
            for (int i = 0; i < count; ++i) {
                const Pixels pixels = walk.mid(i * 100, i % 9 == 0 ? 1 : 100);
                const int shape = i % 9 == 1 ? PolygonTrackShape : AutoTrackShape;
                const auto look = configurationOf(AllDisplayOptions, shape, marker, width);
                selection.addTrack(KRGPXConfiguredTrack(trackAt({pixels}), look));
            }
            const PlainRenderer renderer(selection, QSize(3600, 20), 1.0, 0.1);
            QCOMPARE(renderer.drawnRect(false).size() != renderer.targetImageSize(), hasStrip);
            QCOMPARE(renderer.drawnRect(true).size(), renderer.targetImageSize()); // lines stay lines on pages
            if (!hasStrip)
                return;
            QImage expected(renderer.targetImageSize(), QImage::Format_ARGB32_Premultiplied);
            expected.fill(Qt::transparent);
            QPainter painter(&expected);
            const KRGPXConfiguredTrackList tracks = selection.tracks();
            for (const KRGPXConfiguredTrack &track : tracks)
                renderer.drawTrack(&painter, track, HaloRender);
            QVERIFY(renderer.renderQuickAndDirty(HaloRender) == expected);
        });
    }

    void awkwardImages()
    {
        const QSize normal(360, 180);
        const KRTestTable<QSize, double, double, double, bool> table{
            {"no area", QSize(0, 0), 1.0, 1.0, 4.0, false},
            {"too large for any memory", QSize(2000000000, 2000000000), 1.0, 1.0, 4.0, false},
            {"line without width is a hairline", normal, 1.0, 1.0, 0.0, true},
            {"rendering factor 0", normal, 0.0, 1.0, 4.0, true},
            {"rendering factor not a number", normal, qQNaN(), 1.0, 4.0, false},
            {"world of no width", normal, 1.0, 0.0, 4.0, true},
            {"world below a pixel", normal, 1.0, 0.002, 4.0, true},
            {"world of unknown width", normal, 1.0, qQNaN(), 4.0, false},
            {"infinite world", normal, 1.0, qInf(), 4.0, false},
        };
        table.forEach([&](const QSize &size, double factor, double pixelsPerDegree, double lineWidth, bool drawn) {
            KRGPXTrackConfiguration configuration =
                configurationOf(AllDisplayOptions, AutoTrackShape, ArrowMarkerShape);
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
};

template class KRTestRegistration<tst_KRGPXTrackRenderer>;

#include "tst_KRGPXTrackRenderer.moc"
