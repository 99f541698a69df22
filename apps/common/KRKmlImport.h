#pragma once

#include "KRImportReport.h"

#include <KRGeoLocation/KRGPXConfiguredTrackList.h>

#include <QFileInfo>

class KRErrorHistory;
struct KRKmlGeometry;

/**
 * Imports KML and KMZ files completely: prepares the document, has the library's importer read it, and adds what that
 * has no place for, holes in areas and the times of points. GUI thread only, like the importer.
 */
class KRKmlImport
{
    Q_DECLARE_TR_FUNCTIONS(KRKmlImport)

public:
    explicit KRKmlImport(const QFileInfo &file);

    static bool supportsFile(const QFileInfo &file);

    /// Empty when the file cannot be read, for which the reason is reported, or when it holds nothing to draw.
    KRGPXConfiguredTrackList read(KRErrorHistory *history);

    const KRImportReport &report() const { return m_report; }

private:
    QByteArray readDocument(KRErrorHistory *history);
    static KRGPXConfiguredTrack completed(const KRGPXConfiguredTrack &track, const KRKmlGeometry &geometry);

    QFileInfo m_file;
    KRImportReport m_report;
};
