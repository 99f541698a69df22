#include "KRExchangeFile.h"

#include "KRBoundedBuffer.h"
#include "KRGpxWriter.h"
#include "KRKmlWriter.h"
#include "KRRouteImport.h"
#include "KRTestFile.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <KRCore/KRErrorHistory.h>
#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QtTest>

class tst_KRExchangeFile : public QObject
{
    Q_OBJECT

private slots:
    void losesNothingUnsaid();
    void whatIsLostDependsOnTheFormat();
    void endsWhenToldTo();
    void endsWhenFull();
    void keepsAllOfPoints();
    void keepsLineBreaks();
    void writesTimes();
};

namespace {

/// Points as comma text, drawn as @p shape.
KRGPXConfiguredTrack spawnTrack(const char *text, KRGPXTrackShapeEnum shape = AutoTrackShape)
{
    KRGPXTrackConfiguration configuration = KRGPXTrackConfiguration::defaultValue();
    configuration.setTrackShape(shape);
    const KRGPXTrackSegment segment = KRGPXTrackSegment::decodeKml(QString::fromLatin1(text));
    return KRGPXConfiguredTrack(KRGPXTrack(QStringLiteral("Tour"), QString(), {segment}, AutoTrackShape),
                                configuration);
}

/// "longitude,latitude" of the points that such a file gives again, tracks parted by slashes.
QString positionsIn(const QByteArray &bytes, const QByteArray &format)
{
    const QTemporaryDir dir;
    KRRouteImport import;
    import.read({KRTestFile::write(dir.filePath(QStringLiteral("a.") + QString::fromLatin1(format)), bytes)});
    QStringList tracks;
    for (const KRGPXConfiguredTrack &track : import.tracks()) {
        QStringList positions;
        for (const KRGeoPosition &position : track.allPoints())
            positions.append(QString::number(position.longitude().decimalDegrees()) + QLatin1Char(',')
                             + QString::number(position.latitude().decimalDegrees()));
        tracks.append(positions.join(QLatin1Char(' ')));
    }
    return tracks.join(QLatin1String(" / "));
}

} // namespace

void tst_KRExchangeFile::losesNothingUnsaid()
{
    const char *const ring = "8,53 10,53 10,54 8,54 8,53";
    const char *const aroundNull = "2,2 -2,2 -2,-2 2,-2 2,2";
    // words: of what is reported
    const KRTestTable<KRGPXConfiguredTrackList, QByteArray, const char *, const char *> table{
        {"line beyond 180 degrees", {spawnTrack("178,1 181,1 190,2")}, "gpx", "178,1 -179,1 -170,2", ""},
        {"the same in KML", {spawnTrack("178,1 181,1 190,2")}, "kml", "178,1 -179,1 -170,2", ""},
        {"point beyond 180 degrees", {spawnTrack("181,1")}, "kmz", "-179,1", ""},
        {"area as a point", {spawnTrack(ring, PointTrackShape)}, "kml", "9,53.5", "einzelner Punkt sind: 5"},
        {"its middle is no position", {spawnTrack(aroundNull, PointTrackShape)}, "kml", "2,2", "Punkt sind: 4"},
        {"position that is none", {spawnTrack("8,53 8,95 9,54")}, "gpx", "8,53 9,54", "gültige Koordinaten: 1"},
        {"route without any", {spawnTrack("8,53 9,54"), spawnTrack("")}, "kml", "8,53 9,54", "ohne Position: 1"},
    };
    table.forEach(
        [](const KRGPXConfiguredTrackList &tracks, const QByteArray &format, const char *positions, const char *words) {
            KRErrorHistory history;
            QCOMPARE(positionsIn(KRExchangeFile::encode(tracks, format, QString(), &history), format),
                     QLatin1String(positions));
            QCOMPARE(history.entries().size(), qstrlen(words) == 0 ? 0 : 1);
            for (const KRErrorHistory::Entry &entry : history.entries())
                QVERIFY2(entry.reason.contains(QString::fromUtf8(words)), qPrintable(entry.reason));
        });
}

