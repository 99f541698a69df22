#include "KRMapTrackRenderer.h"
#include "KRNamedTrack.h"
#include "KRTest.h"
#include "KRTestMap.h"
#include "KRTestPicture.h"
#include "KRTrackInView.h"
#include "KRTrackLabels.h"

#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRMapProjection.h>

namespace {

const KRGeoPositionRect fijiArea = KRTestMap{-21.0, -9.0, 170.0, -175.0}.area();
const QSize size(800, 600);

/// Eastwards around the world, 100 degrees at a time, and somewhat to the north and to the south.
KRGeoPositionList spiral(int count)
{
    KRGeoPositionList positions;
    for (int i = 0; i < count; ++i)
        positions.append(KRGeoPosition(i * 37 % 100 - 50.0, i * 100 % 360 - 180.0));
    return positions;
}

double lengthOf(const QVector<QPolygonF> &lines)
{
    double length = 0.0;
    for (const QPolygonF &line : lines)
        for (int i = 1; i < line.size(); ++i)
            length += QLineF(line.at(i - 1), line.at(i)).length();
    return length;
}

} // namespace

class tst_KRTrackLabels : public QObject
{
    Q_OBJECT

private slots:
    void namesStandByTheirTracks()
    {
        const QString ferry = QStringLiteral("Fähre");
        const KRGeoPositionList line{{-15.0, 171.0}, {-15.0, 175.0}};
        const KRGeoPositionList area{{-10.0, 171.0}, {-10.0, 177.0}, {-14.0, 177.0}, {-14.0, 171.0}};
        // the parts of the picture in which the name stands; empty where there is to be none
        const KRTestTable<KRGeoPositionList, KRGPXTrackShapeEnum, QString, QRectF> table{
            {"line", line, LineStringTrackShape, ferry, {0.0, 0.3, 0.5, 0.4}},
            {"across the date line",
             {{-15.0, 178.0}, {-15.0, -178.0}},
             LineStringTrackShape,
             ferry,
             {0.4, 0.3, 0.4, 0.4}},
            {"middle of an area", area, PolygonTrackShape, ferry, {0.15, 0.1, 0.25, 0.3}},
            {"part in view", {{-15.0, 100.0}, {-15.0, 173.0}}, LineStringTrackShape, ferry, {0.0, 0.3, 0.3, 0.4}},
            {"out of view", {{15.0, 100.0}, {15.0, 110.0}}, LineStringTrackShape, ferry, {}},
            {"no position", {{720.0, 720.0}}, PointTrackShape, ferry, {}},
            {"name to be cut", line, LineStringTrackShape, QStringLiteral("W").repeated(500), {0.0, 0.3, 0.7, 0.4}},
        };
        table.forEach([](const KRGeoPositionList &positions, KRGPXTrackShapeEnum shape, const QString &name,
                         const QRectF &within) {
            KRGPXTrackSelection selection;
            selection.addTrack(namedTrack(positions, KRGPXTrackShape(shape), Qt::red, name));
            const QVector<KRMapLabel> labels =
                KRTrackLabels::arranged(selection, KRMapProjection(fijiArea, size), size, 1.0, {}).labels();
            QCOMPARE(labels.size(), within.isEmpty() ? 0 : 1);
            if (labels.isEmpty())
                return;
            const QRectF place(within.x() * size.width(), within.y() * size.height(), within.width() * size.width(),
                               within.height() * size.height());
            QVERIFY(place.contains(labels.first().box()));
        });
    }

    void linesInAllCopiesOfTheWorld()
    {
        const KRTestTable<QSize, int, int, double> table{
            {"around a wide world", {1600, 1200}, 40, 16, 1.0},
            {"around two and a bit", {800, 300}, 40, 16, 1.0},
            {"once over the date line", {800, 300}, 4, 16, 1.0},
            {"around a narrow world", {1600, 60}, 40, 40, 1.0},
            {"the middle of a narrow world", {1600, 60}, 40, 4, 4.0 * 143.0 / 1600.0},
        };
        table.forEach([](const QSize &picture, int count, int mostCopies, double part) {
            const KRMapTrackRenderer renderer(
                {}, KRMapProjection(KRTestMap{-60.0, 60.0, -180.0, 180.0}.area(), picture), picture, 1.0);
            const auto linesOf = [&](const KRGeoPositionList &positions, int most) {
                const auto track = namedTrack(positions, KRGPXTrackShape(LineStringTrackShape), Qt::red);
                return KRTrackInView(renderer, track, picture, most).lines();
            };
            const KRGeoPositionList positions = spiral(count);
            double length = 0.0;
            for (int i = 1; i < count; ++i)
                length += lengthOf(linesOf({positions.at(i - 1), positions.at(i)}, 100));
            const QVector<QPolygonF> lines = linesOf(positions, mostCopies);
            QVERIFY(std::abs(lengthOf(lines) / length - part) < 0.02);
            for (const QPolygonF &line : lines)
                QVERIFY(QRectF(QPointF(), picture).contains(line.boundingRect().center()));
        });
    }

