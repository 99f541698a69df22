#include "KRImageEffort.h"
#include "KRMapTrackRenderer.h"
#include "KRNamedTrack.h"
#include "KRPageEffort.h"
#include "KRTest.h"
#include "KRTestMap.h"
#include "KRTestTable.h"

#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRMapProjection.h>

namespace {

const QSize size(800, 600);

/// In a map of 20 x 15 degrees.
const KRGeoPositionList shortLine{{50.0, 5.0}, {50.1, 5.1}};
const KRGeoPositionList longLine{{46.0, 1.0}, {59.0, 19.0}};
const KRGeoPositionList everywhere{{45.0, 0.0}, {45.0, 20.0}, {60.0, 20.0}, {60.0, 0.0}};
const KRGeoPositionList point{{50.0, 5.0}};

struct Tracks {
    KRGeoPositionList positions;
    KRGPXTrackShapeEnum shape;
    double width;
    int colors; ///< one after the other
    int alpha;
};

KRGPXTrackSelection selectionOf(const Tracks &tracks, int count, double haloWidth = 0.0)
{
    KRGPXTrackSelection selection;
    for (int i = 0; i < count; ++i) {
        KRGPXConfiguredTrack track = namedTrack(tracks.positions, KRGPXTrackShape(tracks.shape),
                                                QColor(i % tracks.colors, 0, i % tracks.colors / 256, tracks.alpha));
        KRGPXTrackConfiguration configuration = track.configuration();
        configuration.setLineWidth(tracks.width);
        configuration.setHaloWidth(haloWidth);
        track.setConfiguration(configuration);
        selection.addTrack(track);
    }
    return selection;
}

enum Drawing {
    WholeMap,
    VectorMap,
    CroppedVectorMap,
};

KRGPXTrackSelection affordable(const KRGPXTrackSelection &selection, Drawing drawing = WholeMap)
{
    const KRMapTrackRenderer renderer(selection, KRMapProjection(KRTestMap{45.0, 60.0, 0.0, 20.0}.area(), size), size,
                                      1.0);
    KRImageEffort effort(&renderer);
    if (drawing != WholeMap)
        effort.setForMaskOnly();
    effort.setCropped(drawing == CroppedVectorMap);
    return effort.affordable(selection);
}

bool isAffordableInPdf(const KRGPXTrackSelection &selection)
{
    const KRMapTrackRenderer renderer(selection, KRMapProjection(KRTestMap{45.0, 60.0, 0.0, 20.0}.area(), size), size,
                                      1.0);
    return KRPageEffort(&renderer).isAffordable(selection);
}

} // namespace

class tst_KRMapEffort : public QObject
{
    Q_OBJECT

private slots:
    void leavesOutWhatTakesLong()
    {
        const KRTestTable<Tracks, int, bool, bool> table{
            {"short lines", {shortLine, LineStringTrackShape, 6.0, 200, 128}, 20000, true, true},
            {"long lines of one look", {longLine, LineStringTrackShape, 6.0, 1, 255}, 50000, true, true},
            {"long lines of many looks", {longLine, LineStringTrackShape, 200.0, 200, 255}, 90000, false, true},
            {"half transparent lines", {longLine, LineStringTrackShape, 200.0, 1, 128}, 90000, false, true},
            {"some wide lines", {longLine, LineStringTrackShape, 200.0, 50, 128}, 50, true, true},
            {"wide lines", {longLine, LineStringTrackShape, 200.0, 200, 128}, 90000, false, true},
            {"areas upon each other", {everywhere, PolygonTrackShape, 2.0, 1, 255}, 50000, false, false},
            {"markers of some looks", {point, PointTrackShape, 6.0, 18, 255}, 50000, true, true},
            {"markers of an ordinary map", {point, PointTrackShape, 40.0, 1000, 255}, 1000, true, true},
            {"markers of many looks", {point, PointTrackShape, 200.0, 2000, 255}, 20000, false, false},
        };
        table.forEach([](const Tracks &tracks, int count, bool areAllDrawn, bool areAllInMask) {
            const KRGPXTrackSelection selection = selectionOf(tracks, count);
            const int drawn = affordable(selection).count();
            QCOMPARE(drawn == count, areAllDrawn);
            QVERIFY(drawn > 50 || areAllDrawn);
            QCOMPARE(affordable(selection, VectorMap).count(), count);
            // In what crops a map all have one colour.
            QCOMPARE(affordable(selection, CroppedVectorMap).count() == count, areAllInMask);
        });
    }

