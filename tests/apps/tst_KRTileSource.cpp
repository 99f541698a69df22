#include "KRTileSource.h"

#include "KRTestRegistry.h"
#include "KRTestTiles.h"
#include "KRTileDecoder.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>

#include <QImage>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <sys/stat.h>

using Texts = QHash<QString, QString>;

Q_DECLARE_METATYPE(Texts)
Q_DECLARE_METATYPE(KRIntRange)

class tst_KRTileSource : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void tilesAreFound_data();
    void tilesAreFound();
    void whatCannotBeOpened_data();
    void whatCannotBeOpened();
    void creditIsPlainText();
    void levels_data();
    void levels();
    void levelsOfLargeFiles();
    void severalThreadsReadOneFile();
    void brokenTiles_data();
    void brokenTiles();
    void filesThatAreNoFiles();

private:
    QString path(const QString &name) const { return m_dir->filePath(name); }
    static KRTileAnswer ask(KRTileSource *source, const KRTileKey &key);
    static QColor colorOf(const KRTileAnswer &answer);

    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_KRTileSource::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
}

KRTileAnswer tst_KRTileSource::ask(KRTileSource *source, const KRTileKey &key)
{
    KRTileAnswer found;
    found.kind = KRTileAnswer::Overloaded;
    const QObject receiver;
    connect(source, &KRTileSource::answered, &receiver, [&](const KRTileKey &answered, const KRTileAnswer &answer) {
        if (answered == key)
            found = answer;
    });
    source->request(key);
    return found;
}

QColor tst_KRTileSource::colorOf(const KRTileAnswer &answer)
{
    QString problem;
    const QImage image = KRTileDecoder::decode(answer.bytes, &problem);
    return image.isNull() ? QColor() : image.pixelColor(image.rect().center());
}

void tst_KRTileSource::tilesAreFound_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("MBTiles, rows from the south") << "a.mbtiles";
    QTest::newRow("folder") << "folder";
    QTest::newRow("folder as an address") << "file:folder";
    QTest::newRow("template") << "folder/{z}/{x}/{y}.png";
    QTest::newRow("template, rows from the south") << "flipped/{z}-{x}-{-y}.tile";
}

void tst_KRTileSource::tilesAreFound()
{
    QFETCH(QString, text);
    const KRTileKeyList keys = KRTestTiles::pyramid(0, 3);
    KRTestTiles::writeMbtiles(path(QStringLiteral("a.mbtiles")), keys);
    KRTestTiles::writeFolder(path(QStringLiteral("folder")), keys);
    for (const KRTileKey &key : keys) {
        const int row = (1 << key.zoom) - 1 - key.y;
        KRTestTiles::writeFile(path(QStringLiteral("flipped/%1-%2-%3.tile")).arg(key.zoom).arg(key.x).arg(row),
                               KRTestTiles::picture(key));
    }
    const bool isAddress = text.startsWith(QLatin1String("file:"));
    const QString name = isAddress ? QStringLiteral("file://") + path(text.mid(5)) : path(text);

    const std::unique_ptr<KRTileSource> source = KRTileSource::open(name, nullptr);
    QVERIFY(source != nullptr);
    for (const KRTileKey &key : keys)
        QCOMPARE(colorOf(ask(source.get(), key)), KRTestTiles::color(key));
    QCOMPARE(ask(source.get(), {4, 3, 3}).kind, KRTileAnswer::Absent);
}

void tst_KRTileSource::whatCannotBeOpened_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("word"); // of the reason
    QTest::newRow("nothing there") << "@missing.mbtiles"
                                   << "gefunden";
    QTest::newRow("a text") << "@text.mbtiles"
                            << "keine MBTiles";
    QTest::newRow("a database of something else") << "@other.mbtiles"
                                                  << "keine MBTiles";
    QTest::newRow("a damaged database") << "@damaged.mbtiles"
                                        << "gelesen";
    QTest::newRow("vectors") << "@vectors.mbtiles"
                             << "Vektoren";
    QTest::newRow("a pipe") << "@pipe.mbtiles"
                            << "keine gewöhnliche Datei";
    QTest::newRow("a folder without tiles") << "@empty"
                                            << "keine Kacheln";
    QTest::newRow("no folder for the template") << "@nowhere/{z}/{x}/{y}.png"
                                                << "Ordner";
    QTest::newRow("no row") << "https://tiles.example/{z}/{x}.png"
                            << "{y}";
    QTest::newRow("unknown place") << "https://tiles.example/{z}/{x}/{y}{r}.png"
                                   << "{r}";
    QTest::newRow("another protocol") << "ftp://tiles.example/{z}/{x}/{y}.png"
                                      << "http://";
    QTest::newRow("no host") << "https:///{z}/{x}/{y}.png"
                             << "keine Adresse";
    QTest::newRow("empty") << ""
                           << "gefunden";
}

