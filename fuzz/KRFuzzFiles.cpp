#include "KRFuzzFile.h"
#include "KRFuzzLaws.h"
#include "KRFuzzTargets.h"

#include <KRRouteImport.h>
#include <KRTestTrack.h>

#include <KRCore/KRInputLimits.h>
#include <KRCore/KRXMLLoader.h>
#include <KRCore/KRZIP.h>
#include <KRGeoLocation/KRGPXStreamReader.h>
#include <KRGeoLocation/KRGPXTrackFile.h>
#include <KRGeoLocation/KRTrackSelectionFactoryKmlFile.h>

#include <QBuffer>
#include <QDir>
#include <QDomElement>

#include <algorithm>

namespace {

/// What can be read as a stream reads as the DOM does, to the last digit.
QString brokenByStream(QByteArray xml)
{
    QBuffer buffer(&xml);
    buffer.open(QIODevice::ReadOnly);
    KRGPXStreamReader reader(&buffer);
    QList<KRGPXTrack> streamed;
    if (!reader.readTracks([&](const KRGPXTrack &track) { streamed.append(track); }) || reader.isDomPreferable())
        return QString();

    const QDomElement root = KRXMLLoader::parseDocumentElement(xml, QStringLiteral("input"));
    if (root.isNull())
        return QStringLiteral("A file that can be read as a stream can be read as a DOM.");
    const QString trackElement = QStringLiteral("trk");
    QList<KRGPXTrack> built;
    for (QDomElement trk = root.firstChildElement(trackElement); !trk.isNull();
         trk = trk.nextSiblingElement(trackElement))
        built.append(KRGPXTrack(trk, QDir(QString())));
    return KRTestTrack::exactText(streamed) == KRTestTrack::exactText(built)
               ? QString()
               : QStringLiteral("A file reads alike as a stream and as a DOM.");
}

/// A file gives tracks or a reason why it gives none; what it gives can be handed on to other programs.
QString brokenByImport(const QFileInfo &file, const QByteArray &exchangeFormat)
{
    KRRouteImport import;
    import.read({file.filePath()});
    if (import.tracks().isEmpty() && import.problems().isEmpty())
        return QStringLiteral("A file that gives nothing has a reason.");
    return import.tracks().isEmpty() ? QString() : KRFuzzLaws::brokenByExchange(import.tracks(), exchangeFormat);
}

} // namespace

QString KRFuzzTargets::gpx(const QByteArray &file)
{
    QString broken = brokenByStream(file);
    if (!broken.isNull())
        return broken;

    const QFileInfo input = KRFuzzFile::write(QStringLiteral("input.gpx"), file);
    const QList<KRGPXTrack> tracks = KRGPXTrackFile(input).tracks();
    broken = KRFuzzLaws::brokenBySize(tracks, file.size());
    for (int i = 0; i < tracks.size() && broken.isNull(); ++i)
        broken = KRFuzzLaws::brokenByXml(tracks.at(i));
    return broken.isNull() ? brokenByImport(input, "gpx") : broken;
}

QString KRFuzzTargets::kml(const QByteArray &file)
{
    const QFileInfo input = KRFuzzFile::write(QStringLiteral("input.kml"), file);
    const KRGPXConfiguredTrackList tracks = KRTrackSelectionFactoryKmlFile().createConfiguredTrackList(input);
    QString broken = KRFuzzLaws::brokenBySize(KRFuzzLaws::tracksOf(tracks), file.size());
    for (int i = 0; i < tracks.size() && broken.isNull(); ++i)
        broken = KRFuzzLaws::brokenByXml(tracks.at(i).configuration());
    return broken.isNull() ? brokenByImport(input, "kml") : broken;
}

QString KRFuzzTargets::kmz(const QByteArray &file)
{
    const QFileInfo input = KRFuzzFile::write(QStringLiteral("input.kmz"), file);
    KRErrorHistory history;
    KRZIP archive(input, &history);
    if (!archive.open(KRZIP::read)) {
        if (history.isEmpty())
            return QStringLiteral("An archive that cannot be opened has a reason.");
    } else {
        const QStringList names = archive.getFileNameList();
        for (const QString &name : names) {
            const QByteArray content = archive.fileContent(name);
            if (content.isNull() && history.isEmpty())
                return QStringLiteral("An entry that cannot be read has a reason.");
            if (content.size()
                > std::max<qint64>(KRInputLimits::archiveFreeBytes, KRInputLimits::archiveRatio * file.size()))
                return QStringLiteral("An entry inflates to no more than the limit.");
        }
    }
    const KRGPXConfiguredTrackList tracks = KRTrackSelectionFactoryKmlFile().createConfiguredTrackList(input);
    const QString broken =
        KRFuzzLaws::brokenBySize(KRFuzzLaws::tracksOf(tracks), qint64(KRInputLimits::archiveEntryBytes));
    return broken.isNull() ? brokenByImport(input, "kmz") : broken;
}
