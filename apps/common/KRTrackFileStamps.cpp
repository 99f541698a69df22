#include "KRTrackFileStamps.h"

#include <QFileInfo>
#include <QMutexLocker>

KRTrackFileStamps::Stamp KRTrackFileStamps::stampOf(const QFileInfo &file)
{
    // A fresh one, as the file may have changed since somebody asked the given one.
    const QFileInfo present(file.filePath());
    return present.isFile() ? Stamp{present.size(), present.lastModified()} : Stamp();
}

void KRTrackFileStamps::remember(const QFileInfo &file, const Stamp &stamp, const KRGPXTrack &track)
{
    const QMutexLocker locker(&m_mutex);
    m_files.insert(file.absoluteFilePath(), {stamp, track});
}

KRGPXTrack KRTrackFileStamps::forget(const QFileInfo &file)
{
    const QMutexLocker locker(&m_mutex);
    return m_files.take(file.absoluteFilePath()).second;
}

bool KRTrackFileStamps::holds(const QFileInfo &file, const KRGPXTrack &track) const
{
    const Stamp now = stampOf(file);
    const QMutexLocker locker(&m_mutex);
    const QPair<Stamp, KRGPXTrack> known = m_files.value(file.absoluteFilePath());
    return now.lastChange.isValid() && now == known.first && track == known.second;
}
