#pragma once

#include "KRImportReport.h"
#include "KRKmlFigure.h"

class KRXmlStream;

/**
 * Reads one KML "Placemark" into figures: one for each geometry that has a position.
 *
 * What it has to leave out goes to the report. Geometries are found at any depth, also in elements that KML does not
 * know, as the importer finds them; what describes something else ("ExtendedData", "LookAt") is passed over.
 */
class KRKmlPlacemarkReader
{
public:
    /// The stream stands at the "Placemark".
    KRKmlPlacemarkReader(KRXmlStream &stream, KRImportReport &report) : m_stream(stream), m_report(report) { }

    QList<KRKmlFigure> read();

private:
    using Rings = QList<KRKmlCoordinates>;

    void readChild();
    void readGeometry();
    void readPolygon();
    void readTrack(Rings *segments);
    void collectCoordinates(KRKmlCoordinates *coordinates);
    void collectRings(Rings *rings);
    void addFigure(KRKmlFigure::Geometry geometry, const QList<KRKmlCoordinates> &parts, int line);
    void reportFailures(int line);

    KRXmlStream &m_stream;
    KRImportReport &m_report;
    QString m_name;
    QString m_description;
    QString m_shape;
    KRKmlLook m_look;
    QDateTime m_time;
    QList<KRKmlFigure> m_figures;
    QList<KRKmlFigure> m_nestedFigures; // of placemarks inside this one
    // What was left out.
    QList<int> m_linesWithoutPosition;
    QList<int> m_linesOfModels;
    QList<KRImportReport::Item> m_unreadablePositions;
};
