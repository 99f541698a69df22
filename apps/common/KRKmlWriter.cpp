#include "KRKmlWriter.h"

#include "KRExchangeLosses.h"
#include "KRExchangeText.h"

#include <KRCore/KRDistance.h>
#include <KRCore/KRInputLimits.h>
#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXConfiguredTrackList.h>
#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QColor>
#include <QXmlStreamWriter>

#include <utility>

namespace {

const QString kmlNamespace = QStringLiteral("http://www.opengis.net/kml/2.2");
const QString gxNamespace = QStringLiteral("http://www.google.com/kml/ext/2.2");
constexpr double pixelsPerKmlWidth = 6.0;

/// aabbggrr, the order of KML.
QString kmlColor(const QColor &color)
{
    const auto hex = [](int value) { return QStringLiteral("%1").arg(value, 2, 16, QLatin1Char('0')); };
    return hex(color.alpha()) + hex(color.blue()) + hex(color.green()) + hex(color.red());
}

/// Longitude, latitude, and the elevation where there is one.
QString tuple(const KRGeoPosition &position, int elevation, QLatin1Char separator)
{
    QString text = KRExchangeText::degrees(position.longitude().normalized()) + separator
                   + KRExchangeText::degrees(position.latitude());
    if (elevation != 0)
        text += separator + QString::number(elevation);
    return text;
}

void writeText(QXmlStreamWriter &xml, const QString &name, const QString &text)
{
    xml.writeStartElement(kmlNamespace, name);
    KRExchangeText::write(text, &xml);
    xml.writeEndElement();
}

/// A round trip is an area by its shape, but nothing of it is lost only as a line.
bool isArea(const KRGPXConfiguredTrack &track)
{
    return track.effectiveShape() == PolygonTrackShape
           && (track.hasDrawOption(FillDisplayOption) || !track.track().enclaves().isEmpty());
}

/// Calls @p use with the index of each point that can be written.
template <typename Use>
void forEachPoint(const KRGPXTrackSegment &segment, const Use &use)
{
    for (int i = 0; i < segment.count(); ++i) {
        if (KRExchangeText::isExchangeable(segment.positions().at(i)))
            use(i);
    }
}

QString coordinate(const KRGPXTrackSegment &segment, int index)
{
    return tuple(segment.positions().at(index), segment.elevation(index), QLatin1Char(','));
}

/// Adds another position, unless the text fits into no file any more.
void appendCoordinate(const KRGPXTrackSegment &segment, int index, QString *text)
{
    if (text->size() <= KRInputLimits::documentBytes)
        *text += coordinate(segment, index) + QLatin1Char('\n');
}

QString coordinates(const KRGPXTrackSegment &segment)
{
    QString text;
    forEachPoint(segment, [&](int i) { appendCoordinate(segment, i, &text); });
    return text.trimmed();
}

/// All points of the track as a ring that ends where it starts.
QString ringCoordinates(const KRGPXTrack &track)
{
    QString text;
    QString first;
    KRGeoPosition firstPosition;
    KRGeoPosition lastPosition;
    const QList<KRGPXTrackSegment> segments = track.segments();
    for (const KRGPXTrackSegment &segment : segments) {
        forEachPoint(segment, [&](int i) {
            lastPosition = segment.positions().at(i);
            if (text.isEmpty()) {
                first = coordinate(segment, i);
                firstPosition = lastPosition;
            }
            appendCoordinate(segment, i, &text);
        });
    }
    if (firstPosition != lastPosition)
        text += first;
    return text.trimmed();
}

void writeBoundary(QXmlStreamWriter &xml, const QString &name, const KRGPXTrack &track)
{
    xml.writeStartElement(kmlNamespace, name);
    xml.writeStartElement(kmlNamespace, QStringLiteral("LinearRing"));
    xml.writeTextElement(kmlNamespace, QStringLiteral("coordinates"), ringCoordinates(track));
    xml.writeEndElement();
    xml.writeEndElement();
}

/// A point without a time has an empty one, as there have to be as many times as positions.
void writeTrack(QXmlStreamWriter &xml, const KRGPXTrackSegment &segment)
{
    xml.writeStartElement(gxNamespace, QStringLiteral("Track"));
    forEachPoint(segment, [&](int i) {
        if (!xml.hasError())
            xml.writeTextElement(kmlNamespace, QStringLiteral("when"), KRExchangeText::utc(segment.time(i)));
    });
    forEachPoint(segment, [&](int i) {
        if (xml.hasError())
            return;
        const QString elevation = segment.elevation(i) == 0 ? QStringLiteral(" 0") : QString();
        xml.writeTextElement(gxNamespace, QStringLiteral("coord"),
                             tuple(segment.positions().at(i), segment.elevation(i), QLatin1Char(' ')) + elevation);
    });
    xml.writeEndElement();
}

/// The point that stands for the track: one of its own, with its elevation and time, or the middle of an area. Not
/// valid when the track has none that can be written.
KRGPXTrackPoint markedPoint(const KRGPXConfiguredTrack &track)
{
    const KRGeoPosition place = track.drawingPoints().value(0);
    KRGPXTrackPoint found;
    const QList<KRGPXTrackSegment> segments = track.track().segments();
    for (const KRGPXTrackSegment &segment : segments) {
        for (int i = 0; i < segment.count(); ++i) {
            const KRGeoPosition position = segment.positions().at(i);
            if (!KRExchangeText::isExchangeable(position))
                continue;
            if (position == place)
                return segment.trackPoint(i);
            if (!found.position().isValid())
                found = segment.trackPoint(i);
        }
    }
    return KRExchangeText::isExchangeable(place) ? KRGPXTrackPoint(place, 0, QDateTime(), QString()) : found;
}

bool hasPosition(const KRGPXTrack &track, const KRGeoPosition &position)
{
    bool isFound = false;
    track.visitPositions([&](const KRGeoPositionSpan &positions) {
        for (int i = 0; i < positions.count && !isFound; ++i)
            isFound = positions.at(i) == position;
    });
    return isFound;
}

/// Of a track that is written as one point, if at all; so many of its positions could have been written.
void addLossesOfPoint(const KRGPXConfiguredTrack &track, int exchangeablePositions, KRExchangeLosses *losses)
{
    const KRGPXTrackPoint point = markedPoint(track);
    const KRGeoPosition marked = point.position();
    const KRGPXTime time = KRGPXTime::of(point.timeStamp());
    losses->times += time.isValid() && !KRExchangeText::hasUtc(time) ? 1 : 0;
    const bool isOneOfThem = exchangeablePositions > 0 && hasPosition(track.track(), marked);
    losses->positionsBesidePoints += exchangeablePositions - (isOneOfThem ? 1 : 0);
    losses->enclaves += KRExchangeLosses::countEnclaves(track.track());
}

} // namespace

