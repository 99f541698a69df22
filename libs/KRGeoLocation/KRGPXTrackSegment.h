#pragma once

#include "KRGPXTrackPoint.h"

class KRIntRange;

/**
 * One unbroken run of track points, the "trkseg" of GPX. A segment without points is not valid.
 *
 * Copies share their points. All queries may run in several threads at once. Nothing throws.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackSegment : public KRGPXTrackElement
{
public:
    KRGPXTrackSegment() = default;
    explicit KRGPXTrackSegment(const QList<KRGPXTrackPoint> &points);
    explicit KRGPXTrackSegment(const KRGPXTrackPoint &point);
    /// Reads a "trkseg": the points of all "trkpt" and "compressedPoints" children, in document order.
    explicit KRGPXTrackSegment(const QDomElement &trkseg);
    KRGPXTrackSegment(const KRGPXTrackSegment &other) = default;
    KRGPXTrackSegment(KRGPXTrackSegment &&other) noexcept = default;
    KRGPXTrackSegment &operator=(const KRGPXTrackSegment &other) = default;
    KRGPXTrackSegment &operator=(KRGPXTrackSegment &&other) noexcept = default;
    ~KRGPXTrackSegment() override = default;

    void swap(KRGPXTrackSegment &other) noexcept { m_trackPoints.swap(other.m_trackPoints); }

    /// Reads comma texts separated by white space, see KRGPXTrackPoint::decodeKml(). Null points are left out.
    static QList<KRGPXTrackPoint> decodeTrackPoints(const QString &text);
    static KRGPXTrackSegment decodeKml(const QString &text);

    QList<KRGPXTrackPoint> trackPoints() const { return m_trackPoints; }
    int count() const { return m_trackPoints.size(); }

    KRGeoPositionList allPoints() const override;
    /// On the main thread at most one chunk per processor core, none for an empty segment; on any other thread exactly
    /// one chunk, gathered there.
    QList<KRGeoPositionList> chunkedPoints() const override;
    bool isSinglePoint() const override { return count() == 1; }
    /// (0, 0) for an empty segment.
    KRGeoPosition firstPoint() const override;
    /// A default position for an empty segment.
    KRGeoPosition lastPoint() const override;
    QList<QDateTime> allTimeStamps() const override;

    bool isValid() const { return count() > 0; }
    bool operator==(const KRGPXTrackSegment &other) const { return m_trackPoints == other.m_trackPoints; }
    bool operator!=(const KRGPXTrackSegment &other) const { return !(*this == other); }
    bool weAreaRunningInMainThread() const;

    /// The positions of the points with the indexes @p range, all of which must exist.
    KRGeoPositionList collectBlock(const KRIntRange &range) const;

    /// How readers add points one by one: decimal degrees, whole metres.
    void append(double latitude, double longitude, int elevation, const QDateTime &timeStamp,
                const QString &description);
    /// Adds what decodeTrackPoints() reads.
    void appendCompressed(const QString &text);

    /// The comma texts of the points, one per line. Intended: descriptions are dropped.
    QString toKml() const;
    /// Appends a "trkseg" with one "compressedPoints", which holds toKml(), or several from a million points on; never
    /// "trkpt".
    void toXml(QDomElement &parent) const;

private:
    QList<KRGPXTrackPoint> m_trackPoints;
};

Q_DECLARE_SHARED(KRGPXTrackSegment)
