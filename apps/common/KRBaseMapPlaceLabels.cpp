#include "KRBaseMapPlaceLabels.h"

#include "KRBaseMapView.h"
#include "KRMapLabel.h"
#include "KRMapLabelBoard.h"

#include <QColor>
#include <QPainter>
#include <QPen>
#include <QRectF>

namespace {

constexpr QColor placeColor(52, 48, 46);
constexpr QColor dotRimColor(255, 255, 255);

// Pixels of a normal screen.
constexpr double dotRadius = 2.8;
constexpr double dotRimWidth = 1.2;
constexpr double nameLetters = 12.5;
constexpr double nameDistance = 4.0;

/// On which side of its dot a name may stand, the best first; x and y are -1, 0 or 1.
constexpr QPoint sides[] = {{1, 0}, {-1, 0}, {1, -1}, {-1, -1}, {1, 1}, {-1, 1}, {0, -1}, {0, 1}};

} // namespace

KRBaseMapPlaceLabels::KRBaseMapPlaceLabels(const KRBaseMapView &view, const QVector<KRBaseMapPlace> &places)
    : m_factor(view.factor())
{
    for (const KRBaseMapPlace &place : places) {
        if (!place.position.isValid() || !place.position.latitude().isInValidRange())
            continue;
        for (const QPointF &pixel : view.toPixels(place.position))
            m_spots.append({place.name, pixel});
    }
}

void KRBaseMapPlaceLabels::paintDots(QPainter *painter) const
{
    painter->setPen(QPen(dotRimColor, dotRimWidth * m_factor));
    painter->setBrush(placeColor);
    for (const Spot &spot : m_spots)
        painter->drawEllipse(dot(spot));
}

void KRBaseMapPlaceLabels::keepDotsFree(KRMapLabelBoard *board) const
{
    for (const Spot &spot : m_spots)
        board->keepFree(dot(spot));
}

void KRBaseMapPlaceLabels::addNamesTo(KRMapLabelBoard *board) const
{
    for (const Spot &spot : m_spots) {
        KRMapLabel label(spot.name, nameLetters * m_factor, placeColor);
        const QSizeF size = label.size();
        const double distance = (dotRadius + nameDistance) * m_factor;
        for (const QPoint &side : sides) {
            // Beside the dot a name keeps its distance sidewards only, above and below it may come closer.
            const double dx = side.x() * (size.width() / 2.0 + distance);
            const double dy = side.y() * (size.height() / 2.0 + (side.x() == 0 ? distance : 0.0));
            label.moveCenter(spot.pixel + QPointF(dx, dy));
            if (board->tryAdd(label))
                break;
        }
    }
}

QRectF KRBaseMapPlaceLabels::dot(const Spot &spot) const
{
    const double radius = dotRadius * m_factor;
    return QRectF(spot.pixel.x() - radius, spot.pixel.y() - radius, 2.0 * radius, 2.0 * radius);
}
