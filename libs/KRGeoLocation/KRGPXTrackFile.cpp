#include "KRGPXTrackFile.h"

#include "KRGPXStreamReader.h"
#include "KRGPXVocabulary.h"

#include <KRCore/KRMath.h>
#include <KRCore/KRXMLLoader.h>

#include <QBuffer>
#include <QDir>
#include <QDomElement>
#include <QFileInfo>

#include <cmath>

namespace {

/// Keeps the valid ones of the tracks of a file, and gives each a name.
class TrackCollector
{
public:
    explicit TrackCollector(const QFileInfo &file) : m_baseName(file.baseName()) { }

    void take(const KRGPXTrack &track)
    {
        // Counts the invalid tracks too, so that names do not depend on what else is in the file.
        ++m_number;
        if (!track.isValid())
            return;
        m_tracks.append(track);
        if (track.name().isEmpty())
            m_tracks.last().setName(QStringLiteral("%1 %2").arg(m_baseName, QString::number(m_number)));
    }

    QList<KRGPXTrack> tracks() const { return m_tracks; }

private:
    const QString m_baseName;
    int m_number = 0;
    QList<KRGPXTrack> m_tracks;
};

bool isOnGlobe(const QDomElement &point)
{
    const auto degrees = [&](const QString &name) { return KRMath::toDouble(point.attribute(name), std::nan("")); };
    return KRGPXVocabulary::isOnGlobe(degrees(KRGPXVocabulary::latitudeAttribute),
                                      degrees(KRGPXVocabulary::longitudeAttribute));
}

void removePrefix(QDomElement element, const QString &prefix)
{
    const QString beginning = prefix + QLatin1Char(':');
    if (element.tagName().startsWith(beginning))
        element.setTagName(element.tagName().mid(beginning.size()));
    for (const QString &name : {KRGPXVocabulary::latitudeAttribute, KRGPXVocabulary::longitudeAttribute}) {
        if (element.hasAttribute(beginning + name))
            element.setAttribute(name, element.attribute(beginning + name));
    }
}

/// Has the children of the element read as the options say.
void apply(const KRGPXReadingOptions &options, QDomElement element)
{
    for (QDomElement child = element.firstChildElement(), next; !child.isNull(); child = next) {
        next = child.nextSiblingElement();
        for (const QString &prefix : options.prefixes)
            removePrefix(child, prefix);
        if (child.tagName() != KRGPXVocabulary::pointElement || !options.isOnGlobeOnly || isOnGlobe(child))
            apply(options, child);
        else
            element.removeChild(child);
    }
}

QList<KRGPXTrack> tracksOfDom(const QFileInfo &file, KRErrorHistory *history, const KRGPXReadingOptions &options)
{
    TrackCollector collector(file);
    const QDomElement root = KRXMLLoader::loadDocumentElement(file, history);
    apply(options, root);
    for (QDomElement trk = root.firstChildElement(KRGPXVocabulary::trackElement); !trk.isNull();
         trk = trk.nextSiblingElement(KRGPXVocabulary::trackElement))
        collector.take(KRGPXTrack(trk, QDir(QString())));
    return collector.tracks();
}

} // namespace

KRGPXTrackFile::KRGPXTrackFile(const QFileInfo &file, KRErrorHistory *history, const KRGPXReadingOptions &options)
{
    TrackCollector collector(file);
    const KRGPXStreamResult result = KRGPXStreamReader::readFile(file, history, [&](KRGPXStreamReader &reader) {
        reader.setOptions(options);
        return reader.readTracks([&](const KRGPXTrack &track) { collector.take(track); });
    });
    if (result == StreamWasRead)
        m_tracks = collector.tracks();
    else if (result == StreamNeedsDom)
        m_tracks = tracksOfDom(file, history, options);
}

KRGPXTrackFile KRGPXTrackFile::fromXml(const QByteArray &xml, const QFileInfo &file, KRErrorHistory *history,
                                       const KRGPXReadingOptions &options)
{
    QBuffer buffer;
    buffer.setData(xml);
    buffer.open(QIODevice::ReadOnly);
    KRGPXStreamReader reader(&buffer);
    reader.expectDocument();
    reader.setOptions(options);
    TrackCollector collector(file);
    KRGPXTrackFile tracks;
    if (reader.readTracks([&](const KRGPXTrack &track) { collector.take(track); }))
        tracks.m_tracks = collector.tracks();
    else
        KRErrorHistory::report(history, file.filePath(), reader.error().reason);
    return tracks;
}
