#include "KRTestArchive.h"
#include "KRTestRegistry.h"
#include "KRTestTiles.h"

#include <KRCore/KRInputLimits.h>
#include <KRCore/KRQtCompat.h>

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <utility>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr long largestKilobytes = 500 << 10;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool isMemoryLimited = false; // sanitizers take much of their own
#else
constexpr bool isMemoryLimited = true;
#endif

/// Starts a program that the system ends after a minute or at 3 GB: far more than allowed of a quiet machine, far less
/// than what harm would take.
QString limitedStart()
{
    const QString memory = isMemoryLimited ? QStringLiteral("ulimit -v 3145728; ") : QString();
    return QStringLiteral("ulimit -t 60; ") + memory + QStringLiteral("exec \"$0\" \"$@\"");
}

long mostKilobytesOfPrograms()
{
    rusage usage{};
    ::getrusage(RUSAGE_CHILDREN, &usage);
    return usage.ru_maxrss;
}

QByteArray numbered(const QByteArray &text, int count)
{
    QByteArray result;
    for (int i = 0; i < count; ++i)
        result += QByteArray(text).replace("%d", QByteArray::number(i));
    return result;
}

QByteArray gpx(const QByteArray &inside)
{
    return "<gpx><trk><trkseg><trkpt lat='53' lon='8'/><trkpt lat='54' lon='9'/></trkseg></trk>" + inside + "</gpx>";
}

QByteArray kml(const QByteArray &inside)
{
    return "<kml><Document>" + inside + "</Document></kml>";
}

QByteArray routes(const QByteArray &tracks)
{
    return "<routes folder='.'><selection><gpxtrack>" + tracks + "</gpxtrack></selection></routes>";
}

const QByteArray mark = QByteArrayLiteral("<Point><coordinates>8,53</coordinates></Point>");

QByteArray nested(const char *tag, int levels)
{
    const QByteArray name(tag);
    return QByteArray('<' + name + '>').repeated(levels) + QByteArray("</" + name + '>').repeated(levels);
}

QByteArray laughs()
{
    QByteArray text = "<!DOCTYPE gpx [<!ENTITY l0 'ha'>";
    for (int i = 1; i <= 12; ++i)
        text += "<!ENTITY l" + QByteArray::number(i) + " '"
                + QByteArray("&l" + QByteArray::number(i - 1) + ';').repeated(10) + "'>";
    return text + "]>" + gpx("<x>&l12;</x>");
}

/// Small as a file, and 280 MB in memory.
QImage hugePicture()
{
    QImage picture(9000, 8000, QImage::Format_Mono);
    picture.fill(0);
    return picture;
}

} // namespace

/**
 * Files that mean harm are refused with a reason, or drawn, in little time and memory.
 *
 * scripts/hostile has many more, and larger ones.
 */
class tst_KRHostileFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void areRefused_data();
    void areRefused();
    void areDrawnInBoundedTime_data();
    void areDrawnInBoundedTime();
    void namesDoNotReachTheTerminal();
    void specialFiles();
    void picturesAndTiles_data();
    void picturesAndTiles();

private:
    /// -1 when it did not end by itself.
    int run(const QStringList &arguments);
    QString path(const char *name) const { return m_dir->filePath(QLatin1String(name)); }
    QString write(const char *name, const QByteArray &content) const;

    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_messages;
};

using Content = std::function<QByteArray()>;
using FileMaker = std::function<void(const QString &)>;
Q_DECLARE_METATYPE(Content)
Q_DECLARE_METATYPE(FileMaker)

void tst_KRHostileFiles::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
}

int tst_KRHostileFiles::run(const QStringList &arguments)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("de_DE.UTF-8"));
    environment.remove(QStringLiteral("LANGUAGE"));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral("/bin/sh"),
                  QStringList{QStringLiteral("-c"), limitedStart(), QStringLiteral(KR_KRRENDER),
                              QStringLiteral("--size"), QStringLiteral("200x150"), QStringLiteral("-o"),
                              path("out.png")}
                      + arguments);
    if (!program.waitForFinished(240000) || program.exitStatus() != QProcess::NormalExit)
        return -1;
    m_messages = QString::fromUtf8(program.readAllStandardError());
    if (isMemoryLimited && mostKilobytesOfPrograms() > largestKilobytes)
        return -1;
    return program.exitCode();
}

