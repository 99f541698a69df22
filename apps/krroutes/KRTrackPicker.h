#pragma once

#include "KRTrackTrace.h"

#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRGeoPosition.h>
#include <KRGeoLocation/KRGeoPositionRect.h>

#include <memory>
#include <vector>

class KRMapViewport;

/**
 * Knows which track of a selection lies where on the map.
 *
 * Made in any thread, for a million points in a fraction of a second; then it never changes, may be asked from
 * several threads at once, and answers within milliseconds. Copies share what they know. Rows count as the tracks
 * of the selection, later ones lie above earlier ones.
 */
class KRTrackPicker
{
public:
    struct Hit {
        int row = -1; ///< -1 for no track
        double along = -1.0; ///< number of the point before, and how far on to the next one; -1 within an area
        KRGeoPosition position; ///< on the track; that of the pixel within an area or when there is no track

        bool isValid() const { return row >= 0; }
    };

    KRTrackPicker() = default;
    /// Tracks that @p previous knows are taken over from it.
    explicit KRTrackPicker(const KRGPXTrackSelection &selection, const KRTrackPicker &previous = KRTrackPicker());

    /**
     * What is seen at a pixel of the viewport, or at most @p tolerancePx beside it. What is nearest counts; of all
     * that lies under the pixel the topmost does. Lines and markers come before a filled area that they can be seen
     * through, and nothing is found beneath an opaque one.
     */
    Hit hitAt(const QPointF &pixel, const KRMapViewport &viewport, double tolerancePx) const;

    /// Around all valid positions, across the date line where that is the narrower way; not valid without any. What
    /// KRMapArea would find, but at once, from what is known of the tracks, and without their positions.
    KRGeoPositionRect area() const;
    KRGeoPositionRect areaOf(int row) const;

    /// The selection without tracks that leave no mark in the viewport. One that crops everything keeps a track.
    KRGPXTrackSelection visibleIn(const KRMapViewport &viewport) const;

private:
    std::shared_ptr<const KRTrackTrace> traceOf(int row) const;

    KRGPXTrackSelection m_selection;
    std::vector<std::shared_ptr<const KRTrackTrace>> m_traces;
};
