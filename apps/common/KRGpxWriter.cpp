#include "KRGpxWriter.h"

#include "KRExchangeLosses.h"
#include "KRExchangeText.h"

#include <KRCore/KRConcurrent.h>
#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXConfiguredTrackList.h>
#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QIODevice>
#include <QXmlStreamWriter>

#include <algorithm>

namespace {

constexpr int pointsPerBlock = 10000; // a megabyte of text
constexpr int blocksAtOnce = 16;
constexpr int usualBytesOfPoint = 110;

/// Of one line each, with the tags; an empty text gives no element.
class PointChildren
{
public:
    explicit PointChildren(QByteArray *bytes) : m_bytes(bytes) { }

    template <typename Append>
    void add(const char *name, const Append &appendText)
    {
        m_bytes->append(m_isAny ? "\n    <" : ">\n    <").append(name).append('>');
        appendText(m_bytes);
        m_bytes->append("</").append(name).append('>');
        m_isAny = true;
    }
    void end() { m_bytes->append(m_isAny ? "\n   </trkpt>" : "/>"); }

private:
    QByteArray *m_bytes;
    bool m_isAny = false;
};

void appendPoint(const KRGPXTrackSegment &segment, int index, QByteArray *bytes)
{
    const KRGeoPosition position = segment.positions().at(index);
    if (!KRExchangeText::isExchangeable(position))
        return;
    const int elevation = segment.elevation(index);
    const QString description = segment.description(index);
    QByteArray time;
    KRExchangeText::appendUtc(segment.time(index), &time);

    bytes->append("\n   <trkpt lat=\"");
    KRExchangeText::appendDegrees(position.latitude(), bytes);
    bytes->append("\" lon=\"");
    KRExchangeText::appendDegrees(position.longitude().normalized(), bytes);
    bytes->append('"');
    PointChildren children(bytes);
    if (elevation != 0)
        children.add("ele", [&](QByteArray *text) { KRExchangeText::appendNumber(elevation, text); });
    if (!time.isEmpty())
        children.add("time", [&](QByteArray *text) { text->append(time); });
    if (!description.isEmpty())
        children.add("desc", [&](QByteArray *text) { text->append(KRExchangeText::toXml(description)); });
    children.end();
}

QByteArray textOfBlock(const KRGPXTrackSegment &segment, int block)
{
    const int first = block * pointsPerBlock;
    const int end = std::min(first + pointsPerBlock, segment.count());
    QByteArray text;
    text.reserve((end - first) * usualBytesOfPoint);
    for (int i = first; i < end; ++i)
        appendPoint(segment, i, &text);
    return text;
}

/// An empty text gives no element.
void writeText(QXmlStreamWriter &xml, const QString &name, const QString &text)
{
    if (text.isEmpty())
        return;
    xml.writeStartElement(name);
    KRExchangeText::write(text, &xml);
    xml.writeEndElement();
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
        all.untellable += inside.untellable;
    }
    return all;
}

} // namespace

bool KRGpxWriter::write(const KRGPXConfiguredTrackList &tracks, QIODevice *file, const std::function<bool()> &goOn)
{
    QXmlStreamWriter xml(file);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(1);
    xml.writeStartDocument();
    xml.writeDefaultNamespace(QStringLiteral("http://www.topografix.com/GPX/1/1"));
    xml.writeStartElement(QStringLiteral("http://www.topografix.com/GPX/1/1"), QStringLiteral("gpx"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("1.1"));
    xml.writeAttribute(QStringLiteral("creator"), QStringLiteral("KRGeoLocation"));
    for (const KRGPXConfiguredTrack &track : tracks) {
        if (goOn && !goOn())
            return false;
        if (!writeTrack(xml, track.track()))
            return false;
    }
    xml.writeEndDocument();
    return !xml.hasError();
}

KRExchangeLosses KRGpxWriter::lossesOf(const KRGPXConfiguredTrackList &tracks)
{
    KRExchangeLosses losses;
    for (const KRGPXConfiguredTrack &track : tracks) {
        const KRExchangeLosses::Positions positions = countAll(track.track());
        losses.tracks += positions.exchangeable == 0 ? 1 : 0;
        losses.unusablePositions += positions.unusable;
        losses.times += positions.untellable;
    }
    return losses;
}

bool KRGpxWriter::writeTrack(QXmlStreamWriter &xml, const KRGPXTrack &track)
{
    xml.writeStartElement(QStringLiteral("trk"));
    writeText(xml, QStringLiteral("name"), track.name());
    writeText(xml, QStringLiteral("desc"), track.description());
    const QList<KRGPXTrackSegment> segments = track.segments();
    for (const KRGPXTrackSegment &segment : segments) {
        if (!writeSegment(xml, segment))
            return false;
    }
    xml.writeEndElement();

    const QList<KRGPXTrack> enclaves = track.enclaves();
    return std::all_of(enclaves.cbegin(), enclaves.cend(),
                       [&xml](const KRGPXTrack &enclave) { return writeTrack(xml, enclave); });
}

/// The points go past the writer, which takes several times as long.
bool KRGpxWriter::writeSegment(QXmlStreamWriter &xml, const KRGPXTrackSegment &segment)
{
    bool isAny = false;
    xml.writeStartElement(QStringLiteral("trkseg"));
    const int blockCount = (segment.count() + pointsPerBlock - 1) / pointsPerBlock;
    for (int first = 0; first < blockCount; first += blocksAtOnce) {
        QList<int> blocks;
        for (int block = first; block < std::min(first + blocksAtOnce, blockCount); ++block)
            blocks.append(block);
        const QList<QByteArray> texts =
            KRConcurrent::blockingMapped(blocks, [&](int block) { return textOfBlock(segment, block); });
        for (const QByteArray &text : texts) {
            if (!isAny && !text.isEmpty())
                xml.writeCharacters(QString()); // ends the start tag
            isAny = isAny || !text.isEmpty();
            if (xml.device()->write(text) != text.size())
                return false;
        }
    }
    if (isAny)
        xml.device()->write("\n  "); // before the end tag
    xml.writeEndElement();
    return !xml.hasError();
}
