#pragma once

#include "KRGPXTrack.h"

#include <QSharedData>

/// The data and logic behind KRGPXTrack, whose header tells what each operation does.
class KRGPXTrackImpl : public KRGPXTrackElement, public QSharedData
{
public:
    KRGPXTrackImpl() = default;
    KRGPXTrackImpl(const QString &name, const QString &description, const QList<KRGPXTrackSegment> &segments,
                   const KRGPXTrackShape &shape);
    KRGPXTrackImpl(const KRGPXTrackImpl &other) = default;
    KRGPXTrackImpl &operator=(const KRGPXTrackImpl &other) = delete;
    ~KRGPXTrackImpl() override = default;

    const QString &name() const { return m_name; }
    const QString &description() const { return m_description; }
    const KRGPXTrackShape &shape() const { return m_shape; }
    const QList<KRGPXTrackSegment> &segments() const { return m_segments; }
    const QList<KRGPXTrack> &enclaves() const { return m_enclaves; }
    int countPoints() const;

    KRGeoPositionList allPoints() const override;
    QList<KRGeoPositionList> chunkedPoints() const override;
    bool isSinglePoint() const override;
    KRGeoPosition firstPoint() const override;
    KRGeoPosition lastPoint() const override;
    QList<QDateTime> allTimeStamps() const override;
    void visitPositions(const PositionVisitor &visit) const override;

    bool isValid() const { return !m_segments.isEmpty(); }
    bool isEnclave(const KRGPXTrackImpl &other) const;
    bool operator==(const KRGPXTrackImpl &other) const;
    bool operator<(const KRGPXTrackImpl &other) const;

    bool setName(const QString &name);
    bool setDescription(const QString &description);
    bool setShape(const KRGPXTrackShape &shape);
    bool setSegments(const QList<KRGPXTrackSegment> &segments);
    bool setEnclaves(const QList<KRGPXTrack> &enclaves);
    void addSegment(const KRGPXTrackSegment &segment) { m_segments.append(segment); }
    void addEnclave(const KRGPXTrack &enclave) { m_enclaves.append(enclave); }

    /// An auto shape becomes the one detected; any other stays.
    void replaceAutoShape();

    void buildXmlBody(QDomElement &trk) const;

private:
    QString m_name;
    QString m_description;
    KRGPXTrackShape m_shape = LineStringTrackShape;
    QList<KRGPXTrackSegment> m_segments;
    QList<KRGPXTrack> m_enclaves;
};
