#include <KRGeoLocation/KRGPXTrackRenderer.h>

#include "KRTest.h"
#include "KRTestMap.h"

#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXTrackConfiguration.h>
#include <KRGeoLocation/KRMapProjection.h>

#include <QPainter>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace {

struct Degrees {
    double latitude;
    double longitude;
};
using Places = QVector<Degrees>;

constexpr double greatest = std::numeric_limits<double>::max();
constexpr double mercatorLimit = 85.0511287798066;

class MercatorRenderer : public KRGPXTrackRenderer
{
public:
    MercatorRenderer(const KRGPXConfiguredTrack &track, const KRTestMap &area, const QSize &size)
        : KRGPXTrackRenderer(selectionOf(track), size, 1.0), m_projection(area.projection(size)), m_track(track)
    { }

    KRGPXConfiguredTrack track() const { return m_track; }
    QPointF projectPosition(const KRGeoPosition &position) const override { return m_projection.projectate(position); }

private:
    static KRGPXTrackSelection selectionOf(const KRGPXConfiguredTrack &track)
    {
        KRGPXTrackSelection selection{KRGPXConfiguredTrackList(track)};
        selection.setCroppingOpacity(0);
        return selection;
    }

    KRMapProjection m_projection;
    KRGPXConfiguredTrack m_track;
};

KRGPXTrack trackOf(const Places &places, const KRGPXTrackShape &shape = LineStringTrackShape)
{
    KRGPXTrackSegment segment;
    for (const Degrees &place : places)
        segment.append(place.latitude, place.longitude, 0, QDateTime(), QString());
    return KRGPXTrack(QString(), QString(), {segment}, shape);
}

/// Where a picture has colour, and how much of that there is in any rectangle of it.
class Painted
{
public:
    explicit Painted(const QImage &image, int leastAlpha = 1)
        : m_image(image), m_leastAlpha(leastAlpha),
          m_sums(std::size_t(image.width() + 1) * std::size_t(image.height() + 1))
    {
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                m_sums[index(x + 1, y + 1)] = sum(x, y + 1) + sum(x + 1, y) - sum(x, y) + (isAt(x, y) ? 1 : 0);
    }

    bool isEmpty() const { return m_sums.back() == 0; }

    /// Whether there is colour within @p distance of everything that is painted on the other picture.
    bool isNear(const Painted &other, int distance) const
    {
        for (int y = 0; y < m_image.height(); ++y)
            for (int x = 0; x < m_image.width(); ++x)
                if (other.isAt(x, y) && !hasAround(x, y, distance))
                    return false;
        return true;
    }

private:
    bool isAt(int x, int y) const { return qAlpha(m_image.pixel(x, y)) >= m_leastAlpha; }
    bool hasAround(int x, int y, int distance) const
    {
        const int left = std::max(0, x - distance);
        const int top = std::max(0, y - distance);
        const int right = std::min(m_image.width(), x + distance + 1);
        const int bottom = std::min(m_image.height(), y + distance + 1);
        // what comes in over the edge of one picture may still be beyond that of the other
        return right - left < 2 * distance + 1 || bottom - top < 2 * distance + 1
               || sum(right, bottom) - sum(left, bottom) - sum(right, top) + sum(left, top) > 0;
    }
    std::size_t index(int x, int y) const { return std::size_t(y) * std::size_t(m_image.width() + 1) + std::size_t(x); }
    int sum(int x, int y) const { return m_sums[index(x, y)]; }

    QImage m_image;
    int m_leastAlpha;
    std::vector<int> m_sums;
};

