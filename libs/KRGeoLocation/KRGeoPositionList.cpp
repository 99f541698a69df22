#include "KRGeoPositionList.h"

#include <QPainterPath>

KRGeoPosition KRGeoPositionList::average() const
{
    KRGeoPosition sum = KRGeoPosition::null();
    for (const KRGeoPosition &position : *this)
        sum += position;
    return sum / size();
}

KRGeoPositionRect KRGeoPositionList::boundingBox() const
{
    KRGeoPositionRect box;
    for (const KRGeoPosition &position : *this)
        box.expandTo(position);
    return box;
}

KRGeoPosition KRGeoPositionList::center() const
{
    return boundingBox().center();
}

KRLatitudeList KRGeoPositionList::latitudes() const
{
    KRLatitudeList latitudes;
    latitudes.reserve(size());
    for (const KRGeoPosition &position : *this)
        latitudes.append(position.latitude());
    return latitudes;
}

KRLongitudeList KRGeoPositionList::longitudes() const
{
    KRLongitudeList longitudes;
    longitudes.reserve(size());
    for (const KRGeoPosition &position : *this)
        longitudes.append(position.longitude());
    return longitudes;
}

QPainterPath KRGeoPositionList::toPainterPath() const
{
    QPainterPath path;
    if (isEmpty())
        return path;
    path.reserve(size());
    path.moveTo(first().toPointF());
    for (int i = 1; i < size(); ++i)
        path.lineTo(at(i).toPointF());
    return path;
}

KRGeoPositionList KRGeoPositionList::filterStrayPositions(double factor, bool invert, int minimumCount) const
{
    if (size() < minimumCount)
        return *this;
    const KRGeoPosition averagePosition = average();
    const KRGeoPosition boxCenter = center();
    KRGeoPositionList kept;
    for (const KRGeoPosition &position : *this) {
        const bool isNearTheAverage = position.distance(averagePosition) <= position.distance(boxCenter) * factor;
        if (isNearTheAverage != invert)
            kept.append(position);
    }
    return kept;
}
