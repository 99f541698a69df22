#pragma once

#include <KRGeoLocation/KRGPXConfiguredTrackList.h>

/**
 * Changes of whole tracks, as a user asks for them.
 *
 * Every function gives new tracks and leaves the old ones as they are. Points keep their time, elevation and
 * description, tracks their configuration, their description and the shape that was chosen for them. A configured
 * shape that the old points have suggested gives way to what the new ones suggest.
 */
class KRTrackEditing
{
public:
    static KRGPXConfiguredTrack renamed(const KRGPXConfiguredTrack &track, const QString &name);

    /// The same way from its end to its start; enclaves have no direction and stay. Twice gives the track again.
    static KRGPXConfiguredTrack reversed(const KRGPXConfiguredTrack &track);

    /// Some segments of a track as a track of their own, "Tour (1)" for number 1; of a track without a name one
    /// without.
    static KRGPXConfiguredTrack part(const KRGPXConfiguredTrack &track, int number,
                                     const QList<KRGPXTrackSegment> &segments);

    /**
     * "Tour (1)" up to the point and "Tour (2)" from it on; both have the point, unless a segment ends or begins
     * there, where the parts come apart without it. The track alone when there is nothing to cut: at its first and its
     * last point, with a number outside, and for areas with enclaves.
     * @param pointNumber counted from 0 over all segments.
     */
    static KRGPXConfiguredTrackList split(const KRGPXConfiguredTrack &track, int pointNumber);
    /// The number, for split(), of the point next to @p position; the first of several. -1 without points or without a
    /// valid position.
    static int nearestPoint(const KRGPXConfiguredTrack &track, const KRGeoPosition &position);

    /**
     * The way of @p first, then that of @p second, drawn as the first. Where the second begins with the point that the
     * first ends with, they become one segment, so that this undoes split(); elsewhere a gap remains.
     */
    static KRGPXConfiguredTrack joined(const KRGPXConfiguredTrack &first, const KRGPXConfiguredTrack &second);
};
