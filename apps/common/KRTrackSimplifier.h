#pragma once

#include <KRGeoLocation/KRGPXConfiguredTrack.h>

#include <vector>

/**
 * Leaves out points of a track as long as its line stays within a tolerance.
 *
 * Deviations are metres, measured from the line as maps draw it: straight in Mercator's projection, with the scale at
 * the point that is left out. A flight line thus keeps its curve. Elevations and times do not count, but stay with
 * the points that are left. The ends of segments stay, areas and closed ways keep at least four points for each
 * segment, and points without a position are never left out. Enclaves are simplified as well.
 *
 * The work is done once, by the constructor, for all tolerances; it takes time n log n in the number of points.
 * Afterwards all queries are const and may run in several threads at once.
 */
class KRTrackSimplifier
{
public:
    explicit KRTrackSimplifier(const KRGPXConfiguredTrack &track);

    /// How many points, those of enclaves included, are left with this tolerance. Negative counts as 0, and 0 still
    /// leaves out what lies on the line to a millimetre.
    int countPoints(double toleranceMetres) const;
    int countAllPoints() const { return static_cast<int>(m_sortedDeviations.size()); }

    /// The track with the points that are left, otherwise as it was.
    KRGPXConfiguredTrack simplified(double toleranceMetres) const;

private:
    void measure(const KRGPXTrack &track, bool isArea);
    KRGPXTrack simplified(const KRGPXTrack &track, float tolerance, std::size_t &segmentNumber) const;

    KRGPXConfiguredTrack m_track;
    /// For each segment, those of enclaves after those of their area, how far the line would lie away at least from
    /// where it was if the point were left out.
    std::vector<std::vector<float>> m_deviations;
    std::vector<float> m_sortedDeviations;
};
