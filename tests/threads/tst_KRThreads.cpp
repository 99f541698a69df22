#include "KRTest.h"
#include "KRTestMap.h"
#include "KRTestThreads.h"

#include <KRCore/KRConcurrent.h>
#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXTrackFile.h>
#include <KRGeoLocation/KRGPXTrackFileRegistry.h>
#include <KRGeoLocation/KRGPXTrackRenderer.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>
#include <KRGeoLocation/KRMapProjection.h>

#include <QDomDocument>

#include <cmath>
#include <tuple>
#include <vector>

namespace {

constexpr int pointCount = 1000;
const QSize pictureSize(80, 60);

class Renderer : public KRGPXTrackRenderer
{
public:
    explicit Renderer(const KRGPXTrackSelection &selection)
        : KRGPXTrackRenderer(selection, pictureSize, 1.0),
          m_projection(KRTestMap{-60.0, 60.0, 120.0, -120.0}.projection(pictureSize))
    { }

    QPointF projectPosition(const KRGeoPosition &position) const override { return m_projection.projectate(position); }

private:
    const KRMapProjection m_projection;
};

KRGPXTrackSegment segment(double phase)
{
    KRGPXTrackSegment segment;
    for (int i = 0; i < pointCount; ++i) {
        const double longitude = 180.0 + 50.0 * std::sin(phase + 0.012 * i);
        segment.append(40.0 * std::sin(0.008 * i), longitude > 180.0 ? longitude - 360.0 : longitude, i, QDateTime(),
                       QString());
    }
    return segment;
}

/// Long lines across the date line in two segments, and an area.
KRGPXTrackSelection routes()
{
    KRGPXTrackConfiguration look = KRGPXTrackConfiguration::defaultValue();
    KRGPXTrackSelection selection;
    for (int i = 0; i < 3; ++i) {
        const KRGPXTrack track(QStringLiteral("route %1").arg(i), QString(), {segment(i), segment(i + 0.5)},
                               i == 2 ? PolygonTrackShape : LineStringTrackShape);
        look.setTrackShape(track.shape());
        look.setSmoothingStrength(i == 1 ? 50 : 100);
        selection.addTrack(KRGPXConfiguredTrack(track, look));
    }
    selection.setCroppingOpacity(90);
    return selection;
}

/// What a thread makes of the routes: the picture, the cropped map, and the points of the chunks.
using Outcome = std::tuple<QImage, QImage, KRGeoPositionList>;

Outcome outcomeOf(const KRGPXTrackSelection &selection)
{
    const Renderer renderer(selection);
    QImage map(pictureSize, QImage::Format_RGB32);
    map.fill(Qt::darkGreen);
    KRGeoPositionList points;
    for (const KRGeoPositionList &chunk : selection.value(0).track().chunkedPoints())
        points.append(chunk);
    return {renderer.render(StyledRender), renderer.crop(map), points};
}

/// A singleton that nobody has asked for yet.
class LateSingleton : public KRSingleton<LateSingleton>
{
public:
    void setupInstance() { m_value = 42; }
    int value() const { return m_value; }

private:
    int m_value = 0;
};

} // namespace

