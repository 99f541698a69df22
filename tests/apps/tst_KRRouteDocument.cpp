#include "KRRouteDocument.h"

#include "KRTestFile.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"
#include "KRTrackFileStamps.h"

#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>
#include <KRGeoLocation/KRGeoPositionSpan.h>

#include <QtTest>

#include <sys/stat.h>

#include <utility>

namespace {

KRGPXTrackPoint point(double latitude, double longitude, int elevation, const QDateTime &time, const QString &text)
{
    return KRGPXTrackPoint(KRGeoPosition(latitude, longitude), elevation, time, text);
}

/// Times, descriptions of all kinds, a null point, an enclave: everything that plain track XML loses.
KRGPXTrack tour()
{
    const QDateTime start(QDate(2025, 5, 17), QTime(8, 30, 0, 250), Qt::UTC);
    const KRGPXTrackSegment first({point(53.1, 8.2, 4, start, QString()), point(0.0, 0.0, 0, QDateTime(), QString()),
                                   point(53.2, 8.3, 0, start.addSecs(60), QStringLiteral("Mühle <alt>"))});
    const KRGPXTrackSegment second({point(53.3, 8.4, 0, QDateTime(), QString())});
    KRGPXTrack track(QStringLiteral("Tour"), QStringLiteral("Am Fluss\nentlang"), {first, second},
                     LineStringTrackShape);
    const KRGPXTrackSegment ring({point(53.11, 8.21, 0, start, QString()), point(53.12, 8.21, 0, start, QString()),
                                  point(53.12, 8.22, 0, start, QStringLiteral("Ecke")),
                                  point(53.11, 8.21, 0, start, QString())});
    track.addEnclave(KRGPXTrack(QStringLiteral("See"), QStringLiteral("tief"), {ring}, PolygonTrackShape));
    return track;
}

QList<KRGPXTrackPoint> pointsOf(const KRGPXTrack &track)
{
    QList<KRGPXTrackPoint> points;
    for (const KRGPXTrackSegment &segment : track.segments()) {
        for (const KRGPXTrackPoint &trackPoint : segment.trackPoints()) {
            if (!trackPoint.isNull())
                points.append(trackPoint);
        }
    }
    return points;
}

} // namespace

class tst_KRRouteDocument : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { QLoggingCategory::setFilterRules(QString()); }
    void nothingIsLostInManyRounds();
    void unchangedTracksAreNotWrittenAgain();
    void missingTrackFileIsWrittenAgain();
    void unreadableTrackFilesStayUntouched();
    void lostTracksOfSeveralDocuments();
    void lostTracksOfOneFile();
    void filesWithoutTrack();
    void furtherElementsAreTold();
    void refusesWhatIsNoDocument();
    void whatIsSavedCanBeRead();
    void pipesAreNoDocuments();
    void filesStayWithTheirTracks();
    void fileReplacedWhileItIsRead();
    void folderNameCannotLeadElsewhere();

private:
    QString path(const QString &name) const { return m_dir->filePath(name); }
    QFileInfo document() const { return QFileInfo(path(QStringLiteral("Reise.krroute"))); }
    QString trackFile(const QString &name) const { return path(QStringLiteral("Reise.tracks/") + name); }
    void save(const KRGPXTrackSelection &selection) const;
    KRGPXTrackSelection load(KRErrorHistory *history = nullptr) const;

    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_KRRouteDocument::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QLoggingCategory::setFilterRules(QStringLiteral("kr.*=false"));
}

void tst_KRRouteDocument::save(const KRGPXTrackSelection &selection) const
{
    KRRouteDocument written;
    written.setSelection(selection);
    KRErrorHistory history;
    QVERIFY2(written.save(document(), &history),
             history.isEmpty() ? "" : qPrintable(history.entries().first().toString()));
}

KRGPXTrackSelection tst_KRRouteDocument::load(KRErrorHistory *history) const
{
    KRRouteDocument read;
    if (!read.load(document(), history))
        qFatal("the document cannot be read");
    return read.selection();
}

