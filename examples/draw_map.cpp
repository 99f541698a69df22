// Draws the tracks of files and a flight line onto a plain ground: draw_map PICTURE.png FILE...

#include <KRGeoLocation/KRCopyrightRenderer.h>
#include <KRGeoLocation/KRGPXBeelineCreator.h>
#include <KRGeoLocation/KRGPXTrackRenderer.h>
#include <KRGeoLocation/KRGeoPositionSamples.h>
#include <KRGeoLocation/KRMapProjection.h>
#include <KRGeoLocation/KROsmScaleRenderer.h>
#include <KRGeoLocation/KRTrackSelectionFactory.h>

#include <QGuiApplication>
#include <QImageWriter>
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

static int complain(const QString &problem, int exitCode = 1)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(problem));
    return exitCode;
}

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 3)
        return complain(QStringLiteral("draw_map PICTURE.png FILE..."), 2);
    KRGPXTrackSelection selection{KRGPXConfiguredTrackList(flightLine())};
    for (const QString &fileName : arguments.mid(2)) {
        const KRGPXConfiguredTrackList tracks =
            KRTrackSelectionFactory::instance()->createConfiguredTrackList(QUrl::fromLocalFile(fileName));
        if (!tracks.isValid())
            return complain(fileName + QLatin1String(": no tracks")); // why, stands in the log
        selection.addTracks(tracks);
    }

    const QSize size(1200, 800);
    const KRMapProjection projection(selection.boundingBox().withPadding(10.0), size);
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(QColor(236, 239, 229));
    QPainter(&picture).drawImage(0, 0, Renderer(selection, projection, size).render(StyledRender));
    KROsmScaleRenderer(pixelsPerKilometre(projection, size), size).renderScale(&picture, 1.0);
    KRCopyrightRenderer().renderCopyRight(&picture, 1.0);
    QImageWriter writer(arguments.at(1));
    return writer.write(picture) ? 0 : complain(writer.fileName() + QLatin1String(": ") + writer.errorString());
}
