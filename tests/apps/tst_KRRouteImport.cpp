#include "KRRouteImport.h"
#include "KRTrackFigures.h"

#include "KRTestRegistry.h"

#include <KRCore/KRLogger.h>
#include <KRGeoLocation/KRGPXConfiguredTrack.h>

#include <QDirIterator>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

namespace {

const QByteArray tour = "<gpx><trk><name>Tour</name>"
                        "<trkseg><trkpt lat=\"53\" lon=\"8\"><time>2025-05-01T10:00:00Z</time></trkpt>"
                        "<trkpt lat=\"54\" lon=\"8\"/></trkseg>"
                        "<trkseg><trkpt lat=\"0\" lon=\"0\"/><trkpt lat=\"54\" lon=\"9\"/>"
                        "<trkpt lat=\"55\" lon=\"9\"><time>2025-05-01T09:00:00Z</time></trkpt></trkseg>"
                        "</trk></gpx>";

/// All that an import has to tell but for the points.
QStringList texts(const KRRouteImport &import)
{
    QStringList texts;
    for (const KRErrorHistory::Entry &problem : import.problems().entries())
        texts.append(problem.toString());
    for (const KRImportReport &report : import.reports())
        texts.append(report.fileName() + report.summary());
    return texts;
}

} // namespace

class tst_KRRouteImport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("kr.*=false")); }
    void cleanupTestCase() { QLoggingCategory::setFilterRules(QString()); }
    void readsWhatItCanAndExplainsTheRest();
    void manyFilesAreReadAsOneByOne();
    void endsWhenToldTo();
    void plainOrComplete();
    void explainsPlainFiles();
    void splitsSegments();
    void figures();

private:
    QString write(const QString &name, const QByteArray &content);

    QTemporaryDir m_dir;
};

