#include "KRBaseMapData.h"

#include <KRCore/KRMath.h>
#include <KRGeoLocation/KRMapProjection.h>
#include <KRGeoLocation/KRVectorRegisters.h>

#include <QFile>
#include <QHash>
#include <QPair>
#include <QSize>
#include <QStringList>

#include <algorithm>

/// The linker drops the resources of a static library unless somebody asks for them; outside of any namespace.
static void initializeBaseMapResources()
{
    Q_INIT_RESOURCE(basemap);
}

namespace {

using KRCountryNames = QPair<QString, QString>; ///< English, German

QByteArray resource(const QString &name)
{
    QFile file(QStringLiteral(":/basemap/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// By the name that the map data use.
QHash<QString, KRCountryNames> readCountryNames()
{
    QHash<QString, KRCountryNames> names;
    const QStringList lines = QString::fromUtf8(resource(QStringLiteral("country-names.tsv"))).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QStringList fields = line.split(QLatin1Char('\t'));
        if (fields.size() == 3)
            names.insert(fields.at(0), {fields.at(1), fields.at(2)});
    }
    return names;
}

/// Latitudes beyond the map come to lie on its edge.
void normalizePoints(KRTopoJson *topology)
{
    // Somebody has most likely begun to paint, and asked for the data then.
    KRVectorRegisters::releaseUpperHalves();
    // For its formulas, which are the same for every area.
    const KRMapProjection projection(KRGeoPositionRect(KRLatitudeRange(-1.0, 1.0), KRLongitudeRange(-1.0, 1.0)),
                                     QSize(1, 1));
    topology->transformPoints([&](const QPointF &position) {
        return QPointF(projection.longitudeToNormalized(position.x()),
                       qBound(0.0, projection.latitudeToNormalized(position.y()), 1.0));
    });
}

/// The data close Antarctica by a ring that runs along the pole and encloses nothing.
bool liesOnTheEdge(const QPolygonF &points)
{
    return std::all_of(points.begin(), points.end(), [](const QPointF &point) { return point.y() >= 1.0; });
}

bool liesOnTheDateLine(const QPointF &a, const QPointF &b)
{
    const auto isOnIt = [](const QPointF &point) {
        return KRMath::epsilonEqual(point.x(), 0.0, 1e-8) || KRMath::epsilonEqual(point.x(), 1.0, 1e-8);
    };
    return isOnIt(a) && isOnIt(b);
}

/// The pieces of a coast between the cuts along the date line.
QVector<QPolygonF> withoutCuts(const QPolygonF &coast)
{
    QVector<QPolygonF> pieces(1);
    for (int i = 0; i < coast.size(); ++i) {
        if (i > 0 && liesOnTheDateLine(coast.at(i - 1), coast.at(i)))
            pieces << QPolygonF();
        pieces.last() << coast.at(i);
    }
    pieces.erase(std::remove_if(pieces.begin(), pieces.end(), [](const QPolygonF &piece) { return piece.size() < 2; }),
                 pieces.end());
    return pieces;
}

/// How many of the countries have the arc, by its number.
QVector<int> countUses(const KRTopoJson &topology, const QVector<KRTopoJson::Feature> &countries)
{
    QVector<int> uses(topology.arcs().size(), 0);
    for (const KRTopoJson::Feature &country : countries) {
        for (const KRTopoJson::Polygon &polygon : country.polygons) {
            for (const KRTopoJson::Ring &ring : polygon) {
                for (const int entry : ring)
                    ++uses[KRTopoJson::arcIndex(entry)];
            }
        }
    }
    return uses;
}

} // namespace

KRBaseMapData::KRBaseMapData()
{
    initializeBaseMapResources();
    KRTopoJson topology = KRTopoJson::parse(resource(QStringLiteral("countries-50m.json")));
    normalizePoints(&topology);
    const QVector<KRTopoJson::Feature> countries = topology.features(QStringLiteral("countries"));
    const QVector<int> countriesAtArc = countUses(topology, countries);
    readLand(topology);
    readLines(topology, countriesAtArc);
    readCountries(topology, countries, countriesAtArc);
}

void KRBaseMapData::readLand(const KRTopoJson &topology)
{
    for (const KRTopoJson::Feature &feature : topology.features(QStringLiteral("land"))) {
        for (const KRTopoJson::Polygon &polygon : feature.polygons) {
            for (const KRTopoJson::Ring &ring : polygon) {
                const QPolygonF points = topology.points(ring);
                if (!liesOnTheEdge(points))
                    m_land << KRBaseMapPath::ring(points);
            }
        }
    }
}

void KRBaseMapData::readLines(const KRTopoJson &topology, const QVector<int> &countriesAtArc)
{
    for (int i = 0; i < countriesAtArc.size(); ++i) {
        const QPolygonF &arc = topology.arcs().at(i);
        if (countriesAtArc.at(i) >= 2) {
            m_borders << KRBaseMapPath::line(arc);
        } else if (countriesAtArc.at(i) == 1 && !liesOnTheEdge(arc)) {
            for (const QPolygonF &piece : withoutCuts(arc))
                m_coasts << KRBaseMapPath::line(piece);
        }
    }
}

void KRBaseMapData::readCountries(const KRTopoJson &topology, const QVector<KRTopoJson::Feature> &features,
                                  const QVector<int> &countriesAtArc)
{
    const QHash<QString, KRCountryNames> names = readCountryNames();
    for (const KRTopoJson::Feature &feature : features) {
        const KRCountryNames name = names.value(feature.name, {feature.name, feature.name});
        KRBaseMapCountry country;
        country.englishName = name.first;
        country.germanName = name.second;
        for (const KRTopoJson::Polygon &polygon : feature.polygons) {
            for (const KRTopoJson::Ring &ring : polygon) {
                for (const int entry : ring)
                    country.isIsland = country.isIsland && countriesAtArc.at(KRTopoJson::arcIndex(entry)) == 1;
            }
            // Not simply the first ring: that of Antarctica is the line along the edge.
            const auto outline = std::find_if(polygon.begin(), polygon.end(), [&](const KRTopoJson::Ring &ring) {
                return !liesOnTheEdge(topology.points(ring));
            });
            if (outline != polygon.end())
                country.outlines << KRBaseMapPath::ring(topology.points(*outline));
        }
        m_countries << country;
    }
}