void tst_KRRouteDocument::nothingIsLostInManyRounds()
{
    KRGPXTrackConfiguration look = KRGPXTrackConfiguration::defaultValue();
    look.setLineColor(QColor(QStringLiteral("#80123456")));
    look.setTrackShape(LineStringTrackShape);
    look.setLineWidth(7.5);
    KRGPXTrackConfiguration halo = look;
    halo.setLineWidth(7.0);
    halo.setHaloWidth(1.5);
    KRGPXTrackSelection selection;
    selection.addTrack(KRGPXConfiguredTrack(tour(), look));
    selection.addTrack(KRGPXConfiguredTrack(point(53.0, 8.0, 0, QDateTime(), QStringLiteral("Bank")), halo));
    selection.setCroppingOpacity(77);

    for (int round = 0; round < 4; ++round) {
        save(selection);
        selection = load();
        QCOMPARE(selection.count(), 2);
        QCOMPARE(selection.nominalCroppingOpacity(), 77);
        const KRGPXTrack track = selection.value(0).track();
        QCOMPARE(selection.value(0).configuration().lineColor().rgba(), look.lineColor().rgba());
        QCOMPARE(selection.value(0).configuration().lineWidth().toDouble(), 7.5);
        QCOMPARE(track.name(), QStringLiteral("Tour"));
        QCOMPARE(track.description(), QStringLiteral("Am Fluss\nentlang"));
        QCOMPARE(track.segments().size(), 2);
        QVERIFY(pointsOf(track) == pointsOf(tour()));
        QCOMPARE(track.enclaves().size(), 1);
        QCOMPARE(track.enclaves().first().description(), QStringLiteral("tief"));
        QVERIFY(pointsOf(track.enclaves().first()) == pointsOf(tour().enclaves().first()));
        QCOMPARE(selection.value(1).name(), QStringLiteral("Bank"));
        QCOMPARE(selection.value(1).configuration().haloWidth().toDouble(), 1.5);
    }
    QCOMPARE(QDir(path(QStringLiteral("Reise.tracks"))).entryList(QDir::Files),
             (QStringList{QStringLiteral("track.gps"), QStringLiteral("track_1.gps")}));
}

void tst_KRRouteDocument::unchangedTracksAreNotWrittenAgain()
{
    KRGPXTrackSelection selection;
    selection.addTrack(tour());
    save(selection);
    // A mark that only stays as long as nobody writes the file.
    const QString file = trackFile(QStringLiteral("track.gps"));
    const QByteArray marked = KRTestFile::content(file) + "<!-- mark -->";
    KRTestFile::write(file, marked);

    selection = load();
    selection.addTrack(KRGPXTrack(QStringLiteral("Neu"), QString(), tour().segments(), LineStringTrackShape));
    save(selection);
    QCOMPARE(KRTestFile::content(file), marked);
    QCOMPARE(load().count(), 2);
}

void tst_KRRouteDocument::missingTrackFileIsWrittenAgain()
{
    KRGPXTrackSelection selection;
    selection.addTrack(tour());
    save(selection);
    QVERIFY(QFile::remove(trackFile(QStringLiteral("track.gps"))));
    save(selection);
    QVERIFY(pointsOf(load().value(0).track()) == pointsOf(tour()));

    // Without points it does not stand for a file that a cancelled save has taken back.
    init();
    KRRouteDocument cancelled;
    cancelled.setSelection(KRGPXTrackSelection(KRGPXConfiguredTrackList(KRGPXConfiguredTrack())));
    cancelled.setGoOnFunction([isFirst = true]() mutable { return std::exchange(isFirst, false); });
    QVERIFY(!cancelled.save(document(), nullptr));
    save(cancelled.selection());
    KRErrorHistory history;
    load(&history);
    QVERIFY(history.isEmpty());
}

