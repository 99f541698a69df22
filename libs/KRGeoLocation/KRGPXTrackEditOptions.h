#pragma once

#include <QFlags>

/// The buttons that a row of the track list offers; the numbers are bits to be combined.
enum KRGPXTrackEditOptionsEnum : int {
    NoTrackEditOption = 0,
    MarkTrackEditOption = 1,
    DeleteTrackEditOption = 2,
    ZoomTrackEditOption = 4,
    EditTrackEditOption = 8,
    AllTrackEditOptions = 15,
};

Q_DECLARE_FLAGS(KRGPXTrackEditOptions, KRGPXTrackEditOptionsEnum)
Q_DECLARE_OPERATORS_FOR_FLAGS(KRGPXTrackEditOptions)
