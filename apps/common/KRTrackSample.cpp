#include "KRTrackSample.h"

#include "KRHaloPainter.h"

#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGPXTrackRenderer.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QDateTime>
#include <QPainter>
#include <QPolygonF>
#include <QSizeF>

#include <algorithm>

namespace {

// Pixels at factor 1.
constexpr double width = 48.0;
constexpr double height = 24.0;
constexpr double widestLine = 10.0;
constexpr double widestDashes = 3.0;
constexpr double widestOutline = 4.0;
constexpr double widestMarker = 8.0;
constexpr double widthOfEdge = 3.0;

/// Small enough for the copies of this globe to be far out of sight.
constexpr double degreesPerPixel = 0.01;

class SampleRenderer : public KRGPXTrackRenderer
{
public:
    explicit SampleRenderer(const KRGPXTrackSelection &selection)
        : KRGPXTrackRenderer(selection, QSizeF(width, height).toSize(), 1.0)
    { }

    QPointF projectPosition(const KRGeoPosition &position) const override
    {
        return QPointF(position.longitude().decimalDegrees(), position.latitude().decimalDegrees()) / degreesPerPixel;
    }
};

/// A round trip that is not filled shows best as a line.
KRGPXTrackShape shapeOf(const KRGPXConfiguredTrack &track)
{
    const KRGPXTrackShape shape = track.effectiveShape();
    const bool isArea = shape == PolygonTrackShape && track.hasDrawOption(FillDisplayOption);
    return isArea || shape == PointTrackShape ? shape : KRGPXTrackShape(LineStringTrackShape);
}

QPolygonF figureFor(const KRGPXTrackShape &shape)
{
    if (shape == PointTrackShape)
        return QPolygonF(QVector<QPointF>{QPointF(width / 2.0, height / 2.0)});
    if (shape == PolygonTrackShape)
        return QPolygonF({{7.0, 9.0}, {24.0, 4.0}, {42.0, 8.0}, {39.0, 20.0}, {12.0, 19.0}, {7.0, 9.0}});
    return QPolygonF(QVector<QPointF>{{6.0, height / 2.0}, {width - 6.0, height / 2.0}});
}

double widestFor(const KRGPXTrackShape &shape, const KRPenStyle &penStyle)
{
    if (shape == PointTrackShape)
        return widestMarker;
    if (shape == PolygonTrackShape)
        return widestOutline;
    return penStyle == KRPenStyle() ? widestLine : widestDashes;
}

KRGPXConfiguredTrack sampleOf(const KRGPXConfiguredTrack &track)
{
    const KRGPXTrackShape shape = shapeOf(track);
    KRGPXTrackSegment segment;
    for (const QPointF &point : figureFor(shape))
        segment.append(point.y() * degreesPerPixel, point.x() * degreesPerPixel, 0, QDateTime(), QString());
    KRGPXTrackConfiguration configuration = track.configuration();
    const double widest = widestFor(shape, configuration.penStyle());
    configuration.setLineWidth(std::min(configuration.lineWidth().toDouble(), widest));
    configuration.setSmoothingStrength(100);
    configuration.setTrackShape(shape);
    return KRGPXConfiguredTrack(KRGPXTrack(QString(), QString(), {segment}, shape), configuration);
}

void draw(QPainter *painter, const KRGPXConfiguredTrack &track, TrackRenderOption option)
{
    KRGPXTrackSelection selection;
    selection.addTrack(track);
    SampleRenderer(selection).renderWith(*painter, option);
}

/// What a line that is too light for a light ground gets around it.
void drawEdge(QPainter *painter, const KRGPXConfiguredTrack &sample)
{
    KRGPXConfiguredTrack edge = sample;
    KRGPXTrackConfiguration configuration = sample.configuration();
    configuration.setLineColor(KRHaloPainter::tintFor(sample.lineColor()));
    configuration.setHaloWidth(widthOfEdge);
    configuration.setCurrentDisplayOptions(KRGPXTrackDisplayOptions(StrokeDisplayOption));
    edge.setConfiguration(configuration);
    draw(painter, edge, HaloRender);
}

} // namespace

QSizeF KRTrackSample::size()
{
    return QSizeF(width, height);
}

void KRTrackSample::paint(QPainter &painter, const KRGPXConfiguredTrack &track, const QPointF &place, double factor)
{
    const KRGPXConfiguredTrack sample = sampleOf(track);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place);
    painter.scale(factor, factor);
    painter.setClipRect(QRectF(QPointF(), size()), Qt::IntersectClip);
    if (KRHaloPainter::tintFor(sample.lineColor()).lightness() < 128)
        drawEdge(&painter, sample);
    draw(&painter, sample, StyledRender);
    painter.restore();
}
