#include "KRPatientGround.h"

#include "KRTestMap.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"
#include "KRTestTileServer.h"
#include "KRTestTiles.h"
#include "KRTileGround.h"
#include "KRTileStore.h"

#include <QPainter>
#include <QtTest>

namespace {

constexpr KRTestMap town{53.0, 53.3, 8.0, 8.5};

QImage paint(KRPatientGround *ground, const KRTestMap &map, const QSize &size)
{
    QImage picture(size, QImage::Format_RGB32);
    QPainter painter(&picture);
    ground->paint(&painter, size, map.projection(size), 1.0);
    return picture;
}

} // namespace

class tst_KRPatientGround : public QObject
{
    Q_OBJECT

private slots:
    void asksForEachTileOnce();
    void needsNoMoreThanTheStoreKeeps();
    void waitsNoLongerThanWanted();
};

void tst_KRPatientGround::asksForEachTileOnce()
{
    // kilobytes: of pictures that the store keeps
    const KRTestTable<QSize, int, int, int> table{
        {"slow server", QSize(256, 256), 700, KRTileStore::mostKilobytes, 1},
        // The first of all, and those of two pieces, are forgotten in between.
        {"more tiles than are kept", QSize(3000, 1000), 60, 18000, 3},
    };
    table.forEach([](const QSize &size, int delayMs, int kilobytes, int mostRequests) {
        KRTestTileServer server([=](const KRTileKey &key, int) {
            return KRTestTileServer::Answer{200, QByteArray(), KRTestTiles::picture(key), delayMs};
        });
        KRTileGround tiles(server.address(), std::make_shared<KRTileStore>(kilobytes));
        KRPatientGround ground(&tiles, KRTestTileServer::longTimeMs);
        const QImage picture = paint(&ground, town, size);
        QCOMPARE(ground.gaps().count, 0);
        QVERIFY(server.mostRequestsForOneTile() <= mostRequests);
        for (int x = 10; x < size.width(); x += 100)
            QVERIFY(picture.pixelColor(x, size.height() / 2) != KRMapGround::paperColor);
    });
}

void tst_KRPatientGround::needsNoMoreThanTheStoreKeeps()
{
    // Without coarse tiles a picture of the world has a thousand fine ones, of 5 kB each.
    const QTemporaryDir dir;
    KRTestTiles::writeFolder(dir.path(), KRTestTiles::pyramid(5, 5), 32);
    KRTileGround tiles(dir.path(), std::make_shared<KRTileStore>(1000));
    KRPatientGround ground(&tiles, KRTestTileServer::longTimeMs);
    paint(&ground, {-85.0, 85.0, -180.0, 180.0}, QSize(1100, 1100));
    QCOMPARE(ground.gaps().count, 0);
}

void tst_KRPatientGround::waitsNoLongerThanWanted()
{
    KRTestTileServer silent([](const KRTileKey &, int) { return KRTestTileServer::Answer{200, "", "", -1}; });
    KRTileGround tiles(silent.address());
    const KRTestTable<int, bool> table{
        {"the time is over", 500, false},
        {"it is stopped", KRTestTileServer::longTimeMs, true},
    };
    table.forEach([&](int timeLimitMs, bool isStopped) {
        KRPatientGround ground(&tiles, timeLimitMs);
        QSignalSpy questions(&ground, &KRPatientGround::waiting);
        if (isStopped)
            connect(&ground, &KRPatientGround::waiting, &ground, &KRPatientGround::stop);
        paint(&ground, town, QSize(200, 150));
        QVERIFY(ground.gaps().count > 0);
        QVERIFY(!ground.gaps().reason.isEmpty());
        QVERIFY(questions.count() > 0 && questions.count() < 10);
    });
}

template class KRTestRegistration<tst_KRPatientGround>;

#include "tst_KRPatientGround.moc"
