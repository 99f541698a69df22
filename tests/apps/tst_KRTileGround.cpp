#include "KRTileGround.h"

#include "KRMapPatience.h"
#include "KRTestMap.h"
#include "KRTestPicture.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"
#include "KRTestTileServer.h"
#include "KRTestTiles.h"
#include "KRTileStore.h"

#include <KRGeoLocation/KRMapProjection.h>

#include <QPainter>
#include <QtTest>

namespace {

using Answer = KRTestTileServer::Answer;

Answer good(const KRTileKey &key, int delayMs = 0)
{
    return {200, QByteArray(), KRTestTiles::picture(key), delayMs};
}

/// A line without which no answer is young enough to be kept.
QByteArray date()
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    return "Date: " + QLocale::c().toString(now, QStringLiteral("ddd, dd MMM yyyy hh:mm:ss")).toLatin1() + " GMT\r\n";
}

QString cacheFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + QStringLiteral("/tiles");
}

int countOfKept()
{
    int count = 0;
    for (QDirIterator files(cacheFolder(), QDir::Files, QDirIterator::Subdirectories); files.hasNext(); files.next())
        ++count;
    return count;
}

/// Half a degree around a place.
KRMapProjection cityProjection(const QSize &size)
{
    return KRMapProjection(KRGeoPositionRect(KRLatitudeRange(53.0, 53.3), KRLongitudeRange(8.0, 8.5)), size);
}

} // namespace

class tst_KRTileGround : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void tilesLieInTheirPlaces();
    void levelSuitsThePicture();
    void noSeamsBetweenTiles();
    void coarserTilesStandIn();
    void staysInItsRectangle();
    void viewerIsNotKeptWaiting();
    void finerTilesStandInMeanwhile();
    void answersOfServers();
    void serverIsAskedPolitely();
    void tilesAreKeptOnDisk();
    void damagedTilesOnDiskAreReplaced();
    void oldTilesServeWithoutServer();
    void whatLeftTheViewIsGivenUp();
    void storeForgetsTheOldest();

private:
    QString path(const QString &name) const { return m_dir->filePath(name); }
    QString writeFolder(const KRTileKeyList &keys, int side = 256) const;
    static KRMapGaps paintWhole(const QString &source, const KRMapProjection &projection, QImage *picture,
                                double factor = 1.0, int timeLimitMs = KRTestTileServer::longTimeMs);

    QTemporaryDir m_lastingDir;
    QString m_worldFile; ///< levels 0 to 5 as MBTiles
    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_KRTileGround::initTestCase()
{
    m_worldFile = m_lastingDir.filePath(QStringLiteral("world.mbtiles"));
    KRTestTiles::writeMbtiles(m_worldFile, KRTestTiles::pyramid(0, 5), {}, 64);
}

void tst_KRTileGround::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QDir(cacheFolder()).removeRecursively();
}

QString tst_KRTileGround::writeFolder(const KRTileKeyList &keys, int side) const
{
    KRTestTiles::writeFolder(path(QStringLiteral("tiles")), keys, side);
    return path(QStringLiteral("tiles"));
}

KRMapGaps tst_KRTileGround::paintWhole(const QString &source, const KRMapProjection &projection, QImage *picture,
                                       double factor, int timeLimitMs)
{
    picture->fill(Qt::magenta);
    KRTileGround ground(source);
    QPainter painter(picture);
    return ground.paintWhole(&painter, picture->size(), projection, factor, KRMapPatience(timeLimitMs));
}

