#pragma once

#include "KRGPXTrackFileRegistryKey.h"

#include <QHash>
#include <QPair>
#include <QString>

/**
 * The file names of tracks in directories, in groups of tracks with one name that begin at one place.
 *
 * Tracks of as many points have the same hash. A single table would compare each with all the others of its size,
 * which takes seconds for ten thousand of them. Has no lock of its own: one thread at a time.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackFileNames
{
public:
    /// Empty when there is none.
    QString value(const KRGPXTrackFileRegistryKey &key) const;
    /// In place of the one that there may be for an equal key.
    void insert(const KRGPXTrackFileRegistryKey &key, const QString &fileName);
    void remove(const KRGPXTrackFileRegistryKey &key);

private:
    using Group = QPair<QString, QPair<int, int>>; // the name of the tracks and the cell of a grid where they begin
    using Names = QHash<KRGPXTrackFileRegistryKey, QString>;

    static Group groupOf(const KRGPXTrack &track, double latitudeOffset, double longitudeOffset);
    Group groupWith(const KRGPXTrackFileRegistryKey &key) const;

    QHash<Group, Names> m_groups;
};
