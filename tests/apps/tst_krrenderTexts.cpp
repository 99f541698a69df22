#include "KRRenderTest.h"
#include "KRTestFile.h"

#include <KRCore/KRInputLimits.h>

/// What the program says, and the files that are no pictures.
class tst_krrenderTexts : public KRRenderTest
{
    Q_OBJECT

private slots:
    void tableAndJson();
    void tellsWhatItDoesNotDraw();
    void wrongUsage();
    void nothingThatIsReadIsOverwritten();
    void namesThatBeginWithColons();
    void badInput();
    void standardOutputThatTakesNothing();
    void outputThatCannotBeWritten();
    void fewFilesMayBeOpened();
    void littleMemoryIsTold();
    void progressLeavesNoTrace();
    void languageFollowsTheLocale();
    void needsNoDisplay();
    void exchangeFilesComeBack();
    void otherProgramsReadExchangeFiles();
};

void tst_krrenderTexts::tableAndJson()
{
    const Outcome table = run("krrender --list $tour missing.gpx");
    QCOMPARE(table.exitCode, 1);
    QCOMPARE(table.out.count('\n'), 2);
    QVERIFY(table.out.contains(" 308 "));

    const Outcome json = run("krrender --json $tour missing.gpx");
    QCOMPARE(json.exitCode, 1);
    QJsonObject root = QJsonDocument::fromJson(json.out).object();
    QCOMPARE(root.value(QLatin1String("problems")).toArray().size(), 1);
    const QJsonObject track = root.value(QLatin1String("tracks")).toArray().at(0).toObject();
    QCOMPARE(track.value(QLatin1String("segments")).toInt(), 2);
    QCOMPARE(track.value(QLatin1String("points")).toInt(), 308);
    QCOMPARE(track.value(QLatin1String("shape")).toString(), QStringLiteral("polygon"));
    QCOMPARE(qRound(track.value(QLatin1String("lengthKm")).toDouble()), 56);
    QVERIFY(track.value(QLatin1String("from")).toString().endsWith(QLatin1Char('Z')));
    QVERIFY(isEmpty());

    KRTestFile::write(path("x.gpx"), "<gpx><wpt lat='1' lon='2'/><trk><trkseg><trkpt lat='53' lon='8'/></trkseg>"
                                     "<trkseg><trkpt lat='54' lon='9'/></trkseg></trk></gpx>");
    QCOMPARE(tracks("x.gpx").size(), 2);
    QCOMPARE(tracks("--plain x.gpx").size(), 1);
    QCOMPARE(tracks("--split-segments x.gpx").size(), 3);

    const QByteArray longName = QByteArray(99, 'n') + QByteArray(99999, 'm');
    KRTestFile::write(path("x.gpx"), "<gpx><wpt lat='1' lon='2'><name>" + longName + "</name></wpt></gpx>");
    const QByteArray shortRows = run("krrender --list x.gpx").out;
    QVERIFY2(shortRows.contains("nnn\u2026 ") && shortRows.size() < 1000, shortRows.left(1000).constData());
    QCOMPARE(tracks("x.gpx").at(0).toObject().value(QLatin1String("name")).toString(), QString::fromLatin1(longName));

    QVERIFY(run("krrender --places").out.contains("Greenich"));
    const QJsonArray lines = tracks("--beeline 'oldenburg .. Sydney' --beeline 'N53.1 E8.2..53,0,0N;9,0,0E'");
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.at(0).toObject().value(QLatin1String("name")).toString(), QStringLiteral("Oldenburg – Sydney"));
    QVERIFY(lines.at(0).toObject().value(QLatin1String("points")).toInt() > 20);
    QCOMPARE(lines.at(1).toObject().value(QLatin1String("points")).toInt(), 2);
}

