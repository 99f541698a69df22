#pragma once

#include "KRGPXConfiguredTrackList.h"

/**
 * The tracks that are shown together, and how much of the map outside their areas shines through.
 *
 * The cropping opacity is 0 (nothing) to 255 (the whole map, nothing cropped) and 255 at first; any number is stored
 * as it is given. Valid when there is a track. Setters tell whether anything changed. Threads may do with it what they
 * may do with a KRGPXTrack, but adding a track without a look and value() without a track belong into the GUI thread.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackSelection : public KRGPXTrackElement
{
public:
    KRGPXTrackSelection();
    explicit KRGPXTrackSelection(const KRGPXConfiguredTrackList &tracks);
    /// From the element that toXml() wrote to; files that it names lie in @p dir. A cropping opacity that is missing or
    /// unreadable is 255.
    KRGPXTrackSelection(const QDomElement &element, const QDir &dir);
    KRGPXTrackSelection(const KRGPXTrackSelection &other);
    KRGPXTrackSelection(KRGPXTrackSelection &&other) noexcept;
    KRGPXTrackSelection &operator=(const KRGPXTrackSelection &other);
    KRGPXTrackSelection &operator=(KRGPXTrackSelection &&other) noexcept;
    ~KRGPXTrackSelection() override;

    KRGPXConfiguredTrackList tracks() const { return m_tracks; }
    int count() const { return m_tracks.count(); }
    bool isEmpty() const { return m_tracks.isEmpty(); }
    bool isValid() const { return !isEmpty(); }
    bool containsAnyMarking() const { return isValid(); }
    /// Whether there is a track with this index.
    bool checkRange(int index) const { return m_tracks.checkRange(index); }
    bool isValidRow(int row) const { return checkRange(row); }
    /// An empty track, drawn as the user wants new tracks, where there is no such track.
    KRGPXConfiguredTrack value(int index) const;
    KRGPXTrackConfiguration configuration(int index) const { return m_tracks.configuration(index); }
    int nominalCroppingOpacity() const { return m_croppingOpacity; }
    /// 255 where there is nothing to crop to.
    int effectiveCroppingOpacity() const;

    KRGeoPositionList allPoints() const override;
    QList<KRGeoPositionList> chunkedPoints() const override;
    bool isSinglePoint() const override;
    /// Of the first track, valid or not.
    KRGeoPosition firstPoint() const override;
    /// Intended: unlike firstPoint() this searches, for the last track that has a valid one.
    KRGeoPosition lastPoint() const override;
    QList<QDateTime> allTimeStamps() const override;
    void visitPositions(const PositionVisitor &visit) const override;

    /// The selection with no track but this one; with all of them where there is no such track.
    KRGPXTrackSelection reduceToTrackNumber(int index) const;
    KRGPXTrackSelectionComparisonResult compare(const KRGPXTrackSelection &other) const;
    /// Whether a halo would appear on any track that @p old has without one under the same index.
    bool wouldChangeHaloToVisibleAgainst(const KRGPXTrackSelection &old) const;
    bool operator==(const KRGPXTrackSelection &other) const;
    bool operator!=(const KRGPXTrackSelection &other) const { return !(*this == other); }

    bool setTracks(const KRGPXConfiguredTrackList &tracks);
    bool setCroppingOpacity(int opacity);
    /// Appended, drawn as the user wants new tracks.
    void addTrack(const KRGPXTrack &track);
    void addTrack(const KRGPXConfiguredTrack &track);
    void addTracks(const KRGPXConfiguredTrackList &tracks);
    /// Appends the tracks of @p other; its cropping opacity is not taken.
    void addSelection(const KRGPXTrackSelection &other);
    /// Both are ignored where there is no such track; beyond the ends @p to means the first or the last place.
    void removeAt(int index);
    void moveTrack(int from, int to);
    /// False where there is no such track or it has just this configuration; see KRGPXConfiguredTrack.
    bool setConfiguration(int index, const KRGPXTrackConfiguration &configuration);
    /// For every track; true when it was true for any.
    bool setConfiguration(const KRGPXTrackConfiguration &configuration);
    /// Multiplies red, green and blue of the track's colours by @p factor / 128, limited to 0 ... 255.
    void overrideColorOfTrack(int index, int factor);

    /// Sets an attribute on @p parent and appends a child with the tracks, see KRGPXConfiguredTrack::toXml().
    void toXml(QDomElement &parent, const QDir &dir) const;

private:
    KRGPXConfiguredTrackList m_tracks;
    int m_croppingOpacity = 255;
};

Q_DECLARE_METATYPE(KRGPXTrackSelection)