void tst_KRTileGround::tilesLieInTheirPlaces()
{
    // area: south, north, west, east
    const KRTestTable<QList<double>, QSize, double> table{
        {"world", QList<double>{-80, 80, -180, 180}, QSize(800, 600), 1.0},
        {"across the date line", QList<double>{-40, 10, 150, -150}, QSize(700, 900), 1.0},
        {"dense screen", QList<double>{40, 60, 0, 20}, QSize(900, 700), 2.0},
        {"larger than one piece", QList<double>{30, 70, -20, 40}, QSize(2500, 1400), 1.0},
        {"finer than the source", QList<double>{50, 51, 8, 9}, QSize(500, 500), 1.0},
    };
    table.forEach([&](const QList<double> &area, const QSize &size, double factor) {
        const KRGeoPositionRect rect(KRLatitudeRange(area.at(0), area.at(1)), KRLongitudeRange(area.at(2), area.at(3)));
        const KRMapProjection projection(rect, size);
        QImage picture(size, QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(paintWhole(m_worldFile, projection, &picture, factor).count, 0);

        // Every place shows the colour of its tile, all of one level, or a mixture at the borders of tiles.
        QHash<int, int> levels;
        int beyond = 0;
        int count = 0;
        for (int y = 3; y < size.height(); y += 17) {
            for (int x = 3; x < size.width(); x += 17) {
                const KRGeoPosition position = projection.convert(QPoint(x, y));
                const double latitude = position.latitude().decimalDegrees();
                const QColor pixel = picture.pixelColor(x, y);
                if (qAbs(latitude) > 85.0) {
                    ++beyond;
                    QVERIFY(pixel == KRMapGround::paperColor || qAbs(latitude) < 85.1);
                    continue;
                }
                ++levels[KRTestTiles::zoomOf(pixel, latitude, position.longitude().decimalDegrees(), 5)];
                ++count;
            }
        }
        QVERIFY(count > 500 || beyond > 0);
        QCOMPARE(levels.value(-1) * 10 < count, true);
        levels.remove(-1);
        QCOMPARE(levels.size(), 1);
    });
}

void tst_KRTileGround::levelSuitsThePicture()
{
    // worldSize: pixels
    const KRTestTable<int, double, double, int> table{
        {"tiles in their own size", 256, 256.0 * 16, 1.0, 4},
        {"reduced rather than much enlarged", 256, 256.0 * 16 * 1.3, 1.0, 5},
        {"large tiles are for dense screens", 512, 512.0 * 16, 2.0, 4},
        {"large tiles, normal screen: the letters count", 512, 256.0 * 16, 1.0, 4},
        {"no finer tiles", 256, 256.0 * 512, 1.0, 6},
    };
    table.forEach([&](int tileSide, double worldSize, double factor, int expected) {
        init();
        KRTileKeyList keys;
        for (int zoom = 3; zoom <= 6; ++zoom) {
            const KRTileKey key = KRTestTiles::keyAt(zoom, 10.0, 8.0);
            for (int x = key.x - 1; x <= key.x + 3; ++x) {
                for (int y = key.y - 1; y <= key.y + 1; ++y)
                    keys.append({zoom, x, y});
            }
        }
        const QString source = writeFolder(keys, tileSide);
        const QSize size(300, 200);
        const double width = 360.0 * size.width() / worldSize;
        const KRMapProjection projection(
            KRGeoPositionRect(KRLatitudeRange(10.0, 10.01), KRLongitudeRange(8.0, 8.0 + width)), size);
        QImage picture(size, QImage::Format_ARGB32_Premultiplied);
        paintWhole(source, projection, &picture, factor);
        int zoom = -1;
        for (int x = 40; zoom < 0 && x < 260; x += 31) {
            const KRGeoPosition position = projection.convert(QPoint(x, 77));
            zoom = KRTestTiles::zoomOf(picture.pixelColor(x, 77), position.latitude().decimalDegrees(),
                                       position.longitude().decimalDegrees(), 6);
        }
        QCOMPARE(zoom, expected);
    });
}

void tst_KRTileGround::noSeamsBetweenTiles()
{
    // All tiles alike: nothing else may show between them, nor between the pieces of a large picture.
    const QString source = path(QStringLiteral("tiles"));
    for (const KRTileKey &key : KRTestTiles::pyramid(0, 4))
        KRTestTiles::writeFile(QStringLiteral("%1/%2/%3/%4.png").arg(source).arg(key.zoom).arg(key.x).arg(key.y),
                               KRTestTiles::picture({3, 1, 1}, 64));
    QImage picture(2101, 1303, QImage::Format_RGB32);
    const KRMapProjection projection(KRGeoPositionRect(KRLatitudeRange(-60, 70), KRLongitudeRange(-170, 170)),
                                     picture.size());
    paintWhole(source, projection, &picture, 1.37);
    QSet<QRgb> colors;
    for (int y = 0; y < picture.height(); ++y) {
        const auto *const line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        colors += QSet<QRgb>(line, line + picture.width());
    }
    QCOMPARE(colors, QSet<QRgb>{KRTestTiles::color({3, 1, 1}).rgb()});
}

void tst_KRTileGround::coarserTilesStandIn()
{
    KRTileKeyList keys = KRTestTiles::pyramid(0, 2);
    const KRTileKey there = KRTestTiles::keyAt(8, 53.15, 8.1);
    keys << there;
    QImage picture(700, 500, QImage::Format_RGB32);
    const KRMapProjection projection(KRGeoPositionRect(KRLatitudeRange(52.5, 53.8), KRLongitudeRange(7.0, 9.5)),
                                     picture.size());
    QCOMPARE(paintWhole(writeFolder(keys), projection, &picture).count, 0);
    const QPointF inside = projection.getPixelCoordinateByMapCoordinate(53.15, 8.1);
    QCOMPARE(picture.pixelColor(inside.toPoint()), KRTestTiles::color(there));
    QCOMPARE(picture.pixelColor(690, 10), KRTestTiles::color(KRTestTiles::keyAt(2, 53.8, 9.5)));
}

void tst_KRTileGround::staysInItsRectangle()
{
    KRTileGround ground(writeFolder(KRTestTiles::pyramid(0, 3), 32));
    const QSize size(250, 200);
    const KRMapProjection projection(KRTestMap{-89, 89, -170, 170}.area(), size);
    QVERIFY(KRTestPicture::fills(size, [&](QPainter *painter) {
        ground.paintWhole(painter, size, projection, 1.0, KRMapPatience(KRTestTileServer::longTimeMs));
    }));
}

void tst_KRTileGround::viewerIsNotKeptWaiting()
{
    KRTestTileServer server([](const KRTileKey &key, int) { return good(key, 150); });
    KRTileGround ground(server.address());
    QSignalSpy changes(&ground, &KRMapGround::changed);
    QImage picture(400, 300, QImage::Format_RGB32);
    const KRMapProjection projection = cityProjection(picture.size());
    const auto paint = [&] {
        QPainter painter(&picture);
        ground.paint(&painter, picture.size(), projection, 1.0);
    };
    paint();
    QCOMPARE(picture.pixelColor(200, 150), KRMapGround::paperColor);

    // The view paints anew whenever something came.
    const auto isPainted = [&] {
        if (changes.count() > 0) {
            changes.clear();
            paint();
        }
        const KRGeoPosition middle = projection.convert(QPoint(200, 150));
        return KRTestTiles::zoomOf(picture.pixelColor(200, 150), middle.latitude().decimalDegrees(),
                                   middle.longitude().decimalDegrees(), 19)
               > 0;
    };
    QTRY_VERIFY_WITH_TIMEOUT(isPainted(), KRTestTileServer::longTimeMs);
    QVERIFY(ground.problem().isEmpty());
}

void tst_KRTileGround::finerTilesStandInMeanwhile()
{
    constexpr int finestMissing = 8;
    KRTestTileServer server([](const KRTileKey &key, int) { return good(key, key.zoom > finestMissing ? 0 : -1); });
    KRTileGround ground(server.address());
    QImage picture(400, 300, QImage::Format_RGB32);
    QPainter painter(&picture);
    const KRMapPatience patience(KRTestTileServer::longTimeMs);
    QCOMPARE(ground.paintWhole(&painter, picture.size(), cityProjection(picture.size()), 1.0, patience).count, 0);
    const KRGeoPosition middle(53.15, 8.25);
    const auto zoomInTheMiddle = [&](const KRMapProjection &projection) {
        return KRTestTiles::zoomOf(picture.pixelColor(projection.projectate(middle).toPoint()),
                                   middle.latitude().decimalDegrees(), middle.longitude().decimalDegrees(), 19);
    };
    const int zoom = zoomInTheMiddle(cityProjection(picture.size()));
    QVERIFY(zoom > finestMissing);

    const KRMapProjection wider(KRGeoPositionRect(KRLatitudeRange(52.7, 53.6), KRLongitudeRange(7.2, 9.3)),
                                picture.size());
    ground.paint(&painter, picture.size(), wider, 1.0);
    QCOMPARE(zoomInTheMiddle(wider), zoom);
    QCOMPARE(picture.pixelColor(2, 2), KRMapGround::paperColor);
}

void tst_KRTileGround::answersOfServers()
{
    using Function = KRTestTileServer::Function;
    const auto status = [](int code, const QByteArray &headers = QByteArray()) {
        return Function([=](const KRTileKey &, int) { return Answer{code, headers, "sorry", 0}; });
    };
    const auto atFirst = [](int code, const QByteArray &headers) {
        return Function([=](const KRTileKey &key, int attempt) {
            return attempt == 1 ? Answer{code, headers, "", 0} : good(key);
        });
    };
    // word: of the reason of the gaps
    // mostRequests: for one tile
    const KRTestTable<Function, bool, const char *, int> table{
        {"no fine tiles", Function([](const KRTileKey &key, int) {
             return key.zoom > 5 ? Answer{404, "", "", 0} : good(key);
         }),
         true, "", 1},
        {"forbidden", status(403), false, "403", 1},
        {"trouble at first", atFirst(500, ""), true, "", 2},
        {"trouble for good", status(500), false, "500", 3},
        {"overloaded for good", status(503), false, "503", 8},
        {"to be left alone for long", status(503, "Retry-After: 600\r\n"), false, "503", 1},
        {"a web page instead", status(200), false, "weder", 1},
        {"a body without end", Function([](const KRTileKey &, int) {
             return Answer{200, "", QByteArray(20 << 20, 'x'), 0};
         }),
         false, "groß", 1},
        {"one page for all, which may be kept", Function([](const KRTileKey &key, int) {
             return key.zoom > 0 ? Answer{302, "Location: /0/0/0.png\r\n", "", 0}
                                 : Answer{200, "Cache-Control: max-age=3600\r\n" + date(), "<html>", 0};
         }),
         false, "weder", 8},
        {"round in circles", status(302, "Location: /1/1/1.png\r\n"), false, "", 40},
    };
    table.forEach([&](const Function &function, bool isWhole, const char *word, int mostRequests) {
        init();
        KRTestTileServer server(function);
        QImage picture(200, 150, QImage::Format_RGB32);
        const KRMapGaps gaps = paintWhole(server.address(), cityProjection(picture.size()), &picture);
        QCOMPARE(gaps.count == 0, isWhole);
        QVERIFY2(gaps.reason.contains(QString::fromUtf8(word)) && gaps.reason.isEmpty() == isWhole,
                 qPrintable(gaps.reason));
        QCOMPARE(picture.pixelColor(100, 75) == KRMapGround::paperColor, !isWhole);
        for (int zoom = 0; zoom < 20; ++zoom)
            QVERIFY(server.countOfRequests(KRTestTiles::keyAt(zoom, 53.15, 8.25)) <= mostRequests);
    });
}

void tst_KRTileGround::serverIsAskedPolitely()
{
    KRTestTileServer server([](const KRTileKey &key, int) { return good(key, 20); });
    {
        const KRTileGround unused(server.address());
        QTest::qWait(200);
    }
    QCOMPARE(server.countOfRequests(), 0);

    QImage picture(1200, 900, QImage::Format_RGB32);
    QCOMPARE(paintWhole(server.address(), cityProjection(picture.size()), &picture).count, 0);
    QVERIFY(server.countOfRequests() > 15);
    QVERIFY(server.mostAtOnce() <= 4);
    QVERIFY(server.lastRequest().contains("\r\nUser-Agent: KRTests/"));
    QVERIFY(!server.lastRequest().contains("Mozilla"));
}

void tst_KRTileGround::tilesAreKeptOnDisk()
{
    const KRTestTable<QByteArray, bool> table{
        {"nothing said", {}, false},
        {"to be looked at each time", "Cache-Control: max-age=0, must-revalidate\r\n", true},
        {"not to be kept", "Cache-Control: no-store\r\n", true},
    };
    table.forEach([&](const QByteArray &headers, bool isAskedAgain) {
        init();
        KRTestTileServer server([=](const KRTileKey &key, int) {
            Answer answer = good(key);
            answer.headers = headers + date();
            return answer;
        });
        QImage picture(400, 300, QImage::Format_RGB32);
        QCOMPARE(paintWhole(server.address(), cityProjection(picture.size()), &picture).count, 0);
        const int count = server.countOfRequests();
        QVERIFY(count > 0);
        QImage again(picture.size(), picture.format());
        QCOMPARE(paintWhole(server.address(), cityProjection(picture.size()), &again).count, 0);
        QCOMPARE(server.countOfRequests() > count, isAskedAgain);
        QCOMPARE(again, picture);
    });
}

void tst_KRTileGround::damagedTilesOnDiskAreReplaced()
{
    KRTestTileServer server([](const KRTileKey &key, int) { return good(key); });
    QImage picture(400, 300, QImage::Format_RGB32);
    QCOMPARE(paintWhole(server.address(), cityProjection(picture.size()), &picture).count, 0);
    const int count = server.countOfRequests();
    // As after a power failure: the files are there, without what was in them.
    int damaged = 0;
    QDirIterator files(cacheFolder(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        QVERIFY(file.open(QIODevice::ReadWrite));
        const int start = file.readAll().indexOf("PNG\r\n") + 8;
        QVERIFY(start > 8 && file.seek(start));
        file.write(QByteArray(int(file.size()) - start, '\0'));
        ++damaged;
    }
    QVERIFY(damaged > 0);
    QImage again(picture.size(), picture.format());
    QCOMPARE(paintWhole(server.address(), cityProjection(picture.size()), &again).count, 0);
    QCOMPARE(again, picture);
    QCOMPARE(server.countOfRequests(), count + damaged);
}

void tst_KRTileGround::oldTilesServeWithoutServer()
{
    for (const bool isSentOn : {false, true}) {
        init();
        QAtomicInt isDown = 0;
        KRTestTileServer server([&](const KRTileKey &key, int) {
            constexpr int behind = 50;
            if (isSentOn && key.zoom < behind) {
                const QString place = QStringLiteral("/%1/%2/%3.png").arg(key.zoom + behind).arg(key.x).arg(key.y);
                return Answer{302, "Location: " + place.toLatin1() + "\r\n", "", 0};
            }
            Answer answer = good({key.zoom % behind, key.x, key.y});
            answer.headers = "Cache-Control: max-age=0, must-revalidate\r\n";
            return isDown.loadAcquire() == 0 ? answer : Answer{503, "", "", 0};
        });
        QImage picture(400, 300, QImage::Format_RGB32);
        QCOMPARE(paintWhole(server.address(), cityProjection(picture.size()), &picture).count, 0);
        // Qt now and then does not keep a tile that it was sent on to.
        const int tiles = server.countOfRequests() / (isSentOn ? 2 : 1);
        for (int i = 0; i < 9 && countOfKept() < tiles; ++i)
            paintWhole(server.address(), cityProjection(picture.size()), &picture);
        const int count = server.countOfRequests();
        isDown.storeRelease(1);
        QImage again(picture.size(), picture.format());
        QCOMPARE(paintWhole(server.address(), cityProjection(picture.size()), &again).count, 0);
        QVERIFY(server.countOfRequests() > count);
        QCOMPARE(again, picture);
    }
}

void tst_KRTileGround::whatLeftTheViewIsGivenUp()
{
    KRTestTileServer server([](const KRTileKey &key, int) { return good(key, 100); });
    KRTileGround ground(server.address());
    QImage picture(1200, 900, QImage::Format_RGB32);
    const auto paint = [&](double west) {
        const KRGeoPositionRect area(KRLatitudeRange(50.0, 50.1), KRLongitudeRange(west, west + 0.2));
        QPainter painter(&picture);
        ground.paint(&painter, picture.size(), KRMapProjection(area, picture.size()), 1.0);
    };
    paint(8.0);
    QSignalSpy changes(&ground, &KRMapGround::changed);
    QVERIFY(changes.wait(KRTestTileServer::longTimeMs)); // the source was opened
    for (int i = 0; i < 10; ++i) {
        paint(8.0 + 5.0 * i);
        QTest::qWait(30);
    }
    QTRY_COMPARE_WITH_TIMEOUT(changes.wait(600), false, KRTestTileServer::longTimeMs);
    // Ten pictures have some 300 tiles; those of the last one, and few of those before, were asked for.
    QVERIFY2(server.countOfRequests() < 200, qPrintable(QString::number(server.countOfRequests())));
    QVERIFY(server.countOfRequests() > 20);
}

void tst_KRTileGround::storeForgetsTheOldest()
{
    KRTileStore store(1000); // three tiles and a bit
    QImage tile(256, 256, QImage::Format_ARGB32_Premultiplied);
    tile.fill(Qt::red);
    for (int x = 0; x < 3; ++x)
        store.insert({4, x, 0}, tile);
    QCOMPARE(store.find({4, 0, 0}).state, KRTileStore::Here); // and so the youngest
    store.insert({4, 3, 0}, tile);
    QCOMPARE(store.find({4, 0, 0}).state, KRTileStore::Here);
    QCOMPARE(store.find({4, 1, 0}).state, KRTileStore::Unknown);

    store.setFailed({4, 5, 5}, QStringLiteral("reason"), 30);
    QCOMPARE(store.find({4, 5, 5}).state, KRTileStore::Failed);
    QTRY_COMPARE(store.find({4, 5, 5}).state, KRTileStore::Unknown);
}

template class KRTestRegistration<tst_KRTileGround>;

#include "tst_KRTileGround.moc"