void tst_KRRouteDocument::unreadableTrackFilesStayUntouched()
{
    KRGPXTrackSelection selection;
    for (const char *name : {"eins", "zwei", "drei"}) {
        KRGPXTrack track = tour();
        track.setName(QLatin1String(name));
        selection.addTrack(track);
    }
    const KRGPXTrack lost = selection.value(1).track();
    save(selection);
    const QByteArray damaged = "<includedTrack><trk><name>ei";
    const QString file = KRTestFile::write(trackFile(QStringLiteral("track.gps")), damaged);
    const QByteArray second = KRTestFile::content(trackFile(QStringLiteral("track_1.gps")));
    QVERIFY(QFile::remove(trackFile(QStringLiteral("track_1.gps"))));

    KRErrorHistory history;
    selection = load(&history);
    QCOMPARE(history.entries().size(), 2);
    QCOMPARE(selection.count(), 3);
    QCOMPARE(selection.value(2).name(), QStringLiteral("drei"));

    save(selection);
    save(load()); // in any number of rounds
    QCOMPARE(KRTestFile::content(file), damaged);
    // What cannot name a file does not take its place; a document that lies elsewhere names it where it was.
    const QFileInfo elsewhere(path(QStringLiteral("Kopie.krroute")));
    KRRouteDocument copy;
    copy.setSelection(load());
    QVERIFY(!copy.saveInOneFile(elsewhere, nullptr));
    QVERIFY(copy.save(elsewhere, nullptr) && copy.load(elsewhere, nullptr) && copy.save(elsewhere, nullptr));

    // Once the lost file is back, the documents find it where it was.
    const QString back = trackFile(QStringLiteral("track_1.gps"));
    QVERIFY(!QFile::exists(back));
    KRTestFile::write(back, second);
    QVERIFY(copy.load(elsewhere, nullptr));
    for (const KRGPXTrack &found : {load().value(1).track(), copy.selection().value(1).track()}) {
        QCOMPARE(found.name(), QStringLiteral("zwei"));
        QCOMPARE(found.description(), lost.description());
        QVERIFY(pointsOf(found) == pointsOf(lost));
        QVERIFY(pointsOf(found.enclaves().value(0)) == pointsOf(lost.enclaves().first()));
    }
}

void tst_KRRouteDocument::lostTracksOfSeveralDocuments()
{
    KRGPXTrackSelection selection;
    selection.addTrack(tour());
    KRGPXTrackSelection lost;
    for (const char *const name : {"Eins", "Zwei"}) {
        const QFileInfo file(path(QLatin1String(name) + QStringLiteral(".krroute")));
        KRRouteDocument document;
        document.setSelection(selection);
        QVERIFY(document.save(file, nullptr));
        const QString trackFile = path(QLatin1String(name) + QStringLiteral(".tracks/track.gps"));
        QVERIFY(QFile::rename(trackFile, trackFile + QStringLiteral(".away")));
        QVERIFY(document.load(file, nullptr));
        lost.addTrack(document.selection().value(0));
    }
    KRRouteDocument both;
    both.setSelection(lost);
    const QFileInfo elsewhere(path(QStringLiteral("Beide.krroute")));
    QVERIFY(both.save(elsewhere, nullptr));

    const QString back = path(QStringLiteral("Eins.tracks/track.gps"));
    QVERIFY(QFile::rename(back + QStringLiteral(".away"), back));
    QVERIFY(both.load(elsewhere, nullptr));
    QVERIFY(pointsOf(both.selection().value(0).track()) == pointsOf(tour()));
    QVERIFY(!both.selection().value(1).track().isValid());
}

/// Each gets its own descriptions again.
void tst_KRRouteDocument::lostTracksOfOneFile()
{
    KRGPXTrackSelection selection;
    selection.addTrack(tour());
    selection.addTrack(KRGPXTrack(QStringLiteral("Tour"), tour().description(), tour().segments(), PolygonTrackShape));
    save(selection);
    QByteArray content = KRTestFile::content(document().filePath()).replace("track_1.gps", "track.gps");
    KRTestFile::write(document().filePath(), content.replace(content.lastIndexOf("Mühle"), 6, "Ufer"));
    const QString file = trackFile(QStringLiteral("track.gps"));
    QVERIFY(QFile::rename(file, file + QStringLiteral(".away")));

    const QFileInfo elsewhere(path(QStringLiteral("Kopie.krroute")));
    KRRouteDocument copy;
    for (int round = 0; round < 2; ++round) {
        copy.setSelection(load());
        QVERIFY(copy.selection().value(0).name() != copy.selection().value(1).name());
        save(copy.selection());
        QVERIFY(copy.save(elsewhere, nullptr) && copy.load(elsewhere, nullptr) && copy.save(elsewhere, nullptr));
    }
    QVERIFY(QFile::rename(file + QStringLiteral(".away"), file));
    QVERIFY(copy.load(elsewhere, nullptr));
    for (const KRGPXTrackSelection &found : {load(), copy.selection()}) {
        QCOMPARE(pointsOf(found.value(0).track()).at(1).description(), QStringLiteral("Mühle <alt>"));
        QCOMPARE(pointsOf(found.value(1).track()).at(1).description(), QStringLiteral("Ufer <alt>"));
    }
}

