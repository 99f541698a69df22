#pragma once

#include "KRImportReport.h"

#include <KRGeoLocation/KRGPXConfiguredTrackList.h>

#include <QFileInfo>

class KRErrorHistory;
class KRGpxPreparation;

/**
 * Imports GPX files completely: the tracks as the library's importer reads them, then the way points and the routes,
 * drawn as the user wants new tracks. GUI thread only, like the importer.
 */
class KRGpxImport
{
    Q_DECLARE_TR_FUNCTIONS(KRGpxImport)

public:
    explicit KRGpxImport(const QFileInfo &file) : m_file(file), m_report(file.filePath()) { }

    static bool supportsFile(const QFileInfo &file);

    /// Empty when the file cannot be read, for which the reason is reported, or when it holds nothing to draw.
    KRGPXConfiguredTrackList read(KRErrorHistory *history);

    const KRImportReport &report() const { return m_report; }

private:
    KRGPXConfiguredTrackList readOwnTracks(const KRGpxPreparation &preparation, KRErrorHistory *history) const;

    QFileInfo m_file;
    KRImportReport m_report;
};
