#include "KRGpxPreparation.h"

#include "KRGpxPointSkimmer.h"
#include "KRXmlStream.h"

#include <KRCore/KRInputLimits.h>
#include <KRCore/KRMath.h>
#include <KRGeoLocation/KRGPXCommaText.h>
#include <KRGeoLocation/KRGPXVocabulary.h>

#include <cmath>

namespace {

const QString trackElement = QStringLiteral("trk");
const QString nameElement = QStringLiteral("name");
const QString segmentElement = QStringLiteral("trkseg");
const QString trackPointElement = QStringLiteral("trkpt");
const QString compressedPointsElement = QStringLiteral("compressedPoints");
const QString wayPointElement = QStringLiteral("wpt");
const QString routeElement = QStringLiteral("rte");
const QString routePointElement = QStringLiteral("rtept");

double toDouble(QStringView text)
{
    return KRMath::toDouble(text, std::nan(""));
}

/// Not valid when the latitude or the longitude is missing, no number or not on the globe.
KRGeoPosition readPosition(const KRXmlStream &stream)
{
    const double latitude = toDouble(stream.attribute("lat"));
    const double longitude = toDouble(stream.attribute("lon"));
    return KRGPXVocabulary::isOnGlobe(latitude, longitude) ? KRGeoPosition(latitude, longitude) : KRGeoPosition();
}

/// Of a point of a track.
bool hasPosition(const KRXmlStream &stream)
{
    // Unlike in a waypoint, (0, 0) in a record is left to the importer.
    return KRGPXVocabulary::isOnGlobe(toDouble(stream.attribute("lat")), toDouble(stream.attribute("lon")));
}

/// A "wpt" or an "rtept".
struct GpxPoint {
    KRGeoPosition position; // not valid when it could not be read
    int elevation = 0;
    KRGPXTime time;
    QString name;
    QString comment;
    QString description;

    void appendTo(KRGPXTrackSegment *segment) const
    {
        segment->append(position.latitude().decimalDegrees(), position.longitude().decimalDegrees(), elevation, time,
                        description);
    }
};

GpxPoint readPoint(KRXmlStream &stream, const KRGpxNames &names)
{
    GpxPoint point;
    // Intended: a device that knows no position writes (0, 0), which is not valid either.
    point.position = readPosition(stream);
    while (stream.readNextChild()) {
        const QStringView name = names.name(stream);
        if (name == QLatin1String("ele"))
            point.elevation = KRMath::toInt(toDouble(stream.readText()));
        else if (name == QLatin1String("time"))
            point.time = stream.readTime();
        else if (name == QLatin1String("name"))
            point.name = stream.readText().trimmed();
        else if (name == QLatin1String("cmt"))
            point.comment = stream.readText().trimmed();
        else if (name == QLatin1String("desc"))
            point.description = stream.readText().trimmed();
        else
            stream.skipElement();
    }
    return point;
}

QString firstNonEmpty(const QString &a, const QString &b)
{
    return a.isEmpty() ? b : a;
}

} // namespace

bool KRGpxPreparation::read(KRErrorHistory *history)
{
    const auto skim = [](QIODevice *file) { return std::make_unique<KRGpxPointSkimmer>(file); };
    return KRXmlStream::read(
        m_file, history, [this](KRXmlStream &stream) { readDocument(stream); }, skim);
}

void KRGpxPreparation::readDocument(KRXmlStream &stream)
{
    *this = KRGpxPreparation(m_file);
    m_mendedXml = stream.mendedXml();
    m_names = KRGpxNames(stream);
    while (stream.readNextChild()) {
        if (m_names.isAt(stream, trackElement))
            readTrack(stream);
        else if (m_names.isAt(stream, wayPointElement))
            readWayPoint(stream);
        else if (m_names.isAt(stream, routeElement))
            readRoute(stream);
        else
            stream.skipElement();
    }
}

void KRGpxPreparation::readTrack(KRXmlStream &stream)
{
    const int line = stream.line();
    ++m_trackNumber;
    checkCounts(stream);
    QString name;
    PointCount count;
    while (stream.readNextChild()) {
        if (m_names.isAt(stream, segmentElement)) {
            readSegment(stream, &count);
        } else if (m_names.isAt(stream, nameElement)) {
            name = stream.readText();
        } else {
            stream.skipElement();
        }
    }
    report(KRImportReport::TrackWithoutPosition, line, name, count);
}