void tst_KRRouteDocument::filesWithoutTrack()
{
    const KRTestTable<QByteArray, QByteArray, int> table{
        {"no track", "<includedTrack/>", "", 1},
        {"another kind of file", "<kml><Document><trk/></Document></kml>", "", 1},
        {"emptied, as the document has texts of its points", "<includedTrack><trk/></includedTrack>",
         "<kept number='0'><point segment='0' number='0'>Rast</point></kept>", 1},
        {"saved without points", "<includedTrack><trk><name>leer</name></trk></includedTrack>",
         "<kept number='0'><description>noch</description></kept>", 0},
    };
    table.forEach([this](const QByteArray &content, const QByteArray &kept, int problemCount) {
        init();
        const QString file = KRTestFile::write(trackFile(QStringLiteral("track.gps")), content);
        KRTestFile::write(document().filePath(), "<routes><selection><gpxtrack><configuredTrack><trk><include>track.gps"
                                                 "</include></trk></configuredTrack></gpxtrack></selection>"
                                                     + kept + "</routes>");
        KRErrorHistory history;
        KRRouteDocument copy;
        copy.setSelection(load(&history));
        QCOMPARE(history.entries().size(), problemCount);
        const QFileInfo elsewhere(path(QStringLiteral("Kopie.krroute")));
        QVERIFY(copy.save(elsewhere, nullptr));
        save(copy.selection());
        for (const QString &name : {elsewhere.filePath(), document().filePath()}) {
            const QByteArray written = KRTestFile::content(name);
            const bool isCopied = name == elsewhere.filePath() && problemCount == 0;
            const QByteArray reference = name == elsewhere.filePath() ? file.toUtf8() : QByteArrayLiteral("track.gps");
            QCOMPARE(written.contains("<include>" + reference + "</include>"), !isCopied);
            QCOMPARE(written.count("<kept number"), kept.isEmpty() ? 0 : 1);
        }
        QCOMPARE(KRTestFile::content(file), content);
        QCOMPARE(QDir(path(QStringLiteral("Kopie.tracks"))).isEmpty(), problemCount != 0);
        if (problemCount == 0)
            return;
        QVERIFY(history.entries().first().fileName.endsWith(QStringLiteral("track.gps")));
        QCOMPARE(history.entries().first().reason, QStringLiteral("Die Datei enthält keine Route."));
    });
}

void tst_KRRouteDocument::furtherElementsAreTold()
{
    const QByteArray trk = "<trk><trkseg><trkpt lat='53' lon='8'/></trkseg></trk>";
    const QByteArray track = "<configuredTrack>" + trk + "</configuredTrack>";
    const QByteArray list = "<gpxtrack>" + track + track + "</gpxtrack>";
    const KRTestTable<QByteArray, int, QString> table{
        {"none", "<selection>" + list + "</selection>", 2, QString()},
        {"lists", "<selection>" + list.repeated(3) + "</selection>", 2, QStringLiteral("„gpxtrack“ .*: 2$")},
        {"selections", "<selection>" + list + "</selection><kept number='0'/><selection/>", 2,
         QStringLiteral("„selection“ .*: 1$")},
        {"tracks",
         "<selection><gpxtrack><configuredTrack>" + trk + trk + "</configuredTrack><locationTrack>" + trk.repeated(3)
             + "</locationTrack></gpxtrack></selection>",
         2, QStringLiteral("„trk“ .*: 3$")},
    };
    table.forEach([this](const QByteArray &content, int trackCount, const QString &reason) {
        KRTestFile::write(document().filePath(), "<routes>" + content + "</routes>");
        KRErrorHistory history;
        QCOMPARE(load(&history).count(), trackCount);
        QCOMPARE(history.entries().size(), reason.isEmpty() ? 0 : 1);
        if (!history.isEmpty())
            QVERIFY(history.entries().first().reason.contains(QRegularExpression(reason)));
    });
}

