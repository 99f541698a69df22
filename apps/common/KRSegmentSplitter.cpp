#include "KRSegmentSplitter.h"

#include <algorithm>

namespace {

void appendSplit(KRGPXConfiguredTrackList *tracks, const KRGPXConfiguredTrack &track)
{
    QList<KRGPXTrackSegment> segments = track.track().segments();
    segments.erase(std::remove_if(segments.begin(), segments.end(),
                                  [](const KRGPXTrackSegment &segment) { return !segment.isValid(); }),
                   segments.end());
    if (segments.size() < 2 || !track.track().enclaves().isEmpty()) {
        tracks->append(track);
        return;
    }
    KRGPXTrackConfiguration configuration = track.configuration();
    if (configuration.trackShape() == track.naturalShape())
        configuration.setTrackShape(AutoTrackShape);
    for (int i = 0; i < segments.size(); ++i) {
        const QString name = QStringLiteral("%1 (%2)").arg(track.name(), QString::number(i + 1));
        tracks->append(KRGPXConfiguredTrack(
            KRGPXTrack(name, track.description(), {segments.at(i)}, track.track().shape()), configuration));
    }
}

} // namespace

KRGPXConfiguredTrackList KRSegmentSplitter::split(const KRGPXConfiguredTrackList &tracks)
{
    KRGPXConfiguredTrackList result;
    for (const KRGPXConfiguredTrack &track : tracks)
        appendSplit(&result, track);
    return result;
}
