#pragma once

#include <QCoreApplication>

class KRErrorHistory;
class QFile;
class QFileInfo;

/**
 * Writes the tracks of a GPX file into another one as the importer understands them: without prefixes, and without
 * track points that have no place on the globe.
 */
class KRGpxRewriter
{
    Q_DECLARE_TR_FUNCTIONS(KRGpxRewriter)

public:
    /// @p target is open for reading and writing. False when a file cannot be read or written; the reason is reported.
    static bool rewrite(const QFileInfo &file, QFile *target, KRErrorHistory *history);
};
