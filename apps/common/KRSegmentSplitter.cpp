#include "KRSegmentSplitter.h"

#include "KRTrackEditing.h"

#include <KRCore/KRInputLimits.h>

#include <algorithm>

namespace {

/// The segments that become tracks; none when the track stays whole.
QList<KRGPXTrackSegment> partsOf(const KRGPXTrack &track)
{
    QList<KRGPXTrackSegment> segments = track.segments();
    segments.erase(std::remove_if(segments.begin(), segments.end(),
                                  [](const KRGPXTrackSegment &segment) { return !segment.isValid(); }),
                   segments.end());
    return segments.size() < 2 || !track.enclaves().isEmpty() ? QList<KRGPXTrackSegment>() : segments;
}

void appendSplit(KRGPXConfiguredTrackList *tracks, const KRGPXConfiguredTrack &track)
{
    const QList<KRGPXTrackSegment> segments = partsOf(track.track());
    if (segments.isEmpty()) {
        tracks->append(track);
        return;
    }
    for (int i = 0; i < segments.size(); ++i)
        tracks->append(KRTrackEditing::part(track, i + 1, {segments.at(i)}));
}

} // namespace

KRGPXConfiguredTrackList KRSegmentSplitter::split(const KRGPXConfiguredTrackList &tracks)
{
    KRGPXConfiguredTrackList result;
    for (const KRGPXConfiguredTrack &track : tracks)
        appendSplit(&result, track);
    return result;
}

QString KRSegmentSplitter::refusal(const KRGPXConfiguredTrackList &tracks)
{
    qint64 trackCount = 0;
    qint64 characters = 0;
    bool isAnySplit = false;
    for (const KRGPXConfiguredTrack &track : tracks) {
        const int partCount = partsOf(track.track()).size();
        isAnySplit |= partCount > 0;
        trackCount += std::max(partCount, 1);
        characters += partCount * qint64(track.name().size() + track.description().size());
    }
    if (isAnySplit && trackCount > KRInputLimits::tracks)
        return tr("Zerlegt wären es mehr als %1 Routen.").arg(KRInputLimits::tracks);
    if (characters > KRInputLimits::allKeptCharacters)
        return tr("Zerlegt hätten die Routen zu lange Namen und Beschreibungen (mehr als %1 Millionen Zeichen).")
            .arg(KRInputLimits::allKeptCharacters >> 20);
    return QString();
}
