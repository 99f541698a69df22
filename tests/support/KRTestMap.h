#pragma once

#include <KRGeoLocation/KRGeoPositionRect.h>
#include <KRGeoLocation/KRMapProjection.h>

#include <QSize>

/// Areas in degrees, and maps of them.
struct KRTestMap {
    double south;
    double north;
    double west;
    double east;

    KRGeoPositionRect area() const
    {
        return KRGeoPositionRect(KRLatitudeRange(KRLatitude(south), KRLatitude(north)),
                                 KRLongitudeRange(KRLongitude(west), KRLongitude(east)));
    }
    KRMapProjection projection(const QSize &size) const { return KRMapProjection(area(), size); }
};
