#include "KRRouteImport.h"

#include "KRGpxImport.h"
#include "KRKmlImport.h"
#include "KRRouteDocument.h"
#include "KRSegmentSplitter.h"

#include <KRCore/KRFileHandler.h>
#include <KRGeoLocation/KRGPXTrackFile.h>
#include <KRGeoLocation/KRTrackSelectionFactory.h>
#include <KRGeoLocation/KRTrackSelectionFactoryKmlFile.h>

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <limits>

void KRRouteImport::read(const QStringList &fileNames)
{
    for (int i = 0; i < fileNames.size(); ++i) {
        if (m_progress)
            m_progress(fileNames.at(i), i + 1, fileNames.size());
        readFile(fileNames.at(i));
    }
}

void KRRouteImport::readFile(const QString &fileName)
{
    if (KRRouteDocument::isDocument(QFileInfo(fileName))) {
        readDocument(fileName);
        return;
    }
    const QFileInfo file(fileName);
    const bool isSupported = KRTrackSelectionFactory::instance()->supportsFile(QUrl::fromLocalFile(fileName));
    const int knownProblems = m_problems.entries().size();
    KRGPXConfiguredTrackList tracks;
    if (!m_isPlain && KRGpxImport::supportsFile(file))
        tracks = readCompletely(KRGpxImport(file));
    else if (!m_isPlain && KRKmlImport::supportsFile(file))
        tracks = readCompletely(KRKmlImport(file));
    else if (isSupported)
        tracks = readPlainly(file);
    addTracks(tracks);
    if (tracks.isEmpty() && m_problems.entries().size() == knownProblems)
        explain(fileName, isSupported);
}

void KRRouteImport::readDocument(const QString &fileName)
{
    KRRouteDocument document;
    if (!document.load(QFileInfo(fileName), &m_problems))
        return;
    addTracks(document.selection().tracks());
    m_croppingOpacity = document.selection().nominalCroppingOpacity();
}

template <typename Import>
KRGPXConfiguredTrackList KRRouteImport::readCompletely(Import &&import)
{
    const KRGPXConfiguredTrackList tracks = import.read(&m_problems);
    if (!import.report().isEmpty())
        m_reports.append(import.report());
    return tracks;
}

KRGPXConfiguredTrackList KRRouteImport::readPlainly(const QFileInfo &file)
{
    const KRGPXConfiguredTrackList tracks =
        KRTrackSelectionFactory::instance()->createConfiguredTrackList(QUrl::fromLocalFile(file.absoluteFilePath()));
    if (!tracks.isEmpty())
        return tracks;
    // The importers tell nothing: read once more what failed, for its reason.
    if (KRKmlImport::supportsFile(file)) {
        const KRTrackSelectionFactoryKmlFile importer;
        importer.decode(importer.readFile(file, &m_problems), file.filePath(), &m_problems);
    } else {
        const KRGPXTrackFile reading(file, &m_problems);
    }
    return tracks;
}

void KRRouteImport::addTracks(const KRGPXConfiguredTrackList &tracks)
{
    m_tracks += m_splitsSegments ? KRSegmentSplitter::split(tracks) : tracks;
}

/// Called for a file that gave no track and no reason.
void KRRouteImport::explain(const QString &fileName, bool isSupported)
{
    QFile file(fileName);
    if (!KRFileHandler::openForReading(file, &m_problems, std::numeric_limits<qint64>::max()))
        return;
    if (isSupported) {
        KRErrorHistory::report(&m_problems, fileName, tr("Die Datei enthält keine Route."));
        return;
    }
    const QStringList formats = KRTrackSelectionFactory::instance()->supportedFileFormats()
                                + QStringList(QStringLiteral("*.") + KRRouteDocument::suffix());
    KRErrorHistory::report(
        &m_problems, fileName,
        tr("Dieses Dateiformat wird nicht unterstützt (lesbar sind %1).").arg(formats.join(QStringLiteral(", "))));
}
