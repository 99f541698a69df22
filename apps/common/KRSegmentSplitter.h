#pragma once

#include <KRGeoLocation/KRGPXConfiguredTrackList.h>

/// Makes each segment of a track a track of its own, so that pauses are not drawn as straight lines.
namespace KRSegmentSplitter {

/**
 * Tracks with several segments become one for each segment with points, named "Tour (1)", "Tour (2)" and so on, drawn
 * as before. A configured shape that the whole track has suggested gives way to what the segment suggests. Areas stay
 * whole, since the holes in them belong to all segments.
 */
KRGPXConfiguredTrackList split(const KRGPXConfiguredTrackList &tracks);

} // namespace KRSegmentSplitter
