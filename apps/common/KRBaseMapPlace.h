#pragma once

#include <KRGeoLocation/KRGeoPosition.h>

#include <QString>

/// A place that a host wants named on the base map.
struct KRBaseMapPlace {
    QString name;
    KRGeoPosition position; ///< the place is left out when this is not valid
};
