#include "KRRouteDocument.h"

#include "KRTestRegistry.h"

#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QtTest>

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

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
    void refusesWhatIsNoDocument_data();
    void refusesWhatIsNoDocument();
    void failedSaveKeepsTheOldDocument();
    void whatCouldNotBeReadAgainIsNotWritten();
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
    KRGPXTrackSelection selection;
    selection.addTrack(KRGPXConfiguredTrack(tour(), look));
    selection.addTrack(KRGPXConfiguredTrack(point(53.0, 8.0, 0, QDateTime(), QStringLiteral("Bank")), look));
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
    QFile file(trackFile(QStringLiteral("track.gps")));
    QVERIFY(file.open(QIODevice::Append));
    file.write("<!-- mark -->");
    file.close();
    const QByteArray marked = contentOf(file.fileName());

    selection = load();
    selection.addTrack(KRGPXTrack(QStringLiteral("Neu"), QString(), tour().segments(), LineStringTrackShape));
    save(selection);
    QCOMPARE(contentOf(file.fileName()), marked);
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
}

void tst_KRRouteDocument::unreadableTrackFilesStayUntouched()
{
    KRGPXTrackSelection selection;
    for (const char *name : {"eins", "zwei", "drei"})
        selection.addTrack(KRGPXTrack(QLatin1String(name), QString(), tour().segments(), LineStringTrackShape));
    save(selection);
    const QByteArray damaged = "<includedTrack><trk><name>ei";
    QFile file(trackFile(QStringLiteral("track.gps")));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(damaged);
    file.close();
    const QByteArray second = contentOf(trackFile(QStringLiteral("track_1.gps")));
    QVERIFY(QFile::remove(trackFile(QStringLiteral("track_1.gps"))));

    KRErrorHistory history;
    selection = load(&history);
    QCOMPARE(history.entries().size(), 2);
    QCOMPARE(selection.count(), 3);
    QCOMPARE(selection.value(2).name(), QStringLiteral("drei"));

    save(selection);
    QCOMPARE(contentOf(file.fileName()), damaged);
    // Once the lost file is back, the document finds it where it was.
    QFile back(trackFile(QStringLiteral("track_1.gps")));
    QVERIFY(!back.exists());
    QVERIFY(back.open(QIODevice::WriteOnly));
    back.write(second);
    back.close();
    QCOMPARE(load().value(1).name(), QStringLiteral("zwei"));
}

void tst_KRRouteDocument::refusesWhatIsNoDocument_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("truncated") << QByteArray("<routes><selection>");
    QTest::newRow("another root") << QByteArray("<gpx/>");
    QTest::newRow("empty") << QByteArray();
}

void tst_KRRouteDocument::refusesWhatIsNoDocument()
{
    QFETCH(QByteArray, content);
    QFile file(document().filePath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    KRRouteDocument read;
    read.setSelection(KRGPXTrackSelection(KRGPXConfiguredTrackList(KRGPXConfiguredTrack())));
    KRErrorHistory history;
    QVERIFY(!read.load(document(), &history));
    QCOMPARE(history.entries().size(), 1);
    QCOMPARE(read.selection().count(), 1);
}

void tst_KRRouteDocument::failedSaveKeepsTheOldDocument()
{
    KRGPXTrackSelection selection;
    selection.addTrack(tour());
    save(selection);
    const QByteArray old = contentOf(document().filePath());

    // The folder cannot be made where a file has its name.
    QVERIFY(QDir(path(QStringLiteral("Reise.tracks"))).removeRecursively());
    QFile blocker(path(QStringLiteral("Reise.tracks")));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    KRRouteDocument written;
    written.setSelection(selection);
    KRErrorHistory history;
    QVERIFY(!written.save(document(), &history));
    QVERIFY(!history.isEmpty());
    QCOMPARE(contentOf(document().filePath()), old);
}

void tst_KRRouteDocument::whatCouldNotBeReadAgainIsNotWritten()
{
    // Four nodes for each description of a point, and no more than half a million in all.
    KRGPXTrackSegment segment;
    for (int i = 0; i < 126000; ++i)
        segment.append(53.0, 8.0, 0, QDateTime(), QStringLiteral("x"));
    const KRGPXTrack track(QStringLiteral("Tour"), QString(), {segment}, LineStringTrackShape);
    KRRouteDocument document;
    document.setSelection(KRGPXTrackSelection(
        KRGPXConfiguredTrackList(KRGPXConfiguredTrack(track, KRGPXTrackConfiguration::defaultValue()))));
    const QTemporaryDir dir;
    const QFileInfo file(dir.filePath(QStringLiteral("Tour.krroute")));
    KRErrorHistory history;
    QVERIFY(!document.saveInOneFile(file, &history));
    QCOMPARE(history.entries().size(), 1);
    QVERIFY(!QFile::exists(file.filePath()));
}

void tst_KRRouteDocument::folderNameCannotLeadElsewhere()
{
    KRGPXTrackSelection selection;
    selection.addTrack(tour());
    save(selection);
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("inner")));
    QByteArray content = contentOf(document().filePath());
    QVERIFY(content.contains("folder=\"Reise.tracks\""));
    content.replace("folder=\"Reise.tracks\"", "folder=\"../Reise.tracks\"");
    QFile file(path(QStringLiteral("inner/Reise.krroute")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    KRRouteDocument read;
    QVERIFY(read.load(QFileInfo(file), nullptr));
    QVERIFY(!read.selection().value(0).track().isValid());
}

static const KRTestRegistration<tst_KRRouteDocument> registration;

#include "tst_KRRouteDocument.moc"
