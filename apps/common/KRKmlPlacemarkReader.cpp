#include "KRKmlPlacemarkReader.h"

#include "KRKmlCoordinatesReader.h"
#include "KRXmlStream.h"

#include <KRCore/KRInputLimits.h>

#include <algorithm>
#include <numeric>

namespace {

constexpr int longestShape = 200; // characters of all keys together

/// Elements of a placemark that hold no geometry of it, but perhaps something that looks like one.
bool isAside(const KRXmlStream &stream)
{
    return stream.isAt("ExtendedData") || stream.isAt("Metadata") || stream.isAt("Region") || stream.isAt("LookAt")
           || stream.isAt("Camera") || stream.isAt("BalloonStyle");
}

void closeRings(QList<KRKmlCoordinates> *rings)
{
    for (KRKmlCoordinates &ring : *rings)
        ring.close();
}

} // namespace

void KRKmlPlacemarkReader::read()
{
    const int line = m_stream.line();
    while (m_stream.readNextChild())
        readChild();
    for (KRKmlGeometry &geometry : m_geometries) {
        geometry.name = m_name;
        geometry.description = m_description;
        geometry.look = m_look;
        if (geometry.kind == KRKmlGeometry::NamedShape)
            geometry.shape = m_shape;
        if (geometry.kind == KRKmlGeometry::Point && m_time.isValid())
            geometry.parts.first().setTime(m_time);
    }
    reportFailures(line);
    *m_allGeometries += m_geometries;
}

void KRKmlPlacemarkReader::readChild()
{
    if (m_stream.isAt("name")) {
        m_name = m_stream.readText().trimmed();
    } else if (m_stream.isAt("description")) {
        m_description = m_stream.readText().trimmed();
    } else if (m_stream.isAt("styleUrl")) {
        m_look.reference = KRKmlStyleTable::readReference(m_stream);
    } else if (KRKmlStyleTable::isStyle(m_stream)) {
        const KRKmlLook look = KRKmlStyleTable::readLook(m_stream);
        if (!look.reference.isEmpty())
            m_look.reference = look.reference;
        m_look.style.override(look.style);
    } else if (m_stream.isAt("TimeStamp")) {
        while (m_stream.readNextChild())
            m_time = m_stream.readTime();
    } else if (m_stream.isAt("shape")) {
        m_shape = m_stream.readText().left(longestShape);
    } else {
        readGeometry();
    }
}

/// Reads the current element, whatever it is.
void KRKmlPlacemarkReader::readGeometry()
{
    const int line = m_stream.line();
    if (m_stream.isAt("Polygon")) {
        readPolygon();
    } else if (m_stream.isAt("Track")) {
        Rings segments;
        readTrack(&segments);
        addGeometry(KRKmlGeometry::Line, segments, line);
    } else if (m_stream.isAt("MultiTrack")) {
        Rings segments;
        while (m_stream.readNextChild()) {
            if (m_stream.isAt("Track"))
                readTrack(&segments);
            else
                m_stream.skipElement();
        }
        addGeometry(KRKmlGeometry::Line, segments, line);
    } else if (m_stream.isAt("Point") || m_stream.isAt("LineString") || m_stream.isAt("LinearRing")
               || m_stream.isAt("coordinates")) {
        const KRKmlGeometry::Kind kind = m_stream.isAt("Point")         ? KRKmlGeometry::Point
                                         : m_stream.isAt("coordinates") ? KRKmlGeometry::NamedShape
                                                                        : KRKmlGeometry::Line;
        KRKmlCoordinates coordinates;
        collectCoordinates(&coordinates);
        addGeometry(kind, {coordinates}, line);
    } else if (m_stream.isAt("Model")) {
        m_linesOfModels.append(line);
        m_stream.skipElement();
    } else if (m_stream.isAt("Placemark")) {
        KRKmlPlacemarkReader(m_stream, m_allGeometries, m_countOfParts, m_report).read();
    } else if (isAside(m_stream)) {
        m_stream.skipElement();
    } else {
        while (m_stream.readNextChild())
            readGeometry();
    }
}

