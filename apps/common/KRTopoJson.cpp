#include "KRTopoJson.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLatin1String>

#include <algorithm>

namespace {

QPointF pointOf(const QJsonValue &pair)
{
    const QJsonArray numbers = pair.toArray();
    return QPointF(numbers.at(0).toDouble(), numbers.at(1).toDouble());
}

QPolygonF decodedArc(const QJsonArray &deltas, const QPointF &scale, const QPointF &origin)
{
    QPolygonF arc;
    arc.reserve(deltas.size());
    QPointF quantised;
    for (const QJsonValue &delta : deltas) {
        quantised += pointOf(delta);
        arc << QPointF(quantised.x() * scale.x() + origin.x(), quantised.y() * scale.y() + origin.y());
    }
    return arc;
}

} // namespace

KRTopoJson KRTopoJson::parse(const QByteArray &json)
{
    const QJsonObject root = QJsonDocument::fromJson(json).object();
    const QJsonObject transform = root.value(QLatin1String("transform")).toObject();
    if (transform.isEmpty())
        return KRTopoJson();

    const QPointF scale = pointOf(transform.value(QLatin1String("scale")));
    const QPointF origin = pointOf(transform.value(QLatin1String("translate")));
    const QJsonArray arcs = root.value(QLatin1String("arcs")).toArray();
    KRTopoJson topology;
    topology.m_arcs.reserve(arcs.size());
    for (const QJsonValue &arc : arcs)
        topology.m_arcs << decodedArc(arc.toArray(), scale, origin);
    topology.m_objects = root.value(QLatin1String("objects")).toObject();
    return topology;
}

QVector<KRTopoJson::Feature> KRTopoJson::features(const QString &objectName) const
{
    QVector<Feature> features;
    readGeometry(m_objects.value(objectName).toObject(), &features);
    return features;
}

QPolygonF KRTopoJson::points(const Ring &ring) const
{
    QPolygonF points;
    for (const int entry : ring) {
        QPolygonF arc = m_arcs.at(arcIndex(entry));
        if (entry < 0)
            std::reverse(arc.begin(), arc.end());
        // Each arc begins where the one before it ended.
        if (!points.isEmpty())
            points.removeLast();
        points += arc;
    }
    return points;
}

void KRTopoJson::transformPoints(const std::function<QPointF(const QPointF &)> &transform)
{
    for (QPolygonF &arc : m_arcs)
        std::transform(arc.begin(), arc.end(), arc.begin(), transform);
}

KRTopoJson::Polygon KRTopoJson::readPolygon(const QJsonArray &rings) const
{
    Polygon polygon;
    for (const QJsonValue &entries : rings) {
        Ring ring;
        for (const QJsonValue &entry : entries.toArray()) {
            ring << entry.toInt();
            if (arcIndex(ring.last()) >= m_arcs.size())
                return Polygon();
        }
        polygon << ring;
    }
    return polygon;
}

void KRTopoJson::readGeometry(const QJsonObject &geometry, QVector<Feature> *features) const
{
    const QString type = geometry.value(QLatin1String("type")).toString();
    if (type == QLatin1String("GeometryCollection")) {
        for (const QJsonValue &member : geometry.value(QLatin1String("geometries")).toArray())
            readGeometry(member.toObject(), features);
        return;
    }

    Feature feature;
    const QJsonObject properties = geometry.value(QLatin1String("properties")).toObject();
    feature.name = properties.value(QLatin1String("name")).toString();
    const QJsonArray arcs = geometry.value(QLatin1String("arcs")).toArray();
    if (type == QLatin1String("Polygon")) {
        feature.polygons << readPolygon(arcs);
    } else if (type == QLatin1String("MultiPolygon")) {
        for (const QJsonValue &polygon : arcs)
            feature.polygons << readPolygon(polygon.toArray());
    }
    feature.polygons.removeAll(Polygon());
    if (!feature.polygons.isEmpty())
        *features << feature;
}
