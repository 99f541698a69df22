#include "KRGpxImport.h"

#include "KRGpxPreparation.h"
#include "KRGpxRewriter.h"

#include <KRCore/KRLogger.h>
#include <KRGeoLocation/KRGPXTrackFile.h>
#include <KRGeoLocation/KRTrackSelectionFactoryGPXFile.h>

#include <QTemporaryDir>

#include <algorithm>

namespace {

QList<KRGPXTrack> tracksOf(const QFileInfo &file)
{
    return KRGPXTrackFile(QFileInfo(file.absoluteFilePath())).tracks();
}

} // namespace

bool KRGpxImport::supportsFile(const QFileInfo &file)
{
    return KRTrackSelectionFactoryGPXFile().supportsFile(file);
}

void KRGpxImport::read()
{
    KRGpxPreparation preparation(m_file);
    if (!preparation.read(&m_problems)) {
        // The importer may still find tracks, as it passes over what else there may be too much of.
        if (!preparation.hasTooManyTracks())
            m_ownTracks = tracksOf(m_file);
        return;
    }
    QList<KRGPXTrack> tracks = readOwnTracks(preparation);
    if (tracks.size() != preparation.countOfOwnTracks()) {
        // Where the importer finds something else, it tells nothing. Read once more what failed, for its reason.
        KRErrorHistory reasons;
        const KRGPXTrackFile reading(m_file, &reasons);
        for (const KRErrorHistory::Entry &reason : reasons.entries())
            KRErrorHistory::report(&m_problems, reason);
        if (!reasons.isEmpty())
            return;
    }

    m_report = preparation.report();
    tracks.erase(
        std::remove_if(tracks.begin(), tracks.end(), [](const KRGPXTrack &track) { return track.countPoints() == 0; }),
        tracks.end());
    m_ownTracks = tracks;
    m_furtherTracks = preparation.tracks();
}

KRGPXConfiguredTrackList KRGpxImport::configuredTracks() const
{
    // As the factory logs the choice of an importer, which is made here without it.
    const QStringList formats = KRTrackSelectionFactoryGPXFile().supportedFileFormats();
    KRLogger::instance()->logOSM(QStringLiteral("ACTION:useFactory VALUE:%1").arg(formats.join(QLatin1Char(','))));

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
    if (!preparation.needsRewriting())
        return tracksOf(m_file);
    // Under its own name, which tracks without one are named after.
    const QTemporaryDir dir;
    QFile rewritten(dir.filePath(m_file.fileName()));
    if (!dir.isValid() || !rewritten.open(QIODevice::ReadWrite)) {
        KRErrorHistory::report(&m_problems, m_file.filePath(),
                               tr("Die Datei kann nicht umgeschrieben werden: %1")
                                   .arg(dir.isValid() ? rewritten.errorString() : dir.errorString()));
        return tracksOf(m_file);
    }
    if (!KRGpxRewriter::rewrite(m_file, &rewritten, &m_problems))
        return tracksOf(m_file);
    rewritten.close();
    return tracksOf(QFileInfo(rewritten.fileName()));
}
