#include "KRPageEffort.h"

#include <KRGeoLocation/KRGPXLineBundle.h>
#include <KRGeoLocation/KRGPXLineCrowd.h>

#include <QPainterPath>

#include <algorithm>

namespace {

// A line has two sides, a corner or an end has curves as well.
constexpr double lineNs = 2500.0;
constexpr double cornerNs = 4500.0;
constexpr double arrowNs = 40000.0;
// The wider the pen, the more curves go around a marker.
constexpr double markerCornerNs = 12000.0;
constexpr double markerNsOfPixel = 1500.0;
// Coordinates that are far from those before are harder to pack.
constexpr double cornerNsOfPixel = 35.0;
constexpr double farPx = 100.0;
constexpr double dashNs = 17000.0;
// What a crowd keeps beyond its least length: lines of which only a part shows.
constexpr double crowdAllowance = 2.5;

constexpr KRMapEffort::Allowance allowance{600.0, 25000.0};

/// And curves, roughly.
double cornersOf(const KRGPXMarkerShape &marker)
{
    if (marker == Star12MarkerShape)
        return 24.0;
    if (marker == Star9MarkerShape)
        return 18.0;
    return marker == Star6MarkerShape || marker == XMarkerShape ? 12.0 : 5.0;
}

bool isCrowd(double lines, const QPen &pen)
{
    return lines > KRGPXLineCrowd::fewElements && pen.style() == Qt::SolidLine;
}

} // namespace

KRPageEffort::KRPageEffort(const KRGPXTrackRenderer *renderer) : KRMapEffort(renderer, allowance, true) { }

KRGPXTrackSelection KRPageEffort::simplified(const KRGPXTrackSelection &selection)
{
    KRGPXConfiguredTrackList tracks = selection.tracks();
    for (KRGPXConfiguredTrack &track : tracks) {
        KRGPXTrackConfiguration configuration = track.configuration();
        QColor color = configuration.lineColor();
        color.setAlpha(255);
        configuration.setLineColor(color);
        configuration.setHaloWidth(0.0);
        track.setConfiguration(configuration);
    }
    KRGPXTrackSelection result = selection;
    result.setTracks(tracks);
    return result;
}

std::vector<double> KRPageEffort::effortsOf(const KRGPXTrackSelection &selection) const
{
    const KRGPXConfiguredTrackList tracks = selection.tracks();
    const bool areHalosUnited = KRGPXLineBundle::areWorthUniting(tracks);
    Stroke halo{QPen(), Extent()};
    std::vector<double> efforts;
    efforts.reserve(std::size_t(tracks.size()));
    for (const KRGPXConfiguredTrack &track : tracks) {
        efforts.push_back(effortOf(track, &halo));
        if (!areHalosUnited)
            halo.extent = Extent();
    }
    return efforts;
}

/// @param halo of the tracks before that becomes one with that of the track
double KRPageEffort::effortOf(const KRGPXConfiguredTrack &track, Stroke *halo) const
{
    const KRGPXTrackConfiguration configuration = track.configuration();
    const QPen pen = m_renderer->penFromTrack(configuration, m_option);
    const bool isStroked = m_option == OpaqueRender || configuration.hasDrawOption(StrokeDisplayOption);
    const bool isOutlined = isStroked && pen.color().alpha() < 255;
    const bool hasHalo = !track.haloWidth().isNull();
    if (!isOutlined && !hasHalo)
        return 0.0;
    const QPen haloPen = haloPenOf(configuration);
    const bool isPoint = track.effectiveShape() == PointTrackShape;
    const QPainterPath path = isPoint ? QPainterPath() : m_renderer->createPainterPath(track);
    if (path.isEmpty())
        return (isOutlined ? effortOfMarker(track, pen) : 0.0)
               + (hasHalo ? bandsOfHalo * effortOfMarker(track, haloPen) : 0.0);
    double effort = isOutlined ? effortOfOutlines(extentOnPage(path, pen), pen) : 0.0;
    // Tracks with arrows are drawn one by one.
    const bool hasArrow = (configuration.markerShape() & ArrowMarkerShape) != 0;
    if (hasArrow)
        effort += arrowNs * ((isOutlined ? 1 : 0) + (hasHalo ? bandsOfHalo : 0));
    if (hasHalo) {
        if (hasArrow || halo->pen != haloPen || halo->extent.lines > KRGPXLineBundle::mostElements)
            *halo = {haloPen, Extent()};
        const double before = effortOfOutlines(halo->extent, haloPen);
        halo->extent = sumOf(halo->extent, extentOnPage(path, haloPen));
        effort += bandsOfHalo * std::max(0.0, effortOfOutlines(halo->extent, haloPen) - before);
    }
    return effort;
}

double KRPageEffort::effortOfMarker(const KRGPXConfiguredTrack &track, const QPen &pen) const
{
    const double size = m_renderer->scale(track.lineWidth().toDouble());
    const double effort =
        markerCornerNs * cornersOf(track.configuration().markerShape()) + markerNsOfPixel * pen.widthF();
    return effort * copiesOfPlace(size + pen.widthF());
}

/// Of what KRGPXPagePainter draws.
KRMapEffort::Extent KRPageEffort::extentOnPage(const QPainterPath &path, const QPen &pen) const
{
    const double reach = pen.widthF() / 2.0;
    // In other copies of the world others of its lines would show.
    const bool isInOneCopy = QRectF(m_drawn).contains(path.controlPointRect());
    const bool isThinned = isInOneCopy && isCrowd(path.elementCount(), pen);
    return extentOf(isThinned ? KRGPXLineCrowd::thinned(path, QTransform(), m_drawn.size(), reach,
                                                        KRGPXLineCrowd::mostLinesFor(pen.widthF()))
                              : path,
                    reach);
}

double KRPageEffort::effortOfOutlines(const Extent &extent, const QPen &pen) const
{
    const double mostLength =
        KRGPXLineCrowd::mostLengthFor(m_drawn.size(), pen.widthF() / 2.0, KRGPXLineCrowd::mostLinesFor(pen.widthF()));
    const double part = isCrowd(extent.lines, pen) ? std::min(1.0, crowdAllowance * mostLength / extent.length) : 1.0;
    const double averageLength = extent.lines > 0.0 ? extent.length / extent.lines : 0.0;
    const double nsOfCorner = cornerNs + cornerNsOfPixel * std::min(averageLength, farPx);
    const double width = pen.widthF() > 0.0 ? pen.widthF() : 1.0;
    const int dashesOfPeriod = int(pen.dashPattern().size()) / 2;
    const double dashes = dashesOfPeriod * dashesOf(pen, width, extent.length);
    return part * (lineNs * extent.lines + nsOfCorner * extent.corners) + dashNs * dashes;
}
