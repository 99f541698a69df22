#pragma once

#include "KRGPXTrackSelection.h"
#include "KRGeoLocationExport.h"
#include "KRGeoPosition.h"
#include "KRGeoPositionSpan.h"

#include <KRCore/KRIntRange.h>

#include <QBrush>
#include <QColor>
#include <QImage>
#include <QList>
#include <QPainterPath>
#include <QPen>
#include <QPointF>
#include <QRect>
#include <QSize>

#include <array>
#include <vector>

class KRGPXConfiguredTrack;
class KRGPXMarkerStamps;
class KRGPXTrack;
class KRGPXTrackConfiguration;
class KRGPXWorldCopies;
class KRGPXWorldStrip;
class QPainter;

/// How tracks are drawn. Every other number is taken as HaloRender.
enum TrackRenderOption : int {
    StyledRender = 0, ///< as the configuration says: its colours, line width, pen style and display options
    OpaqueRender = 1, ///< alpha 255, halo added to the line width, no pen style, stroked and filled in any case
    HaloRender = 2 ///< configured colours, halo added to the line width, no pen style, configured display options
};

/**
 * Draws the tracks of a selection into an image as large as the map that they belong to, and crops such a map.
 *
 * The subclass supplies the projection. It is called from several threads at once and must be a pure function.
 * A track that steps over longitude 180 goes on beyond the edge of its world, and everything is drawn once for
 * each copy of the world that may be in view; a line that winds around the world, for each of its rounds too. The
 * holes of an area lie in the same copy as their area. Where very many points would be drawn in very many copies, one
 * of these is an image that all of them show.
 *
 * All lengths are pixels of the target image; widths, marker sizes and distances of the configuration are
 * multiplied by the rendering factor (1 on a normal screen, 2 on one of high density). Points that project to no
 * finite pixel are left out. A target image without area gives null images.
 *
 * The renderer never changes: several threads may render with one object at once. All drawing happens on the
 * calling thread; projection, search for crossings of the date line and merging of alpha use KRConcurrent.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackRenderer
{
public:
    using TrackRenderOption = ::TrackRenderOption;
    static constexpr TrackRenderOption StyledRender = ::StyledRender;
    static constexpr TrackRenderOption OpaqueRender = ::OpaqueRender;
    static constexpr TrackRenderOption HaloRender = ::HaloRender;

    using AlphaTable = std::array<uchar, 256>;

    KRGPXTrackRenderer(const KRGPXTrackSelection &selection, const QSize &targetImageSize, double renderingFactor);
    virtual ~KRGPXTrackRenderer();

    /// The pixel of a position in the target image.
    virtual QPointF projectPosition(const KRGeoPosition &position) const = 0;
    /// The pixels of all @p positions, as projectPosition() gives them. This body calls it; a subclass may be faster.
    virtual void projectPositions(const KRGeoPositionSpan &positions, QPointF *pixels) const;

    QSize targetImageSize() const { return m_targetImageSize; }
    /// Where all tracks are drawn: the target image, or one of very many copies of a narrow world, in it or beside it.
    /// @param isOnPage of SVG or PDF, where fewer copies stay lines and areas
    QRect drawnRect(bool isOnPage) const;
    double renderingFactor() const { return m_renderingFactor; }
    double scale(double length) const { return length * m_renderingFactor; }

    /// Antialiased, on transparent ground, in QImage::Format_ARGB32.
    QImage render(TrackRenderOption option) const;
    /// Not antialiased, on transparent ground, in QImage::Format_ARGB32_Premultiplied.
    QImage renderQuickAndDirty(TrackRenderOption option) const;
    /// renderQuickAndDirty() with OpaqueRender.
    QImage renderForeground() const;
    /// Draws all tracks, later ones over earlier ones, antialiased where the painter is; markers always are.
    void renderWith(QPainter &painter, TrackRenderOption option) const;
    /// The same; where there are very many tracks or points, half transparent lines of one look become one.
    void renderUnited(QPainter &painter, TrackRenderOption option) const;
    void drawTrack(QPainter *painter, const KRGPXConfiguredTrack &track, TrackRenderOption option) const;

    /**
     * The map with its alpha replaced: 255 where a track is drawn, the cropping opacity of the selection elsewhere,
     * in between on the edges. The result is in QImage::Format_ARGB32_Premultiplied, except that with a cropping
     * opacity of 255 it is the map as it came. What the map has outside the target image counts as elsewhere.
     */
    QImage crop(const QImage &map) const;

    /// The pixels from longitude -180 to 180.
    QPointF aroundTheWorldOffset() const;
    /// The copies of the world that may be in view: 0 is the one that is projected, 1 its eastern neighbour.
    KRIntRange visibleShifts(QPainter *painter) const;

    /// The direction of the last five per cent in degrees as QPainterPath::angleAtPercent counts them.
    double detectAngleOfPath(const QPainterPath &path) const;
    /// The pixel offset of @p distance pixels against the direction @p angle, which counts as in detectAngleOfPath().
    QPointF carthesian(double distance, double angle) const;
    QPointF movePolar(const QPointF &point, double distance, double angle) const;

    /// What is drawn with, whatever the display options say; pens in pixels of the target image, scaled already. A
    /// width that is not a positive number gives a pen of width 0, a hairline.
    QColor lineColor(const KRGPXTrackConfiguration &configuration, TrackRenderOption option) const;
    QColor fillColor(const KRGPXTrackConfiguration &configuration, TrackRenderOption option) const;
    QColor adaptColor(const QColor &color, TrackRenderOption option) const;
    QPen solidPenFromTrack(const KRGPXTrackConfiguration &configuration, TrackRenderOption option) const;
    QPen penFromTrack(const KRGPXTrackConfiguration &configuration, TrackRenderOption option) const;
    QBrush brushFromTrack(const KRGPXTrackConfiguration &configuration, TrackRenderOption option) const;

    /// The outline of the track and, as further subpaths, of its enclaves; not those of the enclaves themselves.
    QPainterPath createPainterPath(const KRGPXConfiguredTrack &track) const;
    /**
     * A point is left out unless its Manhattan distance from the last one kept is more than 4 pixels times the
     * rendering factor. The last point of all is there in any case; empty when no point but the first was kept.
     */
    QPainterPath createPainterPath(const KRGPXTrack &track, int smoothingStrength, int smoothingSteps) const;

    /// 1 for a step eastwards over longitude 180, -1 for one westwards, else 0. Longitude -180 counts as eastern.
    int checkDateLineCrossing(const KRGeoPosition &a, const KRGeoPosition &b) const;

