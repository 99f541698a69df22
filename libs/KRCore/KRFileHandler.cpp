#include "KRFileHandler.h"

#include "KRErrorHistory.h"
#include "KRFileState.h"
#include "KRInputLimits.h"
#include "KRQtCompat.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr qint64 bytesPerFurtherRead = 1 << 16;

QString tooLarge(qint64 maximumSize)
{
    return QCoreApplication::translate("KRFileHandler", "Die Datei ist zu groß (mehr als %1 MB).")
        .arg(maximumSize >> 20);
}

QString unreadable(const QString &reason)
{
    return QCoreApplication::translate("KRFileHandler", "Die Datei kann nicht gelesen werden: %1").arg(reason);
}

/// Whether there is no telling what lies behind one of its folders.
bool isBehindClosedFolder(const QFileInfo &file)
{
    // The root, no name at all, and one in a current folder that is gone, have no folder but themselves.
    QFileInfo folder(file.absolutePath());
    for (QString path; !folder.exists() && path != folder.filePath(); folder = QFileInfo(folder.absolutePath()))
        path = folder.filePath();
    return folder.isDir() && !folder.isExecutable();
}

/// The number of the open channel that a name like /dev/stdout or /dev/fd/3 stands for, also through links; -1 for
/// any other.
int openChannel(const QFileInfo &file)
{
    constexpr int mostLinks = 40;
    const QString channels = QFileInfo(QStringLiteral("/proc/self/fd")).canonicalFilePath();
    if (channels.isEmpty())
        return -1;
    QFileInfo step = file;
    for (int i = 0; i < mostLinks; ++i) {
        if (step.absoluteDir().canonicalPath() == channels) {
            bool isNumber = false;
            const int number = step.fileName().toInt(&isNumber);
            return isNumber ? number : -1;
        }
        if (!step.isSymLink())
            return -1;
        step = QFileInfo(step.symLinkTarget());
    }
    return -1;
}

QString notRegular()
{
    return QCoreApplication::translate("KRFileHandler", "Das ist keine gewöhnliche Datei.");
}

/// Why what exists is no file to be read or replaced; an empty text where it is one.
QString refusalOfKind(const QFileInfo &file)
{
    if (file.isDir())
        return QCoreApplication::translate("KRFileHandler", "Das ist ein Ordner und keine Datei.");
    return file.isFile() ? QString() : notRegular();
}

/// Why the file cannot be read, an empty text when nothing speaks against it.
QString refusal(const QFileInfo &file, qint64 maximumSize)
{
    if (!file.exists() && isBehindClosedFolder(file))
        return unreadable(qt_error_string(EACCES));
    if (!file.exists())
        return file.isSymLink() ? QCoreApplication::translate("KRFileHandler", "Die Verknüpfung führt zu keiner Datei.")
                                : QCoreApplication::translate("KRFileHandler", "Die Datei wurde nicht gefunden.");
    const QString reason = refusalOfKind(file);
    return reason.isEmpty() && file.size() > maximumSize ? tooLarge(maximumSize) : reason;
}

/// Why the file cannot be opened, an empty text when it is open now. Neither a pipe that has taken its place since
/// somebody looked, nor a file of the system that has nothing to say yet, is waited for.
QString openWithoutWaiting(QFile *file)
{
    const QByteArray name = QFile::encodeName(file->fileName());
    const int descriptor = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return unreadable(qt_error_string(errno));
    if (file->open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return file->isSequential() ? notRegular() : QString();
    ::close(descriptor);
    return unreadable(file->errorString());
}

bool write(QSaveFile *file, const QByteArray &bytes)
{
    qint64 count = 0;
    while (count < bytes.size()) {
        const qint64 written = file->write(bytes.constData() + count, bytes.size() - count);
        if (written <= 0)
            return false;
        count += written;
    }
    return true;
}

} // namespace

bool KRFileHandler::openForReading(QFile &file, KRErrorHistory *history, qint64 maximumSize)
{
    const QString name = file.fileName(); // which it loses
    QString reason = refusal(QFileInfo(name), maximumSize);
    if (reason.isEmpty())
        reason = openWithoutWaiting(&file);
    if (reason.isEmpty())
        return true;
    file.close();
    KRErrorHistory::report(history, name, reason);
    return false;
}

