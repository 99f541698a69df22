#include "KRGpxImport.h"
#include "KRGpxPreparation.h"

#include "KRTemporarySettings.h"
#include "KRTestRegistry.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRLogger.h>
#include <KRGeoLocation/KRGPXTrackFile.h>
#include <KRGeoLocation/KRGeoLocationSettings.h>

#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray gpx(const QByteArray &content)
{
    return "<?xml version=\"1.0\"?>\n<gpx xmlns=\"http://www.topografix.com/GPX/1/1\">\n" + content + "</gpx>";
}

QByteArray position(const QByteArray &element, const QByteArray &latitude, const QByteArray &longitude,
                    const QByteArray &content = QByteArray())
{
    return "<" + element + " lat=\"" + latitude + "\" lon=\"" + longitude + "\">" + content + "</" + element + ">";
}

QByteArray track(const QByteArray &name, const QByteArray &points)
{
    return "<trk><name>" + name + "</name><trkseg>" + points + "</trkseg></trk>\n";
}

/// "name: lat,lon lat,lon" of every track.
QStringList texts(const KRGPXConfiguredTrackList &tracks)
{
    QStringList texts;
    for (const KRGPXConfiguredTrack &configured : tracks) {
        QStringList points;
        for (const KRGeoPosition &point : configured.allPoints())
            points.append(
                QStringLiteral("%1,%2").arg(point.latitude().decimalDegrees()).arg(point.longitude().decimalDegrees()));
        texts.append(QStringLiteral("%1: %2").arg(configured.name(), points.join(QLatin1Char(' '))));
    }
    return texts;
}

} // namespace

class tst_KRGpxImport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("kr.*=false")); }
    void cleanupTestCase() { QLoggingCategory::setFilterRules(QString()); }
    void cleanup() { KRLogger::instance()->setWatcher({}); }
    void reads_data();
    void reads();
    void readsTracksAsTheLibrary();
    void wayPoints();
    void routes();
    void drawnAsUsersWant();
    void logsOnce_data();
    void logsOnce();
    void brokenGivesNothing_data();
    void brokenGivesNothing();

private:
    KRGPXConfiguredTrackList read(const QByteArray &content);

    KRTemporarySettings m_settings;
    QTemporaryDir m_dir;
    KRErrorHistory m_history;
    KRImportReport m_report;
};

KRGPXConfiguredTrackList tst_KRGpxImport::read(const QByteArray &content)
{
    QFile file(m_dir.filePath(QStringLiteral("Tour.2024.gpx")));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    file.close();
    KRGpxImport import{QFileInfo(file)};
    import.read();
    const KRGPXConfiguredTrackList tracks = import.configuredTracks();
    m_history = import.problems();
    m_report = import.report();
    return tracks;
}

