#include "KRGPXTrackSegment.h"

#include "KRGPXVocabulary.h"

#include <KRCore/KRConcurrent.h>
#include <KRCore/KRIntRange.h>
#include <KRXML/KRXMLBuilder.h>

#include <QDomElement>
#include <QStringList>

#include <algorithm>

namespace {

/// How many points one text holds at most: readers refuse texts above 64 MB, and a point takes up to 60 bytes.
constexpr int pointsPerText = 1000000;

/// One per line, from @p first up to but without @p end.
QString commaTexts(const QList<KRGPXTrackPoint> &points, int first, int end)
{
    QStringList texts;
    texts.reserve(end - first);
    for (int i = first; i < end; ++i)
        texts.append(points.at(i).toKml());
    return texts.join(QLatin1Char('\n'));
}

/// The white space of ASCII alone: a no-break space belongs to the number next to it.
bool isSeparator(QChar character)
{
    const ushort unicode = character.unicode();
    return unicode == ' ' || (unicode >= '\t' && unicode <= '\r');
}

} // namespace

KRGPXTrackSegment::KRGPXTrackSegment(const QList<KRGPXTrackPoint> &points) : m_trackPoints(points) { }

KRGPXTrackSegment::KRGPXTrackSegment(const KRGPXTrackPoint &point) : m_trackPoints({point}) { }

KRGPXTrackSegment::KRGPXTrackSegment(const QDomElement &trkseg)
{
    for (QDomElement child = trkseg.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        if (child.tagName() == KRGPXVocabulary::compressedPointsElement)
            appendCompressed(child.text());
        else if (child.tagName() == KRGPXVocabulary::pointElement)
            m_trackPoints.append(KRGPXTrackPoint(child));
    }
}

QList<KRGPXTrackPoint> KRGPXTrackSegment::decodeTrackPoints(const QString &text)
{
    QList<KRGPXTrackPoint> points;
    auto end = text.cbegin();
    while (end != text.cend()) {
        const auto begin = std::find_if_not(end, text.cend(), isSeparator);
        end = std::find_if(begin, text.cend(), isSeparator);
        const KRGPXTrackPoint point =
            KRGPXTrackPoint::decodeKml(text.midRef(int(begin - text.cbegin()), int(end - begin)));
        if (!point.isNull())
            points.append(point);
    }
    return points;
}

KRGPXTrackSegment KRGPXTrackSegment::decodeKml(const QString &text)
{
    return KRGPXTrackSegment(decodeTrackPoints(text));
}

KRGeoPositionList KRGPXTrackSegment::allPoints() const
{
    return collectBlock(KRIntRange(0, count() - 1));
}

QList<KRGeoPositionList> KRGPXTrackSegment::chunkedPoints() const
{
    const KRIntRange range(0, count() - 1);
    if (!weAreaRunningInMainThread())
        return {collectBlock(range)};
    return KRConcurrent::blockingMapped(range.splitEvenlyForCpuCores(),
                                        [this](const KRIntRange &part) { return collectBlock(part); });
}

KRGeoPosition KRGPXTrackSegment::firstPoint() const
{
    return isValid() ? m_trackPoints.first().position() : KRGPXTrackPoint().position();
}

KRGeoPosition KRGPXTrackSegment::lastPoint() const
{
    return isValid() ? m_trackPoints.last().position() : KRGeoPosition();
}

QList<QDateTime> KRGPXTrackSegment::allTimeStamps() const
{
    QList<QDateTime> timeStamps;
    timeStamps.reserve(count());
    for (const KRGPXTrackPoint &point : m_trackPoints)
        timeStamps.append(point.timeStamp());
    return timeStamps;
}

bool KRGPXTrackSegment::weAreaRunningInMainThread() const
{
    return KRConcurrent::isMainThread();
}

KRGeoPositionList KRGPXTrackSegment::collectBlock(const KRIntRange &range) const
{
    KRGeoPositionList positions;
    positions.reserve(range.lastIndexEvenIfUnvalid() - range.minimum());
    for (int i = range.minimum(); i < range.lastIndexEvenIfUnvalid(); ++i)
        positions.append(m_trackPoints.at(i).position());
    return positions;
}

void KRGPXTrackSegment::append(double latitude, double longitude, int elevation, const QDateTime &timeStamp,
                               const QString &description)
{
    m_trackPoints.append(KRGPXTrackPoint(KRGeoPosition(latitude, longitude), elevation, timeStamp, description));
}

void KRGPXTrackSegment::appendCompressed(const QString &text)
{
    m_trackPoints += decodeTrackPoints(text);
}

QString KRGPXTrackSegment::toKml() const
{
    return commaTexts(m_trackPoints, 0, count());
}

void KRGPXTrackSegment::toXml(QDomElement &parent) const
{
    QDomElement trkseg = KRXMLBuilder::buildDomElement(parent, KRGPXVocabulary::segmentElement);
    int first = 0;
    do {
        const int end = std::min(first + pointsPerText, count());
        KRXMLBuilder::buildDomElement(trkseg, KRGPXVocabulary::compressedPointsElement,
                                      commaTexts(m_trackPoints, first, end));
        first = end;
    } while (first < count());
}
