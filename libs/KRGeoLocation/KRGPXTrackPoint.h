#pragma once

#include "KRGPXTrackElement.h"

#include <QSharedDataPointer>

class KRGPXTrackPointImpl;
class QDomElement;

/**
 * One recorded position of a track: where, how high, when, and a description.
 *
 * The elevation is in whole metres, 0 means none. An invalid time stamp means that the time is not known. Points
 * never change once built. By default a point is null: it lies at exactly (0, 0).
 *
 * Implicitly shared: copies may be used and destroyed in several threads at once. A moved-from point may only be
 * assigned or destroyed. Nothing throws; what cannot be read takes the default named with the reader.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackPoint : public KRGPXTrackElement
{
public:
    KRGPXTrackPoint();
    KRGPXTrackPoint(const KRGeoPosition &position, int elevation, const QDateTime &timeStamp,
                    const QString &description);
    /// Reads a GPX "trkpt". A coordinate that is missing or no number becomes 1.0 degree; an elevation is cut to
    /// whole metres toward zero.
    explicit KRGPXTrackPoint(const QDomElement &trkpt);
    KRGPXTrackPoint(const KRGPXTrackPoint &other);
    KRGPXTrackPoint(KRGPXTrackPoint &&other) noexcept;
    KRGPXTrackPoint &operator=(const KRGPXTrackPoint &other);
    KRGPXTrackPoint &operator=(KRGPXTrackPoint &&other) noexcept;
    ~KRGPXTrackPoint() override;

    void swap(KRGPXTrackPoint &other) noexcept { d.swap(other.d); }

    /**
     * Reads the comma text "longitude,latitude[,elevation[,time]]": degrees as safeDouble() reads them, whole metres,
     * and whole seconds since 1970, given back in local time. A field that cannot be read is 0, one that is missing
     * 0 or no time.
     */
    static KRGPXTrackPoint decodeKml(const QString &text);
    static KRGPXTrackPoint decodeKml(QStringView text);

    KRGeoPosition position() const;
    int elevation() const;
    QDateTime timeStamp() const;
    QString description() const;

    KRGeoPositionList allPoints() const override;
    QList<KRGeoPositionList> chunkedPoints() const override;
    bool isSinglePoint() const override;
    KRGeoPosition firstPoint() const override;
    KRGeoPosition lastPoint() const override;
    QList<QDateTime> allTimeStamps() const override;

    /// Whether latitude and longitude both are exactly 0.
    bool isNull() const;
    /// All fields equal, the position with its tolerance.
    bool operator==(const KRGPXTrackPoint &other) const;
    bool operator!=(const KRGPXTrackPoint &other) const { return !(*this == other); }

    /// Writes the comma text that decodeKml() reads, with ten decimals but without the description. The time goes
    /// out in milliseconds although it is read in seconds.
    QString toKml() const;
    /// Appends a "trkpt" with ten significant digits per coordinate; elevation, time and description where there
    /// are such.
    void toXml(QDomElement &parent) const;

private:
    QSharedDataPointer<KRGPXTrackPointImpl> d;
};

Q_DECLARE_SHARED(KRGPXTrackPoint)
