#include "KRGPXTrackFileRegistry.h"

#include <KRCore/KRUniqueFilenameMaker.h>
#include <KRXML/KRXMLBuilder.h>

#include <QDomDocument>
#include <QFileInfo>
#include <QMutexLocker>

namespace {

const QString includedTrackRoot = QStringLiteral("includedTrack");
const QString proposedFileName = QStringLiteral("track.gps");

} // namespace

KRGPXTrackFileRegistry &KRGPXTrackFileRegistry::instance()
{
    return *KRSingleton<KRGPXTrackFileRegistry>::instance();
}

QFileInfo KRGPXTrackFileRegistry::createFileInfo(const KRGPXTrackFileRegistryKey &key, const QString &fileName) const
{
    return QFileInfo(key.dir(), fileName);
}

QString KRGPXTrackFileRegistry::fileName(const KRGPXTrackFileRegistryKey &key) const
{
    const QMutexLocker locker(&m_mutex);
    return m_files.value(key);
}

void KRGPXTrackFileRegistry::registerFile(const KRGPXTrackFileRegistryKey &key, const QString &fileName)
{
    const QMutexLocker locker(&m_mutex);
    m_files.insert(key, fileName);
    m_fileNames.insert(createFileInfo(key, fileName).absoluteFilePath());
}

QString KRGPXTrackFileRegistry::createAssignedFile(const KRGPXTrackFileRegistryKey &key)
{
    const QMutexLocker locker(&m_mutex);
    const QString assignedName = fileName(key);
    if (!assignedName.isEmpty())
        return assignedName;

    const QFileInfo proposal = createFileInfo(key, proposedFileName);
    m_dirs.insert(key.dir());
    QFileInfo file;
    do {
        file = KRUniqueFilenameMaker::instance()->makeUniqueFileNameInSafeContainer(proposal, m_dirs);
        // A registered file may be gone from the disk: its name still is that of another track.
    } while (m_fileNames.contains(file.absoluteFilePath()));
    saveTrackInFile(key, file);
    registerFile(key, file.fileName());
    return file.fileName();
}

void KRGPXTrackFileRegistry::saveTrackInFile(const KRGPXTrackFileRegistryKey &key, const QFileInfo &file)
{
    QDomDocument document;
    QDomElement root = KRXMLBuilder::buildRootElement(document, includedTrackRoot);
    key.track().toXml(root, QDir(QString()));
    KRXMLBuilder::saveUTF8(document, file, nullptr);
}