void tst_KRExchangeFile::whatIsLostDependsOnTheFormat()
{
    const QDateTime time(QDate(2025, 5, 17), QTime(8, 30), Qt::UTC);
    const auto point = [](double x, double y, const QDateTime &timeStamp = QDateTime()) {
        return KRGPXTrackPoint(KRGeoPosition(y, x), 0, timeStamp, QString());
    };
    // A ring with two holes, of which one has an island; each with a time and a position that is none.
    const auto ring = [&](double size) {
        const KRGPXTrackSegment segment({point(9.0 - size, 53.0, time), point(9.0 + size, 53.0),
                                         point(9.0, 53.0 + size), point(9.0, 95.0), point(9.0 - size, 53.0)});
        return KRGPXTrack(QStringLiteral("Ring"), QString(), {segment}, AutoTrackShape);
    };
    KRGPXTrack hole = ring(0.3);
    hole.addEnclave(ring(0.1));
    KRGPXTrack track = ring(1.0);
    track.addEnclave(hole);
    track.addEnclave(ring(0.2));
    const auto configured = [&](KRGPXTrackShapeEnum shape) {
        KRGPXTrackConfiguration configuration = KRGPXTrackConfiguration::defaultValue();
        configuration.setTrackShape(shape);
        const KRGPXTrack nowhere(QString(), QString(), {KRGPXTrackSegment({KRGPXTrackPoint()})}, AutoTrackShape);
        return KRGPXConfiguredTrackList{{track, configuration}, {nowhere, configuration}};
    };
    const QString none = QStringLiteral("Routen ohne Position: 1");
    const QString invalid = QStringLiteral("Ausgelassene Positionen ohne gültige Koordinaten: %1");
    const QString beside = QStringLiteral("Ausgelassene Positionen von Routen, die ein einzelner Punkt sind: %1");
    const QString holes = QStringLiteral("Ausgelassene Löcher: %1");
    const QString times = QStringLiteral("Ausgelassene Zeiten: %1");
    const KRTestTable<KRGPXTrackShapeEnum, QByteArray, QStringList> table{
        {"all goes into GPX", PolygonTrackShape, "gpx", {none, invalid.arg(5)}},
        {"also of a point", PointTrackShape, "gpx", {none, invalid.arg(5)}},
        {"area", PolygonTrackShape, "kml", {none, invalid.arg(4), holes.arg(1), times.arg(3)}},
        {"line", LineStringTrackShape, "kmz", {none, invalid.arg(2), holes.arg(3)}},
        {"point", PointTrackShape, "kml", {none, invalid.arg(2), beside.arg(4), holes.arg(3)}},
    };
    table.forEach([&](KRGPXTrackShapeEnum shape, const QByteArray &format, const QStringList &losses) {
        KRErrorHistory history;
        KRExchangeFile::encode(configured(shape), format, QStringLiteral("a"), &history);
        QStringList reasons;
        for (const KRErrorHistory::Entry &entry : history.entries())
            reasons.append(entry.reason);
        QCOMPARE(reasons, losses);
    });
}

void tst_KRExchangeFile::endsWhenToldTo()
{
    const KRGPXConfiguredTrackList tracks{spawnTrack("8,53"), spawnTrack("8,95"), spawnTrack("9,53")};
    for (const QByteArray &format : KRExchangeFile::formats()) {
        int questions = 0;
        KRErrorHistory history;
        const auto goesOnOnce = [&questions] { return ++questions == 1; };
        QVERIFY(KRExchangeFile::encode(tracks, format, QStringLiteral("a"), &history, goesOnOnce).isNull());
        QCOMPARE(questions, 2);
        QVERIFY(history.isEmpty());
    }
}

void tst_KRExchangeFile::endsWhenFull()
{
    const KRGPXConfiguredTrackList tracks{spawnTrack("8,53 9,54"), spawnTrack("8,53 9,54 9,55 8,53")};
    const auto sizeOf = [&](const auto &write) {
        KRBoundedBuffer whole(1 << 20);
        return write(&whole) && !whole.isOverfull() ? int(whole.size()) : 0;
    };
    const auto writeGpx = [&](QIODevice *file) { return KRGpxWriter::write(tracks, file); };
    const auto writeKml = [&](QIODevice *file) { return KRKmlWriter::write(tracks, QStringLiteral("a"), file); };
    QVERIFY(sizeOf(writeGpx) > 0 && sizeOf(writeKml) > 0);
    for (int most = 0; most < sizeOf(writeGpx); ++most) {
        KRBoundedBuffer file(most);
        QVERIFY(!writeGpx(&file) && file.isOverfull() && file.size() <= most);
    }
    for (int most = 0; most < sizeOf(writeKml); ++most) {
        KRBoundedBuffer file(most);
        QVERIFY(!writeKml(&file) && file.isOverfull() && file.size() <= most);
    }
}