void tst_krrenderTexts::tellsWhatItDoesNotDraw()
{
    KRTestFile::write(path("x.kml"), "<kml><NetworkLink><name>n</name></NetworkLink>\n"
                                     "<Placemark><Point><coordinates>8,53</coordinates></Point></Placemark>\n"
                                     "<GroundOverlay/><GroundOverlay/></kml>");
    const Outcome german = run("krrender --list x.kml");
    QCOMPARE(german.exitCode, 0);
    QCOMPARE(german.err,
             QStringLiteral("krrender: x.kml: 2 Bodenüberlagerungen, 1 Netzwerkverweis nicht gezeichnet\n"));
    QCOMPARE(run("krrender --list --quiet x.kml").err, QString());

    const Outcome verbose = run("krrender --list --verbose --strict x.kml");
    QCOMPARE(verbose.exitCode, 1);
    QVERIFY2(verbose.complainsOf("x.kml:1: 1 Netzwerkverweis „n“\n"), qPrintable(verbose.err));
    QCOMPARE(verbose.err.count(QStringLiteral("x.kml:3: 1 Bodenüberlagerung\n")), 2);

    const QJsonObject root = QJsonDocument::fromJson(run("krrender --json --quiet x.kml").out).object();
    QCOMPARE(root.value(QLatin1String("tracks")).toArray().size(), 1);
    const QJsonArray problems = root.value(QLatin1String("problems")).toArray();
    QCOMPARE(problems.size(), 3);
    const QByteArray link = QJsonDocument(problems.at(0).toObject()).toJson(QJsonDocument::Compact);
    for (const char *member : {"\"kind\":\"networkLink\"", "\"name\":\"n\"", "\"line\":1", "\"file\":\"x.kml\""})
        QVERIFY2(link.contains(member), link.constData());
}

void tst_krrenderTexts::wrongUsage()
{
    // the arguments and what of them is named
    const KRTestTable<QByteArray, QByteArray> table{
        {"no file", "", "Datei"},
        {"unknown option", "--frobnicate x.gpx", "frobnicate"},
        {"size without extent", "--size 0x100 x.gpx", "--size"},
        {"size beyond any painter", "--size 99999x99999 x.gpx", "--size"},
        {"scale", "--scale 0 x.gpx", "--scale"},
        {"scale below all lines", "--scale 0.001 x.gpx", "--scale"},
        {"area", "--area N53 x.gpx", "--area"},
        {"colour", "--line-color reddish x.gpx", "--line-color"},
        {"width", "--line-width -1 x.gpx", "--line-width"},
        {"marker", "--marker heart x.gpx", "--marker"},
        {"display", "--display stroke,blur x.gpx", "--display"},
        {"smoothing", "--smoothing 101 x.gpx", "--smoothing"},
        {"crop", "--crop 256 x.gpx", "--crop"},
        {"two grounds", "--no-map --map y.png x.gpx", "--no-map"},
        {"credit without tiles", "--tiles-credit us x.gpx", "--tiles"},
        {"tiles overwritten", "--tiles ./y.png -o y.png x.gpx", "y.png"},
        {"unknown format", "-o x.bmp x.gpx", "x.bmp"},
        {"document as a picture", "-o x.krroute x.gpx", "--save"},
        {"format of a document", "--save x.krroute --format gpx x.gpx", "-o"},
        {"picture as a document", "--save x.png x.gpx", "-o"},
        {"table and picture", "--list -o x.png x.gpx", "-o"},
        {"JSON and document", "--json --save x.krroute x.gpx", "--save"},
        {"over the input", "-o ./x.png x.png", "x.png"},
        {"place that is none", "--beeline 'N0 E0 .. N0 E180'", "N0 E0 gilt"},
        {"side beyond the format", "--size 16384x8 --format webp $tour", "16383"},
        {"output without a name", "-o '' $tour", "--output"},
        {"document without a name", "--save '' $tour", "--save"},
        {"no size", "--size '' $tour", "--size"},
        {"file without name", "'' $tour", "leer"},
        {"two outputs", "-o a.png --output b.png $tour", "--output"},
        {"two documents", "--save a.krroute --save b.krroute $tour", "--save"},
        {"two sizes", "--size 9x9 --size 9x9 $tour", "--size"},
        {"output that is no UTF-8", "-o \"$(printf 'a\\376.png')\" $tour", "UTF-8"},
        {"input that is no UTF-8", "-o a.png \"$(printf '\\377.gpx')\"", "UTF-8"},
        {"over a track file of the saved document", "--save d.krroute -o ./d.tracks/track.gps --format gpx $tour",
         "gehört zum Routendokument"},
    };
    table.forEach([this](const QByteArray &arguments, const QByteArray &named) {
        const Outcome outcome = run("krrender " + arguments);
        QCOMPARE(outcome.exitCode, 2);
        QVERIFY2(outcome.complainsOf(named), qPrintable(outcome.err));
        QVERIFY(outcome.out.isEmpty() && isEmpty());
    });
}