void tst_KRGpxImport::reads_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<QStringList>("items"); // "line: kind name"
    const auto row = [](const char *name, const QByteArray &content, const QStringList &expected,
                        const QStringList &items = {}) { QTest::newRow(name) << content << expected << items; };
    const QByteArray two = position("trkpt", "53", "8") + "\n" + position("trkpt", "54", "9");
    row("tracks, then way points, then routes",
        gpx("<rte><name>R</name>" + position("rtept", "1", "2") + position("rtept", "3", "4") + "</rte>"
            + position("wpt", "5", "6", "<name>W</name>") + track("T", two) + position("wpt", "7", "8")),
        {QStringLiteral("T: 53,8 54,9"), QStringLiteral("W: 5,6"), QStringLiteral("Wegpunkt 2: 7,8"),
         QStringLiteral("R: 1,2 3,4")});
    row("nothing at all", gpx("<metadata><name>N</name></metadata>"), {});
    row("empty ones",
        gpx(track("T", "") + "<trk><name>U</name></trk>\n<rte>\n<name>R</name></rte>\n" + track("V", two)),
        {QStringLiteral("V: 53,8 54,9")},
        {QStringLiteral("3: trackWithoutPosition T"), QStringLiteral("4: trackWithoutPosition U"),
         QStringLiteral("5: routeWithoutPosition R")});
    row("positions that are none",
        gpx(position("wpt", "x", "1", "<name>W</name>") + "\n" + position("wpt", "0", "0") + "\n"
            + position("wpt", "91", "1") + "\n<wpt/>\n" + track("T", position("trkpt", "undefined", "undefined"))
            + "<rte>" + position("rtept", "", "1") + "</rte>"),
        {},
        {QStringLiteral("3: wayPointWithoutPosition W"), QStringLiteral("4: wayPointWithoutPosition "),
         QStringLiteral("5: wayPointWithoutPosition "), QStringLiteral("6: wayPointWithoutPosition "),
         QStringLiteral("7: trackWithoutPosition T"), QStringLiteral("8: routeWithoutPosition ")});
    row("some of them",
        gpx(track("T", position("trkpt", "53", "8") + "\n" + position("trkpt", "1,5", "8") + "\n"
                           + position("trkpt", "nan", "8") + position("trkpt", "95", "8") + position("trkpt", "1", "1")
                           + position("trkpt", "0", "0"))
            + "<rte>" + position("rtept", "1", "2") + position("rtept", "1", "x") + "</rte>"),
        {QStringLiteral("T: 53,8 1,1 0,0"), QStringLiteral("Route 1: 1,2")},
        {QStringLiteral("4: 3 unreadablePosition T"), QStringLiteral("6: unreadablePosition ")});
    row("prefixes",
        "<gpx:gpx xmlns:gpx='http://www.topografix.com/GPX/1/1'><gpx:wpt lat='1' lon='2'><gpx:name>W</gpx:name>"
        "</gpx:wpt><gpx:trk><gpx:name>&lt;T&gt;</gpx:name><gpx:trkseg><gpx:trkpt lat='3' lon='4'/><gpx:trkpt lat='5' "
        "lon='6'/></gpx:trkseg></gpx:trk><gpx:trk><gpx:trkseg><gpx:trkpt lat='7' lon='8'/></gpx:trkseg></gpx:trk>"
        "</gpx:gpx>",
        {QStringLiteral("<T>: 3,4 5,6"), QStringLiteral("Tour 2: 7,8"), QStringLiteral("W: 1,2")});
    row("prefixes in a document without",
        "<gpx xmlns:g='http://www.topografix.com/GPX/1/0'><g:wpt lat='1' lon='2'/><g:trk><g:trkseg>"
        "<g:trkpt lat='3' lon='4'/></g:trkseg></g:trk></gpx>",
        {QStringLiteral("Tour 1: 3,4"), QStringLiteral("Wegpunkt 1: 1,2")});
    row("prefixes of segments and points alone",
        "<gpx xmlns:g='http://www.topografix.com/GPX/1/1'><trk><name>S</name><g:trkseg><trkpt lat='3' lon='4'/>"
        "</g:trkseg></trk></gpx>",
        {QStringLiteral("S: 3,4")});
    row("prefixes of points alone",
        "<gpx xmlns:g='http://www.topografix.com/GPX/1/1'><trk><name>P</name><trkseg><g:trkpt lat='3' lon='4'/>"
        "</trkseg></trk></gpx>",
        {QStringLiteral("P: 3,4")});
    row("points as text",
        gpx(track("T", "<compressedPoints>8,53 9,54</compressedPoints><x/>" + position("trkpt", "x", "8")
                           + position("trkpt", "1", "2", "<x/>"))
            + track("U", "<compressedPoints> </compressedPoints>")),
        {QStringLiteral("T: 53,8 54,9 1,2")},
        {QStringLiteral("3: unreadablePosition T"), QStringLiteral("4: trackWithoutPosition U")});
    row("prefixes of others",
        gpx("<x:wpt lat='1' lon='2'/>" + position("wpt", "1", "2", "<x:name>X</x:name><name>W</name>")),
        {QStringLiteral("W: 1,2")});
    row("in extensions", gpx("<extensions>" + position("wpt", "1", "2") + "</extensions>"), {});
    row("entity",
        "<!DOCTYPE gpx [<!ENTITY e '-'>]><gpx><wpt lat='1' lon='2'><name>a&e;b</name></wpt>" + track("T", two)
            + "</gpx>",
        {QStringLiteral("T: 53,8 54,9"), QStringLiteral("a-b: 1,2")});
}

