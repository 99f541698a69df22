#include "KRPictureReader.h"
#include "KRTestRegistry.h"
#include "KRTestTiles.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

/// Runs the program as a user does and looks at its exit code, its words and its pictures.
class tst_krrender : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void drawsASampleOntoTheMap();
    void picturesInManyForms_data();
    void picturesInManyForms();
    void nameOfThePictureWithoutOption();
    void writesToStandardOutput();
    void formatComesFromSuffixOrOption_data();
    void formatComesFromSuffixOrOption();
    void overlayIsTransparent();
    void scaleDrawsTheSameLarger();
    void lookIsApplied();
    void cropFadesTheMapOutside();
    void pictureAsMap();
    void ferryCrossesTheDateLine();
    void tableAndJson();
    void wrongUsage_data();
    void wrongUsage();
    void badInput_data();
    void badInput();
    void goodFilesAreDrawnBesideBadOnes();
    void tellsWhatItDoesNotDraw();
    void plainFilesAndSplitSegments();
    void outputThatCannotBeWritten();
    void standardOutputThatTakesNothing();
    void fullDiskKeepsTheOldFiles();
    void progressLeavesNoTrace();
    void languageFollowsTheLocale();
    void furnitureStandsOnEveryMap();
    void beelinesAndPlaces();
    void paletteTellsTracksApart();
    void documentIsDrawnTheSame();
    void exchangeFilesComeBack_data();
    void exchangeFilesComeBack();
    void otherProgramsReadExchangeFiles_data();
    void otherProgramsReadExchangeFiles();
    void tilesAsMap();
    void missingTilesAreTold_data();
    void missingTilesAreTold();

private:
    struct Outcome {
        int exitCode = -1;
        QByteArray out;
        QString err;
    };
    Outcome run(const QStringList &arguments, const QString &locale = QStringLiteral("de_DE.UTF-8")) const;
    /// The shell script calls the program with its arguments by "$0" "$@".
    Outcome runFrom(const QString &script, const QStringList &arguments) const;
    Outcome finish(const QString &program, const QStringList &arguments, const QString &locale) const;
    QString path(const QString &name) const { return m_dir->filePath(name); }
    QString write(const QString &name, const QByteArray &content) const;
    static QString sample(const QString &name) { return QStringLiteral(KR_SAMPLES_DIR "/") + name; }

    std::unique_ptr<QTemporaryDir> m_dir;
};

namespace {

const QString tour = QStringLiteral("oldenburg-radtour.gpx");

/// How many pixels are nearly of that colour.
int countOf(const QImage &picture, const QColor &color)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            if (qAbs(pixel.red() - color.red()) + qAbs(pixel.green() - color.green())
                    + qAbs(pixel.blue() - color.blue()) + qAbs(pixel.alpha() - color.alpha())
                < 24)
                ++count;
        }
    }
    return count;
}

} // namespace

void tst_krrender::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
}

tst_krrender::Outcome tst_krrender::run(const QStringList &arguments, const QString &locale) const
{
    return finish(QStringLiteral(KR_KRRENDER), arguments, locale);
}

tst_krrender::Outcome tst_krrender::runFrom(const QString &script, const QStringList &arguments) const
{
    return finish(QStringLiteral("sh"),
                  QStringList{QStringLiteral("-c"), script, QStringLiteral(KR_KRRENDER)} + arguments,
                  QStringLiteral("de_DE.UTF-8"));
}

tst_krrender::Outcome tst_krrender::finish(const QString &program, const QStringList &arguments,
                                           const QString &locale) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("LANGUAGE"));
    environment.insert(QStringLiteral("LC_ALL"), locale);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_dir->path());
    process.start(program, arguments);
    Outcome outcome;
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
        return outcome;
    outcome.exitCode = process.exitCode();
    outcome.out = process.readAllStandardOutput();
    outcome.err = QString::fromUtf8(process.readAllStandardError());
    return outcome;
}

QString tst_krrender::write(const QString &name, const QByteArray &content) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

void tst_krrender::drawsASampleOntoTheMap()
{
    const Outcome outcome =
        run({QStringLiteral("--line-color"), QStringLiteral("#d00000"), QStringLiteral("--halo"), QStringLiteral("8"),
             QStringLiteral("-o"), path(QStringLiteral("map.png")), sample(tour)});
    QCOMPARE(outcome.exitCode, 0);
    QCOMPARE(outcome.err, QString());
    const QImage picture(path(QStringLiteral("map.png")));
    QCOMPARE(picture.size(), QSize(1600, 1200));
    QVERIFY(countOf(picture, QColor(0xd0, 0, 0)) > 5000);
    QCOMPARE(countOf(picture, QColor(0, 0, 0, 0)), 0);
}

void tst_krrender::picturesInManyForms_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("format");
    QTest::newRow("PNG") << QStringLiteral("a.png") << QByteArray("png");
    QTest::newRow("upper case") << QStringLiteral("a.PNG") << QByteArray("png");
    QTest::newRow("JPEG") << QStringLiteral("Straße.jpg") << QByteArray("jpeg");
    QTest::newRow("WebP") << QStringLiteral("a.b.webp") << QByteArray("webp");
}

