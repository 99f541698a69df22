#pragma once

#include <QCoreApplication>
#include <QStringList>

class KRErrorHistory;
class KRImportReport;
class QFileInfo;

/**
 * Finds the KML document in a KMZ archive: the one that the importer takes, the first entry that ends with ".kml"; only
 * if there is none also ".KML" and the like. What archivers of macOS add under "__MACOSX" is passed over.
 */
class KRKmzArchive
{
    Q_DECLARE_TR_FUNCTIONS(KRKmzArchive)

public:
    /// The names of all documents, the chosen one first; @p names as they stand in the archive.
    static QStringList documents(const QStringList &names);

    /// The bytes of the chosen document, null if there is none that can be read; the reason is reported then. Other
    /// documents go to @p report.
    static QByteArray read(const QFileInfo &file, KRErrorHistory *history, KRImportReport *report);
};
