#include "KRTrackFileStamps.h"

#include <QFileInfo>
#include <QMutexLocker>

void KRTrackFileStamps::remember(const QFileInfo &file, const KRGPXTrack &track)
{
    const Stamp stamp = stampOf(file, track);
    const QMutexLocker locker(&m_mutex);
    m_stamps.insert(file.absoluteFilePath(), stamp);
}

bool KRTrackFileStamps::holds(const QFileInfo &file, const KRGPXTrack &track) const
{
    const Stamp now = stampOf(file, track);
    const QMutexLocker locker(&m_mutex);
    const Stamp known = m_stamps.value(file.absoluteFilePath());
    return now.lastChange.isValid() && now.lastChange == known.lastChange && now.size == known.size
           && now.track == known.track;
}

KRTrackFileStamps::Stamp KRTrackFileStamps::stampOf(const QFileInfo &file, const KRGPXTrack &track)
{
    // A fresh one, as the file may have changed since somebody asked the given one.
    const QFileInfo present(file.filePath());
    return present.isFile() ? Stamp{present.size(), present.lastModified(), track} : Stamp{0, QDateTime(), track};
}
