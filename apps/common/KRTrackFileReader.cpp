#include "KRTrackFileReader.h"

#include "KRLostTrackTexts.h"
#include "KRTrackFileStamps.h"
#include "KRTrackKeeper.h"

#include <KRCore/KRXMLLoader.h>
#include <KRGeoLocation/KRGPXTrackFileRegistry.h>
#include <KRGeoLocation/KRGPXTrackFileRegistryKey.h>
#include <KRXML/KRXMLBuilder.h>
#include <KRXML/KRXMLParser.h>

#include <QCryptographicHash>
#include <QDomDocument>
#include <QFileInfo>

namespace {

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
    if (track.isValid()) {
        KRTrackFileStamps::instance()->remember(file, stamp, track);
    } else if (KRXMLLoader::loadDocumentElement(file, history).isNull()) {
        track.setName(fileName);
        // The files of most documents have the same names.
        if (!KRLostTrackTexts::instance()->rememberFile(file, track)) {
            track.setName(file.absoluteFilePath());
            KRLostTrackTexts::instance()->rememberFile(file, track);
        }
    }
    if (!track.isValid())
        KRLostTrackTexts::instance()->remember(file, track, kept);
    KRGPXTrackFileRegistry::instance().registerFile(KRGPXTrackFileRegistryKey(track, m_folder), fileName);
    return track;
}
