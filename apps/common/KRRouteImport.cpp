#include "KRRouteImport.h"

#include "KRKmlImport.h"
#include "KRReadAhead.h"
#include "KRRouteDocument.h"
#include "KRSegmentSplitter.h"

#include <KRCore/KRFileHandler.h>
#include <KRGeoLocation/KRGPXTrackFile.h>
#include <KRGeoLocation/KRTrackSelectionFactory.h>
#include <KRGeoLocation/KRTrackSelectionFactoryGPXFile.h>
#include <KRGeoLocation/KRTrackSelectionFactoryKmlFile.h>

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <iterator>
#include <limits>

namespace {

constexpr int waitMs = 20; // what a user interface may stand still without anybody's notice

} // namespace

bool KRRouteImport::read(const QStringList &fileNames)
{
    QStringList namesAhead;
    std::copy_if(fileNames.cbegin(), fileNames.cend(), std::back_inserter(namesAhead),
                 [this](const QString &fileName) { return isReadAhead(fileName); });
    KRReadAhead files(namesAhead);
    for (int i = 0; i < fileNames.size(); ++i) {
        const QString &fileName = fileNames.at(i);
        if (m_progress)
            m_progress(fileName, i + 1, fileNames.size());
        if (!waitFor(isReadAhead(fileName) ? &files : nullptr) || !readFile(fileName, &files)) {
            files.stop();
            while (!files.isIdle(waitMs))
                m_wait();
            return false;
        }
    }
    return true;
}

/// Whether other threads read the file, in the order of all such files.
bool KRRouteImport::isReadAhead(const QString &fileName) const
{
    const QFileInfo file(fileName);
    return !m_isPlain && !KRRouteDocument::isDocument(file) && KRFileImport::create(file) != nullptr;
}

/// Waits for the next of @p files, unless that is null. False when the wait function says so.
bool KRRouteImport::waitFor(KRReadAhead *files) const
{
    if (!m_wait)
        return true;
    do {
        if (!m_wait())
            return false;
    } while (files && !files->isNextRead(waitMs));
    return true;
}

/// False when the wait function says so.
bool KRRouteImport::readFile(const QString &fileName, KRReadAhead *files)
{
    if (KRRouteDocument::isDocument(QFileInfo(fileName)))
        return readDocument(fileName);
    const QFileInfo file(fileName);
    const bool isSupported = KRTrackSelectionFactory::instance()->supportsFile(QUrl::fromLocalFile(fileName));
    const int knownProblems = m_problems.entries().size();
    KRGPXConfiguredTrackList tracks;
    if (isReadAhead(fileName))
        tracks = take(files->takeNext().get());
    else if (isSupported)
        tracks = readPlainly(file);
    addTracks(tracks, fileName);
    if (tracks.isEmpty() && m_problems.entries().size() == knownProblems)
        explain(fileName, isSupported);
    return true;
}

bool KRRouteImport::readDocument(const QString &fileName)
{
    KRRouteDocument document;
    bool isWanted = true;
    document.setGoOnFunction([this, &isWanted] {
        isWanted = !m_wait || m_wait();
        return isWanted;
    });
    if (!document.load(QFileInfo(fileName), &m_problems))
        return isWanted;
    addTracks(document.selection().tracks(), fileName);
    m_croppingOpacity = document.selection().nominalCroppingOpacity();
    return true;
}

KRGPXConfiguredTrackList KRRouteImport::take(KRFileImport *import)
{
    const KRGPXConfiguredTrackList tracks = import->configuredTracks();
    m_problems.append(import->problems());
    addReport(import->report());
    return tracks;
}

/// As the importers of the library read it, but with their reasons.
KRGPXConfiguredTrackList KRRouteImport::readPlainly(const QFileInfo &file)
{
    if (KRKmlImport::supportsFile(file)) {
        const KRTrackSelectionFactoryKmlFile importer;
        KRFileImport::logChoiceOf(importer);
        // Tracks without a name are named after the file, which is too little to find it by.
        KRErrorHistory reasons;
        const KRGPXConfiguredTrackList tracks =
            importer.decode(importer.readFile(file, &m_problems), file.fileName(), &reasons);
        for (KRErrorHistory::Entry reason : reasons.entries()) {
            reason.fileName = file.filePath();
            KRErrorHistory::report(&m_problems, reason);
        }
        return tracks;
    }
    KRFileImport::logChoiceOf(KRTrackSelectionFactoryGPXFile());
    KRGPXConfiguredTrackList tracks;
    const QList<KRGPXTrack> plainTracks = KRGPXTrackFile(file, &m_problems).tracks();
    for (const KRGPXTrack &track : plainTracks)
        tracks.append(KRGPXConfiguredTrack(track, KRGPXTrackConfiguration::currentDefaultConfiguration()));
    return tracks;
}

void KRRouteImport::addTracks(const KRGPXConfiguredTrackList &tracks, const QString &fileName)
{
    const QString refusal = m_splitsSegments ? KRSegmentSplitter::refusal(tracks) : QString();
    if (!refusal.isEmpty())
        KRErrorHistory::report(&m_problems, fileName, refusal);
    else
        m_tracks += m_splitsSegments ? KRSegmentSplitter::split(tracks) : tracks;
}

void KRRouteImport::addReport(const KRImportReport &report)
{
    if (!report.isEmpty())
        m_reports.append(report);
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