QString tst_KRHostileFiles::write(const char *name, const QByteArray &content) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

void tst_KRHostileFiles::areRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Content>("content");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *title, const char *name, const Content &content, const char *reason) {
        QTest::newRow(title) << QString::fromLatin1(name) << content << QString::fromUtf8(reason);
    };
    row(
        "many attributes", "a.gpx", [] { return gpx("<x " + numbered("a%d='' ", 6000) + "/>"); }, "zu viele Attribute");
    row(
        "tags with many attributes", "a.kml",
        [] { return kml(QByteArray("<x " + numbered("a%d='' ", 400) + "/>").repeated(100)); }, "zu viele Attribute");
    for (const char *name : {"a.gpx", "a.kml", "a.krroute"}) {
        QTest::addRow("deep %s", name) << QString::fromLatin1(name)
                                       << Content([] { return "<routes>" + nested("x", 30000) + "</routes>"; })
                                       << QStringLiteral("256 Ebenen");
    }
    // Here the reader of Qt 6 has limits of its own, which it tells of in the user's language.
    row(
        "long name", "a.kml", [] { return "<!DOCTYPE x>" + kml('<' + QByteArray(1 << 20, 'a') + "/>"); },
        KRQtCompat::domReadsBrokenXml ? "zu lang" : "Kein lesbares XML");
    row(
        "tag without end", "a.gpx", [] { return gpx("<a" + QByteArray(1 << 20, ' ')); }, "Kein lesbares XML");
    row(
        "text without end below many levels", "a.kml",
        [] { return kml(QByteArray("<a>").repeated(250) + "<![CDATA[" + QByteArray(40 << 20, ']')); },
        "Kein lesbares XML");
    row(
        "encoding without end", "a.gpx",
        [] { return "<?xml version='1.0' encoding='" + QByteArray(1 << 20, 'a') + "'?>" + gpx({}); }, "zu groß");
    row("entities of entities", "a.gpx", laughs,
        KRQtCompat::domReadsBrokenXml ? "expands to a string" : "Kein lesbares XML");
    row(
        "long entity many times", "a.gpx",
        [] {
            return "<!DOCTYPE gpx [<!ENTITY e '" + QByteArray(10000, 'a') + "'>]>"
                   + gpx("<x>" + QByteArray("&e;").repeated(10000) + "</x>");
        },
        "Entitäten");
    row(
        "many entities", "a.gpx",
        [] { return "<!DOCTYPE gpx [" + numbered("<!ENTITY e%d 'a'>", 3000) + "]>" + gpx("<x/>"); }, "Vereinbarungen");
    row(
        "many comments", "a.krroute", [] { return routes(QByteArray("<!---->").repeated(KRInputLimits::nodes + 1)); },
        "Knoten");
    row(
        "many elements without points", "a.gpx",
        [] { return gpx(QByteArray("<x/>").repeated(KRInputLimits::bulkTokens)); }, "zu viel anderen Inhalt");
    row(
        "many references", "a.gpx",
        [] {
            const QByteArray text = "<x>" + QByteArray("&lt;").repeated(1000) + "</x>";
            return gpx(text.repeated(KRInputLimits::bulkTokens / KRInputLimits::tokensPerReference / 1000));
        },
        "zu viel anderen Inhalt");
    row(
        "name in many pieces", "a.gpx",
        [] { return gpx("<trk><name>" + QByteArray("a<![CDATA[b]]>").repeated(60000) + "</name></trk>"); },
        "zerstückelt");
    row(
        "name of many elements", "a.gpx",
        [] { return gpx("<wpt><name>" + QByteArray("<a b='1'/>").repeated(60000) + "</name></wpt>"); }, "zerstückelt");
    row(
        "many points in one text", "a.gpx",
        [] {
            return gpx("<trk><trkseg><compressedPoints>" + QByteArray("1,1 ").repeated(KRInputLimits::textPoints + 1)
                       + "</compressedPoints></trkseg></trk>");
        },
        "Punkte");
    row(
        "many tracks", "a.gpx", [] { return gpx(QByteArray("<trk/>").repeated(KRInputLimits::tracks)); }, "Strecken");
    row(
        "many segments", "a.gpx",
        [] { return gpx("<trk>" + QByteArray("<trkseg/>").repeated(KRInputLimits::segments) + "</trk>"); }, "Segmente");
    row(
        "many points that are not plain", "a.gpx",
        [] {
            const QByteArray point = "<trkpt><!----><x/><x/><x/><x/></trkpt>";
            return gpx("<trk><trkseg>" + point.repeated(KRInputLimits::bulkTokens / 10) + "</trkseg></trk>");
        },
        "zu viel anderen Inhalt");
    row(
        "many local times of odd form", "a.gpx",
        [] {
            return gpx("<trk><trkseg>"
                       + numbered("<trkpt lat='1' lon='2'><time>2020-01-01T00:00:00,%d</time></trkpt>", 520000)
                       + "</trkseg></trk>");
        },
        "zu viel anderen Inhalt");
    row(
        "many holes", "a.kml",
        [] {
            return kml("<Placemark><Polygon>" + mark + "<innerBoundaryIs>"
                       + QByteArray("<coordinates/>").repeated(KRInputLimits::geometryParts)
                       + "</innerBoundaryIs></Polygon></Placemark>");
        },
        "Löcher");
    row(
        "many waypoints", "a.gpx",
        [] { return gpx(QByteArray("<wpt lat='1' lon='2'/>").repeated(KRInputLimits::wayPoints + 1)); }, "Wegpunkte");
    row(
        "many geometries in one placemark", "a.kml",
        [] {
            return kml("<Placemark><MultiGeometry>" + mark.repeated(KRInputLimits::geometries + 1)
                       + "</MultiGeometry></Placemark>");
        },
        "Geometrien");
    row(
        "bomb", "a.kmz",
        [] { return KRTestArchive::bytes({KRTestArchive::deflated("a.kml", QByteArray(8 << 20, ' '))}); },
        "verdächtig dicht");
    row(
        "same file many times", "a.krroute",
        [] {
            QByteArray tracks;
            for (int i = 0; i < 15000; ++i)
                tracks += "<configuredTrack><trk><include>a.krroute</include><name>" + QByteArray::number(i)
                          + "</name></trk></configuredTrack>";
            return routes(tracks);
        },
        "dieselben Dateien zu oft");
}

