#pragma once

#include "KRGeoLocationExport.h"
#include "KRGeoPosition.h"
#include "KRGeoPositionRect.h"
#include "KRLatitudeList.h"
#include "KRLongitudeList.h"

#include <QList>

class QPainterPath;

/**
 * Positions in the order of insertion; those of a track in its order.
 *
 * Components are decimal degrees and taken for plain numbers: no operation knows the date line. What an empty list
 * has no answer for holds KRGeoArc::invalidDegrees.
 */
class KRGEOLOCATION_EXPORT KRGeoPositionList : public QList<KRGeoPosition>
{
public:
    using QList<KRGeoPosition>::QList;
    KRGeoPositionList() = default;
    /// Implicit, as the operations inherited from QList return one.
    KRGeoPositionList(const QList<KRGeoPosition> &list) : QList<KRGeoPosition>(list) { }
    KRGeoPositionList(const KRGeoPositionList &other) = default;
    KRGeoPositionList(KRGeoPositionList &&other) noexcept = default;
    KRGeoPositionList &operator=(const KRGeoPositionList &other) = default;
    KRGeoPositionList &operator=(KRGeoPositionList &&other) noexcept = default;
    virtual ~KRGeoPositionList() = default;

    KRGeoPosition average() const;
    /// Around all valid positions.
    KRGeoPositionRect boundingBox() const;
    /// The centre of boundingBox(), not the average.
    KRGeoPosition center() const;
    KRLatitudeList latitudes() const;
    KRLongitudeList longitudes() const;
    /// In degrees, x eastwards and y northwards; not closed.
    QPainterPath toPainterPath() const;
    /**
     * Those that lie no farther from the average than @p factor times their distance from center(), or exactly the
     * others when @p invert is set. A list of less than @p minimumCount positions is returned as it is.
     */
    KRGeoPositionList filterStrayPositions(double factor, bool invert, int minimumCount) const;
};