void tst_KRGpxImport::reads()
{
    QFETCH(QByteArray, content);
    QTEST(texts(read(content)), "expected");
    QStringList items;
    for (const KRImportReport::Item &item : m_report.items())
        items.append(QStringLiteral("%1: %2%3 %4")
                         .arg(QString::number(item.line),
                              item.count == 1 ? QString() : QStringLiteral("%1 ").arg(item.count),
                              KRImportReport::key(item.kind), item.name));
    QTEST(items, "items");
    QVERIFY(m_history.isEmpty());
}

/// Also where the file has to be rewritten for the library.
void tst_KRGpxImport::readsTracksAsTheLibrary()
{
    const QByteArray points =
        "<trkseg><trkpt lat='53.123456789' lon='8'><ele>1.5</ele><time>2024-05-01T12:00:00.5Z</time>"
        "<desc>d &amp; e</desc></trkpt></trkseg><trkseg/><trkseg><trkpt lat='5' lon='6'/></trkseg>";
    const QByteArray plain = gpx("<trk>" + points + "</trk><trk><name>N</name><desc>D</desc>" + points + "</trk>");
    const KRGPXConfiguredTrackList tracks = read(plain);
    const QList<KRGPXTrack> expected =
        KRGPXTrackFile(QFileInfo(m_dir.filePath(QStringLiteral("Tour.2024.gpx")))).tracks();
    QCOMPARE(expected.size(), 2);
    QByteArray unusual = plain;
    unusual.replace("<trkseg/>", "<trkseg><trkpt lat='north' lon='1'/></trkseg>");
    const KRGPXConfiguredTrackList rewritten = read(unusual);
    QCOMPARE(m_report.count(KRImportReport::UnreadablePosition), 2);
    for (const KRGPXConfiguredTrackList &list : {tracks, rewritten}) {
        QCOMPARE(list.size(), expected.size());
        for (int i = 0; i < expected.size(); ++i)
            QVERIFY(list.at(i).track() == expected.at(i));
    }
}

void tst_KRGpxImport::wayPoints()
{
    const KRGPXConfiguredTrackList tracks = read(
        gpx(position("wpt", "53.5", "-8.25",
                     "<ele>12.9</ele><time> 2024-05-01T12:00:00Z\n</time><name> N </name><cmt>C</cmt><desc>D</desc>")
            + position("wpt", "1", "2", "<cmt>C</cmt>")));
    QCOMPARE(tracks.size(), 2);
    const KRGPXTrack track = tracks.first().track();
    QCOMPARE(track.name(), QStringLiteral("N"));
    QCOMPARE(track.description(), QStringLiteral("D"));
    QVERIFY(track.hasShape(PointTrackShape));
    const KRGPXTrackPoint point = track.segments().first().trackPoints().first();
    QCOMPARE(point.position(), KRGeoPosition(53.5, -8.25));
    QCOMPARE(point.elevation(), 12);
    QCOMPARE(point.timeStamp(), QDateTime(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC));
    QCOMPARE(tracks.last().description(), QStringLiteral("C"));
}