void tst_krrender::picturesInManyForms()
{
    QFETCH(QString, name);
    const Outcome outcome =
        run({QStringLiteral("-o"), path(name), QStringLiteral("--size"), QStringLiteral("300x200"), sample(tour)});
    QCOMPARE(outcome.exitCode, 0);
    QImageReader reader(path(name));
    reader.setDecideFormatFromContent(true);
    QTEST(reader.format(), "format");
    const QImage picture = reader.read();
    QCOMPARE(picture.size(), QSize(300, 200));
    QVERIFY(!picture.hasAlphaChannel()); // the map covers it all
}

void tst_krrender::nameOfThePictureWithoutOption()
{
    QCOMPARE(run({QStringLiteral("--size"), QStringLiteral("40x30"), sample(tour)}).exitCode, 0);
    QVERIFY(QFile::exists(path(QStringLiteral("oldenburg-radtour.png"))));
}

void tst_krrender::writesToStandardOutput()
{
    const Outcome outcome = run({QStringLiteral("-o"), QStringLiteral("-"), QStringLiteral("--size"),
                                 QStringLiteral("64x48"), QStringLiteral("--verbose"), sample(tour)});
    QCOMPARE(outcome.exitCode, 0);
    QCOMPARE(QImage::fromData(outcome.out, "png").size(), QSize(64, 48));
    QVERIFY(QDir(m_dir->path()).isEmpty());
}

void tst_krrender::formatComesFromSuffixOrOption_data()
{
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("SVG") << QStringLiteral("a.svg") << QString() << QByteArray("<?xml");
    QTest::newRow("PDF") << QStringLiteral("a.PDF") << QString() << QByteArray("%PDF-");
    QTest::newRow("SVG to the standard output") << QStringLiteral("-") << QStringLiteral("svg") << QByteArray("<?xml");
    QTest::newRow("KML to the standard output") << QStringLiteral("-") << QStringLiteral("kml") << QByteArray("<?xml");
    QTest::newRow("any name") << QStringLiteral("map.bin") << QStringLiteral("pdf") << QByteArray("%PDF-");
    QTest::newRow("no name") << QString() << QStringLiteral("jpg") << QByteArray("\xff\xd8\xff");
}

void tst_krrender::formatComesFromSuffixOrOption()
{
    QFETCH(QString, output);
    QFETCH(QString, format);
    QStringList arguments{QStringLiteral("--size"), QStringLiteral("300x200"), sample(tour)};
    if (!output.isEmpty())
        arguments << QStringLiteral("-o") << output;
    if (!format.isEmpty())
        arguments << QStringLiteral("--format") << format;
    const Outcome outcome = run(arguments);
    QCOMPARE(outcome.exitCode, 0);
    QByteArray bytes = outcome.out;
    if (output != QLatin1String("-")) {
        QFile file(path(output.isEmpty() ? QStringLiteral("oldenburg-radtour.jpg") : output));
        QVERIFY(file.open(QIODevice::ReadOnly));
        bytes = file.readAll();
    }
    QFETCH(QByteArray, start);
    QCOMPARE(bytes.left(start.size()), start);
}

void tst_krrender::overlayIsTransparent()
{
    const QString picture = path(QStringLiteral("overlay.png"));
    QCOMPARE(run({QStringLiteral("--no-map"), QStringLiteral("-o"), picture, sample(tour)}).exitCode, 0);
    const QImage overlay(picture);
    QCOMPARE(overlay.pixelColor(2, 2).alpha(), 0);
    QVERIFY(countOf(overlay, QColor(0, 0, 0, 0)) > overlay.width() * overlay.height() / 2);
    QVERIFY(countOf(overlay, QColor(0xff, 0x91, 0x00)) > 5000);
}

void tst_krrender::scaleDrawsTheSameLarger()
{
    const QStringList common{QStringLiteral("--no-map"), sample(tour)};
    QCOMPARE(run(QStringList{QStringLiteral("-o"), path(QStringLiteral("1.png")), QStringLiteral("--size"),
                             QStringLiteral("800x600")}
                 + common)
                 .exitCode,
             0);
    QCOMPARE(run(QStringList{QStringLiteral("-o"), path(QStringLiteral("2.png")), QStringLiteral("--size"),
                             QStringLiteral("1600x1200"), QStringLiteral("--scale"), QStringLiteral("2")}
                 + common)
                 .exitCode,
             0);
    const QColor line(0xff, 0x91, 0x00);
    const int once = countOf(QImage(path(QStringLiteral("1.png"))), line);
    const int twice = countOf(QImage(path(QStringLiteral("2.png"))), line);
    QVERIFY2(twice > 3 * once && twice < 6 * once, qPrintable(QStringLiteral("%1 %2").arg(once).arg(twice)));
}

void tst_krrender::lookIsApplied()
{
    const QString picture = path(QStringLiteral("look.png"));
    const Outcome outcome = run({QStringLiteral("--no-map"), QStringLiteral("--shape"), QStringLiteral("polygon"),
                                 QStringLiteral("--display"), QStringLiteral("fill"), QStringLiteral("--fill-color"),
                                 QStringLiteral("#800000ff"), QStringLiteral("-o"), picture,
                                 sample(QStringLiteral("zwischenahner-meer-ufer.gpx"))});
    QCOMPARE(outcome.exitCode, 0);
    const QImage filled(picture);
    QVERIFY(countOf(filled, QColor(0, 0, 255, 128)) > 50000);
    // The lake in the middle is an enclave.
    QCOMPARE(filled.pixelColor(filled.rect().center()).alpha(), 0);
}