protected:
    // Chunk c of the points, a run of finite ones, has the indices ranges[c] in the arrays of all points.
    using Chunks = QList<KRGeoPositionSpan>;
    using Ranges = QList<KRIntRange>;

    void projectPointsPP(int c, const Chunks &chunks, const Ranges &ranges, QPointF *points) const;
    void shiftProjected(int c, const QPointF *offsets, const Ranges &ranges, QPointF *points) const;
    void checkDateLineCrossings(int c, const Chunks &chunks, const Ranges &ranges, int *crossings) const;
    /// One offset per point, in an array that the caller deletes; sets @p crossed when there is any but (0, 0).
    QPointF *createDateLineCrossingOffsets(const Chunks &chunks, const QList<int> &chunkNumbers, int pointCount,
                                           const Ranges &ranges, bool *crossed) const;

    void drawLine(QPainter *painter, const KRGPXConfiguredTrack &track, TrackRenderOption option) const;
    void drawPolygon(QPainter *painter, const KRGPXConfiguredTrack &track, TrackRenderOption option) const;
    void drawPolygon(QPainter *painter, const QPainterPath &path, const KRGPXTrackConfiguration &configuration,
                     TrackRenderOption option) const;
    void drawPath(QPainter *painter, const QPainterPath &path, const KRGPXTrackConfiguration &configuration,
                  TrackRenderOption option) const;
    void drawArrowHead(QPainter *painter, const QPainterPath &path, const KRGPXTrackConfiguration &configuration,
                       TrackRenderOption option) const;
    void drawPoint(QPainter *painter, const KRGPXConfiguredTrack &track, TrackRenderOption option,
                   KRGPXMarkerStamps *stamps = nullptr) const;

    /// Replaces the alpha of @p image, of 32 bits a pixel, by the table's entry for the alpha of @p mask.
    void mergeCropping(QImage &image, const QImage &mask, const KRIntRange &rows, const AlphaTable &table) const;

private:
    QImage paintImage(TrackRenderOption option, bool antialiased) const;
    void paintOn(QImage *image, const KRGPXConfiguredTrackList &tracks, TrackRenderOption option,
                 bool antialiased) const;
    void drawTracks(QPainter *painter, const KRGPXConfiguredTrackList &tracks, TrackRenderOption option,
                    bool isUniting = false) const;
    void drawEach(QPainter *painter, const KRGPXConfiguredTrackList &tracks, TrackRenderOption option,
                  bool isUniting) const;
    KRGPXWorldStrip worldStrip(const KRGPXConfiguredTrackList &tracks, bool isOnPage) const;
    std::vector<QPointF> projectedPoints(const KRGPXTrack &track) const;
    QPainterPath thinnedPath(std::vector<QPointF> points) const;
    double reachOf(const QPen &pen) const;
    KRGPXWorldCopies worldCopies() const;

    KRGPXTrackSelection m_selection;
    QSize m_targetImageSize;
    double m_renderingFactor;
};