void tst_krrenderTexts::nothingThatIsReadIsOverwritten()
{
    QCOMPARE(run("mkdir -p tl/0/0 sub/t.tracks far; cp $tour sub/a.gpx; ln -s ../far tl/1; ln -s tl alias; "
                 "ln -s tl/0/0/0.png tile.png; ln -s d.krroute d.png; ln -s sub/t.tracks link; "
                 "ln -s m.mbtiles l.mbtiles; mkdir -p d/maps/2026; "
                 "krrender $tour --size 64x48 -o tl/0/0/0.png && krrender $tour --save t.krroute && "
                 "cp t.tracks/track.gps t.tracks/x.krroute && cp t.krroute copy.krroute && "
                 "sed \"s|>track.gps|>$PWD/t.tracks/x.krroute|\" t.krroute >sub/absolute.krroute && "
                 "cp t.tracks/track.gps t.tracks/x.gps && ln -s ../../t.tracks/x.gps sub/t.tracks/track.gps && cp "
                 "t.krroute sub/linked.krroute")
                 .exitCode,
             0);
    const QByteArray listing = "find . -type f -exec md5sum {} + | sort";
    const QByteArray before = run(listing).out;
    const KRTestTable<QByteArray> table{
        {"input behind a link", "sub/a.gpx --format gpx -o link/../a.gpx"},
        {"link to the document to come", "sub/a.gpx --save d.krroute -o d.png"},
        {"folder that another document names", "copy.krroute --format gpx -o t.tracks/track.gps"},
        {"file that a document names by its path", "sub/absolute.krroute --save t.tracks/x.krroute"},
        {"file that a document names through a link", "sub/linked.krroute --format gpx -o t.tracks/x.gps"},
        {"tile", "$tour --tiles tl -o tl/0/0/0.png"},
        {"tile that is not there", "$tour --tiles tl/ -o tl/0/0/1.png"},
        {"folder of tiles by a link", "$tour --tiles tl -o alias/0/0/0.png"},
        {"tile by a link", "$tour --tiles alias -o tile.png"},
        {"folder within that of tiles by a link", "$tour --tiles \"file://$PWD/tl\" -o tl/1/0/0.png"},
        {"template", "$tour --tiles 'tl/{z}/{x}/{y}.png' -o tl/0/0/0.png"},
        {"template with half a name", "$tour --tiles 't{z}/{x}/{-y}.png' -o tl/0/0.png"},
        {"template whose folders are not clean", "$tour --tiles 'tl/{z}//{x}/./{y}/a.png' -o tl//1/./0/0/a.png"},
        {"template without folders", "$tour --tiles '+[{z}].{x}{s}{y}.png' -o '+[0].0a0.png'"},
        {"tiles not yet in their file", "$tour --tiles m.mbtiles --format png -o m.mbtiles-wal"},
        {"tiles no longer in their file", "$tour --tiles l.mbtiles --format png -o m.mbtiles-journal"},
        {"index of tiles", "$tour --tiles m.mbtiles --format png -o \"$PWD/m.mbtiles-shm\""},
        {"document as a tile", "$tour --tiles '{z}/{x}/{y}.krroute' --save tl/0/0.krroute"},
    };
    table.forEach([&](const QByteArray &arguments) {
        const Outcome outcome = run("krrender --size 64x48 " + arguments);
        QCOMPARE(outcome.exitCode, 2);
        QVERIFY2(outcome.complainsOf("gehört zu") || outcome.complainsOf("überschrieben"), qPrintable(outcome.err));
        QCOMPARE(run(listing).out, before);
    });
    for (const char *harmless :
         {"$tour --tiles tl -o tl/map.png", "$tour --tiles tl -o -", "copy.krroute -o map.png",
          "copy.krroute --save copy.krroute", "$tour --tiles 't{z}/{x}/{y}.png' -o tl.png",
          "$tour --tiles '{z}_{x}_{y}.png' -o map.pdf", "$tour --tiles '{z}_{x}_{y}.png' -o map.png",
          "$tour --tiles '{z}_{x}_{y}.png' --save doc.krroute", "$tour --tiles '{z}/{x}/{y}.png' -o d/maps/2026/my.png",
          "$tour --tiles l.mbtiles --format png -o l.mbtiles-wal"})
        QVERIFY2(run(QByteArray("krrender --size 64x48 --area 'N53.3 E8 .. N53 E8.4' ") + harmless).exitCode != 2,
                 harmless);
}

