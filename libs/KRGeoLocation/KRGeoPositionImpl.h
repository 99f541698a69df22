#pragma once

#include "KRLatitude.h"
#include "KRLongitude.h"

#include <QPointF>
#include <QSharedData>

class QDomElement;
class QUrlQuery;

/// The data and logic behind KRGeoPosition, whose header tells what each operation does.
class KRGeoPositionImpl : public QSharedData
{
public:
    KRGeoPositionImpl() = default;
    KRGeoPositionImpl(const KRLatitude &latitude, const KRLongitude &longitude)
        : m_longitude(longitude), m_latitude(latitude)
    { }
    KRGeoPositionImpl(const KRGeoPositionImpl &other) = default;
    KRGeoPositionImpl &operator=(const KRGeoPositionImpl &other) = delete;
    virtual ~KRGeoPositionImpl() = default;

    static KRGeoPositionImpl parse(const QString &text);
    static KRGeoPositionImpl fromString(const QString &text);
    static KRGeoPositionImpl fromXml(const QDomElement &element);

    const KRLatitude &latitude() const { return m_latitude; }
    const KRLongitude &longitude() const { return m_longitude; }
    QPointF toPointF() const { return QPointF(m_longitude.decimalDegrees(), m_latitude.decimalDegrees()); }
    bool isValid() const;

    bool operator==(const KRGeoPositionImpl &other) const;
    bool operator<(const KRGeoPositionImpl &other) const;
    uint hashValue() const;

    KRGeoPositionImpl operator+(const KRGeoPositionImpl &other) const;
    KRGeoPositionImpl operator/(double divisor) const;
    KRLatitude latitudeDeviation(double km) const;
    KRLongitude longitudeDeviation(double km) const;
    double distance(const KRGeoPositionImpl &other) const;

    KRGeoPositionImpl &operator+=(const KRGeoPositionImpl &other);
    KRGeoPositionImpl &operator/=(double divisor);
    bool setLatitude(const KRLatitude &latitude);
    bool setLongitude(const KRLongitude &longitude);
    void catchLatitude();

    QString toString(bool inDegreesMinutesSeconds) const;
    void writeToXml(QDomElement &element) const;
    void writeTo(QUrlQuery &query) const;

private:
    /// Both components are angles; (0, 0) is no exception here.
    bool hasValidComponents() const { return m_longitude.isValid() && m_latitude.isValid(); }

    KRLongitude m_longitude;
    KRLatitude m_latitude;
};
