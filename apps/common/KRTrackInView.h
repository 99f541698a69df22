#pragma once

#include <QPolygonF>
#include <QSize>
#include <QVector>

class KRGPXConfiguredTrack;
class KRMapTrackRenderer;

/**
 * What of a track can be seen in a picture, in its pixels; everything is cut to the picture.
 */
class KRTrackInView
{
public:
    /// @param mostCopies of the world in which anything of the track is looked for, those in the middle; 3 at least
    KRTrackInView(const KRMapTrackRenderer &renderer, const KRGPXConfiguredTrack &track, const QSize &size,
                  int mostCopies);

    bool isEmpty() const { return m_lines.isEmpty(); }
    /// The pieces of its outline; a marker is a line of one point.
    const QVector<QPolygonF> &lines() const { return m_lines; }
    QPolygonF longestLine() const;
    /// The largest part of its area, empty where it is not filled.
    const QPolygonF &area() const { return m_area; }

    /// Where a part of the length of a line lies, from 0 to 1.
    static QPointF pointAt(const QPolygonF &line, double fraction);

private:
    void addPoint(const KRMapTrackRenderer &renderer, const KRGPXConfiguredTrack &track, const QSize &size,
                  int mostCopies);

    QVector<QPolygonF> m_lines;
    QPolygonF m_area;
};
