#include "KRRouteDocument.h"

#include "KRFileName.h"
#include "KRLostTrackTexts.h"
#include "KRTrackFileReader.h"
#include "KRTrackFileStamps.h"
#include "KRTrackFileWriter.h"
#include "KRTrackKeeper.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRFileHandler.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRXMLLoader.h>
#include <KRGeoLocation/KRGPXTrackFileRegistryKey.h>
#include <KRXML/KRXMLBuilder.h>
#include <KRXML/KRXMLParser.h>

#include <QDomDocument>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

const QString rootElement = QStringLiteral("routes");
const QString selectionElement = QStringLiteral("selection");
const QString tracksElement = QStringLiteral("gpxtrack");
const QString configuredTrackElement = QStringLiteral("configuredTrack");
const QString formerTrackElement = QStringLiteral("locationTrack");
const QString trkElement = QStringLiteral("trk");
const QString keptElement = QStringLiteral("kept");
constexpr int leastNodesOfTrack = 10; ///< of its looks alone
const QString placeholder = QStringLiteral("?"); // until the file has a name
const QString folderAttribute = QStringLiteral("folder");
const QString lineWidthAttribute = QStringLiteral("lineWidth");
const QString haloWidthAttribute = QStringLiteral("haloWidth");

/// What the XML of the track leaves out; says whether there was any. Where its file could not be read, what the
/// document had of it is kept as it was.
bool keepTexts(const KRGPXTrack &track, QDomElement &kept)
{
    return KRLostTrackTexts::instance()->keep(track, kept) || KRTrackKeeper::keep(track, kept);
}

QHash<int, QDomElement> keptByNumber(const QDomElement &root)
{
    QHash<int, QDomElement> kept;
    for (QDomElement element = root.firstChildElement(keptElement); !element.isNull();
         element = element.nextSiblingElement(keptElement))
        kept.insert(KRXMLParser::intAttribute(element, KRTrackKeeper::numberAttribute, -1), element);
    return kept;
}

QList<QDomElement> includeElements(const QDomElement &trk)
{
    QList<QDomElement> elements;
    for (QDomElement element = trk.firstChildElement(KRTrackFileReader::includeElement); !element.isNull();
         element = element.nextSiblingElement(KRTrackFileReader::includeElement))
        elements.append(element);
    return elements;
}

/// In the order in which they are read.
QList<QDomElement> trackElements(const QDomElement &selection)
{
    QList<QDomElement> elements;
    const QDomElement tracks = selection.firstChildElement(tracksElement);
    for (const QString &name : {formerTrackElement, configuredTrackElement}) {
        for (QDomElement element = tracks.firstChildElement(name); !element.isNull();
             element = element.nextSiblingElement(name))
            elements.append(element);
    }
    return elements;
}

/// A name alone: the folder lies beside the document, wherever that comes from. Files that are named without one are
/// looked for where saving would put them.
QDir folderNamedBy(const QDomElement &root, const QFileInfo &file)
{
    const QString name = QFileInfo(QDir::cleanPath(root.attribute(folderAttribute))).fileName();
    return name.isEmpty() ? KRRouteDocument::trackFolder(file) : QDir(file.absolutePath() + QLatin1Char('/') + name);
}

/// Elements of the name behind the first one.
int countFurther(const QDomElement &parent, const QString &name)
{
    int count = 0;
    for (QDomElement element = parent.firstChildElement(name).nextSiblingElement(name); !element.isNull();
         element = element.nextSiblingElement(name))
        ++count;
    return count;
}

/// Has the names of files in the element "trk" read as such by whoever follows them.
void mendFileNames(const QDomElement &trk)
{
    for (QDomElement include : includeElements(trk)) {
        const QString name = include.text();
        if (KRFileName::ofText(name) == name)
            continue;
        while (include.hasChildNodes())
            include.removeChild(include.firstChild());
        include.appendChild(include.ownerDocument().createTextNode(KRFileName::ofText(name)));
    }
}

/// Has the track of the element "configuredTrack" stand in a file, and nothing of it here.
void nameFile(QDomElement configuredTrack, const QString &fileName)
{
    QDomElement trk = configuredTrack.ownerDocument().createElement(trkElement);
    KRXMLBuilder::buildDomElement(trk, KRTrackFileReader::includeElement, fileName);
    configuredTrack.replaceChild(trk, configuredTrack.firstChildElement(trkElement));
}

/// As KRXMLGuard counts them, and empty texts.
int countNodes(const QDomNode &node)
{
    int count = 1 + int(node.attributes().count());
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling())
        count += countNodes(child);
    return count;
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

/// The same with empty tracks.
KRGPXTrackSelection withoutTracks(const KRGPXTrackSelection &selection)
{
    KRGPXConfiguredTrackList tracks = selection.tracks();
    for (KRGPXConfiguredTrack &track : tracks)
        track.setTrack(KRGPXTrack());
    KRGPXTrackSelection result(tracks);
    result.setCroppingOpacity(selection.nominalCroppingOpacity());
    return result;
}

} // namespace

