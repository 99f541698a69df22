#include "KRSelectionChange.h"

#include <KRCore/KRMath.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <algorithm>
#include <map>
#include <tuple>

namespace {

KRGPXTrackSelection partOf(const KRGPXTrackSelection &whole, int row, int count)
{
    KRGPXTrackSelection part(whole.tracks().mid(row, count));
    part.setCroppingOpacity(whole.nominalCroppingOpacity());
    return part;
}

int countEqualAtFront(const KRGPXConfiguredTrackList &a, const KRGPXConfiguredTrackList &b)
{
    return int(std::mismatch(a.cbegin(), a.cend(), b.cbegin(), b.cend()).first - a.cbegin());
}

int countEqualAtBack(const KRGPXConfiguredTrackList &a, const KRGPXConfiguredTrackList &b, int most)
{
    int count = 0;
    while (count < most && a.at(a.size() - 1 - count) == b.at(b.size() - 1 - count))
        ++count;
    return count;
}

/// Tracks that share their points have the same, and others hardly ever.
auto marksOf(const KRGPXTrack &track)
{
    const auto markOf = [](const KRGeoArc &angle) { return KRMath::toInt(angle.decimalDegrees() * 1e6); };
    const KRGeoPosition first = track.firstPoint();
    const KRGeoPosition last = track.lastPoint();
    return std::make_tuple(track.countPoints(), markOf(first.latitude()), markOf(first.longitude()),
                           markOf(last.latitude()), markOf(last.longitude()));
}

/// Rows, and the points of those before that are not the points of those after.
qint64 bytesOf(const KRGPXConfiguredTrackList &before, const KRGPXConfiguredTrackList &after)
{
    constexpr qint64 bytesPerTrack = 200;
    constexpr qint64 bytesPerPoint = 28;
    std::map<decltype(marksOf(KRGPXTrack())), QList<KRGPXTrackSegment>> kept;
    for (const KRGPXConfiguredTrack &track : after)
        kept[marksOf(track.track())] = track.track().segments();
    qint64 points = 0;
    for (const KRGPXConfiguredTrack &track : before) {
        const auto same = kept.find(marksOf(track.track()));
        if (same == kept.end() || same->second != track.track().segments())
            points += track.track().countPoints();
    }
    return (before.size() + after.size()) * bytesPerTrack + points * bytesPerPoint;
}

} // namespace

KRSelectionChange::KRSelectionChange(const KRGPXTrackSelection &before, const KRGPXTrackSelection &after,
                                     const QString &text, const ApplyFunction &apply, Kind kind)
    : QUndoCommand(text), m_apply(apply), m_kind(kind), m_row(countEqualAtFront(before.tracks(), after.tracks()))
{
    const int most = qMin(before.count(), after.count()) - m_row;
    const int rowsBelow = countEqualAtBack(before.tracks(), after.tracks(), most);
    m_before = partOf(before, m_row, before.count() - m_row - rowsBelow);
    m_after = partOf(after, m_row, after.count() - m_row - rowsBelow);
    m_bytes = bytesOf(m_before.tracks(), m_after.tracks());
    m_age.start();
}

void KRSelectionChange::forget()
{
    m_before = m_after = KRGPXTrackSelection();
    setObsolete(true);
}

bool KRSelectionChange::mergeWith(const QUndoCommand *other)
{
    constexpr qint64 longestPauseMs = 1000;
    const auto *const next = static_cast<const KRSelectionChange *>(other); // the stack compares id() first
    const bool isSamePart = next->m_row == m_row && next->m_before.count() == m_after.count();
    if (!isSamePart || m_age.elapsed() > longestPauseMs)
        return false;
    m_after = next->m_after;
    m_age.restart();
    setObsolete(m_after == m_before);
    return true;
}

void KRSelectionChange::undo()
{
    if (!isObsolete())
        m_apply(m_row, m_after.count(), m_before);
}

void KRSelectionChange::redo()
{
    m_apply(m_row, m_before.count(), m_after);
}