void tst_KRHostileFiles::areRefused()
{
    QFETCH(QString, name);
    QFETCH(Content, content);
    QFETCH(QString, reason);
    const QString file = write(qPrintable(name), content());
    // GPX may be drawn in part.
    QCOMPARE(run({file}), 1);
    QVERIFY2(m_messages.contains(reason), qPrintable(m_messages));
    QVERIFY2(m_messages.contains(file), qPrintable(m_messages));
}

void tst_KRHostileFiles::areDrawnInBoundedTime_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Content>("content");
    const auto row = [](const char *title, const char *name, const Content &content) {
        QTest::newRow(title) << QString::fromLatin1(name) << content;
    };
    row("placemarks in placemarks", "a.kml", [] {
        return kml(QByteArray("<Placemark>").repeated(200) + mark.repeated(2000)
                   + QByteArray("</Placemark>").repeated(200));
    });
    row("long name of many geometries", "a.kml", [] {
        return kml("<Placemark><name>" + QByteArray("a&lt;").repeated(100000) + "</name>" + mark.repeated(2000)
                   + "</Placemark>");
    });
    row("styles in a ring", "a.kml", [] {
        return kml(numbered("<StyleMap id='s%d'><Pair><styleUrl>#s%d</styleUrl></Pair></StyleMap>", 1000)
                   + numbered("<Placemark><styleUrl>#s%d</styleUrl>" + mark + "</Placemark>", 1000));
    });
    row("long numbers", "a.gpx", [] {
        return gpx("<trk><trkseg><trkpt lat='" + QByteArray(1 << 20, '0') + "53' lon='8." + QByteArray(1 << 20, '1')
                   + "'/></trkseg></trk>");
    });
    row("positions beyond all bounds", "a.gpx", [] {
        return gpx("<trk><trkseg><trkpt lat='1e308' lon='-1e308'/><trkpt lat='nan' lon='inf'/>"
                   "<trkpt lat='53' lon='1e18'/></trkseg></trk>");
    });
    row("kept texts of many enclaves", "a.krroute", [] {
        const QByteArray track = "<trk><trkseg><compressedPoints>8,53\n9,54</compressedPoints></trkseg><enclaves>"
                                 + QByteArray("<trk/>").repeated(60000) + "</enclaves></trk>";
        return routes("<configuredTrack>" + track + "</configuredTrack>")
            .replace("</routes>", "<kept number='0'>" + QByteArray("<enclave/>").repeated(60000) + "</kept></routes>");
    });
    row("many lines across the picture", "a.gpx", [] {
        const QByteArray points = "<trkpt lat='53' lon='8'/><trkpt lat='54' lon='9'/><trkpt lat='53' lon='9'/>";
        return gpx("<trk><trkseg>" + points.repeated(200000) + "</trkseg></trk>");
    });
    row("many tracks across the picture", "a.gpx", [] {
        const QByteArray points = "<trkpt lat='53' lon='8'/><trkpt lat='54' lon='9'/>";
        return gpx(("<trk><trkseg>" + points + "</trkseg></trk>").repeated(20000));
    });
    row("absurd look", "a.krroute", [] {
        return routes(
            "<configuredTrack smoothingSteps='999999999' smoothing='0'><trk><trkseg><compressedPoints>8,53\n9,54"
            "</compressedPoints></trkseg></trk><pensize>999999999</pensize><halosize>999999999</halosize>"
            "<color>#ff0000ff</color><markerShape>arrow</markerShape><penStyle>99</penStyle></configuredTrack>");
    });
}