void tst_krrender::cropFadesTheMapOutside()
{
    const QString picture = path(QStringLiteral("crop.png"));
    QCOMPARE(
        run({QStringLiteral("--crop"), QStringLiteral("60"), QStringLiteral("-o"), picture, sample(tour)}).exitCode, 0);
    const QImage cropped(picture);
    QCOMPARE(cropped.pixelColor(1, 1).alpha(), 60);
    QVERIFY(countOf(cropped, QColor(0xff, 0x91, 0x00)) > 5000);
}

void tst_krrender::pictureAsMap()
{
    QImage ground(200, 100, QImage::Format_RGB32);
    ground.fill(Qt::green);
    QVERIFY(ground.save(path(QStringLiteral("ground.png"))));
    const QString picture = path(QStringLiteral("map.png"));
    const Outcome outcome =
        run({QStringLiteral("--map"), path(QStringLiteral("ground.png")), QStringLiteral("-o"), picture, sample(tour)});
    QCOMPARE(outcome.exitCode, 0);
    const QImage map(picture);
    QCOMPARE(map.size(), ground.size());
    QVERIFY(countOf(map, Qt::green) > 3000);

    write(QStringLiteral("broken.png"), "not a picture");
    const Outcome broken =
        run({QStringLiteral("--map"), path(QStringLiteral("broken.png")), QStringLiteral("-o"), picture, sample(tour)});
    QCOMPARE(broken.exitCode, 1);
    QVERIFY(broken.err.contains(QLatin1String("broken.png")));

    QImage large(5900, 5900, QImage::Format_RGB32); // 139 MB
    large.fill(Qt::green);
    QVERIFY(large.save(path(QStringLiteral("large.png"))));
    QCOMPARE(KRPictureReader::read(QFileInfo(path(QStringLiteral("large.png"))), nullptr).size(), large.size());
}

void tst_krrender::ferryCrossesTheDateLine()
{
    const QString picture = path(QStringLiteral("ferry.png"));
    QCOMPARE(run({QStringLiteral("--no-map"), QStringLiteral("-o"), picture,
                  sample(QStringLiteral("fiji-samoa-faehre.gpx"))})
                 .exitCode,
             0);
    const QImage ferry(picture);
    // One line from the lower left to the upper right, with nothing in the other corners.
    const QColor line(0xff, 0x91, 0x00);
    const int w = ferry.width();
    const int h = ferry.height();
    QVERIFY(countOf(ferry.copy(0, h / 2, w / 4, h / 2), line) > 100);
    QVERIFY(countOf(ferry.copy(3 * w / 4, 0, w / 4, h / 2), line) > 100);
    QCOMPARE(countOf(ferry.copy(0, 0, w / 4, h / 4), line), 0);
    QCOMPARE(countOf(ferry.copy(3 * w / 4, 3 * h / 4, w / 4, h / 4), line), 0);
}

void tst_krrender::tableAndJson()
{
    const QStringList files{sample(tour), path(QStringLiteral("missing.gpx"))};
    const Outcome table = run(QStringList{QStringLiteral("--list")} + files);
    QCOMPARE(table.exitCode, 1);
    const QStringList lines = QString::fromUtf8(table.out).trimmed().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines.at(1).contains(QLatin1String("308")));

    const Outcome json = run(QStringList{QStringLiteral("--json")} + files);
    QCOMPARE(json.exitCode, 1);
    const QJsonObject root = QJsonDocument::fromJson(json.out).object();
    QCOMPARE(root.value(QStringLiteral("problems")).toArray().size(), 1);
    const QJsonObject track = root.value(QStringLiteral("tracks")).toArray().at(0).toObject();
    QCOMPARE(track.value(QStringLiteral("segments")).toInt(), 2);
    QCOMPARE(track.value(QStringLiteral("points")).toInt(), 308);
    QCOMPARE(track.value(QStringLiteral("shape")).toString(), QStringLiteral("polygon"));
    const double lengthKm = track.value(QStringLiteral("lengthKm")).toDouble();
    QVERIFY(lengthKm > 55.0 && lengthKm < 57.0);
    QVERIFY(track.value(QStringLiteral("from")).toString().endsWith(QLatin1Char('Z')));
    QVERIFY(QDir(m_dir->path()).isEmpty());
}

