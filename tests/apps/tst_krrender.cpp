#include "KRPictureReader.h"
#include "KRRenderTest.h"
#include "KRTestFile.h"
#include "KRTestTiles.h"

#include <climits>

#include <unistd.h>

/// The pictures that the program draws, on all kinds of ground.
class tst_krrender : public KRRenderTest
{
    Q_OBJECT

private slots:
    void formats();
    void looks();
    void furnitureStandsOnEveryMap();
    void pictureAsMap();
    void largeGroundOfDocuments();
    void tilesAsMap();
    void missingTilesAreTold();
    void worksWithoutFurtherThreads();
    void documentIsDrawnTheSame();
};

namespace {

constexpr QColor clear(0, 0, 0, 0);
constexpr QColor orange(0xff, 0x91, 0x00);

/// How many pixels are nearly of that colour.
int countOf(const QImage &picture, const QColor &color)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            const int difference = qAbs(pixel.red() - color.red()) + qAbs(pixel.green() - color.green())
                                   + qAbs(pixel.blue() - color.blue()) + qAbs(pixel.alpha() - color.alpha());
            count += difference < 24 ? 1 : 0;
        }
    }
    return count;
}

} // namespace

void tst_krrender::formats()
{
    const KRTestTable<QByteArray, const char *, QByteArray> table{
        {"PNG", "-o a.png", "a.png", "\x89PNG"},
        {"JPEG", "-o Straße.jpg", "Straße.jpg", "\xff\xd8\xff"},
        {"WebP", "-o a.b.webp", "a.b.webp", "RIFF"},
        {"SVG", "-o a.svg", "a.svg", "<?xml"},
        {"PDF", "-o a.PDF", "a.PDF", "%PDF-"},
        {"any name", "-o map.bin --format pdf", "map.bin", "%PDF-"},
        {"no name", "", "oldenburg-radtour.png", "\x89PNG"},
        {"standard output", "-o - --verbose", "", "\x89PNG"},
        {"KML to the standard output", "-o - --format kml", "", "<?xml"},
    };
    table.forEach([this](const QByteArray &options, const char *name, const QByteArray &start) {
        const Outcome outcome = run("krrender --size 300x200 " + options + " $tour");
        QCOMPARE(outcome.exitCode, 0);
        const QByteArray bytes = *name == '\0' ? outcome.out : KRTestFile::content(path(name));
        QCOMPARE(bytes.left(start.size()), start);
        if (start.front() != '<' && start.front() != '%') {
            const QImage picture = QImage::fromData(bytes);
            QCOMPARE(picture.size(), QSize(300, 200));
            QVERIFY(!picture.hasAlphaChannel()); // the map covers it all
        }
        QVERIFY(*name == '\0' || QFile::remove(path(name)));
        QVERIFY(isEmpty());
    });
}

void tst_krrender::looks()
{
    // a colour and how many pixels have it, at least and at most, and the opacity of a pixel
    const QByteArray red = "--line-color '#d00000' --halo 8 $tour";
    const QByteArray fill = "--no-map --shape polygon --display fill --fill-color '#800000ff' $lake";
    const QByteArray palette = "--no-map --palette $tour $lake";
    const QPoint corner(2, 2);
    const KRTestTable<QByteArray, QColor, int, int, QPoint, int> table{
        {"line", red, QColor(0xd0, 0, 0), 5000, 100000, corner, 255},
        {"usual line", "--no-map $tour", orange, 5000, 100000, corner, 0},
        {"area; the lake in the middle is an enclave", fill, QColor(0, 0, 255, 128), 50000, INT_MAX, {800, 600}, 0},
        {"cropped", "--crop 60 $tour", orange, 5000, 100000, corner, 60},
        {"second of the palette", palette, QColor(0xd5, 0x5e, 0x00), 500, INT_MAX, corner, 0},
    };
    table.forEach(
        [this](const QByteArray &options, const QColor &color, int least, int most, QPoint pixel, int opacity) {
            const QImage picture = draw(options);
            QCOMPARE(picture.size(), QSize(1600, 1200));
            const int count = countOf(picture, color);
            QVERIFY2(count >= least && count <= most, qPrintable(QString::number(count)));
            QCOMPARE(picture.pixelColor(pixel).alpha(), opacity);
        });

    const int once = countOf(draw("--no-map --size 800x600 $tour"), orange);
    const int twice = countOf(draw("--no-map --size 1600x1200 --scale 2 $tour"), orange);
    QVERIFY2(twice > 3 * once && twice < 6 * once, qPrintable(QStringLiteral("%1 %2").arg(once).arg(twice)));
}

