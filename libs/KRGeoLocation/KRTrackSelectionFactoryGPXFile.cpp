#include "KRTrackSelectionFactoryGPXFile.h"

#include "KRGPXTrackFile.h"
#include "KRGeoLocationSettings.h"

#include <QFileInfo>
#include <QUrl>

bool KRTrackSelectionFactoryGPXFile::supportsFile(const QUrl &url) const
{
    return supportsFile(QFileInfo(url.toLocalFile()));
}

QStringList KRTrackSelectionFactoryGPXFile::supportedFileFormats() const
{
    return {QStringLiteral("*.gpx")};
}

KRGPXConfiguredTrackList KRTrackSelectionFactoryGPXFile::createConfiguredTrackList(const QUrl &url) const
{
    return createConfiguredTrackList(QFileInfo(url.toLocalFile()));
}

bool KRTrackSelectionFactoryGPXFile::supportsFile(const QFileInfo &file) const
{
    return file.suffix().compare(QLatin1String("gpx"), Qt::CaseInsensitive) == 0;
}

KRGPXConfiguredTrackList KRTrackSelectionFactoryGPXFile::createConfiguredTrackList(const QFileInfo &file) const
{
    KRGPXConfiguredTrackList list;
    const QList<KRGPXTrack> tracks = KRGPXTrackFile(file).tracks();
    for (const KRGPXTrack &track : tracks)
        list.append(KRGPXConfiguredTrack(track, KRGeoLocationSettings::instance()->defaultTrackConfiguration()));
    return list;
}