void tst_KRRouteDocument::refusesWhatIsNoDocument()
{
    // Half a million points, which the document names 22 times.
    const QByteArray points = "<trk><trkseg><compressedPoints>" + QByteArray("8,53 ").repeated(500000);
    const QByteArray included = "<configuredTrack><trk><include>all.gps</include></trk></configuredTrack>";
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("Reise.tracks")));
    KRTestFile::write(trackFile(QStringLiteral("all.gps")),
                      "<includedTrack>" + points + "</compressedPoints></trkseg></trk></includedTrack>");
    const KRTestTable<QByteArray> table{
        {"truncated", "<routes><selection>"},
        {"another root", "<gpx/>"},
        {"empty", {}},
        {"the same points again and again",
         "<routes><selection><gpxtrack>" + included.repeated(22) + "</gpxtrack></selection></routes>"},
    };
    table.forEach([&](const QByteArray &content) {
        KRTestFile::write(document().filePath(), content);
        KRRouteDocument read;
        read.setSelection(KRGPXTrackSelection(KRGPXConfiguredTrackList(KRGPXConfiguredTrack())));
        KRErrorHistory history;
        QVERIFY(!read.load(document(), &history));
        QCOMPARE(history.entries().size(), 1);
        QCOMPARE(read.selection().count(), 1);
    });
}

/// And what cannot leaves nothing behind.
void tst_KRRouteDocument::whatIsSavedCanBeRead()
{
    // 1200 times a file of some 60 kB, which may be read again 64 MB in all.
    KRGPXTrackSegment segment;
    for (int i = 0; i < 2000; ++i)
        segment.append(53.0 + 1e-5 * i, 8.0, 7, QDateTime::fromSecsSinceEpoch(1715500000 + i, Qt::UTC), QString());
    segment.append(point(53.5, 8.0, 0, QDateTime(), QStringLiteral("Ende")));
    const auto lineOf = [](const KRGPXTrackSegment &points, const QString &description) {
        return KRGPXTrack(QString(), description, {points}, LineStringTrackShape);
    };
    const auto repeated = [&](int count) {
        return QVector<KRGPXTrack>(count, lineOf(segment, QStringLiteral("immer wieder"))).toList();
    };

    // Half a million nodes in all: 22 for each track, four for each description of a point.
    QList<KRGPXTrack> many;
    for (int i = 0; i < 23000; ++i)
        many.append(KRGPXTrack(point(53.0, 0.001 * i, 0, QDateTime(), QString())));

    KRGPXTrackSegment described;
    for (int i = 0; i < 126000; ++i)
        described.append(53.0, 8.0, 0, QDateTime(), QStringLiteral("x"));

    KRGPXTrack deep = tour();
    for (int i = 0; i < 130; ++i) {
        KRGPXTrack outer = tour();
        outer.addEnclave(deep);
        deep = outer;
    }
    using Tracks = QList<KRGPXTrack>;
    const KRTestTable<Tracks, bool> table{
        {"one track many times", repeated(1200), true},
        {"one track with ten million points in all", repeated(5200), false},
        {"too many tracks", many, false},
        {"too many descriptions", Tracks{lineOf(described, QString())}, false},
        {"too many references", Tracks{lineOf(segment, QString(2000001, QLatin1Char('&')))}, false},
        {"enclaves too deep for a track file", Tracks{tour(), deep}, false},
    };
    table.forEach([this](const Tracks &tracks, bool isSaved) {
        init();
        KRRouteDocument written;
        KRGPXTrackSelection selection;
        for (const KRGPXTrack &track : tracks)
            selection.addTrack(KRGPXConfiguredTrack(track, KRGPXTrackConfiguration::defaultValue()));
        written.setSelection(selection);
        KRErrorHistory history;
        QCOMPARE(written.save(document(), &history), isSaved);
        if (!history.isEmpty()) {
            QCOMPARE(history.entries().size(), 1);
            QVERIFY(QDir(m_dir->path()).isEmpty());
            return;
        }
        const KRGPXTrackSelection read = load();
        QVERIFY(read == selection);
        // Equal tracks share their points, as they did before.
        QCOMPARE(read.value(0).track().segments().first().positions().latitudes,
                 read.value(1).track().segments().first().positions().latitudes);
    });
}

