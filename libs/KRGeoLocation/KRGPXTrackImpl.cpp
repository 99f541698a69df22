#include "KRGPXTrackImpl.h"

#include "KRGPXVocabulary.h"
#include "KRGeoPositionSpan.h"

#include <KRCore/KRValue.h>
#include <KRXML/KRXMLBuilder.h>

#include <QDir>
#include <QDomElement>
#include <QPainterPath>

#include <algorithm>
#include <numeric>

KRGPXTrackImpl::KRGPXTrackImpl(const QString &name, const QString &description,
                               const QList<KRGPXTrackSegment> &segments, const KRGPXTrackShape &shape)
    : m_name(name), m_description(description), m_shape(shape), m_segments(segments)
{ }

int KRGPXTrackImpl::countPoints() const
{
    return std::accumulate(m_segments.cbegin(), m_segments.cend(), 0,
                           [](int sum, const KRGPXTrackSegment &segment) { return sum + segment.count(); });
}

KRGeoPositionList KRGPXTrackImpl::allPoints() const
{
    constexpr int roomForLargeTracks = 1000000;
    KRGeoPositionList positions;
    positions.reserve(roomForLargeTracks);
    visitPositions([&](const KRGeoPositionSpan &span) {
        for (int i = 0; i < span.count; ++i)
            positions.append(span.at(i));
    });
    return positions;
}

QList<KRGeoPositionList> KRGPXTrackImpl::chunkedPoints() const
{
    QList<KRGeoPositionList> chunks;
    for (const KRGPXTrackSegment &segment : m_segments)
        chunks += segment.chunkedPoints();
    return chunks;
}

bool KRGPXTrackImpl::isSinglePoint() const
{
    return m_segments.size() == 1 && m_segments.first().isSinglePoint();
}

KRGeoPosition KRGPXTrackImpl::firstPoint() const
{
    return isValid() ? m_segments.first().firstPoint() : KRGPXTrackSegment().firstPoint();
}

KRGeoPosition KRGPXTrackImpl::lastPoint() const
{
    return isValid() ? m_segments.last().lastPoint() : KRGeoPosition();
}

QList<QDateTime> KRGPXTrackImpl::allTimeStamps() const
{
    QList<QDateTime> timeStamps;
    for (const KRGPXTrackSegment &segment : m_segments)
        timeStamps += segment.allTimeStamps();
    return timeStamps;
}

void KRGPXTrackImpl::visitPositions(const PositionVisitor &visit) const
{
    for (const KRGPXTrackSegment &segment : m_segments)
        segment.visitPositions(visit);
}

bool KRGPXTrackImpl::isEnclave(const KRGPXTrackImpl &other) const
{
    return m_shape == PolygonTrackShape && other.m_shape == PolygonTrackShape
           && allPoints().toPainterPath().contains(other.allPoints().toPainterPath());
}

bool KRGPXTrackImpl::operator==(const KRGPXTrackImpl &other) const
{
    return m_name == other.m_name && m_description == other.m_description && m_shape == other.m_shape
           && m_segments == other.m_segments && m_enclaves == other.m_enclaves;
}

bool KRGPXTrackImpl::operator<(const KRGPXTrackImpl &other) const
{
    const int count = countPoints();
    const int otherCount = other.countPoints();
    if (count == 0 || count != otherCount)
        return count < otherCount;
    // Not firstPoint(), which asks the first segment even if that is empty.
    const auto firstPosition = [](const KRGPXTrackImpl &track) {
        const auto segment = std::find_if(track.m_segments.cbegin(), track.m_segments.cend(),
                                          [](const KRGPXTrackSegment &candidate) { return candidate.isValid(); });
        return segment->firstPoint();
    };
    return firstPosition(*this) < firstPosition(other);
}

bool KRGPXTrackImpl::setName(const QString &name)
{
    return KRValue::replaceIfDifferent(m_name, name);
}

bool KRGPXTrackImpl::setDescription(const QString &description)
{
    return KRValue::replaceIfDifferent(m_description, description);
}

bool KRGPXTrackImpl::setShape(const KRGPXTrackShape &shape)
{
    return KRValue::replaceIfDifferent(m_shape, shape);
}

bool KRGPXTrackImpl::setSegments(const QList<KRGPXTrackSegment> &segments)
{
    return KRValue::replaceIfDifferent(m_segments, segments);
}

bool KRGPXTrackImpl::setEnclaves(const QList<KRGPXTrack> &enclaves)
{
    return KRValue::replaceIfDifferent(m_enclaves, enclaves);
}

void KRGPXTrackImpl::replaceAutoShape()
{
    if (m_shape == AutoTrackShape)
        m_shape = KRGPXTrack::autoDetectShape(m_segments);
}

void KRGPXTrackImpl::buildXmlBody(QDomElement &trk) const
{
    KRXMLBuilder::buildDomElement(trk, KRGPXVocabulary::nameElement, m_name);
    KRXMLBuilder::buildDomElement(trk, KRGPXVocabulary::shapeElement, m_shape.keys());
    for (const KRGPXTrackSegment &segment : m_segments)
        segment.toXml(trk);
    if (m_enclaves.isEmpty())
        return;
    QDomElement enclaves = KRXMLBuilder::buildDomElement(trk, KRGPXVocabulary::enclavesElement);
    for (const KRGPXTrack &enclave : m_enclaves)
        enclave.toXml(enclaves, QDir(QString()));
}
