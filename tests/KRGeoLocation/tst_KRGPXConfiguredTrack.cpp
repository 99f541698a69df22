#include <KRGeoLocation/KRGPXConfiguredTrack.h>

#include "KRTemporarySettings.h"
#include "KRTest.h"
#include "KRTestFolder.h"
#include "KRTestTrack.h"
#include "KRTestXml.h"

#include <KRGeoLocation/KRGeoLocationSettings.h>

#include <functional>

using KRTestTrack::noDir;
using KRTestTrack::track;
using KRTestXml::element;

namespace {

using Change = std::function<void(KRGPXConfiguredTrack &)>;

const QString onePoint = QStringLiteral("8,53");
const QString openLine = QStringLiteral("8,53 9,53 10,53 11,53");
const QString closedLine = QStringLiteral("8,50 12,50 12,54 9,54 8,50");

KRGPXTrackConfiguration withShape(int shape)
{
    KRGPXTrackConfiguration configuration;
    configuration.setTrackShape(static_cast<KRGPXTrackShapeEnum>(shape));
    return configuration;
}

/// A track whose configured shape is just this one, also when it is auto or unknown.
KRGPXConfiguredTrack configuredAs(int shape, const QString &coordinates)
{
    QDomElement parent = element("<document/>");
    track(coordinates).toXml(parent, noDir);
    withShape(shape).toXml(parent);
    return KRGPXConfiguredTrack(parent, noDir);
}

} // namespace

class tst_KRGPXConfiguredTrack : public QObject
{
    Q_OBJECT

private slots:
    void takesTheNaturalShape()
    {
        const KRTestTable<int, QString, int> table{
            {"auto: closed line", 256, closedLine, int(PolygonTrackShape)},
            {"auto: one point", 256, onePoint, int(PointTrackShape)},
            {"auto bit among others", 257, openLine, int(LineStringTrackShape)},
            {"unknown", 0, closedLine, int(PolygonTrackShape)},
            {"anything else stays", 4, onePoint, int(LineStringTrackShape)},
        };
        table.forEach([](int configured, const QString &coordinates, int expected) {
            const KRGPXConfiguredTrack configuredTrack(track(coordinates), withShape(configured));
            QCOMPARE(int(configuredTrack.configuration().trackShape().value()), expected);
            // Reading leaves the shape alone.
            QCOMPARE(int(configuredAs(configured, coordinates).configuration().trackShape().value()), configured);
        });
        // Intended: auto, and nothing else, is drawn as the track says, whatever its points form.
        QCOMPARE(configuredAs(AutoTrackShape, closedLine).effectiveShape().value(), LineStringTrackShape);
        QCOMPARE(configuredAs(AutoTrackShape, closedLine).naturalShape().value(), PolygonTrackShape);
        for (const int shape : {257, int(HopTrackShape)})
            QCOMPARE(int(configuredAs(shape, closedLine).effectiveShape().value()), shape);
    }

    void drawingPoints()
    {
        const KRTestTable<int, KRText, KRText> table{
            {"line as a point: its middle", 1, openLine, "10,53"},
            {"area as a point: the centre of its box", 1, closedLine, "10,52"},
            {"point as a point", 1, onePoint, onePoint},
            {"line as an area", 8, openLine, openLine},
            {"nothing as an area", 8, {}, {}},
        };
        table.forEach([](int shape, const QString &coordinates, const QString &expected) {
            QCOMPARE(configuredAs(shape, coordinates).drawingPoints(), track(expected).allPoints());
        });
    }

