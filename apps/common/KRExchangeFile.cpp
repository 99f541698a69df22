#include "KRExchangeFile.h"

#include "KRExchangeText.h"
#include "KRGpxWriter.h"
#include "KRKmlPreparation.h"
#include "KRKmlWriter.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRZIP.h>
#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXConfiguredTrackList.h>
#include <KRGeoLocation/KRGeoPositionSpan.h>

#include <QFileInfo>

namespace {

struct PositionCount {
    int written = 0;
    int lost = 0;
};

/// Of the track and its enclaves.
PositionCount countPositions(const KRGPXTrack &track)
{
    PositionCount count;
    track.visitPositions([&](const KRGeoPositionSpan &positions) {
        for (int i = 0; i < positions.count; ++i)
            ++(KRExchangeText::isExchangeable(positions.at(i)) ? count.written : count.lost);
    });
    const QList<KRGPXTrack> enclaves = track.enclaves();
    for (const KRGPXTrack &enclave : enclaves) {
        const PositionCount inside = countPositions(enclave);
        count.written += inside.written;
        count.lost += inside.lost;
    }
    return count;
}

} // namespace

QByteArray KRExchangeFile::formatOf(const QString &fileName)
{
    const QByteArray suffix = QFileInfo(fileName).suffix().toLower().toLatin1();
    return formats().contains(suffix) ? suffix : QByteArray();
}

QByteArray KRExchangeFile::encode(const KRGPXConfiguredTrackList &tracks, const QByteArray &format, const QString &name,
                                  KRErrorHistory *history)
{
    if (format == "gpx") {
        reportLosses(tracks, name, history);
        return KRGpxWriter::write(tracks);
    }
    const QByteArray kml = KRKmlWriter::write(tracks, name);
    if (!isReadable(kml, name, history))
        return QByteArray();
    const QByteArray bytes = format == "kmz" ? KRZIP::pack(QStringLiteral("doc.kml"), kml) : kml;
    if (bytes.isNull())
        KRErrorHistory::report(history, name, tr("Der Speicher reicht nicht."));
    else
        reportLosses(tracks, name, history);
    return bytes;
}

void KRExchangeFile::reportLosses(const KRGPXConfiguredTrackList &tracks, const QString &name, KRErrorHistory *history)
{
    int emptyTracks = 0;
    PositionCount all;
    for (const KRGPXConfiguredTrack &track : tracks) {
        const PositionCount count = countPositions(track.track());
        emptyTracks += count.written == 0 ? 1 : 0;
        all.lost += count.lost;
    }
    if (emptyTracks > 0)
        KRErrorHistory::report(history, name, tr("Routen ohne Position: %1").arg(emptyTracks));
    if (all.lost > 0)
        KRErrorHistory::report(history, name, tr("Ausgelassene Positionen ohne gültige Koordinaten: %1").arg(all.lost));
}

bool KRExchangeFile::isReadable(const QByteArray &kml, const QString &name, KRErrorHistory *history)
{
    QString reason;
    KRErrorHistory problems;
    if (kml.size() > KRInputLimits::documentBytes)
        reason = tr("Es wäre größer als %1 MB.").arg(KRInputLimits::documentBytes >> 20);
    else if (!KRKmlPreparation(name).read(kml, &problems))
        reason = problems.isEmpty() ? QString() : problems.entries().first().reason;
    else
        return true;
    KRErrorHistory::report(history, name, tr("Das Ergebnis ließe sich nicht wieder öffnen: %1").arg(reason));
    return false;
}
