#pragma once

#include "KRGPXTrack.h"

#include <QDir>

/**
 * A track together with the directory that it is written to: what KRGPXTrackFileRegistry keeps file names for.
 *
 * Two keys are equal when the tracks are and both directories are the same on disk.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackFileRegistryKey
{
public:
    KRGPXTrackFileRegistryKey(const KRGPXTrack &track, const QDir &dir);
    KRGPXTrackFileRegistryKey(const KRGPXTrackFileRegistryKey &other) = default;
    KRGPXTrackFileRegistryKey(KRGPXTrackFileRegistryKey &&other) noexcept = default;
    KRGPXTrackFileRegistryKey &operator=(const KRGPXTrackFileRegistryKey &other) = default;
    KRGPXTrackFileRegistryKey &operator=(KRGPXTrackFileRegistryKey &&other) noexcept = default;
    virtual ~KRGPXTrackFileRegistryKey() = default;

    /// False for QDir(""), which stands for "no directory". QDir takes that for the current one, which therefore has
    /// to be named in full.
    static bool namesDirectory(const QDir &dir);

    const KRGPXTrack &track() const { return m_track; }
    const QDir &dir() const { return m_dir; }

    bool isValid() const;
    bool operator==(const KRGPXTrackFileRegistryKey &other) const;
    bool operator!=(const KRGPXTrackFileRegistryKey &other) const { return !(*this == other); }
    /// The number of points: cheap, and the same for equal tracks.
    uint hash() const;

private:
    KRGPXTrack m_track;
    QDir m_dir;
};

KRGEOLOCATION_EXPORT uint qHash(const KRGPXTrackFileRegistryKey &key, uint seed = 0);
/// Equal for directories that compare equal, in whatever way they are written.
KRGEOLOCATION_EXPORT uint qHash(const QDir &dir, uint seed = 0);