bool KRRouteDocument::isDocument(const QFileInfo &file)
{
    return file.suffix().compare(suffix(), Qt::CaseInsensitive) == 0;
}

QDir KRRouteDocument::trackFolder(const QFileInfo &file)
{
    return QDir(QStringLiteral("%1/%2.tracks").arg(file.absolutePath(), file.completeBaseName()));
}

QStringList KRRouteDocument::partsOf(const QFileInfo &file)
{
    const QDomElement root = KRXMLLoader::loadDocumentElement(file);
    const QDir folder = folderNamedBy(root, file);
    QStringList parts{folder.path()};
    const QList<QDomElement> elements = trackElements(root.firstChildElement(selectionElement));
    for (const QDomElement &element : elements) {
        for (const QDomElement &include : includeElements(element.firstChildElement(trkElement)))
            parts.append(folder.filePath(KRFileName::ofText(include.text())));
    }
    return parts;
}

bool KRRouteDocument::load(const QFileInfo &file, KRErrorHistory *history)
{
    const KRTrackFileStamps::Stamp stamp = KRTrackFileStamps::stampOf(file);
    const QDomElement root = KRXMLLoader::loadDocumentElement(file, history);
    if (root.isNull())
        return false;
    if (root.tagName() != rootElement) {
        KRErrorHistory::report(history, file.filePath(), tr("Das ist kein Routendokument."));
        return false;
    }
    const QDir folder = folderNamedBy(root, file);
    const QDomElement element = root.firstChildElement(selectionElement);
    const KRGPXTrackSelection looks(element, QDir(QString()));
    KRGPXConfiguredTrackList tracks = looks.tracks();
    const QHash<int, QDomElement> kept = keptByNumber(root);
    const QList<QDomElement> elements = trackElements(element);
    KRTrackFileReader reader(folder);
    for (int i = 0; i < elements.size(); ++i) {
        if (!goesOn())
            return false;
        mendFileNames(elements.at(i).firstChildElement(trkElement));
        if (!reader.announce(elements.at(i).firstChildElement(trkElement), kept.value(i))) {
            KRErrorHistory::report(history, file.filePath(), tooOften());
            return false;
        }
    }
    for (int i = 0; i < tracks.size(); ++i) {
        if (!goesOn())
            return false;
        KRGPXConfiguredTrack &track = tracks[i];
        track.setTrack(
            reader.read(elements.at(i).firstChildElement(trkElement), track.track(), kept.value(i), history));
        if (reader.hasRepeatedTooMuch()) {
            KRErrorHistory::report(history, file.filePath(), tooOften());
            return false;
        }
        track.setConfiguration(withKeptWidths(track.configuration(), kept.value(i)));
    }
    reportFurtherElements(file, root, history);
    KRTrackFileStamps::instance()->remember(file, stamp);
    m_selection = KRGPXTrackSelection(tracks);
    m_selection.setCroppingOpacity(looks.nominalCroppingOpacity());
    return true;
}

bool KRRouteDocument::save(const QFileInfo &file, KRErrorHistory *history) const
{
    if (!mayBeSaved(file, history))
        return false;
    const QDir folder = trackFolder(file);
    KRTrackFileWriter writer(folder);
    // First, as it also tells what belongs to tracks whose files cannot be read.
    learnFilesOf(file, writer);
    QDomDocument document = build(folder);
    if (countNodes(document.documentElement()) > KRInputLimits::nodes) {
        reportTooManyNodes(file, history);
        return false;
    }
    if (!m_selection.isEmpty() && !writer.makeFolder()) {
        KRErrorHistory::report(history, folder.path(), tr("Der Ordner für die Routen kann nicht angelegt werden."));
        return false;
    }
    // The track files first: a document must not name what is not there.
    const KRGPXConfiguredTrackList tracks = m_selection.tracks();
    QList<QDomElement> elements = trackElements(document.documentElement().firstChildElement(selectionElement));
    QSet<QString> fileNames;
    qint64 repeatedPoints = 0;
    for (int i = 0; i < tracks.size(); ++i) {
        const KRGPXTrack track = tracks.at(i).track();
        const QString fileName = goesOn() ? writer.write(track, history) : QString();
        if (fileName.isEmpty())
            return false;
        nameFile(elements.at(i), fileName);
        repeatedPoints += fileNames.contains(fileName) ? track.countPoints() : 0;
        fileNames.insert(fileName);
    }
    if (repeatedPoints > KRInputLimits::repeatedPoints) {
        reportUnreadable(file, tooOften(), history);
        return false;
    }
    const QByteArray xml = KRXMLBuilder::toUTF8(document);
    // Much larger than the text, which is about to be read once more.
    elements.clear();
    document.clear();
    if (!goesOn() || !write(xml, file, history))
        return false;
    writer.keepFiles();
    KRTrackFileStamps::instance()->remember(file, KRTrackFileStamps::stampOf(file));
    return true;
}

