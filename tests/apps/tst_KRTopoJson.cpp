#include "KRTopoJson.h"

#include "KRTestRegistry.h"

#include <QtTest>

class tst_KRTopoJson : public QObject
{
    Q_OBJECT

private slots:
    void decodesQuantisedArcs();
    void joinsArcsOfNeighbours();
    void dropsPolygonsWithUnknownArcs();
    void findsTheArcsOfTheDocument_data();
    void findsTheArcsOfTheDocument();

private:
    static KRTopoJson twoSquares();
};

/// West and east square of 10 degrees; arc 0 is the line between them from south to north.
KRTopoJson tst_KRTopoJson::twoSquares()
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

void tst_KRTopoJson::decodesQuantisedArcs()
{
    KRTopoJson topology = twoSquares();
    QCOMPARE(topology.arcs().size(), 3);
    QCOMPARE(topology.arcs().at(1), QPolygonF({{0, 50}, {-10, 50}, {-10, 40}, {0, 40}}));
    topology.transformPoints([](const QPointF &point) { return QPointF(point.y(), 2.0 * point.x()); });
    QCOMPARE(topology.arcs().at(1), QPolygonF({{50, 0}, {50, -20}, {40, -20}, {40, 0}}));
}

void tst_KRTopoJson::joinsArcsOfNeighbours()
{
    const KRTopoJson topology = twoSquares();
    QCOMPARE(topology.points({0, 1}), QPolygonF({{0, 40}, {0, 50}, {-10, 50}, {-10, 40}, {0, 40}}));
    QCOMPARE(topology.points({~2, ~0}), QPolygonF({{0, 40}, {10, 40}, {10, 50}, {0, 50}, {0, 40}}));
}

void tst_KRTopoJson::dropsPolygonsWithUnknownArcs()
{
    const QVector<KRTopoJson::Feature> features = twoSquares().features(QStringLiteral("countries"));
    QCOMPARE(features.size(), 2);
    QCOMPARE(features.at(0).name, QStringLiteral("West"));
    QCOMPARE(features.at(1).name, QStringLiteral("East"));
    QCOMPARE(features.at(1).polygons.size(), 1);
    QVERIFY(twoSquares().features(QStringLiteral("rivers")).isEmpty());
}

void tst_KRTopoJson::findsTheArcsOfTheDocument_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QPolygonF>("arc"); // empty for a document that cannot be read
    const QPolygonF line(QVector<QPointF>{{1, 2}, {1.5, -2}});
    QTest::newRow("blanks") << QByteArray("\"arcs\" :\n[ [ [1, 2], [ 5e-1 ,-4 ] ] ]") << line;
    QTest::newRow("heights") << QByteArray("\"arcs\":[[[1,2,9],[0.5,-4,9]]]") << line;
    QTest::newRow("other members of that name") << QByteArray(
        "\"objects\":{\"arcs\":[[[7]]]},\"a\":\"arcs\",\"b\":[3],\"q\\\"arcs\":0,\"arcs\":[[[1,2],[0.5,-4]]]")
                                                << line;
    QTest::newRow("none") << QByteArray("\"b\":[]") << QPolygonF();
    QTest::newRow("no array") << QByteArray("\"arcs\":7,\"b\":[[[1,2],[0.5,-4]]]") << QPolygonF();
    QTest::newRow("half a position") << QByteArray("\"arcs\":[[[1,2],[0.5]]]") << QPolygonF();
    QTest::newRow("no numbers") << QByteArray("\"arcs\":[[[1,2],[true,false]]]") << QPolygonF();
    QTest::newRow("too deep") << QByteArray("\"arcs\":[[[[1,2]],[[0.5,-4]]]]") << QPolygonF();
    QTest::newRow("cut off") << QByteArray("\"arcs\":[[[1,2],[0.5,-4]]") << QPolygonF();
}

void tst_KRTopoJson::findsTheArcsOfTheDocument()
{
    QFETCH(QByteArray, members);
    const QByteArray transform("{\"transform\":{\"scale\":[1,1],\"translate\":[0,0]},");
    QTEST(KRTopoJson::parse(transform + members + '}').arcs().value(0), "arc");
}

static const KRTestRegistration<tst_KRTopoJson> registration;

#include "tst_KRTopoJson.moc"