    void namesKeepApart()
    {
        KRGPXTrackSelection selection;
        QRandomGenerator random(7);
        for (int i = 0; i < 300; ++i) {
            const double latitude = -20.0 + random.bounded(10.0);
            const double longitude = 171.0 + random.bounded(8.0);
            selection.addTrack(namedTrack({{latitude, longitude}, {latitude + 0.5, longitude + 0.5}},
                                          KRGPXTrackShape(LineStringTrackShape), Qt::darkBlue,
                                          QStringLiteral("Weg %1").arg(i)));
        }
        const KRMapProjection projection(fijiArea, size);
        const QVector<QRectF> keptFree{{600.0, 0.0, 200.0, 300.0}, {0.0, 500.0, 300.0, 100.0}};
        const QVector<KRMapLabel> labels = KRTrackLabels::arranged(selection, projection, size, 1.0, keptFree).labels();
        QVERIFY(labels.size() > 40);
        QCOMPARE(labels.first().text(), QStringLiteral("Weg 0"));
        QVector<QRectF> taken = keptFree;
        for (const KRMapLabel &label : labels) {
            QVERIFY(QRectF(QPointF(), size).contains(label.box()));
            for (const QRectF &box : std::as_const(taken))
                QVERIFY2(!box.intersects(label.box()), qPrintable(label.text()));
            taken << label.box();
        }
    }

    void marksThatTakeNoRoomAreBounded()
    {
        KRGPXTrackSelection selection;
        for (int i = 0; i < 200; ++i) {
            selection.addTrack(namedTrack({{-20.0 + 0.05 * i, 171.0 + i % 10}}, KRGPXTrackShape(PointTrackShape),
                                          Qt::red, QStringLiteral("l\u0301\u0323\u0302").repeated(1000)));
        }
        const QVector<KRMapLabel> labels =
            KRTrackLabels::arranged(selection, KRMapProjection(fijiArea, size), size, 1.0, {}).labels();
        int characters = 0;
        for (const KRMapLabel &label : labels) {
            QVERIFY(label.text().size() <= 300);
            characters += label.text().size();
        }
        const int most = size.width() * size.height() / 150;
        QVERIFY(characters >= most);
        QVERIFY(characters < most + 300);
    }

    void namesKeepOffTracks()
    {
        KRGPXTrackSelection selection;
        for (const double longitude : {171.0, 174.0, 177.0, -180.0, -177.0}) {
            selection.addTrack(namedTrack({{-20.0, longitude}, {-15.0, longitude + 2.0}, {-10.0, longitude}},
                                          KRGPXTrackShape(LineStringTrackShape), Qt::red,
                                          QStringLiteral("Weg nach Norden")));
        }
        for (const KRGPXMarkerShapeEnum marker : {DiskMarkerShape, CircleMarkerShape, Star6MarkerShape}) {
            const KRGeoPosition place(-19.0, 172.0 + selection.count());
            KRGPXConfiguredTrack point =
                namedTrack({place}, KRGPXTrackShape(PointTrackShape), Qt::red, QStringLiteral("Ort"));
            KRGPXTrackConfiguration look = point.configuration();
            look.setLineWidth(KRDistance(14.0));
            look.setMarkerShape(marker);
            point.setConfiguration(look);
            selection.addTrack(point);
        }
        const KRMapProjection projection(fijiArea, size);
        const QImage lines = KRMapTrackRenderer(selection, projection, size, 1.0).render(StyledRender);
        const QVector<KRMapLabel> labels = KRTrackLabels::arranged(selection, projection, size, 1.0, {}).labels();
        QCOMPARE(labels.size(), selection.count());
        for (const KRMapLabel &label : labels) {
            const QImage below = lines.copy(label.box().toAlignedRect());
            QVERIFY(KRTestPicture::boundsOf(below, [](const QColor &color) { return color.alpha() > 0; }).isEmpty());
        }
        // However small the factor is, there is room to remember where the lines are.
        QCOMPARE(KRTrackLabels::arranged(selection, projection, size, 1e-9, {}).labels().size(), selection.count());
    }
};

template class KRTestRegistration<tst_KRTrackLabels>;

#include "tst_KRTrackLabels.moc"
