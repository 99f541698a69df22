#include "KRFileHandler.h"

#include "KRErrorHistory.h"
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

/// Why what exists is no file to be read or replaced; an empty text where it is one.
QString refusalOfKind(const QFileInfo &file)
{
    if (file.isDir())
        return QCoreApplication::translate("KRFileHandler", "Das ist ein Ordner und keine Datei.");
    if (!file.isFile())
        return QCoreApplication::translate("KRFileHandler", "Das ist keine gewöhnliche Datei.");
    return QString();
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

} // namespace

bool KRFileHandler::openForReading(QFile &file, KRErrorHistory *history, qint64 maximumSize)
{
    QString reason = refusal(QFileInfo(file.fileName()), maximumSize);
    if (reason.isEmpty() && !file.open(QIODevice::ReadOnly))
        reason = unreadable(file.errorString());
    if (reason.isEmpty())
        return true;
    KRErrorHistory::report(history, file.fileName(), reason);
    return false;
}

QByteArray KRFileHandler::readAll(const QFileInfo &file, KRErrorHistory *history, qint64 maximumSize)
{
    QFile source(file.filePath());
    if (!openForReading(source, history, maximumSize))
        return QByteArray();

    // Up to one byte more than allowed, as the file may have grown since its size was asked for; but room for no more
    // than there seems to be, for QIODevice takes it before it reads.
    QByteArray bytes;
    for (qint64 expected = source.size(); bytes.size() <= maximumSize; expected = bytesPerFurtherRead) {
        const QByteArray piece = source.read(std::min(expected, maximumSize - bytes.size()) + 1);
        if (piece.isEmpty())
            break;
        bytes += piece;
    }
    if (source.error() != QFileDevice::NoError) {
        KRErrorHistory::report(history, file.filePath(), source.errorString());
        return QByteArray();
    }
    if (bytes.size() > maximumSize) {
        KRErrorHistory::report(history, file.filePath(), tooLarge(maximumSize));
        return QByteArray();
    }
    return bytes.isNull() ? QByteArray("") : bytes;
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

bool KRFileHandler::write(QFileDevice *file, const QByteArray &bytes)
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
        const bool isOpen = number >= 0 ? channel.open(number, mode) : channel.open(mode);
        if (isOpen && write(&channel, bytes))
            return true;
        KRErrorHistory::report(history, file.filePath(), channel.errorString());
        return false;
    }
    QSaveFile target(file.filePath());
    if (target.open(mode) && write(&target, bytes) && target.commit())
        return true;
    KRErrorHistory::report(history, file.filePath(), target.errorString());
    return false;
}
