#pragma once

#include "KRKmlPlacemarkReader.h"

class KRErrorHistory;

/**
 * Rewrites a KML document into what the importer reads completely: one flat "Document" of placemarks with one geometry
 * each, and the styles that they use.
 *
 * Real documents hold more: prefixes, placemarks outside of the one "Document", styles in folders and in placemarks,
 * style maps, several geometries in a placemark, areas with holes, records of journeys with times. All of them become
 * geometries, in the order of the document; what cannot be drawn goes to the report.
 */
class KRKmlPreparation
{
    Q_DECLARE_TR_FUNCTIONS(KRKmlPreparation)

public:
    /// @p fileName only names the document.
    explicit KRKmlPreparation(const QString &fileName) : m_fileName(fileName), m_report(fileName) { }

    /// False when the document cannot be read; the reason is reported then.
    bool read(const QByteArray &kml, KRErrorHistory *history);

    const QList<KRKmlGeometry> &geometries() const { return m_geometries; }
    const KRImportReport &report() const { return m_report; }

    /// A document with the geometries from @p first on, as many as are good to have in memory at once, at least one.
    /// Their number goes to @p count. Of geometries that are completed afterwards there is only the beginning.
    QString document(int first, int *count) const;

private:
    void readElement(KRXmlStream &stream);
    void readPlacemark(KRXmlStream &stream);
    bool readUndrawable(KRXmlStream &stream);

    QString m_fileName;
    KRKmlStyleTable m_styles;
    QList<KRKmlGeometry> m_geometries;
    int m_positionCount = 0;
    int m_countOfParts = 0; // holes and segments
    KRImportReport m_report;
};
