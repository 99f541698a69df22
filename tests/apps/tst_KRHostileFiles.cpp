#include "KRTestArchive.h"
#include "KRTestRegistry.h"

#include <KRCore/KRInputLimits.h>

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

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
    void specialFiles_data();
    void specialFiles();

private:
    /// -1 when it did not end by itself.
    int run(const QStringList &arguments);
    QString path(const char *name) const { return m_dir->filePath(QLatin1String(name)); }
    QString write(const char *name, const QByteArray &content) const;

    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_messages;
};

using Content = std::function<QByteArray()>;
Q_DECLARE_METATYPE(Content)

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
        "many attributes", "a.gpx", [] { return gpx("<x " + numbered("a%d='' ", 20000) + "/>"); },
        "zu viele Attribute");
    row(
        "tags with many attributes", "a.kml",
        [] { return kml(QByteArray("<x " + numbered("a%d='' ", 400) + "/>").repeated(100)); }, "zu viele Attribute");
    row(
        "deep", "a.gpx", [] { return gpx(nested("x", 200000)); }, "256 Ebenen");
    row(
        "deep KML", "a.kml", [] { return kml(nested("Folder", 200000)); }, "256 Ebenen");
    row(
        "deep document", "a.krroute", [] { return routes(nested("x", 200000)); }, "256 Ebenen");
    row(
        "long name", "a.kml", [] { return "<!DOCTYPE x>" + kml('<' + QByteArray(1 << 20, 'a') + "/>"); }, "zu lang");
    row(
        "tag without end", "a.gpx", [] { return gpx('<' + QByteArray(4 << 20, 'a')); }, "Kein lesbares XML");
    row("entities of entities", "a.gpx", laughs, "expands to a string");
    row(
        "long entity many times", "a.gpx",
        [] {
            return "<!DOCTYPE gpx [<!ENTITY e '" + QByteArray(10000, 'a') + "'>]>"
                   + gpx("<x>" + QByteArray("&e;").repeated(10000) + "</x>");
        },
        "Entitäten");
    row(
        "many entities", "a.gpx",
        [] { return "<!DOCTYPE gpx [" + numbered("<!ENTITY e%d 'a'>", 20000) + "]>" + gpx("<x/>"); }, "Vereinbarungen");
    row(
        "many comments", "a.krroute", [] { return routes(QByteArray("<!---->").repeated(KRInputLimits::nodes + 1)); },
        "Knoten");
    row(
        "many figures in one placemark", "a.kml",
        [] {
            return kml("<Placemark><MultiGeometry>" + mark.repeated(KRInputLimits::figures + 1)
                       + "</MultiGeometry></Placemark>");
        },
        "Figuren");
    row(
        "many way points", "a.gpx",
        [] { return gpx(QByteArray("<wpt lat='1' lon='2'/>").repeated(KRInputLimits::wayPoints + 1)); }, "Wegpunkte");
    row(
        "bomb", "a.kmz",
        [] { return KRTestArchive::bytes({KRTestArchive::deflated("a.kml", QByteArray(100 << 20, ' '))}); },
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
        return kml(QByteArray("<Placemark>").repeated(200) + mark.repeated(20000)
                   + QByteArray("</Placemark>").repeated(200));
    });
    row("long name of many figures", "a.kml", [] {
        return kml("<Placemark><name>" + QByteArray("a&lt;").repeated(100000) + "</name>" + mark.repeated(20000)
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
    row("empty tracks", "a.gpx", [] { return gpx(QByteArray("<trk/>").repeated(500000)); });
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
    for (const QChar character : qAsConst(m_messages))
        QVERIFY2(character.isPrint() || character == QLatin1Char('\n'), qPrintable(m_messages));
}

void tst_KRHostileFiles::specialFiles_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");
    const QString notRegular = QStringLiteral("keine gewöhnliche Datei");
    for (const char *suffix : {"gpx", "kml", "kmz", "krroute"}) {
        const QString pipe = QStringLiteral("pipe.") + QLatin1String(suffix);
        const QString device = QStringLiteral("device.") + QLatin1String(suffix);
        const QString loop = QStringLiteral("loop.") + QLatin1String(suffix);
        QTest::newRow(qPrintable(pipe)) << QStringList(pipe) << notRegular;
        QTest::newRow(qPrintable(device)) << QStringList(device) << notRegular;
        QTest::newRow(qPrintable(loop)) << QStringList(loop) << QStringLiteral("Verknüpfung");
    }
    QTest::newRow("included pipe") << QStringList(QStringLiteral("include.krroute")) << notRegular;
    QTest::newRow("picture pipe") << QStringList{QStringLiteral("--map"), QStringLiteral("pipe.gpx"),
                                                 QStringLiteral("good.gpx")}
                                  << notRegular;
    QTest::newRow("huge picture") << QStringList{QStringLiteral("--map"), QStringLiteral("map.png"),
                                                 QStringLiteral("good.gpx")}
                                  << QStringLiteral("64 Millionen Pixel");
    QTest::newRow("drawing as a picture")
        << QStringList{QStringLiteral("--map"), QStringLiteral("map.svg"), QStringLiteral("good.gpx")}
        << QStringLiteral("kein lesbares Bild");
}

void tst_KRHostileFiles::specialFiles()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);
    const QString name = arguments.last();
    const QByteArray last = QFile::encodeName(m_dir->filePath(name));
    if (name.startsWith(QLatin1String("device")))
        QCOMPARE(::symlink("/dev/zero", last.constData()), 0);
    else if (name.startsWith(QLatin1String("loop")))
        QCOMPARE(::symlink(last.constData(), last.constData()), 0);
    if (!QFile::exists(path("pipe.gpx")))
        QCOMPARE(::mkfifo(QFile::encodeName(path("pipe.gpx")).constData(), 0600), 0);
    if (name.startsWith(QLatin1String("pipe")) && name != QLatin1String("pipe.gpx"))
        QCOMPARE(::mkfifo(last.constData(), 0600), 0);
    write("good.gpx", gpx(QByteArray()));
    if (arguments.contains(QStringLiteral("map.png")))
        QVERIFY(hugePicture().save(path("map.png")));
    write("map.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
    write("include.krroute", routes("<configuredTrack><trk><include>pipe.gpx</include></trk></configuredTrack>"));
    for (QString &argument : arguments)
        if (!argument.startsWith(QLatin1Char('-')))
            argument = m_dir->filePath(argument);
    QCOMPARE(run(arguments), 1);
    QVERIFY2(m_messages.contains(reason), qPrintable(m_messages));
}

static const KRTestRegistration<tst_KRHostileFiles> registration;

#include "tst_KRHostileFiles.moc"
