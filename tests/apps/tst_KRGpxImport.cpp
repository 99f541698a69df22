#include "KRGpxImport.h"
#include "KRGpxPreparation.h"

#include "KRTemporarySettings.h"
#include "KRTestFile.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"
#include "KRTestTrack.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRLogger.h>
#include <KRCore/KRQtCompat.h>
#include <KRGeoLocation/KRGPXTrackFile.h>
#include <KRGeoLocation/KRGeoLocationSettings.h>

#include <QtTest>

#include <atomic>
#include <cstdio>
#include <thread>

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

/// The same with a prefix that the importer of the library does not know.
QByteArray prefixed(QByteArray gpx)
{
    return gpx.replace("<gpx ", "<gpx xmlns:g='http://www.topografix.com/GPX/1/1' ").replace("trkseg", "g:trkseg");
}

/// "name: lat,lon lat,lon" of every track, with semicolons between them.
QString texts(const KRGPXConfiguredTrackList &tracks)
{
    QStringList texts;
    for (const KRGPXConfiguredTrack &configured : tracks) {
        QString text = configured.name() + QLatin1Char(':');
        for (const KRGeoPosition &point : configured.allPoints())
            text +=
                QStringLiteral(" %1,%2").arg(point.latitude().decimalDegrees()).arg(point.longitude().decimalDegrees());
        texts.append(text);
    }
    return texts.join(QLatin1String("; "));
}

/// "line: [count] kind name" of all that was not read, with semicolons between them.
QString texts(const KRImportReport &report)
{
    QStringList texts;
    for (const KRImportReport::Item &item : report.items()) {
        const QString count = item.count == 1 ? QString() : QStringLiteral("%1 ").arg(item.count);
        const QString text = QString::number(item.line) + QLatin1String(": ") + count + KRImportReport::key(item.kind);
        texts.append(item.name.isEmpty() ? text : text + QLatin1Char(' ') + item.name);
    }
    return texts.join(QLatin1String("; "));
}

} // namespace

class tst_KRGpxImport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("kr.*=false")); }
    void cleanupTestCase() { QLoggingCategory::setFilterRules(QString()); }
    void cleanup() { KRLogger::instance()->setWatcher({}); }
    void reads();
    void readsTracksAsTheLibrary();
    void readsByTheDomAsByTheStream();
    void readsAllOfWayPointsAndRoutes();
    void drawnAsUsersWant();
    void logsOnce();
    void brokenGivesNothing();
    void neverHalfOfTwoFiles();

private:
    KRGPXConfiguredTrackList read(const QByteArray &content);

    KRTemporarySettings m_settings;
    const QTemporaryDir m_dir;
    const QString m_fileName = m_dir.filePath(QStringLiteral("Tour.2024.gpx"));
    KRErrorHistory m_history;
    KRImportReport m_report;
};

KRGPXConfiguredTrackList tst_KRGpxImport::read(const QByteArray &content)
{
    KRGpxImport import(QFileInfo(KRTestFile::write(m_fileName, content)));
    import.read();
    m_history = import.problems();
    m_report = import.report();
    return import.configuredTracks();
}