/// Does in many threads at once what programs do in one: equal results, no deadlock, and no race to be found.
class tst_KRThreads : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QThreadPool::globalInstance()->setMaxThreadCount(QThread::idealThreadCount()); }

    void drawing()
    {
        QThreadPool *const pool = QThreadPool::globalInstance();
        const KRGPXTrackSelection selection = routes();
        const Outcome expected = outcomeOf(selection);
        QVERIFY(std::get<0>(expected) != QImage(pictureSize, std::get<0>(expected).format()));
        QCOMPARE(std::get<2>(expected).size(), 2 * pointCount);
        const KRTestTable<int, int> table{
            {"one thread in the pool", 1, 0},
            {"two threads", 2, 0},
            {"busy pool", 8, 7},
        };
        table.forEach([&](int poolSize, int busyThreads) {
            pool->setMaxThreadCount(poolSize);
            for (int i = 0; i < busyThreads; ++i)
                pool->reserveThread();
            constexpr int count = 9;
            std::vector<Outcome> outcomes(count + 1);
            KRTestThreads::runEverywhere(count, [&](int i) { outcomes[std::size_t(i + 1)] = outcomeOf(selection); });
            for (int i = 0; i < busyThreads; ++i)
                pool->releaseThread();
            for (const Outcome &outcome : outcomes)
                QVERIFY(outcome == expected);
        });
    }

    void firstUse()
    {
        // Everything that is made when it is first asked for: here several threads ask at once.
        QLoggingCategory::setFilterRules(QStringLiteral("kr.io=false"));
        std::vector<QString> texts(8);
        KRTestThreads::runEverywhere(7, [&](int i) {
            QString &text = texts[std::size_t(i + 1)];
            text = QString::number(LateSingleton::instance()->value());
            text += KRGPXTrackShape(QStringLiteral("hop")).isValid() ? QLatin1Char('h') : QLatin1Char('-');
            text += KRLatitude::parse(QStringLiteral("N53.13680556")).toString(true);
            text += KRGeoPosition(53.1, 8.2).toString(true);
            text +=
                KRGPXTrack::decodeKml(text, QString(), QStringLiteral("8,53,4 9,54,0"), LineStringTrackShape).name();
            text += KRGPXTrackConfiguration::defaultValue().lineColor().name();
            KRErrorHistory history;
            KRErrorHistory::report(&history, QStringLiteral("file"), QStringLiteral("reason"));
            text += history.entries().first().toString();
        });
        QVERIFY(texts.front().startsWith(QLatin1String("42h")));
        for (const QString &text : texts)
            QCOMPARE(text, texts.front());
    }

    void copiesAreChanged()
    {
        const KRGPXTrackSelection original = routes();
        std::vector<KRGPXTrackSelection> copies(9, original);
        KRTestThreads::runEverywhere(8, [&](int i) {
            KRGPXTrackSelection &copy = copies[std::size_t(i + 1)];
            KRGPXConfiguredTrackList tracks = copy.tracks();
            KRGPXTrack track = tracks.at(0).track();
            track.setName(QString::number(i));
            tracks[0].setTrack(track);
            KRGPXTrackSegment longer = track.segments().first();
            longer.append(1.0, 2.0, 3, QDateTime(), QStringLiteral("end"));
            tracks.append(KRGPXConfiguredTrack(KRGPXTrack(QString(), QString(), {longer}, LineStringTrackShape),
                                               original.value(0).configuration()));
            copy.setTracks(tracks);
            KRGPXTrackConfiguration look = copy.value(1).configuration();
            look.setLineColor(QColor(i + 1, 0, 0));
            copy.setConfiguration(1, look);
        });
        QVERIFY(original == routes());
        for (int i = -1; i < 8; ++i) {
            const KRGPXTrackSelection &copy = copies[std::size_t(i + 1)];
            QCOMPARE(copy.value(0).name(), QString::number(i));
            QCOMPARE(copy.value(1).configuration().lineColor().red(), i + 1);
            QCOMPARE(copy.value(3).track().countPoints(), pointCount + 1);
        }
    }

    void reading()
    {
        const QTemporaryDir dir;
        const QFileInfo gpx(dir.filePath(QStringLiteral("routes.gpx")));
        routes().value(0).track().saveAsGpxFile(gpx);
        std::vector<int> counts(7);
        KRTestThreads::runEverywhere(
            6, [&](int i) { counts[std::size_t(i + 1)] = KRGPXTrackFile(gpx).tracks().first().countPoints(); });
        for (const int count : counts)
            QCOMPARE(count, 2 * pointCount);
    }

    void saving()
    {
        const QTemporaryDir folder;
        const QDir dir(folder.path());
        KRGPXTrackFileRegistry &registry = KRGPXTrackFileRegistry::instance();
        constexpr int count = 6;
        std::vector<QStringList> names(count + 1);
        std::vector<int> counts(count + 1);
        KRTestThreads::runEverywhere(count, [&](int i) {
            for (int k = 0; k < 4; ++k) {
                // Every track is saved by several threads.
                const KRGPXTrack track = KRGPXTrack::decodeKml(QString::number(k), QString(),
                                                               QStringLiteral("8,53 9,54"), LineStringTrackShape);
                const KRGPXTrackFileRegistryKey key(track, dir);
                names[std::size_t(i + 1)].append(registry.createAssignedFile(key));
                registry.createFileInfo(key, registry.fileName(key)).size();
            }
            QDomDocument document;
            QDomElement element = document.appendChild(document.createElement(QStringLiteral("tracks"))).toElement();
            routes().toXml(element, QDir(folder.path()));
            counts[std::size_t(i + 1)] = KRGPXTrackSelection(element, QDir(folder.path())).count();
        });
        QCOMPARE(counts, std::vector<int>(counts.size(), routes().count()));
        for (const QStringList &given : names)
            QCOMPARE(given, names.front());
        QCOMPARE(dir.entryList(QDir::Files).size(), 4 + routes().count());
    }
};

template class KRTestRegistration<tst_KRThreads>;

#include "tst_KRThreads.moc"