void tst_krrender::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    const auto row = [](const char *name, const QString &arguments, const char *named) {
        QTest::newRow(name) << arguments.split(QLatin1Char(' ')) << QString::fromUtf8(named);
    };
    QTest::newRow("no file") << QStringList() << QStringLiteral("Datei");
    row("unknown option", QStringLiteral("--frobnicate x.gpx"), "frobnicate");
    row("size", QStringLiteral("--size 100 x.gpx"), "--size");
    row("size without extent", QStringLiteral("--size 0x100 x.gpx"), "--size");
    row("size beyond any painter", QStringLiteral("--size 99999x99999 x.gpx"), "--size");
    row("scale", QStringLiteral("--scale 0 x.gpx"), "--scale");
    row("scale that is no number", QStringLiteral("--scale nan x.gpx"), "--scale");
    row("area", QStringLiteral("--area N53 x.gpx"), "--area");
    row("colour", QStringLiteral("--line-color reddish x.gpx"), "--line-color");
    row("width", QStringLiteral("--line-width -1 x.gpx"), "--line-width");
    row("marker", QStringLiteral("--marker heart x.gpx"), "--marker");
    row("shape", QStringLiteral("--shape blob x.gpx"), "--shape");
    row("display", QStringLiteral("--display stroke,blur x.gpx"), "--display");
    row("pen", QStringLiteral("--pen-style wavy x.gpx"), "--pen-style");
    row("smoothing", QStringLiteral("--smoothing 101 x.gpx"), "--smoothing");
    row("render", QStringLiteral("--render fancy x.gpx"), "--render");
    row("crop", QStringLiteral("--crop 256 x.gpx"), "--crop");
    row("two grounds", QStringLiteral("--no-map --map y.png x.gpx"), "--no-map");
    row("picture and tiles", QStringLiteral("--tiles y.mbtiles --map y.png x.gpx"), "--tiles");
    row("credit without tiles", QStringLiteral("--tiles-credit us x.gpx"), "--tiles");
    row("tiles overwritten", QStringLiteral("--tiles ./y.png -o y.png x.gpx"), "y.png");
    row("unknown format", QStringLiteral("-o x.bmp x.gpx"), "x.bmp");
    row("unknown format by option", QStringLiteral("-o - --format bmp x.gpx"), "bmp");
    row("document as a picture", QStringLiteral("-o x.krroute x.gpx"), "--save");
    row("document as a picture with a format", QStringLiteral("-o x.krroute --format png x.gpx"), "--save");
    row("format of a document", QStringLiteral("--save x.krroute --format gpx x.gpx"), "-o");
    row("picture as a document", QStringLiteral("--save x.png x.gpx"), "-o");
    row("over the input", QStringLiteral("-o ./x.png x.png"), "x.png");
}

void tst_krrender::wrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    const Outcome outcome = run(arguments);
    QCOMPARE(outcome.exitCode, 2);
    QVERIFY2(outcome.err.contains(named), qPrintable(outcome.err));
    QVERIFY(outcome.out.isEmpty());
    QVERIFY(QDir(m_dir->path()).isEmpty());
}

void tst_krrender::badInput_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    const QByteArray head = "<gpx><trk><trkseg>";
    const QByteArray tail = "</trkseg></trk></gpx>";
    QTest::newRow("truncated") << QByteArray(head + "<trkpt lat=\"1\"") << QStringLiteral("x.gpx:1:");
    QTest::newRow("no XML") << QByteArray("hello") << QStringLiteral("x.gpx:1:");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("leer");
    QTest::newRow("no track") << QByteArray("<gpx/>") << QStringLiteral("keine Route");
    QTest::newRow("deep") << QByteArray("<gpx>").repeated(100000) << QStringLiteral("256");
    QTest::newRow("no position") << head + "<trkpt lat=\"nan\" lon=\"inf\"/><trkpt lat=\"1e300\" lon=\"-1e300\"/>"
                                        + tail
                                 << QStringLiteral("Strecke ohne lesbare Position");
    QTest::newRow("no point") << head + tail << QStringLiteral("Strecke ohne lesbare Position");
    QTest::newRow("entities") << QByteArray("<!DOCTYPE g [<!ENTITY a \"" + QByteArray(4000, 'x')
                                            + "\">]><gpx><trk><name>" + QByteArray("&a;").repeated(20000)
                                            + "</name></trk></gpx>")
                              << QStringLiteral("Entitäten");
}

void tst_krrender::badInput()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    const Outcome outcome = run({write(QStringLiteral("x.gpx"), content)});
    QCOMPARE(outcome.exitCode, 1);
    QVERIFY2(outcome.err.contains(reason), qPrintable(outcome.err));
    QVERIFY2(outcome.err.startsWith(QLatin1String("krrender: ")), qPrintable(outcome.err));
    QVERIFY(!QFile::exists(path(QStringLiteral("x.png"))));
}