void tst_KRGpxImport::routes()
{
    const KRGPXConfiguredTrackList tracks =
        read(gpx("<rte>" + position("rtept", "1", "2", "<ele>3</ele><time>2024-05-01T12:00:00Z</time><desc>via</desc>")
                 + position("rtept", "3", "4", "<extensions><rpt lat='8' lon='9'/></extensions>")
                 + "<desc>D</desc><cmt>C</cmt><name>R</name></rte><rte><cmt>C</cmt><x/>" + position("rtept", "1", "2")
                 + "</rte>"));
    QCOMPARE(tracks.size(), 2);
    QCOMPARE(tracks.first().name(), QStringLiteral("R"));
    QCOMPARE(tracks.first().description(), QStringLiteral("D"));
    QVERIFY(tracks.first().effectiveShape() == LineStringTrackShape);
    const QList<KRGPXTrackPoint> points = tracks.first().track().segments().first().trackPoints();
    QCOMPARE(points.size(), 2);
    QCOMPARE(points.first().elevation(), 3);
    QCOMPARE(points.first().description(), QStringLiteral("via"));
    QVERIFY(points.first().timeStamp().isValid());
    QVERIFY(tracks.last().effectiveShape() == PointTrackShape);
    QCOMPARE(tracks.last().description(), QStringLiteral("C"));
}

void tst_KRGpxImport::drawnAsUsersWant()
{
    KRGeoLocationSettings *const settings = KRGeoLocationSettings::instance();
    const KRGPXTrackConfiguration before = settings->defaultTrackConfiguration();
    KRGPXTrackConfiguration wanted = before;
    wanted.setLineColor(Qt::green);
    wanted.setTrackShape(LineStringTrackShape);
    settings->setDefaultTrackConfiguration(wanted);
    const KRGPXConfiguredTrackList tracks =
        read(gpx(position("wpt", "1", "2") + "<rte>" + position("rtept", "1", "2") + "</rte>"));
    settings->setDefaultTrackConfiguration(before);

    QCOMPARE(tracks.size(), 2);
    QVERIFY(tracks.last().configuration() == wanted);
    // A way point stays a point.
    wanted.setTrackShape(PointTrackShape);
    QVERIFY(tracks.first().configuration() == wanted);
}

void tst_KRGpxImport::logsOnce_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("plain") << gpx(track("T", position("trkpt", "1", "2")));
    QTest::newRow("to be rewritten") << gpx(track("T", position("trkpt", "x", "2")));
    QTest::newRow("way point only") << gpx(position("wpt", "1", "2"));
    QTest::newRow("broken") << QByteArray("<gpx>");
}

void tst_KRGpxImport::logsOnce()
{
    QFETCH(QByteArray, content);
    QStringList lines;
    KRLogger::instance()->setWatcher([&lines](const QString &line) { lines.append(line); });
    read(content);
    QCOMPARE(lines, QStringList{QStringLiteral("ACTION:useFactory VALUE:*.gpx")});
}

void tst_KRGpxImport::brokenGivesNothing_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray good = position("wpt", "1", "2") + track("T", position("trkpt", "1", "2")) + "\n";
    QTest::newRow("truncated") << gpx(good).chopped(3);
    QTest::newRow("broken among way points") << gpx(good + "<wpt><name></wpt>");
    QTest::newRow("broken among points that are passed over")
        << gpx(good + track("U", position("trkpt", "1", "2") + position("trkpt", "1", "2", "<ele>1</time>")));
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("more points than a host can hold")
        << gpx("<rte>" + QByteArray("<rtept lat='1' lon='2'/>").repeated(KRInputLimits::routePoints + 1) + "</rte>");
}

void tst_KRGpxImport::brokenGivesNothing()
{
    QFETCH(QByteArray, content);
    QVERIFY(read(content).isEmpty());
    QVERIFY(m_report.isEmpty());
    QCOMPARE(m_history.entries().size(), 1);
    QCOMPARE(m_history.entries().first().fileName, m_dir.filePath(QStringLiteral("Tour.2024.gpx")));
}

static const KRTestRegistration<tst_KRGpxImport> registration;

#include "tst_KRGpxImport.moc"
