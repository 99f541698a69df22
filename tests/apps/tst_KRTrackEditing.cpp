#include "KRTrackEditing.h"

#include "KRTestRegistry.h"

#include <QtTest>

namespace {

KRGPXTrackSegment segment(const QString &text)
{
    return KRGPXTrackSegment::decodeKml(text);
}

/// Segments are parted by "|". Each point has its own time, elevation and description.
KRGPXConfiguredTrack spawnTrack(const QString &text, KRGPXTrackShapeEnum configuredShape = AutoTrackShape)
{
    QList<KRGPXTrackSegment> segments;
    int second = 0;
    for (const QString &part : text.split(QLatin1Char('|'))) {
        KRGPXTrackSegment described;
        for (const KRGPXTrackPoint &point : segment(part).trackPoints()) {
            ++second;
            described.append(point.position().latitude().decimalDegrees(),
                             point.position().longitude().decimalDegrees(), 100 + second,
                             QDateTime::fromSecsSinceEpoch(second, Qt::UTC), QString::number(second));
        }
        segments.append(described);
    }
    KRGPXTrackConfiguration configuration;
    configuration.setTrackShape(configuredShape);
    configuration.setLineColor(Qt::green);
    const KRGPXTrack track(QStringLiteral("Tour"), QStringLiteral("Text"), segments, LineStringTrackShape);
    return KRGPXConfiguredTrack(track, configuration);
}

/// The longitudes of all points, segments parted by "|".
QString describe(const KRGPXConfiguredTrack &track)
{
    QStringList parts;
    for (const KRGPXTrackSegment &segment : track.track().segments()) {
        QStringList longitudes;
        for (const KRGeoPosition &position : segment.allPoints())
            longitudes.append(QString::number(position.longitude().decimalDegrees()));
        parts.append(longitudes.join(QLatin1Char(' ')));
    }
    return parts.join(QLatin1Char('|'));
}

} // namespace

class tst_KRTrackEditing : public QObject
{
    Q_OBJECT

private slots:
    void splits_data();
    void splits();
    void splitsRing();
    void keepsAreaWithEnclaves();
    void reverses();
    void joins();
    void findsNearestPoint();
};

void tst_KRTrackEditing::splits_data()
{
    QTest::addColumn<QString>("points");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("parts");
    const QString plain = QStringLiteral("1,1 2,1 3,1 4,1");
    const QString gap = QStringLiteral("1,1 2,1|3,1 4,1 5,1");
    QTest::newRow("inside: both keep the point") << plain << 2 << QStringLiteral("1 2 3 / 3 4");
    QTest::newRow("first point") << plain << 0 << QStringLiteral("1 2 3 4");
    QTest::newRow("last point") << plain << 3 << QStringLiteral("1 2 3 4");
    QTest::newRow("no such point") << plain << 7 << QStringLiteral("1 2 3 4");
    QTest::newRow("no point chosen") << plain << -1 << QStringLiteral("1 2 3 4");
    QTest::newRow("end of a segment: at the gap") << gap << 1 << QStringLiteral("1 2 / 3 4 5");
    QTest::newRow("start of a segment: at the gap") << gap << 2 << QStringLiteral("1 2 / 3 4 5");
    QTest::newRow("inside the second segment") << gap << 3 << QStringLiteral("1 2|3 4 / 4 5");
    QTest::newRow("single points") << QStringLiteral("1,1|2,1|3,1") << 1 << QStringLiteral("1 / 2|3");
}

void tst_KRTrackEditing::splits()
{
    QFETCH(QString, points);
    QFETCH(int, number);
    const KRGPXConfiguredTrack track = spawnTrack(points);
    const KRGPXConfiguredTrackList tracks = KRTrackEditing::split(track, number);
    QStringList parts;
    for (const KRGPXConfiguredTrack &part : tracks)
        parts.append(describe(part));
    QTEST(parts.join(QStringLiteral(" / ")), "parts");
    if (tracks.size() == 1) {
        QVERIFY(tracks.first() == track);
        return;
    }
    QCOMPARE(tracks.at(0).name(), QStringLiteral("Tour (1)"));
    QCOMPARE(tracks.at(1).name(), QStringLiteral("Tour (2)"));
    QCOMPARE(tracks.at(1).description(), QStringLiteral("Text"));
    QCOMPARE(tracks.at(0).lineColor(), QColor(Qt::green));
    // Joining undoes it, with all that the points hold.
    QVERIFY(KRTrackEditing::joined(tracks.at(0), tracks.at(1)) == track);
}

