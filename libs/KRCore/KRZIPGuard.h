#pragma once

#include <QCoreApplication>

class QFile;
class QString;

/**
 * Looks at the table of contents of a ZIP archive before the archive is opened.
 *
 * libzip compares each entry of the table with the header in front of its bytes. It accepts entries that share their
 * bytes, though, with which a small archive can hold any amount of data, and it keeps a table of any length in memory.
 * An archive that can be read in two ways, as it has two ends, is refused too. Positions and sizes are bytes.
 *
 * Format: PKWARE's APPNOTE.TXT, sections 4.3.7 to 4.3.16 and 4.5.3.
 */
class KRZIPGuard
{
    Q_DECLARE_TR_FUNCTIONS(KRZIPGuard)

public:
    /// Why the archive is not to be opened, an empty text when nothing speaks against it. Moves within the file.
    static QString refusal(QFile *archive);
};
