#include "KRTrackSelectionFactoryKmlFile.h"

#include "KRGPXTrackStyleList.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRFileHandler.h>
#include <KRCore/KRXMLLoader.h>
#include <KRCore/KRZIP.h>

#include <QFileInfo>
#include <QUrl>

#include <algorithm>

namespace {

const QString kmlSuffix = QStringLiteral("kml");
const QString kmzSuffix = QStringLiteral("kmz");

const QString documentElement = QStringLiteral("Document");
const QString placemarkElement = QStringLiteral("Placemark");
const QString nameElement = QStringLiteral("name");
const QString descriptionElement = QStringLiteral("description");
const QString styleUrlElement = QStringLiteral("styleUrl");
const QString coordinatesElement = QStringLiteral("coordinates");

QString textOfArchive(const QFileInfo &file, KRErrorHistory *history)
{
    KRZIP archive(file, history);
    if (!archive.open(KRZIP::read))
        return QString();
    const QStringList names = archive.getFileNameList();
    const auto name = std::find_if(names.cbegin(), names.cend(),
                                   [](const QString &candidate) { return candidate.endsWith(QLatin1String(".kml")); });
    if (name == names.cend()) {
        const QString reason = KRTrackSelectionFactoryKmlFile::tr("Das Archiv enthält keinen Eintrag „*.kml“.");
        KRErrorHistory::report(history, file.filePath(), reason);
        return QString();
    }
    // Intended: only up to the first zero byte.
    return QString::fromUtf8(archive.fileContent(*name).constData());
}

QString textOfFile(const QFileInfo &file, KRErrorHistory *history)
{
    const QString suffix = file.suffix().toLower();
    if (suffix == kmlSuffix)
        return KRFileHandler::readTextFile(file, history).join(QLatin1Char('\n'));
    if (suffix == kmzSuffix)
        return textOfArchive(file, history);
    return QString();
}

void collectPlacemarks(const QDomElement &element, QList<QDomElement> *placemarks)
{
    if (element.tagName() == placemarkElement) {
        placemarks->append(element);
        return;
    }
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        collectPlacemarks(child, placemarks);
}

QString textOr(const QDomElement &element, const QString &replacement)
{
    const QString text = element.text();
    return text.isEmpty() ? replacement : text;
}

} // namespace

bool KRTrackSelectionFactoryKmlFile::supportsFile(const QUrl &url) const
{
    return supportsFile(QFileInfo(url.toLocalFile()));
}

QStringList KRTrackSelectionFactoryKmlFile::supportedFileFormats() const
{
    return {QStringLiteral("*.kml"), QStringLiteral("*.kmz")};
}

KRGPXConfiguredTrackList KRTrackSelectionFactoryKmlFile::createConfiguredTrackList(const QUrl &url) const
{
    return createConfiguredTrackList(QFileInfo(url.toLocalFile()));
}

bool KRTrackSelectionFactoryKmlFile::supportsFile(const QFileInfo &file) const
{
    const QString suffix = file.suffix().toLower();
    return suffix == kmlSuffix || suffix == kmzSuffix;
}

KRGPXConfiguredTrackList KRTrackSelectionFactoryKmlFile::createConfiguredTrackList(const QFileInfo &file) const
{
    return decode(readFile(file), file.fileName());
}

QString KRTrackSelectionFactoryKmlFile::readFile(const QFileInfo &file, KRErrorHistory *history) const
{
    KRErrorHistory ownHistory;
    KRErrorHistory *const reasons = history ? history : &ownHistory;
    const int known = reasons->entries().size();
    const QString content = textOfFile(file, reasons);
    if (content.isEmpty() && reasons->entries().size() == known)
        KRErrorHistory::report(reasons, file.filePath(), tr("Die Datei enthält keinen KML-Text."));
    return content;
}

KRGPXConfiguredTrackList KRTrackSelectionFactoryKmlFile::decode(const QString &content, const QString &fileName,
                                                                KRErrorHistory *history) const
{
    if (content.isEmpty())
        return {};
    const QDomElement root = KRXMLLoader::parseDocumentElement(content, fileName, history);
    if (root.isNull())
        return {};
    const QDomElement document = root.firstChildElement(documentElement);
    const QList<QDomElement> placemarks = findPlacemarks(document);
    if (placemarks.isEmpty()) {
        const QString missing = document.isNull() ? documentElement : placemarkElement;
        KRErrorHistory::report(history, fileName, tr("Das Dokument hat kein Element „%1“.").arg(missing));
        return {};
    }

    const KRGPXTrackStyleList styles = KRGPXTrackStyleList::fromKml(document);
    KRGPXConfiguredTrackList tracks;
    tracks.reserve(placemarks.size());
    for (const QDomElement &placemark : placemarks) {
        const QString name = textOr(placemark.firstChildElement(nameElement), fileName);
        // Intended: not the name, although there may be one.
        const QString description = textOr(placemark.firstChildElement(descriptionElement), fileName);
        const KRGPXTrack track =
            KRGPXTrack::decodeKml(name, description, findCoordinates(placemark), KRGPXTrackShape::decodeKml(placemark));
        const QString style = placemark.firstChildElement(styleUrlElement).text();
        tracks.append(KRGPXConfiguredTrack(track, styles.findStyling(style)));
    }
    return tracks;
}

QString KRTrackSelectionFactoryKmlFile::findCoordinates(const QDomElement &element) const
{
    if (element.tagName() == coordinatesElement)
        return element.text().trimmed();
    QString coordinates;
    for (QDomElement child = element.firstChildElement(); !child.isNull() && coordinates.isEmpty();
         child = child.nextSiblingElement())
        coordinates = findCoordinates(child);
    return coordinates;
}

QList<QDomElement> KRTrackSelectionFactoryKmlFile::findPlacemarks(const QDomElement &element) const
{
    QList<QDomElement> placemarks;
    collectPlacemarks(element, &placemarks);
    return placemarks;
}
