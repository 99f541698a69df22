#pragma once

#include "KRLabelRoom.h"
#include "KRMapLabel.h"

#include <QPointF>
#include <QPolygonF>
#include <QString>
#include <QVector>

class KRBaseMapView;
struct KRBaseMapCountry;
class KRMapLabelBoard;

/**
 * Writes the names of the countries that a view shows, large ones first.
 *
 * A name stands inside the part of its country that is in view, in one to three lines; the size of its letters
 * follows the size of that part. Where it does not fit, it may reach a little beyond a border, and the name of an
 * island far out into the sea; else it is left out.
 */
class KRBaseMapCountryLabels
{
public:
    enum Language { English, German };

    KRBaseMapCountryLabels(const KRBaseMapView &view, Language language);

    void addTo(KRMapLabelBoard *board) const;

private:
    struct Part {
        QPolygonF shape;
        double area; ///< in square pixels
    };
    struct Name {
        QString text;
        double area; ///< in square pixels of a normal screen
        bool isIsland;
        KRLabelRoom room;
        QPointF wanted; ///< where its centre would best be
    };

    QVector<Part> partsToName(const KRBaseMapCountry &country, const KRBaseMapView &view) const;
    void addName(const KRBaseMapCountry &country, const Part &part, const QRectF &map, Language language);

    /// A null text when the name has too few words for so many lines.
    KRMapLabel labelFor(const Name &name, int lineCount, double shrink) const;
    bool tryAddInside(const Name &name, KRMapLabelBoard *board) const;
    bool tryAddAcross(const Name &name, KRMapLabelBoard *board) const;
    bool tryAddBeside(const Name &name, KRMapLabelBoard *board) const;

    double m_factor;
    double m_pixelsPerDegree; ///< of a normal screen
    QVector<Name> m_names;
};
