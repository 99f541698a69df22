#pragma once

#include "KRGPXTrackElement.h"

#include <QSharedData>
#include <QString>

class KRGeoArc;
class QDomElement;

/// The data and logic behind KRGPXTrackPoint, whose header tells what each operation does.
class KRGPXTrackPointImpl : public KRGPXTrackElement, public QSharedData
{
public:
    KRGPXTrackPointImpl() = default;
    KRGPXTrackPointImpl(const KRGeoPosition &position, int elevation, const QDateTime &timeStamp,
                        const QString &description);
    explicit KRGPXTrackPointImpl(const QDomElement &trkpt);
    KRGPXTrackPointImpl(const KRGPXTrackPointImpl &other) = default;
    KRGPXTrackPointImpl &operator=(const KRGPXTrackPointImpl &other) = delete;
    ~KRGPXTrackPointImpl() override = default;

    const KRGeoPosition &position() const { return m_position; }
    int elevation() const { return m_elevation; }
    const QDateTime &timeStamp() const { return m_timeStamp; }
    const QString &description() const { return m_description; }

    KRGeoPositionList allPoints() const override;
    QList<KRGeoPositionList> chunkedPoints() const override;
    bool isSinglePoint() const override { return true; }
    KRGeoPosition firstPoint() const override { return m_position; }
    KRGeoPosition lastPoint() const override { return m_position; }
    QList<QDateTime> allTimeStamps() const override;

    bool isNull() const;
    bool operator==(const KRGPXTrackPointImpl &other) const;

    QString toKml() const;
    void toXml(QDomElement &parent) const;

private:
    QString encode(const KRGeoArc &angle) const;

    KRGeoPosition m_position = KRGeoPosition::null();
    int m_elevation = 0;
    QDateTime m_timeStamp;
    QString m_description;
};