void tst_KRTileSource::whatCannotBeOpened()
{
    QFETCH(QString, text);
    QFETCH(QString, word);
    KRTestTiles::writeFile(path(QStringLiteral("text.mbtiles")), "no database");
    KRTestTiles::writeFile(path(QStringLiteral("damaged.mbtiles")),
                           QByteArrayLiteral("SQLite format 3\0") + QByteArray(5000, 'x'));
    KRTestTiles::runSql(path(QStringLiteral("other.mbtiles")), {QStringLiteral("CREATE TABLE songs (name text)")});
    KRTestTiles::writeMbtiles(path(QStringLiteral("vectors.mbtiles")), {},
                              {{QStringLiteral("format"), QStringLiteral("pbf")}});
    QCOMPARE(::mkfifo(QFile::encodeName(path(QStringLiteral("pipe.mbtiles"))).constData(), 0600), 0);
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("empty")));

    KRErrorHistory history;
    const QString name = text.startsWith(QLatin1Char('@')) ? path(text.mid(1)) : text;
    QVERIFY(KRTileSource::open(name, &history) == nullptr);
    QCOMPARE(history.entries().size(), 1);
    QVERIFY2(history.entries().first().reason.contains(word), qPrintable(history.entries().first().reason));
}

void tst_KRTileSource::creditIsPlainText()
{
    const QString file = path(QStringLiteral("a.mbtiles"));
    KRTestTiles::writeMbtiles(
        file, {},
        {{QStringLiteral("attribution"),
          QStringLiteral("&copy; <a href=\"https://x.example\">Stadt</a>\n<img src=\"x\"/> &amp; Land")}});
    QCOMPARE(KRTileSource::open(file, nullptr)->credit(), QStringLiteral("© Stadt & Land"));
}

void tst_KRTileSource::levels_data()
{
    QTest::addColumn<Texts>("metadata");
    QTest::addColumn<KRIntRange>("expected");
    const QString lowest = QStringLiteral("minzoom");
    const QString highest = QStringLiteral("maxzoom");
    QTest::newRow("as the file says") << Texts{{lowest, QStringLiteral("1")}, {highest, QStringLiteral("4")}}
                                      << KRIntRange(1, 4);
    QTest::newRow("as the tiles are") << Texts{} << KRIntRange(2, 3);
    QTest::newRow("no numbers") << Texts{{lowest, QStringLiteral("a")}, {highest, QStringLiteral("b")}}
                                << KRIntRange(2, 3);
    QTest::newRow("beyond all bounds") << Texts{{lowest, QStringLiteral("-5")}, {highest, QStringLiteral("2000000")}}
                                       << KRIntRange(0, KRTileKey::largestZoom);
    QTest::newRow("the wrong way round") << Texts{{lowest, QStringLiteral("4")}, {highest, QStringLiteral("1")}}
                                         << KRIntRange(4, 4);
}

void tst_KRTileSource::levels()
{
    QFETCH(Texts, metadata);
    QFETCH(KRIntRange, expected);
    const QString file = path(QStringLiteral("a.mbtiles"));
    KRTestTiles::writeMbtiles(file, KRTestTiles::pyramid(2, 3), metadata);
    const KRIntRange range = KRTileSource::open(file, nullptr)->zoomRange();
    QCOMPARE(range.minimum(), expected.minimum());
    QCOMPARE(range.maximum(), expected.maximum());
}

void tst_KRTileSource::levelsOfLargeFiles()
{
    // Few rows that take long stand for very many.
    const QString file = path(QStringLiteral("a.mbtiles"));
    KRTestTiles::runSql(
        file, {QStringLiteral("CREATE TABLE map (zoom_level int, tile_column int, tile_row int, tile_data blob)"),
               QStringLiteral("CREATE INDEX levels ON map (zoom_level)"),
               QStringLiteral("WITH RECURSIVE numbers(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM numbers LIMIT 8000) "
                              "INSERT INTO map SELECT 3 + n % 6, n, n, 'x' FROM numbers"),
               QStringLiteral("CREATE VIEW tiles AS SELECT * FROM map "
                              "WHERE length(hex(zeroblob(1000000 + 0 * tile_row))) > 0")});
    const std::unique_ptr<KRTileSource> source = KRTileSource::open(file, nullptr);
    const KRIntRange range = source->zoomRange();
    QCOMPARE(range.minimum(), 3);
    QCOMPARE(range.maximum(), 8);
    QCOMPARE(ask(source.get(), {3, 0, 7}).kind, KRTileAnswer::Found);
}