void tst_KRExchangeFile::keepsAllOfPoints()
{
    // More than are written at once.
    const QStringList descriptions{QString(), QStringLiteral("<Ä> & \"B\""), QString(), QString()};
    const QList<QDateTime> times{QDateTime(), QDateTime::fromMSecsSinceEpoch(-1, Qt::UTC),
                                 QDateTime::fromMSecsSinceEpoch(1600000000250, Qt::UTC)};
    KRGPXTrackSegment segment;
    for (int i = 0; i < 165000; ++i)
        segment.append((i % 89) + 0.0000001, -i / 1e4, i % 3 - 1, times.at(i % 3), descriptions.at(i % 4));
    segment.append(53.0, 8.0, 0, QDateTime(), QString());
    const KRGPXTrack track(QStringLiteral("<Tour>"), QString(), {segment, segment}, LineStringTrackShape);
    const QByteArray gpx =
        KRExchangeFile::encode({{track, KRGPXTrackConfiguration::defaultValue()}}, "gpx", QString(), nullptr);
    QVERIFY(gpx.endsWith("   <trkpt lat=\"53\" lon=\"8\"/>\n  </trkseg>\n </trk>\n</gpx>\n"));

    const QTemporaryDir dir;
    KRRouteImport import;
    import.read({KRTestFile::write(dir.filePath(QStringLiteral("a.gpx")), gpx)});
    QCOMPARE(import.tracks().size(), 1);
    QVERIFY(import.tracks().first().track() == track);
}

/// Those of texts, whichever characters they are made of.
void tst_KRExchangeFile::keepsLineBreaks()
{
    const QString text = QStringLiteral("\r a<\r\nb\n\rc\r");
    const KRGPXTrackPoint first(KRGeoPosition(53.0, 8.0), 0, QDateTime(), text);
    const KRGPXTrackSegment segment({first, KRGPXTrackPoint(KRGeoPosition(54.0, 9.0), 0, QDateTime(), QString())});
    const KRGPXTrack track(QStringLiteral("a\r\nb"), text, {segment}, LineStringTrackShape);
    const QTemporaryDir dir;
    for (const QString &format : {QStringLiteral("gpx"), QStringLiteral("kml")}) {
        const QByteArray bytes = KRExchangeFile::encode({{track, KRGPXTrackConfiguration::defaultValue()}},
                                                        format.toLatin1(), QStringLiteral("c\rd"), nullptr);
        QVERIFY(!bytes.contains('\r'));
        KRRouteImport import;
        import.read({KRTestFile::write(dir.filePath(QStringLiteral("a.") + format), bytes)});
        QCOMPARE(import.tracks().size(), 1);
        const KRGPXTrack found = import.tracks().first().track();
        QCOMPARE(found.name(), track.name());
        const bool isTrimmed = format == QLatin1String("kml"); // by the importer
        QCOMPARE(found.description(), isTrimmed ? text.trimmed() : text);
        if (!isTrimmed)
            QCOMPARE(found.segments().value(0).trackPoints().value(0).description(), text);
    }
}

void tst_KRExchangeFile::writesTimes()
{
    const auto utc = [](int year, int month, int day, const QTime &time) {
        return QDateTime(QDate(year, month, day), time, Qt::UTC);
    };
    const KRTestTable<QDateTime, QByteArray> table{
        {"leap day", utc(2024, 2, 29, {23, 59, 59}), "2024-02-29T23:59:59Z"},
        {"milliseconds", utc(2025, 5, 17, {8, 30, 0, 7}), "2025-05-17T08:30:00.007Z"},
        {"before 1970", utc(1969, 12, 31, {23, 59, 59, 999}), "1969-12-31T23:59:59.999Z"},
        {"offset", QDateTime::fromString(QStringLiteral("2025-01-01T00:30:00+02:00"), Qt::ISODate),
         "2024-12-31T22:30:00Z"},
        {"first", utc(1, 1, 1, {0, 0}), "0001-01-01T00:00:00Z"},
        {"last", utc(9999, 12, 31, {23, 59, 59, 999}), "9999-12-31T23:59:59.999Z"},
        {"beyond", utc(10000, 1, 1, {0, 0}), ""},
    };
    table.forEach([](const QDateTime &time, const QByteArray &text) {
        KRGPXTrackSegment segment;
        segment.append(53.0, 8.0, 0, time, QString());
        const KRGPXTrack track(QString(), QString(), {segment}, LineStringTrackShape);
        const KRGPXConfiguredTrackList tracks{{track, KRGPXTrackConfiguration::defaultValue()}};
        KRErrorHistory history;
        const QByteArray gpx = KRExchangeFile::encode(tracks, "gpx", QString(), &history);
        KRExchangeFile::encode(tracks, "kml", QString(), &history);
        QCOMPARE(history.entries().size(), text.isEmpty() ? 2 : 0);
        QCOMPARE(gpx.contains("<time>"), !text.isEmpty());
        QVERIFY2(gpx.contains(text), gpx.constData());
    });
}

template class KRTestRegistration<tst_KRExchangeFile>;

#include "tst_KRExchangeFile.moc"
