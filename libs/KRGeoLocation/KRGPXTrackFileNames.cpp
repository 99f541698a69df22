#include "KRGPXTrackFileNames.h"

#include <KRCore/KRMath.h>

#include <cmath>

namespace {

// A cell is about a metre wide and ten times as wide as positions may lie apart that count as equal.
constexpr double cellsPerDegree = 1e5;
constexpr double tolerance = 1e-6; // degrees

int cellAt(double degrees)
{
    return KRMath::toInt(std::floor(degrees * cellsPerDegree));
}

} // namespace

QString KRGPXTrackFileNames::value(const KRGPXTrackFileRegistryKey &key) const
{
    return m_groups.value(groupWith(key)).value(key);
}

void KRGPXTrackFileNames::insert(const KRGPXTrackFileRegistryKey &key, const QString &fileName)
{
    m_groups[groupWith(key)].insert(key, fileName);
}

void KRGPXTrackFileNames::remove(const KRGPXTrackFileRegistryKey &key)
{
    const auto names = m_groups.find(groupWith(key));
    if (names == m_groups.end())
        return;
    names->remove(key);
    if (names->isEmpty())
        m_groups.erase(names);
}

KRGPXTrackFileNames::Group KRGPXTrackFileNames::groupOf(const KRGPXTrack &track, double latitudeOffset,
                                                        double longitudeOffset)
{
    const QPointF first = track.firstPoint().toPointF();
    return {track.name(), {cellAt(first.y() + latitudeOffset), cellAt(first.x() + longitudeOffset)}};
}

/// That of an equal key, which may begin in a neighbouring cell, or else the one where the key belongs.
KRGPXTrackFileNames::Group KRGPXTrackFileNames::groupWith(const KRGPXTrackFileRegistryKey &key) const
{
    for (const double latitudeOffset : {-tolerance, tolerance}) {
        for (const double longitudeOffset : {-tolerance, tolerance}) {
            const Group group = groupOf(key.track(), latitudeOffset, longitudeOffset);
            const auto names = m_groups.constFind(group);
            if (names != m_groups.constEnd() && names->contains(key))
                return group;
        }
    }
    return groupOf(key.track(), 0.0, 0.0);
}
