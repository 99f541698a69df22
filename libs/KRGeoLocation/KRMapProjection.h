#pragma once

#include "KRGeoLocationExport.h"
#include "KRGeoPosition.h"
#include "KRGeoPositionRect.h"

#include <QPoint>
#include <QPointF>
#include <QSize>

struct KRGeoPositionSpan;

/**
 * Maps positions to pixels of one image and back, in the spherical Mercator projection of slippy maps.
 *
 * The area that is asked for is widened about its middle, in longitude or in latitude, until it has the aspect
 * ratio of the image. Pixels count from the top-left corner of the image; y grows southwards. A position outside
 * the image gives a pixel outside it, and nothing is wrapped: with an area from 170 to -170, which is taken as
 * 170 ... 190, the longitude -175 lies one world to the left of the image.
 *
 * Normalized coordinates run from 0 to 1 over the Mercator square: x from longitude -180 to 180, y from latitude
 * 85.0511 to -85.0511. Latitudes are not clamped; a pole lies at an infinite or very large y.
 *
 * The area and the image must not be empty. Nothing throws and nothing is reported otherwise, but pixels and
 * positions are then meaningless. A const object may be used from several threads at once.
 */
class KRGEOLOCATION_EXPORT KRMapProjection
{
public:
    KRMapProjection(const KRGeoPositionRect &area, const QSize &size);
    KRMapProjection(const KRMapProjection &other);
    KRMapProjection(KRMapProjection &&other) noexcept;
    KRMapProjection &operator=(const KRMapProjection &other);
    KRMapProjection &operator=(KRMapProjection &&other) noexcept;
    virtual ~KRMapProjection();

    /// Shows another area in an image of the same size.
    void adjustMapData(const KRGeoPositionRect &area);

    /// Whole pixels, cut toward zero, so that both -0.7 and 0.7 give 0. Beyond the range of int the nearest int.
    QPointF projectate(const KRGeoPosition &position) const;
    /// The pixels of all @p positions, the same as one by one but without an object for each.
    void projectate(const KRGeoPositionSpan &positions, QPointF *pixels) const;
    /// The same for decimal degrees.
    QPointF getPixelCoordinateByMapCoordinate(double latitude, double longitude) const;
    /// The position of the top-left corner of a pixel; its longitude may lie outside -180 ... 180.
    KRGeoPosition convert(const QPoint &pixel) const;

    /// The widened area, its longitudes folded into -180 ... 180: of more than the world it tells a part only.
    KRGeoPositionRect resultBoundingBox() const;

    double longitudeToNormalized(double longitude) const;
    double latitudeToNormalized(double latitude) const;
    double normalizedToLongitude(double x) const;
    double normalizedToLatitude(double y) const;

    /// True when the two differ by at most @p epsilon degrees.
    static bool epsilonEqual(const KRGeoArc &a, const KRGeoArc &b, double epsilon);
    /// True when longitudes and latitudes each differ by at most @p epsilon degrees.
    static bool epsilonEqual(const KRGeoPosition &a, const KRGeoPosition &b, double epsilon);

private:
    QPointF toPixel(double latitude, double longitude) const;

    QSize m_size;

    // the widened area in decimal degrees; m_east may exceed 180
    double m_south = 0.0;
    double m_north = 0.0;
    double m_west = 0.0;
    double m_east = 0.0;

    // the top-left corner of the image, and the width of 360 degrees, in pixels of a map of the whole world
    double m_xOffset = 0.0;
    double m_yOffset = 0.0;
    double m_worldSize = 0.0;
};