void KRGpxPreparation::readSegment(KRXmlStream &stream, PointCount *count)
{
    ++m_segmentNumber;
    checkCounts(stream);
    while (stream.readNextChild()) {
        if (m_names.isAt(stream, trackPointElement)) {
            // Most likely the first one of a run, the rest of which has been skimmed off.
            const bool isReadable = hasPosition(stream);
            stream.allowForPoints(isReadable ? 1 : 0);
            count->add(isReadable, stream.line());
            stream.skipElement();
        } else if (m_names.isAt(stream, compressedPointsElement)) {
            int textCount = 0;
            stream.readText([&](QStringView piece) { textCount += KRGPXCommaText::count(piece); });
            stream.allowForPoints(textCount);
            if (textCount > KRInputLimits::textPoints)
                stream.refuse(tr("Ein Text hat mehr als %1 Punkte.").arg(KRInputLimits::textPoints));
            count->readable += textCount;
        } else {
            stream.skipElement();
        }
    }
}

void KRGpxPreparation::readWayPoint(KRXmlStream &stream)
{
    const int line = stream.line();
    const GpxPoint point = readPoint(stream, m_names);
    countTexts(stream, point.name, point.description, point.comment);
    ++m_wayPointNumber;
    checkCounts(stream);
    if (!point.position.isValid()) {
        m_report.add(KRImportReport::WayPointWithoutPosition, line, point.name);
        return;
    }
    KRGPXTrackSegment segment;
    point.appendTo(&segment);
    const QString name = firstNonEmpty(point.name, tr("Wegpunkt %1").arg(m_wayPointNumber));
    m_wayPoints.append(KRGPXTrack(name, firstNonEmpty(point.description, point.comment), {segment}, PointTrackShape));
}

void KRGpxPreparation::readRoute(KRXmlStream &stream)
{
    const int line = stream.line();
    QString name;
    QString comment;
    QString description;
    KRGPXTrackSegment points;
    PointCount count;
    while (stream.readNextChild()) {
        if (m_names.isAt(stream, routePointElement)) {
            const int pointLine = stream.line();
            const GpxPoint point = readPoint(stream, m_names);
            ++m_routePointNumber;
            checkCounts(stream);
            countTexts(stream, point.description, QString(), QString());
            count.add(point.position.isValid(), pointLine);
            if (point.position.isValid())
                point.appendTo(&points);
        } else if (m_names.isAt(stream, nameElement)) {
            name = stream.readText().trimmed();
        } else if (m_names.isAt(stream, QStringLiteral("cmt"))) {
            comment = stream.readText().trimmed();
        } else if (m_names.isAt(stream, QStringLiteral("desc"))) {
            description = stream.readText().trimmed();
        } else {
            stream.skipElement();
        }
    }
    countTexts(stream, name, description, comment);
    ++m_routeNumber;
    checkCounts(stream);
    report(KRImportReport::RouteWithoutPosition, line, name, count);
    if (!points.isValid())
        return;
    points.squeeze();
    m_routes.append(KRGPXTrack(firstNonEmpty(name, tr("Route %1").arg(m_routeNumber)),
                               firstNonEmpty(description, comment), {points}, LineStringTrackShape));
}

void KRGpxPreparation::checkCounts(KRXmlStream &stream)
{
    if (m_trackNumber > KRInputLimits::tracks)
        stream.refuse(tr("Die Datei hat mehr als %1 Strecken.").arg(KRInputLimits::tracks));
    else if (m_segmentNumber > KRInputLimits::segments)
        stream.refuse(tr("Die Datei hat mehr als %1 Segmente.").arg(KRInputLimits::segments));
    else if (m_wayPointNumber + m_routeNumber > KRInputLimits::wayPoints)
        refuseBesidesTracks(stream,
                            tr("Die Datei hat mehr als %1 Wegpunkte und Routen.").arg(KRInputLimits::wayPoints));
    else if (m_routePointNumber > KRInputLimits::routePoints)
        refuseBesidesTracks(stream, tr("Die Datei hat mehr als %1 Punkte von Routen.").arg(KRInputLimits::routePoints));
}

void KRGpxPreparation::refuseBesidesTracks(KRXmlStream &stream, const QString &reason)
{
    m_areTracksReadable = true;
    stream.refuse(reason);
}

void KRGpxPreparation::countTexts(KRXmlStream &stream, const QString &a, const QString &b, const QString &c)
{
    m_keptCharacters += qint64(a.size()) + b.size() + c.size();
    if (m_keptCharacters > KRInputLimits::allKeptCharacters)
        refuseBesidesTracks(stream, tr("Die Namen und Beschreibungen sind zusammen zu lang."));
}

void KRGpxPreparation::report(KRImportReport::Kind kindOfWhole, int line, const QString &name, const PointCount &count)
{
    if (count.readable == 0)
        m_report.add(kindOfWhole, line, name);
    else if (count.unreadable > 0)
        m_report.add(KRImportReport::UnreadablePosition, count.firstUnreadableLine, name, count.unreadable);
}

void KRGpxPreparation::PointCount::add(bool isReadable, int line)
{
    if (isReadable) {
        ++readable;
        return;
    }
    if (unreadable == 0)
        firstUnreadableLine = line;
    ++unreadable;
}