void tst_KRHostileFiles::areDrawnInBoundedTime()
{
    QFETCH(QString, name);
    QFETCH(Content, content);
    const int code = run({write(qPrintable(name), content())});
    QVERIFY2(code == 0 || code == 1, qPrintable(m_messages));
    QVERIFY(QFile::exists(path("out.png")));
}

void tst_KRHostileFiles::namesDoNotReachTheTerminal()
{
    const QByteArray overlay = QByteArrayLiteral("<ScreenOverlay><name>\xC2\x9B"
                                                 "2J&#27;[31m\xE2\x80\xAE</name></ScreenOverlay><Placemark>");
    const QString file = write("a\x1b[2J\n.kml", kml(overlay + mark + "</Placemark>"));
    QCOMPARE(run({QStringLiteral("--verbose"), file, QStringLiteral("missing\x1b[2J.gpx")}), 1);
    QVERIFY2(m_messages.contains(QStringLiteral("a?[2J?.kml")), qPrintable(m_messages));
    for (const QChar character : std::as_const(m_messages))
        QVERIFY2(character.isPrint() || character == QLatin1Char('\n'), qPrintable(m_messages));
}

void tst_KRHostileFiles::specialFiles()
{
    QStringList files;
    for (const char *suffix : {"gpx", "kml", "kmz", "krroute"}) {
        for (const char *kind : {"pipe", "device", "loop"})
            files.append(m_dir->filePath(QStringLiteral("%1.%2").arg(QLatin1String(kind), QLatin1String(suffix))));
        const auto fileName = [&files](int index) { return QFile::encodeName(files.at(files.size() - 3 + index)); };
        QCOMPARE(::mkfifo(fileName(0).constData(), 0600), 0);
        QCOMPARE(::symlink("/dev/zero", fileName(1).constData()), 0);
        QCOMPARE(::symlink(fileName(2).constData(), fileName(2).constData()), 0);
    }
    files.append(
        write("include.krroute", routes("<configuredTrack><trk><include>pipe.gpx</include></trk></configuredTrack>")));
    QCOMPARE(run(files), 1);
    const QStringList lines = m_messages.split(QLatin1Char('\n'));
    for (const QString &file : std::as_const(files)) {
        const QString reason = file.contains(QLatin1String("loop")) ? QStringLiteral("Verknüpfung")
                                                                    : QStringLiteral("keine gewöhnliche Datei");
        const QString named = file.endsWith(QLatin1String("include.krroute")) ? path("pipe.gpx") : file;
        QVERIFY2(std::any_of(lines.cbegin(), lines.cend(),
                             [&](const QString &line) { return line.contains(named) && line.contains(reason); }),
                 qPrintable(named + QLatin1Char('\n') + m_messages));
    }
}

