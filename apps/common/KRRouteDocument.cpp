#include "KRRouteDocument.h"

#include "KRTrackFileStamps.h"
#include "KRTrackKeeper.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRXMLGuard.h>
#include <KRCore/KRXMLLoader.h>
#include <KRGeoLocation/KRGPXTrackFileRegistry.h>
#include <KRGeoLocation/KRGPXTrackFileRegistryKey.h>
#include <KRXML/KRXMLBuilder.h>
#include <KRXML/KRXMLParser.h>

#include <QDomDocument>
#include <QFileInfo>
#include <QSet>

#include <cmath>

namespace {

const QString rootElement = QStringLiteral("routes");
const QString selectionElement = QStringLiteral("selection");
const QString tracksElement = QStringLiteral("gpxtrack");
const QString trackElement = QStringLiteral("configuredTrack");
const QString keptElement = QStringLiteral("kept");
const QString folderAttribute = QStringLiteral("folder");
const QString numberAttribute = QStringLiteral("number");
const QString lineWidthAttribute = QStringLiteral("lineWidth");
const QString haloWidthAttribute = QStringLiteral("haloWidth");

QHash<int, QDomElement> keptByNumber(const QDomElement &root)
{
    QHash<int, QDomElement> kept;
    for (QDomElement element = root.firstChildElement(keptElement); !element.isNull();
         element = element.nextSiblingElement(keptElement))
        kept.insert(KRXMLParser::intAttribute(element, numberAttribute, -1), element);
    return kept;
}

/// Whether the tracks name the same files so often that reading them would take very long.
bool namesFilesTooOften(const QDomElement &selection, const QDir &folder)
{
    QSet<QString> paths;
    qint64 repeatedBytes = 0;
    const QDomNodeList includes = selection.elementsByTagName(QStringLiteral("include"));
    for (int i = 0; i < includes.count() && repeatedBytes <= KRInputLimits::repeatedBytes; ++i) {
        const QFileInfo file(folder, includes.at(i).toElement().text());
        const QString path = file.canonicalFilePath();
        if (paths.contains(path))
            repeatedBytes += file.size() + KRInputLimits::fileOverhead;
        else if (!path.isEmpty())
            paths.insert(path);
    }
    return repeatedBytes > KRInputLimits::repeatedBytes;
}

/// The XML of configurations cuts widths to whole pixels; says whether there was anything to keep.
bool keepWidths(const KRGPXTrackConfiguration &configuration, QDomElement &kept)
{
    const double line = configuration.lineWidth().toDouble();
    const double halo = configuration.haloWidth().toDouble();
    if (line == std::trunc(line) && halo == std::trunc(halo))
        return false;
    kept.setAttribute(lineWidthAttribute, line);
    kept.setAttribute(haloWidthAttribute, halo);
    return true;
}

KRGPXTrackConfiguration withKeptWidths(KRGPXTrackConfiguration configuration, const QDomElement &kept)
{
    const double line = KRXMLParser::doubleAttribute(kept, lineWidthAttribute, configuration.lineWidth().toDouble());
    const double halo = KRXMLParser::doubleAttribute(kept, haloWidthAttribute, configuration.haloWidth().toDouble());
    configuration.setLineWidth(line);
    configuration.setHaloWidth(halo);
    return configuration;
}

} // namespace

bool KRRouteDocument::isDocument(const QFileInfo &file)
{
    return file.suffix().compare(suffix(), Qt::CaseInsensitive) == 0;
}

QDir KRRouteDocument::trackFolder(const QFileInfo &file)
{
    return QDir(file.absoluteDir().filePath(file.completeBaseName() + QStringLiteral(".tracks")));
}

bool KRRouteDocument::load(const QFileInfo &file, KRErrorHistory *history)
{
    const QDomElement root = KRXMLLoader::loadDocumentElement(file, history);
    if (root.isNull())
        return false;
    if (root.tagName() != rootElement) {
        KRErrorHistory::report(history, file.filePath(), tr("Das ist kein Routendokument."));
        return false;
    }
    // A name alone: the folder lies beside the document, wherever that comes from.
    const QString folderName = QFileInfo(root.attribute(folderAttribute)).fileName();
    const QDir folder = folderName.isEmpty() ? QDir(QString()) : QDir(file.absoluteDir().filePath(folderName));
    const QDomElement element = root.firstChildElement(selectionElement);
    if (namesFilesTooOften(element, folder)) {
        KRErrorHistory::report(history, file.filePath(), tr("Das Dokument nennt dieselben Dateien zu oft."));
        return false;
    }
    const KRGPXTrackSelection read(element, folder);

    KRGPXConfiguredTrackList tracks = read.tracks();
    const QHash<int, QDomElement> kept = keptByNumber(root);
    QDomElement configuredTrack = element.firstChildElement(tracksElement).firstChildElement(trackElement);
    for (int i = 0; i < tracks.size(); ++i, configuredTrack = configuredTrack.nextSiblingElement(trackElement))
        tracks[i] = restoredTrack(tracks.at(i), configuredTrack, kept.value(i), folder, history);
    m_selection = KRGPXTrackSelection(tracks);
    m_selection.setCroppingOpacity(read.nominalCroppingOpacity());
    return true;
}

