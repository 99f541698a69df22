#pragma once

#include <KRGeoLocation/KRGPXTrack.h>

#include <QString>

class QDomElement;

/**
 * Keeps what the XML of a track leaves out on purpose, and puts it back after reading.
 *
 * That XML holds no descriptions of tracks and points, and its comma text carries times in milliseconds that are
 * read as seconds. The keeper writes the descriptions into an element of its own, with enclaves and points by their
 * numbers, and turns the times back into what they were; they come back in UTC.
 */
class KRTrackKeeper
{
public:
    /// Which track, enclave or point an element belongs to, counted from 0.
    inline static const QLatin1String numberAttribute{"number"};

    /// Appends the descriptions to @p element; says whether there were any.
    static bool keep(const KRGPXTrack &track, QDomElement &element);
    /// Whether keep() has written descriptions of points of the track itself, which therefore has some.
    static bool holdsPoints(const QDomElement &element);

    /// The track as it was before it was written. @p element is what keep() wrote, null when there was nothing.
    static KRGPXTrack restored(const KRGPXTrack &track, const QDomElement &element);
};