void tst_KRGpxImport::reads()
{
    const QByteArray two = position("trkpt", "53", "8") + "\n" + position("trkpt", "54", "9");
    // the tracks, and what could not be read
    const KRTestTable<QByteArray, const char *, const char *> table{
        {"tracks, then waypoints, then routes",
         gpx("<rte><name>R</name>" + position("rtept", "1", "2") + position("rtept", "3", "4") + "</rte>"
             + position("wpt", "5", "6", "<name>W</name>") + track("T", two) + position("wpt", "7", "8")),
         "T: 53,8 54,9; W: 5,6; Wegpunkt 2: 7,8; R: 1,2 3,4", ""},
        {"empty ones",
         gpx(track("T", "") + "<trk><name>U</name></trk>\n<rte>\n<name>R</name></rte>\n" + track("V", two)),
         "V: 53,8 54,9", "3: trackWithoutPosition T; 4: trackWithoutPosition U; 5: routeWithoutPosition R"},
        {"positions that are none",
         gpx(position("wpt", "x", "1", "<name>W</name>") + "\n" + position("wpt", "0", "0") + "\n"
             + position("wpt", "91", "1") + "\n<wpt/>\n" + track("T", position("trkpt", "undefined", "undefined"))
             + "<rte>" + position("rtept", "", "1") + "</rte>"),
         "",
         "3: wayPointWithoutPosition W; 4: wayPointWithoutPosition; 5: wayPointWithoutPosition; 6: "
         "wayPointWithoutPosition; 7: trackWithoutPosition T; 8: routeWithoutPosition"},
        {"some of them",
         gpx(track("T", position("trkpt", "53", "8") + "\n" + position("trkpt", "1,5", "8") + "\n"
                            + position("trkpt", "nan", "8") + position("trkpt", "95", "8") + position("trkpt", "1", "1")
                            + position("trkpt", "0", "0"))
             + "<rte>" + position("rtept", "1", "2") + position("rtept", "1", "x") + "</rte>"),
         "T: 53,8 1,1 0,0; Route 1: 1,2", "4: 3 unreadablePosition T; 6: unreadablePosition"},
        {"prefixes",
         "<gpx:gpx xmlns:gpx='http://www.topografix.com/GPX/1/1'><gpx:wpt lat='1' lon='2'><gpx:name>W</gpx:name>"
         "</gpx:wpt><gpx:trk><gpx:name>&lt;T&gt;</gpx:name><gpx:trkseg><gpx:trkpt lat='3' lon='4'/><gpx:trkpt lat='5' "
         "lon='6'/></gpx:trkseg></gpx:trk><gpx:trk><gpx:trkseg><gpx:trkpt lat='7' lon='8'/></gpx:trkseg></gpx:trk>"
         "</gpx:gpx>",
         "<T>: 3,4 5,6; Tour 2: 7,8; W: 1,2", ""},
        {"prefixes of segments and points alone",
         "<gpx xmlns:g='http://www.topografix.com/GPX/1/1'><trk><name>S</name><g:trkseg><trkpt lat='3' lon='4'/>"
         "</g:trkseg></trk></gpx>",
         "S: 3,4", ""},
        {"prefixes of points alone",
         "<gpx xmlns:g='http://www.topografix.com/GPX/1/1'><trk><name>P</name><x:name>X</x:name><trkseg><g:trkpt "
         "lat='3' lon='4'/>"
         "</trkseg></trk></gpx>",
         "P: 3,4", ""},
        {"points as text",
         gpx(track("T", "<compressedPoints>8,53 9,54</compressedPoints><x/>" + position("trkpt", "x", "8")
                            + position("trkpt", "1", "2", "<x/>"))
             + track("U", "<compressedPoints> </compressedPoints>")),
         "T: 53,8 54,9 1,2", "3: unreadablePosition T; 4: trackWithoutPosition U"},
        {"prefixes of others",
         gpx("<x:wpt lat='1' lon='2'/>" + position("wpt", "1", "2", "<x:name>X</x:name><name>W</name>")), "W: 1,2", ""},
        {"UTF-16 declared, is UTF-8",
         gpx(track("T", two) + position("wpt", "1", "2")).replace("?>", " encoding='utf-16'?>"),
         "T: 53,8 54,9; Wegpunkt 1: 1,2", ""},
        {"mark and blanks in front, zero bytes among blanks behind",
         "\xEF\xBB\xBF\n\r\n" + gpx(track("T", two)) + QByteArray(4, '\0') + '\n', "T: 53,8 54,9", ""},
        {"what the DOM would read otherwise", "<gpx><?x?>" + track("a\r\nb", two) + "</gpx>", "a\nb: 53,8 54,9", ""},
        {"entity",
         "<!DOCTYPE gpx [<!ENTITY e '-'>]><gpx><wpt lat='1' lon='2'><name>a&e;b</name></wpt>" + track("T", two)
             + "</gpx>",
         "T: 53,8 54,9; a-b: 1,2", ""},
    };
    table.forEach([this](const QByteArray &content, const char *expected, const char *items) {
        QCOMPARE(texts(read(content)), QLatin1String(expected));
        QCOMPARE(texts(m_report), QLatin1String(items));
        QVERIFY(m_history.isEmpty());
    });
}

