#pragma once

#include <KRGeoLocation/KRGPXConfiguredTrackList.h>

#include <QCoreApplication>

class QString;

/// Makes each segment of a track a track of its own, so that pauses are not drawn as straight lines.
class KRSegmentSplitter
{
    Q_DECLARE_TR_FUNCTIONS(KRSegmentSplitter)

public:
    /**
     * Tracks with several segments become one for each segment with points, which is KRTrackEditing::part() of it.
     * Areas stay whole, since the holes in them belong to all segments.
     */
    static KRGPXConfiguredTrackList split(const KRGPXConfiguredTrackList &tracks);

    /// Why the tracks should stay whole, for users, an empty text when nothing speaks against it: apart they would be
    /// more tracks, with longer texts in all, than are read from a file. Each part repeats the texts of its track.
    static QString refusal(const KRGPXConfiguredTrackList &tracks);
};