void KRKmlPlacemarkReader::readPolygon()
{
    const int line = m_stream.line();
    Rings outlines;
    Rings holes;
    while (m_stream.readNextChild())
        collectRings(m_stream.isAt("innerBoundaryIs") ? &holes : &outlines);
    closeRings(&outlines);
    closeRings(&holes);
    // What is no ring encloses nothing.
    const auto firstRing = std::stable_partition(holes.begin(), holes.end(),
                                                 [](const KRKmlCoordinates &hole) { return !hole.isClosed(); });
    const int unreadableCount = std::accumulate(holes.begin(), firstRing, 0, [](int sum, const KRKmlCoordinates &hole) {
        return sum + hole.unreadableCount();
    });
    if (unreadableCount > 0)
        m_unreadablePositions.append({KRImportReport::UnreadablePosition, line, QString(), unreadableCount});
    holes.erase(holes.begin(), firstRing);

    if (outlines.isEmpty())
        addGeometry(KRKmlGeometry::Area, {}, line);
    for (int i = 0; i < outlines.size(); ++i)
        addGeometry(KRKmlGeometry::Area, Rings{outlines.at(i)} + (i == 0 ? holes : Rings()), line);
}

/// Times and positions belong together in their order, however they are mixed.
void KRKmlPlacemarkReader::readTrack(Rings *segments)
{
    addPart();
    QVector<KRGPXTime> times;
    QStringList positions;
    while (m_stream.readNextChild()) {
        if (m_stream.isAt("when"))
            times.append(m_stream.readTime());
        else if (m_stream.isAt("coord"))
            positions.append(m_stream.readText());
        else
            m_stream.skipElement();
    }
    KRKmlCoordinates segment;
    for (int i = 0; i < positions.size(); ++i)
        segment.appendTrackPosition(positions.at(i), times.value(i));
    segments->append(segment);
}

/// Reads all "coordinates" in the current element, which may be one itself.
void KRKmlPlacemarkReader::collectCoordinates(KRKmlCoordinates *coordinates)
{
    if (!m_stream.isAt("coordinates")) {
        while (m_stream.readNextChild())
            collectCoordinates(coordinates);
        return;
    }
    KRKmlCoordinatesReader reader(coordinates);
    m_stream.readText([&reader](QStringView piece) { reader.read(piece); });
    reader.finish();
}

/// The same with each "coordinates" apart.
void KRKmlPlacemarkReader::collectRings(Rings *rings)
{
    if (m_stream.isAt("coordinates")) {
        addPart();
        rings->append(KRKmlCoordinates());
        collectCoordinates(&rings->last());
        return;
    }
    while (m_stream.readNextChild())
        collectRings(rings);
}

void KRKmlPlacemarkReader::addPart()
{
    if (++*m_countOfParts > KRInputLimits::geometryParts)
        m_stream.refuse(tr("Die Datei hat mehr als %1 Löcher und Segmente.").arg(KRInputLimits::geometryParts));
}

void KRKmlPlacemarkReader::addGeometry(KRKmlGeometry::Kind kind, const QList<KRKmlCoordinates> &parts, int line)
{
    KRKmlGeometry geometry;
    geometry.kind = kind;
    int unreadableCount = 0;
    for (const KRKmlCoordinates &part : parts) {
        unreadableCount += part.unreadableCount();
        if (!part.isEmpty())
            geometry.parts.append(part);
    }
    // Holes without an outline are no area.
    if (geometry.parts.isEmpty() || (kind == KRKmlGeometry::Area && parts.first().isEmpty())) {
        m_linesWithoutPosition.append(line);
        return;
    }
    if (unreadableCount > 0)
        m_unreadablePositions.append({KRImportReport::UnreadablePosition, line, QString(), unreadableCount});
    m_geometries.append(geometry);
    if (m_allGeometries->size() + m_geometries.size() > KRInputLimits::geometries)
        m_stream.refuse(tr("Die Datei hat mehr als %1 Geometrien.").arg(KRInputLimits::geometries));
}

void KRKmlPlacemarkReader::reportFailures(int line)
{
    for (const int place : std::as_const(m_linesOfModels))
        m_report->add(KRImportReport::Model, place, m_name);
    for (const KRImportReport::Item &positions : std::as_const(m_unreadablePositions))
        m_report->add(positions.kind, positions.line, m_name, positions.count);
    if (m_geometries.isEmpty() && !m_linesWithoutPosition.isEmpty()) {
        m_report->add(KRImportReport::PlacemarkWithoutPosition, line, m_name);
    } else if (m_geometries.isEmpty() && m_linesOfModels.isEmpty()) {
        m_report->add(KRImportReport::PlacemarkWithoutGeometry, line, m_name);
    } else {
        for (const int place : std::as_const(m_linesWithoutPosition))
            m_report->add(KRImportReport::GeometryWithoutPosition, place, m_name);
    }
}
