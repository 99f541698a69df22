#include "KRGpxImport.h"

#include "KRGpxPreparation.h"

#include <KRCore/KRFileState.h>
#include <KRGeoLocation/KRGPXTrackFile.h>
#include <KRGeoLocation/KRTrackSelectionFactoryGPXFile.h>

#include <algorithm>

bool KRGpxImport::supportsFile(const QFileInfo &file)
{
    return KRTrackSelectionFactoryGPXFile().supportsFile(file);
}

void KRGpxImport::read()
{
    const KRFileState before(m_file);
    readWhole();
    if (KRFileState(m_file) == before)
        return;
    // It is read more than once: half of what there is now may be of one state and half of the other.
    *this = KRGpxImport(m_file);
    KRErrorHistory::report(&m_problems, m_file.filePath(), KRFileState::textOfChange());
}

void KRGpxImport::readWhole()
{
    KRGpxPreparation preparation(m_file);
    if (!preparation.read(&m_problems)) {
        // The importer passes over what there is too much of.
        if (preparation.areTracksReadable())
            m_ownTracks = readOwnTracks(preparation);
        return;
    }
    const int knownProblems = m_problems.entries().size();
    QList<KRGPXTrack> tracks = readOwnTracks(preparation);
    if (m_problems.entries().size() > knownProblems)
        return;

    m_report = preparation.report();
    tracks.erase(
        std::remove_if(tracks.begin(), tracks.end(), [](const KRGPXTrack &track) { return track.countPoints() == 0; }),
        tracks.end());
    m_ownTracks = tracks;
    m_furtherTracks = preparation.tracks();
}

KRGPXConfiguredTrackList KRGpxImport::configuredTracks()
{
    logChoiceOf(KRTrackSelectionFactoryGPXFile());
    const KRGPXTrackConfiguration configuration = KRGPXTrackConfiguration::currentDefaultConfiguration();
    KRGPXTrackConfiguration configurationOfPoint = configuration;
    configurationOfPoint.setTrackShape(PointTrackShape);
    KRGPXConfiguredTrackList tracks;
    for (const KRGPXTrack &track : m_ownTracks)
        tracks.append(KRGPXConfiguredTrack(track, configuration));
    for (const KRGPXTrack &track : m_furtherTracks)
        tracks.append(
            KRGPXConfiguredTrack(track, track.hasShape(PointTrackShape) ? configurationOfPoint : configuration));
    return tracks;
}

QList<KRGPXTrack> KRGpxImport::readOwnTracks(const KRGpxPreparation &preparation)
{
    const QFileInfo file(m_file.absoluteFilePath());
    if (preparation.mendedXml().isNull())
        return KRGPXTrackFile(file, &m_problems, preparation.readingOptions()).tracks();
    return KRGPXTrackFile::fromXml(preparation.mendedXml(), file, &m_problems, preparation.readingOptions()).tracks();
}
