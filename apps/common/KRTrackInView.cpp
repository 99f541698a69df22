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
#include <deque>
#include <vector>

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

/// Pixels; 0 where there is one world only.
double worldWidthOf(const KRMapTrackRenderer &renderer)
{
    const double width = renderer.aroundTheWorldOffset().x();
    return std::isfinite(width) && width >= 1.0 ? width : 0.0;
}

/// Copies of the world, which follow one upon the other.
struct Copies {
    double first;
    int count;
};

/// Those that bring something from @p left to @p right into the picture; of more than @p most the middle ones.
Copies copiesInView(double left, double right, double world, const QSize &size, int most)
{
    if (world == 0.0)
        return {0.0, std::min(1, most)};
    const double first = std::ceil(-right / world);
    const double count = std::max(0.0, std::floor((size.width() - left) / world) - first + 1.0);
    return count > most ? Copies{first + std::floor((count - most) / 2.0), most} : Copies{first, KRMath::toInt(count)};
}

/// Points that follow one upon the other, of which each line may be in view in a copy of the world.
struct Passage {
    double copy;
    int first;
    int last;
};

/// Of a ring in all copies, which may lead around the world as often as it has points.
std::vector<Passage> passagesInView(const QPolygonF &ring, double world, const QSize &size, int mostCopies)
{
    std::vector<Passage> passages;
    std::deque<Passage> open; // of copies that follow one upon the other
    const auto close = [&](const Passage &passage, int last) {
        passages.push_back({passage.copy, passage.first, last});
    };
    for (int i = 1; i < ring.size(); ++i) {
        const auto ends = std::minmax({ring.at(i - 1).x(), ring.at(i).x()});
        const Copies copies = copiesInView(ends.first, ends.second, world, size, mostCopies);
        const double end = copies.first + copies.count;
        for (; !open.empty() && open.front().copy < copies.first; open.pop_front())
            close(open.front(), i - 1);
        for (; !open.empty() && open.back().copy >= end; open.pop_back())
            close(open.back(), i - 1);
        double first = open.empty() ? end : open.front().copy;
        while (first > copies.first)
            open.push_front({--first, i - 1, i});
        double last = open.empty() ? end : open.back().copy + 1.0;
        while (last < end)
            open.push_back({last++, i - 1, i});
    }
    for (const Passage &passage : open)
        close(passage, ring.size() - 1);
    std::sort(passages.begin(), passages.end(), [](const Passage &a, const Passage &b) {
        return a.copy < b.copy || (a.copy == b.copy && a.first < b.first);
    });
    return passages;
}

} // namespace

KRTrackInView::KRTrackInView(const KRMapTrackRenderer &renderer, const KRGPXConfiguredTrack &track, const QSize &size,
                             int mostCopies)
{
    const QPainterPath path =
        track.effectiveShape() == PointTrackShape ? QPainterPath() : renderer.createPainterPath(track);
    if (path.isEmpty()) {
        addPoint(renderer, track, size, mostCopies);
        return;
    }
    const double world = worldWidthOf(renderer);
    const KRPathClipper clipper(QRectF(QPointF(), size));
    const bool isFilled = track.effectiveShape() == PolygonTrackShape && track.hasDrawOption(FillDisplayOption);
    const QList<QPolygonF> rings = path.toSubpathPolygons();
    for (const QPolygonF &ring : rings) {
        for (const Passage &passage : passagesInView(ring, world, size, mostCopies)) {
            const QPolygonF line(ring.mid(passage.first, passage.last - passage.first + 1));
            m_lines += clipper.line(line.translated(passage.copy * world, 0.0));
        }
        const QRectF bounds = ring.boundingRect();
        const Copies copies = copiesInView(bounds.left(), bounds.right(), world, size, isFilled ? mostCopies : 0);
        for (int i = 0; i < copies.count; ++i) {
            const QPolygonF area = clipper.ring(ring.translated((copies.first + i) * world, 0.0));
            if (extentOf(area) > extentOf(m_area))
                m_area = area;
        }
    }
}

void KRTrackInView::addPoint(const KRMapTrackRenderer &renderer, const KRGPXConfiguredTrack &track, const QSize &size,
                             int mostCopies)
{
    const KRGeoPositionList positions = track.drawingPoints();
    if (positions.isEmpty() || !positions.first().latitude().isValid() || !positions.first().longitude().isValid())
        return;
    const QPointF place = renderer.projectPosition(positions.first());
    const double world = worldWidthOf(renderer);
    const Copies copies = copiesInView(place.x(), place.x(), world, size, mostCopies);
    for (int i = 0; i < copies.count; ++i) {
        const QPointF copy = place + QPointF((copies.first + i) * world, 0.0);
        if (QRectF(QPointF(), size).contains(copy))
            m_lines << QPolygonF(QVector<QPointF>{copy});
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