QString tst_KRRouteImport::write(const QString &name, const QByteArray &content)
{
    QFile file(m_dir.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

void tst_KRRouteImport::readsWhatItCanAndExplainsTheRest()
{
    const QString good = write(QStringLiteral("Straße 100%.gpx"), tour);
    const QString upperCase = write(QStringLiteral("again.GPX"), tour);
    const QString broken = write(QStringLiteral("broken.gpx"), "<gpx>\n<trk><trkseg></gpx>");
    const QString empty = write(QStringLiteral("empty.gpx"), QByteArray());
    const QString trackless = write(QStringLiteral("trackless.gpx"), "<gpx><metadata/></gpx>");
    const QString foreign = write(QStringLiteral("notes.txt"), "notes");
    const QString missing = m_dir.filePath(QStringLiteral("missing.gpx"));
    const QString fifo = m_dir.filePath(QStringLiteral("fifo.gpx"));
    QCOMPARE(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const QStringList useless{broken, empty, trackless, foreign, missing, fifo, m_dir.path()};

    KRRouteImport import;
    int lastNumber = 0;
    import.setProgressFunction([&lastNumber](const QString &, int number, int count) {
        QCOMPARE(number, lastNumber + 1);
    QCOMPARE(count, 9);
    lastNumber = number;
});
import.read(QStringList{good} + useless + QStringList{upperCase});

QCOMPARE(lastNumber, 9);
QCOMPARE(import.tracks().size(), 2);
QStringList explained;
QSet<QString> reasons;
for (const KRErrorHistory::Entry &problem : import.problems().entries()) {
    explained.append(problem.fileName);
    reasons.insert(problem.reason);
}
QCOMPARE(explained, useless);
QCOMPARE(reasons.size(), useless.size());
QCOMPARE(import.problems().entries().at(0).line, 2);
}

void tst_KRRouteImport::manyFilesAreReadAsOneByOne()
{
    // Small files stand behind a large one, so that they are read before it is their turn.
    const QByteArray points = QByteArray("<trkpt lat=\"53\" lon=\"8\"/>\n").repeated(20000);
    QStringList files{
        write(QStringLiteral("large.gpx"), "<gpx><trk><trkseg>" + points + "</trkseg></trk></gpx>"),
        write(QStringLiteral("small.gpx"), tour),
        write(QStringLiteral("late fault.gpx"), "<gpx><trk><trkseg>" + points + "</gpx>"),
        write(QStringLiteral("prefixed.gpx"), "<g:gpx><g:trk><g:trkseg><g:trkpt lat='x' lon='8'/><g:trkpt lat='1' "
                                              "lon='8'/></g:trkseg></g:trk><g:wpt lat='1' lon='2'/></g:gpx>"),
        write(QStringLiteral("entity.gpx"), "<!DOCTYPE gpx><gpx><wpt lat='1' lon='2'><name>W</name></wpt><rte/></gpx>"),
        write(QStringLiteral("nothing.gpx"), "<gpx/>"),
        write(QStringLiteral("notes.txt"), "notes"),
        m_dir.filePath(QStringLiteral("missing.gpx"))};
    QDirIterator samples(QStringLiteral(KR_SAMPLES_DIR), QDir::Files);
    while (samples.hasNext())
        files.append(samples.next());
    files += files;

    QStringList log;
    KRLogger::instance()->setWatcher([&log](const QString &line) { log.append(line); });
    KRRouteImport oneByOne;
    for (const QString &file : qAsConst(files))
        oneByOne.read({file});
    const QStringList expectedLog = log;
    log.clear();
    KRRouteImport together;
    QVERIFY(together.read(files));
    KRLogger::instance()->setWatcher({});

    QVERIFY(together.tracks().size() > 10);
    QVERIFY(texts(together).size() > 10);
    QVERIFY(together.tracks() == oneByOne.tracks());
    QCOMPARE(texts(together), texts(oneByOne));
    QCOMPARE(log, expectedLog);
}

void tst_KRRouteImport::endsWhenToldTo()
{
    QStringList files;
    for (int i = 1; i <= 20; ++i)
        files.append(write(QStringLiteral("%1.gpx").arg(i), QByteArray(tour).replace("Tour", QByteArray::number(i))));
    int turn = 0;
    KRRouteImport import;
    import.setProgressFunction([&turn](const QString &, int number, int) { turn = number;
});
    import.setWaitFunction([&turn] { return turn != 3;
    });
    QVERIFY(!import.read(files));
    QCOMPARE(turn, 3);
    QCOMPARE(import.tracks().size(), 2);
    QCOMPARE(import.tracks().last().name(), QStringLiteral("2"));
    QVERIFY(import.problems().isEmpty());

    QVERIFY(import.read(files.mid(18)));
    QCOMPARE(import.tracks().last().name(), QStringLiteral("20"));
    }

    void tst_KRRouteImport::plainOrComplete()
    {
        const QStringList files{write(QStringLiteral("way points.gpx"),
                                      "<gpx><wpt lat=\"1\" lon=\"2\"/><trk><name>T</name><trkseg>"
                                      "<trkpt lat=\"1\" lon=\"2\"/></trkseg></trk><rte/></gpx>"),
                                write(QStringLiteral("two points.kml"),
                                      "<kml><Document><Placemark><MultiGeometry><Point><coordinates>8,53"
                                      "</coordinates></Point><Point><coordinates>9,54</coordinates></Point>"
                                      "</MultiGeometry></Placemark><NetworkLink/></Document></kml>")};
        KRRouteImport complete;
        complete.read(files);
        QCOMPARE(complete.tracks().size(), 4);
        QCOMPARE(complete.reports().size(), 2);
        QCOMPARE(complete.reports().at(0).fileName(), files.at(0));
        QCOMPARE(complete.reports().at(0).count(KRImportReport::RouteWithoutPosition), 1);
        QCOMPARE(complete.reports().at(1).fileName(), files.at(1));
        QCOMPARE(complete.reports().at(1).count(KRImportReport::NetworkLink), 1);
        QVERIFY(complete.problems().isEmpty());

        KRRouteImport plain;
        plain.setPlain(true);
        plain.read(files);
        QCOMPARE(plain.tracks().size(), 2);
        QVERIFY(plain.reports().isEmpty());
        QVERIFY(plain.problems().isEmpty());
    }

    void tst_KRRouteImport::explainsPlainFiles()
    {
        // Without a "Document" the importer finds nothing, but all of it is read otherwise.
        const QByteArray point = "<Placemark><Point><coordinates>8,53</coordinates></Point></Placemark>";
        const QString loose = write(QStringLiteral("loose.kml"), "<kml>" + point + "</kml>");
        const QString broken = write(QStringLiteral("broken.kml"), "<kml>\n<Document>" + point);
        KRRouteImport plain;
        plain.setPlain(true);
        plain.read({loose, broken});
        QCOMPARE(plain.tracks().size(), 0);
        QCOMPARE(plain.problems().entries().size(), 2);
        QCOMPARE(plain.problems().entries().first().fileName, loose);
        QCOMPARE(plain.problems().entries().last().fileName, broken);
        QCOMPARE(plain.problems().entries().last().line, 2);

        KRRouteImport complete;
        complete.read({loose, broken});
        QCOMPARE(complete.tracks().size(), 1);
        QCOMPARE(complete.problems().entries().size(), 1);
        QCOMPARE(complete.problems().entries().first().fileName, broken);
    }

    void tst_KRRouteImport::splitsSegments()
    {
        KRRouteImport import;
        import.setSplitSegments(true);
        import.read({write(QStringLiteral("pauses.gpx"), tour)});
        QCOMPARE(import.tracks().size(), 2);
        QCOMPARE(import.tracks().last().name(), QStringLiteral("Tour (2)"));
        QCOMPARE(import.tracks().last().track().countPoints(), 3);
    }

    void tst_KRRouteImport::figures()
    {
        KRRouteImport import;
        import.read({write(QStringLiteral("figures.gpx"), tour)});
        QCOMPARE(import.tracks().size(), 1);
        const KRTrackFigures figures(import.tracks().at(0));
        QCOMPARE(figures.segmentCount(), 2);
        QCOMPARE(figures.pointCount(), 5);
        // Two degrees of latitude; neither the gap between the segments nor the point without position count.
        QVERIFY(qAbs(figures.lengthKm() - 2.0 * 111.1774733520461) < 1e-6);
        QCOMPARE(figures.firstPosition(), KRGeoPosition(53.0, 8.0));
        QCOMPARE(figures.lastPosition(), KRGeoPosition(55.0, 9.0));
        QCOMPARE(figures.from(), QDateTime(QDate(2025, 5, 1), QTime(9, 0), Qt::UTC));
        QCOMPARE(figures.to(), QDateTime(QDate(2025, 5, 1), QTime(10, 0), Qt::UTC));
        QCOMPARE(figures.boundingBox().south().decimalDegrees(), 53.0);
    }

    static const KRTestRegistration<tst_KRRouteImport> registration;

#include "tst_KRRouteImport.moc"
