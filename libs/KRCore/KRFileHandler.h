#pragma once

#include "KRCoreExport.h"

#include <QByteArray>

class KRErrorHistory;
class QFile;
class QFileInfo;

/**
 * Opens files of unknown origin.
 *
 * Only regular files are read: a pipe would block for ever, a device never ends. Every refusal has its own
 * reason, reported to the history where one is given.
 */
class KRCORE_EXPORT KRFileHandler {
public:
    /// Opens @p file, which has its name already, for reading bytes. Files above @p maximumSize bytes are refused.
    static bool openForReading(QFile &file, KRErrorHistory *history, qint64 maximumSize);

    /// The whole file, a null array when it could not be read or holds more than @p maximumSize bytes.
    static QByteArray readAll(const QFileInfo &file, KRErrorHistory *history, qint64 maximumSize);
};