/// All that the pen may reach, of all copies of the world.
QImage reachOf(const MercatorRenderer &renderer)
{
    QImage image(renderer.targetImageSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const KRGPXConfiguredTrack track = renderer.track();
    QPainterPath path = renderer.createPainterPath(track);
    double reach = 4.0 + track.lineWidth().toDouble();
    if (path.isEmpty() || track.effectiveShape() == PointTrackShape) {
        const KRGeoPositionList points = track.drawingPoints();
        path = QPainterPath(points.isEmpty() ? QPointF() : renderer.projectPosition(points.first()));
        path.lineTo(path.currentPosition() + QPointF(1e-3, 0.0));
        reach *= 3.0;
    } else {
        reach += 100.0; // an arrow
    }
    painter.setPen(QPen(Qt::black, 2.0 * reach, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (track.effectiveShape() == PolygonTrackShape)
        painter.setBrush(Qt::black);
    const double world = renderer.aroundTheWorldOffset().x();
    const int copies = std::abs(world) >= 1.0 ? 8 + renderer.targetImageSize().width() / int(std::abs(world)) : 0;
    for (int i = -copies; i <= copies; ++i)
        painter.drawPath(path.translated(i * world, 0.0));
    return image;
}

KRGPXTrackConfiguration configurationOf(const KRGPXTrackShape &shape, const KRGPXMarkerShape &marker, int alpha,
                                        int smoothingStrength = 100)
{
    return KRGPXTrackConfiguration(QColor(255, 0, 0, alpha), 4.0, QColor(0, 0, 255, alpha), 6.0, AllDisplayOptions,
                                   marker, shape, KRPenStyle(1), smoothingStrength, 3);
}

double wrapped(double longitude)
{
    return std::remainder(longitude, 360.0);
}

} // namespace

class tst_KRGPXTrackRendererExtremes : public QObject
{
    Q_OBJECT

private slots:
    void lawsHold()
    {
        Places ring, rounds, betweenPoles, overDateLine;
        for (int i = -18; i <= 18; ++i)
            ring << Degrees{0.0, i * 10.0};
        for (int i = 0; i < 300; ++i) {
            rounds << Degrees{51.6 * std::sin(i * 0.17), wrapped(i * 95.0)};
            betweenPoles << Degrees{i % 2 == 0 ? 90.0 : -90.0, i * 1.2 - 180.0};
            overDateLine << Degrees{i * 0.5 - 75.0, i % 2 == 0 ? 179.0 : -179.0};
        }
        const KRTestTable<Places> table{
            {"nothing", {}},
            {"one point", {{10, 20}}},
            {"two points", {{10, 20}, {-30, 100}}},
            {"along the date line", {{60, 180}, {-60, 180}, {-70, -180}, {70, -180}}},
            {"around the equator", ring},
            {"around and around", rounds},
            {"between the poles", betweenPoles},
            {"across the date line", overDateLine},
            {"the whole world", {{-90, -180}, {-90, 180}, {90, 180}, {90, -180}, {-90, -180}}},
            {"not valid", {{720, 720}, {10, 20}, {91, 200}, {30, 40}}},
            {"not finite", {{qQNaN(), 0}, {0, qInf()}, {10, 20}, {qInf(), -qInf()}, {30, 40}}},
            {"absurd", {{greatest, -greatest}, {10, 20}, {-1e300, 1e18}, {1e-310, 1e-310}, {30, 40}}},
        };
        const QVector<KRTestMap> areas{{-mercatorLimit, mercatorLimit, -180, 180},
                                       {0, 60, -10, 30},
                                       {-20, 20, 170, -170},
                                       {-90, 90, -180, 180},
                                       {89, 90, -10, 10},
                                       {-90, -89, -10, 10},
                                       {20, 20 + 1e-9, 10, 10 + 1e-9},
                                       {20, 20, 10, 10},
                                       {20, 20, 10, 20},
                                       {20, 30, 10, 10},
                                       {-9, 9, 180, -180},
                                       {720, 720, 720, 720},
                                       {qQNaN(), 1, qQNaN(), 1},
                                       {60, 35, -10, 30},
                                       {-89, 89, -1e300, 1e300},
                                       {-qInf(), qInf(), -qInf(), qInf()},
                                       {0, 1e-310, 0, 1e-310}};
        table.forEach([&](const Places &places) {
            for (int i = 0; i < areas.size() && !QTest::currentTestFailed(); ++i)
                for (const QSize &size : {QSize(150, 100), QSize(1, 1), QSize(200, 2), QSize(0, 10)})
                    for (const auto shape : {LineStringTrackShape, PolygonTrackShape, PointTrackShape})
                        checkLaws(places, shape, areas.at(i), size, QByteArray::number(i));
        });
    }

    void turnedWorldLooksTheSame()
    {
        const int line = LineStringTrackShape;
        const int area = PolygonTrackShape;
        // shape, legs, longest step in degrees, marker, smoothing strength, and the tolerance in pixels beside one for
        // each world that the pictures are apart
        const KRTestTable<int, int, double, int, int, int> table{
            {"around the world", line, 30, 170.0, NoMarkerShape, 100, 1},
            {"arrow", line, 4, 60.0, ArrowMarkerShape, 100, 4},
            {"area", area, 12, 60.0, NoMarkerShape, 100, 1},
            {"smooth area", area, 12, 60.0, NoMarkerShape, 30, 1},
            {"marker", PointTrackShape, 0, 0.0, RhombusMarkerShape, 100, 1},
        };
        table.forEach(checkTurnedWorlds);
    }

    void extremePens()
    {
        // Through a narrow picture, away by a million pixels and back. Widths of files may be any number.
        const Places far{{-0.01, 0}, {1, 0}, {1, 170}, {0, -170}, {0, 0.1}, {-1, 0.1}};
        const KRTestMap area{-0.01, 0.01, -0.05, 0.05};
        for (const double width : {-1.0, 1e-6, 0.4, 1.0, 1e4, 1e300, qQNaN()}) {
            for (int style = Qt::NoPen; style <= Qt::DashDotDotLine; ++style) {
                for (const auto shape : {LineStringTrackShape, PolygonTrackShape, PointTrackShape}) {
                    KRGPXTrackConfiguration look = configurationOf(shape, Star12MarkerShape, 255);
                    look.setLineWidth(width);
                    look.setPenStyle(KRPenStyle(style));
                    const KRGPXConfiguredTrack track(trackOf(shape == PointTrackShape ? far.mid(0, 1) : far), look);
                    for (const QSize &size : {QSize(300, 60), QSize(16384, 1)}) {
                        const MercatorRenderer renderer(track, area, size);
                        QVERIFY(!renderer.render(StyledRender).isNull());
                        // the inside of a giant pen, and of a giant star
                        const QImage opaque = renderer.render(OpaqueRender);
                        const QRgb middle = opaque.pixel(opaque.rect().center());
                        QVERIFY(width < 1e4 || std::isnan(width) || qAlpha(middle) == 255);
                    }
                }
            }
        }
    }

private:
    static void checkLaws(const Places &places, KRGPXTrackShapeEnum shape, const KRTestMap &area, const QSize &size,
                          const QByteArray &areaName)
    {
        const QByteArray place = "area " + areaName + ", shape " + QByteArray::number(int(shape)) + ", width "
                                 + QByteArray::number(size.width());
        const auto marker = shape == PointTrackShape ? XMarkerShape : ArrowMarkerShape;
        const KRGPXTrack track = trackOf(places);
        const MercatorRenderer renderer(KRGPXConfiguredTrack(track, configurationOf(shape, marker, 255)), area, size);
        const QImage image = renderer.render(StyledRender);
        QCOMPARE(image.isNull(), size.isEmpty());
        if (image.isNull())
            return;
        const Painted painted(image);
        const KRGeoPositionList marked = renderer.track().drawingPoints();
        const bool hasPlace = !marked.isEmpty()
                              && (shape != PointTrackShape
                                  || (marked.first().latitude().isValid() && marked.first().longitude().isValid()));
        QVERIFY2(hasPlace || painted.isEmpty(), place.constData());
        // The plain painter miscalculates what is farther away than this.
        if (renderer.aroundTheWorldOffset().x() < 1e7)
            QVERIFY2(Painted(reachOf(renderer)).isNear(painted, 0), place.constData());
        const KRGPXConfiguredTrack translucent(track, configurationOf(shape, marker, 50));
        const QImage pale = MercatorRenderer(translucent, area, size).render(StyledRender);
        QVERIFY2(Painted(pale).isNear(Painted(image, 16), 0) && painted.isNear(Painted(pale), 0), place.constData());
        QImage map(size, QImage::Format_RGB32);
        map.fill(Qt::white);
        QVERIFY2(Painted(renderer.crop(map), 255).isNear(Painted(image, 255), 0), place.constData());
    }

    static void checkTurnedWorlds(int shape, int legs, double longestStep, int marker, int smoothingStrength,
                                  int tolerance)
    {
        const KRGPXTrackShape trackShape = KRGPXTrackShapeEnum(shape);
        const auto configuration = configurationOf(trackShape, KRGPXMarkerShapeEnum(marker), 255, smoothingStrength);
        const QSize size(300, 200);
        int seen = 0;
        for (unsigned seed = 0; seed < 8; ++seed) {
            std::mt19937 random(seed);
            const auto between = [&random](double from, double to) {
                return std::uniform_real_distribution<double>(from, to)(random);
            };
            const double west = between(-180.0, 180.0);
            const double span = between(30.0, 350.0);
            const double south = between(-60.0, 30.0);
            const double north = south + between(10.0, 30.0);
            double latitude = between(south, north);
            double longitude = west + between(0.0, span);
            Places outline, hole;
            if (shape == PolygonTrackShape) {
                for (int i = 0; i <= legs; ++i) {
                    const double angle = 2.0 * M_PI * i / legs;
                    outline << Degrees{latitude + 30.0 * std::sin(angle), longitude + longestStep * std::cos(angle)};
                    hole << Degrees{latitude + 12.0 * std::sin(angle), longitude + 5.0 + 20.0 * std::cos(angle)};
                }
            } else {
                for (int i = 0; i <= legs; ++i) {
                    outline << Degrees{latitude, longitude};
                    latitude = qBound(-65.0, latitude + between(-15.0, 15.0), 65.0);
                    longitude += between(0.3, 1.0) * (random() % 4 == 0 ? -longestStep : longestStep);
                }
            }
            const auto picture = [&](double turn) {
                const auto turned = [turn](Places places) {
                    for (Degrees &place : places)
                        place.longitude = wrapped(place.longitude + turn);
                    return places;
                };
                KRGPXTrack track = trackOf(turned(outline), trackShape);
                if (!hole.isEmpty())
                    track.addEnclave(trackOf(turned(hole), PolygonTrackShape));
                const KRTestMap area{south, north, wrapped(west + turn), wrapped(west + span + turn)};
                return MercatorRenderer(KRGPXConfiguredTrack(track, configuration), area, size).render(StyledRender);
            };
            const QImage reference = picture(0.0);
            const Painted painted(reference, 128);
            seen += painted.isEmpty() ? 0 : 1;
            const int distance = tolerance + 2 + int(outline.size() * longestStep / 360.0);
            for (int turn = 30; turn < 360; turn += 90) {
                const QImage turnedImage = picture(turn);
                const Painted turnedPicture(turnedImage, 128);
                const QByteArray place = "seed " + QByteArray::number(seed) + ", turned by " + QByteArray::number(turn);
                QVERIFY2(turnedPicture.isNear(painted, distance) && painted.isNear(turnedPicture, distance),
                         place.constData());
            }
        }
        QVERIFY(seen > 4);
    }
};

template class KRTestRegistration<tst_KRGPXTrackRendererExtremes>;

#include "tst_KRGPXTrackRendererExtremes.moc"
