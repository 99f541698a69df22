#pragma once

#include <KRCore/KRSingleton.h>
#include <KRGeoLocation/KRGPXTrack.h>

#include <QDateTime>
#include <QHash>
#include <QMutex>
#include <QString>

class QFileInfo;

/**
 * Knows for the whole process which track files hold what has been read from them or written to them last.
 *
 * A file that has been changed or replaced meanwhile, say by a backup that was put back or by another program, shows it
 * by its size or its time. May be called from several threads.
 */
class KRTrackFileStamps : public KRSingleton<KRTrackFileStamps>
{
public:
    /// The file as it is now holds @p track.
    void remember(const QFileInfo &file, const KRGPXTrack &track);
    /// Whether the file is as it was when it was remembered with an equal track.
    bool holds(const QFileInfo &file, const KRGPXTrack &track) const;

private:
    struct Stamp {
        qint64 size = 0;
        QDateTime lastChange; ///< not valid without a file
        KRGPXTrack track;
    };
    static Stamp stampOf(const QFileInfo &file, const KRGPXTrack &track);

    QHash<QString, Stamp> m_stamps; // by absolute path
    mutable QMutex m_mutex;
};
