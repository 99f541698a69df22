#pragma once

#include "KRImportReport.h"

#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXConfiguredTrackList.h>

#include <QFileInfo>

class KRGpxPreparation;

/**
 * Imports GPX files completely: the tracks as the library's importer reads them, then the way points and the routes,
 * drawn as the user wants new tracks.
 *
 * A file that changes meanwhile is not read. It may be read in any thread, each import in one thread at a time.
 */
class KRGpxImport
{
    Q_DECLARE_TR_FUNCTIONS(KRGpxImport)

public:
    explicit KRGpxImport(const QFileInfo &file) : m_file(file), m_report(file.filePath()) { }

    static bool supportsFile(const QFileInfo &file);

    /// Takes nearly all of the time, and touches neither settings nor KRLogger. To be called once.
    void read();

    /// Empty when the file cannot be read or when it holds nothing to draw. GUI thread only, as the choice of the
    /// importer is logged and the look of new tracks is a setting; to be called once.
    KRGPXConfiguredTrackList configuredTracks() const;
    /// Why the file could not be read.
    const KRErrorHistory &problems() const { return m_problems; }
    const KRImportReport &report() const { return m_report; }

private:
    void readWhole();
    QList<KRGPXTrack> readOwnTracks(const KRGpxPreparation &preparation);

    QFileInfo m_file;
    QList<KRGPXTrack> m_ownTracks; // as the importer reads them
    QList<KRGPXTrack> m_furtherTracks;
    KRErrorHistory m_problems;
    KRImportReport m_report;
};
