#include "KRBaseMapGround.h"
#include "KRExchangeFile.h"
#include "KRFileImport.h"
#include "KRMapComposition.h"
#include "KRMapPatience.h"
#include "KRNamedTrack.h"
#include "KRRouteDocument.h"
#include "KRTest.h"
#include "KRTestFile.h"
#include "KRTestMap.h"
#include "KRTestThreads.h"
#include "KRTestTiles.h"
#include "KRTileGround.h"

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QPainter>

#include <cmath>

namespace {

constexpr KRTestMap fiji{-21.0, -9.0, 170.0, -175.0};
const QSize size(200, 150);

/// A line across the date line of so many points that GPX of it is written in pieces, an area, and a place.
KRGPXTrackSelection tracks()
{
    KRGeoPositionList line;
    for (int i = 0; i < 21000; ++i) {
        const double longitude = 172.0 + i * 0.0006;
        line.append(KRGeoPosition(-15.0 + std::sin(0.003 * i), longitude > 180.0 ? longitude - 360.0 : longitude));
    }
    KRGPXTrackSelection selection;
    selection.addTrack(namedTrack(line, LineStringTrackShape, Qt::darkRed, QStringLiteral("Fähre")));
    selection.addTrack(namedTrack({{-16.0, 171.0}, {-20.0, 172.0}, {-19.0, 179.0}}, PolygonTrackShape, Qt::darkBlue,
                                  QStringLiteral("Gebiet")));
    selection.addTrack(namedTrack({{-12.0, -179.0}}, PointTrackShape, Qt::magenta, QStringLiteral("Ort")));
    return selection;
}

QByteArray bytesOf(const QImage &image)
{
    return QByteArray(reinterpret_cast<const char *>(image.constBits()), int(image.sizeInBytes()));
}

} // namespace

/// Does in many threads at once what the programs do in one or two: equal results, and no race to be found.
class tst_KRHostThreads : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("kr.*=false")); }
    void cleanupTestCase() { QLoggingCategory::setFilterRules(QString()); }

    void equalResults()
    {
        const QTemporaryDir dir;
        const QString tiles = dir.filePath(QStringLiteral("world.mbtiles"));
        KRTestTiles::writeMbtiles(tiles, KRTestTiles::pyramid(0, 4), {}, 64);
        KRTileGround tileGround(tiles);
        KRBaseMapGround baseMap;
        // A document that has lost one of its track files.
        const QString document = dir.filePath(QStringLiteral("Reise.krroute"));
        QVERIFY(saved(tracks(), document));
        KRTestFile::write(dir.filePath(QStringLiteral("Reise.tracks/track.gps")), "broken");

        const QStringList files{QStringLiteral(KR_SAMPLES_DIR "/oldenburg-radtour.gpx"),
                                QStringLiteral(KR_SAMPLES_DIR "/ammerland.kml"),
                                QStringLiteral(KR_SAMPLES_DIR "/ammerland.kmz"),
                                KRTestFile::write(dir.filePath(QStringLiteral("mended.gpx")),
                                                  "<!DOCTYPE gpx><gpx><rte/><wpt lat='1' lon='2'/></gpx>")};

        // Called with a number that no other thread has.
        const KRTestTable<std::function<QByteArray(int)>> table{
            {"files are imported",
             [&](int) {
                 QString text;
                 for (const QString &file : files) {
                     const std::unique_ptr<KRFileImport> import = KRFileImport::create(QFileInfo(file));
                     import->read();
                     text += import->report().summary() + QString::number(import->problems().entries().size());
                 }
                 return text.toUtf8();
             }},
            {"documents are read and saved",
             [&](int i) {
                 KRRouteDocument first;
                 KRRouteDocument second;
                 const QString copy = dir.filePath(QStringLiteral("%1.krroute").arg(i));
                 const bool isRead = first.load(QFileInfo(document), nullptr) && saved(first.selection(), copy)
                                     && second.load(QFileInfo(copy), nullptr);
                 return isRead ? KRTestTrack::text(second.selection().tracks()).toUtf8() : QByteArray();
             }},
            {"GPX is written",
             [](int) { return KRExchangeFile::encode(tracks().tracks(), "gpx", QString(), nullptr); }},
            {"KML is written",
             [](int) { return KRExchangeFile::encode(tracks().tracks(), "kml", QString(), nullptr); }},
            {"maps are drawn", [&](int) { return bytesOf(composition(&baseMap, 255).render()); }},
            {"cropped maps are drawn", [&](int) { return bytesOf(composition(&baseMap, 60).render()); }},
            {"one ground of tiles is painted",
             [&](int) {
                 QImage picture(size, QImage::Format_RGB32);
                 QPainter painter(&picture);
                 const KRMapPatience patience(60000);
                 tileGround.paintWhole(&painter, size, fiji.projection(size), 1.0, patience);
                 painter.end();
                 return bytesOf(picture);
             }},
        };
        table.forEach([&](const std::function<QByteArray(int)> &job) {
            constexpr int rounds = 3;
            constexpr int count = 6; // with this thread
            std::vector<QByteArray> results(rounds * count);
            for (int first = 0; first < rounds * count; first += count)
                KRTestThreads::runEverywhere(count - 1,
                                             [&](int i) { results[std::size_t(first + 1 + i)] = job(first + 1 + i); });
            const QByteArray expected = job(rounds * count);
            QVERIFY(!expected.isEmpty());
            for (const QByteArray &result : results)
                QVERIFY(result == expected);
        });
    }

private:
    static bool saved(const KRGPXTrackSelection &selection, const QString &fileName)
    {
        KRRouteDocument document;
        document.setSelection(selection);
        return document.save(QFileInfo(fileName), nullptr);
    }

    static KRMapComposition composition(KRMapGround *ground, int croppingOpacity)
    {
        KRGPXTrackSelection selection = tracks();
        selection.setCroppingOpacity(croppingOpacity);
        KRMapComposition map(selection, fiji.area(), size, 1.0);
        map.setGround(ground);
        map.setLabels(true);
        map.setLegend(true);
        return map;
    }
};

template class KRTestRegistration<tst_KRHostThreads>;

#include "tst_KRHostThreads.moc"
