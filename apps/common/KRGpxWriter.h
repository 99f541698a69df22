#pragma once

#include <functional>

class KRGPXConfiguredTrackList;
class KRGPXTrack;
class KRGPXTrackSegment;
class QIODevice;
class QXmlStreamWriter;
struct KRExchangeLosses;

/**
 * Writes tracks as plain GPX 1.1, for other programs to read.
 *
 * Points go out with longitudes from -180 to 180, elevations where they are not 0, and times in UTC. Positions that are
 * not exchangeable are left out, for GPX knows no such points. Enclaves become tracks of their own behind the track
 * that holds them.
 */
class KRGpxWriter
{
public:
    /// False when @p file takes no more, or @p goOn, which is asked before each track, says so.
    static bool write(const KRGPXConfiguredTrackList &tracks, QIODevice *file,
                      const std::function<bool()> &goOn = nullptr);
    static KRExchangeLosses lossesOf(const KRGPXConfiguredTrackList &tracks);

private:
    static bool writeTrack(QXmlStreamWriter &xml, const KRGPXTrack &track);
    static bool writeSegment(QXmlStreamWriter &xml, const KRGPXTrackSegment &segment);
};
