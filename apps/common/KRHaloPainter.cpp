#include "KRHaloPainter.h"

#include "KRMapTrackRenderer.h"

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QPainter>

namespace {

/// One band around the lines of all tracks with the same tint.
struct Band {
    QColor tint;
    QColor color; ///< what the band is painted with
    double extraWidth; ///< beyond the halo width of each track, in pixels
};

const QColor lightTint(255, 255, 255, 225);
const QColor darkTint(40, 44, 52, 170);

// Around the light band there is a thin darker edge: white alone does not stand off a light ground.
const Band bands[] = {
    {lightTint, QColor(60, 50, 40, 80), 2.0},
    {lightTint, lightTint, 0.0},
    {darkTint, darkTint, 0.0},
};

/// The tracks that get this band, drawn with its full width in that colour.
KRGPXTrackSelection tracksOf(const Band &band, const KRGPXTrackSelection &selection, const QColor &color)
{
    KRGPXTrackSelection result;
    const KRGPXConfiguredTrackList tracks = selection.tracks();
    for (KRGPXConfiguredTrack track : tracks) {
        if (track.haloWidth().isNull() || KRHaloPainter::tintFor(track.lineColor()) != band.tint)
            continue;
        KRGPXTrackConfiguration configuration = track.configuration();
        configuration.setLineColor(color);
        configuration.setHaloWidth(configuration.haloWidth() + KRDistance(band.extraWidth));
        configuration.setCurrentDisplayOptions(KRGPXTrackDisplayOptions(StrokeDisplayOption));
        track.setConfiguration(configuration);
        result.addTrack(track);
    }
    return result;
}

} // namespace

QColor KRHaloPainter::tintFor(const QColor &lineColor)
{
    // Perceived brightness of the line, ITU-R BT.601.
    const double brightness = 0.299 * lineColor.redF() + 0.587 * lineColor.greenF() + 0.114 * lineColor.blueF();
    return brightness > 0.85 ? darkTint : lightTint;
}

bool KRHaloPainter::paint(QPainter &painter, const KRGPXTrackSelection &selection, const KRMapProjection &projection,
                          const QSize &size, double factor)
{
    for (const Band &band : bands) {
        const KRGPXTrackSelection tracks = tracksOf(band, selection, Qt::black);
        if (tracks.isEmpty())
            continue;
        QImage halo = KRMapTrackRenderer(tracks, projection, size, factor)
                          .render(HaloRender)
                          .convertToFormat(QImage::Format_ARGB32_Premultiplied);
        if (halo.isNull())
            return false;
        QPainter tinting(&halo);
        tinting.setCompositionMode(QPainter::CompositionMode_SourceIn);
        tinting.fillRect(halo.rect(), band.color);
        tinting.end();
        painter.drawImage(0, 0, halo);
    }
    return true;
}

void KRHaloPainter::paintShapes(QPainter &painter, const KRGPXTrackSelection &selection,
                                const KRMapProjection &projection, const QSize &size, double factor)
{
    for (const Band &band : bands)
        KRMapTrackRenderer(tracksOf(band, selection, band.color), projection, size, factor)
            .renderUnited(painter, HaloRender);
}
