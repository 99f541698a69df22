#include <KRGeoLocation/KRGPXTrackRenderer.h>

#include "KRTest.h"

#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXTrackConfiguration.h>

#include <QPainter>

#include <algorithm>
#include <functional>
#include <random>

namespace {

const QSize crowdedSize(120, 90);

/// Ten pixels a degree, the first one at latitude 0 and longitude 0.
class PixelRenderer : public KRGPXTrackRenderer
{
public:
    explicit PixelRenderer(const KRGPXConfiguredTrackList &tracks)
        : KRGPXTrackRenderer(KRGPXTrackSelection(tracks), crowdedSize, 1.0), m_tracks(tracks)
    { }

    QPointF projectPosition(const KRGeoPosition &position) const override
    {
        return 10.0 * QPointF(position.longitude().decimalDegrees(), -position.latitude().decimalDegrees());
    }

    /// What render() paints, but each track for itself.
    QImage renderOneByOne(TrackRenderOption option) const
    {
        QImage image(crowdedSize, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        for (const KRGPXConfiguredTrack &track : m_tracks)
            drawTrack(&painter, track, option);
        painter.end();
        return image.convertToFormat(QImage::Format_ARGB32);
    }

private:
    KRGPXConfiguredTrackList m_tracks;
};

struct Look {
    QColor color;
    double width = 2.0;
    KRGPXTrackShapeEnum shape = LineStringTrackShape;
    int options = StrokeDisplayOption | FillDisplayOption;
    int marker = DiskMarkerShape;
    int penStyle = 1;
};

/// Tracks all over the image and beyond its edges, the same in every run.
class Scatter
{
public:
    int below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(m_engine); }

    /// Through @p count places that are not farther from one another than @p reachPx on either axis.
    KRGPXConfiguredTrack track(int count, int reachPx, const Look &look)
    {
        const QPointF corner(below(crowdedSize.width() + 2 * reachPx) - 1.5 * reachPx,
                             below(crowdedSize.height() + 2 * reachPx) - 1.5 * reachPx);
        KRGPXTrackSegment segment;
        for (int i = 0; i < count; ++i) {
            const QPointF place = corner + QPointF(below(10 * reachPx), below(10 * reachPx)) / 10.0;
            segment.append(-place.y() / 10.0, place.x() / 10.0, 0, QDateTime(), QString());
        }
        const KRGPXTrackConfiguration configuration(
            look.color, look.width, look.color, 0.0, KRGPXTrackDisplayOptionsEnum(look.options),
            KRGPXMarkerShapeEnum(look.marker), look.shape, KRPenStyle(look.penStyle), 100, 1);
        return {KRGPXTrack(QString(), QString(), {segment}, AutoTrackShape), configuration};
    }

private:
    std::mt19937 m_engine{4711};
};

/// How many pixels have a channel that differs by more than @p tolerance.
int differingPixels(const QImage &a, const QImage &b, int tolerance)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = qPremultiply(a.pixel(x, y));
            const QRgb q = qPremultiply(b.pixel(x, y));
            const int most = std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                       std::abs(qBlue(p) - qBlue(q)), std::abs(qAlpha(p) - qAlpha(q))});
            count += most > tolerance ? 1 : 0;
        }
    return count;
}

} // namespace

/// Very many tracks are drawn in other ways than a few, which must not show.
class tst_KRGPXTrackRendererCrowds : public QObject
{
    Q_OBJECT

private slots:
    void looksLikeOneByOne()
    {
        using Make = std::function<KRGPXConfiguredTrack(Scatter *, int)>;
        const QColor half(200, 60, 0, 127);
        const KRTestTable<int, Make, int> table{
            {"lines of one look", 1500, [](Scatter *scatter, int) { return scatter->track(4, 20, {Qt::blue}); }, 150},
            {"edges of areas of one look", 1500,
             [](Scatter *scatter, int) {
                 return scatter->track(4, 20, {Qt::blue, 2.0, PolygonTrackShape, StrokeDisplayOption});
             },
             150},
            {"runs of lines of other colours and widths, one over the other", 1500,
             [](Scatter *scatter, int i) {
                 return scatter->track(2, 30, {QColor::fromHsv(i / 50 * 37 % 360, 255, 255), 1.0 + i / 50 % 4});
             },
             60},
            {"lines between half transparent and dashed ones", 1500,
             [half](Scatter *scatter, int i) {
                 return scatter->track(3, 25,
                                       {i % 3 == 0 ? half : QColor(Qt::darkGreen), 3.0, LineStringTrackShape,
                                        StrokeDisplayOption, DiskMarkerShape, i % 50 == 1 ? 2 : 1});
             },
             20},
            {"lines between dots of the same colour and of others", 1500,
             [half](Scatter *scatter, int i) {
                 return i % 3 == 0 ? scatter->track(1, 1, {i % 30 == 0 ? half : QColor(Qt::blue), 3.0})
                                   : scatter->track(3, 25, {Qt::blue, 3.0});
             },
             20},
            {"lines below arrows of which only the tip is drawn", 1500,
             [](Scatter *scatter, int i) {
                 return i % 50 == 49
                            ? scatter->track(2, 60, {Qt::green, 4.0, LineStringTrackShape, 0, ArrowMarkerShape})
                            : scatter->track(3, 25, {Qt::blue, 3.0});
             },
             20},
            {"more lines than are drawn at once, with others between them", 1001,
             [](Scatter *scatter, int i) {
                 return i % 400 == 350 ? scatter->track(2, 80, {Qt::green, 5.0})
                                       : scatter->track(i < 350 ? 1500 : 150, 100, {Qt::blue, 2.0});
             },
             20},
            {"markers of a few looks", 1500,
             [](Scatter *scatter, int i) {
                 return scatter->track(1, 1,
                                       {i % 7 < 3 ? Qt::red : QColor(0, 0, 255, 127), 3.0 + i / 500, PointTrackShape,
                                        i % 5 == 0 ? 1 : 3, i < 700 ? 0 : 2});
             },
             600},
        };
        table.forEach([](int count, const Make &make, int mostDifferent) {
            Scatter scatter;
            KRGPXConfiguredTrackList tracks;
            for (int i = 0; i < count; ++i)
                tracks.append(make(&scatter, i));
            const PixelRenderer renderer(tracks);
            for (const TrackRenderOption option : {StyledRender, OpaqueRender}) {
                const int different = differingPixels(renderer.render(option), renderer.renderOneByOne(option), 30);
                QVERIFY2(different <= mostDifferent, QByteArray::number(different).constData());
            }
        });
    }

    void unitedLinesGetNoDenser()
    {
        // Some lie upon each other as they are; many have the colour of one.
        const KRTestTable<int, int, bool> table{
            {"some tracks", 200, 3, false}, {"many tracks", 1500, 3, true}, {"many points", 20, 12000, true}};
        table.forEach([](int count, int points, bool areUnited) {
            Scatter scatter;
            KRGPXConfiguredTrackList tracks;
            for (int i = 0; i < count; ++i)
                tracks.append(scatter.track(points, 60, {QColor(0, 0, 255, 100), 4.0}));
            const PixelRenderer renderer(tracks);
            QImage image(crowdedSize, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            renderer.renderUnited(painter, StyledRender);
            painter.end();
            int densest = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    densest = std::max(densest, qAlpha(image.pixel(x, y)));
            QVERIFY2(areUnited ? densest == 100 : densest > 150, QByteArray::number(densest).constData());
        });
    }
};

template class KRTestRegistration<tst_KRGPXTrackRendererCrowds>;

#include "tst_KRGPXTrackRendererCrowds.moc"
