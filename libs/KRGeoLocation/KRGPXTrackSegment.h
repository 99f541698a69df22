#pragma once

#include "KRGPXTime.h"
#include "KRGPXTrackPoint.h"
#include "KRGeoPositionSpan.h"

#include <QSharedDataPointer>

class KRGPXTrackPointColumns;
class KRIntRange;

/**
 * One unbroken run of track points, the "trkseg" of GPX. A segment without points is not valid.
 *
 * Implicitly shared: copies share their points, which are kept as columns of plain numbers. Points and positions are
 * made on demand: ask for all of them once, not in a loop. All queries may run in several threads at once. A
 * moved-from segment may only be assigned or destroyed. Nothing throws.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackSegment : public KRGPXTrackElement
{
public:
    /// Stands for "no time" where a time is a number of milliseconds.
    static constexpr qint64 noTime = KRGPXTime::noTime;

    KRGPXTrackSegment();
    explicit KRGPXTrackSegment(const QList<KRGPXTrackPoint> &points);
    explicit KRGPXTrackSegment(const KRGPXTrackPoint &point);
    /// Reads a "trkseg": the points of all "trkpt" and "compressedPoints" children, in document order.
    explicit KRGPXTrackSegment(const QDomElement &trkseg);
    KRGPXTrackSegment(const KRGPXTrackSegment &other);
    KRGPXTrackSegment(KRGPXTrackSegment &&other) noexcept;
    KRGPXTrackSegment &operator=(const KRGPXTrackSegment &other);
    KRGPXTrackSegment &operator=(KRGPXTrackSegment &&other) noexcept;
    ~KRGPXTrackSegment() override;

    void swap(KRGPXTrackSegment &other) noexcept { d.swap(other.d); }

    /// Reads comma texts separated by white space, see KRGPXTrackPoint::decodeKml(). Null points are left out.
    static QList<KRGPXTrackPoint> decodeTrackPoints(const QString &text);
    static KRGPXTrackSegment decodeKml(const QString &text);

    QList<KRGPXTrackPoint> trackPoints() const;
    /// The point with the index @p index, which must exist.
    KRGPXTrackPoint trackPoint(int index) const;
    /// What trackPoint() has, without making the point.
    int elevation(int index) const;
    QDateTime timeStamp(int index) const;
    /// The same in the form that takes little time to ask for and to append.
    KRGPXTime time(int index) const;
    QString description(int index) const;
    /// The number that a comma text gave as the time of that point and that was taken for seconds since 1970; noTime
    /// for a point without a time and for one whose time came in another way.
    qint64 secondsOfCommaText(int index) const;
    int count() const;
    /// The columns, in place as long as this segment or a copy of it exists unchanged.
    KRGeoPositionSpan positions() const;

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
    void visitPositions(const PositionVisitor &visit) const override;

    bool isValid() const { return count() > 0; }
    bool operator==(const KRGPXTrackSegment &other) const;
    bool operator!=(const KRGPXTrackSegment &other) const { return !(*this == other); }
    bool weAreaRunningInMainThread() const;

    /// The positions of the points with the indexes @p range, all of which must exist.
    KRGeoPositionList collectBlock(const KRIntRange &range) const;

    void append(const KRGPXTrackPoint &point);
    /// Appends the point of another segment that has the index @p index there, without making it.
    void append(const KRGPXTrackSegment &other, int index);
    /// How readers add points one by one: decimal degrees, whole metres.
    void append(double latitude, double longitude, int elevation, const QDateTime &timeStamp,
                const QString &description);
    void append(double latitude, double longitude, int elevation, const KRGPXTime &time,
                const QString &description = QString());
    /// The same with the time in milliseconds since 1970, in UTC, or noTime.
    void append(double latitude, double longitude, int elevation, qint64 milliseconds);
    /// Adds what decodeTrackPoints() reads.
    void appendCompressed(const QString &text);
    /// To be called behind the last point that is added: gives back the memory kept for further ones.
    void squeeze();

    /// The comma texts of the points, one per line. Intended: descriptions are dropped.
    QString toKml() const;
    /// Appends a "trkseg" with one "compressedPoints", which holds toKml(), or several where that would be too long for
    /// readers, above some 390,000 points; never "trkpt".
    void toXml(QDomElement &parent) const;

private:
    QString commaTexts(int first, int end) const;

    QSharedDataPointer<KRGPXTrackPointColumns> d;
};

Q_DECLARE_SHARED(KRGPXTrackSegment)
