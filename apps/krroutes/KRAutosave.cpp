#include "KRAutosave.h"

#include "KRRouteWorkspace.h"

#include <KRRouteDocument.h>

#include <KRCore/KRErrorHistory.h>

#include <QFileInfo>
#include <QtConcurrent>

#include <numeric>

namespace {

int countPoints(const KRGPXTrackSelection &selection)
{
    const KRGPXConfiguredTrackList tracks = selection.tracks();
    return std::accumulate(tracks.cbegin(), tracks.cend(), 0, [](int sum, const KRGPXConfiguredTrack &track) {
        return sum + track.track().countPoints();
    });
}

QString writeDocument(const KRGPXTrackSelection &selection, const QString &fileName, bool inOneFile)
{
    KRRouteDocument document;
    document.setSelection(selection);
    KRErrorHistory history;
    const QFileInfo file(fileName);
    // In one file a track takes more of what may be read again.
    if ((inOneFile && document.saveInOneFile(file, nullptr)) || document.save(file, &history))
        return QString();
    return history.isEmpty() ? fileName : history.entries().first().toString();
}

} // namespace

KRAutosave::KRAutosave(KRRouteWorkspace *workspace, const QDir &place, QObject *parent)
    : QObject(parent), m_workspace(workspace), m_folder(KRRecoveryFolder::create(place))
{
    m_timer.setSingleShot(true);
    setDelay(1000);
    connect(&m_timer, &QTimer::timeout, this, &KRAutosave::startWriting);
    connect(&m_writing, &QFutureWatcher<QString>::finished, this, &KRAutosave::finishWriting);
    connect(workspace, &KRRouteWorkspace::selectionChanged, this, &KRAutosave::scheduleWriting);
    connect(workspace, &KRRouteWorkspace::documentChanged, this, &KRAutosave::scheduleWriting);
}

KRAutosave::~KRAutosave()
{
    m_writing.waitForFinished();
    if (m_folder)
        m_folder->discard();
}

void KRAutosave::adopt(std::unique_ptr<KRRecoveryFolder> folder)
{
    m_writing.waitForFinished();
    if (m_folder)
        m_folder->discard();
    m_folder = std::move(folder);
}

void KRAutosave::scheduleWriting()
{
    if (!m_workspace->isModified() && !m_writing.isRunning()) {
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
    if (m_writing.isRunning()) {
        scheduleWriting();
        return;
    }
    if (!m_folder || !m_folder->setDocumentFile(m_workspace->fileName())) {
        emit failed(tr("Der Ordner für ungesicherte Änderungen kann nicht beschrieben werden."));
        return;
    }
    const KRGPXTrackSelection selection = m_workspace->selection();
    const bool inOneFile = countPoints(selection) <= m_mostPointsInOneFile;
    m_writing.setFuture(QtConcurrent::run(writeDocument, selection, m_folder->recoveryFile(), inOneFile));
}

void KRAutosave::finishWriting()
{
    const QString reason = m_writing.result();
    const bool isSavedMeanwhile = !m_workspace->isModified();
    if (reason.isEmpty())
        emit written();
    else if (!isSavedMeanwhile)
        emit failed(reason);
    if (isSavedMeanwhile)
        m_folder->removeWork();
}
