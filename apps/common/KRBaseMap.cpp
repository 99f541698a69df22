#include "KRBaseMap.h"

#include "KRBaseMapCountryLabels.h"
#include "KRBaseMapData.h"
#include "KRBaseMapGraticule.h"
#include "KRBaseMapPlaceLabels.h"
#include "KRBaseMapView.h"
#include "KRMapGround.h"
#include "KRMapLabel.h"
#include "KRMapLabelBoard.h"
#include "KRPathClipper.h"

#include <KRCore/KRMath.h>

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include <algorithm>

namespace {

constexpr QColor waterColor(205, 223, 234);
constexpr QColor landColor(246, 241, 228);
constexpr QColor coastColor(104, 141, 168);
constexpr QColor borderColor(176, 154, 146);
constexpr QColor graticuleColor(70, 110, 140, 70);
constexpr QColor graticuleTextColor(78, 108, 132);

// Pixels of a normal screen.
constexpr double coastWidth = 0.9;
constexpr double borderWidth = 0.9;
constexpr double graticuleWidth = 0.7;
constexpr double graticuleLetters = 10.0;
constexpr double labelMargin = 2.0;

// Pixels.
constexpr double narrowestStrip = 64.0;
constexpr double stripOverlap = 1.0;
/// About as many points as are worth a strip of their own.
constexpr int pointsPerStrip = 500;

QPen linePen(const QColor &color, double width)
{
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

/// The map with room for the widest line around it, so that no cut edge comes into view.
KRPathClipper clipperFor(const KRBaseMapView &view)
{
    const double room = 4.0 * view.factor();
    return KRPathClipper(view.mapRect().adjusted(-room, -room, room, room));
}

void strokePaths(QPainter *painter, const QVector<KRBaseMapPath> &paths, const KRBaseMapView &view)
{
    const KRPathClipper clipper = clipperFor(view);
    for (const KRBaseMapPath &path : paths) {
        for (const QPolygonF &pixels : view.toPixels(path)) {
            for (const QPolygonF &piece : clipper.line(pixels))
                painter->drawPolyline(piece);
        }
    }
}

/// Fills the rings as one area: where two of them touch, nothing shines through between them.
void fillRings(QPainter *painter, const QVector<QPolygonF> &rings, const QRectF &area, const QColor &color)
{
    int pointCount = 0;
    QVector<QRectF> bounds;
    for (const QPolygonF &ring : rings) {
        pointCount += ring.size();
        bounds << ring.boundingRect();
    }
    // Qt's filling slows down with the square of the edges in a row of pixels; in strips it takes a third of the time.
    const int mostStrips = std::max(1, KRMath::toInt(area.width() / narrowestStrip));
    const int stripCount = std::min(1 + pointCount / pointsPerStrip, mostStrips);
    const double width = area.width() / stripCount;
    for (int i = 0; i < stripCount; ++i) {
        const QRectF strip(area.left() + i * width - stripOverlap, area.top(), width + 2.0 * stripOverlap,
                           area.height());
        const KRPathClipper clipper(strip);
        QPainterPath path;
        path.setFillRule(Qt::OddEvenFill);
        for (int ring = 0; ring < rings.size(); ++ring) {
            if (bounds.at(ring).right() >= strip.left() && bounds.at(ring).left() <= strip.right())
                path.addPolygon(clipper.ring(rings.at(ring)));
        }
        painter->fillPath(path, color);
    }
}

/// Meridians are named along the top of the map and parallels along its left side; scale and credit stand below.
void addGraticuleLabels(const KRBaseMapView &view, KRMapLabelBoard *board)
{
    const QRectF map = view.mapRect();
    const double letters = graticuleLetters * view.factor();
    const double distance = 1.5 * labelMargin * view.factor();
    const KRBaseMapGraticule graticule(view);
    for (const KRBaseMapGraticule::Line &meridian : graticule.meridians()) {
        KRMapLabel label(meridian.text, letters, graticuleTextColor);
        label.moveCenter(QPointF(meridian.pixel, map.top() + distance + label.size().height() / 2.0));
        board->tryAdd(label);
    }
    for (const KRBaseMapGraticule::Line &parallel : graticule.parallels()) {
        KRMapLabel label(parallel.text, letters, graticuleTextColor);
        label.moveCenter(QPointF(map.left() + distance + label.size().width() / 2.0, parallel.pixel));
        board->tryAdd(label);
    }
}

} // namespace

void KRBaseMap::paint(QImage *image, const KRMapProjection &projection, double factor) const
{
    if (image->isNull())
        return;
    QPainter painter(image);
    paint(&painter, image->size(), projection, factor);
}

void KRBaseMap::paint(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor) const
{
    paintBelow(painter, size, projection, factor);
    paintNames(painter, size, projection, factor, QVector<QRectF>());
}

void KRBaseMap::paintBelow(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor) const
{
    const KRBaseMapView view(projection, size, factor);
    const QRectF map = view.mapRect();
    painter->save();
    painter->setClipRect(QRect(QPoint(), size), Qt::IntersectClip);
    painter->fillRect(QRect(QPoint(), size), KRMapGround::paperColor);
    if (!map.isEmpty()) {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setClipRect(map, Qt::IntersectClip);
        paintGround(painter, view);
        paintLines(painter, view);
    }
    painter->restore();
}

void KRBaseMap::paintNames(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor,
                           const QVector<QRectF> &keptFree) const
{
    const KRBaseMapView view(projection, size, factor);
    const QRectF map = view.mapRect();
    if (map.isEmpty())
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setClipRect(map.intersected(QRectF(QPointF(), size)), Qt::IntersectClip);
    paintLabels(painter, view, keptFree);
    painter->restore();
}

void KRBaseMap::paintGround(QPainter *painter, const KRBaseMapView &view) const
{
    painter->fillRect(view.mapRect(), waterColor);
    const KRPathClipper clipper = clipperFor(view);
    QVector<QPolygonF> land;
    for (const KRBaseMapPath &path : KRBaseMapData::instance()->land()) {
        for (const QPolygonF &pixels : view.toPixels(path))
            land << clipper.ring(pixels);
    }
    fillRings(painter, land, view.mapRect(), landColor);
}

void KRBaseMap::paintLines(QPainter *painter, const KRBaseMapView &view) const
{
    const QRectF map = view.mapRect();
    const KRBaseMapGraticule graticule(view);
    painter->setPen(linePen(graticuleColor, graticuleWidth * view.factor()));
    for (const KRBaseMapGraticule::Line &meridian : graticule.meridians())
        painter->drawLine(QPointF(meridian.pixel, map.top()), QPointF(meridian.pixel, map.bottom()));
    for (const KRBaseMapGraticule::Line &parallel : graticule.parallels())
        painter->drawLine(QPointF(map.left(), parallel.pixel), QPointF(map.right(), parallel.pixel));

    painter->setPen(linePen(borderColor, borderWidth * view.factor()));
    strokePaths(painter, KRBaseMapData::instance()->borders(), view);
    painter->setPen(linePen(coastColor, coastWidth * view.factor()));
    strokePaths(painter, KRBaseMapData::instance()->coasts(), view);
}

void KRBaseMap::paintLabels(QPainter *painter, const KRBaseMapView &view, const QVector<QRectF> &keptFree) const
{
    KRMapLabelBoard board(view.mapRect(), labelMargin * view.factor());
    for (const QRectF &box : keptFree)
        board.keepFree(box);
    addGraticuleLabels(view, &board);
    const KRBaseMapPlaceLabels places(view, m_places);
    places.keepDotsFree(&board);
    // Translated together with the other texts, so that the names of countries are in the same language.
    const bool isGerman = tr("de", "language of the country names, de or en") == QLatin1String("de");
    const auto language = isGerman ? KRBaseMapCountryLabels::German : KRBaseMapCountryLabels::English;
    KRBaseMapCountryLabels(view, language).addTo(&board);
    places.addNamesTo(&board);

    places.paintDots(painter);
    board.paint(painter);
}
