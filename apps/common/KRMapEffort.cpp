#include "KRMapEffort.h"

#include <KRGeoLocation/KRGPXWorldCopies.h>
#include <KRGeoLocation/KRGeoPositionSpan.h>

#include <QPainterPath>
#include <QPen>
#include <QVector>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

// Ordinary maps are never to lose anything: whole years of a club, hundreds of flights and thousands of districts, half
// transparent and with halos, are estimated at less than two thirds of this and what their points add, and most of them
// at a tenth.
constexpr double mostNs = 2.0e9;
constexpr double mostNsOfPixel = 100.0;

// A longer path of dashes is drawn solid.
constexpr double mostDashes = 200000.0;

// of the wider band of KRHaloPainter
constexpr double extraWidthOfBand = 2.0;

constexpr double cosineOfSlightTurn = 0.87;

/// The places that are a world apart from one another, of copies that are drawn, where something from @p first to
/// @p last is in 0 ... @p width.
double copiesInView(double first, double last, double width, double worldWidth, const KRIntRange &shifts)
{
    if (!(worldWidth >= 1.0))
        return last >= 0.0 && first <= width ? 1.0 : 0.0;
    const double firstShift = std::max<double>(std::ceil(-last / worldWidth), shifts.minimum());
    const double lastShift = std::min<double>(std::floor((width - first) / worldWidth), shifts.maximum());
    return std::max(0.0, lastShift - firstShift + 1.0);
}

bool isSlightTurn(const QPointF &before, const QPointF &after)
{
    const double product = QPointF::dotProduct(before, after);
    const double squares = QPointF::dotProduct(before, before) * QPointF::dotProduct(after, after);
    return product > 0.0 && product * product >= cosineOfSlightTurn * cosineOfSlightTurn * squares;
}

} // namespace

KRMapEffort::KRMapEffort(const KRGPXTrackRenderer *renderer, const Allowance &allowance, bool isOnPage)
    : m_renderer(renderer), m_drawn(renderer->drawnRect(isOnPage)), m_allowance(allowance)
{ }

double KRMapEffort::mostFor(const KRGPXTrackSelection &selection) const
{
    double points = 0.0;
    const KRGPXConfiguredTrackList tracks = selection.tracks();
    for (const KRGPXConfiguredTrack &track : tracks)
        track.visitPositions([&](const KRGeoPositionSpan &positions) { points += positions.count; });
    const QSize size = m_renderer->targetImageSize();
    return mostNs + mostNsOfPixel * size.width() * size.height() + m_allowance.forPoint * points
           + m_allowance.forTrack * selection.count();
}

bool KRMapEffort::isAffordable(const KRGPXTrackSelection &selection) const
{
    return totalOf(effortsOf(selection)) <= mostFor(selection);
}

double KRMapEffort::totalOf(const std::vector<double> &efforts)
{
    return std::accumulate(efforts.begin(), efforts.end(), 0.0);
}

QPen KRMapEffort::haloPenOf(const KRGPXTrackConfiguration &configuration) const
{
    QPen pen = m_renderer->penFromTrack(configuration, OpaqueRender);
    pen.setColor(Qt::black);
    pen.setWidthF(pen.widthF() + m_renderer->scale(extraWidthOfBand));
    return pen;
}

double KRMapEffort::dashesOf(const QPen &pen, double width, double length)
{
    const QVector<qreal> pattern = pen.dashPattern();
    const double period = std::accumulate(pattern.begin(), pattern.end(), 0.0) * width;
    const double dashes = period > 0.0 ? length / period : 0.0;
    return dashes > mostDashes ? 0.0 : dashes;
}

KRMapEffort::Extent KRMapEffort::sumOf(const Extent &first, const Extent &second) const
{
    const QSizeF size = m_drawn.size();
    const double copies = std::max(first.copies, second.copies);
    return {first.lines + second.lines, first.corners + second.corners, first.length + second.length,
            std::min(first.area + second.area, copies * size.width() * size.height()), copies};
}

KRMapEffort::Extent KRMapEffort::extentOf(const QPainterPath &path, double reach) const
{
    const QSizeF size = m_drawn.size();
    const QPointF world = m_renderer->aroundTheWorldOffset();
    const KRIntRange shifts = KRGPXWorldCopies(world).visibleShifts(m_drawn.width(), path);
    const auto copiesOf = [&](const QRectF &bounds) {
        const bool isBeside = bounds.bottom() + reach >= 0.0 && bounds.top() - reach <= size.height();
        const double left = bounds.left() - reach - m_drawn.left();
        const double right = bounds.right() + reach - m_drawn.left();
        return isBeside ? copiesInView(left, right, size.width(), std::abs(world.x()), shifts) : 0.0;
    };
    const auto lineTo = [&path](int i) { return QPointF(path.elementAt(i)) - path.elementAt(i - 1); };
    Extent extent;
    for (int i = 1; i < path.elementCount(); ++i) {
        if (!path.elementAt(i).isLineTo())
            continue;
        const QRectF line = QRectF(path.elementAt(i - 1), path.elementAt(i)).normalized();
        const double copies = copiesOf(line);
        extent.lines += copies;
        const bool isFirst = path.elementAt(i - 1).isMoveTo();
        if (isFirst || !isSlightTurn(lineTo(i - 1), lineTo(i)))
            extent.corners += isFirst ? 2.0 * copies : copies;
        extent.length += copies * (std::min(line.width(), size.width()) + std::min(line.height(), size.height()));
    }
    const QRectF bounds = path.controlPointRect();
    extent.copies = copiesOf(bounds);
    extent.area = extent.copies * std::min(bounds.width() + 2.0 * reach, size.width())
                  * std::min(bounds.height() + 2.0 * reach, size.height());
    return extent;
}

double KRMapEffort::copiesOfPlace(double reach) const
{
    const double worldWidth = std::abs(m_renderer->aroundTheWorldOffset().x());
    return worldWidth >= 1.0 ? std::max(1.0, std::floor((m_drawn.width() + 2.0 * reach) / worldWidth)) : 1.0;
}