bool KRKmlWriter::write(const KRGPXConfiguredTrackList &tracks, const QString &name, QIODevice *file,
                        const std::function<bool()> &goOn)
{
    QXmlStreamWriter xml(file);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(1);
    xml.writeStartDocument();
    xml.writeDefaultNamespace(kmlNamespace);
    xml.writeNamespace(gxNamespace, QStringLiteral("gx"));
    xml.writeStartElement(kmlNamespace, QStringLiteral("kml"));
    xml.writeStartElement(kmlNamespace, QStringLiteral("Document"));
    writeText(xml, QStringLiteral("name"), name);
    const auto styleId = [](int index) { return QStringLiteral("track-%1").arg(index + 1); };
    for (int i = 0; i < tracks.size(); ++i)
        writeStyle(xml, tracks.at(i).configuration(), styleId(i));
    for (int i = 0; i < tracks.size(); ++i) {
        if (xml.hasError() || (goOn && !goOn()))
            return false;
        writePlacemark(xml, tracks.at(i), styleId(i));
    }
    xml.writeEndDocument();
    return !xml.hasError();
}

KRExchangeLosses KRKmlWriter::lossesOf(const KRGPXConfiguredTrackList &tracks)
{
    KRExchangeLosses losses;
    for (const KRGPXConfiguredTrack &track : tracks) {
        const KRExchangeLosses::Positions positions = KRExchangeLosses::count(track.track());
        losses.tracks += positions.exchangeable == 0 ? 1 : 0;
        losses.unusablePositions += positions.unusable;
        if (track.effectiveShape() == PointTrackShape) {
            addLossesOfPoint(track, positions.exchangeable, &losses);
            continue;
        }
        const QList<KRGPXTrack> holes = isArea(track) ? track.track().enclaves() : QList<KRGPXTrack>();
        losses.enclaves += KRExchangeLosses::countEnclaves(track.track()) - int(holes.size());
        losses.times += isArea(track) ? positions.timed : positions.untellable;
        for (const KRGPXTrack &hole : holes) {
            const KRExchangeLosses::Positions inside = KRExchangeLosses::count(hole);
            losses.unusablePositions += inside.unusable;
            losses.times += inside.timed;
        }
    }
    return losses;
}

