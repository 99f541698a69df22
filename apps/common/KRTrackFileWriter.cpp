#include "KRTrackFileWriter.h"

#include "KRLostTrackTexts.h"

#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXTrackFile.h>
#include <KRGeoLocation/KRGPXTrackFileRegistry.h>
#include <KRGeoLocation/KRGPXTrackFileRegistryKey.h>

#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>

namespace {

constexpr int longestShownName = 60; // of a track, in a message

} // namespace

KRTrackFileWriter::~KRTrackFileWriter()
{
    for (auto file = m_newFiles.cbegin(); file != m_newFiles.cend(); ++file)
        QFile::remove(m_folder.filePath(file.key()));
    // Unless somebody else has put something into it.
    if (m_isFolderNew)
        QDir().rmdir(m_folder.path());
}

bool KRTrackFileWriter::makeFolder()
{
    m_isFolderNew = !m_folder.exists();
    return m_folder.mkpath(QStringLiteral("."));
}

bool KRTrackFileWriter::hasFile(const KRGPXTrack &track) const
{
    const QString fileName = KRGPXTrackFileRegistry::instance().fileName(KRGPXTrackFileRegistryKey(track, m_folder));
    if (fileName.isEmpty())
        return false;
    if (m_newFiles.contains(fileName))
        return true;
    const QFileInfo file(m_folder, fileName);
    return KRTrackFileStamps::instance()->holds(file, track)
           || KRLostTrackTexts::instance()->fileOf(track) == file.absoluteFilePath();
}

QString KRTrackFileWriter::write(const KRGPXTrack &track, KRErrorHistory *history)
{
    if (hasFile(track))
        return KRGPXTrackFileRegistry::instance().fileName(KRGPXTrackFileRegistryKey(track, m_folder));
    const QString lost = KRLostTrackTexts::instance()->fileOf(track);
    if (!lost.isEmpty())
        return lost;
    const QString fileName = writeNewFile(track, history);
    if (fileName.isEmpty())
        return QString();
    m_newFiles.insert(fileName, {KRTrackFileStamps::stampOf(QFileInfo(m_folder, fileName)), track});
    return isReadable(fileName, track, history) ? fileName : QString();
}

void KRTrackFileWriter::keepFiles()
{
    for (auto file = m_newFiles.cbegin(); file != m_newFiles.cend(); ++file)
        KRTrackFileStamps::instance()->remember(QFileInfo(m_folder, file.key()), file->stamp, file->track);
    m_newFiles.clear();
    m_isFolderNew = false;
}

QString KRTrackFileWriter::writeNewFile(const KRGPXTrack &track, KRErrorHistory *history) const
{
    // Another thread that writes an equal track must not put the name of its file in between.
    static QMutex mutex;
    const QMutexLocker locker(&mutex);
    KRGPXTrackFileRegistry &registry = KRGPXTrackFileRegistry::instance();
    const KRGPXTrackFileRegistryKey key(track, m_folder);
    return registry.createNewFile(key, history) ? registry.fileName(key) : QString();
}

bool KRTrackFileWriter::isReadable(const QString &fileName, const KRGPXTrack &track, KRErrorHistory *history) const
{
    const QFileInfo file(m_folder, fileName);
    KRErrorHistory problems;
    if (KRGPXTrackFile(file, &problems).isValid() || !track.isValid())
        return true;
    const QString reason = problems.entries().value(0).reason;
    KRErrorHistory::report(
        history, file.filePath(),
        tr("Die Route „%1“ ließe sich nicht wieder öffnen: %2").arg(track.name().left(longestShownName), reason));
    return false;
}
