#include <KRGeoLocation/KRGPXMarkerShape.h>
#include <KRGeoLocation/KRGPXTrackDisplayOptions.h>
#include <KRGeoLocation/KRGPXTrackShape.h>

#include "KRRecordingTranslator.h"
#include "KRTestRegistry.h"
#include "KRTestXml.h"

#include <QtTest>

Q_DECLARE_METATYPE(KRGPXTrackShapeEnum)
Q_DECLARE_METATYPE(KRGPXTrackDisplayOptionsEnum)

using KRTestXml::element;

namespace {

const auto numberWithoutShape = static_cast<KRGPXTrackShapeEnum>(3);

} // namespace

class tst_KRGPXTrackShape : public QObject
{
    Q_OBJECT

private slots:
    void decodeKml_data();
    void decodeKml();
    void xml_data();
    void xml();
    void displayOptionsXml_data();
    void displayOptionsXml();
    void choices_data();
    void choices();
    void texts_data();
    void texts();
    void textsBelongToTheClass();
};

void tst_KRGPXTrackShape::decodeKml_data()
{
    QTest::addColumn<QByteArray>("placemark");
    QTest::addColumn<KRGPXTrackShapeEnum>("expected");
    QTest::newRow("polygon before point") << QByteArray("<p><Point/><Polygon/></p>") << PolygonTrackShape;
    QTest::newRow("line before point") << QByteArray("<p><Point/><LineString/></p>") << LineStringTrackShape;
    QTest::newRow("point before keys") << QByteArray("<p><shape>hop</shape><Point/></p>") << PointTrackShape;
    QTest::newRow("keys") << QByteArray("<p><shape>point,hop</shape></p>") << numberWithoutShape;
    QTest::newRow("empty keys") << QByteArray("<p><shape/></p>") << UnknownTrackShape;
    QTest::newRow("only children count") << QByteArray("<p><MultiGeometry><Point/></MultiGeometry></p>")
                                         << AutoTrackShape;
    QTest::newRow("a prefixed name is another name") << QByteArray("<p><kml:Point/></p>") << AutoTrackShape;
    QTest::newRow("nothing") << QByteArray("<p/>") << AutoTrackShape;
}

void tst_KRGPXTrackShape::decodeKml()
{
    QFETCH(QByteArray, placemark);
    QTEST(KRGPXTrackShape::decodeKml(element(placemark)).value(), "expected");
}

void tst_KRGPXTrackShape::xml_data()
{
    QTest::addColumn<KRGPXTrackShapeEnum>("shape");
    QTest::addColumn<QString>("text");
    QTest::newRow("point") << PointTrackShape << QStringLiteral("point");
    QTest::newRow("hop") << HopTrackShape << QStringLiteral("hop");
    QTest::newRow("line") << LineStringTrackShape << QStringLiteral("linestring");
    QTest::newRow("area") << PolygonTrackShape << QStringLiteral("polygon");
    QTest::newRow("auto") << AutoTrackShape << QStringLiteral("auto");
    QTest::newRow("unknown is written as nothing") << UnknownTrackShape << QString();
    QTest::newRow("two bits") << static_cast<KRGPXTrackShapeEnum>(6) << QStringLiteral("linestring,hop");
}

void tst_KRGPXTrackShape::xml()
{
    QFETCH(KRGPXTrackShapeEnum, shape);
    QDomElement parent = element("<configuration/>");
    QCOMPARE(KRGPXTrackShape::fromXml(parent), KRGPXTrackShape(AutoTrackShape));
    KRGPXTrackShape(shape).toXml(parent);
    QTEST(parent.firstChildElement(QStringLiteral("trackShape")).text(), "text");
    QCOMPARE(KRGPXTrackShape::fromXml(parent).value(), shape);
    QCOMPARE(KRGPXTrackShape(QStringLiteral("unknown")), KRGPXTrackShape(UnknownTrackShape));
}

void tst_KRGPXTrackShape::displayOptionsXml_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<KRGPXTrackDisplayOptionsEnum>("expected");
    QTest::addColumn<QString>("text");
    const auto both = static_cast<KRGPXTrackDisplayOptionsEnum>(StrokeDisplayOption | FillDisplayOption);
    const QString strokeFill = QStringLiteral("stroke,fill");
    QTest::newRow("missing") << QByteArray("<c/>") << StrokeDisplayOption << QStringLiteral("stroke");
    QTest::newRow("empty") << QByteArray("<c><displayOptions/></c>") << NoDisplayOption << QString();
    QTest::newRow("both") << QByteArray("<c><displayOptions>stroke,fill</displayOptions></c>") << both << strokeFill;
    QTest::newRow("turned round") << QByteArray("<c><displayOptions>fill,stroke</displayOptions></c>") << both
                                  << strokeFill;
    QTest::newRow("unknown key") << QByteArray("<c><displayOptions>dots,fill</displayOptions></c>") << FillDisplayOption
                                 << QStringLiteral("fill");
}

