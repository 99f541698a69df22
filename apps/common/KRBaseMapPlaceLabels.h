#pragma once

#include "KRBaseMapPlace.h"

#include <QPointF>
#include <QString>
#include <QVector>

class KRBaseMapView;
class KRMapLabelBoard;
class QPainter;

/// Dots and names for the places that a view shows; a name stands on that side of its dot where there is room.
class KRBaseMapPlaceLabels
{
public:
    KRBaseMapPlaceLabels(const KRBaseMapView &view, const QVector<KRBaseMapPlace> &places);

    void paintDots(QPainter *painter) const;
    /// No label covers a dot from then on.
    void keepDotsFree(KRMapLabelBoard *board) const;
    /// The first places have the first choice; a name without room is left out.
    void addNamesTo(KRMapLabelBoard *board) const;

private:
    struct Spot {
        QString name;
        QPointF pixel;
    };

    QRectF dot(const Spot &spot) const;

    double m_factor;
    QVector<Spot> m_spots;
};
