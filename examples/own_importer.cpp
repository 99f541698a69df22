// Teaches the library to read tables of "name;latitude;longitude": own_importer FILE...

#include <KRCore/KRFileHandler.h>
#include <KRGeoLocation/KRTrackSelectionFactory.h>

#include <QFileInfo>
#include <QGuiApplication>
#include <QUrl>

#include <cstdio>

/// Every line becomes a point with its name; lines that cannot be read are skipped.
class TableImporter : public KRTrackSelectionFactoryAbstract
{
public:
    bool supportsFile(const QUrl &url) const override
    {
        return url.fileName().endsWith(QLatin1String(".csv"), Qt::CaseInsensitive);
    }

    QStringList supportedFileFormats() const override { return {QStringLiteral("*.csv")}; }

    KRGPXConfiguredTrackList createConfiguredTrackList(const QUrl &url) const override
    {
        KRGPXTrackConfiguration look = KRGPXTrackConfiguration::currentDefaultConfiguration();
        look.setMarkerShape(Star6MarkerShape);
        KRGPXConfiguredTrackList tracks;
        const QStringList lines = KRFileHandler::readTextFile(QFileInfo(url.toLocalFile()));
        for (const QString &line : lines) {
            const QStringList fields = line.split(QLatin1Char(';'));
            const KRGeoPosition position(KRLatitude::parse(fields.value(1)), KRLongitude::parse(fields.value(2)));
            if (position.isValid())
                tracks.append(KRGPXConfiguredTrack(KRGPXTrackPoint(position, 0, QDateTime(), fields.at(0)), look));
        }
        return tracks;
    }
};

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    KRTrackSelectionFactory *const factory = KRTrackSelectionFactory::instance();
    factory->addFactory(new TableImporter);
    std::printf("Reads %s\n", qUtf8Printable(factory->supportedFileFormats().join(QLatin1Char(' '))));

    const QStringList fileNames = QGuiApplication::arguments().mid(1);
    for (const QString &fileName : fileNames) {
        const KRGPXConfiguredTrackList tracks = factory->createConfiguredTrackList(QUrl::fromLocalFile(fileName));
        if (!tracks.isValid()) {
            std::fprintf(stderr, "%s: no tracks\n", qUtf8Printable(fileName)); // why, stands in the log
            return 1;
        }
        for (const KRGPXConfiguredTrack &track : tracks)
            std::printf("%s: %s\n", qUtf8Printable(track.name()), qUtf8Printable(track.firstPoint().toString(false)));
    }
    return 0;
}