    void knowsWhatIsSlowInPdf()
    {
        // to and fro between east and west
        KRGeoPositionList edgeToEdge;
        for (int i = 0; i < 400; ++i)
            edgeToEdge.append(KRGeoPosition(45.0 + (i * 37) % 400 / 27.0, i % 2 * 20.0));
        const KRTestTable<Tracks, int, double, bool> table{
            {"opaque", {edgeToEdge, LineStringTrackShape, 6.0, 1, 255}, 2000, 0.0, true},
            {"half transparent", {edgeToEdge, LineStringTrackShape, 6.0, 1, 128}, 2000, 0.0, false},
            {"some of them", {edgeToEdge, LineStringTrackShape, 6.0, 1, 128}, 200, 0.0, true},
            {"with halos", {edgeToEdge, LineStringTrackShape, 6.0, 1, 255}, 400, 4.0, false},
            {"halos of more, which become one", {edgeToEdge, LineStringTrackShape, 6.0, 1, 255}, 900, 4.0, true},
            {"dots", {point, PointTrackShape, 6.0, 1, 128}, 5000, 4.0, true},
            {"opaque dots", {point, PointTrackShape, 1000.0, 1, 255}, 50000, 0.0, true},
            {"large dots", {point, PointTrackShape, 1000.0, 1, 128}, 5000, 0.0, false},
        };
        table.forEach([](const Tracks &tracks, int count, double haloWidth, bool isAffordable) {
            const KRGPXTrackSelection selection = selectionOf(tracks, count, haloWidth);
            QCOMPARE(isAffordableInPdf(selection), isAffordable);
            QVERIFY(isAffordableInPdf(KRPageEffort::simplified(selection)));
        });
    }

    void countsCopiesOfTheWorld()
    {
        KRGeoPositionList leaps; // to 180 degrees east, which is not that far by the rule of the date line
        for (int i = 0; i < 1000; ++i)
            leaps.append(KRGeoPosition(i * 37 % 160 - 80.0, (i * 170 + 180) % 360 - 180.0));
        const QSize narrow(16000, 40);
        const KRTestTable<KRGeoPositionList, QSize, double, int, bool> table{
            {"lines in a strip for all", shortLine, narrow, 4.0, 900, true},
            {"markers in a strip for all", point, narrow, 4.0, 900, true},
            {"markers too wide for that", point, narrow, 400.0, 900, false},
            {"rounds that are not drawn", leaps, size, 4.0, 200, true},
        };
        table.forEach(
            [](const KRGeoPositionList &positions, const QSize &mapSize, double width, int count, bool areAllDrawn) {
                const KRGPXTrackSelection selection =
                    selectionOf({positions, KRGPXTrackShapeEnum(AutoTrackShape), width, 900, 128}, count);
                const KRMapProjection projection(KRTestMap{-60.0, 60.0, -180.0, 180.0}.area(), mapSize);
                const KRMapTrackRenderer renderer(selection, projection, mapSize, 1.0);
                QCOMPARE(KRImageEffort(&renderer).affordable(selection).count() == count, areAllDrawn);
            });
    }

    void keepsTheSmallOnesInTheirOrder()
    {
        KRGPXTrackSelection selection = selectionOf({everywhere, PolygonTrackShape, 2.0, 1, 255}, 50000);
        selection.setCroppingOpacity(70);
        for (const char *name : {"first", "second"})
            selection.addTrack(
                namedTrack(shortLine, KRGPXTrackShape(LineStringTrackShape), Qt::red, QLatin1String(name)));
        const KRGPXTrackSelection drawn = affordable(selection);
        QVERIFY(drawn.count() > 2 && drawn.count() < selection.count());
        QCOMPARE(drawn.value(drawn.count() - 2).name(), QStringLiteral("first"));
        QCOMPARE(drawn.value(drawn.count() - 1).name(), QStringLiteral("second"));
        QCOMPARE(drawn.nominalCroppingOpacity(), 70);
    }
};

template class KRTestRegistration<tst_KRMapEffort>;

#include "tst_KRMapEffort.moc"
