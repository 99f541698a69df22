#include "KRLostTrackTexts.h"

#include <KRGeoLocation/KRGPXTrack.h>
#include <KRXML/KRXMLBuilder.h>

#include <QCryptographicHash>
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

QByteArray digestOf(const QString &path, const QString &description, const QDomDocument &texts)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString &text : {path, description, KRXMLBuilder::toText(texts)}) {
        const QByteArray bytes = text.toUtf8();
        hash.addData(QByteArray::number(bytes.size()) + ' ' + bytes);
    }
    return hash.result();
}

} // namespace

QString KRLostTrackTexts::remember(const QFileInfo &file, const QString &proposal, const QString &description,
                                   const QDomElement &kept)
{
    // With a document of its own: the nodes of the caller's are used in another thread.
    QDomDocument copy;
    QDomElement root = copy.createElement(QStringLiteral("kept"));
    copy.appendChild(root);
    appendChildren(root, kept);
    const QString path = file.absoluteFilePath();
    const QByteArray digest = digestOf(path, description, copy);
    const QMutexLocker locker(&m_mutex);
    QString &name = m_names[digest];
    if (name.isEmpty()) {
        name = freeName(proposal, path, description);
        m_tracks.insert({name, description}, {path, copy});
    }
    return name;
}

QString KRLostTrackTexts::fileOf(const KRGPXTrack &track) const
{
    return find(track).path;
}

bool KRLostTrackTexts::keep(const KRGPXTrack &track, QDomElement &element) const
{
    return appendChildren(element, find(track).texts.documentElement());
}

KRLostTrackTexts::LostTrack KRLostTrackTexts::find(const KRGPXTrack &track) const
{
    const QMutexLocker locker(&m_mutex);
    return track.isValid() ? LostTrack() : m_tracks.value({track.name(), track.description()});
}

QString KRLostTrackTexts::freeName(const QString &proposal, const QString &path, const QString &description)
{
    QString name = proposal;
    // The files of most documents have the same names.
    if (m_tracks.value({name, description}, {path, {}}).path != path)
        name = path;
    const QString common = name;
    int &count = m_counts[{common, description}];
    while (m_tracks.contains({name, description}))
        name = QStringLiteral("%1 (%2)").arg(common, QString::number(++count + 1));
    return name;
}