/// Which are no resources of the program.
void tst_krrenderTexts::namesThatBeginWithColons()
{
    QCOMPARE(
        run("cp $tour :x.gpx; krrender --size 64x48 :x.gpx && krrender --size 64x48 --map :x.png :x.gpx -o :a.b.png "
            "&& krrender :x.gpx --save :x.krroute && krrender :x.krroute -o :y.gpx && mv :x.tracks/track.gps "
            "./:x.tracks/:t.gps && sed -i 's/>track/>:t/' ./:x.krroute && krrender --list :x.krroute")
            .exitCode,
        0);
    const QStringList expected{QStringLiteral(":a.b.png"), QStringLiteral(":x.gpx"),    QStringLiteral(":x.krroute"),
                               QStringLiteral(":x.png"),   QStringLiteral(":x.tracks"), QStringLiteral(":y.gpx")};
    QCOMPARE(QDir(folder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), expected);
    QCOMPARE(run("krrender :x.gpx --format gpx -o :x.gpx").exitCode, 2);
}

void tst_krrenderTexts::badInput()
{
    const QByteArray nowhere = "<trkpt lat='nan' lon='inf'/><trkpt lat='1e300' lon='-1e300'/>";
    const KRTestTable<QByteArray, QByteArray> table{
        {"empty", "", "leer"},
        {"no track", "<gpx/>", "keine Route"},
        {"no position", "<gpx><trk><trkseg>" + nowhere + "</trkseg></trk></gpx>", "Strecke ohne lesbare Position"},
    };
    table.forEach([this](const QByteArray &content, const QByteArray &reason) {
        KRTestFile::write(path("x.gpx"), content);
        const Outcome outcome = run("krrender x.gpx");
        QCOMPARE(outcome.exitCode, 1);
        QVERIFY2(outcome.complainsOf(reason), qPrintable(outcome.err));
        QVERIFY2(outcome.err.startsWith(QLatin1String("krrender: ")), qPrintable(outcome.err));
        QVERIFY(!QFile::exists(path("x.png")));
    });
    // What is good is drawn all the same.
    const Outcome outcome = run("krrender -o - x.gpx $tour missing.gpx");
    QCOMPARE(outcome.exitCode, 1);
    QVERIFY(outcome.complainsOf("x.gpx") && outcome.complainsOf("missing.gpx"));
    QVERIFY(!QImage::fromData(outcome.out).isNull());
}

void tst_krrenderTexts::standardOutputThatTakesNothing()
{
    const QByteArray picture = "krrender -o - --size 64x48 $tour";
    for (const QByteArray &command :
         {picture, QByteArray("krrender --list $tour"), QByteArray("krrender --json $tour"),
          QByteArray("krrender --places"), QByteArray("krrender --help"), QByteArray("krrender --version")}) {
        const QByteArray closedPipe = "mkfifo p; exec 3<>p; exec 4>p; rm p; exec 3<&-; " + command + " >&4";
        for (const QByteArray &script : {command + " >/dev/full", command + " >&-", closedPipe}) {
            const Outcome outcome = run(script);
            QVERIFY2(outcome.exitCode == 2 && outcome.complainsOf("Standardausgabe"), script.constData());
            QCOMPARE(outcome.err.count(QLatin1Char('\n')), 1);
        }
    }
    // What is said while the error output is closed must not end up in the picture.
    QCOMPARE(run("krrender --verbose -o a.png --size 64x48 $tour >&- 2>&-").exitCode, 0);
    QCOMPARE(QImage(path("a.png")).size(), QSize(64, 48));
}

void tst_krrenderTexts::outputThatCannotBeWritten()
{
    QVERIFY(QDir(folder()).mkdir(QStringLiteral("folder.png")));
    for (const QByteArray &name : {QByteArray("folder.png"), QByteArray("missing/map.png")}) {
        const Outcome outcome = run("krrender --size 64x48 $tour -o " + name);
        QCOMPARE(outcome.exitCode, 2);
        QVERIFY2(outcome.complainsOf(name), qPrintable(outcome.err));
    }
    // A full disk leaves the old file, and the name of the file, or of one of its tracks, is told with a reason.
    // What counts branches (docs/coverage.md) would write a file too, and spoil those of all processes.
    const QByteArray diskIsFull = "export LC_ALL=C.utf8 LLVM_PROFILE_FILE=/dev/null; ulimit -f 1; ";
    const QRegularExpression complaint(QStringLiteral("^krrender: (.*/)?(a|track)\\.[a-z]+: File too large\n$"));
    for (const char *name : {"a.png", "a.jpg", "a.webp", "a.svg", "a.pdf", "a.gpx", "a.kml", "a.kmz", "a.krroute"}) {
        KRTestFile::write(path(name), "what was there before");
        const QByteArray option = QByteArray(name).endsWith("krroute") ? "--save " : "-o ";
        const Outcome outcome = run(diskIsFull + "krrender --size 300x200 $tour " + option + name);
        QVERIFY2(outcome.exitCode == 2 && outcome.err.contains(complaint), qPrintable(outcome.err));
        QCOMPARE(KRTestFile::content(path(name)), QByteArray("what was there before"));
    }
    const Outcome redirected = run(diskIsFull + "krrender -o - $tour >a.png");
    QVERIFY2(redirected.exitCode == 2 && redirected.complainsOf("File too large\n"), qPrintable(redirected.err));
}