    void positionRelativeFromStart()
    {
        // longitude: 720 for a position that is not valid
        const KRTestTable<int, double, double> table{
            {"end", 4, 1.0, 11.0},
            {"half way between two points: the later one", 4, 0.5, 10.0},
            {"half a point before the start is outside", 4, -0.5 / 3, 720.0},
            {"less than that is not", 4, -0.4 / 3, 8.0},
            {"behind the end", 4, 1.2, 720.0},
            {"not a number", 4, qQNaN(), 720.0},
            {"flight line: always the centre", 2, 1.0, 9.5},
            {"area: the same", 8, 0.0, 9.5},
            {"auto: by the track's shape", 256, 1.0, 11.0},
        };
        table.forEach([](int shape, double fraction, double longitude) {
            const KRGeoPosition position = configuredAs(shape, openLine).positionRelativeFromStart(fraction);
            QCOMPARE(position.longitude().decimalDegrees(), longitude);
            QCOMPARE(position.latitude().decimalDegrees(), longitude == 720.0 ? 720.0 : 53.0);
            QVERIFY(!configuredAs(LineStringTrackShape, QString()).positionRelativeFromStart(0.0).isValid());
        });
    }

    void unknownShapeChangesNothing()
    {
        KRGPXConfiguredTrack configuredTrack(track(openLine), withShape(HopTrackShape));
        QVERIFY(!configuredTrack.setConfiguration(withShape(UnknownTrackShape)));
        KRGPXTrackConfiguration wide = withShape(UnknownTrackShape);
        wide.setLineWidth(99.0);
        QVERIFY(configuredTrack.setConfiguration(wide));
        QCOMPARE(configuredTrack.configuration().trackShape().value(), HopTrackShape);
        QCOMPARE(configuredTrack.lineWidth(), KRDistance(99.0));
    }

    void differentAspects()
    {
        using Track = KRGPXConfiguredTrack;
        const KRTestTable<Change, int> table{
            {"nothing", [](Track &) {}, 0},
            {"line width", [](Track &t) { t.setLineWidth(3.0); }, 1},
            {"line colour", [](Track &t) { t.setLineColor(Qt::red); }, 2},
            {"points", [](Track &t) { t.setTrack(track(closedLine)); }, 4},
            {"the fill colour is none", [](Track &t) { t.setFillColor(Qt::red); }, 0},
            {"smoothing is none", [](Track &t) { t.setSmoothingStrength(1); }, 0},
        };
        table.forEach([](const Change &change, int expected) {
            const KRGPXConfiguredTrack before(track(openLine), withShape(AutoTrackShape));
            KRGPXConfiguredTrack after = before;
            change(after);
            QCOMPARE(int(before.differentAspects(after)), expected);
            QCOMPARE(int(after.differentAspects(before)), expected);
            after.setLineWidth(4.0);
            QCOMPARE(int(before.differentAspects(after)), expected | 1);
        });
    }

    void roundTrip()
    {
        KRGPXConfiguredTrack configuredTrack = configuredAs(AutoTrackShape, closedLine);
        configuredTrack.setLineColor(QColor(1, 2, 3, 4));
        configuredTrack.setSmoothingSteps(7);
        const KRTestFolder folder;
        for (const QDir &dir : {noDir, folder.dir()}) {
            QDomElement parent = element("<tracks/>");
            configuredTrack.toXml(parent, QStringLiteral("one"), dir);
            const QDomElement one = parent.firstChildElement(QStringLiteral("one"));
            QCOMPARE(KRGPXConfiguredTrack(one, dir), configuredTrack);
            QCOMPARE(KRGPXConfiguredTrack(one, noDir).track().isValid(), folder.files().isEmpty());
        }
        QCOMPARE(folder.files().size(), 1);

        const KRTemporarySettings settings; // a new track is as the user wants it, one that is read is not
        KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(withShape(PolygonTrackShape));
        QCOMPARE(KRGPXConfiguredTrack().configuration(), withShape(PolygonTrackShape));
        const KRGPXConfiguredTrack empty(element("<one/>"), noDir);
        KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(KRGPXTrackConfiguration::defaultValue());
        QVERIFY(!empty.track().isValid());
        QCOMPARE(empty.configuration().trackShape().value(), AutoTrackShape);
    }
};

template class KRTestRegistration<tst_KRGPXConfiguredTrack>;

#include "tst_KRGPXConfiguredTrack.moc"
