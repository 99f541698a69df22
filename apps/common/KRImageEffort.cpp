#include "KRImageEffort.h"

#include <KRGeoLocation/KRGPXLineBundle.h>
#include <KRGeoLocation/KRGPXLineCrowd.h>
#include <KRGeoLocation/KRGPXMarkerStamps.h>

#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

// What a pixel takes: that an outline passes, the first time and in all, and that it encloses in an opaque
// colour and in any.
constexpr double touchedPixelNs = 30.0;
constexpr double outlinePixelNs = 9.0;
constexpr double innerPixelNs = 0.2;
constexpr double mixedPixelNs = 1.0;
constexpr double dashNs = 900.0;
constexpr double arrowNs = 40000.0;
// Markers are drawn in a way that takes longer for each of their pixels, up to some size.
constexpr double markerPixelNs = 75.0;
constexpr double markerNs = 4000.0;
constexpr double copiedMarkerNs = 250.0;
constexpr double largestMarkerSide = 200.0;
// Of larger ones KRGPXMarkerStamps makes no copies.
constexpr double largestCopiedSide = 190.0;

// What KRGPXLineCrowd takes to leave lines out, and what it keeps beyond their least length.
constexpr double crowdLineNs = 150.0;
constexpr double crowdPixelNs = 0.6;
constexpr double crowdAllowance = 1.5;

constexpr KRMapEffort::Allowance allowance{1500.0, 0.0};

double pixelsOf(const QSizeF &size)
{
    return size.width() * size.height();
}

double effortOfOutline(double outline, double area)
{
    return outlinePixelNs * outline + touchedPixelNs * std::min(outline, area);
}

} // namespace

KRImageEffort::KRImageEffort(const KRGPXTrackRenderer *renderer) : KRMapEffort(renderer, allowance, false) { }

KRGPXTrackSelection KRImageEffort::affordable(const KRGPXTrackSelection &selection) const
{
    // To read and to estimate as much has taken its time already.
    constexpr double partThatIsLeft = 0.4;
    const std::vector<double> efforts = effortsOf(selection);
    const double most = mostFor(selection);
    return totalOf(efforts) <= most ? selection : cheapest(selection, efforts, partThatIsLeft * most);
}

KRGPXTrackSelection KRImageEffort::cheapest(const KRGPXTrackSelection &selection, const std::vector<double> &efforts,
                                            double most) const
{
    const KRGPXConfiguredTrackList tracks = selection.tracks();
    std::vector<int> numbers(efforts.size());
    std::iota(numbers.begin(), numbers.end(), 0);
    std::stable_sort(numbers.begin(), numbers.end(),
                     [&](int a, int b) { return efforts[std::size_t(a)] < efforts[std::size_t(b)]; });
    double effort = 0.0;
    const auto end = std::find_if(numbers.begin(), numbers.end(),
                                  [&](int number) { return (effort += efforts[std::size_t(number)]) > most; });
    std::sort(numbers.begin(), end);
    KRGPXTrackSelection taken;
    taken.setCroppingOpacity(selection.nominalCroppingOpacity());
    std::for_each(numbers.begin(), end, [&](int number) { taken.addTrack(tracks.at(number)); });
    // Fewer are no longer drawn together, and take longer each.
    const bool areFewNow = tracks.size() > KRGPXLineBundle::fewTracks && taken.count() <= KRGPXLineBundle::fewTracks;
    return areFewNow ? cheapest(taken, effortsOf(taken), most) : taken;
}

std::vector<double> KRImageEffort::effortsOf(const KRGPXTrackSelection &selection) const
{
    const KRGPXConfiguredTrackList tracks = selection.tracks();
    Memory memory;
    std::vector<double> efforts;
    efforts.reserve(std::size_t(tracks.size()));
    for (const KRGPXConfiguredTrack &track : tracks)
        efforts.push_back(effortOf(track, tracks.size() > KRGPXLineBundle::fewTracks ? &memory : nullptr));
    return efforts;
}

/// @param memory null where each track is drawn for itself
double KRImageEffort::effortOf(const KRGPXConfiguredTrack &track, Memory *memory) const
{
    const KRGPXTrackShape shape = track.effectiveShape();
    const QPainterPath path = shape == PointTrackShape ? QPainterPath() : m_renderer->createPainterPath(track);
    if (path.isEmpty())
        return effortOfMarker(track, memory);

    const std::vector<Layer> layers = layersOf(track);
    double reach = 0.0;
    for (const Layer &layer : layers)
        reach = std::max(reach, layer.isStroked ? layer.pen.widthF() / 2.0 : 0.0);
    const Extent extent = extentOf(path, reach);
    double effort = 0.0;
    if (shape != PolygonTrackShape && (track.configuration().markerShape() & ArrowMarkerShape) != 0
        && extent.area > 0.0)
        effort += arrowNs * std::min(extent.copies, copiesOfPlace(reach));
    if (memory)
        memory->strokes.resize(layers.size());
    for (std::size_t i = 0; i < layers.size(); ++i) {
        const Layer &layer = layers.at(i);
        if (layer.isFilled)
            effort += effortOfOutline(extent.length, extent.area) + mixedPixelNs * extent.area;
        Stroke stroke{layer.pen, Extent()};
        const bool isBundledHere = memory && isBundled(track, layer);
        if (isBundledHere && memory->strokes.at(i).pen == stroke.pen
            && memory->strokes.at(i).extent.lines < KRGPXLineBundle::mostElements)
            stroke = memory->strokes.at(i);
        const double before = effortOfLines(stroke.extent, stroke.pen);
        stroke.extent = sumOf(stroke.extent, extent);
        // Where lines begin to be thinned all together take less than they did.
        if (layer.isStroked)
            effort += std::max(0.0, effortOfLines(stroke.extent, stroke.pen) - before);
        if (memory)
            memory->strokes[i] = isBundledHere ? stroke : Stroke();
    }
    return effort;
}

