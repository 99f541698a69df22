#include "KRExchangeLosses.h"

#include "KRExchangeText.h"

#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

KRExchangeLosses::Positions KRExchangeLosses::count(const KRGPXTrack &track)
{
    Positions count;
    const QList<KRGPXTrackSegment> segments = track.segments();
    for (const KRGPXTrackSegment &segment : segments) {
        const KRGeoPositionSpan positions = segment.positions();
        for (int i = 0; i < positions.count; ++i) {
            if (!KRExchangeText::isExchangeable(positions.at(i))) {
                ++count.unusable;
                continue;
            }
            ++count.exchangeable;
            const KRGPXTime time = segment.time(i);
            count.timed += time.isValid() ? 1 : 0;
            count.untellable += time.isValid() && !KRExchangeText::hasUtc(time) ? 1 : 0;
        }
    }
    return count;
}

int KRExchangeLosses::countEnclaves(const KRGPXTrack &track)
{
    const QList<KRGPXTrack> enclaves = track.enclaves();
    int count = enclaves.size();
    for (const KRGPXTrack &enclave : enclaves)
        count += countEnclaves(enclave);
    return count;
}

void KRExchangeLosses::report(const QString &name, KRErrorHistory *history) const
{
    const auto reportCount = [&](int count, const QString &text) {
        if (count > 0)
            KRErrorHistory::report(history, name, text.arg(count));
    };
    reportCount(tracks, tr("Routen ohne Position: %1"));
    reportCount(unusablePositions, tr("Ausgelassene Positionen ohne gültige Koordinaten: %1"));
    reportCount(positionsBesidePoints, tr("Ausgelassene Positionen von Routen, die ein einzelner Punkt sind: %1"));
    reportCount(enclaves, tr("Ausgelassene Löcher: %1"));
    reportCount(times, tr("Ausgelassene Zeiten: %1"));
}
