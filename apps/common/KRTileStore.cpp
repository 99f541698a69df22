#include "KRTileStore.h"

#include <QMutexLocker>

namespace {

/// Far more than a picture has; a source that lacks nearly all tiles must not fill the memory with that.
constexpr int mostNotes = 100000;

} // namespace

KRTileStore::Entry KRTileStore::find(const KRTileKey &key)
{
    const QMutexLocker locker(&m_mutex);
    if (const QImage *const image = m_images.object(key))
        return {Here, *image, QString()};
    const Note note = m_notes.value(key);
    if (note.end.hasExpired())
        return {};
    return {note.state, QImage(), note.reason};
}

void KRTileStore::insert(const KRTileKey &key, const QImage &image)
{
    const QMutexLocker locker(&m_mutex);
    m_notes.remove(key);
    m_images.insert(key, new QImage(image), int(image.sizeInBytes() / 1024) + 1);
    if (m_tileSide == 0)
        m_tileSide = image.width();
    announce();
}

void KRTileStore::setAbsent(const KRTileKey &key)
{
    setNote(key, {Absent, QString(), QDeadlineTimer(QDeadlineTimer::Forever)});
}

void KRTileStore::setFailed(const KRTileKey &key, const QString &reason, int retryMs)
{
    setNote(key, {Failed, reason, QDeadlineTimer(retryMs)});
}

std::optional<KRIntRange> KRTileStore::zoomRange()
{
    const QMutexLocker locker(&m_mutex);
    return m_zoomRange;
}

void KRTileStore::setZoomRange(const KRIntRange &range)
{
    const QMutexLocker locker(&m_mutex);
    m_zoomRange = range;
    announce();
}

int KRTileStore::tileSide()
{
    const QMutexLocker locker(&m_mutex);
    return m_tileSide;
}

QString KRTileStore::problem()
{
    const QMutexLocker locker(&m_mutex);
    return m_problem;
}

void KRTileStore::setProblem(const QString &problem)
{
    const QMutexLocker locker(&m_mutex);
    m_problem = problem;
    announce();
}

quint64 KRTileStore::revision()
{
    const QMutexLocker locker(&m_mutex);
    return m_revision;
}

void KRTileStore::waitForChange(quint64 since, QDeadlineTimer end)
{
    const QMutexLocker locker(&m_mutex);
    while (m_revision == since && m_changed.wait(&m_mutex, end)) { }
}

void KRTileStore::setNote(const KRTileKey &key, const Note &note)
{
    const QMutexLocker locker(&m_mutex);
    if (m_notes.size() >= mostNotes)
        m_notes.clear();
    m_notes.insert(key, note);
    announce();
}

void KRTileStore::announce()
{
    ++m_revision;
    m_changed.wakeAll();
}
