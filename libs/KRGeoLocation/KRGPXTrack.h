#pragma once

#include "KRGPXTrackSegment.h"
#include "KRGPXTrackShape.h"

class KRGPXTrackImpl;
class QDir;
class QFileInfo;

/**
 * One named track, the "trk" of GPX: segments, a shape that tells how their points are to be read, and enclaves,
 * which are areas inside this one (holes or islands).
 *
 * The shape is linestring unless something else was read or set. A track is valid when it has a segment, even one
 * without points. A QDir("") stands for "no directory" wherever one is handed in.
 *
 * Implicitly shared: copying copies no point. The const functions may run in several threads at once, and so may
 * reading: each thread with nodes and a QDir of its own, as the file registry has a lock. A moved-from track may only
 * be assigned or destroyed. Nothing throws; missing and unknown elements are skipped.
 */
class KRGEOLOCATION_EXPORT KRGPXTrack : public KRGPXTrackElement
{
public:
    KRGPXTrack();
    /// A point track. Intended: the description of the point becomes the name. No segment when its position is invalid.
    explicit KRGPXTrack(const KRGPXTrackPoint &point);
    KRGPXTrack(const QDomElement &trk, const QDir &dir);
    KRGPXTrack(const QString &name, const QString &description, const QList<KRGPXTrackSegment> &segments,
               const KRGPXTrackShape &shape);
    KRGPXTrack(const KRGPXTrack &other);
    KRGPXTrack(KRGPXTrack &&other) noexcept;
    KRGPXTrack &operator=(const KRGPXTrack &other);
    KRGPXTrack &operator=(KRGPXTrack &&other) noexcept;
    ~KRGPXTrack() override;

    void swap(KRGPXTrack &other) noexcept { d.swap(other.d); }

    /// @p coordinates is the text of a KML "coordinates" element; without a point in it there is no segment.
    static KRGPXTrack decodeKml(const QString &name, const QString &description, const QString &coordinates,
                                const KRGPXTrackShape &shape);
    /// Point for a single point, polygon when the last point lies where the first one does, else linestring;
    /// unknown without a segment. Never a flight line.
    static KRGPXTrackShape autoDetectShape(const QList<KRGPXTrackSegment> &segments);

    QString name() const;
    QString description() const;
    QList<KRGPXTrackSegment> segments() const;
    KRGPXTrackShape shape() const;
    QList<KRGPXTrack> enclaves() const;
    /// What autoDetectShape() finds, whatever shape is set.
    KRGPXTrackShape naturalShape() const;
    /// Without gathering the points.
    int countPoints() const;

    /// Intended: room for a million positions is reserved, so that large tracks are not moved while they grow.
    KRGeoPositionList allPoints() const override;
    /// The chunks of each segment in turn.
    QList<KRGeoPositionList> chunkedPoints() const override;
    bool isSinglePoint() const override;
    /// Of the first segment; (0, 0) when there is none or it is empty.
    KRGeoPosition firstPoint() const override;
    /// Of the last segment; a default position when there is none or it is empty.
    KRGeoPosition lastPoint() const override;
    QList<QDateTime> allTimeStamps() const override;
    void visitPositions(const PositionVisitor &visit) const override;

    bool isValid() const;
    bool hasShape(const KRGPXTrackShape &shape) const;
    /// Whether both are polygons and @p other lies inside this one. A shared edge or corner is no inside.
    bool isEnclave(const KRGPXTrack &other) const;
    /// Name, description, shape, segments and enclaves are equal.
    bool operator==(const KRGPXTrack &other) const;
    bool operator!=(const KRGPXTrack &other) const { return !(*this == other); }
    /// By the number of points; where that is equal, by the first point.
    bool operator<(const KRGPXTrack &other) const;
    bool operator>(const KRGPXTrack &other) const { return other < *this; }

    /// Setters tell whether anything changed.
    bool setName(const QString &name);
    /// Stores the shape as given: auto stays auto.
    bool setShape(const KRGPXTrackShape &shape);
    /// Appends without asking isEnclave().
    void addEnclave(const KRGPXTrack &enclave);

    /**
     * Adds a "trk" to what the track already holds. An auto shape is replaced by the one detected.
     * @param dir where the file named by an "include" lies; with QDir("") includes are ignored. A file read this way
     *        is registered for the track, so that saving the track to @p dir writes no new one.
     */
    void fromXml(const QDomElement &trk, const QDir &dir);
    /// Appends a "trk". Where @p dir exists the track is saved in a file of its own there, and "trk" only names it.
    void toXml(QDomElement &parent, const QDir &dir) const;
    QDomElement buildTrackElement(QDomElement &parent) const;
    /// Writes name, shape, segments and enclaves into a "trk". Intended: the description is read but never written.
    void buildXmlBody(QDomElement &trk) const;
    /// Writes a document with the root "gpx". A failure is only logged. Intended: points go out as "compressedPoints".
    void saveAsGpxFile(const QFileInfo &file) const;

private:
    friend class KRGPXStreamReader;

    explicit KRGPXTrack(const QSharedDataPointer<KRGPXTrackImpl> &impl);

    void includeFile(const QFileInfo &file);
    void readEnclaves(const QDomElement &enclaves);

    QSharedDataPointer<KRGPXTrackImpl> d;
};

Q_DECLARE_SHARED(KRGPXTrack)