void tst_KRTrackEditing::splitsRing()
{
    const QString ring = QStringLiteral("1,1 2,1 2,2 1,1");
    for (const KRGPXConfiguredTrack &part : KRTrackEditing::split(spawnTrack(ring), 1))
        QVERIFY(part.effectiveShape() == LineStringTrackShape);
    // What the user has chosen stays.
    const QString line = QStringLiteral("1,1 2,1 2,2 3,3");
    for (const KRGPXConfiguredTrack &part : KRTrackEditing::split(spawnTrack(line, PolygonTrackShape), 1))
        QVERIFY(part.effectiveShape() == PolygonTrackShape);
}

void tst_KRTrackEditing::keepsAreaWithEnclaves()
{
    KRGPXConfiguredTrack area = spawnTrack(QStringLiteral("1,1 9,1 9,9 1,1"));
    KRGPXTrack outline = area.track();
    outline.addEnclave(
        KRGPXTrack(QString(), QString(), {segment(QStringLiteral("2,2 3,2 3,3 2,2"))}, PolygonTrackShape));
    area.setTrack(outline);
    QVERIFY(KRTrackEditing::split(area, 2) == KRGPXConfiguredTrackList(area));

    const KRGPXConfiguredTrack reversed = KRTrackEditing::reversed(area);
    QCOMPARE(describe(reversed), QStringLiteral("1 9 9 1"));
    QVERIFY(reversed.track().enclaves() == outline.enclaves());
    QCOMPARE(KRTrackEditing::joined(area, area).track().enclaves().size(), 2);
}

void tst_KRTrackEditing::reverses()
{
    const KRGPXConfiguredTrack track = spawnTrack(QStringLiteral("1,1 2,1|3,1 4,1 5,1"), PolygonTrackShape);
    const KRGPXConfiguredTrack reversed = KRTrackEditing::reversed(track);
    QCOMPARE(describe(reversed), QStringLiteral("5 4 3|2 1"));
    QVERIFY(reversed.track().segments().first().trackPoints().first()
            == track.track().segments().last().trackPoints().last());
    QVERIFY(KRTrackEditing::reversed(reversed) == track);
}

void tst_KRTrackEditing::joins()
{
    const KRGPXConfiguredTrack first = spawnTrack(QStringLiteral("1,1 2,1"));
    const KRGPXConfiguredTrack second =
        KRTrackEditing::renamed(spawnTrack(QStringLiteral("3,1 4,1")), QStringLiteral("Rest"));
    const KRGPXConfiguredTrack joined = KRTrackEditing::joined(first, second);
    QCOMPARE(describe(joined), QStringLiteral("1 2|3 4"));
    QCOMPARE(joined.name(), QStringLiteral("Tour"));
    QCOMPARE(joined.description(), QStringLiteral("Text"));
    QCOMPARE(joined.lineColor(), QColor(Qt::green));
    // The same place at another time is another point.
    const KRGPXConfiguredTrack later = spawnTrack(QStringLiteral("2,1 3,1"));
    QCOMPARE(describe(KRTrackEditing::joined(first, later)), QStringLiteral("1 2|2 3"));
    // There and back again: the line has become a ring.
    const KRGPXConfiguredTrack back = spawnTrack(QStringLiteral("2,2 1,1"));
    QVERIFY(KRTrackEditing::joined(first, back).effectiveShape() == PolygonTrackShape);
    QVERIFY(KRTrackEditing::joined(KRGPXConfiguredTrack(), first).track().segments() == first.track().segments());
}

void tst_KRTrackEditing::findsNearestPoint()
{
    const KRGPXConfiguredTrack track = spawnTrack(QStringLiteral("170,1 175,1|179,1 -179,1"));
    QCOMPARE(KRTrackEditing::nearestPoint(track, KRGeoPosition(1.0, 180.0)), 2);
    QCOMPARE(KRTrackEditing::nearestPoint(track, KRGeoPosition(1.0, -179.4)), 3);
    QCOMPARE(KRTrackEditing::nearestPoint(track, KRGeoPosition()), -1);
    QCOMPARE(KRTrackEditing::nearestPoint(KRGPXConfiguredTrack(), KRGeoPosition(1.0, 1.0)), -1);
}

static const KRTestRegistration<tst_KRTrackEditing> registration;

#include "tst_KRTrackEditing.moc"
