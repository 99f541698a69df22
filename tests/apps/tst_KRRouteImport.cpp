#include "KRRouteDocument.h"
#include "KRRouteImport.h"

#include "KRTestArchive.h"
#include "KRTestFile.h"
#include "KRTestRegistry.h"

#include <KRCore/KRLogger.h>

#include <QtTest>

#include <sys/stat.h>

namespace {

const QByteArray tourGpx = "<gpx><trk><name>Tour</name><trkseg><trkpt lat='53' lon='8'/><trkpt lat='54' lon='8'/>"
                           "</trkseg></trk></gpx>";

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
    void readsFewFilesAhead();
    void endsWhenToldTo();
    void refusesWhatSplitsIntoTooMuch();
    void plainOrComplete();
    void explainsPlainFiles();

private:
    QString write(const char *name, const QByteArray &content)
    {
        return KRTestFile::write(m_dir.filePath(QString::fromUtf8(name)), content);
    }

    QTemporaryDir m_dir;
};

void tst_KRRouteImport::readsWhatItCanAndExplainsTheRest()
{
    const QString good = write("Straße 100%.gpx", tourGpx);
    const QString upperCase = write("again.GPX", tourGpx);
    const QString fifo = m_dir.filePath(QStringLiteral("fifo.gpx"));
    QCOMPARE(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const QStringList useless{write("broken.gpx", "<gpx>\n<trk><trkseg></gpx>"),
                              write("empty.gpx", QByteArray()),
                              write("trackless.gpx", "<gpx><metadata/></gpx>"),
                              write("notes.txt", "notes"),
                              write("empty.kmz", KRTestArchive::bytes({KRTestArchive::stored("a.png", "?")})),
                              m_dir.filePath(QStringLiteral("missing.gpx")),
                              fifo,
                              m_dir.path()};
    KRRouteImport import;
    QStringList progress;
    const auto note = [&progress](const QString &, int number, int count) {
        progress.append(QStringLiteral("%1/%2").arg(number).arg(count));
    };
    import.setProgressFunction(note);
    import.read(QStringList{good} + useless + QStringList{upperCase});

    QCOMPARE(progress.join(QLatin1Char(' ')), QStringLiteral("1/10 2/10 3/10 4/10 5/10 6/10 7/10 8/10 9/10 10/10"));
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
    const QByteArray points = QByteArray("<trkpt lat='53' lon='8'/>\n").repeated(20000);
    QStringList files{write("large.gpx", "<gpx><trk><trkseg>" + points + "</trkseg></trk></gpx>"),
                      write("small.gpx", tourGpx),
                      write("late fault.gpx", "<gpx><trk><trkseg>" + points + "</gpx>"),
                      write("prefixed.gpx", "<g:gpx><g:trk><g:trkseg><g:trkpt lat='x' lon='8'/><g:trkpt lat='1' "
                                            "lon='8'/></g:trkseg></g:trk><g:wpt lat='1' lon='2'/></g:gpx>"),
                      write("entity.gpx", "<!DOCTYPE gpx><gpx><wpt lat='1' lon='2'><name>W</name></wpt><rte/></gpx>"),
                      write("nothing.gpx", "<gpx/>"),
                      write("notes.txt", "notes"),
                      m_dir.filePath(QStringLiteral("missing.gpx"))};
    for (QDirIterator samples(QStringLiteral(KR_SAMPLES_DIR), QDir::Files); samples.hasNext();)
        files.append(samples.next());
    files += files;

    QStringList log;
    KRLogger::instance()->setWatcher([&log](const QString &line) { log.append(line); });
    KRRouteImport oneByOne;
    for (const QString &file : std::as_const(files))
        oneByOne.read({file});
    const QStringList expectedLog = std::exchange(log, {});
    KRRouteImport together;
    QVERIFY(together.read(files));
    KRLogger::instance()->setWatcher({});

    QVERIFY(together.tracks().size() > 10 && texts(together).size() > 10);
    QVERIFY(together.tracks() == oneByOne.tracks());
    QCOMPARE(texts(together), texts(oneByOne));
    QCOMPARE(log, expectedLog);
}

void tst_KRRouteImport::readsFewFilesAhead()
{
    QStringList files;
    for (int i = 0; i < 2 * QThread::idealThreadCount() + 2; ++i)
        files.append(write(qPrintable(QStringLiteral("%1.gpx").arg(i)), tourGpx));
    KRRouteImport import;
    const auto replaceLast = [&](const QString &, int number, int) {
        if (number != 1)
            return;
        QThread::msleep(100); // time to read all that is read ahead
        KRTestFile::write(files.last(), QByteArray(tourGpx).replace("Tour", "Late"));
    };
    import.setProgressFunction(replaceLast);
    QVERIFY(import.read(files));
    QCOMPARE(import.tracks().size(), files.size());
    QCOMPARE(import.tracks().last().name(), QStringLiteral("Late"));
}

void tst_KRRouteImport::refusesWhatSplitsIntoTooMuch()
{
    const QByteArray segment = "<trkseg><trkpt lat='53' lon='8'/><trkpt lat='54' lon='8'/></trkseg>";
    const QStringList files = {write("long.gpx", "<gpx><trk><name>" + QByteArray(4 << 20, 'n') + "</name>"
                                                     + segment.repeated(17) + "</trk></gpx>"),
                               write("two.gpx", "<gpx><trk>" + segment.repeated(2) + "</trk></gpx>")};
    KRRouteImport import;
    import.setSplitSegments(true);
    QVERIFY(import.read(files));
    QCOMPARE(import.tracks().size(), 2);
    QCOMPARE(import.problems().entries().size(), 1);
    QCOMPARE(import.problems().entries().first().fileName, files.first());
}

void tst_KRRouteImport::endsWhenToldTo()
{
    QStringList files;
    for (int i = 1; i <= 20; ++i) {
        const QByteArray number = QByteArray::number(i);
        files.append(write((number + ".gpx").constData(), QByteArray(tourGpx).replace("Tour", number)));
    }
    int turn = 0;
    KRRouteImport import;
    const auto note = [&turn](const QString &, int number, int) { turn = number; };
    import.setProgressFunction(note);
    const auto goesOn = [&turn] { return turn != 3; };
    import.setWaitFunction(goesOn);
    QVERIFY(!import.read(files));
    QCOMPARE(turn, 3);
    QCOMPARE(import.tracks().size(), 2);
    QCOMPARE(import.tracks().last().name(), QStringLiteral("2"));
    QVERIFY(import.problems().isEmpty());

    QVERIFY(import.read(files.mid(18)));
    QCOMPARE(import.tracks().last().name(), QStringLiteral("20"));

    const QString document = m_dir.filePath(QStringLiteral("a.krroute"));
    KRRouteDocument routes;
    routes.setSelection(KRGPXTrackSelection(import.tracks()));
    QVERIFY(routes.save(QFileInfo(document), nullptr));
    int questions = 0;
    KRRouteImport documents;
    const auto goesOnTwice = [&questions] { return ++questions <= 2; };
    documents.setWaitFunction(goesOnTwice);
    QVERIFY(!documents.read({document}));
    QCOMPARE(questions, 3);
    QVERIFY(documents.tracks().isEmpty() && documents.problems().isEmpty());

    // In the middle of a file, too.
    const QByteArray gpxPoints = QByteArray("<trkpt lat='53' lon='8'/>\n").repeated(300000);
    const QByteArray place = "<Placemark><Point><coordinates>8,53</coordinates></Point></Placemark>\n";
    for (const QString &file : {write("large.gpx", "<gpx><trk><trkseg>" + gpxPoints + "</trkseg></trk></gpx>"),
                                write("large.kml", "<kml><Document>" + place.repeated(20000) + "</Document></kml>")}) {
        int calls = 0;
        KRRouteImport large;
        const auto goesOnOnce = [&calls] { return ++calls == 1; };
        large.setWaitFunction(goesOnOnce);
        QVERIFY2(!large.read({file}), qPrintable(file));
        QVERIFY(large.tracks().isEmpty());
    }
}

void tst_KRRouteImport::plainOrComplete()
{
    const QByteArray points =
        "<Point><coordinates>8,53</coordinates></Point><Point><coordinates>9,54</coordinates></Point>";
    const QStringList files{
        write("waypoints.gpx", "<gpx><wpt lat='1' lon='2'/><trk><name>T</name><trkseg><trkpt lat='1' lon='2'/>"
                               "</trkseg></trk><rte/></gpx>"),
        write("two points.kml", "<kml><Document><Placemark><MultiGeometry>" + points
                                    + "</MultiGeometry></Placemark><NetworkLink/></Document></kml>")};
    KRRouteImport complete;
    complete.read(files);
    QCOMPARE(complete.tracks().size(), 4);
    QCOMPARE(texts(complete),
             QStringList({files.at(0) + QStringLiteral("1 Route ohne lesbare Position nicht gezeichnet"),
                          files.at(1) + QStringLiteral("1 Netzwerkverweis nicht gezeichnet")}));
    KRRouteImport plain;
    plain.setPlain(true);
    plain.read(files);
    QCOMPARE(plain.tracks().size(), 2);
    QCOMPARE(texts(plain), QStringList());
}

void tst_KRRouteImport::explainsPlainFiles()
{
    // Without a "Document" the importer finds nothing, but all of it is read otherwise.
    const QByteArray point = "<Placemark><Point><coordinates>8,53</coordinates></Point></Placemark>";
    const QString loose = write("loose.kml", "<kml>" + point + "</kml>");
    const QString broken = write("broken.kml", "<kml>\n<Document>" + point);
    for (const bool isPlain : {true, false}) {
        KRRouteImport import;
        import.setPlain(isPlain);
        import.read({loose, broken});
        QCOMPARE(import.tracks().size(), isPlain ? 0 : 1);
        const QList<KRErrorHistory::Entry> problems = import.problems().entries();
        QCOMPARE(problems.size(), isPlain ? 2 : 1);
        QCOMPARE(problems.first().fileName, isPlain ? loose : broken);
        QCOMPARE(problems.last().fileName, broken);
        QCOMPARE(problems.last().line, 2);
    }
}

template class KRTestRegistration<tst_KRRouteImport>;

#include "tst_KRRouteImport.moc"
