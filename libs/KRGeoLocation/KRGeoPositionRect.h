#pragma once

#include "KRGeoLocationExport.h"
#include "KRGeoPosition.h"
#include "KRLatitudeRange.h"
#include "KRLongitudeRange.h"

class QDebug;
class QUrlQuery;
struct KRGeoPositionSpan;

/**
 * An area on the map: a latitude range and a longitude range, in decimal degrees. It may cross the date line.
 *
 * Valid when south <= north, both latitudes lie in -90 … 90 and both longitudes in -180 … 180. An unset or unreadable
 * end holds KRGeoArc::invalidDegrees. Growth by an invalid position or rectangle is ignored. Nothing throws.
 */
class KRGEOLOCATION_EXPORT KRGeoPositionRect
{
public:
    /// Unset.
    KRGeoPositionRect() = default;
    /// @p a is the south-western corner, @p b the north-eastern one; taken as given, see spawn().
    KRGeoPositionRect(const KRGeoPosition &a, const KRGeoPosition &b);
    KRGeoPositionRect(const KRLatitudeRange &latitudeRange, const KRLongitudeRange &longitudeRange);
    KRGeoPositionRect(const KRGeoPositionRect &other) = default;
    KRGeoPositionRect(KRGeoPositionRect &&other) noexcept = default;
    KRGeoPositionRect &operator=(const KRGeoPositionRect &other) = default;
    KRGeoPositionRect &operator=(KRGeoPositionRect &&other) noexcept = default;
    virtual ~KRGeoPositionRect() = default;

    /// Orders the corners as KRLatitudeRange::spawn() and KRLongitudeRange::spawn() do.
    static KRGeoPositionRect spawn(const KRGeoPosition &a, const KRGeoPosition &b);
    /// From the items "latitude_min", "latitude_max", "longitude_min" and "longitude_max".
    static KRGeoPositionRect parse(const QUrlQuery &query);
    /// The area that maps show unless told otherwise: 40 to 60 degrees north, -10 to 30 degrees east.
    static KRGeoPositionRect europeanUnion();

    KRLatitude north() const { return m_latitudeRange.north(); }
    KRLatitude south() const { return m_latitudeRange.south(); }
    KRLongitude east() const { return m_longitudeRange.east(); }
    KRLongitude west() const { return m_longitudeRange.west(); }
    KRLatitudeRange latitudeRange() const { return m_latitudeRange; }
    KRLongitudeRange longitudeRange() const { return m_longitudeRange; }
    KRGeoPosition northWest() const { return KRGeoPosition(north(), west()); }
    KRGeoPosition southEast() const { return KRGeoPosition(south(), east()); }
    KRGeoPosition center() const;
    /// The larger of height and width in degrees, the width without regard to the date line: 170 to -170 are 340.
    KRGeoArc maxExtension() const;

    /// Whether it is europeanUnion().
    bool isDefault() const;
    bool isValid() const;
    /// Less than one degree in height and width.
    bool isVerySmall() const;
    bool contains(const KRGeoPosition &position) const;
    bool contains(const KRGeoPositionRect &other) const;

    bool operator==(const KRGeoPositionRect &other) const;
    bool operator!=(const KRGeoPositionRect &other) const { return !(*this == other); }

    /// This one expanded to @p other.
    KRGeoPositionRect operator+(const KRGeoPositionRect &other) const;
    /// A copy, blown up by @p degrees.
    [[nodiscard]] KRGeoPositionRect blownUp(double degrees) const;
    /// A copy with a margin of @p percentage of maxExtension() on each side, of 0.1 degrees where that is 0. An area
    /// that is not valid stays as it is, and so does any with a percentage of 0.
    [[nodiscard]] KRGeoPositionRect withPadding(double percentage) const;
    /// A copy, blown up by one degree if it is very small. An unset one turns into the point (90, 180).
    [[nodiscard]] KRGeoPositionRect toReasonableSize() const;

    void expandTo(const KRGeoPosition &position);
    void expandTo(const KRGeoPositionRect &other);
    /// Expands to each of the positions.
    void expandTo(const KRGeoPositionSpan &positions);
    /// Moves all four sides outwards, at most to the poles and the date line.
    void blowUp(double degrees);

    /// "S5.00000000 - N10.00000000 ; W5.00000000 - E5.00000000", the angles as KRLatitude::toString() writes them.
    QString toString(bool inDegreesMinutesSeconds) const;
    /// Adds "latitude_max", "latitude_min", "longitude_max" and "longitude_min".
    void writeTo(QUrlQuery &query) const;

private:
    KRLatitudeRange m_latitudeRange;
    KRLongitudeRange m_longitudeRange;
};

/// Prints "Lat:  N40.00000000 - N60.00000000  ; Lon: W10.00000000 - E30.00000000".
KRGEOLOCATION_EXPORT QDebug operator<<(QDebug debug, const KRGeoPositionRect &rect);

Q_DECLARE_METATYPE(KRGeoPositionRect)
