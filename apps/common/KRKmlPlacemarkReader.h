#pragma once

#include "KRImportReport.h"
#include "KRKmlGeometry.h"

class KRXmlStream;

/**
 * Reads the geometries of one KML "Placemark", as far as they have a position.
 *
 * What it has to leave out goes to the report. Geometries are found at any depth, also in elements that KML does not
 * know, as the importer finds them; what describes something else ("ExtendedData", "LookAt") is passed over.
 */
class KRKmlPlacemarkReader
{
    Q_DECLARE_TR_FUNCTIONS(KRKmlPlacemarkReader)

public:
    /// The stream stands at the "Placemark". It refuses the document when @p allGeometries grows beyond KRInputLimits.
    /// @p countOfParts is that of the holes and segments in the whole document so far.
    KRKmlPlacemarkReader(KRXmlStream &stream, QList<KRKmlGeometry> *allGeometries, int *countOfParts,
                         KRImportReport *report)
        : m_stream(stream), m_allGeometries(allGeometries), m_countOfParts(countOfParts), m_report(report)
    { }

    /// Appends to all geometries, those of placemarks inside this one first.
    void read();

private:
    using Rings = QList<KRKmlCoordinates>;

    void readChild();
    void readGeometry();
    void readPolygon();
    void readTrack(Rings *segments);
    void collectCoordinates(KRKmlCoordinates *coordinates);
    void collectRings(Rings *rings);
    void addPart();
    void addGeometry(KRKmlGeometry::Kind kind, const QList<KRKmlCoordinates> &parts, int line);
    void reportFailures(int line);

    KRXmlStream &m_stream;
    QList<KRKmlGeometry> *const m_allGeometries;
    int *const m_countOfParts;
    KRImportReport *const m_report;
    QString m_name;
    QString m_description;
    QString m_shape;
    KRKmlLook m_look;
    KRGPXTime m_time;
    QList<KRKmlGeometry> m_geometries;
    // What was left out.
    QList<int> m_linesWithoutPosition;
    QList<int> m_linesOfModels;
    QList<KRImportReport::Item> m_unreadablePositions;
};
