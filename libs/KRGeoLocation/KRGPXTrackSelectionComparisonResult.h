#pragma once

#include "KRGPXTrackAspect.h"
#include "KRGeoLocationExport.h"

#include <QList>

/// What changed between two versions of a selection, so that views redraw no more than that. Nothing, by default.
class KRGEOLOCATION_EXPORT KRGPXTrackSelectionComparisonResult
{
public:
    KRGPXTrackSelectionComparisonResult();
    KRGPXTrackSelectionComparisonResult(const KRGPXTrackSelectionComparisonResult &other);
    KRGPXTrackSelectionComparisonResult(KRGPXTrackSelectionComparisonResult &&other) noexcept;
    KRGPXTrackSelectionComparisonResult &operator=(const KRGPXTrackSelectionComparisonResult &other);
    KRGPXTrackSelectionComparisonResult &operator=(KRGPXTrackSelectionComparisonResult &&other) noexcept;
    virtual ~KRGPXTrackSelectionComparisonResult();

    /// Indices of the tracks that differ, in the order in which they were added.
    QList<int> changingTracks() const { return m_changingTracks; }
    /// All differences of all these tracks together.
    KRGPXTrackAspect changingAspects() const { return m_changingAspects; }
    bool trackCountChanges() const { return m_trackCountChanges; }

    /**
     * Whether both name the same tracks, in the same order, and the same aspects, while this one has no change of
     * the track count. Intended: whether @p other has one does not matter.
     */
    bool isMergeCompatible(const KRGPXTrackSelectionComparisonResult &other) const;

    void addChangingTrack(int index) { m_changingTracks.append(index); }
    void addChangingAspects(KRGPXTrackAspect aspects) { m_changingAspects |= aspects; }
    /// Setters tell whether anything changed.
    bool setChangingAspects(KRGPXTrackAspect aspects);
    bool setTrackCountChanges(bool changes);

    /// Appends the tracks of @p other, even those that are named already, and joins the rest.
    KRGPXTrackSelectionComparisonResult &operator+=(const KRGPXTrackSelectionComparisonResult &other);
    KRGPXTrackSelectionComparisonResult operator+(const KRGPXTrackSelectionComparisonResult &other) const;

private:
    QList<int> m_changingTracks;
    KRGPXTrackAspect m_changingAspects;
    bool m_trackCountChanges = false;
};
