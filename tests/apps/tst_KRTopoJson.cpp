#include "KRTopoJson.h"

#include "KRTest.h"

class tst_KRTopoJson : public QObject
{
    Q_OBJECT

private slots:
    void decodesArcsAndFeatures()
    {
        KRTopoJson topology = twoSquares();
        QCOMPARE(topology.arcs().size(), 3);
        QCOMPARE(topology.arcs().at(1), QPolygonF({{0, 50}, {-10, 50}, {-10, 40}, {0, 40}}));
        topology.transformPoints([](const QPointF &point) { return QPointF(point.y(), 2.0 * point.x()); });
        QCOMPARE(topology.arcs().at(1), QPolygonF({{50, 0}, {50, -20}, {40, -20}, {40, 0}}));

        topology = twoSquares();
        QCOMPARE(topology.points({0, 1}), QPolygonF({{0, 40}, {0, 50}, {-10, 50}, {-10, 40}, {0, 40}}));
        QCOMPARE(topology.points({~2, ~0}), QPolygonF({{0, 40}, {10, 40}, {10, 50}, {0, 50}, {0, 40}}));

        // Polygons with unknown arcs are dropped.
        const QVector<KRTopoJson::Feature> features = topology.features(QStringLiteral("countries"));
        QCOMPARE(features.size(), 2);
        QCOMPARE(features.at(0).name, QStringLiteral("West"));
        QCOMPARE(features.at(1).name, QStringLiteral("East"));
        QCOMPARE(features.at(1).polygons.size(), 1);
        QVERIFY(topology.features(QStringLiteral("rivers")).isEmpty());
    }

    void findsTheArcsOfTheDocument()
    {
        const QPolygonF line(QVector<QPointF>{{1, 2}, {1.5, -2}});
        // arc: empty for a document that cannot be read
        const KRTestTable<QByteArray, QPolygonF> table{
            {"blanks", "\"arcs\" :\n[ [ [1, 2], [ 5e-1 ,-4 ] ] ]", line},
            {"other members of that name",
             QByteArray(
                 "\"objects\":{\"arcs\":[[[7]]]},\"a\":\"arcs\",\"b\":[3],\"q\\\"arcs\":0,\"arcs\":[[[1,2],[0.5,-4]]]"),
             line},
            {"no array", "\"arcs\":7,\"b\":[[[1,2],[0.5,-4]]]", QPolygonF()},
            {"half a position", "\"arcs\":[[[1,2],[0.5]]]", QPolygonF()},
            {"too deep", "\"arcs\":[[[[1,2]],[[0.5,-4]]]]", QPolygonF()},
            {"cut off", "\"arcs\":[[[1,2],[0.5,-4]]", QPolygonF()},
        };
        table.forEach([&](const QByteArray &members, const QPolygonF &arc) {
            const QByteArray transform("{\"transform\":{\"scale\":[1,1],\"translate\":[0,0]},");
            QCOMPARE(KRTopoJson::parse(transform + members + '}').arcs().value(0), arc);
        });
    }

private:
    /// West and east square of 10 degrees; arc 0 is the line between them from south to north.
    static KRTopoJson twoSquares()
    {
        return KRTopoJson::parse(R"({
        "type": "Topology",
        "transform": {"scale": [0.1, 0.5], "translate": [-10, 40]},
        "arcs": [[[100, 0], [0, 20]], [[100, 20], [-100, 0], [0, -20], [100, 0]], [[100, 20], [100, 0], [0, -20], [-100, 0]]],
        "objects": {"countries": {"type": "GeometryCollection", "geometries": [
            {"type": "Polygon", "arcs": [[0, 1]], "properties": {"name": "West"}},
            {"type": "MultiPolygon", "arcs": [[[2, 0]], [[7, 0]]], "properties": {"name": "East"}},
            {"type": "Polygon", "arcs": [[-9, 0]], "properties": {"name": "Broken"}},
            {"type": "Point", "coordinates": [1, 2]}
        ]}}})");
    }
};

template class KRTestRegistration<tst_KRTopoJson>;

#include "tst_KRTopoJson.moc"
