// Draws tracks in a projection of its own, Lambert's azimuthal equal-area one about the middle of the tracks, in which
// areas can be compared: own_projection PICTURE.png FILE...

#include <KRGeoLocation/KRGPXTrackRenderer.h>
#include <KRGeoLocation/KRTrackSelectionFactory.h>

#include <QGuiApplication>
#include <QImageWriter>
#include <QPainter>
#include <QUrl>

#include <cmath>
#include <cstdio>

class EqualAreaRenderer : public KRGPXTrackRenderer
{
public:
    /// @param radiusPx of the earth in the picture
    EqualAreaRenderer(const KRGPXTrackSelection &selection, const QSize &size, double radiusPx)
        : KRGPXTrackRenderer(selection, size, 1.0), m_centre(selection.boundingBox().center()), m_radiusPx(radiusPx)
    { }

    // Snyder 1987, eq. 24-2 to 24-4. Called from several threads at once: it must not change anything.
    QPointF projectPosition(const KRGeoPosition &position) const override
    {
        const double phi = position.latitude().radians();
        const double phi1 = m_centre.latitude().radians();
        const double lambda = (position.longitude() - m_centre.longitude()).radians();
        const double k =
            std::sqrt(2.0 / (1.0 + std::sin(phi1) * std::sin(phi) + std::cos(phi1) * std::cos(phi) * std::cos(lambda)));
        const double x = k * std::cos(phi) * std::sin(lambda);
        const double y = k * (std::cos(phi1) * std::sin(phi) - std::sin(phi1) * std::cos(phi) * std::cos(lambda));
        return QPointF(targetImageSize().width() / 2.0 + m_radiusPx * x,
                       targetImageSize().height() / 2.0 - m_radiusPx * y);
    }

private:
    KRGeoPosition m_centre;
    double m_radiusPx;
};

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
        return complain(QStringLiteral("own_projection PICTURE.png FILE..."), 2);
    KRGPXTrackSelection selection;
    for (const QString &fileName : arguments.mid(2)) {
        const KRGPXConfiguredTrackList tracks =
            KRTrackSelectionFactory::instance()->createConfiguredTrackList(QUrl::fromLocalFile(fileName));
        if (!tracks.isValid())
            return complain(fileName + QLatin1String(": no tracks")); // why, stands in the log
        selection.addTracks(tracks);
    }
    // The picture is as high as the tracks reach from south to north, and a quarter more; of a single place, 800 m.
    const KRGeoPositionRect area = selection.boundingBox();
    const QSize size(600, 600);
    const double heightOfTracks = qMax(0.0001, (area.north() - area.south()).radians());
    const EqualAreaRenderer renderer(selection, size, size.height() / (1.25 * heightOfTracks));
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.renderWith(painter, StyledRender);
    painter.end();
    QImageWriter writer(arguments.at(1));
    return writer.write(picture) ? 0 : complain(writer.fileName() + QLatin1String(": ") + writer.errorString());
}
