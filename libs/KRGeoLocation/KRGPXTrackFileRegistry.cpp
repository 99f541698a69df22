#include "KRGPXTrackFileRegistry.h"

#include <KRCore/KRUniqueFilenameMaker.h>
#include <KRXML/KRXMLBuilder.h>

#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QMutexLocker>

namespace {

const QString includedTrackRoot = QStringLiteral("includedTrack");
const QString proposedFileName = QStringLiteral("track.gps");

/// The same for all ways to the folder, through links or not. The file need not exist.
QString realPath(const QFileInfo &file)
{
    const QDir dir = file.absoluteDir();
    return (dir.exists() ? dir.canonicalPath() : dir.absolutePath()) + QLatin1Char('/') + file.fileName();
}

/// Makes an empty file, so that no other process takes the same name. False when one just has; where no file can be
/// made at all, writing will tell.
bool claim(const QFileInfo &file)
{
    QFile placeholder(file.filePath());
    return placeholder.open(QIODevice::NewOnly) || !QFileInfo::exists(file.filePath());
}

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
    // With a QDir of its own, for that caches what it learns, and the caller's copies are not under the lock.
    m_files.insert(KRGPXTrackFileRegistryKey(key.track(), key.dir()), fileName);
    m_fileNames.insert(realPath(createFileInfo(key, fileName)));
}

void KRGPXTrackFileRegistry::forgetFile(const KRGPXTrackFileRegistryKey &key, const QString &fileName)
{
    const QMutexLocker locker(&m_mutex);
    if (m_files.value(key) == fileName)
        m_files.remove(key);
}

QString KRGPXTrackFileRegistry::createAssignedFile(const KRGPXTrackFileRegistryKey &key)
{
    const QMutexLocker locker(&m_mutex);
    const QString assignedName = fileName(key);
    if (!assignedName.isEmpty())
        return assignedName;
    createNewFile(key, nullptr);
    return fileName(key);
}

bool KRGPXTrackFileRegistry::createNewFile(const KRGPXTrackFileRegistryKey &key, KRErrorHistory *history)
{
    const QMutexLocker locker(&m_mutex);
    const QFileInfo file = newFile(key);
    const bool isWritten = writeTrack(key.track(), file, history);
    if (!isWritten && QFileInfo(file.filePath()).size() == 0)
        QFile::remove(file.filePath());
    registerFile(key, file.fileName());
    return isWritten;
}

void KRGPXTrackFileRegistry::saveTrackInFile(const KRGPXTrackFileRegistryKey &key, const QFileInfo &file)
{
    writeTrack(key.track(), file, nullptr);
}

bool KRGPXTrackFileRegistry::writeTrack(const KRGPXTrack &track, const QFileInfo &file, KRErrorHistory *history)
{
    QDomDocument document;
    QDomElement root = KRXMLBuilder::buildRootElement(document, includedTrackRoot);
    track.toXml(root, QDir(QString()));
    return KRXMLBuilder::saveUTF8(document, file, history);
}

QFileInfo KRGPXTrackFileRegistry::newFile(const KRGPXTrackFileRegistryKey &key)
{
    const QFileInfo proposal = createFileInfo(key, proposedFileName);
    m_dirs.insert(QDir(key.dir().path()));
    QFileInfo file;
    do {
        file = KRUniqueFilenameMaker::instance()->makeUniqueFileNameInSafeContainer(proposal, m_dirs);
        // A registered file may be gone from the disk: its name still is that of another track.
    } while (m_fileNames.contains(realPath(file)) || !claim(file));
    return file;
}