void tst_KRGPXTrackShape::displayOptionsXml()
{
    QFETCH(QByteArray, xml);
    const auto options = KRGPXTrackDisplayOptions::fromXml(element(xml));
    QTEST(options.value(), "expected");
    QDomElement parent = element("<c/>");
    options.write(parent);
    QTEST(parent.firstChildElement(QStringLiteral("displayOptions")).text(), "text");
}

void tst_KRGPXTrackShape::choices_data()
{
    QTest::addColumn<KRGPXTrackShapeEnum>("shape");
    QTest::addColumn<QVector<KRGPXTrackShapeEnum>>("possibleShapes");
    QTest::addColumn<int>("availableOptions");
    QTest::addColumn<int>("markerCount");
    using Shapes = QVector<KRGPXTrackShapeEnum>;
    QTest::newRow("point") << PointTrackShape << Shapes{PointTrackShape} << 7 << 9;
    QTest::newRow("hop") << HopTrackShape << Shapes{HopTrackShape} << 5 << 1;
    QTest::newRow("line") << LineStringTrackShape << Shapes{PolygonTrackShape, LineStringTrackShape} << 1 << 2;
    QTest::newRow("area") << PolygonTrackShape << Shapes{PointTrackShape, PolygonTrackShape} << 3 << 1;
    QTest::newRow("auto") << AutoTrackShape << Shapes() << 0 << 1;
    QTest::newRow("unknown") << UnknownTrackShape << Shapes() << 0 << 1;
    QTest::newRow("no shape") << numberWithoutShape << Shapes() << 0 << 1;
}

void tst_KRGPXTrackShape::choices()
{
    QFETCH(KRGPXTrackShapeEnum, shape);
    QFETCH(int, markerCount);
    const KRGPXTrackShape trackShape(shape);
    QVector<KRGPXTrackShapeEnum> possibleShapes;
    for (const KRGPXTrackShape &possible : trackShape.possibleShapes())
        possibleShapes.append(possible.value());
    QTEST(possibleShapes, "possibleShapes");
    QTEST(static_cast<int>(trackShape.availableDisplayOptions().value()), "availableOptions");
    QCOMPARE(trackShape.defaultDisplayOptions().value(), StrokeDisplayOption);
    const QList<KRGPXMarkerShape> markers = trackShape.createMarkerShapes();
    QCOMPARE(markers.size(), markerCount);
    QCOMPARE(markers.first().value(), markerCount == 9 ? DiskMarkerShape : NoMarkerShape);
}

void tst_KRGPXTrackShape::texts_data()
{
    QTest::addColumn<KRGPXTrackShapeEnum>("shape");
    QTest::addColumn<QString>("withoutMarker");
    QTest::addColumn<QString>("withArrow");
    QTest::addColumn<QString>("toolTip");
    const QString area = QStringLiteral("Fläche");
    QTest::newRow("line") << LineStringTrackShape << QStringLiteral("Strecke") << QStringLiteral("Pfeil")
                          << QStringLiteral("Alle Punkte werden zu einer Strecke verbunden.");
    QTest::newRow("area") << PolygonTrackShape << area << area
                          << QStringLiteral("Alle Punkte werden als Außenlinie einer Fläche betrachtet.");
    QTest::newRow("hop: the settled wording")
        << HopTrackShape << QStringLiteral("Fluglinie") << QStringLiteral("Fluglinie")
        << QStringLiteral("Die beiden Punkt werden als Fluglinie betrachtet.");
    QTest::newRow("no shape") << numberWithoutShape << QString() << QString() << QString();
}

void tst_KRGPXTrackShape::texts()
{
    QFETCH(KRGPXTrackShapeEnum, shape);
    const KRGPXTrackShape trackShape(shape);
    QTEST(trackShape.humanReadable(NoMarkerShape), "withoutMarker");
    // The arrow may come together with other bits.
    QTEST(trackShape.humanReadable(KRGPXMarkerShape(ArrowMarkerShape) | DiskMarkerShape), "withArrow");
    QTEST(trackShape.toolTip(), "toolTip");
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