void tst_krrenderTexts::fewFilesMayBeOpened()
{
#ifdef __SANITIZE_ADDRESS__
    constexpr int fewest = 12; // it opens files itself, and takes for damaged what it cannot look at
#else
    constexpr int fewest = 4; // with fewer the system does not even load the program
#endif
    // How many are open already, the caller decides.
    for (int files = fewest; files <= 12; ++files) {
        const Outcome outcome = run("export LC_ALL=C.utf8 LLVM_PROFILE_FILE=/dev/null; ulimit -n "
                                    + QByteArray::number(files) + "; krrender --size 64x48 $tour -o a.png");
        const bool isTold = outcome.err.contains(QRegularExpression(QStringLiteral("Too many open files|Error 24")));
        QVERIFY2(outcome.exitCode == 0 || (outcome.exitCode < 128 && isTold), qPrintable(outcome.err));
    }
}

void tst_krrenderTexts::littleMemoryIsTold()
{
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // they take terabytes of addresses
    bool isAnyTold = false;
    for (int megabytes = 120; megabytes <= 480; megabytes += 30) {
        const Outcome outcome =
            run("export LC_ALL=C.utf8 LLVM_PROFILE_FILE=/dev/null; ulimit -c 0; ulimit -v "
                + QByteArray::number(megabytes << 10) + "; krrender --size 4000x4000 $tour -o a.png");
        QVERIFY2(outcome.exitCode == 0
                     || (outcome.exitCode == 2 && outcome.err.startsWith(QLatin1String("krrender: "))),
                 qPrintable(outcome.err));
        isAnyTold = isAnyTold || outcome.exitCode == 2;
    }
    QVERIFY(isAnyTold);
#endif
}

void tst_krrenderTexts::progressLeavesNoTrace()
{
    if (QStandardPaths::findExecutable(QStringLiteral("script")).isEmpty())
        QSKIP("nothing here that makes a terminal");
    KRTestFile::write(path("x.kml"), "<kml><NetworkLink/><Placemark><Point><coordinates>8,53</coordinates></Point>"
                                     "</Placemark></kml>");
    for (const QByteArray &options : {QByteArray("--list"), QByteArray("--size 40x30"), QByteArray("--save a.krroute"),
                                      QByteArray("-o missing/a.png")}) {
        const Outcome outcome = run("script -qec 'krrender " + options + " x.kml' /dev/null");
        QVERIFY2(outcome.out.contains("x.kml wird gelesen"), outcome.out.constData());
        for (const QString &line : QString::fromUtf8(outcome.out).split(QLatin1Char('\n'))) {
            const QString seen = line.section(QStringLiteral("\r\033[K"), -1);
            QVERIFY2(!seen.contains(QLatin1String(" wird ")), qPrintable(line));
        }
    }
}

void tst_krrenderTexts::languageFollowsTheLocale()
{
    QVERIFY(run("LC_ALL=de_AT.UTF-8 krrender missing.gpx").complainsOf("nicht gefunden"));
    QVERIFY(run("LC_ALL=fr_FR.UTF-8 krrender missing.gpx").complainsOf("not found"));
    const Outcome help = run("LC_ALL=en_GB.UTF-8 krrender --help");
    QCOMPARE(help.exitCode, 0);
    QVERIFY(help.out.contains("--line-color"));
    QVERIFY2(!QString::fromUtf8(help.out).contains(QRegularExpression(QStringLiteral("[äöüß]"))), help.out.constData());
}

