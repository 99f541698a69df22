#pragma once

#include "KRBaseMapPlace.h"

#include <KRGeoLocation/KRMapProjection.h>

#include <QCoreApplication>
#include <QRectF>
#include <QSize>
#include <QVector>

class KRBaseMapView;
class QImage;
class QPainter;

/**
 * Draws a world map as the ground for tracks: water, land, coasts, borders, graticule, and names.
 *
 * Works at every scale, from the world several times side by side down to a street; where the data have nothing more
 * to show there is a plain ground with graticule and names. Beyond the Mercator square (85.05 degrees north and
 * south) the picture stays empty paper, and so does a map with hundreds of worlds. Names are German or
 * English, as the program's texts are.
 *
 * Needs a QGuiApplication for its fonts; may be called from any thread. Nothing throws: a projection of an empty area
 * gives empty paper.
 */
class KRBaseMap
{
    Q_DECLARE_TR_FUNCTIONS(KRBaseMap)

public:
    /// The places are named where they lie in view and as long as there is room, the first ones first.
    explicit KRBaseMap(const QVector<KRBaseMapPlace> &places = QVector<KRBaseMapPlace>()) : m_places(places) { }

    /// Fills the whole image, for whose size @p projection was made. @p factor is the paint scale, 1.0 for a normal
    /// screen: lines and letters grow with it.
    void paint(QImage *image, const KRMapProjection &projection, double factor) const;
    /// The same into the rectangle of that size at (0, 0), and nowhere else.
    void paint(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor) const;
    /// All but the names and the dots of places, and then those; no name reaches into @p keptFree, in pixels.
    void paintBelow(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor) const;
    void paintNames(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor,
                    const QVector<QRectF> &keptFree) const;

private:
    void paintGround(QPainter *painter, const KRBaseMapView &view) const;
    void paintLines(QPainter *painter, const KRBaseMapView &view) const;
    void paintLabels(QPainter *painter, const KRBaseMapView &view, const QVector<QRectF> &keptFree) const;

    QVector<KRBaseMapPlace> m_places;
};
