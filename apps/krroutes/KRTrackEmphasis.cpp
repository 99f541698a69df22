#include "KRTrackEmphasis.h"

#include <KRHaloPainter.h>
#include <KRMapTrackRenderer.h>

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QPainter>

namespace {

/// Pixels of a normal screen, on both sides of line and halo together.
constexpr double bandWidth = 6.0;

constexpr QColor blueBand(26, 92, 214, 200);
constexpr QColor amberBand(255, 166, 0, 220);

// Degrees of the colour circle, from cyan to violet.
constexpr int firstBlueHue = 170;
constexpr int lastBlueHue = 290;

} // namespace

QColor KRTrackEmphasis::bandColorFor(const QColor &lineColor)
{
    const int hue = lineColor.hsvHue();
    const bool isBlue = lineColor.hsvSaturation() > 60 && hue >= firstBlueHue && hue <= lastBlueHue;
    return isBlue ? amberBand : blueBand;
}

void KRTrackEmphasis::paint(QPainter *painter, const KRGPXConfiguredTrack &track, const KRMapProjection &projection,
                            const QSize &size, double factor)
{
    const KRMapTrackRenderer renderer(KRGPXTrackSelection(), projection, size, factor);
    const bool isPoint = track.effectiveShape() == PointTrackShape;

    // Filled once more, an area would hide what lies in it.
    KRGPXTrackConfiguration look = track.configuration();
    if (!isPoint)
        look.setCurrentDisplayOptions(KRGPXTrackDisplayOptions(StrokeDisplayOption));
    KRGPXTrackConfiguration bandLook = look;
    bandLook.setLineColor(bandColorFor(look.lineColor()));
    bandLook.setFillColor(bandColorFor(look.lineColor()));
    bandLook.setHaloWidth(look.haloWidth() + KRDistance(bandWidth));

    KRGPXConfiguredTrack drawn = track;
    drawn.setConfiguration(bandLook);
    renderer.drawTrack(painter, drawn, HaloRender);
    drawn.setConfiguration(look);
    KRHaloPainter::paintShapes(*painter, KRGPXTrackSelection(KRGPXConfiguredTrackList(drawn)), projection, size,
                               factor);
    renderer.drawTrack(painter, drawn, StyledRender);
}