/// Also where points have no place, elements have prefixes or the DOM has to help.
void tst_KRGpxImport::readsTracksAsTheLibrary()
{
    const QByteArray points =
        "<trkseg><trkpt lat='53.123456789' lon='8'><ele>1.5</ele><time>2024-05-01T12:00:00.5Z</time>"
        "<desc>d &amp; e</desc></trkpt></trkseg><trkseg/><trkseg><trkpt lat='5' lon='6'/></trkseg>";
    const QByteArray plain = gpx("<trk>" + points + "</trk><trk><name>N</name><desc>D</desc>" + points + "</trk>");
    const QList<KRGPXTrack> expected = KRGPXTrackFile(QFileInfo(KRTestFile::write(m_fileName, plain))).tracks();
    QCOMPARE(expected.size(), 2);
    const QByteArray unusual = QByteArray(plain).replace(
        "<trkseg/>", "<trkseg><trkpt lat='north' lon='1'/><trkpt lat='1'><!----></trkpt></trkseg>");
    const QByteArray prefixedInPoints = QByteArray(unusual)
                                            .replace("<gpx", "<gpx xmlns:g='http://www.topografix.com/GPX/1/1'")
                                            .replace("<ele>1.5</ele>", "<g:ele>1.5</g:ele>");
    for (const QByteArray &content : {plain, unusual, prefixed(unusual), prefixedInPoints,
                                      QByteArray(prefixed(unusual)).replace("<gpx", "<!DOCTYPE gpx><gpx")}) {
        const KRGPXConfiguredTrackList list = read(content);
        QCOMPARE(m_report.count(KRImportReport::UnreadablePosition), content == plain ? 0 : 4);
        QCOMPARE(list.size(), expected.size());
        for (int i = 0; i < expected.size(); ++i)
            QVERIFY(list.at(i).track() == expected.at(i));
    }
}

/// Prefixes, and points without a place, where only the reader of the tracks meets what it cannot read.
void tst_KRGpxImport::readsByTheDomAsByTheStream()
{
    const QByteArray points = position("trkpt", "1", "2") + position("trkpt", "3", "4", "<desc>a&nbsp;b</desc>")
                              + "<trkpt lat='north' lon='1'/><g:trkpt g:lat='5' g:lon='6'/>";
    const QByteArray content = "<gpx xmlns:g='http://www.topografix.com/GPX/1/1'><g:trk><g:name>T</g:name><g:trkseg>"
                               + points + "</g:trkseg></g:trk></gpx>";
    const QLatin1String expected(KRQtCompat::domReadsBrokenXml ? "T: 1,2 3,4 5,6" : "");
    QCOMPARE(texts(read(content)), expected);
    QCOMPARE(m_history.isEmpty(), KRQtCompat::domReadsBrokenXml);
}

void tst_KRGpxImport::readsAllOfWayPointsAndRoutes()
{
    const QByteArray time = "<time> 2024-05-01T12:00:00Z\n</time>";
    const QByteArray point = position("rtept", "1", "2", "<ele>3</ele>" + time + "<desc>via</desc>");
    QCOMPARE(KRTestTrack::text(read(gpx(position(
                 "wpt", "53.5", "-8.25", "<ele>12.9</ele>" + time + "<name> N </name><cmt>C</cmt><desc>D</desc>")))),
             QLatin1String("N (D) point: -8.25,53.5,12,1714564800000 'D'"));
    QCOMPARE(KRTestTrack::text(read(gpx("<rte>" + point
                                        + position("rtept", "3", "4", "<extensions><rpt lat='8' lon='9'/></extensions>")
                                        + "<desc>D</desc><cmt>C</cmt><name>R</name></rte>"))),
             QLatin1String("R (D) linestring: 2,1,3,1714564800000 'via' 4,3"));
    QCOMPARE(KRTestTrack::text(read(gpx("<rte><cmt>C</cmt><x/>" + position("rtept", "1", "2") + "</rte>"))),
             QLatin1String("Route 1 (C) point: 2,1"));
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
    // A waypoint stays a point.
    wanted.setTrackShape(PointTrackShape);
    QVERIFY(tracks.first().configuration() == wanted);
}

