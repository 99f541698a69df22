#include "KRTrackInView.h"

#include "KRMapTrackRenderer.h"
#include "KRPathClipper.h"

#include <KRCore/KRMath.h>
#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGeoPositionList.h>

#include <QLineF>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

double lengthOf(const QPolygonF &line)
{
    double length = 0.0;
    for (int i = 1; i < line.size(); ++i)
        length += QLineF(line.at(i - 1), line.at(i)).length();
    return length;
}

double extentOf(const QPolygonF &area)
{
    const QRectF bounds = area.boundingRect();
    return bounds.width() * bounds.height();
}

/// How far each copy of the world that brings the bounds into the picture lies off the first one.
QVector<QPointF> shiftsInView(const KRMapTrackRenderer &renderer, const QRectF &bounds, const QSize &size)
{
    const double world = renderer.aroundTheWorldOffset().x();
    if (!std::isfinite(world) || world < 1.0)
        return {QPointF()};
    QVector<QPointF> shifts;
    const double first = std::ceil(-bounds.right() / world);
    const int count = KRMath::toInt(std::floor((size.width() - bounds.left()) / world) - first + 1.0);
    for (int i = 0; i < count; ++i)
        shifts << QPointF((first + i) * world, 0.0);
    return shifts;
}

} // namespace

KRTrackInView::KRTrackInView(const KRMapTrackRenderer &renderer, const KRGPXConfiguredTrack &track, const QSize &size)
{
    const QPainterPath path =
        track.effectiveShape() == PointTrackShape ? QPainterPath() : renderer.createPainterPath(track);
    if (path.isEmpty()) {
        addPoint(renderer, track, size);
        return;
    }
    const KRPathClipper clipper(QRectF(QPointF(), size));
    const bool isFilled = track.effectiveShape() == PolygonTrackShape && track.hasDrawOption(FillDisplayOption);
    const QList<QPolygonF> rings = path.toSubpathPolygons();
    for (const QPolygonF &ring : rings) {
        for (const QPointF &shift : shiftsInView(renderer, ring.boundingRect(), size)) {
            const QPolygonF shifted = ring.translated(shift);
            m_lines += clipper.line(shifted);
            const QPolygonF area = isFilled ? clipper.ring(shifted) : QPolygonF();
            if (extentOf(area) > extentOf(m_area))
                m_area = area;
        }
    }
}

void KRTrackInView::addPoint(const KRMapTrackRenderer &renderer, const KRGPXConfiguredTrack &track, const QSize &size)
{
    const KRGeoPositionList positions = track.drawingPoints();
    if (positions.isEmpty() || !positions.first().latitude().isValid() || !positions.first().longitude().isValid())
        return;
    const QPointF place = renderer.projectPosition(positions.first());
    for (const QPointF &shift : shiftsInView(renderer, QRectF(place, QSizeF()), size)) {
        if (QRectF(QPointF(), size).contains(place + shift))
            m_lines << QPolygonF(QVector<QPointF>{place + shift});
    }
}

QPolygonF KRTrackInView::longestLine() const
{
    const auto longest = std::max_element(m_lines.begin(), m_lines.end(), [](const QPolygonF &a, const QPolygonF &b) {
        return lengthOf(a) < lengthOf(b);
    });
    return longest == m_lines.end() ? QPolygonF() : *longest;
}

QPointF KRTrackInView::pointAt(const QPolygonF &line, double fraction)
{
    double way = fraction * lengthOf(line);
    for (int i = 1; i < line.size(); ++i) {
        const QLineF step(line.at(i - 1), line.at(i));
        if (way <= step.length() && step.length() > 0.0)
            return step.pointAt(way / step.length());
        way -= step.length();
    }
    return line.isEmpty() ? QPointF() : line.last();
}
