#include "KRGPXTrackPointImpl.h"

#include "KRGPXCommaText.h"
#include "KRGPXTime.h"
#include "KRGPXVocabulary.h"

#include <KRCore/KRMath.h>
#include <KRXML/KRXMLBuilder.h>
#include <KRXML/KRXMLParser.h>

#include <QDomElement>
#include <QRegularExpression>

KRGPXTrackPointImpl::KRGPXTrackPointImpl(const KRGeoPosition &position, int elevation, const QDateTime &timeStamp,
                                         const QString &description)
    : m_position(position), m_elevation(elevation), m_timeStamp(timeStamp), m_description(description)
{ }

KRGPXTrackPointImpl::KRGPXTrackPointImpl(const QDomElement &trkpt)
    : m_position(
        KRXMLParser::doubleAttribute(trkpt, KRGPXVocabulary::latitudeAttribute, KRGPXVocabulary::missingCoordinate),
        KRXMLParser::doubleAttribute(trkpt, KRGPXVocabulary::longitudeAttribute, KRGPXVocabulary::missingCoordinate)),
      m_elevation(KRMath::toInt(KRXMLParser::doubleText(trkpt, KRGPXVocabulary::elevationElement, 0.0))),
      m_timeStamp(KRXMLParser::dateTimeText(trkpt, KRGPXVocabulary::timeElement, Qt::ISODate, QDateTime())),
      m_description(KRXMLParser::text(trkpt, KRGPXVocabulary::descriptionElement, QString()))
{ }

KRGeoPositionList KRGPXTrackPointImpl::allPoints() const
{
    return {m_position};
}

QList<KRGeoPositionList> KRGPXTrackPointImpl::chunkedPoints() const
{
    return {allPoints()};
}

QList<QDateTime> KRGPXTrackPointImpl::allTimeStamps() const
{
    return {m_timeStamp};
}

bool KRGPXTrackPointImpl::isNull() const
{
    return m_position.latitude().isNull() && m_position.longitude().isNull();
}

bool KRGPXTrackPointImpl::operator==(const KRGPXTrackPointImpl &other) const
{
    return m_position == other.m_position && m_elevation == other.m_elevation && m_timeStamp == other.m_timeStamp
           && m_description == other.m_description;
}

QString KRGPXTrackPointImpl::toKml() const
{
    return KRGPXCommaText::join(encode(m_position.longitude()), encode(m_position.latitude()), m_elevation,
                                m_timeStamp.isValid() ? m_timeStamp.toMSecsSinceEpoch() : KRGPXTime::noTime);
}

void KRGPXTrackPointImpl::toXml(QDomElement &parent) const
{
    constexpr int significantDigits = 10;
    QDomElement trkpt = KRXMLBuilder::buildDomElement(parent, KRGPXVocabulary::pointElement);
    trkpt.setAttribute(KRGPXVocabulary::latitudeAttribute,
                       QString::number(m_position.latitude().decimalDegrees(), 'g', significantDigits));
    trkpt.setAttribute(KRGPXVocabulary::longitudeAttribute,
                       QString::number(m_position.longitude().decimalDegrees(), 'g', significantDigits));
    if (m_elevation != 0)
        KRXMLBuilder::buildDomElement(trkpt, KRGPXVocabulary::elevationElement, QString::number(m_elevation));
    if (m_timeStamp.isValid())
        KRXMLBuilder::buildDomElement(trkpt, KRGPXVocabulary::timeElement, m_timeStamp.toString(Qt::ISODate));
    if (!m_description.isEmpty())
        KRXMLBuilder::buildDomElement(trkpt, KRGPXVocabulary::descriptionElement, m_description);
}

QString KRGPXTrackPointImpl::encode(const KRGeoArc &angle) const
{
    constexpr int decimals = 10;
    // Intended: only zeroes go, the decimal point stays.
    static const QRegularExpression trailingZeroes(QStringLiteral("0+$"));
    return QString::number(angle.decimalDegrees(), 'f', decimals).remove(trailingZeroes);
}
