#pragma once

#include <QJsonObject>
#include <QPolygonF>
#include <QString>
#include <QVector>

#include <functional>

class QByteArray;

/**
 * The polygons of a TopoJSON document, whose neighbours share their common lines as arcs.
 *
 * Positions are points with x = longitude and y = latitude in decimal degrees, as the document has them: nothing is
 * cut or unwrapped at 180 degrees. A ring is a list of arc numbers; the number ~n means arc n backwards. A document
 * that cannot be read has no arcs; rings that name unknown arcs are dropped with their polygon.
 */
class KRTopoJson
{
public:
    using Ring = QVector<int>;
    using Polygon = QVector<Ring>; ///< the outline and then the holes in it

    struct Feature {
        QString name; ///< empty where the document gives none
        QVector<Polygon> polygons;
    };

    static KRTopoJson parse(const QByteArray &json);

    bool isValid() const { return !m_arcs.isEmpty(); }

    /// The quantised deltas of the document decoded to positions.
    const QVector<QPolygonF> &arcs() const { return m_arcs; }
    /// The polygons of the object of that name, one feature for each of its geometries; empty when there is none.
    QVector<Feature> features(const QString &objectName) const;
    /// The arcs of a ring joined; the last point equals the first.
    QPolygonF points(const Ring &ring) const;

    /// Replaces each point of each arc, once, for example by its place on a map.
    void transformPoints(const std::function<QPointF(const QPointF &)> &transform);

    /// The arc that an entry of a ring stands for, whatever its direction.
    static int arcIndex(int entry) { return entry < 0 ? ~entry : entry; }

private:
    Polygon readPolygon(const QJsonArray &rings) const;
    void readGeometry(const QJsonObject &geometry, QVector<Feature> *features) const;

    QVector<QPolygonF> m_arcs;
    QJsonObject m_objects;
};