void tst_KRRouteDocument::pipesAreNoDocuments()
{
    QCOMPARE(::mkfifo(QFile::encodeName(document().filePath()).constData(), 0600), 0);
    KRRouteDocument written;
    written.setSelection(KRGPXTrackSelection(KRGPXConfiguredTrackList(KRGPXConfiguredTrack())));
    KRErrorHistory history;
    QVERIFY(!written.save(document(), &history) && !written.saveInOneFile(document(), &history));
    for (const KRErrorHistory::Entry &entry : history.entries())
        QCOMPARE(entry.reason, QStringLiteral("Das ist keine gewöhnliche Datei."));
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size(), 1);
}

/// The former element is read before all others.
void tst_KRRouteDocument::filesStayWithTheirTracks()
{
    KRGPXTrackSelection selection;
    for (const QString &name : {QStringLiteral("eins"), QStringLiteral("zwei")})
        selection.addTrack(KRGPXTrack(name, name, tour().segments(), LineStringTrackShape));
    save(selection);
    QString content = QString::fromUtf8(KRTestFile::content(document().filePath()));
    const int second = content.lastIndexOf(QStringLiteral("<configuredTrack"));
    content = content.left(second)
              + content.mid(second).replace(QStringLiteral("configuredTrack"), QStringLiteral("locationTrack"));
    KRTestFile::write(document().filePath(), content.toUtf8());

    selection = load();
    QCOMPARE(selection.value(0).name(), QStringLiteral("zwei"));
    save(selection);
    QCOMPARE(load().value(0).name(), QStringLiteral("zwei"));
    QCOMPARE(load().value(1).name(), QStringLiteral("eins"));
}

void tst_KRRouteDocument::fileReplacedWhileItIsRead()
{
    QFile file(path(QStringLiteral("track.gps")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("<includedTrack/>") > 0 && file.flush());
    KRTrackFileStamps stamps;
    const KRTrackFileStamps::Stamp before = KRTrackFileStamps::stampOf(QFileInfo(file));
    stamps.remember(QFileInfo(file), before, tour());
    QVERIFY(stamps.holds(QFileInfo(file), tour()));
    QVERIFY(!stamps.holds(QFileInfo(file), KRGPXTrack()));
    QVERIFY(file.write(" ") > 0 && file.flush());
    stamps.remember(QFileInfo(file), before, tour());
    QVERIFY(!stamps.holds(QFileInfo(file), tour()));
}

void tst_KRRouteDocument::folderNameCannotLeadElsewhere()
{
    KRGPXTrackSelection selection;
    selection.addTrack(tour());
    save(selection);
    const QByteArray content = KRTestFile::content(document().filePath());
    QVERIFY(content.contains("folder=\"Reise.tracks\""));
    QVERIFY(content.contains("<include>track.gps</include>"));
    // No folder is none, not the current one, and no name is no file.
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(path(QStringLiteral("Reise.tracks"))));
    for (const char *const changed :
         {"folder=\"../Reise.tracks\"", "folder=\"../Reise.tracks/\"", "folder=\"/\"", "folder=\"\"", "<include/>"}) {
        const QByteArray original = *changed == '<' ? "<include>track.gps</include>" : "folder=\"Reise.tracks\"";
        const QString inner = KRTestFile::write(path(QStringLiteral("inner/Reise.krroute")),
                                                QByteArray(content).replace(original, changed));
        KRRouteDocument read;
        KRErrorHistory history;
        QVERIFY(read.load(QFileInfo(inner), &history));
        QVERIFY2(!read.selection().value(0).track().isValid(), changed);
        // The name of the file is told, and stays with the track.
        QCOMPARE(history.entries().size(), *changed == '<' ? 0 : 1);
        QVERIFY(read.save(QFileInfo(inner), nullptr));
        const bool isKept = KRTestFile::content(inner).contains("<include>track.gps</include>")
                            && !QFile::exists(path(QStringLiteral("inner/Reise.tracks/track.gps")));
        QVERIFY(isKept || *changed == '<');
    }
    QVERIFY(QDir::setCurrent(before));
}

template class KRTestRegistration<tst_KRRouteDocument>;

#include "tst_KRRouteDocument.moc"
