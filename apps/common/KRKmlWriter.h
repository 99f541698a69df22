#pragma once

#include <functional>

class KRGPXConfiguredTrack;
class KRGPXConfiguredTrackList;
class KRGPXTrack;
class KRGPXTrackConfiguration;
class KRGPXTrackPoint;
class QIODevice;
class QString;
class QXmlStreamWriter;
struct KRExchangeLosses;

/**
 * Writes configured tracks as KML 2.2, for earth viewers to show.
 *
 * One placemark per track with a style of its own. Areas become polygons with their enclaves as inner boundaries,
 * points become points with a time stamp. A line becomes a line string; where it has times a gx:Track, and of several
 * segments a gx:MultiTrack, which keeps them together. Line widths in pixels are divided by six, as the KML importer
 * multiplies them.
 */
class KRKmlWriter
{
public:
    /// @param name of the document
    /// False when @p file takes no more, or @p goOn, which is asked before each track, says so.
    static bool write(const KRGPXConfiguredTrackList &tracks, const QString &name, QIODevice *file,
                      const std::function<bool()> &goOn = nullptr);
    static KRExchangeLosses lossesOf(const KRGPXConfiguredTrackList &tracks);

private:
    static void writeStyle(QXmlStreamWriter &xml, const KRGPXTrackConfiguration &configuration, const QString &id);
    static void writePlacemark(QXmlStreamWriter &xml, const KRGPXConfiguredTrack &track, const QString &styleId);
    static void writePoint(QXmlStreamWriter &xml, const KRGPXTrackPoint &point);
    static void writePolygon(QXmlStreamWriter &xml, const KRGPXTrack &track);
    static void writeLines(QXmlStreamWriter &xml, const KRGPXTrack &track);
};
