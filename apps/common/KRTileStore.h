#pragma once

#include "KRTileKey.h"

#include <KRCore/KRIntRange.h>

#include <QCache>
#include <QDeadlineTimer>
#include <QHash>
#include <QImage>
#include <QMutex>
#include <QString>
#include <QWaitCondition>

#include <optional>

/**
 * What is known of the tiles of one source: the pictures seen last, and what became of the others.
 *
 * For use from several threads at once. Pictures take mostKilobytes at most; those not asked for longest go first.
 */
class KRTileStore
{
public:
    static constexpr int mostKilobytes = 256 * 1024;

    enum State {
        Unknown, ///< not asked for yet, forgotten, or worth another try
        Here,
        Absent, ///< the source has none
        Failed,
    };
    struct Entry {
        State state = Unknown;
        QImage image; ///< where it is here; a square
        QString reason; ///< where it failed
    };

    explicit KRTileStore(int kilobytes = mostKilobytes) : m_images(kilobytes) { }

    Entry find(const KRTileKey &key);
    void insert(const KRTileKey &key, const QImage &image);
    void setAbsent(const KRTileKey &key);
    /// After @p retryMs it is unknown again; a negative number means never.
    void setFailed(const KRTileKey &key, const QString &reason, int retryMs);

    /// The levels of the source; not set until it was opened.
    std::optional<KRIntRange> zoomRange();
    void setZoomRange(const KRIntRange &range);
    /// The side of the tiles, in their own pixels; 0 until the first one was seen.
    int tileSide();

    /// Why there is nothing at all, or why tiles keep one waiting; empty where all goes well.
    QString problem();
    void setProblem(const QString &problem);

    /// Grows with every change. To be read before what the change would be waited for.
    quint64 revision();
    /// Waits for a change since then, until @p end at most.
    void waitForChange(quint64 since, QDeadlineTimer end);

private:
    struct Note {
        State state = Unknown;
        QString reason;
        QDeadlineTimer end{QDeadlineTimer::Forever};
    };
    void setNote(const KRTileKey &key, const Note &note);
    void announce();

    QMutex m_mutex;
    QWaitCondition m_changed;
    quint64 m_revision = 0;
    QCache<KRTileKey, QImage> m_images; ///< cost in kilobytes
    QHash<KRTileKey, Note> m_notes;
    std::optional<KRIntRange> m_zoomRange;
    int m_tileSide = 0;
    QString m_problem;
};
