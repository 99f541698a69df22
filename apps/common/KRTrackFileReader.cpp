#include "KRTrackFileReader.h"

#include "KRLostTrackTexts.h"
#include "KRTrackFileStamps.h"
#include "KRTrackKeeper.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRXMLLoader.h>
#include <KRGeoLocation/KRGPXTrackFileRegistry.h>
#include <KRGeoLocation/KRGPXTrackFileRegistryKey.h>
#include <KRXML/KRXMLBuilder.h>
#include <KRXML/KRXMLParser.h>

#include <QCryptographicHash>
#include <QDomDocument>
#include <QFileInfo>

namespace {

const QString trackElement = QStringLiteral("trk");

/// Of the elements inside both, without the attributes of these two.
QByteArray digestOf(const QDomElement &trk, const QDomElement &kept)
{
    QDomDocument document;
    QDomElement root = KRXMLBuilder::buildRootElement(document, QStringLiteral("content"));
    for (const QDomElement &element : {trk, kept}) {
        for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
            root.appendChild(document.importNode(child, true));
    }
    return QCryptographicHash::hash(KRXMLBuilder::toText(document).toUtf8(), QCryptographicHash::Sha256);
}

} // namespace

bool KRTrackFileReader::announce(const QDomElement &trk, const QDomElement &kept)
{
    if (!namesFile(trk))
        return true;
    const QByteArray digest = digestOf(trk, kept);
    if (m_announced.contains(digest))
        return true;
    m_announced.insert(digest);
    for (QDomElement include = trk.firstChildElement(includeElement); !include.isNull();
         include = include.nextSiblingElement(includeElement)) {
        const QFileInfo file(m_folder, include.text());
        const QString path = file.canonicalFilePath();
        if (m_paths.contains(path))
            m_repeatedBytes += file.size() + KRInputLimits::fileOverhead;
        else if (!path.isEmpty())
            m_paths.insert(path);
    }
    return m_repeatedBytes <= KRInputLimits::repeatedBytes;
}

KRGPXTrack KRTrackFileReader::read(const QDomElement &trk, const KRGPXTrack &withoutFile, const QDomElement &kept,
                                   KRErrorHistory *history)
{
    if (!namesFile(trk))
        return KRTrackKeeper::restored(withoutFile, kept);
    const QByteArray digest = digestOf(trk, kept);
    const auto known = m_tracks.constFind(digest);
    if (known != m_tracks.constEnd()) {
        m_repeatedPoints += known->countPoints();
        return *known;
    }
    return *m_tracks.insert(digest, readFile(trk, trk.firstChildElement(includeElement).text(), kept, history));
}

bool KRTrackFileReader::namesFile(const QDomElement &trk) const
{
    return !trk.firstChildElement(includeElement).isNull();
}

KRGPXTrack KRTrackFileReader::readFile(const QDomElement &trk, const QString &fileName, const QDomElement &kept,
                                       KRErrorHistory *history) const
{
    const QFileInfo file(m_folder, fileName);
    // Taken before: what replaces the file while it is read must not pass for what comes out.
    const KRTrackFileStamps::Stamp stamp = KRTrackFileStamps::stampOf(file);
    KRGPXTrack track = KRTrackKeeper::restored(KRGPXTrack(trk, m_folder), kept);
    if (fileName.isEmpty())
        return track;
    if (track.isValid() || holdsTrack(file, kept, history))
        KRTrackFileStamps::instance()->remember(file, stamp, track);
    else
        track.setName(KRLostTrackTexts::instance()->remember(file, fileName, track.description(), kept));
    KRGPXTrackFileRegistry::instance().registerFile(KRGPXTrackFileRegistryKey(track, m_folder), fileName);
    return track;
}

/// Of a file in which there are no segments.
bool KRTrackFileReader::holdsTrack(const QFileInfo &file, const QDomElement &kept, KRErrorHistory *history)
{
    const QDomElement root = KRXMLLoader::loadDocumentElement(file, history);
    if (root.isNull())
        return false;
    // A track that was saved without points has its element all the same, and no descriptions of points.
    if (!root.firstChildElement(trackElement).isNull() && !KRTrackKeeper::holdsPoints(kept))
        return true;
    KRErrorHistory::report(history, file.filePath(), tr("Die Datei enthält keine Route."));
    return false;
}
