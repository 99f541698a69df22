#include "KRGPXTrackSelectionComparisonResult.h"

#include <KRCore/KRValue.h>

using KRValue::replaceIfDifferent;

KRGPXTrackSelectionComparisonResult::KRGPXTrackSelectionComparisonResult() = default;
KRGPXTrackSelectionComparisonResult::KRGPXTrackSelectionComparisonResult(
    const KRGPXTrackSelectionComparisonResult &other) = default;
KRGPXTrackSelectionComparisonResult::KRGPXTrackSelectionComparisonResult(
    KRGPXTrackSelectionComparisonResult &&other) noexcept = default;
KRGPXTrackSelectionComparisonResult &
KRGPXTrackSelectionComparisonResult::operator=(const KRGPXTrackSelectionComparisonResult &other) = default;
KRGPXTrackSelectionComparisonResult &
KRGPXTrackSelectionComparisonResult::operator=(KRGPXTrackSelectionComparisonResult &&other) noexcept = default;
KRGPXTrackSelectionComparisonResult::~KRGPXTrackSelectionComparisonResult() = default;

bool KRGPXTrackSelectionComparisonResult::isMergeCompatible(const KRGPXTrackSelectionComparisonResult &other) const
{
    return m_changingAspects == other.m_changingAspects && m_changingTracks == other.m_changingTracks
           && !m_trackCountChanges;
}

bool KRGPXTrackSelectionComparisonResult::setChangingAspects(KRGPXTrackAspect aspects)
{
    return replaceIfDifferent(m_changingAspects, aspects);
}

bool KRGPXTrackSelectionComparisonResult::setTrackCountChanges(bool changes)
{
    return replaceIfDifferent(m_trackCountChanges, changes);
}

KRGPXTrackSelectionComparisonResult &
KRGPXTrackSelectionComparisonResult::operator+=(const KRGPXTrackSelectionComparisonResult &other)
{
    m_changingTracks.append(other.m_changingTracks);
    m_changingAspects |= other.m_changingAspects;
    m_trackCountChanges = m_trackCountChanges || other.m_trackCountChanges;
    return *this;
}

KRGPXTrackSelectionComparisonResult
KRGPXTrackSelectionComparisonResult::operator+(const KRGPXTrackSelectionComparisonResult &other) const
{
    KRGPXTrackSelectionComparisonResult sum = *this;
    sum += other;
    return sum;
}
