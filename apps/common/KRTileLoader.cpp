#include "KRTileLoader.h"

#include "KRTileDecoder.h"
#include "KRTileStore.h"

#include <KRCore/KRErrorHistory.h>

#include <QImage>
#include <QMetaObject>
#include <QMutexLocker>

#include <algorithm>
#include <utility>

namespace {

constexpr int mostAttempts = 3; ///< for one tile
constexpr int attemptDelayMs = 700; ///< times the number of the attempt
constexpr int retryMs = 60000; ///< after the last attempt
constexpr int retryCheckMs = 10000;
constexpr int firstPauseMs = 500; ///< twice as long each time
constexpr int longestPauseMs = 60000;
/// After so many pauses without any success what is wished for counts as failed.
constexpr int patience = 3;
/// So it does at once where the source asks to be left alone for longer.
constexpr int longestWorthwhilePauseMs = 20000;

} // namespace

KRTileLoader::KRTileLoader(const QString &sourceText, const std::shared_ptr<KRTileStore> &store)
    : m_sourceText(sourceText), m_store(store), m_wakeUp(this)
{
    m_wakeUp.setSingleShot(true);
    connect(&m_wakeUp, &QTimer::timeout, this, &KRTileLoader::work);
}

KRTileLoader::~KRTileLoader() = default;

void KRTileLoader::setWishes(const void *owner, const KRTileKeyList &keys)
{
    {
        const QMutexLocker locker(&m_mutex);
        if (keys.isEmpty())
            m_wishes.remove(owner);
        else
            m_wishes.insert(owner, keys);
    }
    QMetaObject::invokeMethod(this, &KRTileLoader::workSoon, Qt::QueuedConnection);
}

void KRTileLoader::workSoon()
{
    if (m_isWorkComing)
        return;
    m_isWorkComing = true;
    QMetaObject::invokeMethod(this, &KRTileLoader::work, Qt::QueuedConnection);
}

void KRTileLoader::work()
{
    m_isWorkComing = false;
    if (!openSource())
        return;
    const KRTileKeyList wishes = allWishes();
    dropUnwished(wishes);
    if (!m_pauseEnd.hasExpired()) {
        if (m_pauses >= patience || m_isPauseLong)
            giveUp(wishes);
        wakeUpIn(m_pauseEnd.remainingTime());
        return;
    }
    // No more at once than the source takes at a time: in between others may wish for something else.
    int free = m_source->maximumRequests() - m_underWay.size();
    for (const KRTileKey &key : wishes) {
        if (free <= 0)
            break;
        if (!isToBeAsked(key))
            continue;
        --free;
        m_underWay.insert(key);
        m_source->request(key);
    }
    wakeUpForRetries(wishes);
}

void KRTileLoader::wakeUpForRetries(const KRTileKeyList &wishes)
{
    for (const KRTileKey &key : wishes) {
        if (m_delays.contains(key))
            wakeUpIn(m_delays.value(key).end.remainingTime());
        else if (m_store->find(key).state == KRTileStore::Failed)
            wakeUpIn(retryCheckMs);
    }
}

bool KRTileLoader::openSource()
{
    if (m_wasOpened)
        return m_source != nullptr;
    m_wasOpened = true;
    KRErrorHistory history;
    m_source = KRTileSource::open(m_sourceText, &history);
    if (m_source == nullptr) {
        m_store->setProblem(history.entries().first().reason);
        emit advanced();
        return false;
    }
    connect(m_source.get(), &KRTileSource::answered, this, &KRTileLoader::take);
    m_store->setZoomRange(m_source->zoomRange());
    emit advanced();
    return true;
}

KRTileKeyList KRTileLoader::allWishes() const
{
    const QMutexLocker locker(&m_mutex);
    KRTileKeyList all;
    for (const KRTileKeyList &keys : m_wishes)
        all += keys;
    return all;
}

void KRTileLoader::dropUnwished(const KRTileKeyList &wishes)
{
    const QSet<KRTileKey> wished(wishes.begin(), wishes.end());
    const QSet<KRTileKey> unwished = QSet<KRTileKey>(m_underWay).subtract(wished);
    for (const KRTileKey &key : unwished) {
        m_source->cancel(key);
        m_underWay.remove(key);
    }
}

bool KRTileLoader::isToBeAsked(const KRTileKey &key) const
{
    return !m_underWay.contains(key) && m_delays.value(key).end.hasExpired()
           && m_store->find(key).state == KRTileStore::Unknown;
}

void KRTileLoader::take(const KRTileKey &key, const KRTileAnswer &answer)
{
    m_underWay.remove(key);
    bool isSettled = true;
    switch (answer.kind) {
    case KRTileAnswer::Found:
        isSettled = takePicture(key, answer);
        break;
    case KRTileAnswer::Absent:
        m_store->setAbsent(key);
        break;
    case KRTileAnswer::Failed:
        m_store->setFailed(key, answer.reason, -1);
        break;
    case KRTileAnswer::Later:
        tryLater(key, answer.reason, answer.waitMs);
        isSettled = false;
        break;
    case KRTileAnswer::Overloaded:
        pause(answer);
        isSettled = false;
        break;
    }
    if (isSettled)
        m_delays.remove(key);
    if (isSettled && answer.kind != KRTileAnswer::Failed && std::exchange(m_pauses, 0) > 0)
        m_store->setProblem(QString());
    emit advanced();
    workSoon();
}

bool KRTileLoader::takePicture(const KRTileKey &key, const KRTileAnswer &answer)
{
    QString problem;
    const QImage image = KRTileDecoder::decode(answer.bytes, &problem);
    if (image.isNull() && answer.isKept) {
        m_source->forget(key, answer);
        tryLater(key, problem, 0);
        return false;
    }
    if (image.isNull())
        m_store->setFailed(key, problem, -1);
    else
        m_store->insert(key, image);
    return true;
}

void KRTileLoader::tryLater(const KRTileKey &key, const QString &reason, int waitMs)
{
    Delay &delay = m_delays[key];
    ++delay.attempts;
    if (delay.attempts >= mostAttempts) {
        m_delays.remove(key);
        m_store->setFailed(key, reason, retryMs);
        return;
    }
    delay.end = QDeadlineTimer(std::max(waitMs, attemptDelayMs * delay.attempts));
}

void KRTileLoader::pause(const KRTileAnswer &answer)
{
    // The other answers of the same round say the same.
    if (!m_pauseEnd.hasExpired())
        return;
    const int ownWaitMs = std::min(firstPauseMs << std::min(m_pauses, 16), longestPauseMs);
    const int waitMs = std::max(answer.waitMs, ownWaitMs);
    m_pauseEnd = QDeadlineTimer(waitMs);
    m_isPauseLong = waitMs > longestWorthwhilePauseMs;
    wakeUpIn(waitMs);
    m_store->setProblem(answer.reason);
    ++m_pauses;
}

void KRTileLoader::giveUp(const KRTileKeyList &wishes)
{
    const QString reason = m_store->problem();
    for (const KRTileKey &key : wishes) {
        if (isToBeAsked(key))
            m_store->setFailed(key, reason, int(m_pauseEnd.remainingTime()));
    }
}

void KRTileLoader::wakeUpIn(qint64 ms)
{
    // A little later than the time it waits for, so that this is over for certain.
    const int soon = int(std::max<qint64>(ms, 0)) + 5;
    if (!m_wakeUp.isActive() || m_wakeUp.remainingTime() > soon)
        m_wakeUp.start(soon);
}