/// As KRGPXMarkerStamps does; from now on it is known.
bool KRImageEffort::knowsMarker(const KRGPXTrackConfiguration &configuration, Memory *memory)
{
    std::vector<KRGPXTrackConfiguration> &markers = memory->markers;
    if (std::find(markers.rbegin(), markers.rend(), configuration) != markers.rend())
        return true;
    if (markers.size() < KRGPXMarkerStamps::mostLooks) {
        markers.push_back(configuration);
        return false;
    }
    memory->oldestMarker = (memory->oldestMarker + 1) % markers.size();
    markers[memory->oldestMarker] = configuration;
    return false;
}

double KRImageEffort::effortOfMarker(const KRGPXConfiguredTrack &track, Memory *memory) const
{
    const double diameter = 2.0 * std::max(0.0, m_renderer->scale(track.lineWidth().toDouble()));
    bool isKnown = memory && knowsMarker(track.configuration(), memory);
    double effort = 0.0;
    const std::vector<Layer> layers = layersOf(track);
    for (const Layer &layer : layers) {
        const double side = diameter + layer.pen.widthF();
        isKnown = isKnown && side <= largestCopiedSide;
        const double area = std::min(side * side, pixelsOf(m_drawn.size()));
        const double newArea = std::pow(std::min(side, largestMarkerSide), 2.0);
        const double copied = copiedMarkerNs + mixedPixelNs * area;
        const double drawn = markerNs + markerPixelNs * newArea + 2.0 * mixedPixelNs * area;
        effort += copiesOfPlace(side / 2.0) * (isKnown ? copied : drawn);
    }
    if (memory)
        memory->strokes.clear();
    return effort;
}

double KRImageEffort::effortOfLines(const Extent &extent, const QPen &pen) const
{
    const double width = std::max(1.0, pen.widthF());
    double lines = extent.lines;
    double length = extent.length;
    const double dashes = dashesOf(pen, width, length);
    const bool isThinned = pen.color().alpha() == 255 || pen.widthF() > 1.0;
    double thinning = 0.0;
    if (lines > KRGPXLineCrowd::fewElements && dashes == 0.0 && isThinned) {
        thinning = crowdLineNs * lines + crowdPixelNs * length;
        const double part = KRGPXLineCrowd::mostLengthFor(m_drawn.size(), width / 2.0) / length;
        lines *= std::min(1.0, crowdAllowance * part);
        length *= std::min(1.0, crowdAllowance * part);
    }
    // an arc around each end, as far as it is in the image, and two lines between them
    const double arc = std::min<double>(4.0 * width, m_drawn.width() + m_drawn.height());
    const double insideNs = pen.color().alpha() == 255 ? innerPixelNs : mixedPixelNs;
    return thinning + effortOfOutline(2.0 * length + arc * (lines + dashes), extent.area)
           + insideNs * std::min(length * width, extent.area) + dashNs * dashes;
}

std::vector<KRImageEffort::Layer> KRImageEffort::layersOf(const KRGPXConfiguredTrack &track) const
{
    const KRGPXTrackConfiguration configuration = track.configuration();
    const bool isArea = track.effectiveShape() == PolygonTrackShape;
    QPen mask = m_renderer->penFromTrack(configuration, OpaqueRender);
    mask.setColor(Qt::black);
    std::vector<Layer> layers;
    if (m_isCropped)
        layers.push_back({mask, true, isArea});
    if (m_isForMaskOnly)
        return layers;
    if (!track.haloWidth().isNull())
        layers.insert(layers.end(), bandsOfHalo, {haloPenOf(configuration), true, false});
    const bool isOpaque = m_option == OpaqueRender;
    layers.push_back({m_renderer->penFromTrack(configuration, m_option),
                      isOpaque || configuration.hasDrawOption(StrokeDisplayOption),
                      isArea && (isOpaque || configuration.hasDrawOption(FillDisplayOption))});
    return layers;
}

/// As KRGPXLineBundle decides.
bool KRImageEffort::isBundled(const KRGPXConfiguredTrack &track, const Layer &layer)
{
    return layer.isStroked && !layer.isFilled && layer.pen.style() == Qt::SolidLine && layer.pen.color().alpha() == 255
           && (track.configuration().markerShape() & ArrowMarkerShape) == 0;
}
