#include "KRTopoJson.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLatin1String>
#include <QVarLengthArray>

#include <algorithm>
#include <cctype>
#include <charconv>

namespace {

QPointF pointOf(const QJsonValue &pair)
{
    const QJsonArray numbers = pair.toArray();
    return QPointF(numbers.at(0).toDouble(), numbers.at(1).toDouble());
}

/// Where the array begins that is the value of a member of the outermost object; -1 when there is none.
int arrayOfMember(const QByteArray &json, const QByteArray &quotedName)
{
    int depth = 0;
    for (int i = 0; i < json.size(); ++i) {
        const char character = json.at(i);
        if (character == '{' || character == '[') {
            ++depth;
        } else if (character == '}' || character == ']') {
            --depth;
        } else if (character == '"') {
            const int begin = i++;
            while (i < json.size() && json.at(i) != '"')
                i += json.at(i) == '\\' ? 2 : 1;
            if (depth != 1 || json.mid(begin, i + 1 - begin) != quotedName)
                continue;
            const int array = json.indexOf('[', i);
            if (json.mid(i + 1, array - i - 1).trimmed() == ":")
                return array;
        }
    }
    return -1;
}

/**
 * The lines of a document, read by hand: for so many arrays of two numbers QJsonDocument takes ten times as long as
 * for all else.
 */
class ArcsReader
{
public:
    /// Reads the array that begins at @p begin. False when it does not hold arrays of positions.
    bool read(const QByteArray &json, int begin)
    {
        const char *const end = json.constData() + json.size();
        const char *at = json.constData() + begin;
        int depth = 0;
        do {
            if (*at == '[') {
                open(++depth);
            } else if (*at == ']') {
                if (!close(depth--))
                    return false;
            } else if (*at != ',' && !std::isspace(static_cast<unsigned char>(*at))) {
                double number = 0.0;
                const std::from_chars_result result = std::from_chars(at, end, number);
                if (result.ec != std::errc() || depth != depthOfPositions)
                    return false;
                m_numbers.append(number);
                at = result.ptr - 1;
            }
            ++at;
        } while (depth > 0 && at < end);
        m_end = int(at - json.constData());
        return depth == 0;
    }

    /// Of the array, behind its bracket.
    int end() const { return m_end; }

    QVector<QPolygonF> arcs(const QPointF &scale, const QPointF &origin) const
    {
        QVector<QPolygonF> arcs = m_quantisedArcs;
        for (QPolygonF &arc : arcs) {
            for (QPointF &point : arc)
                point = QPointF(point.x() * scale.x() + origin.x(), point.y() * scale.y() + origin.y());
        }
        return arcs;
    }

private:
    static constexpr int depthOfArcs = 2;
    static constexpr int depthOfPositions = 3;

    void open(int depth)
    {
        if (depth == depthOfArcs)
            m_quantisedArcs.append(QPolygonF());
        m_numbers.clear();
    }

    bool close(int depth)
    {
        if (depth != depthOfPositions)
            return depth < depthOfPositions;
        if (m_numbers.size() < 2)
            return false;
        QPolygonF &arc = m_quantisedArcs.last();
        const QPointF before = arc.isEmpty() ? QPointF() : arc.last();
        arc.append(before + QPointF(m_numbers.at(0), m_numbers.at(1)));
        return true;
    }

    QVector<QPolygonF> m_quantisedArcs;
    QVarLengthArray<double, 4> m_numbers;
    int m_end = 0;
};

} // namespace

KRTopoJson KRTopoJson::parse(const QByteArray &json)
{
    ArcsReader reader;
    const int begin = arrayOfMember(json, QByteArrayLiteral("\"arcs\""));
    if (begin < 0 || !reader.read(json, begin))
        return KRTopoJson();
    const QByteArray rest = json.left(begin) + "[]" + json.mid(reader.end());
    const QJsonObject root = QJsonDocument::fromJson(rest).object();
    const QJsonObject transform = root.value(QLatin1String("transform")).toObject();
    if (transform.isEmpty())
        return KRTopoJson();

    KRTopoJson topology;
    topology.m_arcs = reader.arcs(pointOf(transform.value(QLatin1String("scale"))),
                                  pointOf(transform.value(QLatin1String("translate"))));
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
        for (const auto &entry : entries.toArray()) {
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
        for (const auto &member : geometry.value(QLatin1String("geometries")).toArray())
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
