#pragma once

#include "KRGeoLocationExport.h"
#include "KRLatitude.h"
#include "KRLongitude.h"

#include <QMetaType>
#include <QPointF>
#include <QSharedDataPointer>

class KRGeoPositionImpl;
class QDebug;
class QDomElement;
class QUrlQuery;

/**
 * A point on the earth: a latitude and a longitude in decimal degrees, on a sphere of 6370 km.
 *
 * Valid when both components are angles in -360 … 360 and not both are exactly 0: (0, 0) counts as "no position".
 * By default, and when a text could not be read, both components hold KRGeoArc::invalidDegrees. Components are kept
 * as given; no operation wraps or clamps unless it says so. Nothing throws.
 *
 * Implicitly shared: copies may be used and destroyed in several threads at once. A moved-from position may only be
 * assigned or destroyed.
 */
class KRGEOLOCATION_EXPORT KRGeoPosition
{
public:
    KRGeoPosition();
    KRGeoPosition(const KRLatitude &latitude, const KRLongitude &longitude);
    KRGeoPosition(double latitude, double longitude);
    /// Any other letter than 'N' negates the latitude, any other than 'E' the longitude.
    KRGeoPosition(double latitude, char northOrSouth, double longitude, char eastOrWest);
    KRGeoPosition(const KRGeoPosition &other);
    KRGeoPosition(KRGeoPosition &&other) noexcept;
    KRGeoPosition &operator=(const KRGeoPosition &other);
    KRGeoPosition &operator=(KRGeoPosition &&other) noexcept;
    virtual ~KRGeoPosition();

    void swap(KRGeoPosition &other) noexcept { d.swap(other.d); }

    /// (0, 0), where sums start. Not valid.
    static KRGeoPosition null();
    /// Reads "N53.14 E8.21": two words as KRLatitude::parse() and KRLongitude::parse() read them.
    static KRGeoPosition parse(const QString &text);
    /// Reads "53,8,0N; 8,12,0E": two angles as KRGeoArc::fromString() reads them; parts beyond are ignored.
    static KRGeoPosition fromString(const QString &text);
    /// Reads the attributes "latitude" and "longitude". One that is missing gives -720, an unreadable one 0.
    static KRGeoPosition fromXml(const QDomElement &element);

    KRLatitude latitude() const;
    KRLongitude longitude() const;
    /// x is the longitude, y the latitude.
    QPointF toPointF() const;

    bool isValid() const;
    bool isNorthOf(const KRGeoPosition &other) const;
    bool isNorthOf(const KRLatitude &latitude) const;
    bool isSouthOf(const KRGeoPosition &other) const;
    bool isSouthOf(const KRLatitude &latitude) const;
    /// The shorter way round the globe, as KRLongitude::isEastOf().
    bool isEastOf(const KRGeoPosition &other) const;
    bool isEastOf(const KRLongitude &longitude) const;
    /// The shorter way round the globe, as KRLongitude::isWestOf().
    bool isWestOf(const KRGeoPosition &other) const;
    bool isWestOf(const KRLongitude &longitude) const;
    bool isInNorthernHemisphere() const;
    bool isInSouthernHemisphere() const;
    bool isInEasternHemisphere() const;
    bool isInWesternHemisphere() const;

    /// Both components equal with the tolerance of KRGeoArc.
    bool operator==(const KRGeoPosition &other) const;
    bool operator!=(const KRGeoPosition &other) const;
    /// From south to north; where the latitudes are equal, from west to east.
    bool operator<(const KRGeoPosition &other) const;
    bool operator>(const KRGeoPosition &other) const;
    /// Of latitude + longitude without tolerance, so equal positions may hash apart and (1, 2) as (2, 1).
    uint hashValue() const;

    KRGeoPosition operator+(const KRGeoPosition &other) const;
    /// A divisor of exactly 0 gives KRGeoArc::invalidDegrees in both components.
    KRGeoPosition operator/(double divisor) const;
    /// How many degrees of latitude @p km kilometres are, at a nautical mile per minute.
    KRLatitude latitudeDeviation(double km) const;
    /// How many degrees of longitude @p km kilometres are on this latitude; next to a pole a huge number.
    KRLongitude longitudeDeviation(double km) const;
    [[nodiscard]] KRGeoPosition moveNorthBy(double km) const;
    [[nodiscard]] KRGeoPosition moveEastBy(double km) const;
    /// The same position with its longitude in -180 … 180.
    [[nodiscard]] KRGeoPosition normalized() const;
    /// Kilometres along the great circle; 6370000 when one of the two is not valid.
    double distance(const KRGeoPosition &other) const;

    KRGeoPosition &operator+=(const KRGeoPosition &other);
    KRGeoPosition &operator/=(double divisor);
    /// Stores the latitude as given. Setters tell whether the stored number changed.
    bool setLatitude(const KRLatitude &latitude);
    bool setLongitude(const KRLongitude &longitude);
    /// Pulls a latitude at a pole or beyond to 89.99 or -89.99.
    void catchLatitude();

    /// For users: when @p inDegreesMinutesSeconds and both components are valid "53° 8′ 0″ Nord<br>8° 12′ 0″ Ost", a
    /// text for HTML labels; else "N53.13333333; E8.20000000", in which an invalid component is empty.
    QString toString(bool inDegreesMinutesSeconds) const;
    /// Sets the attributes "latitude" and "longitude"; nothing unless the position is valid.
    void writeToXml(QDomElement &element) const;
    /// Adds "latitude", then "longitude", each with 16 decimals.
    void writeTo(QUrlQuery &query) const;

private:
    explicit KRGeoPosition(KRGeoPositionImpl *impl);

    QSharedDataPointer<KRGeoPositionImpl> d;
};

/// Prints "Lat 53.14118 ; Lon 8.21467", with eight significant digits.
KRGEOLOCATION_EXPORT QDebug operator<<(QDebug debug, const KRGeoPosition &position);

Q_DECLARE_SHARED(KRGeoPosition)
Q_DECLARE_METATYPE(KRGeoPosition)