void tst_krrender::tellsWhatItDoesNotDraw()
{
    const QString file = write(QStringLiteral("x.kml"), "<kml><NetworkLink><name>n</name></NetworkLink>\n"
                                                        "<Placemark><Point><coordinates>8,53</coordinates></Point>"
                                                        "</Placemark>\n<GroundOverlay/><GroundOverlay/></kml>");
    const QStringList list{QStringLiteral("--list"), file};
    const Outcome german = run(list);
    QCOMPARE(german.exitCode, 0);
    QCOMPARE(german.err,
             QStringLiteral("krrender: %1: 2 Bodenüberlagerungen, 1 Netzwerkverweis nicht gezeichnet\n").arg(file));
    const Outcome english = run(list, QStringLiteral("en_US.UTF-8"));
    QCOMPARE(english.err, QStringLiteral("krrender: %1: 2 ground overlays, 1 network link not drawn\n").arg(file));
    QCOMPARE(run(list + QStringList{QStringLiteral("--quiet")}).err, QString());

    const Outcome verbose = run(list + QStringList{QStringLiteral("--verbose"), QStringLiteral("--strict")});
    QCOMPARE(verbose.exitCode, 1);
    QVERIFY2(verbose.err.contains(file + QStringLiteral(":1: 1 Netzwerkverweis „n“\n")), qPrintable(verbose.err));
    QCOMPARE(verbose.err.count(file + QStringLiteral(":3: 1 Bodenüberlagerung\n")), 2);

    const Outcome json = run({QStringLiteral("--json"), QStringLiteral("--quiet"), file});
    const QJsonObject root = QJsonDocument::fromJson(json.out).object();
    QCOMPARE(root.value(QStringLiteral("tracks")).toArray().size(), 1);
    const QJsonArray problems = root.value(QStringLiteral("problems")).toArray();
    QCOMPARE(problems.size(), 3);
    const QJsonObject link = problems.at(0).toObject();
    QCOMPARE(link.value(QStringLiteral("kind")).toString(), QStringLiteral("networkLink"));
    QCOMPARE(link.value(QStringLiteral("name")).toString(), QStringLiteral("n"));
    QCOMPARE(link.value(QStringLiteral("line")).toInt(), 1);
    QCOMPARE(link.value(QStringLiteral("file")).toString(), file);
}

void tst_krrender::plainFilesAndSplitSegments()
{
    const QByteArray point = "<trkpt lat=\"53\" lon=\"8\"/><trkpt lat=\"54\" lon=\"9\"/>";
    const QString file = write(QStringLiteral("x.gpx"), "<gpx><wpt lat=\"1\" lon=\"2\"/><trk><trkseg>" + point
                                                            + "</trkseg><trkseg>" + point + "</trkseg></trk></gpx>");
    const auto trackCount = [&](const QStringList &options) {
        const Outcome outcome = run(QStringList{QStringLiteral("--json"), file} + options);
        return QJsonDocument::fromJson(outcome.out).object().value(QStringLiteral("tracks")).toArray().size();
    };
    QCOMPARE(trackCount({}), 2);
    QCOMPARE(trackCount({QStringLiteral("--plain")}), 1);
    QCOMPARE(trackCount({QStringLiteral("--split-segments")}), 3);
}

void tst_krrender::goodFilesAreDrawnBesideBadOnes()
{
    const QString picture = path(QStringLiteral("both.png"));
    const Outcome outcome = run({QStringLiteral("-o"), picture, write(QStringLiteral("bad.gpx"), "<gpx"), sample(tour),
                                 path(QStringLiteral("missing.gpx"))});
    QCOMPARE(outcome.exitCode, 1);
    QVERIFY(outcome.err.contains(QLatin1String("bad.gpx")));
    QVERIFY(outcome.err.contains(QLatin1String("missing.gpx")));
    QVERIFY(!QImage(picture).isNull());
}

void tst_krrender::outputThatCannotBeWritten()
{
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("folder.png")));
    for (const QString &output : {path(QStringLiteral("folder.png")), path(QStringLiteral("missing/map.png"))}) {
        const Outcome outcome =
            run({QStringLiteral("-o"), output, QStringLiteral("--size"), QStringLiteral("64x48"), sample(tour)});
        QCOMPARE(outcome.exitCode, 2);
        QVERIFY2(outcome.err.contains(output), qPrintable(outcome.err));
    }
}

void tst_krrender::standardOutputThatTakesNothing()
{
    const QStringList picture{QStringLiteral("-o"), QStringLiteral("-"), QStringLiteral("--size"),
                              QStringLiteral("64x48"), sample(tour)};
    const QList<QStringList> calls{picture,
                                   {QStringLiteral("--list"), sample(tour)},
                                   {QStringLiteral("--json"), sample(tour)},
                                   {QStringLiteral("--places")},
                                   {QStringLiteral("--help")},
                                   {QStringLiteral("--version")}};
    const QString closedPipe = QStringLiteral("mkfifo p; exec 3<>p; exec 4>p; rm p; exec 3<&-; \"$0\" \"$@\" >&4");
    for (const QStringList &call : calls) {
        for (const QString &script :
             {QStringLiteral("\"$0\" \"$@\" >/dev/full"), QStringLiteral("\"$0\" \"$@\" >&-"), closedPipe}) {
            const Outcome outcome = runFrom(script, call);
            QVERIFY2(outcome.exitCode == 2, qPrintable(script + call.first() + outcome.err));
            QVERIFY2(outcome.err.contains(QLatin1String("Standardausgabe")), qPrintable(script + call.first()));
            QCOMPARE(outcome.err.count(QLatin1Char('\n')), 1);
        }
    }
    // What is said while the error output is closed must not end up in the picture.
    const QStringList toFile{QStringLiteral("--verbose"), QStringLiteral("-o"),    QStringLiteral("a.png"),
                             QStringLiteral("--size"),    QStringLiteral("64x48"), sample(tour)};
    QCOMPARE(runFrom(QStringLiteral("\"$0\" \"$@\" >&- 2>&-"), toFile).exitCode, 0);
    QCOMPARE(QImage(path(QStringLiteral("a.png"))).size(), QSize(64, 48));
}

