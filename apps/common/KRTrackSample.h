#pragma once

class KRGPXConfiguredTrack;
class QPainter;
class QPointF;
class QSizeF;

/**
 * A small picture of how a track looks: a piece of line, an area or a marker with its colours, dashes and arrow.
 *
 * Very wide lines and markers are drawn as wide as there is room.
 */
class KRTrackSample
{
public:
    /// Of a sample at factor 1, in pixels.
    static QSizeF size();

    /// With its top-left corner at @p place.
    static void paint(QPainter &painter, const KRGPXConfiguredTrack &track, const QPointF &place, double factor);
};