void tst_KRGpxImport::logsOnce()
{
    QStringList lines;
    KRLogger::instance()->setWatcher([&lines](const QString &line) { lines.append(line); });
    // As the library reads it, with prefixes, without a track, and broken.
    for (const QByteArray &content :
         {gpx(track("T", position("trkpt", "1", "2"))), prefixed(gpx(track("T", position("trkpt", "1", "2")))),
          gpx(position("wpt", "1", "2")), QByteArray("<gpx>")}) {
        lines.clear();
        read(content);
        QCOMPARE(lines, QStringList{QStringLiteral("ACTION:useFactory VALUE:*.gpx")});
    }
}

void tst_KRGpxImport::brokenGivesNothing()
{
    const QByteArray good = position("wpt", "1", "2") + track("T", position("trkpt", "1", "2")) + "\n";
    const KRTestTable<QByteArray> table{
        {"broken among waypoints", gpx(good + "<wpt><name></wpt>")},
        {"broken among points that are passed over",
         gpx(good + track("U", position("trkpt", "1", "2") + position("trkpt", "1", "2", "<ele>1</time>")))},
        {"more points than a host can hold",
         gpx("<rte>" + QByteArray("<rtept lat='1' lon='2'/>").repeated(KRInputLimits::routePoints + 1) + "</rte>")},
    };
    table.forEach([&](const QByteArray &content) {
        QVERIFY(read(content).isEmpty());
        QVERIFY(m_report.isEmpty());
        QCOMPARE(m_history.entries().size(), 1);
        QCOMPARE(m_history.entries().first().fileName, m_fileName);
    });

    // Too large to be mended: the rest of the file is a hole.
    KRTestFile::write(m_fileName, gpx(good) + "\n<wpt></trk>");
    QVERIFY(QFile::resize(m_fileName, KRInputLimits::mendedBytes + 1));
    KRGpxImport import{QFileInfo(m_fileName)};
    import.read();
    QVERIFY(import.configuredTracks().isEmpty());
    QCOMPARE(import.problems().entries().size(), 1);
    QVERIFY(import.problems().entries().first().reason.startsWith(QStringLiteral("Kein lesbares XML")));
}

void tst_KRGpxImport::neverHalfOfTwoFiles()
{
    const QByteArray content = gpx(track("T", position("trkpt", "1", "2").repeated(20000)));
    KRTestFile::write(m_fileName, content);
    std::atomic<bool> isRead{false};
    // Another program puts a file of the same size in its place again and again.
    std::thread other([&] {
        while (!isRead) {
            const QString next = KRTestFile::write(m_fileName + QStringLiteral(".next"), content);
            std::rename(QFile::encodeName(next).constData(), QFile::encodeName(m_fileName).constData());
        }
    });
    // On a busy machine it may not come to that while the file is read.
    const QDeadlineTimer deadline(20000);
    KRErrorHistory problems;
    bool isWhole = true;
    while (problems.isEmpty() && isWhole && !deadline.hasExpired()) {
        KRGpxImport import{QFileInfo(m_fileName)};
        import.read();
        problems = import.problems();
        const KRGPXConfiguredTrackList tracks = import.configuredTracks();
        isWhole = problems.isEmpty() ? tracks.value(0).track().countPoints() == 20000 : tracks.isEmpty();
    }
    isRead = true;
    other.join();
    QVERIFY(isWhole);
    QCOMPARE(problems.entries().size(), 1);
    QCOMPARE(problems.entries().first().fileName, m_fileName);
    QVERIFY(problems.entries().first().reason.contains(QStringLiteral("geändert")));
}

template class KRTestRegistration<tst_KRGpxImport>;

#include "tst_KRGpxImport.moc"
