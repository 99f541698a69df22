#include "KRExchangeFile.h"

#include "KRBoundedBuffer.h"
#include "KRExchangeLosses.h"
#include "KRGpxWriter.h"
#include "KRKmlPreparation.h"
#include "KRKmlWriter.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRZIP.h>
#include <KRGeoLocation/KRGPXConfiguredTrackList.h>

#include <QFileInfo>

namespace {

constexpr int largestGpxBytes = 2000 << 20; // what QByteArray takes

} // namespace

QByteArray KRExchangeFile::formatOf(const QString &fileName)
{
    const QByteArray suffix = QFileInfo(fileName).suffix().toLower().toLatin1();
    return formats().contains(suffix) ? suffix : QByteArray();
}

QByteArray KRExchangeFile::encode(const KRGPXConfiguredTrackList &tracks, const QByteArray &format, const QString &name,
                                  KRErrorHistory *history, const std::function<bool()> &goOn)
{
    return format == "gpx" ? encodeGpx(tracks, name, history, goOn) : encodeKml(tracks, format, name, history, goOn);
}

QByteArray KRExchangeFile::encodeGpx(const KRGPXConfiguredTrackList &tracks, const QString &name,
                                     KRErrorHistory *history, const GoOn &goOn)
{
    KRBoundedBuffer file(largestGpxBytes);
    if (KRGpxWriter::write(tracks, &file, goOn)) {
        KRGpxWriter::lossesOf(tracks).report(name, history);
        return file.data();
    }
    if (file.isOverfull())
        KRErrorHistory::report(history, name, tooLarge(largestGpxBytes));
    return QByteArray();
}

QByteArray KRExchangeFile::encodeKml(const KRGPXConfiguredTrackList &tracks, const QByteArray &format,
                                     const QString &name, KRErrorHistory *history, const GoOn &goOn)
{
    KRBoundedBuffer file(KRInputLimits::documentBytes);
    const bool isWhole = KRKmlWriter::write(tracks, name, &file, goOn);
    if (file.isOverfull())
        reportUnreadable(name, tooLarge(KRInputLimits::documentBytes), history);
    if (!isWhole || !isReadable(file.data(), name, history))
        return QByteArray();
    const QByteArray bytes = format == "kmz" ? KRZIP::pack(QStringLiteral("doc.kml"), file.data()) : file.data();
    if (bytes.isNull())
        KRErrorHistory::report(history, name, tr("Der Speicher reicht nicht."));
    else
        KRKmlWriter::lossesOf(tracks).report(name, history);
    return bytes;
}

bool KRExchangeFile::isReadable(const QByteArray &kml, const QString &name, KRErrorHistory *history)
{
    KRErrorHistory problems;
    if (KRKmlPreparation(name).read(kml, &problems))
        return true;
    reportUnreadable(name, problems.isEmpty() ? QString() : problems.entries().first().reason, history);
    return false;
}

void KRExchangeFile::reportUnreadable(const QString &name, const QString &reason, KRErrorHistory *history)
{
    KRErrorHistory::report(history, name, tr("Das Ergebnis ließe sich nicht wieder öffnen: %1").arg(reason));
}

QString KRExchangeFile::tooLarge(int mostBytes)
{
    return tr("Es wäre größer als %1 MB.").arg(mostBytes >> 20);
}
