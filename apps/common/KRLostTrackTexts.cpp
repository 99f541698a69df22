#include "KRLostTrackTexts.h"

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

void KRLostTrackTexts::remember(const QFileInfo &file, const QDomElement &kept)
{
    // With a document of its own: the nodes of the caller's are used in another thread.
    QDomDocument copy;
    QDomElement root = copy.createElement(QStringLiteral("kept"));
    copy.appendChild(root);
    appendChildren(root, kept);
    const QMutexLocker locker(&m_mutex);
    m_texts.insert(file.absoluteFilePath(), copy);
}

bool KRLostTrackTexts::keep(const QFileInfo &file, QDomElement &element) const
{
    const QMutexLocker locker(&m_mutex);
    return appendChildren(element, m_texts.value(file.absoluteFilePath()).documentElement());
}
