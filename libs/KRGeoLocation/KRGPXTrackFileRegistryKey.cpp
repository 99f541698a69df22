#include "KRGPXTrackFileRegistryKey.h"

KRGPXTrackFileRegistryKey::KRGPXTrackFileRegistryKey(const KRGPXTrack &track, const QDir &dir)
    : m_track(track), m_dir(dir.path()) // without name filters, which make directories differ
{ }

bool KRGPXTrackFileRegistryKey::namesDirectory(const QDir &dir)
{
    // Not a comparison of directories: QDir("") equals the current directory, however that is written.
    return dir.path() != QStringLiteral(".");
}

bool KRGPXTrackFileRegistryKey::isValid() const
{
    return namesDirectory(m_dir) && m_track.isValid();
}

bool KRGPXTrackFileRegistryKey::operator==(const KRGPXTrackFileRegistryKey &other) const
{
    return m_track == other.m_track && m_dir == other.m_dir;
}

uint KRGPXTrackFileRegistryKey::hash() const
{
    return uint(m_track.countPoints());
}

uint qHash(const KRGPXTrackFileRegistryKey &key, uint seed)
{
    return key.hash() ^ seed;
}

uint qHash(const QDir &dir, uint seed)
{
    return uint(qHash(dir.exists() ? dir.canonicalPath() : dir.absolutePath())) ^ seed;
}