QByteArray KRFileHandler::readAll(const QFileInfo &file, KRErrorHistory *history, qint64 maximumSize)
{
    QFile source(file.filePath());
    if (!openForReading(source, history, maximumSize))
        return QByteArray();

    const KRFileState before(source);
    // Up to one byte more than allowed, as the file may have grown since its size was asked for; but room for no more
    // than there seems to be, for QIODevice takes it before it reads.
    QByteArray bytes;
    for (qint64 expected = source.size(); bytes.size() <= maximumSize; expected = bytesPerFurtherRead) {
        const QByteArray piece = source.read(std::min(expected, maximumSize - bytes.size()) + 1);
        if (piece.isEmpty())
            break;
        bytes += piece;
    }
    QString reason;
    if (source.error() != QFileDevice::NoError)
        reason = source.errorString();
    else if (bytes.size() > maximumSize)
        reason = tooLarge(maximumSize);
    else if (KRFileState(source) != before)
        reason = KRFileState::textOfChange();
    if (reason.isEmpty())
        return bytes.isNull() ? QByteArray("") : bytes;
    KRErrorHistory::report(history, file.filePath(), reason);
    return QByteArray();
}

QStringList KRFileHandler::readTextFile(const QFileInfo &file, KRErrorHistory *history)
{
    QFile source(file.filePath());
    if (!openForReading(source, history, KRInputLimits::documentBytes))
        return QStringList();

    QTextStream stream(&source);
    KRQtCompat::useUtf8(&stream);
    QStringList lines;
    QString reason;
    qint64 charactersLeft = KRInputLimits::documentBytes; // The file may have grown since its size was asked for.
    for (QString line = stream.readLine(); !line.isNull() && reason.isEmpty(); line = stream.readLine()) {
        charactersLeft -= line.size() + 1;
        if (charactersLeft < -1)
            reason = tooLarge(KRInputLimits::documentBytes);
        else if (lines.size() == KRInputLimits::textLines)
            reason = QCoreApplication::translate("KRFileHandler", "Die Datei hat zu viele Zeilen (mehr als %1).")
                         .arg(KRInputLimits::textLines);
        else
            lines.append(line);
    }
    if (source.error() != QFileDevice::NoError)
        reason = source.errorString();
    if (reason.isEmpty())
        return lines;
    KRErrorHistory::report(history, file.filePath(), reason);
    return QStringList();
}

bool KRFileHandler::writeToChannel(int descriptor, const QByteArray &bytes)
{
    std::size_t count = 0;
    const auto size = std::size_t(bytes.size());
    while (count < size) {
        const ssize_t written = ::write(descriptor, bytes.constData() + count, size - count);
        if (written > 0) {
            count += std::size_t(written);
        } else if (written < 0 && errno == EAGAIN) {
            pollfd room = {descriptor, POLLOUT, 0};
            ::poll(&room, 1, -1);
        } else if (written == 0 || errno != EINTR) {
            return false;
        }
    }
    return true;
}

bool KRFileHandler::isReplaceable(const QFileInfo &file, KRErrorHistory *history)
{
    const QString reason = file.exists() ? refusalOfKind(file) : QString();
    if (!reason.isEmpty())
        KRErrorHistory::report(history, file.filePath(), reason);
    return reason.isEmpty();
}

bool KRFileHandler::writeAll(const QFileInfo &file, const QByteArray &bytes, KRErrorHistory *history)
{
    // Without a buffer, as commit() does not notice when the disk has no room for what is still in one.
    constexpr QIODevice::OpenMode mode = QIODevice::WriteOnly | QIODevice::Unbuffered;
    // A pipe or a device takes the bytes, and so does what is open already; they must not be replaced by a file.
    const int number = openChannel(file);
    const bool isChannel = number >= 0 || (file.exists() && !file.isFile() && !file.isDir());
    if (isChannel) {
        QFile channel(file.filePath());
        const bool isOpen = number >= 0 || channel.open(mode);
        if (isOpen && writeToChannel(number >= 0 ? number : channel.handle(), bytes))
            return true;
        KRErrorHistory::report(history, file.filePath(), isOpen ? qt_error_string(errno) : channel.errorString());
        return false;
    }
    QSaveFile target(file.filePath());
    if (target.open(mode) && write(&target, bytes) && target.commit())
        return true;
    KRErrorHistory::report(history, file.filePath(), target.errorString());
    return false;
}