void tst_KRHostileFiles::picturesAndTiles_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("name");
    QTest::addColumn<FileMaker>("make");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *title, const char *option, const char *name, const FileMaker &make,
                        const char *reason) {
        QTest::newRow(title) << QString::fromLatin1(option) << QString::fromLatin1(name) << make
                             << QString::fromUtf8(reason);
    };
    const auto tiles = [](const QStringList &statements) {
        return [statements](const QString &file) { KRTestTiles::runSql(file, statements); };
    };
    row(
        "pipe as a picture", "--map", "map.png",
        [](const QString &file) { QCOMPARE(::mkfifo(QFile::encodeName(file).constData(), 0600), 0); },
        "keine gewöhnliche Datei");
    row(
        "huge picture", "--map", "map.png", [](const QString &file) { QVERIFY(hugePicture().save(file)); },
        "64 Millionen Pixel");
    row(
        "drawing as a picture", "--map", "map.svg",
        [](const QString &file) {
            KRTestTiles::writeFile(file, "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
        },
        "kein lesbares Bild");
    row("tiles that never end", "--tiles", "map.mbtiles",
        tiles({QStringLiteral("CREATE TABLE n (i)"),
               QStringLiteral("INSERT INTO n VALUES (0), (1), (2), (3), (4), (5)"),
               QStringLiteral(
                   "CREATE VIEW tiles AS SELECT a.i AS zoom_level, b.i AS tile_column, c.i AS tile_row, 'x' AS "
                   "tile_data FROM n a, n b, n c, n d, n e, n f, n g, n h, n i, n j, n k "
                   "WHERE d.i + e.i + f.i + g.i + h.i + i.i + j.i + k.i < 0")}),
        "antwortet zu langsam");
    row("huge tile", "--tiles", "map.mbtiles",
        tiles({QStringLiteral("CREATE TABLE n (i)"),
               QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n LIMIT 32) "
                              "INSERT INTO n SELECT i FROM n"),
               QStringLiteral("CREATE TABLE large (tile_data)"),
               QStringLiteral("INSERT INTO large VALUES (zeroblob(10000000))"),
               QStringLiteral("CREATE VIEW tiles AS SELECT z.i AS zoom_level, x.i AS tile_column, y.i AS tile_row, "
                              "tile_data FROM n z, n x, n y, large")}),
        "zu groß");
}

void tst_KRHostileFiles::picturesAndTiles()
{
    QFETCH(QString, option);
    QFETCH(QString, name);
    QFETCH(FileMaker, make);
    QFETCH(QString, reason);
    const QString file = m_dir->filePath(name);
    make(file);
    run({option, file, write("good.gpx", gpx(QByteArray()))});
    QVERIFY2(m_messages.contains(reason), qPrintable(m_messages));
}

template class KRTestRegistration<tst_KRHostileFiles>;

#include "tst_KRHostileFiles.moc"