void KRKmlWriter::writeStyle(QXmlStreamWriter &xml, const KRGPXTrackConfiguration &configuration, const QString &id)
{
    const bool isStroked = configuration.hasDrawOption(StrokeDisplayOption);
    const bool isFilled = configuration.hasDrawOption(FillDisplayOption);
    xml.writeStartElement(kmlNamespace, QStringLiteral("Style"));
    xml.writeAttribute(QStringLiteral("id"), id);
    xml.writeStartElement(kmlNamespace, QStringLiteral("IconStyle"));
    xml.writeTextElement(kmlNamespace, QStringLiteral("color"), kmlColor(configuration.lineColor()));
    xml.writeEndElement();
    xml.writeStartElement(kmlNamespace, QStringLiteral("LineStyle"));
    xml.writeTextElement(kmlNamespace, QStringLiteral("color"), kmlColor(configuration.lineColor()));
    xml.writeTextElement(kmlNamespace, QStringLiteral("width"),
                         QString::number(configuration.lineWidth().toDouble() / pixelsPerKmlWidth));
    xml.writeEndElement();
    xml.writeStartElement(kmlNamespace, QStringLiteral("PolyStyle"));
    xml.writeTextElement(kmlNamespace, QStringLiteral("color"), kmlColor(configuration.fillColor()));
    xml.writeTextElement(kmlNamespace, QStringLiteral("fill"), QString::number(isFilled ? 1 : 0));
    xml.writeTextElement(kmlNamespace, QStringLiteral("outline"), QString::number(isStroked ? 1 : 0));
    xml.writeEndElement();
    xml.writeEndElement();
}

void KRKmlWriter::writePlacemark(QXmlStreamWriter &xml, const KRGPXConfiguredTrack &track, const QString &styleId)
{
    xml.writeStartElement(kmlNamespace, QStringLiteral("Placemark"));
    writeText(xml, QStringLiteral("name"), track.name());
    if (!track.description().isEmpty())
        writeText(xml, QStringLiteral("description"), track.description());
    const bool isPoint = track.effectiveShape() == PointTrackShape;
    const KRGPXTrackPoint point = isPoint ? markedPoint(track) : KRGPXTrackPoint();
    const QString time = KRExchangeText::utc(KRGPXTime::of(point.timeStamp()));
    if (!time.isEmpty()) {
        xml.writeStartElement(kmlNamespace, QStringLiteral("TimeStamp"));
        xml.writeTextElement(kmlNamespace, QStringLiteral("when"), time);
        xml.writeEndElement();
    }
    xml.writeTextElement(kmlNamespace, QStringLiteral("styleUrl"), QLatin1Char('#') + styleId);
    if (isPoint)
        writePoint(xml, point);
    else if (isArea(track))
        writePolygon(xml, track.track());
    else
        writeLines(xml, track.track());
    xml.writeEndElement();
}

void KRKmlWriter::writePoint(QXmlStreamWriter &xml, const KRGPXTrackPoint &point)
{
    if (!KRExchangeText::isExchangeable(point.position()))
        return;
    xml.writeStartElement(kmlNamespace, QStringLiteral("Point"));
    xml.writeTextElement(kmlNamespace, QStringLiteral("coordinates"),
                         tuple(point.position(), point.elevation(), QLatin1Char(',')));
    xml.writeEndElement();
}

void KRKmlWriter::writePolygon(QXmlStreamWriter &xml, const KRGPXTrack &track)
{
    xml.writeStartElement(kmlNamespace, QStringLiteral("Polygon"));
    writeBoundary(xml, QStringLiteral("outerBoundaryIs"), track);
    const QList<KRGPXTrack> enclaves = track.enclaves();
    for (const KRGPXTrack &enclave : enclaves)
        writeBoundary(xml, QStringLiteral("innerBoundaryIs"), enclave);
    xml.writeEndElement();
}

void KRKmlWriter::writeLines(QXmlStreamWriter &xml, const KRGPXTrack &track)
{
    QList<KRGPXTrackSegment> segments;
    bool isTimed = false;
    for (const KRGPXTrackSegment &segment : track.segments()) {
        bool isEmpty = true;
        forEachPoint(segment, [&](int i) {
            isEmpty = false;
            isTimed = isTimed || segment.time(i).isValid();
        });
        if (!isEmpty)
            segments.append(segment);
    }
    const bool isMany = segments.size() > 1;
    if (isMany)
        xml.writeStartElement(gxNamespace, QStringLiteral("MultiTrack"));
    for (const KRGPXTrackSegment &segment : std::as_const(segments)) {
        if (isTimed || isMany) {
            writeTrack(xml, segment);
        } else {
            xml.writeStartElement(kmlNamespace, QStringLiteral("LineString"));
            xml.writeTextElement(kmlNamespace, QStringLiteral("coordinates"), coordinates(segment));
            xml.writeEndElement();
        }
    }
    if (isMany)
        xml.writeEndElement();
}
