#pragma once

#include <QFlags>

/// In what two configured tracks differ; the numbers are bits to be combined.
enum KRGPXTrackAspectEnum : int {
    LineWidthAspect = 1,
    LineColorAspect = 2,
    TrackAspect = 4, ///< the points, the name or the description
};

Q_DECLARE_FLAGS(KRGPXTrackAspect, KRGPXTrackAspectEnum)
Q_DECLARE_OPERATORS_FOR_FLAGS(KRGPXTrackAspect)
