#include "KRLostTrackTexts.h"

#include <KRGeoLocation/KRGPXTrack.h>
#include <KRGeoLocation/KRGPXTrackFileRegistry.h>
#include <KRGeoLocation/KRGPXTrackFileRegistryKey.h>

#include <QDir>
#include <QFileInfo>
#include <QMutexLocker>

namespace {

bool appendChildren(QDomElement &element, const QDomElement &source)
{
    QDomDocument document = element.ownerDocument();
    for (QDomElement child = source.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        element.appendChild(document.importNode(child, true));
    return !source.firstChildElement().isNull();
}

} // namespace

void KRLostTrackTexts::remember(const QFileInfo &file, const KRGPXTrack &track, const QDomElement &kept)
{
    // With a document of its own: the nodes of the caller's are used in another thread.
    QDomDocument copy;
    QDomElement root = copy.createElement(QStringLiteral("kept"));
    copy.appendChild(root);
    appendChildren(root, kept);
    const QMutexLocker locker(&m_mutex);
    m_texts.insert({file.absoluteFilePath(), track.description()}, copy);
}

bool KRLostTrackTexts::rememberFile(const QFileInfo &file, const KRGPXTrack &track)
{
    const QMutexLocker locker(&m_mutex);
    QString &path = m_paths[{track.name(), track.description()}];
    if (path.isEmpty())
        path = file.absoluteFilePath();
    return path == file.absoluteFilePath();
}

QString KRLostTrackTexts::fileOf(const KRGPXTrack &track, const QDir &folder) const
{
    if (track.isValid())
        return QString();
    const QString fileName = KRGPXTrackFileRegistryKey::namesDirectory(folder)
                                 ? KRGPXTrackFileRegistry::instance().fileName({track, folder})
                                 : QString();
    const QFileInfo file(folder, fileName);
    const QMutexLocker locker(&m_mutex);
    // The registry also keeps the names of files that a cancelled save has taken back.
    const bool isNamed =
        !fileName.isEmpty() && (file.exists() || m_texts.contains({file.absoluteFilePath(), track.description()}));
    return isNamed ? file.absoluteFilePath() : m_paths.value({track.name(), track.description()});
}

bool KRLostTrackTexts::keep(const QString &file, const KRGPXTrack &track, QDomElement &element) const
{
    const QMutexLocker locker(&m_mutex);
    return appendChildren(element, m_texts.value({file, track.description()}).documentElement());
}
