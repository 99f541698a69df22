#pragma once

#include <KRGeoLocation/KRGPXConfiguredTrack.h>

#include <QPointF>

#include <limits>
#include <vector>

/**
 * The way of one track in world coordinates, ready to be asked again and again what lies near a place.
 *
 * World coordinates are those of KRMapViewport; a way over the date line goes on beyond 0 or 1. The way is the one
 * that is drawn: smoothed, closed for an area, with its enclaves, and a single place where a marker is drawn. Points
 * that no map can show stand where the point before them does, so that the points keep their numbers.
 *
 * Made once, in any thread, which takes about as long as drawing the track; then it never changes, and a question is
 * answered in much less than a millisecond, however many points there are.
 */
class KRTrackTrace
{
public:
    /// The smallest box around what was added, in world coordinates.
    struct Box {
        double west = std::numeric_limits<double>::infinity();
        double north = std::numeric_limits<double>::infinity();
        double east = -std::numeric_limits<double>::infinity();
        double south = -std::numeric_limits<double>::infinity();

        bool isEmpty() const { return west > east; }
        void add(const QPointF &point);
        void add(const Box &other);
    };

    explicit KRTrackTrace(const KRGPXConfiguredTrack &track);

    /// Whether another trace of this track would be the same.
    bool isOf(const KRGPXConfiguredTrack &track) const;

    bool isEmpty() const { return m_points.empty(); }
    /// Around all that is drawn.
    const Box &bounds() const { return m_bounds; }
    /// Around all valid positions, where (0, 0) is none: what is worth being shown.
    const Box &area() const { return m_area; }

    struct Nearest {
        double distance; ///< world coordinates
        double along; ///< number of the point before, and how far on to the next one; -1 on an enclave
        QPointF place;
    };
    /// What of the way is nearest to @p place; with the distance @p reach when nothing is nearer than that.
    Nearest nearest(const QPointF &place, double reach) const;
    /// Whether an area that is filled between the way and its enclaves covers @p place.
    bool encloses(const QPointF &place) const;

private:
    /// Consecutive points, the last one of which is the first one of the next block.
    struct Block {
        std::size_t first;
        std::size_t last;
        Box bounds;
    };

    static constexpr double anywhere = std::numeric_limits<double>::quiet_NaN();

    /// The first place of the ring comes as near to @p besideX as the world repeats.
    void addRing(const KRGPXTrackElement &ring, bool isClosed, double besideX = anywhere);
    void addPlaces(const KRGPXTrackElement &ring, double besideX);
    void addBlocks(std::size_t first);

    KRGPXTrack m_track;
    int m_smoothingStrength;
    int m_smoothingSteps;
    KRGPXTrackShape m_shape;
    std::vector<QPointF> m_points;
    std::size_t m_wayLength = 0; ///< points before those of the enclaves
    std::vector<Block> m_blocks;
    Box m_bounds;
    Box m_area;
};
