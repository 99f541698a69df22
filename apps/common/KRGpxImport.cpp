#include "KRGpxImport.h"

#include "KRGpxPreparation.h"
#include "KRGpxRewriter.h"

#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXTrackFile.h>
#include <KRGeoLocation/KRTrackSelectionFactory.h>
#include <KRGeoLocation/KRTrackSelectionFactoryGPXFile.h>

#include <QTemporaryDir>
#include <QUrl>

#include <algorithm>

namespace {

KRGPXConfiguredTrackList tracksOf(const QString &fileName)
{
    const QUrl url = QUrl::fromLocalFile(QFileInfo(fileName).absoluteFilePath());
    return KRTrackSelectionFactory::instance()->createConfiguredTrackList(url);
}

KRGPXConfiguredTrack drawnAsNew(const KRGPXTrack &track)
{
    KRGPXTrackConfiguration configuration = KRGPXTrackConfiguration::currentDefaultConfiguration();
    if (track.hasShape(PointTrackShape))
        configuration.setTrackShape(PointTrackShape);
    return KRGPXConfiguredTrack(track, configuration);
}

} // namespace

bool KRGpxImport::supportsFile(const QFileInfo &file)
{
    return KRTrackSelectionFactoryGPXFile().supportsFile(file);
}

KRGPXConfiguredTrackList KRGpxImport::read(KRErrorHistory *history)
{
    KRGpxPreparation preparation(m_file);
    if (!preparation.read(history)) {
        // Gives nothing either, but logs the choice of the importer.
        return tracksOf(m_file.filePath());
    }
    KRGPXConfiguredTrackList tracks = readOwnTracks(preparation, history);
    if (tracks.size() != preparation.countOfOwnTracks()) {
        // Where the importer finds something else, it tells nothing. Read once more what failed, for its reason.
        KRErrorHistory reasons;
        const KRGPXTrackFile reading(m_file, &reasons);
        for (const KRErrorHistory::Entry &reason : reasons.entries())
            KRErrorHistory::report(history, reason);
        if (!reasons.isEmpty())
            return {};
    }

    m_report = preparation.report();
    tracks.erase(std::remove_if(tracks.begin(), tracks.end(),
                                [](const KRGPXConfiguredTrack &track) { return track.track().countPoints() == 0; }),
                 tracks.end());
    const QList<KRGPXTrack> furtherTracks = preparation.tracks();
    for (const KRGPXTrack &track : furtherTracks)
        tracks.append(drawnAsNew(track));
    return tracks;
}

KRGPXConfiguredTrackList KRGpxImport::readOwnTracks(const KRGpxPreparation &preparation, KRErrorHistory *history) const
{
    if (!preparation.needsRewriting())
        return tracksOf(m_file.filePath());
    // Under its own name, which tracks without one are named after.
    const QTemporaryDir dir;
    QFile rewritten(dir.filePath(m_file.fileName()));
    if (!dir.isValid() || !rewritten.open(QIODevice::ReadWrite)) {
        KRErrorHistory::report(history, {m_file.filePath(), 0, 0,
                                         tr("Die Datei kann nicht umgeschrieben werden: %1")
                                             .arg(dir.isValid() ? rewritten.errorString() : dir.errorString())});
        return tracksOf(m_file.filePath());
    }
    if (!KRGpxRewriter::rewrite(m_file, &rewritten, history))
        return tracksOf(m_file.filePath());
    rewritten.close();
    return tracksOf(rewritten.fileName());
}