void tst_krrender::fullDiskKeepsTheOldFiles()
{
    const QByteArray old = "what was there before";
    const QString fullDisk = QStringLiteral("export LC_ALL=C.utf8; ulimit -f 1; \"$0\" \"$@\"");
    for (const char *suffix : {"png", "jpg", "webp", "svg", "pdf", "gpx", "kml", "kmz", "krroute"}) {
        const QString file = write(QLatin1String("a.") + QLatin1String(suffix), old);
        const QString option =
            file.endsWith(QLatin1String("krroute")) ? QStringLiteral("--save") : QStringLiteral("-o");
        const Outcome outcome =
            runFrom(fullDisk, {option, file, QStringLiteral("--size"), QStringLiteral("300x200"), sample(tour)});
        QVERIFY2(outcome.exitCode == 2, qPrintable(file + outcome.err));
        // The name of the file, or of one of its tracks, and a reason.
        QVERIFY2(outcome.err.contains(
                     QRegularExpression(QStringLiteral("^krrender: .*/(a|track)\\.[a-z]+: File too large\n$"))),
                 qPrintable(outcome.err));
        QFile now(file);
        QVERIFY(now.open(QIODevice::ReadOnly));
        QCOMPARE(now.readAll(), old);
    }
    const Outcome redirected =
        runFrom(fullDisk + QStringLiteral(" >a.png"), {QStringLiteral("-o"), QStringLiteral("-"), sample(tour)});
    QVERIFY2(redirected.exitCode == 2 && redirected.err.endsWith(QLatin1String("File too large\n")),
             qPrintable(redirected.err));
}

void tst_krrender::progressLeavesNoTrace()
{
    if (QStandardPaths::findExecutable(QStringLiteral("script")).isEmpty())
        QSKIP("nothing here that makes a terminal");
    write(QStringLiteral("x.kml"), "<kml><NetworkLink/><Placemark><Point><coordinates>8,53</coordinates></Point>"
                                   "</Placemark></kml>");
    const QString onTerminal = QStringLiteral("script -qec \"'$0' $* x.kml\" /dev/null");
    for (const char *options : {"--list", "--size 40x30", "--save a.krroute", "-o missing/a.png"}) {
        const Outcome outcome = runFrom(onTerminal, {QLatin1String(options)});
        QVERIFY2(outcome.out.contains("x.kml wird gelesen"), outcome.out.constData());
        const QStringList lines = QString::fromUtf8(outcome.out).split(QLatin1Char('\n'));
        for (const QString &line : lines) {
            const QString seen = line.section(QStringLiteral("\r\033[K"), -1);
            QVERIFY2(!seen.contains(QLatin1String(" wird ")), qPrintable(QLatin1String(options) + line));
        }
    }
}

void tst_krrender::languageFollowsTheLocale()
{
    const QStringList arguments{path(QStringLiteral("missing.gpx"))};
    QVERIFY(run(arguments, QStringLiteral("de_AT.UTF-8")).err.contains(QStringLiteral("nicht gefunden")));
    const QString english = run(arguments, QStringLiteral("fr_FR.UTF-8")).err;
    QVERIFY2(english.contains(QLatin1String("not found")), qPrintable(english));
    const Outcome help = run({QStringLiteral("--help")}, QStringLiteral("en_GB.UTF-8"));
    QCOMPARE(help.exitCode, 0);
    QVERIFY(help.out.contains("--line-color"));
    for (const QString &umlaut : {QStringLiteral("ä"), QStringLiteral("ö"), QStringLiteral("ü"), QStringLiteral("ß")})
        QVERIFY2(!QString::fromUtf8(help.out).contains(umlaut), help.out.constData());
}

void tst_krrender::furnitureStandsOnEveryMap()
{
    const auto picture = [this](const QStringList &options) {
        const QString name = path(QStringLiteral("map.png"));
        const Outcome outcome = run(options + QStringList{QStringLiteral("-o"), name, sample(tour)});
        return outcome.exitCode == 0 ? QImage(name) : QImage();
    };
    const QImage plain = picture({QStringLiteral("--no-scale-bar"), QStringLiteral("--no-attribution")});
    const QImage both = picture({});
    const QImage barOnly = picture({QStringLiteral("--no-attribution")});
    const QImage none = picture({QStringLiteral("--no-map")});
    const QRect left(0, 1100, 800, 100);
    const QRect right(800, 1100, 800, 100);
    QVERIFY(both.copy(left) != plain.copy(left));
    QVERIFY(both.copy(right) != plain.copy(right));
    QCOMPARE(barOnly.copy(left), both.copy(left));
    QCOMPARE(barOnly.copy(right), plain.copy(right));
    QCOMPARE(countOf(none.copy(left), QColor(0, 0, 0, 0)), 800 * 100);
}

