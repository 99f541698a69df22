#include <KRGeoLocation/KRGPXMarkerShape.h>
#include <KRGeoLocation/KRGPXTrackDisplayOptions.h>
#include <KRGeoLocation/KRGPXTrackShape.h>

#include "KRRecordingTranslator.h"
#include "KRTest.h"
#include "KRTestXml.h"

using KRTestXml::element;

namespace {

const auto numberWithoutShape = static_cast<KRGPXTrackShapeEnum>(3);

} // namespace

class tst_KRGPXTrackShape : public QObject
{
    Q_OBJECT

private slots:
    void decodeKml()
    {
        const KRTestTable<QByteArray, KRGPXTrackShapeEnum> table{
            {"polygon before point", "<p><Point/><Polygon/></p>", PolygonTrackShape},
            {"point before keys", "<p><shape>hop</shape><Point/></p>", PointTrackShape},
            {"empty keys", "<p><shape/></p>", UnknownTrackShape},
            {"only children count", "<p><MultiGeometry><Point/></MultiGeometry></p>", AutoTrackShape},
            {"a prefixed name is another name", "<p><kml:Point/></p>", AutoTrackShape},
        };
        table.forEach([](const QByteArray &placemark, KRGPXTrackShapeEnum expected) {
            QCOMPARE(KRGPXTrackShape::decodeKml(element(placemark)).value(), expected);
        });
    }

    void xml()
    {
        QCOMPARE(KRGPXTrackShape::fromXml(element("<c/>")).value(), AutoTrackShape);
        QCOMPARE(KRGPXTrackDisplayOptions::fromXml(element("<c/>")).value(), StrokeDisplayOption);
        // Intended: what has no key gets lost, among it the third display option.
        constexpr int shapes = 0x10F;
        constexpr int options = 3;
        for (int value = 0; value < 1024; ++value) {
            QDomElement parent = element("<c/>");
            KRGPXTrackShape(static_cast<KRGPXTrackShapeEnum>(value)).toXml(parent);
            KRGPXTrackDisplayOptions(static_cast<KRGPXTrackDisplayOptionsEnum>(value)).write(parent);
            QCOMPARE(int(KRGPXTrackShape::fromXml(parent).value()), value & shapes);
            QCOMPARE(int(KRGPXTrackDisplayOptions::fromXml(parent).value()), value & options);
            if (value == 1023)
                QCOMPARE(KRTestXml::childrenOf(parent),
                         QStringLiteral("trackShape=point,linestring,polygon,hop,auto;displayOptions=stroke,fill;"));
        }
        QCOMPARE(KRGPXTrackShape(QStringLiteral("unknown,hop")).value(), HopTrackShape);
        const QDomElement odd = element("<c><displayOptions>dots,fill</displayOptions></c>");
        QCOMPARE(KRGPXTrackDisplayOptions::fromXml(odd).value(), FillDisplayOption);
    }

    void choices()
    {
        using Shapes = QVector<KRGPXTrackShapeEnum>;
        const KRTestTable<KRGPXTrackShapeEnum, QVector<KRGPXTrackShapeEnum>, int, int> table{
            {"point", PointTrackShape, Shapes{PointTrackShape}, 7, 9},
            {"hop", HopTrackShape, Shapes{HopTrackShape}, 5, 1},
            {"line", LineStringTrackShape, Shapes{PolygonTrackShape, LineStringTrackShape}, 1, 2},
            {"area", PolygonTrackShape, Shapes{PointTrackShape, PolygonTrackShape}, 3, 1},
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

    void texts()
    {
        const KRRecordingTranslator translator;
        const QString area = QStringLiteral("Fläche");
        const KRTestTable<KRGPXTrackShapeEnum, KRText, KRText, KRText> table{
            {"line", LineStringTrackShape, "Strecke", "Pfeil", "Alle Punkte werden zu einer Strecke verbunden."},
            {"hop: the settled wording", HopTrackShape, "Fluglinie", "Fluglinie",
             "Die beiden Punkt werden als Fluglinie betrachtet."},
            {"no shape", numberWithoutShape, {}, {}, {}},
        };
        table.forEach([](KRGPXTrackShapeEnum shape, const QString &withoutMarker, const QString &withArrow,
                         const QString &toolTip) {
            const KRGPXTrackShape trackShape(shape);
            QCOMPARE(trackShape.humanReadable(NoMarkerShape), withoutMarker);
            // The arrow may come together with other bits.
            QCOMPARE(trackShape.humanReadable(KRGPXMarkerShape(ArrowMarkerShape) | DiskMarkerShape), withArrow);
            QCOMPARE(trackShape.toolTip(), toolTip);
        });
        QCOMPARE(translator.requests().value(0), QStringLiteral("KRGPXTrackShape|Strecke|"));
    }
};

template class KRTestRegistration<tst_KRGPXTrackShape>;

#include "tst_KRGPXTrackShape.moc"