KRGPXConfiguredTrack KRRouteDocument::restoredTrack(const KRGPXConfiguredTrack &track,
                                                    const QDomElement &configuredTrack, const QDomElement &kept,
                                                    const QDir &folder, KRErrorHistory *history) const
{
    const QString fileName = KRXMLParser::text(configuredTrack.firstChildElement(QStringLiteral("trk")),
                                               QStringLiteral("include"), QString());
    KRGPXTrack restored = KRTrackKeeper::restored(track.track(), kept);
    if (!fileName.isEmpty()) {
        const QFileInfo file(folder, fileName);
        if (!restored.isValid() && KRXMLLoader::loadDocumentElement(file, history).isNull())
            restored.setName(fileName);
        if (restored.isValid())
            KRTrackFileStamps::instance()->remember(file, restored);
        KRGPXTrackFileRegistry::instance().registerFile(KRGPXTrackFileRegistryKey(restored, folder), fileName);
    }
    KRGPXConfiguredTrack result = track;
    result.setTrack(restored);
    result.setConfiguration(withKeptWidths(track.configuration(), kept));
    return result;
}

bool KRRouteDocument::save(const QFileInfo &file, KRErrorHistory *history) const
{
    const QDir folder = trackFolder(file);
    if (!m_selection.isEmpty() && !folder.mkpath(QStringLiteral("."))) {
        KRErrorHistory::report(history, folder.path(), tr("Der Ordner für die Routen kann nicht angelegt werden."));
        return false;
    }
    return writeDocument(file, folder, history);
}

bool KRRouteDocument::saveInOneFile(const QFileInfo &file, KRErrorHistory *history) const
{
    return writeDocument(file, QDir(QString()), history);
}

bool KRRouteDocument::writeDocument(const QFileInfo &file, const QDir &folder, KRErrorHistory *history) const
{
    const bool hasFolder = KRGPXTrackFileRegistryKey::namesDirectory(folder);
    // The track files first: a document must not name what is not there.
    if (hasFolder && !writeTrackFiles(folder, history))
        return false;
    QDomDocument document;
    QDomElement root = KRXMLBuilder::buildRootElement(document, rootElement);
    if (hasFolder)
        root.setAttribute(folderAttribute, folder.dirName());
    QDomElement selection = KRXMLBuilder::buildDomElement(root, selectionElement);
    m_selection.toXml(selection, folder);

    const KRGPXConfiguredTrackList tracks = m_selection.tracks();
    for (int i = 0; i < tracks.size(); ++i) {
        QDomElement kept = KRXMLBuilder::buildDomElement(root, keptElement);
        kept.setAttribute(numberAttribute, i);
        const bool isTrackKept = KRTrackKeeper::keep(tracks.at(i).track(), kept);
        if (!keepWidths(tracks.at(i).configuration(), kept) && !isTrackKept)
            root.removeChild(kept);
    }
    return isReadable(document, file, history) && KRXMLBuilder::saveUTF8(document, file, history);
}

bool KRRouteDocument::isReadable(const QDomDocument &document, const QFileInfo &file, KRErrorHistory *history)
{
    const QByteArray xml = KRXMLBuilder::toText(document, 1).toUtf8();
    KRErrorHistory::Entry refusal;
    if (xml.size() > KRInputLimits::documentBytes)
        refusal.reason = tr("Es ist größer als %1 MB.").arg(KRInputLimits::documentBytes >> 20);
    else if (KRXMLGuard::accepts(xml, &refusal))
        return true;
    KRErrorHistory::report(history, file.filePath(),
                           tr("Das Dokument ließe sich nicht wieder öffnen: %1").arg(refusal.reason));
    return false;
}

bool KRRouteDocument::writeTrackFiles(const QDir &folder, KRErrorHistory *history) const
{
    KRGPXTrackFileRegistry &registry = KRGPXTrackFileRegistry::instance();
    KRTrackFileStamps *const stamps = KRTrackFileStamps::instance();
    const KRGPXConfiguredTrackList tracks = m_selection.tracks();
    for (const KRGPXConfiguredTrack &track : tracks) {
        const KRGPXTrackFileRegistryKey key(track.track(), folder);
        const QString fileName = registry.fileName(key);
        // A track without a segment stands for a file that could not be read, and that is left alone.
        const bool hasFile =
            !fileName.isEmpty()
            && (!track.track().isValid() || stamps->holds(registry.createFileInfo(key, fileName), track.track()));
        if (hasFile)
            continue;
        if (!registry.createNewFile(key, history))
            return false;
        stamps->remember(registry.createFileInfo(key, registry.fileName(key)), track.track());
    }
    return true;
}
