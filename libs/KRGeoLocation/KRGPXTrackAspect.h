#pragma once

#include <QFlags>

/// In what two configured tracks differ; the numbers are bits to be combined.
enum KRGPXTrackAspectEnum : int {
    LineWidthAspect = 1,
    LineColorAspect = 2,
    TrackAspect = 4, ///< name, description, shape of its own, segments or enclaves
};

Q_DECLARE_FLAGS(KRGPXTrackAspect, KRGPXTrackAspectEnum)
Q_DECLARE_OPERATORS_FOR_FLAGS(KRGPXTrackAspect)
