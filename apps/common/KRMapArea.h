#pragma once

#include <KRGeoLocation/KRGeoPositionRect.h>

#include <array>

class KRGPXTrackElement;
class KRGPXTrackSelection;
class QString;

/**
 * The part of the world that tracks cover, across the date line where that is the shorter way.
 *
 * KRGeoPositionRect grows by numbers and spans nearly the whole world once positions lie on both sides of the
 * date line. This class marks instead which tenths of a degree of longitude are crossed, takes the shorter way
 * from each position to the next as the track renderer does, and leaves out the widest stretch without any.
 */
class KRMapArea
{
public:
    /// How far the map reaches to the north and to the south, in degrees of latitude: where it is a square.
    static constexpr double maximumLatitude = 85.0511;

    /// Whether a position of these degrees is valid, without making it.
    static bool isValidPosition(double latitude, double longitude);

    /// The area to show of the tracks together, as padded() has it.
    static KRGeoPositionRect paddedAreaOf(const KRGPXTrackSelection &selection);

    /// Adds all valid positions of a track, joined to one line.
    void add(const KRGPXTrackElement &track);

    /// The area without any margin; not valid when there was no valid position.
    KRGeoPositionRect covered() const;

    /// The area to show: a tenth of its larger side more on all sides, a quarter of a degree around a single place.
    KRGeoPositionRect padded() const { return padded(covered()); }
    static KRGeoPositionRect padded(const KRGeoPositionRect &area);

    /// "N53.5 E8.0 .. N53.0 E9.0": north-western and south-eastern corner. Not valid when it cannot be read, or
    /// when the first corner does not lie north of the second.
    static KRGeoPositionRect parse(const QString &text);

private:
    /// One tenth of a degree.
    struct Strip {
        // The outermost longitudes that were seen in it, in degrees.
        double west = 720.0;
        double east = -720.0;
        int change = 0; ///< lines that come in from the west minus those that end there
    };
    static constexpr int stripCount = 3600;

    static int stripAt(double longitude);
    void addPosition(double latitude, double longitude);
    void cross(double fromLongitude, double toLongitude);
    void addLine(int west, int east);
    KRLongitudeRange coveredLongitudes() const;

    std::array<Strip, stripCount> m_strips{};
    // All that are touched.
    int m_first = stripCount - 1;
    int m_last = 0;
    double m_south = 720.0;
    double m_north = -720.0;
};
