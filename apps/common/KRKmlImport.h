#pragma once

#include "KRFileImport.h"
#include "KRKmlPreparation.h"

/**
 * Imports KML and KMZ files completely: prepares the document, has the library's importer read it, and adds what that
 * has no place for, holes in areas and the times of points.
 */
class KRKmlImport : public KRFileImport
{
    Q_DECLARE_TR_FUNCTIONS(KRKmlImport)

public:
    explicit KRKmlImport(const QFileInfo &file) : KRFileImport(file), m_preparation(file.filePath()) { }

    static bool supportsFile(const QFileInfo &file);

    void read() override;
    KRGPXConfiguredTrackList configuredTracks() override;

private:
    QByteArray readDocument();
    static KRGPXConfiguredTrack completed(const KRGPXConfiguredTrack &track, const KRKmlGeometry &geometry);

    KRKmlPreparation m_preparation;
};
