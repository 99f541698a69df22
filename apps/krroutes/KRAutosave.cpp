#include "KRAutosave.h"

#include "KRRouteWorkspace.h"

#include <KRRouteDocument.h>
#include <KRTrackFileReader.h>
#include <KRTrackFileStamps.h>

#include <KRCore/KRConcurrent.h>
#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRXMLLoader.h>
#include <KRGeoLocation/KRGPXTrackFileRegistry.h>
#include <KRGeoLocation/KRGPXTrackFileRegistryKey.h>

#include <QDir>
#include <QDomElement>
#include <QFileInfo>
#include <QSet>
#include <QThread>

#include <limits>
#include <numeric>

namespace {

int countPoints(const KRGPXTrackSelection &selection)
{
    const KRGPXConfiguredTrackList tracks = selection.tracks();
    return std::accumulate(tracks.cbegin(), tracks.cend(), 0, [](int sum, const KRGPXConfiguredTrack &track) {
        return sum + track.track().countPoints();
    });
}

/// What the document does not name of all that has been written into its folder: hours of work would fill the disk,
/// and the memory with the points of tracks that nothing else holds any more.
void removeFormerFiles(const QFileInfo &document)
{
    const QDomElement root = KRXMLLoader::loadDocumentElement(document, nullptr);
    if (root.isNull())
        return;
    QSet<QString> present;
    const QDomNodeList includes = root.elementsByTagName(KRTrackFileReader::includeElement);
    for (int i = 0; i < includes.size(); ++i)
        present.insert(QFileInfo(includes.at(i).toElement().text()).fileName());
    QDir folder = KRRouteDocument::trackFolder(document);
    const QStringList names = folder.entryList(QDir::Files);
    for (const QString &name : names) {
        if (present.contains(name) || !folder.remove(name))
            continue;
        const KRGPXTrack track = KRTrackFileStamps::instance()->forget(QFileInfo(folder, name));
        KRGPXTrackFileRegistry::instance().forgetFile(KRGPXTrackFileRegistryKey(track, folder), name);
    }
}

} // namespace

KRAutosave::KRAutosave(KRRouteWorkspace *workspace, const QDir &place, QObject *parent)
    : QObject(parent), m_workspace(workspace), m_folder(KRRecoveryFolder::create(place))
{
    m_timer.setSingleShot(true);
    setDelay(1000);
    connect(&m_timer, &QTimer::timeout, this, &KRAutosave::startWriting);
    connect(workspace, &KRRouteWorkspace::selectionChanged, this, &KRAutosave::scheduleWriting);
    connect(workspace, &KRRouteWorkspace::documentChanged, this, &KRAutosave::scheduleWriting);
    // Another document is tried in any case.
    connect(workspace, &KRRouteWorkspace::documentReplaced, this,
            [this] { m_trackCount = m_pointCount = std::numeric_limits<int>::max(); });
}

KRAutosave::~KRAutosave()
{
    if (m_writer)
        m_writer->wait();
    if (m_folder)
        m_folder->discard();
}

void KRAutosave::adopt(std::unique_ptr<KRRecoveryFolder> folder)
{
    if (m_writer)
        m_writer->wait();
    if (m_folder)
        m_folder->discard();
    m_folder = std::move(folder);
}

KRAutosave::Result KRAutosave::write(const KRGPXTrackSelection &selection, const QString &fileName, bool inOneFile)
{
    KRRouteDocument document;
    document.setSelection(selection);
    KRErrorHistory history;
    const QFileInfo file(fileName);
    // In one file a track takes more of what may be read again.
    if ((inOneFile && document.saveInOneFile(file, nullptr)) || document.save(file, &history)) {
        removeFormerFiles(file);
        return {};
    }
    return {history.isEmpty() ? fileName : history.entries().first().toString(), document.isTooLarge()};
}

void KRAutosave::scheduleWriting()
{
    if (!m_workspace->isModified() && !m_writer) {
        m_timer.stop();
        if (m_folder)
            m_folder->removeWork();
        return;
    }
    // Not started anew: a long series of quick changes must not put it off for ever.
    if (!m_timer.isActive())
        m_timer.start();
}

void KRAutosave::startWriting()
{
    if (m_writer) {
        scheduleWriting();
        return;
    }
    if (!m_folder || !m_folder->setDocument(m_workspace->fileName(), m_workspace->fileTime())) {
        emit failed(tr("Der Ordner für ungesicherte Änderungen kann nicht beschrieben werden."));
        return;
    }
    const KRGPXTrackSelection selection = m_workspace->selection();
    const int pointCount = countPoints(selection);
    if (m_result.isTooLarge && selection.count() >= m_trackCount && pointCount >= m_pointCount) {
        emit failed(m_result.failure);
        return;
    }
    m_trackCount = selection.count();
    m_pointCount = pointCount;
    const bool inOneFile = pointCount <= m_mostPointsInOneFile;
    const auto writeIt = [this, selection, fileName = m_folder->recoveryFile(), inOneFile] {
        m_result = write(selection, fileName, inOneFile);
    };
    m_writer.reset(QThread::create(writeIt));
    connect(m_writer.get(), &QThread::finished, this, &KRAutosave::finishWriting);
    if (KRConcurrent::start(m_writer.get()))
        return;
    writeIt();
    finishWriting();
}

void KRAutosave::finishWriting()
{
    m_writer->wait();
    m_writer.reset();
    const bool isSavedMeanwhile = !m_workspace->isModified();
    if (m_result.failure.isEmpty())
        emit written();
    else if (!isSavedMeanwhile)
        emit failed(m_result.failure);
    if (isSavedMeanwhile)
        m_folder->removeWork();
}
