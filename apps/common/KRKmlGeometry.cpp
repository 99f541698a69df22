#include "KRKmlGeometry.h"

#include <algorithm>

namespace {

constexpr int mostPositionsForImporter = 100000;
constexpr int mostTextForImporter = 2000; // characters

} // namespace

KRKmlStyle::Use KRKmlGeometry::use() const
{
    if (kind == Point)
        return KRKmlStyle::UseForPoint;
    if (kind == Line)
        return parts.first().isClosed() ? KRKmlStyle::UseForClosedLine : KRKmlStyle::UseForLine;
    return KRKmlStyle::UseForArea;
}

bool KRKmlGeometry::isCompletedLater() const
{
    const bool hasTimes =
        std::any_of(parts.cbegin(), parts.cend(), [](const KRKmlCoordinates &part) { return part.hasTimes(); });
    // Of what the importer draws as one line only records have several parts, and these have times.
    return hasTimes || parts.first().count() > mostPositionsForImporter;
}

bool KRKmlGeometry::hasLongTexts() const
{
    return name.size() + description.size() > mostTextForImporter;
}

QList<KRGPXTrackSegment> KRKmlGeometry::segments() const
{
    QList<KRGPXTrackSegment> segments;
    for (const KRKmlCoordinates &part : kind == Area ? parts.mid(0, 1) : parts)
        segments.append(part.toSegment());
    return segments;
}

QList<KRGPXTrack> KRKmlGeometry::holes() const
{
    QList<KRGPXTrack> holes;
    for (int i = 1; i < parts.size(); ++i)
        holes.append(KRGPXTrack(name, description, {parts.at(i).toSegment()}, PolygonTrackShape));
    return holes;
}
