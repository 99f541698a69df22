#include "KRRecoveryFolder.h"

#include <KRRouteDocument.h>

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRFileHandler.h>

#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QUuid>

#include <algorithm>
#include <utility>

namespace {

const QString lockSuffix = QStringLiteral(".lock");
const QString workName = QStringLiteral("unsaved.krroute");
const QString tracksName = QStringLiteral("unsaved.tracks");
/// Of folders that are asked for at one start, as each keeps a file open and asks the user; the others wait for the
/// next.
constexpr std::size_t mostAtOnce = 50;
/// Of folders without work that are looked into, and that are cleared away, at one start, before the window answers.
constexpr int mostLookedInto = 5000;
constexpr int mostCleared = 200;

/// As create() gives them.
bool isOwnName(const QString &name)
{
    return QUuid::fromString(name).toString(QUuid::WithoutBraces) == name;
}

/// What is in a folder.
struct Content {
    QStringList ownFiles; ///< that this program writes, with their paths
    bool hasOthers = false;
};

Content contentOf(const QDir &dir, const QString &ownNames, const QString &innerFolder = QString())
{
    // A program that was killed while it wrote leaves its files with six letters more.
    const QRegularExpression own(QStringLiteral("^(%1)(\\.[A-Za-z]{6})?$").arg(ownNames));
    Content content;
    const QFileInfoList entries =
        dir.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries) {
        const bool isLink = entry.isSymLink();
        if (!isLink && entry.isFile() && own.match(entry.fileName()).hasMatch())
            content.ownFiles.append(entry.filePath());
        else if (isLink || !entry.isDir() || entry.fileName() != innerFolder)
            content.hasOthers = true;
    }
    return content;
}

Content contentOf(const QDir &folder)
{
    Content content = contentOf(folder, QStringLiteral("unsaved\\.krroute|document"), tracksName);
    const QFileInfo tracks(folder, tracksName);
    if (!tracks.isDir() || tracks.isSymLink())
        return content;
    const Content inner = contentOf(QDir(tracks.filePath()), QStringLiteral("track(_[0-9]+)?\\.gps"));
    content.ownFiles += inner.ownFiles;
    content.hasOthers |= inner.hasOthers;
    return content;
}

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
    std::vector<std::pair<QDateTime, QString>> namesWithWork; // with the time of its last change
    QStringList otherNames;
    const QStringList names = place.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Unsorted);
    for (const QString &name : names) {
        const QFileInfo work(place.filePath(name) + QLatin1Char('/') + workName);
        if (work.isFile())
            namesWithWork.emplace_back(work.lastModified(), name);
        else if (otherNames.size() < mostLookedInto && isOwnName(name))
            otherNames.append(name);
    }
    std::sort(namesWithWork.rbegin(), namesWithWork.rend());

    int cleared = 0;
    for (const QString &name : otherNames) {
        // Before the lock, whose file takes longer.
        if (contentOf(QDir(place.filePath(name))).hasOthers)
            continue;
        const std::unique_ptr<KRRecoveryFolder> folder = take(place, name);
        if (!folder || folder->holdsWork())
            continue;
        folder->discard();
        if (!QFileInfo::exists(folder->m_dir.path()) && ++cleared == mostCleared)
            break;
    }
    std::vector<std::unique_ptr<KRRecoveryFolder>> folders;
    for (const auto &[time, name] : namesWithWork) {
        std::unique_ptr<KRRecoveryFolder> folder = take(place, name);
        if (folder && folder->holdsWork())
            folders.push_back(std::move(folder));
        if (folders.size() == mostAtOnce)
            break;
    }
    return folders;
}

std::unique_ptr<KRRecoveryFolder> KRRecoveryFolder::take(const QDir &place, const QString &name)
{
    // A lock that is a pipe would keep this program waiting for ever.
    const QFileInfo lock(place.filePath(name + lockSuffix));
    if (lock.exists() && !lock.isFile())
        return nullptr;
    std::unique_ptr<KRRecoveryFolder> folder(new KRRecoveryFolder(place, name));
    return folder->m_lock.tryLock() ? std::move(folder) : nullptr;
}

QString KRRecoveryFolder::recoveryFile() const
{
    return m_dir.filePath(workName);
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
    const QStringList files = contentOf(m_dir).ownFiles;
    for (const QString &file : files)
        QFile::remove(file);
    m_dir.rmdir(tracksName);
    QDir().rmdir(m_dir.path());
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
