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
    Q_DECLARE_TR_FUNCTIONS(KRKmlPlacemarkReader)

public:
    /// The stream stands at the "Placemark". It refuses the document when @p allFigures grows beyond KRInputLimits.
    KRKmlPlacemarkReader(KRXmlStream &stream, QList<KRKmlFigure> *allFigures, KRImportReport *report)
        : m_stream(stream), m_allFigures(allFigures), m_report(report)
    { }

    /// Appends to all figures, first those of placemarks inside this one.
    void read();

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
    QList<KRKmlFigure> *const m_allFigures;
    KRImportReport *const m_report;
    QString m_name;
    QString m_description;
    QString m_shape;
    KRKmlLook m_look;
    QDateTime m_time;
    QList<KRKmlFigure> m_figures;
    // What was left out.
    QList<int> m_linesWithoutPosition;
    QList<int> m_linesOfModels;
    QList<KRImportReport::Item> m_unreadablePositions;
};