bool KRRouteDocument::saveInOneFile(const QFileInfo &file, KRErrorHistory *history) const
{
    if (!mayBeSaved(file, history))
        return false;
    const KRGPXConfiguredTrackList tracks = m_selection.tracks();
    for (const KRGPXConfiguredTrack &track : tracks) {
        const QString lost = KRLostTrackTexts::instance()->fileOf(track.track());
        if (lost.isEmpty())
            continue;
        KRErrorHistory::report(history, file.filePath(),
                               tr("Ohne Ordner kann das Dokument die Datei „%1“ nicht nennen.").arg(lost));
        return false;
    }
    const QByteArray xml = KRXMLBuilder::toUTF8(build(QDir(QString())));
    return write(xml, file, history);
}

bool KRRouteDocument::mayBeSaved(const QFileInfo &file, KRErrorHistory *history) const
{
    m_isTooLarge = false;
    if (m_selection.count() <= KRInputLimits::nodes / leastNodesOfTrack)
        return KRFileHandler::isReplaceable(file, history);
    reportTooManyNodes(file, history);
    return false;
}

QDomDocument KRRouteDocument::build(const QDir &folder) const
{
    const bool hasFolder = KRGPXTrackFileRegistryKey::namesDirectory(folder);
    QDomDocument document;
    QDomElement root = KRXMLBuilder::buildRootElement(document, rootElement);
    if (hasFolder)
        root.setAttribute(folderAttribute, folder.dirName());
    QDomElement selection = KRXMLBuilder::buildDomElement(root, selectionElement);
    (hasFolder ? withoutTracks(m_selection) : m_selection).toXml(selection, QDir(QString()));
    if (hasFolder) {
        for (const QDomElement &element : trackElements(selection))
            nameFile(element, placeholder);
    }

    const KRGPXConfiguredTrackList tracks = m_selection.tracks();
    for (int i = 0; i < tracks.size(); ++i) {
        QDomElement kept = KRXMLBuilder::buildDomElement(root, keptElement);
        kept.setAttribute(KRTrackKeeper::numberAttribute, i);
        const bool isTrackKept = keepTexts(tracks.at(i).track(), kept);
        if (!keepWidths(tracks.at(i).configuration(), kept) && !isTrackKept)
            root.removeChild(kept);
    }
    return document;
}

void KRRouteDocument::learnFilesOf(const QFileInfo &file, const KRTrackFileWriter &writer) const
{
    if (!file.exists() || KRTrackFileStamps::instance()->holds(file))
        return;
    const KRGPXConfiguredTrackList tracks = m_selection.tracks();
    const bool isAnyNew = std::any_of(tracks.cbegin(), tracks.cend(), [&](const KRGPXConfiguredTrack &track) {
        return !writer.hasFile(track.track());
    });
    if (!isAnyNew)
        return;
    KRRouteDocument present;
    present.setGoOnFunction(m_goOn);
    present.load(file, nullptr);
}

void KRRouteDocument::reportFurtherElements(const QFileInfo &file, const QDomElement &root, KRErrorHistory *history)
{
    const QDomElement selection = root.firstChildElement(selectionElement);
    const QList<QDomElement> tracks = trackElements(selection);
    const int trackCount =
        std::accumulate(tracks.cbegin(), tracks.cend(), 0, [](int count, const QDomElement &configuredTrack) {
            return count + countFurther(configuredTrack, trkElement);
        });
    const QPair<QString, int> counts[] = {{selectionElement, countFurther(root, selectionElement)},
                                          {tracksElement, countFurther(selection, tracksElement)},
                                          {trkElement, trackCount}};
    for (const auto &[name, count] : counts) {
        if (count > 0)
            KRErrorHistory::report(history, file.filePath(),
                                   tr("Wo mehrere Elemente „%1“ stehen, wird nur das erste gelesen; ausgelassen: %2")
                                       .arg(name, QString::number(count)));
    }
}

bool KRRouteDocument::write(const QByteArray &xml, const QFileInfo &file, KRErrorHistory *history)
{
    KRErrorHistory refusals;
    if (xml.isNull() || xml.size() > KRInputLimits::documentBytes)
        reportUnreadable(file, tr("Es ist größer als %1 MB.").arg(KRInputLimits::documentBytes >> 20), history);
    else if (KRXMLLoader::parseDocumentElement(xml, file.filePath(), &refusals).isNull())
        reportUnreadable(file, refusals.entries().first().reason, history);
    else
        return KRFileHandler::writeAll(file, xml, history);
    return false;
}

QString KRRouteDocument::tooOften()
{
    return tr("Das Dokument nennt dieselben Dateien zu oft.");
}

void KRRouteDocument::reportTooManyNodes(const QFileInfo &file, KRErrorHistory *history) const
{
    m_isTooLarge = true;
    reportUnreadable(file, tr("Es hat mehr als %1 Knoten.").arg(KRInputLimits::nodes), history);
}

void KRRouteDocument::reportUnreadable(const QFileInfo &file, const QString &reason, KRErrorHistory *history)
{
    KRErrorHistory::report(history, file.filePath(), tr("Das Dokument ließe sich nicht wieder öffnen: %1").arg(reason));
}
