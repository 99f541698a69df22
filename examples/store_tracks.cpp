// Keeps tracks in an XML document of the host's own and reads them back: store_tracks DOCUMENT.xml FILE...

#include <KRCore/KRXMLLoader.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRTrackSelectionFactory.h>

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSaveFile>
#include <QUrl>

#include <cstdio>

/// Each track gets a file of its own beside the document, which only names it. Why that fails goes to @p reason.
static bool save(const KRGPXTrackSelection &selection, const QFileInfo &file, QString *reason)
{
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("holiday"));
    document.appendChild(root);
    QDomElement routes = document.createElement(QStringLiteral("routes"));
    root.appendChild(routes);
    selection.toXml(routes, file.absoluteDir());

    QSaveFile target(file.filePath());
    const QByteArray bytes = document.toByteArray(1);
    const bool isSaved = target.open(QIODevice::WriteOnly) && target.write(bytes) == bytes.size() && target.commit();
    *reason = target.errorString();
    return isSaved;
}

static KRGPXTrackSelection load(const QFileInfo &file)
{
    const QDomElement root = KRXMLLoader::loadDocumentElement(file);
    return KRGPXTrackSelection(root.firstChildElement(QStringLiteral("routes")), file.absoluteDir());
}

static int complain(const QString &problem)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(problem));
    return 1;
}

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 2)
        return complain(QStringLiteral("usage: store_tracks DOCUMENT.xml FILE..."));
    const QFileInfo document(arguments.at(1));
    KRGPXTrackSelection selection;
    for (const QString &fileName : arguments.mid(2)) {
        const KRGPXConfiguredTrackList tracks =
            KRTrackSelectionFactory::instance()->createConfiguredTrackList(QUrl::fromLocalFile(fileName));
        if (!tracks.isValid())
            return complain(fileName + QLatin1String(": no tracks")); // why, stands in the log
        selection.addTracks(tracks);
    }
    QString reason;
    if (!save(selection, document, &reason))
        return complain(document.filePath() + QLatin1String(": ") + reason);

    const KRGPXConfiguredTrackList tracks = load(document).tracks();
    for (const KRGPXConfiguredTrack &track : tracks)
        std::printf("%s: %d points\n", qUtf8Printable(track.name()), track.track().countPoints());
    return 0;
}
