#pragma once

#include <KRGeoLocation/KRGeoPosition.h>
#include <KRGeoLocation/KRGeoPositionRect.h>
#include <KRGeoLocation/KRMapProjection.h>

#include <QPointF>
#include <QRectF>
#include <QSize>

/**
 * What part of the world a map window shows: its middle, its scale and its size.
 *
 * Pixels are those of the window, from its top-left corner, however many of the screen each of them covers. World
 * coordinates are the normalized ones of KRMapProjection: 0 to 1 over the Mercator square, y grows southwards. The
 * world repeats without end to the east and to the west, there x goes on beyond 0 and 1; to the north and to the
 * south it ends, and the map is never moved further than that end, or than the middle where all of it is in view.
 *
 * A value: whatever changes it returns the changed one. The scale is limited, so that no number overflows. Without
 * an area isEmpty() is true, positions and pixels are then meaningless.
 */
class KRMapViewport
{
public:
    /// Europe, without an area.
    KRMapViewport();

    QSize size() const { return m_size; }
    bool isEmpty() const { return m_size.isEmpty(); }
    double devicePixelRatio() const { return m_devicePixelRatio; }
    /// The size in pixels of the screen.
    QSize deviceSize() const;
    /// The scale: pixels from 180 degrees west to 180 degrees east.
    double worldWidth() const { return m_worldWidth; }
    KRGeoPosition center() const;

    /// The longitude lies in -180 ... 180. Beyond the northern and the southern end of the map there is no position.
    KRGeoPosition positionAt(const QPointF &pixel) const;
    /// In the copy of the world that is nearest to the middle, in view or not.
    QPointF pixelOf(const KRGeoPosition &position) const;
    QPointF worldAt(const QPointF &pixel) const;
    QPointF pixelOfWorld(const QPointF &world) const;
    /// Where a picture of @p other lies in this one.
    QRectF rectOf(const KRMapViewport &other) const;
    /// For a picture of deviceSize(), whose pixels lie the same way in all viewports of one scale.
    KRMapProjection projection() const;

    /// Keeps middle and scale.
    [[nodiscard]] KRMapViewport resized(const QSize &size, double devicePixelRatio) const;
    /// As if the map were pulled along by so many pixels: a positive y shows more of the north.
    [[nodiscard]] KRMapViewport panned(const QPointF &pixels) const;
    /// Above 1 for a larger map. The place under @p pixel stays there, unless the end of the map forbids it.
    [[nodiscard]] KRMapViewport zoomed(double factor, const QPointF &pixel) const;
    [[nodiscard]] KRMapViewport centeredOn(const KRGeoPosition &position) const;
    /// As large as @p area fits in, with so many pixels free on all sides. The same where the area is not valid.
    [[nodiscard]] KRMapViewport fitted(const KRGeoPositionRect &area, int marginPx) const;
    /// With so many more pixels on all sides, even beyond the ends of the map.
    [[nodiscard]] KRMapViewport grown(int marginPx) const;

    /// Of exactly the same picture.
    bool operator==(const KRMapViewport &other) const;
    bool operator!=(const KRMapViewport &other) const { return !(*this == other); }

    /// Latitude and longitude to world coordinates, without a limit to the latitude.
    static QPointF toWorld(double latitude, double longitude);
    /// The longitude lies in -180 ... 180.
    static KRGeoPosition toPosition(const QPointF &world);

private:
    double smallestWorldWidth() const;
    double largestWorldWidth() const;
    KRMapViewport limited() const;
    QPointF deviceOrigin() const;

    QPointF m_center; // world coordinates, x in 0 ... 1
    double m_worldWidth;
    QSize m_size;
    double m_devicePixelRatio = 1.0;
};
