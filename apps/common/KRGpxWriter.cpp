#include "KRGpxWriter.h"

#include "KRExchangeLosses.h"
#include "KRExchangeText.h"

#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXConfiguredTrackList.h>
#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>
#include <KRXML/KRXMLBuilder.h>

#include <QXmlStreamWriter>

namespace {

/// An empty text gives no element.
void writeText(QXmlStreamWriter &xml, const QString &name, const QString &text)
{
    if (!text.isEmpty())
        xml.writeTextElement(name, KRXMLBuilder::readableText(text));
}

/// Also of the enclaves, which are in the file as well.
KRExchangeLosses::Positions countAll(const KRGPXTrack &track)
{
    KRExchangeLosses::Positions all = KRExchangeLosses::count(track);
    const QList<KRGPXTrack> enclaves = track.enclaves();
    for (const KRGPXTrack &enclave : enclaves) {
        const KRExchangeLosses::Positions inside = countAll(enclave);
        all.exchangeable += inside.exchangeable;
        all.unusable += inside.unusable;
    }
    return all;
}

} // namespace

QByteArray KRGpxWriter::write(const KRGPXConfiguredTrackList &tracks, const std::function<bool()> &goOn)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(1);
    xml.writeStartDocument();
    xml.writeDefaultNamespace(QStringLiteral("http://www.topografix.com/GPX/1/1"));
    xml.writeStartElement(QStringLiteral("http://www.topografix.com/GPX/1/1"), QStringLiteral("gpx"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("1.1"));
    xml.writeAttribute(QStringLiteral("creator"), QStringLiteral("KRGeoLocation"));
    for (const KRGPXConfiguredTrack &track : tracks) {
        if (goOn && !goOn())
            return QByteArray();
        writeTrack(xml, track.track());
    }
    xml.writeEndDocument();
    return bytes;
}

KRExchangeLosses KRGpxWriter::lossesOf(const KRGPXConfiguredTrackList &tracks)
{
    KRExchangeLosses losses;
    for (const KRGPXConfiguredTrack &track : tracks) {
        const KRExchangeLosses::Positions positions = countAll(track.track());
        losses.tracks += positions.exchangeable == 0 ? 1 : 0;
        losses.unusablePositions += positions.unusable;
    }
    return losses;
}

void KRGpxWriter::writeTrack(QXmlStreamWriter &xml, const KRGPXTrack &track)
{
    xml.writeStartElement(QStringLiteral("trk"));
    writeText(xml, QStringLiteral("name"), track.name());
    writeText(xml, QStringLiteral("desc"), track.description());
    const QList<KRGPXTrackSegment> segments = track.segments();
    for (const KRGPXTrackSegment &segment : segments)
        writeSegment(xml, segment);
    xml.writeEndElement();

    const QList<KRGPXTrack> enclaves = track.enclaves();
    for (const KRGPXTrack &enclave : enclaves)
        writeTrack(xml, enclave);
}

void KRGpxWriter::writeSegment(QXmlStreamWriter &xml, const KRGPXTrackSegment &segment)
{
    xml.writeStartElement(QStringLiteral("trkseg"));
    for (int i = 0; i < segment.count(); ++i) {
        const KRGeoPosition position = segment.positions().at(i);
        if (!KRExchangeText::isExchangeable(position))
            continue;
        xml.writeStartElement(QStringLiteral("trkpt"));
        xml.writeAttribute(QStringLiteral("lat"), KRExchangeText::degrees(position.latitude()));
        xml.writeAttribute(QStringLiteral("lon"), KRExchangeText::degrees(position.longitude().normalized()));
        if (segment.elevation(i) != 0)
            xml.writeTextElement(QStringLiteral("ele"), QString::number(segment.elevation(i)));
        const KRGPXTime time = segment.time(i);
        if (time.isValid())
            xml.writeTextElement(QStringLiteral("time"), KRExchangeText::utc(time));
        writeText(xml, QStringLiteral("desc"), segment.description(i));
        xml.writeEndElement();
    }
    xml.writeEndElement();
}
