#include "KRGPXWorldCopies.h"

#include "KRGPXLineCrowd.h"

#include <KRCore/KRMath.h>

#include <QImage>
#include <QPaintDevice>
#include <QPainter>
#include <QRectF>

#include <algorithm>
#include <cmath>

namespace {

// So many elements in all copies of a line are looked at in a moment.
constexpr int mostCopiedElements = 20000000;

bool missesPage(const QPainter *painter, const QRectF &bounds)
{
    const QPaintDevice *const device = painter->device();
    const QRectF page(0.0, 0.0, device->width(), device->height());
    return !painter->deviceTransform().mapRect(bounds).intersects(page);
}

int widthOfDevice(const QPainter *painter)
{
    const QPaintDevice *const device = painter->device();
    return device ? device->width() : 0;
}

} // namespace

KRIntRange KRGPXWorldCopies::visibleShifts(int width) const
{
    const int worldWidth = std::isfinite(m_offset.x()) ? KRMath::toInt(m_offset.x()) : 0;
    const int count = worldWidth > 0 ? width / worldWidth : 0;
    return KRIntRange(-count - 1, count + 1);
}

KRIntRange KRGPXWorldCopies::visibleShifts(int width, const QPainterPath &path) const
{
    const KRIntRange shifts = areSeveral() ? visibleShifts(width) : KRIntRange(0, 0);
    const int rounds = finishedRounds(path);
    return KRIntRange(shifts.minimum() - rounds, shifts.maximum() + rounds);
}

QPainterPath KRGPXWorldCopies::broughtTo(const QRectF &area, const QPainterPath &hole) const
{
    const QRectF bounds = hole.controlPointRect();
    if (!haveWidth() || area.intersects(bounds))
        return hole;
    const QPointF way = std::round((area.center().x() - bounds.center().x()) / m_offset.x()) * m_offset;
    return area.intersects(bounds.translated(way)) ? hole.translated(way) : hole;
}

void KRGPXWorldCopies::forEach(QPainter *painter, const QPainterPath &path, double reach,
                               const std::function<void()> &draw) const
{
    if (!painter->isActive())
        return;
    const int width = widthOfDevice(painter);
    const KRIntRange usual = visibleShifts(width);
    const KRIntRange shifts = visibleShifts(width, path);
    // a path of one point alone knows no bounds
    const QRectF points = path.isEmpty() ? QRectF(path.currentPosition(), QSizeF(0.0, 0.0)) : path.controlPointRect();
    const QRectF bounds = points.adjusted(-reach, -reach, reach, reach);
    for (int shift = shifts.minimum(); shift <= shifts.maximum(); ++shift) {
        const QPointF way = shift * m_offset;
        const QRectF place = bounds.translated(way);
        const bool isFarAway = !usual.contains(shift);
        if (surelyMissesDevice(painter, place) || (isFarAway && missesPage(painter, place)))
            continue;
        // The state of a painter is not saved needlessly: SVG has a group for each.
        if (shift == 0) {
            draw();
            continue;
        }
        painter->save();
        painter->translate(way);
        draw();
        painter->restore();
    }
}

QPainterPath KRGPXWorldCopies::linesToDraw(const QPainter *painter, const QPainterPath &path, const QPen &pen) const
{
    constexpr double manyLines = 1e6;
    const KRIntRange shifts = visibleShifts(widthOfDevice(painter));
    const double lines = double(path.elementCount()) * (double(shifts.maximum()) - shifts.minimum() + 1.0);
    const bool hidesWhatIsBelow = pen.style() == Qt::SolidLine && pen.color().alpha() == 255;
    return lines > manyLines && hidesWhatIsBelow && haveWidth() ? differentLines(path) : path;
}

/// Each of those that lie upon each other in some copy only once, with its beginning in copy 0.
QPainterPath KRGPXWorldCopies::differentLines(const QPainterPath &path) const
{
    KRGPXLineCrowd crowd(QSize(), 0.0);
    QPainterPath different;
    for (int i = 1; i < path.elementCount(); ++i) {
        if (!path.elementAt(i).isLineTo())
            continue;
        const QPointF begin = path.elementAt(i - 1);
        const QPointF way = -std::floor(begin.x() / m_offset.x()) * m_offset;
        const QPointF end = path.elementAt(i) + way;
        if (crowd.isKnown(begin + way, end))
            continue;
        if (different.isEmpty() || different.currentPosition() != begin + way)
            different.moveTo(begin + way);
        different.lineTo(end);
    }
    return different;
}

bool KRGPXWorldCopies::surelyMissesDevice(const QPainter *painter, const QRectF &bounds)
{
    // Other devices than images may be larger or elsewhere than their width and height tell.
    const auto *const image = dynamic_cast<const QImage *>(painter->device());
    if (image && !painter->deviceTransform().mapRect(bounds).intersects(image->rect()))
        return true;
    return painter->hasClipping() && !painter->clipBoundingRect().intersects(bounds);
}

// On a round map longitude 180 and -180 are one place, but for what computing leaves of their difference.
bool KRGPXWorldCopies::areSeveral() const
{
    return std::isfinite(m_offset.x()) && std::isfinite(m_offset.y()) && m_offset.manhattanLength() >= 1.0;
}

// Without one there is nothing to count rounds by.
bool KRGPXWorldCopies::haveWidth() const
{
    return areSeveral() && std::abs(m_offset.x()) >= 1.0;
}

// How often the path leads around the world before it comes to its last round.
int KRGPXWorldCopies::finishedRounds(const QPainterPath &path) const
{
    if (!haveWidth())
        return 0;
    const double width = std::abs(m_offset.x());
    for (int i = 1; i < path.elementCount(); ++i)
        if (!path.elementAt(i).isMoveTo() && std::abs(path.elementAt(i).x - path.elementAt(i - 1).x) > width)
            return 0; // a place that is none, not a round
    const double rounds = std::ceil(path.controlPointRect().width() / width) - 1.0;
    return std::min(KRMath::toInt(std::max(0.0, rounds)), mostCopiedElements / std::max(1, path.elementCount()));
}
