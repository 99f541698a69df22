#pragma once

#include "KRGPXReadingOptions.h"
#include "KRGPXTrack.h"

class KRErrorHistory;
class QByteArray;
class QFileInfo;

/**
 * The tracks of one GPX file, or of any XML file that holds "trk" elements directly below its document element.
 *
 * Only valid tracks are kept. One without a name is named after the file and its place among all tracks of the file,
 * "Tour 2" for the second one in Tour.gpx. A file that cannot be read gives no tracks; the reason goes to the history
 * where one is handed in.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackFile
{
public:
    explicit KRGPXTrackFile(const QFileInfo &file, KRErrorHistory *history = nullptr,
                            const KRGPXReadingOptions &options = {});

    /// The same with @p xml, in UTF-8, in place of what the file holds: a document that was in memory and has been
    /// written anew, without faults and document type. No DOM is made of it.
    static KRGPXTrackFile fromXml(const QByteArray &xml, const QFileInfo &file, KRErrorHistory *history,
                                  const KRGPXReadingOptions &options);

    QList<KRGPXTrack> tracks() const { return m_tracks; }
    /// Whether the file held a valid track.
    bool isValid() const { return !m_tracks.isEmpty(); }

private:
    KRGPXTrackFile() = default;

    QList<KRGPXTrack> m_tracks;
};
