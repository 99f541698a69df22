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
/// Of folders that are asked for at one start, as each keeps a file open and asks the user; the others wait for the
/// next.
constexpr std::size_t mostAtOnce = 50;

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
    const QStringList names = place.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Time);
    for (const QString &name : names) {
        if (folders.size() == mostAtOnce)
            break;
        // A lock that is a pipe would keep this program waiting for ever.
        const QFileInfo lock(place.filePath(name + lockSuffix));
        if (lock.exists() && !lock.isFile())
            continue;
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
    const QString text = record();
    const QFileInfo file(text.mid(text.indexOf(QLatin1Char('\n')) + 1));
    return file.isAbsolute() && KRRouteDocument::isDocument(file) ? file.filePath() : QString();
}

QDateTime KRRecoveryFolder::documentTime() const
{
    return QDateTime::fromString(record().section(QLatin1Char('\n'), 0, 0), Qt::ISODateWithMs);
}

bool KRRecoveryFolder::setDocument(const QString &fileName, const QDateTime &fileTime)
{
    const QString text = fileTime.toUTC().toString(Qt::ISODateWithMs) + QLatin1Char('\n') + fileName;
    if (record() == text)
        return true;
    const QFileInfo file(recordFile());
    if (!KRFileHandler::isReplaceable(file, nullptr) || !KRFileHandler::writeAll(file, text.toUtf8(), nullptr))
        return false;
    removeWork();
    return true;
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

QString KRRecoveryFolder::recordFile() const
{
    return m_dir.filePath(QStringLiteral("document"));
}

/// A line with the time, and the name behind it, which may have line breaks of its own.
QString KRRecoveryFolder::record() const
{
    constexpr qint64 longestRecord = 65536;
    if (!QFileInfo::exists(recordFile()))
        return QString();
    return QString::fromUtf8(KRFileHandler::readAll(QFileInfo(recordFile()), nullptr, longestRecord));
}
