#include "KRExchangeFile.h"

#include "KRExchangeLosses.h"
#include "KRGpxWriter.h"
#include "KRKmlPreparation.h"
#include "KRKmlWriter.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRZIP.h>
#include <KRGeoLocation/KRGPXConfiguredTrackList.h>

#include <QFileInfo>

QByteArray KRExchangeFile::formatOf(const QString &fileName)
{
    const QByteArray suffix = QFileInfo(fileName).suffix().toLower().toLatin1();
    return formats().contains(suffix) ? suffix : QByteArray();
}

QByteArray KRExchangeFile::encode(const KRGPXConfiguredTrackList &tracks, const QByteArray &format, const QString &name,
                                  KRErrorHistory *history, const std::function<bool()> &goOn)
{
    if (format == "gpx") {
        const QByteArray gpx = KRGpxWriter::write(tracks, goOn);
        if (!gpx.isNull())
            KRGpxWriter::lossesOf(tracks).report(name, history);
        return gpx;
    }
    const QByteArray kml = KRKmlWriter::write(tracks, name, goOn);
    if (kml.isNull() || !isReadable(kml, name, history))
        return QByteArray();
    const QByteArray bytes = format == "kmz" ? KRZIP::pack(QStringLiteral("doc.kml"), kml) : kml;
    if (bytes.isNull())
        KRErrorHistory::report(history, name, tr("Der Speicher reicht nicht."));
    else
        KRKmlWriter::lossesOf(tracks).report(name, history);
    return bytes;
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
