#pragma once

#include "KRGeoPosition.h"

#include <QtGlobal>

/**
 * A view of consecutive positions in columns: two arrays of decimal degrees, one number per position in each.
 *
 * Owns nothing: whoever hands out a span says how long its arrays stay where they are. No position is checked.
 */
struct KRGeoPositionSpan {
    const double *latitudes = nullptr;
    const double *longitudes = nullptr;
    int count = 0;

    KRGeoPosition at(int index) const { return KRGeoPosition(latitudes[index], longitudes[index]); }
    /// Without the first @p first positions; @p length of what then follows.
    KRGeoPositionSpan mid(int first, int length) const { return {latitudes + first, longitudes + first, length}; }
};

Q_DECLARE_TYPEINFO(KRGeoPositionSpan, Q_MOVABLE_TYPE);
