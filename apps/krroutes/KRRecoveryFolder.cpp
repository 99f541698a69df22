#include "KRRecoveryFolder.h"

#include <KRRouteDocument.h>

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRFileHandler.h>

#include <QFileInfo>
#include <QStandardPaths>
#include <QUuid>

#include <algorithm>

namespace {

const QString lockSuffix = QStringLiteral(".lock");

} // namespace

KRRecoveryFolder::KRRecoveryFolder(const QDir &place, const QString &name)
    : m_dir(place.filePath(name)), m_lock(place.filePath(name + lockSuffix))
{
    // Only the end of the process makes the lock stale, no matter how long it runs.
    m_lock.setStaleLockTime(0);
}

QDir KRRecoveryFolder::standardPlace()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + QStringLiteral("/recovery"));
}

std::unique_ptr<KRRecoveryFolder> KRRecoveryFolder::create(const QDir &place)
{
    if (!place.mkpath(QStringLiteral(".")))
        return nullptr;
    std::unique_ptr<KRRecoveryFolder> folder(
        new KRRecoveryFolder(place, QUuid::createUuid().toString(QUuid::WithoutBraces)));
    // The lock first: a folder without one would pass for left behind.
    if (!folder->m_lock.tryLock() || !folder->m_dir.mkpath(QStringLiteral(".")))
        return nullptr;
    return folder;
}

std::vector<std::unique_ptr<KRRecoveryFolder>> KRRecoveryFolder::leftBehind(const QDir &place)
{
    std::vector<std::unique_ptr<KRRecoveryFolder>> folders;
    const QStringList names = place.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QString &name : names) {
        std::unique_ptr<KRRecoveryFolder> folder(new KRRecoveryFolder(place, name));
        if (!folder->m_lock.tryLock())
            continue;
        if (folder->holdsWork())
            folders.push_back(std::move(folder));
        else
            folder->discard();
    }
    std::sort(folders.begin(), folders.end(),
              [](const auto &a, const auto &b) { return a->lastChange() > b->lastChange(); });
    return folders;
}

QString KRRecoveryFolder::recoveryFile() const
{
    return m_dir.filePath(QStringLiteral("unsaved.") + KRRouteDocument::suffix());
}

bool KRRecoveryFolder::holdsWork() const
{
    return QFileInfo(recoveryFile()).isFile();
}

QDateTime KRRecoveryFolder::lastChange() const
{
    return QFileInfo(recoveryFile()).lastModified();
}

QString KRRecoveryFolder::documentFile() const
{
    constexpr qint64 longestPath = 65536;
    if (!QFileInfo::exists(documentFileRecord()))
        return QString();
    return QString::fromUtf8(KRFileHandler::readAll(QFileInfo(documentFileRecord()), nullptr, longestPath));
}

bool KRRecoveryFolder::setDocumentFile(const QString &fileName)
{
    if (documentFile() == fileName)
        return true;
    removeWork();
    return KRFileHandler::writeAll(QFileInfo(documentFileRecord()), fileName.toUtf8(), nullptr);
}

void KRRecoveryFolder::removeWork()
{
    QFile work(recoveryFile());
    if (work.exists() && !work.remove())
        KRErrorHistory::report(nullptr, work.fileName(), work.errorString());
}

void KRRecoveryFolder::discard()
{
    m_dir.removeRecursively();
    m_lock.unlock();
}

QString KRRecoveryFolder::documentFileRecord() const
{
    return m_dir.filePath(QStringLiteral("document"));
}
