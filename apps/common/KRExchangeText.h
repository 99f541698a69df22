#pragma once

#include <QString>

class KRGeoArc;
class KRGeoPosition;
class QXmlStreamWriter;
struct KRGPXTime;

/**
 * Values as the exchange formats GPX and KML write them, independent of the locale.
 *
 * Files have millions of them: those that append to a text that has the room ask for no memory. May be used in several
 * threads at once.
 */
class KRExchangeText
{
public:
    /// Whether other programs know such a position, once its longitude is normalized: on the globe, and not the
    /// (0, 0) that stands for none.
    static bool isExchangeable(const KRGeoPosition &position);

    /// Decimal degrees with up to seven decimals (a centimetre), never with an exponent.
    static QString degrees(const KRGeoArc &angle);
    static void appendDegrees(const KRGeoArc &angle, QByteArray *text);

    static void appendNumber(int number, QByteArray *text);

    /// Whether the time has a text: it is valid, and in the years 1 to 9999.
    static bool hasUtc(const KRGPXTime &time);

    /// As the text of the current element: without what XML has no characters for, and with the carriage returns that
    /// readers would take for line feeds.
    static void write(const QString &text, QXmlStreamWriter *xml);
    /// The same as XML.
    static QByteArray toXml(const QString &text);

    /// ISO 8601 in UTC, "2025-05-17T08:30:00Z", with milliseconds where there are any; else empty.
    static QString utc(const KRGPXTime &time);
    static void appendUtc(const KRGPXTime &time, QByteArray *text);
};
