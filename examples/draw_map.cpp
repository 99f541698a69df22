// Draws the tracks of files and a flight line onto a plain ground: draw_map PICTURE.png FILE...

#include <KRGeoLocation/KRCopyrightRenderer.h>
#include <KRGeoLocation/KRGPXBeelineCreator.h>
#include <KRGeoLocation/KRGPXTrackRenderer.h>
#include <KRGeoLocation/KRGeoPositionSamples.h>
#include <KRGeoLocation/KRMapProjection.h>
#include <KRGeoLocation/KROsmScaleRenderer.h>
#include <KRGeoLocation/KRTrackSelectionFactory.h>

#include <QGuiApplication>
#include <QPainter>
#include <QUrl>

#include <cstdio>

class Renderer : public KRGPXTrackRenderer
{
public:
    Renderer(const KRGPXTrackSelection &selection, const KRMapProjection &projection, const QSize &size)
        : KRGPXTrackRenderer(selection, size, 1.0), m_projection(projection)
    { }

    QPointF projectPosition(const KRGeoPosition &position) const override { return m_projection.projectate(position); }

private:
    KRMapProjection m_projection;
};

static KRGPXConfiguredTrack flightLine()
{
    const auto *const places = KRGeoPositionSamples::instance();
    const KRGPXBeelineCreator creator(places->position(OldenburgSample), places->position(HelsinkiSample));
    KRGPXTrackConfiguration look;
    look.setLineColor(QColor(21, 101, 192));
    look.setLineWidth(4.0);
    look.setMarkerShape(ArrowMarkerShape);
    return KRGPXConfiguredTrack(creator.createBeeline(QStringLiteral("Flight")), look);
}

/// How many pixels a kilometre is in the middle of the picture.
static double pixelsPerKilometre(const KRMapProjection &projection, const QSize &size)
{
    const int middle = size.height() / 2;
    const KRGeoPosition left = projection.convert(QPoint(0, middle));
    return size.width() / left.distance(projection.convert(QPoint(size.width(), middle)));
}

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 3) {
        std::fprintf(stderr, "draw_map PICTURE.png FILE...\n");
        return 2;
    }
    KRGPXTrackSelection selection{KRGPXConfiguredTrackList(flightLine())};
    for (const QString &fileName : arguments.mid(2))
        selection.addTracks(
            KRTrackSelectionFactory::instance()->createConfiguredTrackList(QUrl::fromLocalFile(fileName)));

    const QSize size(1200, 800);
    const KRMapProjection projection(selection.boundingBox().withPadding(10.0), size);
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(QColor(236, 239, 229));
    QPainter painter(&picture);
    painter.drawImage(0, 0, Renderer(selection, projection, size).render(StyledRender));
    painter.end();
    KROsmScaleRenderer(pixelsPerKilometre(projection, size), size).renderScale(&picture, 1.0);
    KRCopyrightRenderer().renderCopyRight(&picture, 1.0);
    return picture.save(arguments.at(1)) ? 0 : 1;
}
