#pragma once

#include "KRImportReport.h"

#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXConfiguredTrackList.h>

#include <QFileInfo>

#include <memory>

class KRTrackSelectionFactoryAbstract;

/**
 * Imports one file completely: all that it holds, where the importers of the library pass over much.
 *
 * First read(), which any thread may do, each import in one thread at a time; then configuredTracks().
 */
class KRFileImport
{
public:
    virtual ~KRFileImport() = default;

    /// The import for a file by its name; null when there is none.
    static std::unique_ptr<KRFileImport> create(const QFileInfo &file);

    /// Logs the choice of an importer, as the factory does, where it is made without it. GUI thread only.
    static void logChoiceOf(const KRTrackSelectionFactoryAbstract &importer);

    /// Takes most of the time, and touches neither settings nor KRLogger. To be called once.
    virtual void read() = 0;
    /// Empty when the file cannot be read or when it holds nothing to draw. GUI thread only, as the choice of the
    /// importer is logged and the look of new tracks is a setting; to be called once.
    virtual KRGPXConfiguredTrackList configuredTracks() = 0;

    /// Why the file could not be read; to be asked last.
    const KRErrorHistory &problems() const { return m_problems; }
    const KRImportReport &report() const { return m_report; }

protected:
    explicit KRFileImport(const QFileInfo &file) : m_file(file), m_report(file.filePath()) { }
    KRFileImport(const KRFileImport &) = default;
    KRFileImport &operator=(const KRFileImport &) = default;

    QFileInfo m_file;
    KRErrorHistory m_problems;
    KRImportReport m_report;
};
