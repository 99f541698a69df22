#include <KRGeoLocation/KRGPXMarkerShape.h>
#include <KRGeoLocation/KRGPXTrackDisplayOptions.h>
#include <KRGeoLocation/KRGPXTrackShape.h>

#include "KRRecordingTranslator.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"
#include "KRTestXml.h"

#include <QtTest>

using KRTestXml::element;

namespace {

const auto numberWithoutShape = static_cast<KRGPXTrackShapeEnum>(3);

} // namespace

class tst_KRGPXTrackShape : public QObject
{
    Q_OBJECT

private slots:
    void decodeKml();
    void xml();
    void displayOptionsXml();
    void choices();
    void texts();
    void textsBelongToTheClass();
};

void tst_KRGPXTrackShape::decodeKml()
{
    const KRTestTable<QByteArray, KRGPXTrackShapeEnum> table{
        {"polygon before point", "<p><Point/><Polygon/></p>", PolygonTrackShape},
        {"line before point", "<p><Point/><LineString/></p>", LineStringTrackShape},
        {"point before keys", "<p><shape>hop</shape><Point/></p>", PointTrackShape},
        {"keys", "<p><shape>point,hop</shape></p>", numberWithoutShape},
        {"empty keys", "<p><shape/></p>", UnknownTrackShape},
        {"only children count", "<p><MultiGeometry><Point/></MultiGeometry></p>", AutoTrackShape},
        {"a prefixed name is another name", "<p><kml:Point/></p>", AutoTrackShape},
        {"nothing", "<p/>", AutoTrackShape},
    };
    table.forEach([](const QByteArray &placemark, KRGPXTrackShapeEnum expected) {
        QCOMPARE(KRGPXTrackShape::decodeKml(element(placemark)).value(), expected);
    });
}

void tst_KRGPXTrackShape::xml()
{
    const KRTestTable<KRGPXTrackShapeEnum, QString> table{
        {"point", PointTrackShape, QStringLiteral("point")},
        {"hop", HopTrackShape, QStringLiteral("hop")},
        {"line", LineStringTrackShape, QStringLiteral("linestring")},
        {"area", PolygonTrackShape, QStringLiteral("polygon")},
        {"auto", AutoTrackShape, QStringLiteral("auto")},
        {"unknown is written as nothing", UnknownTrackShape, {}},
        {"two bits", static_cast<KRGPXTrackShapeEnum>(6), QStringLiteral("linestring,hop")},
    };
    table.forEach([](KRGPXTrackShapeEnum shape, const QString &text) {
        QDomElement parent = element("<configuration/>");
        QCOMPARE(KRGPXTrackShape::fromXml(parent), KRGPXTrackShape(AutoTrackShape));
        KRGPXTrackShape(shape).toXml(parent);
        QCOMPARE(parent.firstChildElement(QStringLiteral("trackShape")).text(), text);
        QCOMPARE(KRGPXTrackShape::fromXml(parent).value(), shape);
        QCOMPARE(KRGPXTrackShape(QStringLiteral("unknown")), KRGPXTrackShape(UnknownTrackShape));
    });
}

void tst_KRGPXTrackShape::displayOptionsXml()
{
    const auto both = static_cast<KRGPXTrackDisplayOptionsEnum>(StrokeDisplayOption | FillDisplayOption);
    const QString strokeFill = QStringLiteral("stroke,fill");
    const KRTestTable<QByteArray, KRGPXTrackDisplayOptionsEnum, QString> table{
        {"missing", "<c/>", StrokeDisplayOption, QStringLiteral("stroke")},
        {"empty", "<c><displayOptions/></c>", NoDisplayOption, {}},
        {"both", "<c><displayOptions>stroke,fill</displayOptions></c>", both, strokeFill},
        {"turned round", "<c><displayOptions>fill,stroke</displayOptions></c>", both, strokeFill},
        {"unknown key", "<c><displayOptions>dots,fill</displayOptions></c>", FillDisplayOption, QStringLiteral("fill")},
    };
    table.forEach([](const QByteArray &xml, KRGPXTrackDisplayOptionsEnum expected, const QString &text) {
        const auto options = KRGPXTrackDisplayOptions::fromXml(element(xml));
        QCOMPARE(options.value(), expected);
        QDomElement parent = element("<c/>");
        options.write(parent);
        QCOMPARE(parent.firstChildElement(QStringLiteral("displayOptions")).text(), text);
    });
}

