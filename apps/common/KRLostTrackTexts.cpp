#include "KRLostTrackTexts.h"

#include <KRGeoLocation/KRGPXTrack.h>

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
    m_texts.insert(keyOf(file, track), copy);
}

bool KRLostTrackTexts::keep(const QFileInfo &file, const KRGPXTrack &track, QDomElement &element) const
{
    const QMutexLocker locker(&m_mutex);
    return appendChildren(element, m_texts.value(keyOf(file, track)).documentElement());
}

KRLostTrackTexts::Key KRLostTrackTexts::keyOf(const QFileInfo &file, const KRGPXTrack &track)
{
    return {file.absoluteFilePath(), track.description()};
}
