#pragma once

#include <QString>

class KRGeoArc;
class KRGeoPosition;
struct KRGPXTime;

/**
 * Values as the exchange formats GPX and KML write them, independent of the locale.
 */
class KRExchangeText
{
public:
    /// Whether other programs know such a position, once its longitude is normalized: on the globe, and not the
    /// (0, 0) that stands for none.
    static bool isExchangeable(const KRGeoPosition &position);

    /// Decimal degrees with up to seven decimals (a centimetre), never with an exponent.
    static QString degrees(const KRGeoArc &angle);

    /// ISO 8601 in UTC, "2025-05-17T08:30:00Z", with milliseconds where there are any.
    static QString utc(const KRGPXTime &time);
};
