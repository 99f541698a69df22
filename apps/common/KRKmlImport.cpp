#include "KRKmlImport.h"

#include "KRKmzArchive.h"

#include <KRCore/KRFileHandler.h>
#include <KRCore/KRInputLimits.h>
#include <KRGeoLocation/KRTrackSelectionFactoryKmlFile.h>

#include <algorithm>

namespace {

/// Some archivers fill documents up with zero bytes; the importer reads up to the first one as well. In UTF-16 every
/// other byte is zero from the start.
QByteArray upToZeroByte(const QByteArray &kml)
{
    const int end = kml.indexOf('\0');
    return end > 3 ? kml.left(end) : kml;
}

} // namespace

bool KRKmlImport::supportsFile(const QFileInfo &file)
{
    return KRTrackSelectionFactoryKmlFile().supportsFile(file);
}

void KRKmlImport::read()
{
    const QByteArray kml = readDocument();
    if (kml.isNull())
        return;
    KRKmlPreparation preparation(m_file.filePath());
    if (!preparation.read(upToZeroByte(kml), &m_problems))
        return;
    m_preparation = preparation;
    m_report += preparation.report();
}

KRGPXConfiguredTrackList KRKmlImport::configuredTracks()
{
    const KRTrackSelectionFactoryKmlFile importer;
    logChoiceOf(importer);
    KRGPXConfiguredTrackList tracks;
    int count = 0;
    for (int first = 0; first < m_preparation.geometries().size(); first += count) {
        const KRGPXConfiguredTrackList part =
            importer.decode(m_preparation.document(first, &count), m_file.fileName(), &m_problems);
        for (int i = 0; i < std::min(int(part.size()), count); ++i)
            tracks.append(completed(part.at(i), m_preparation.geometries().at(first + i)));
    }
    return tracks;
}

QByteArray KRKmlImport::readDocument()
{
    if (m_file.suffix().compare(QLatin1String("kmz"), Qt::CaseInsensitive) == 0)
        return KRKmzArchive::read(m_file, &m_problems, &m_report);
    return KRFileHandler::readAll(m_file, &m_problems, KRInputLimits::documentBytes);
}

KRGPXConfiguredTrack KRKmlImport::completed(const KRGPXConfiguredTrack &track, const KRKmlGeometry &geometry)
{
    const bool hasHoles = geometry.kind == KRKmlGeometry::Area && geometry.parts.size() > 1;
    if (!hasHoles && !geometry.isCompletedLater() && !geometry.hasLongTexts())
        return track;

    // What the importer puts in place of an empty text stays.
    const auto textOr = [&](const QString &text, const QString &replacement) {
        return geometry.hasLongTexts() && !text.isEmpty() ? text : replacement;
    };
    KRGPXTrack complete = track.track();
    complete = KRGPXTrack(textOr(geometry.name, track.name()), textOr(geometry.description, track.description()),
                          geometry.isCompletedLater() ? geometry.segments() : complete.segments(), complete.shape());
    if (hasHoles) {
        const QList<KRGPXTrack> holes = geometry.holes();
        for (const KRGPXTrack &hole : holes)
            complete.addEnclave(hole);
    }
    // All points may suggest another shape than the first one does.
    KRGPXTrackConfiguration configuration = track.configuration();
    configuration.setTrackShape(AutoTrackShape);
    return KRGPXConfiguredTrack(complete, configuration);
}
