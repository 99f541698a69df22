#pragma once

#include "KRBaseMapPath.h"

#include <KRCore/KRIntRange.h>
#include <KRGeoLocation/KRGeoPosition.h>
#include <KRGeoLocation/KRMapProjection.h>

#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QSizeF>
#include <QVector>

/**
 * The placement of the world in an image, as a map projection has it, but in fractions of a pixel.
 *
 * Whole pixels, as the projection gives them, would make coasts jagged. Placement differs from
 * KRMapProjection::projectate() by less than a pixel.
 */
class KRBaseMapView
{
public:
    /// @p factor is the paint scale, 1.0 for a normal screen: lines and letters grow with it.
    KRBaseMapView(const KRMapProjection &projection, const QSizeF &imageSize, double factor);

    /// False for an empty image, and for a projection that was made of an empty area.
    bool isValid() const;

    /// Kept within 0.05 ... 50.
    double factor() const { return m_factor; }
    /// The part of the image that the Mercator square and its copies cover; empty if there is none.
    QRectF mapRect() const;
    /// The width of 360 degrees of longitude.
    double worldSize() const { return m_worldSize; }

    /// Decimal degrees; latitudes beyond the Mercator square give its edge.
    QPointF toPixel(double latitude, double longitude) const;
    /// Not folded into -180 ... 180.
    double longitudeAt(double x) const;
    double latitudeAt(double y) const;

    /// The path once for each turn round the globe that brings its bounds into the image, without points too close to
    /// their neighbours to matter; not at all when it is too small to be seen. It may reach far beyond the image and is
    /// to be clipped before it is drawn.
    QVector<QPolygonF> toPixels(const KRBaseMapPath &path) const;
    /// The position once for each turn that brings it into the image.
    QVector<QPointF> toPixels(const KRGeoPosition &position) const;

private:
    /// The turns round the globe that bring normalized bounds into the image; not valid when there are none.
    KRIntRange turnsInView(const QRectF &bounds) const;
    QPointF normalized(double latitude, double longitude) const;
    QPointF toPixel(const QPointF &normalized) const;
    QPolygonF thinnedPixels(const QPolygonF &normalized) const;

    KRMapProjection m_projection;
    QSizeF m_imageSize;
    double m_factor;

    // pixels: the width of the world, and the image's top-left corner in it
    double m_worldSize = 0.0;
    QPointF m_offset;
    /// What the image shows, in normalized coordinates.
    QRectF m_visible;
};
