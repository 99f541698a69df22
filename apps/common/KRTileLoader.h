#pragma once

#include "KRTileKey.h"
#include "KRTileSource.h"

#include <QDeadlineTimer>
#include <QHash>
#include <QMutex>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <memory>

class KRTileStore;

/**
 * Fetches the tiles that are wished for from a source into a store.
 *
 * Lives in a thread of its own, where it opens the source. A tile that fails is tried again some times; a source that
 * does not answer or is overloaded is left alone, longer each time.
 */
class KRTileLoader : public QObject
{
    Q_OBJECT

public:
    KRTileLoader(const QString &sourceText, const std::shared_ptr<KRTileStore> &store);
    ~KRTileLoader() override;

    /// What @p owner wishes for from now on, the most urgent first; what nobody wishes for any more is given up.
    /// From any thread.
    void setWishes(const void *owner, const KRTileKeyList &keys);

signals:
    /// Something was added to the store.
    void advanced();

private:
    struct Delay {
        int attempts = 0;
        QDeadlineTimer end;
    };

    void workSoon();
    void work();
    bool openSource();
    KRTileKeyList allWishes() const;
    void dropUnwished(const KRTileKeyList &wishes);
    bool isToBeAsked(const KRTileKey &key) const;
    void take(const KRTileKey &key, const KRTileAnswer &answer);
    /// False when what was kept on the disk is none, and has to be asked for again.
    bool takePicture(const KRTileKey &key, const KRTileAnswer &answer);
    void tryLater(const KRTileKey &key, const QString &reason, int waitMs);
    void pause(const KRTileAnswer &answer);
    void giveUp(const KRTileKeyList &wishes);
    void wakeUpForRetries(const KRTileKeyList &wishes);
    void wakeUpIn(qint64 ms);

    const QString m_sourceText;
    const std::shared_ptr<KRTileStore> m_store;

    mutable QMutex m_mutex; ///< of the wishes
    QHash<const void *, KRTileKeyList> m_wishes;

    // only in the thread of the loader
    std::unique_ptr<KRTileSource> m_source;
    bool m_wasOpened = false;
    bool m_isWorkComing = false;
    QTimer m_wakeUp;
    QSet<KRTileKey> m_underWay;
    QHash<KRTileKey, Delay> m_delays;
    QDeadlineTimer m_pauseEnd{0};
    bool m_isPauseLong = false;
    int m_pauses = 0; ///< one after the other, without a tile in between
};