void tst_krrender::furnitureStandsOnEveryMap()
{
    const QImage plain = draw("--no-scale-bar --no-attribution $tour");
    const QImage both = draw("$tour");
    const QImage barOnly = draw("--no-attribution $tour");
    const QRect left(0, 1100, 800, 100);
    const QRect right(800, 1100, 800, 100);
    QVERIFY(both.copy(left) != plain.copy(left));
    QVERIFY(both.copy(right) != plain.copy(right));
    QCOMPARE(barOnly.copy(left), both.copy(left));
    QCOMPARE(barOnly.copy(right), plain.copy(right));
    QCOMPARE(countOf(draw("--no-map $tour").copy(left), clear), 800 * 100);
}

void tst_krrender::pictureAsMap()
{
    QImage ground(200, 100, QImage::Format_RGB32);
    ground.fill(Qt::green);
    QVERIFY(ground.save(path("ground.png")));
    const QImage map = draw("--map ground.png $tour");
    QCOMPARE(map.size(), ground.size());
    QVERIFY(countOf(map, Qt::green) > 3000);

    KRTestFile::write(path("broken.png"), "not a picture");
    const Outcome broken = run("krrender --map broken.png $tour");
    QCOMPARE(broken.exitCode, 1);
    QVERIFY(broken.complainsOf("broken.png"));

    QImage large(5900, 5900, QImage::Format_RGB32); // 139 MB
    large.fill(Qt::green);
    QVERIFY(large.save(path("large.png")));
    QCOMPARE(KRPictureReader::read(QFileInfo(path("large.png")), nullptr).size(), large.size());

    QImage huge(7800, 7800, QImage::Format_Mono); // 8 MB, but a map of its size would have 243
    huge.fill(1);
    QVERIFY(huge.save(path("huge.png")));
    QVERIFY(run("krrender --map huge.png $tour").complainsOf("--size"));
    QCOMPARE(draw("--map huge.png --size 80x60 $tour").size(), QSize(80, 60));
}

void tst_krrender::largeGroundOfDocuments()
{
    const Outcome outcome = run("krrender --size 20000x2000 --crop 60 --format svg -o - $tour");
    QCOMPARE(outcome.exitCode, 1);
    QCOMPARE(outcome.err.count(QLatin1String("krrender: ")), 1);
    QVERIFY(outcome.out.contains("<image x=\"0\" y=\"0\" width=\"20000\" height=\"2000\" "));
}

void tst_krrender::tilesAsMap()
{
    KRTestTiles::writeMbtiles(path("world.mbtiles"), KRTestTiles::pyramid(0, 3),
                              {{QStringLiteral("attribution"), QStringLiteral("<b>Kacheln</b> der Stadt")}}, 32);
    const QByteArray tiles = "--tiles world.mbtiles --size 800x600 $tour ";
    const QImage picture = draw(tiles);
    QVERIFY(countOf(picture, KRTestTiles::color(KRTestTiles::keyAt(3, 53.15, 8.2))) > 800 * 600 / 2);

    const QImage bare = draw(tiles + "--no-attribution");
    const QImage other = draw(tiles + "--tiles-credit 'Andere Leute'");
    QVERIFY(other != picture && picture != bare);
}