void tst_krrenderTexts::needsNoDisplay()
{
    for (const char *variables : {"DISPLAY=:4711", "DISPLAY= WAYLAND_DISPLAY=missing", "QT_QPA_PLATFORM=missing"}) {
        const Outcome outcome =
            run(QByteArray("unset QT_QPA_PLATFORM; ") + variables + " krrender --size 64x48 $tour -o a.png");
        QVERIFY2(outcome.exitCode == 0, qPrintable(outcome.err));
    }
}

void tst_krrenderTexts::exchangeFilesComeBack()
{
    KRTestFile::write(path("places.gpx"),
                      "<gpx><wpt lat='53' lon='8'><ele>7</ele><time>2025-05-17T08:30:00Z</time><name>A</name></wpt>"
                      "<trk><name>B</name><trkseg><trkpt lat='1' lon='2'/><trkpt lat='2' lon='3'/></trkseg>"
                      "<trkseg><trkpt lat='5' lon='6'/><trkpt lat='7' lon='7'/></trkseg></trk></gpx>");
    const QByteArray files = "$samples/nordseekueste-10000.gpx $tour places.gpx";
    const QJsonArray before = tracks(files);
    QCOMPARE(before.size(), 4);
    for (const QByteArray &name : {QByteArray("out.gpx"), QByteArray("out.kml"), QByteArray("out.kmz")}) {
        QCOMPARE(run("krrender -o " + name + ' ' + files).exitCode, 0);
        const QJsonArray after = tracks(name);
        QCOMPARE(after.size(), 4);
        for (int i = 0; i < 4; ++i) {
            const QJsonObject a = before.at(i).toObject();
            const QJsonObject b = after.at(i).toObject();
            for (const char *key : {"name", "segments", "points", "first", "last", "from", "to"})
                QCOMPARE(b.value(QLatin1String(key)), a.value(QLatin1String(key)));
            const QLatin1String length("lengthKm");
            QVERIFY(qAbs(b.value(length).toDouble() - a.value(length).toDouble()) < 1e-3);
        }
    }
    // What other programs do not know is told.
    KRTestFile::write(path("odd.gpx"), "<gpx><trk><trkseg><trkpt lat='53' lon='8'/><trkpt lat='95' lon='8'/></trkseg>"
                                       "</trk></gpx>");
    const Outcome lossy = run("krrender --plain -o out.gpx odd.gpx");
    QCOMPARE(lossy.exitCode, 1);
    QVERIFY2(lossy.complainsOf("out.gpx: Ausgelassene Positionen"), qPrintable(lossy.err));
    QCOMPARE(tracks("out.gpx").size(), 1);
    // What would not come back is not written.
    const QByteArray segment = "<trkseg><trkpt lat='53' lon='8'/><trkpt lat='54' lon='8'/></trkseg>";
    const QByteArray segments = segment.repeated(KRInputLimits::geometryParts + 1);
    KRTestFile::write(path("many.gpx"), "<gpx><trk>" + segments + "</trk></gpx>");
    const Outcome outcome = run("krrender -o many.kmz many.gpx");
    QCOMPARE(outcome.exitCode, 2);
    QVERIFY2(outcome.complainsOf("nicht wieder öffnen"), qPrintable(outcome.err));
    QVERIFY(!QFile::exists(path("many.kmz")));
}

void tst_krrenderTexts::otherProgramsReadExchangeFiles()
{
    const KRTestTable<QByteArray, QByteArray, QByteArray> table{
        {"GPSBabel reads GPX", "a.gpx", "gpsbabel -t -i gpx -f a.gpx -o unicsv -F -", "308,53.138500,8.216000"},
        {"GPSBabel reads KML", "a.kml", "gpsbabel -t -i kml -f a.kml -o unicsv -F -", "308,53.138500,8.216000"},
        {"GDAL reads GPX", "a.gpx", "ogrinfo -ro -al -so a.gpx track_points", "Feature Count: 308"},
        {"GDAL reads KML", "a.kml", "ogrinfo -ro -al a.kml", "(8.216 53.1385 5"},
    };
    table.forEach([this](const QByteArray &name, const QByteArray &command, const QByteArray &expected) {
        QCOMPARE(run("krrender $tour -o " + name).exitCode, 0);
        const Outcome outcome = run(command);
        if (outcome.exitCode == 127)
            QSKIP("the other program is not installed");
        QVERIFY2(outcome.out.contains(expected), outcome.out.right(400).constData());
    });
}

template class KRTestRegistration<tst_krrenderTexts>;

#include "tst_krrenderTexts.moc"
