#pragma once

#include "KRGPXConfiguredTrack.h"

#include <QList>

class KRGPXTrackSelectionComparisonResult;

/**
 * Configured tracks in the order in which they are drawn and listed. Valid when not empty.
 *
 * Shares its data like every QList. What asks the user or his settings belongs into the GUI thread, as with the track.
 */
class KRGEOLOCATION_EXPORT KRGPXConfiguredTrackList : public QList<KRGPXConfiguredTrack>
{
public:
    using QList::QList;
    KRGPXConfiguredTrackList();
    /// Implicit, as the operations inherited from QList return one.
    KRGPXConfiguredTrackList(const QList<KRGPXConfiguredTrack> &tracks) : QList(tracks) { }
    explicit KRGPXConfiguredTrackList(const KRGPXConfiguredTrack &track);
    /// From the child elements @p name of @p parent; files that they name lie in @p dir.
    KRGPXConfiguredTrackList(const QDomElement &parent, const QString &name, const QDir &dir);
    KRGPXConfiguredTrackList(const KRGPXConfiguredTrackList &other);
    KRGPXConfiguredTrackList(KRGPXConfiguredTrackList &&other) noexcept;
    KRGPXConfiguredTrackList &operator=(const KRGPXConfiguredTrackList &other);
    KRGPXConfiguredTrackList &operator=(KRGPXConfiguredTrackList &&other) noexcept;
    virtual ~KRGPXConfiguredTrackList();

    /// Asks the user for a file, see KRTrackSelectionFactory::askUserReadFile().
    static KRGPXConfiguredTrackList fromFile();

    bool isValid() const { return !isEmpty(); }
    /// Whether there is a track with this index.
    bool checkRange(int index) const { return index >= 0 && index < count(); }
    /// The user's default for new tracks where there is no such track.
    KRGPXTrackConfiguration configuration(int index) const;

    /// The tracks that both lists have an index for, in what they differ. Intended: not whether the counts differ.
    KRGPXTrackSelectionComparisonResult compare(const KRGPXConfiguredTrackList &other) const;
    /// Whether a halo would appear on any track that @p old has without one under the same index.
    bool wouldChangeHaloToVisibleAgainst(const KRGPXConfiguredTrackList &old) const;

    /// Tells whether anything changed. Intended: an unknown shape becomes auto here, in the single track it does not.
    bool setConfiguration(int index, const KRGPXTrackConfiguration &configuration);
    /// Ignored when there is no track @p from; beyond the ends @p to means the first or the last place.
    void moveTrack(int from, int to);

    /// Appends one element @p name per track, see KRGPXConfiguredTrack::toXml().
    void toXml(QDomElement &parent, const QString &name, const QDir &dir) const;
};

Q_DECLARE_METATYPE(KRGPXConfiguredTrackList)
