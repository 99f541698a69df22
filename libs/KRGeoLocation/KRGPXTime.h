#pragma once

#include "KRGeoLocationExport.h"

#include <QDateTime>

#include <limits>

/**
 * The time of a point as segments keep it: a number where that says all, for a QDateTime in local time asks the system
 * for the zone again and again, which takes microseconds. Local times keep the instant that they had when they were
 * read, even if the zone of the system changes.
 */
struct KRGEOLOCATION_EXPORT KRGPXTime {
    static constexpr qint64 noTime = std::numeric_limits<qint64>::min();
    static constexpr qint64 leastMilliseconds = noTime + 2; ///< of those in between segments make use
    static constexpr int utcZone = 0;
    static constexpr int localZone = std::numeric_limits<int>::min();

    qint64 milliseconds = noTime; ///< since 1970; noTime where there is no time, and where dateTime has it
    int zone = utcZone; ///< in which it is given back: seconds east of Greenwich, or localZone
    QDateTime dateTime; ///< what the numbers cannot tell: local times of which only Qt knows the instant

    /// Of anything that a QDateTime can hold.
    static KRGPXTime of(const QDateTime &time);

    bool isValid() const;
    QDateTime toDateTime() const;
    /// The same, in UTC and without asking the system for its zone where the numbers tell; noTime if it is not valid.
    qint64 toMilliseconds() const;
};
