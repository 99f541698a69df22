#pragma once

#include "KRCoreExport.h"

#include <QByteArray>
#include <QStringList>

class KRErrorHistory;
class QFile;
class QFileInfo;

/**
 * Opens files of unknown origin, and writes files whole or not at all.
 *
 * Only regular files are read: a pipe would block for ever, a device never ends. Every refusal has its own
 * reason, reported to the history where one is given.
 */
class KRCORE_EXPORT KRFileHandler
{
public:
    /// Opens @p file, which has its name already, for reading bytes. Files above @p maximumSize bytes are refused. An
    /// open file no longer tells its name.
    static bool openForReading(QFile &file, KRErrorHistory *history, qint64 maximumSize);

    /// The whole file, a null array when it could not be read, holds more than @p maximumSize bytes, or was changed
    /// meanwhile: half of it might be of one state and half of another.
    static QByteArray readAll(const QFileInfo &file, KRErrorHistory *history, qint64 maximumSize);

    /// The lines without their ends, decoded as UTF-8, or as UTF-16 where a byte order mark says so. Empty when the
    /// file could not be read, or is larger than KRInputLimits::documentBytes and textLines allow.
    static QStringList readTextFile(const QFileInfo &file, KRErrorHistory *history = nullptr);

    /// Writes all bytes into what is open already, as the standard output; waits where it has no room as yet. False on
    /// failure, errno has the reason.
    static bool writeToChannel(int descriptor, const QByteArray &bytes);

    /// Whether writeAll() would replace a file or make a new one: a pipe that nobody reads would take for ever.
    static bool isReplaceable(const QFileInfo &file, KRErrorHistory *history);

    /// Writes all bytes; until they are there the old file stays as it was. A pipe, a device or a channel that is open
    /// already, as /dev/stdout, gets them as they come. False when it fails.
    static bool writeAll(const QFileInfo &file, const QByteArray &bytes, KRErrorHistory *history);
};
