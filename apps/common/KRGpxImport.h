#pragma once

#include "KRFileImport.h"

class KRGpxPreparation;

/**
 * Imports GPX files completely: the tracks as the library's importer reads them, then the waypoints and the routes,
 * drawn as the user wants new tracks.
 *
 * A file that changes meanwhile is not read.
 */
class KRGpxImport : public KRFileImport
{
    Q_DECLARE_TR_FUNCTIONS(KRGpxImport)

public:
    explicit KRGpxImport(const QFileInfo &file) : KRFileImport(file) { }

    static bool supportsFile(const QFileInfo &file);

    void read() override;
    KRGPXConfiguredTrackList configuredTracks() override;

private:
    void readWhole();
    QList<KRGPXTrack> readOwnTracks(const KRGpxPreparation &preparation);

    QList<KRGPXTrack> m_ownTracks; // as the importer reads them
    QList<KRGPXTrack> m_furtherTracks;
};