void tst_KRTileSource::severalThreadsReadOneFile()
{
    const QString file = path(QStringLiteral("a.mbtiles"));
    const KRTileKeyList keys = KRTestTiles::pyramid(0, 4);
    KRTestTiles::writeMbtiles(file, keys);
    QAtomicInt wrong = 0;
    std::vector<std::unique_ptr<QThread>> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back(QThread::create([&] {
            const std::unique_ptr<KRTileSource> source = KRTileSource::open(file, nullptr);
            for (const KRTileKey &key : keys) {
                if (colorOf(ask(source.get(), key)) != KRTestTiles::color(key))
                    wrong.ref();
            }
        }));
        threads.back()->start();
    }
    for (const auto &thread : threads)
        QVERIFY(thread->wait(60000));
    QCOMPARE(wrong.loadAcquire(), 0);
}

void tst_KRTileSource::brokenTiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("word"); // of the problem; none where there is a picture
    const QByteArray good = KRTestTiles::picture({2, 1, 1});
    QByteArray huge = good;
    huge.replace(16, 8, QByteArray::fromHex("0000753000007530")); // width and height in the header
    QTest::newRow("good PNG") << good << "";
    QTest::newRow("good JPEG") << KRTestTiles::picture({2, 1, 1}, 256, "jpg") << "";
    QTest::newRow("good WebP") << KRTestTiles::picture({2, 1, 1}, 256, "webp") << "";
    QTest::newRow("large, reduced") << KRTestTiles::picture({2, 1, 1}, 1024) << "";
    QTest::newRow("empty") << QByteArray() << "weder";
    QTest::newRow("a web page") << QByteArray("<html>Login</html>") << "weder";
    QTest::newRow("a drawing") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>")
                               << "weder";
    QTest::newRow("a bitmap") << KRTestTiles::picture({2, 1, 1}, 256, "bmp") << "weder";
    QTest::newRow("30000 pixels wide") << huge << "Größe";
    QTest::newRow("4096 pixels wide") << KRTestTiles::picture({2, 1, 1}, 4096) << "Größe";
    QTest::newRow("cut off in the header") << good.left(20) << "e";
}

void tst_KRTileSource::brokenTiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, word);
    QString problem;
    const QImage image = KRTileDecoder::decode(bytes, &problem);
    QCOMPARE(image.isNull(), !word.isEmpty());
    QVERIFY2(problem.contains(word) && problem.isEmpty() == word.isEmpty(), qPrintable(problem));
    QVERIFY(image.width() == image.height() && image.width() <= KRTileDecoder::largestSide);
}

void tst_KRTileSource::filesThatAreNoFiles()
{
    const QString folder = path(QStringLiteral("tiles"));
    KRTestTiles::writeFile(folder + QStringLiteral("/0/0/0.png"), KRTestTiles::picture({0, 0, 0}));
    KRTestTiles::writeFile(folder + QStringLiteral("/1/0/0.png"), QByteArray(KRInputLimits::tileBytes + 1, ' '));
    QVERIFY(QDir().mkpath(folder + QStringLiteral("/1/0/1.png")));
    QVERIFY(QDir().mkpath(folder + QStringLiteral("/1/1")));
    QCOMPARE(::mkfifo(QFile::encodeName(folder + QStringLiteral("/1/1/0.png")).constData(), 0600), 0);
    QVERIFY(QFile::link(QStringLiteral("1.png"), folder + QStringLiteral("/1/1/1.png")));

    const std::unique_ptr<KRTileSource> source = KRTileSource::open(folder, nullptr);
    QVERIFY(source != nullptr);
    for (const KRTileKey &key : KRTestTiles::pyramid(1, 1)) {
        const KRTileAnswer answer = ask(source.get(), key);
        QCOMPARE(answer.kind, KRTileAnswer::Failed);
        QVERIFY(!answer.reason.isEmpty());
    }

    const QString file = path(QStringLiteral("a.mbtiles"));
    KRTestTiles::writeMbtiles(file, {});
    KRTestTiles::runSql(file, {QStringLiteral("INSERT INTO tiles VALUES (0, 0, 0, zeroblob(9000000))")});
    QCOMPARE(ask(KRTileSource::open(file, nullptr).get(), {0, 0, 0}).kind, KRTileAnswer::Failed);
}

static const KRTestRegistration<tst_KRTileSource> registration;

#include "tst_KRTileSource.moc"
