#pragma once

#include <QtGlobal>

class QStringRef;

/// What the comma text of one point says, see KRGPXTrackPoint::decodeKml().
struct KRGPXCommaText {
    double latitude = 0.0; ///< decimal degrees
    double longitude = 0.0;
    int elevation = 0; ///< whole metres
    qint64 milliseconds = 0; ///< since 1970, or KRGPXTrackSegment::noTime

    static KRGPXCommaText decode(const QStringRef &text);
};