void tst_krrender::missingTilesAreTold()
{
    KRTestTiles::writeFolder(path("elsewhere"), {{3, 0, 0}});
    KRTestTiles::writeFolder(path("damaged"), {{0, 0, 0}});
    KRTestTiles::writeFile(path("damaged/3/4/2.png"), "no picture");
    const KRTestTable<QByteArray, const char *, bool> table{
        {"no such file", "none.mbtiles", "gefunden", false},
        {"elsewhere", "elsewhere", "Fehlende Kacheln: 1. Die Quelle hat dort", true},
        {"damaged", "damaged", "Fehlende Kacheln: 1. Eine Kachel ist", true},
        {"nobody answers", "http://127.0.0.1:1/{z}/{x}/{y}.png", "nimmt keine Verbindung an", true},
    };
    table.forEach([this](const QByteArray &tiles, const char *word, bool isDrawn) {
        const Outcome outcome = run("krrender --size 300x200 -o - $tour --tiles " + tiles);
        QCOMPARE(outcome.exitCode, 1);
        QVERIFY2(outcome.complainsOf(tiles) && outcome.complainsOf(word), qPrintable(outcome.err));
        QCOMPARE(outcome.out.isEmpty(), !isDrawn);
    });
}

void tst_krrender::worksWithoutFurtherThreads()
{
    // The limit does not hold for root; a sanitizer's search for leaks would need a thread of its own.
    const bool isRoot = ::geteuid() == 0;
    const QByteArray nobody = isRoot ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "";
    const QByteArray user = "cd / && ASAN_OPTIONS=detect_leaks=0 " + nobody;
    const bool isLimitable = run(user + "prlimit --nproc=1 true").exitCode == 0;
    if (!isLimitable || run(user + "krrender --version").exitCode != 0)
        QSKIP("programs cannot be run so");
    const Outcome reading = run(user + "prlimit --nproc=1 krrender --json $tour $lake");
    QVERIFY2(reading.exitCode == 0, qPrintable(reading.err));
    QCOMPARE(reading.out, run("krrender --json $tour $lake").out);
    const QByteArray drawing = "krrender --size 900x700 -o - $tour";
    const Outcome refused = run(user + "prlimit --nproc=1 " + drawing);
    QCOMPARE(refused.exitCode, 1);
    QVERIFY2(refused.complainsOf("keinen weiteren Thread"), qPrintable(refused.err));
    // Where the limit counts all other programs of a user, it leaves none for this one.
    if (isRoot)
        QCOMPARE(run(user + "prlimit --nproc=2 " + drawing).out, run(drawing).out);
}

void tst_krrender::documentIsDrawnTheSame()
{
    QCOMPARE(run("krrender --save R.krroute -o a.png --crop 90 --halo 7 $tour $lake").exitCode, 0);
    const QImage picture(path("a.png"));
    QVERIFY(!picture.isNull());
    QCOMPARE(draw("R.krroute"), picture);

    // Neither through a link over a track file of the document, nor empty over what is there.
    QCOMPARE(run("ln -s R.tracks/track.gps link.png; krrender -o link.png R.krroute").exitCode, 2);
    QCOMPARE(run("krrender --save R.krroute missing.gpx").exitCode, 1);
    QCOMPARE(draw("R.krroute"), picture);

    // A damaged track file: the rest is drawn, and the file is named.
    const Outcome damaged = run("rm R.tracks/track.gps; krrender -o - R.krroute");
    QCOMPARE(damaged.exitCode, 1);
    QVERIFY2(damaged.complainsOf("track.gps"), qPrintable(damaged.err));
    const QImage rest = QImage::fromData(damaged.out);
    QVERIFY(!rest.isNull() && rest != picture);
}

template class KRTestRegistration<tst_krrender>;

#include "tst_krrender.moc"
