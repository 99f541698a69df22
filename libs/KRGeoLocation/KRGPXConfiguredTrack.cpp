#include "KRGPXConfiguredTrack.h"

#include "KRGPXVocabulary.h"
#include "KRGeoPositionSpan.h"

#include <KRCore/KRValue.h>
#include <KRXML/KRXMLBuilder.h>

#include <QDir>
#include <QDomElement>

#include <cmath>

using KRValue::replaceIfDifferent;

KRGPXConfiguredTrack::KRGPXConfiguredTrack() : m_configuration(KRGPXTrackConfiguration::currentDefaultConfiguration())
{ }

KRGPXConfiguredTrack::KRGPXConfiguredTrack(const KRGPXTrack &track, const KRGPXTrackConfiguration &configuration)
    : m_track(track), m_configuration(configuration)
{
    autoConfigureTrackShape();
}

KRGPXConfiguredTrack::KRGPXConfiguredTrack(const KRGPXTrackPoint &point, const KRGPXTrackConfiguration &configuration)
    : KRGPXConfiguredTrack(KRGPXTrack(point), configuration)
{ }

KRGPXConfiguredTrack::KRGPXConfiguredTrack(const QDomElement &element, const QDir &dir)
    : m_track(element.firstChildElement(KRGPXVocabulary::trackElement), dir),
      m_configuration(KRGPXTrackConfiguration::fromXml(element))
{ }

KRGPXConfiguredTrack::KRGPXConfiguredTrack(const KRGPXConfiguredTrack &other) = default;
KRGPXConfiguredTrack::KRGPXConfiguredTrack(KRGPXConfiguredTrack &&other) noexcept = default;
KRGPXConfiguredTrack &KRGPXConfiguredTrack::operator=(const KRGPXConfiguredTrack &other) = default;
KRGPXConfiguredTrack &KRGPXConfiguredTrack::operator=(KRGPXConfiguredTrack &&other) noexcept = default;
KRGPXConfiguredTrack::~KRGPXConfiguredTrack() = default;

KRGeoPositionList KRGPXConfiguredTrack::allPoints() const
{
    return m_track.allPoints();
}

QList<KRGeoPositionList> KRGPXConfiguredTrack::chunkedPoints() const
{
    return m_track.chunkedPoints();
}

bool KRGPXConfiguredTrack::isSinglePoint() const
{
    return m_track.isSinglePoint();
}

KRGeoPosition KRGPXConfiguredTrack::firstPoint() const
{
    return m_track.firstPoint();
}

KRGeoPosition KRGPXConfiguredTrack::lastPoint() const
{
    return m_track.lastPoint();
}

QList<QDateTime> KRGPXConfiguredTrack::allTimeStamps() const
{
    return m_track.allTimeStamps();
}

void KRGPXConfiguredTrack::visitPositions(const PositionVisitor &visit) const
{
    m_track.visitPositions(visit);
}

KRGPXTrackShape KRGPXConfiguredTrack::effectiveShape() const
{
    const KRGPXTrackShape configured = m_configuration.trackShape();
    return configured == AutoTrackShape ? m_track.shape() : configured;
}

KRGeoPositionList KRGPXConfiguredTrack::drawingPoints() const
{
    const KRGPXTrackShape natural = naturalShape();
    const KRGPXTrackShape effective = effectiveShape();
    if (effective != PointTrackShape || effective == natural)
        return allPoints();
    return {natural == PolygonTrackShape ? allPoints().center() : positionRelativeFromStart(0.5)};
}

KRGeoPosition KRGPXConfiguredTrack::positionRelativeFromStart(double fraction) const
{
    const KRGPXTrackShape shape = effectiveShape();
    if (shape == HopTrackShape || shape == PolygonTrackShape)
        return allPoints().boundingBox().center();
    int count = 0;
    visitPositions([&](const KRGeoPositionSpan &positions) { count += positions.count; });
    const double index = std::round((count - 1) * fraction);
    KRGeoPosition found;
    int first = 0;
    visitPositions([&](const KRGeoPositionSpan &positions) {
        if (index >= first && index < first + positions.count)
            found = positions.at(int(index) - first);
        first += positions.count;
    });
    return found;
}

KRGPXTrackAspect KRGPXConfiguredTrack::differentAspects(const KRGPXConfiguredTrack &other) const
{
    KRGPXTrackAspect aspects;
    aspects.setFlag(LineWidthAspect, lineWidth() != other.lineWidth());
    aspects.setFlag(LineColorAspect, lineColor() != other.lineColor());
    aspects.setFlag(TrackAspect, m_track != other.m_track);
    return aspects;
}

bool KRGPXConfiguredTrack::wouldChangeHaloToVisibleAgainst(const KRGPXConfiguredTrack &old) const
{
    return m_configuration.wouldChangeHaloToVisibleAgainst(old.m_configuration);
}

bool KRGPXConfiguredTrack::operator==(const KRGPXConfiguredTrack &other) const
{
    return m_configuration == other.m_configuration && m_track == other.m_track;
}

bool KRGPXConfiguredTrack::setTrack(const KRGPXTrack &track)
{
    return replaceIfDifferent(m_track, track);
}

bool KRGPXConfiguredTrack::setConfiguration(const KRGPXTrackConfiguration &configuration)
{
    KRGPXTrackConfiguration wanted = configuration;
    if (!wanted.trackShape().isValid())
        wanted.setTrackShape(m_configuration.trackShape());
    return replaceIfDifferent(m_configuration, wanted);
}

void KRGPXConfiguredTrack::autoConfigureTrackShape()
{
    const KRGPXTrackShape shape = m_configuration.trackShape();
    if (!shape.isValid() || (shape & AutoTrackShape) != 0)
        m_configuration.setTrackShape(naturalShape());
}

void KRGPXConfiguredTrack::toXml(QDomElement &parent, const QString &name, const QDir &dir) const
{
    QDomElement child = KRXMLBuilder::buildDomElement(parent, name);
    m_track.toXml(child, dir);
    m_configuration.toXml(child);
}
