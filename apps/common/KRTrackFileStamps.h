#pragma once

#include <KRCore/KRSingleton.h>
#include <KRGeoLocation/KRGPXTrack.h>

#include <QDateTime>
#include <QHash>
#include <QMutex>
#include <QString>

class QFileInfo;

/**
 * Knows for the whole process which files hold what has been read from them or written to them last.
 *
 * A file that has been changed or replaced meanwhile, say by a backup that was put back or by another program, shows it
 * by its size or its time. Only forget() forgets anything; the tracks share their points with those that
 * KRGPXTrackFileRegistry keeps. No digests, as tracks are equal within a tolerance. May be called from several threads.
 */
class KRTrackFileStamps : public KRSingleton<KRTrackFileStamps>
{
public:
    /// What tells a file from the one that replaces it.
    struct Stamp {
        bool operator==(const Stamp &other) const { return size == other.size && lastChange == other.lastChange; }

        qint64 size = 0;
        QDateTime lastChange; ///< not valid without a file
    };
    static Stamp stampOf(const QFileInfo &file);

    /// @p stamp is older than the reading, or younger than the writing. Documents have no track.
    void remember(const QFileInfo &file, const Stamp &stamp, const KRGPXTrack &track = KRGPXTrack());
    /// For a file that has been removed; answers with the track that it was remembered with.
    KRGPXTrack forget(const QFileInfo &file);
    /// Whether the file is as it was when it was remembered with an equal track.
    bool holds(const QFileInfo &file, const KRGPXTrack &track = KRGPXTrack()) const;

private:
    QHash<QString, QPair<Stamp, KRGPXTrack>> m_files; // by absolute path
    mutable QMutex m_mutex;
};