void tst_krrender::beelinesAndPlaces()
{
    const Outcome places = run({QStringLiteral("--places")});
    QCOMPARE(places.exitCode, 0);
    QVERIFY(places.out.contains("Greenich"));

    const Outcome json =
        run({QStringLiteral("--json"), QStringLiteral("--beeline"), QStringLiteral("oldenburg .. Sydney"),
             QStringLiteral("--beeline"), QStringLiteral("N53.1 E8.2..53,0,0N;9,0,0E")});
    QCOMPARE(json.exitCode, 0);
    const QJsonArray tracks = QJsonDocument::fromJson(json.out).object().value(QStringLiteral("tracks")).toArray();
    QCOMPARE(tracks.size(), 2);
    QCOMPARE(tracks.at(0).toObject().value(QStringLiteral("name")).toString(), QStringLiteral("Oldenburg – Sydney"));
    QVERIFY(tracks.at(0).toObject().value(QStringLiteral("points")).toInt() > 20);
    QCOMPARE(tracks.at(1).toObject().value(QStringLiteral("points")).toInt(), 2);
    QCOMPARE(run({QStringLiteral("--beeline"), QStringLiteral("Oldenburg .. Atlantis")}).exitCode, 2);
    QCOMPARE(run({QStringLiteral("--beeline"), QStringLiteral("Oldenburg")}).exitCode, 2);
}

void tst_krrender::paletteTellsTracksApart()
{
    const QString picture = path(QStringLiteral("palette.png"));
    QCOMPARE(run({QStringLiteral("--no-map"), QStringLiteral("--palette"), QStringLiteral("-o"), picture, sample(tour),
                  sample(QStringLiteral("zwischenahner-meer-ufer.gpx"))})
                 .exitCode,
             0);
    const QImage colors(picture);
    QVERIFY(countOf(colors, QColor(0x00, 0x72, 0xb2)) > 1000);
    QVERIFY(countOf(colors, QColor(0xd5, 0x5e, 0x00)) > 500);
}

void tst_krrender::documentIsDrawnTheSame()
{
    const QString document = path(QStringLiteral("Reise.krroute"));
    const QString first = path(QStringLiteral("first.png"));
    const QString second = path(QStringLiteral("second.png"));
    QCOMPARE(run({QStringLiteral("--save"), document, QStringLiteral("-o"), first, QStringLiteral("--crop"),
                  QStringLiteral("90"), QStringLiteral("--halo"), QStringLiteral("7"), sample(tour),
                  sample(QStringLiteral("zwischenahner-meer-ufer.gpx"))})
                 .exitCode,
             0);
    QCOMPARE(run({QStringLiteral("-o"), second, document}).exitCode, 0);
    QCOMPARE(QImage(second), QImage(first));

    // Neither through a link over a track file of the document, nor empty over what is there.
    QVERIFY(QFile::link(path(QStringLiteral("Reise.tracks/track.gps")), path(QStringLiteral("link.png"))));
    QCOMPARE(run({QStringLiteral("-o"), path(QStringLiteral("link.png")), document}).exitCode, 2);
    QCOMPARE(run({QStringLiteral("--save"), document, path(QStringLiteral("missing.gpx"))}).exitCode, 1);
    QCOMPARE(run({QStringLiteral("-o"), second, document}).exitCode, 0);

    // A damaged track file: the rest is drawn, and the file is named.
    QVERIFY(QFile::remove(path(QStringLiteral("Reise.tracks/track.gps"))));
    const Outcome damaged = run({QStringLiteral("-o"), second, document});
    QCOMPARE(damaged.exitCode, 1);
    QVERIFY2(damaged.err.contains(QLatin1String("track.gps")), qPrintable(damaged.err));
    QVERIFY(QImage(second) != QImage(first));
}

void tst_krrender::exchangeFilesComeBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("GPX") << QStringLiteral("out.gpx");
    QTest::newRow("KML") << QStringLiteral("out.kml");
    QTest::newRow("KMZ") << QStringLiteral("out.kmz");
}

void tst_krrender::exchangeFilesComeBack()
{
    QFETCH(QString, name);
    const QString places =
        write(QStringLiteral("places.gpx"),
              "<gpx><wpt lat='53' lon='8'><ele>7</ele><time>2025-05-17T08:30:00Z</time><name>A</name></wpt>"
              "<trk><name>B</name><trkseg><trkpt lat='1' lon='2'/><trkpt lat='2' lon='3'/></trkseg>"
              "<trkseg><trkpt lat='5' lon='6'/><trkpt lat='7' lon='7'/></trkseg></trk></gpx>");
    const QStringList files{sample(QStringLiteral("nordseekueste-10000.gpx")), sample(tour), places};
    QCOMPARE(run(QStringList{QStringLiteral("-o"), path(name)} + files).exitCode, 0);
    const auto tracks = [this](const QStringList &inputs) {
        const Outcome json = run(QStringList{QStringLiteral("--json")} + inputs);
        return QJsonDocument::fromJson(json.out).object().value(QStringLiteral("tracks")).toArray();
    };
    const QJsonArray before = tracks(files);
    const QJsonArray after = tracks({path(name)});
    QCOMPARE(before.size(), 4);
    QCOMPARE(after.size(), before.size());
    for (int i = 0; i < before.size(); ++i) {
        for (const char *key : {"name", "segments", "points", "first", "last", "from", "to"})
            QCOMPARE(after.at(i).toObject().value(QLatin1String(key)),
                     before.at(i).toObject().value(QLatin1String(key)));
        const auto length = [i](const QJsonArray &array) {
            return array.at(i).toObject().value(QStringLiteral("lengthKm")).toDouble();
        };
        QVERIFY(qAbs(length(after) - length(before)) < 1e-3);
    }
}

void tst_krrender::otherProgramsReadExchangeFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("expected");
    const auto words = [](const char *text) { return QString::fromLatin1(text).split(QLatin1Char(' ')); };
    QTest::newRow("GPSBabel reads GPX") << QStringLiteral("out.gpx") << QStringLiteral("gpsbabel")
                                        << words("-t -i gpx -f out.gpx -o unicsv -F -")
                                        << QByteArray("308,53.138500,8.216000");
    QTest::newRow("GPSBabel reads KML") << QStringLiteral("out.kml") << QStringLiteral("gpsbabel")
                                        << words("-t -i kml -f out.kml -o unicsv -F -")
                                        << QByteArray("308,53.138500,8.216000");
    QTest::newRow("GDAL reads GPX") << QStringLiteral("out.gpx") << QStringLiteral("ogrinfo")
                                    << words("-ro -al -so out.gpx track_points") << QByteArray("Feature Count: 308");
    QTest::newRow("GDAL reads KML") << QStringLiteral("out.kml") << QStringLiteral("ogrinfo")
                                    << words("-ro -al out.kml") << QByteArray("(8.216 53.1385 5");
}

void tst_krrender::otherProgramsReadExchangeFiles()
{
    QFETCH(QString, name);
    QFETCH(QString, program);
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, expected);
    if (QStandardPaths::findExecutable(program).isEmpty())
        QSKIP("the other program is not installed");
    QCOMPARE(run({QStringLiteral("-o"), path(name), sample(tour)}).exitCode, 0);
    QProcess other;
    other.setWorkingDirectory(m_dir->path());
    other.start(program, arguments);
    QVERIFY(other.waitForFinished(60000));
    const QByteArray out = other.readAllStandardOutput();
    QVERIFY2(out.contains(expected), out.right(400).constData());
}

void tst_krrender::tilesAsMap()
{
    const QString tiles = path(QStringLiteral("world.mbtiles"));
    KRTestTiles::writeMbtiles(tiles, KRTestTiles::pyramid(0, 3),
                              {{QStringLiteral("attribution"), QStringLiteral("<b>Kacheln</b> der Stadt")}}, 32);
    const auto draw = [&](const QString &name, const QStringList &more) {
        const Outcome outcome = run(QStringList{QStringLiteral("--tiles"), tiles, QStringLiteral("--size"),
                                                QStringLiteral("800x600"), QStringLiteral("-o"), name, sample(tour)}
                                    + more);
        if (outcome.exitCode != 0 || !outcome.err.isEmpty())
            qWarning("%d %s", outcome.exitCode, qPrintable(outcome.err));
        return QImage(path(name));
    };
    const QImage picture = draw(QStringLiteral("a.png"), {});
    const QColor ground = KRTestTiles::color(KRTestTiles::keyAt(3, 53.15, 8.2));
    QVERIFY(countOf(picture, ground) > 800 * 600 / 2);

    // Its box stands alone, whatever it says: nothing of the library's map is seen.
    const QImage bare = draw(QStringLiteral("b.png"), {QStringLiteral("--no-attribution")});
    const QImage other =
        draw(QStringLiteral("c.png"), {QStringLiteral("--tiles-credit"), QStringLiteral("Andere Leute")});
    QVERIFY(other != picture);
    for (const QImage &credited : {picture, other}) {
        int height = 0;
        for (int y = 0; y < 600; ++y)
            height += credited.copy(0, y, 800, 1) != bare.copy(0, y, 800, 1);
        QVERIFY2(height > 20 && height < 45, qPrintable(QString::number(height)));
    }
}

void tst_krrender::missingTilesAreTold_data()
{
    QTest::addColumn<QString>("tiles");
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("isDrawn");
    QTest::newRow("no such file") << "none.mbtiles"
                                  << "gefunden" << false;
    QTest::newRow("elsewhere") << "elsewhere"
                               << "Fehlende Kacheln: 1. Die Quelle hat dort" << true;
    QTest::newRow("damaged") << "damaged"
                             << "Fehlende Kacheln: 1. Eine Kachel ist" << true;
    QTest::newRow("nobody answers") << "http://127.0.0.1:1/{z}/{x}/{y}.png"
                                    << "nimmt keine Verbindung an" << true;
}

void tst_krrender::missingTilesAreTold()
{
    QFETCH(QString, tiles);
    QFETCH(QString, word);
    QFETCH(bool, isDrawn);
    KRTestTiles::writeFolder(path(QStringLiteral("elsewhere")), {{3, 0, 0}});
    KRTestTiles::writeFolder(path(QStringLiteral("damaged")), {{0, 0, 0}});
    KRTestTiles::writeFile(path(QStringLiteral("damaged/3/4/2.png")), "no picture");
    const Outcome outcome = run({QStringLiteral("--tiles"), tiles, QStringLiteral("--size"), QStringLiteral("300x200"),
                                 QStringLiteral("-o"), QStringLiteral("a.png"), sample(tour)});
    QCOMPARE(outcome.exitCode, 1);
    QVERIFY2(outcome.err.contains(tiles) && outcome.err.contains(word), qPrintable(outcome.err));
    QCOMPARE(QImage(path(QStringLiteral("a.png"))).isNull(), !isDrawn);
}

static const KRTestRegistration<tst_krrender> registration;

#include "tst_krrender.moc"