void tst_KRGPXTrackShape::choices()
{
    using Shapes = QVector<KRGPXTrackShapeEnum>;
    const KRTestTable<KRGPXTrackShapeEnum, QVector<KRGPXTrackShapeEnum>, int, int> table{
        {"point", PointTrackShape, Shapes{PointTrackShape}, 7, 9},
        {"hop", HopTrackShape, Shapes{HopTrackShape}, 5, 1},
        {"line", LineStringTrackShape, Shapes{PolygonTrackShape, LineStringTrackShape}, 1, 2},
        {"area", PolygonTrackShape, Shapes{PointTrackShape, PolygonTrackShape}, 3, 1},
        {"auto", AutoTrackShape, Shapes(), 0, 1},
        {"unknown", UnknownTrackShape, Shapes(), 0, 1},
        {"no shape", numberWithoutShape, Shapes(), 0, 1},
    };
    table.forEach([](KRGPXTrackShapeEnum shape, QVector<KRGPXTrackShapeEnum> expectedShapes, int availableOptions,
                     int markerCount) {
        const KRGPXTrackShape trackShape(shape);
        QVector<KRGPXTrackShapeEnum> possibleShapes;
        for (const KRGPXTrackShape &possible : trackShape.possibleShapes())
            possibleShapes.append(possible.value());
        QCOMPARE(possibleShapes, expectedShapes);
        QCOMPARE(static_cast<int>(trackShape.availableDisplayOptions().value()), availableOptions);
        QCOMPARE(trackShape.defaultDisplayOptions().value(), StrokeDisplayOption);
        const QList<KRGPXMarkerShape> markers = trackShape.createMarkerShapes();
        QCOMPARE(markers.size(), markerCount);
        QCOMPARE(markers.first().value(), markerCount == 9 ? DiskMarkerShape : NoMarkerShape);
    });
}

void tst_KRGPXTrackShape::texts()
{
    const QString area = QStringLiteral("Fläche");
    const KRTestTable<KRGPXTrackShapeEnum, QString, QString, QString> table{
        {"line", LineStringTrackShape, QStringLiteral("Strecke"), QStringLiteral("Pfeil"),
         QStringLiteral("Alle Punkte werden zu einer Strecke verbunden.")},
        {"area", PolygonTrackShape, area, area,
         QStringLiteral("Alle Punkte werden als Außenlinie einer Fläche betrachtet.")},
        {"hop: the settled wording", HopTrackShape, QStringLiteral("Fluglinie"), QStringLiteral("Fluglinie"),
         QStringLiteral("Die beiden Punkt werden als Fluglinie betrachtet.")},
        {"no shape", numberWithoutShape, {}, {}, {}},
    };
    table.forEach(
        [](KRGPXTrackShapeEnum shape, const QString &withoutMarker, const QString &withArrow, const QString &toolTip) {
            const KRGPXTrackShape trackShape(shape);
            QCOMPARE(trackShape.humanReadable(NoMarkerShape), withoutMarker);
            // The arrow may come together with other bits.
            QCOMPARE(trackShape.humanReadable(KRGPXMarkerShape(ArrowMarkerShape) | DiskMarkerShape), withArrow);
            QCOMPARE(trackShape.toolTip(), toolTip);
        });
}

void tst_KRGPXTrackShape::textsBelongToTheClass()
{
    const KRRecordingTranslator translator;
    const KRGPXTrackShape area(PolygonTrackShape);
    QCOMPARE(area.humanReadable(NoMarkerShape), QStringLiteral("Fläche"));
    QCOMPARE(KRGPXTrackShape(AutoTrackShape).toolTip(), QStringLiteral("Die Form wird automatisch erkannt."));
    QCOMPARE(translator.requests(),
             QStringList({QStringLiteral("KRGPXTrackShape|Fläche|"),
                          QStringLiteral("KRGPXTrackShape|Die Form wird automatisch erkannt.|")}));
}

static const KRTestRegistration<tst_KRGPXTrackShape> registration;

#include "tst_KRGPXTrackShape.moc"
