#include "KRTrackEditing.h"

#include "KRSegmentSplitter.h"

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <KRCore/KRInputLimits.h>

#include <QtTest>

namespace {

KRGPXTrackSegment segment(const QString &text)
{
    return KRGPXTrackSegment::decodeKml(text);
}

/// Segments are parted by "|". Each point has its own time, elevation and description.
KRGPXConfiguredTrack spawnTrack(const char *text, KRGPXTrackShapeEnum configuredShape = AutoTrackShape)
{
    QList<KRGPXTrackSegment> segments;
    int second = 0;
    for (const QString &part : QString::fromLatin1(text).split(QLatin1Char('|'))) {
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

/// The same of all tracks, parted by slashes.
QString describe(const KRGPXConfiguredTrackList &tracks)
{
    QStringList texts;
    for (const KRGPXConfiguredTrack &track : tracks)
        texts.append(describe(track));
    return texts.join(QLatin1String(" / "));
}

/// A track that is not split stays as it is; otherwise the two parts are numbered and keep all else.
void verifyParts(const KRGPXConfiguredTrackList &parts, const KRGPXConfiguredTrack &whole)
{
    if (parts.size() == 1) {
        QVERIFY(parts.first() == whole);
        return;
    }
    QCOMPARE(parts.size(), 2);
    for (int i = 0; i < parts.size(); ++i) {
        QCOMPARE(parts.at(i).name(), QStringLiteral("Tour (%1)").arg(i + 1));
        QCOMPARE(parts.at(i).description(), QStringLiteral("Text"));
        QCOMPARE(parts.at(i).lineColor(), QColor(Qt::green));
    }
}

} // namespace

class tst_KRTrackEditing : public QObject
{
    Q_OBJECT

private slots:
    void splits();
    void splitsSegments();
    void refusesToSplitBeyondLimits();
    void keepsAreaWithEnclaves();
    void reverses();
    void joins();
    void findsNearestPoint();
};

void tst_KRTrackEditing::splits()
{
    const char *const plain = "1,1 2,1 3,1 4,1";
    const char *const gap = "1,1 2,1|3,1 4,1 5,1";
    const KRTestTable<const char *, int, const char *> table{
        {"inside: both keep the point", plain, 2, "1 2 3 / 3 4"},
        {"last point", plain, 3, "1 2 3 4"},
        {"no such point", plain, 7, "1 2 3 4"},
        {"start of a segment: at the gap", gap, 2, "1 2 / 3 4 5"},
        {"inside the second segment", gap, 3, "1 2|3 4 / 4 5"},
    };
    table.forEach([](const char *points, int number, const char *parts) {
        const KRGPXConfiguredTrack track = spawnTrack(points);
        const KRGPXConfiguredTrackList tracks = KRTrackEditing::split(track, number);
        QCOMPARE(describe(tracks), QLatin1String(parts));
        verifyParts(tracks, track);
        // Joining undoes it, with all that the points hold.
        if (tracks.size() == 2)
            QVERIFY(KRTrackEditing::joined(tracks.at(0), tracks.at(1)) == track);
    });

    // A ring becomes lines.
    for (const KRGPXConfiguredTrack &part : KRTrackEditing::split(spawnTrack("1,1 2,1 2,2 1,1"), 1))
        QVERIFY(part.effectiveShape() == LineStringTrackShape);
    // What the user has chosen stays.
    for (const KRGPXConfiguredTrack &part : KRTrackEditing::split(spawnTrack("1,1 2,1 2,2 3,3", PolygonTrackShape), 1))
        QVERIFY(part.effectiveShape() == PolygonTrackShape);
}

void tst_KRTrackEditing::splitsSegments()
{
    const KRTestTable<const char *, const char *> table{
        {"one is empty", "1,1 2,2||3,3 4,4", "1 2 / 3 4"},
        {"nothing to split", "1,1 2,2", "1 2"},
    };
    table.forEach([](const char *points, const char *parts) {
        const KRGPXConfiguredTrack track = spawnTrack(points);
        const KRGPXConfiguredTrackList tracks = KRSegmentSplitter::split(KRGPXConfiguredTrackList(track));
        QCOMPARE(describe(tracks), QLatin1String(parts));
        verifyParts(tracks, track);
        if (tracks.size() == 2)
            QVERIFY(tracks.at(1).track().segments().first() == track.track().segments().last());
    });
    // The list has names of its own for tracks without one.
    const KRGPXConfiguredTrack unnamed = KRTrackEditing::renamed(spawnTrack("1,1 2,2|3,3 4,4"), QString());
    for (const KRGPXConfiguredTrack &part : KRSegmentSplitter::split({unnamed}))
        QCOMPARE(part.name(), QString());
    // Together a line; apart a round trip, a point and a line, unless the user has chosen a shape.
    const char *const points = "1,1 2,1 2,2 1,1|5,5|6,6 7,7";
    const KRGPXConfiguredTrackList natural = KRSegmentSplitter::split({spawnTrack(points)});
    QCOMPARE(natural.size(), 3);
    QVERIFY(natural.at(0).effectiveShape() == PolygonTrackShape);
    QVERIFY(natural.at(1).effectiveShape() == PointTrackShape);
    QVERIFY(natural.at(2).effectiveShape() == LineStringTrackShape);
    for (const KRGPXConfiguredTrack &track : KRSegmentSplitter::split({spawnTrack(points, PolygonTrackShape)}))
        QVERIFY(track.effectiveShape() == PolygonTrackShape);
}

void tst_KRTrackEditing::refusesToSplitBeyondLimits()
{
    const KRTestTable<int, int, bool> table{
        {"as many tracks as are read", KRInputLimits::tracks, 100, false},
        {"more tracks", KRInputLimits::tracks + 1, 1, true},
        {"as much text as is read", 16, KRInputLimits::keptCharacters, false},
        {"more text", 17, KRInputLimits::keptCharacters, true},
        {"one track alone", 1, KRInputLimits::keptCharacters, false},
    };
    table.forEach([](int segmentCount, int characters, bool isRefused) {
        const QVector<KRGPXTrackSegment> segments(segmentCount, segment(QStringLiteral("1,1 2,2")));
        // Half of it in the description.
        const KRGPXTrack track(QString(characters / 2, QLatin1Char('n')),
                               QString((characters + 1) / 2, QLatin1Char('d')), segments.toList(),
                               LineStringTrackShape);
        const KRGPXConfiguredTrackList tracks(KRGPXConfiguredTrack(track, KRGPXTrackConfiguration::defaultValue()));
        QCOMPARE(!KRSegmentSplitter::refusal(tracks).isEmpty(), isRefused);
    });
}

void tst_KRTrackEditing::keepsAreaWithEnclaves()
{
    KRGPXConfiguredTrack area = spawnTrack("1,1 9,1|9,9 1,1");
    KRGPXTrack outline = area.track();
    outline.addEnclave(
        KRGPXTrack(QString(), QString(), {segment(QStringLiteral("2,2 3,2 3,3 2,2"))}, PolygonTrackShape));
    area.setTrack(outline);
    const KRGPXConfiguredTrackList alone(area);
    QVERIFY(KRTrackEditing::split(area, 2) == alone);
    QVERIFY(KRSegmentSplitter::split(alone) == alone);

    const KRGPXConfiguredTrack reversed = KRTrackEditing::reversed(area);
    QCOMPARE(describe(reversed), QStringLiteral("1 9|9 1"));
    QVERIFY(reversed.track().enclaves() == outline.enclaves());
    QCOMPARE(KRTrackEditing::joined(area, area).track().enclaves().size(), 2);
}

void tst_KRTrackEditing::reverses()
{
    const KRGPXConfiguredTrack track = spawnTrack("1,1 2,1|3,1 4,1 5,1", PolygonTrackShape);
    const KRGPXConfiguredTrack reversed = KRTrackEditing::reversed(track);
    QCOMPARE(describe(reversed), QStringLiteral("5 4 3|2 1"));
    QVERIFY(reversed.track().segments().first().trackPoints().first()
            == track.track().segments().last().trackPoints().last());
    QVERIFY(KRTrackEditing::reversed(reversed) == track);
}

void tst_KRTrackEditing::joins()
{
    const KRGPXConfiguredTrack first = spawnTrack("1,1 2,1");
    const KRGPXConfiguredTrack second = KRTrackEditing::renamed(spawnTrack("3,1 4,1"), QStringLiteral("Rest"));
    const KRGPXConfiguredTrack joined = KRTrackEditing::joined(first, second);
    QCOMPARE(describe(joined), QStringLiteral("1 2|3 4"));
    QCOMPARE(joined.name(), QStringLiteral("Tour"));
    QCOMPARE(joined.description(), QStringLiteral("Text"));
    QCOMPARE(joined.lineColor(), QColor(Qt::green));
    // The same place at another time is another point.
    const KRGPXConfiguredTrack later = spawnTrack("2,1 3,1");
    QCOMPARE(describe(KRTrackEditing::joined(first, later)), QStringLiteral("1 2|2 3"));
    // There and back again: the line has become a ring.
    const KRGPXConfiguredTrack back = spawnTrack("2,2 1,1");
    QVERIFY(KRTrackEditing::joined(first, back).effectiveShape() == PolygonTrackShape);
    QVERIFY(KRTrackEditing::joined(KRGPXConfiguredTrack(), first).track().segments() == first.track().segments());
}

void tst_KRTrackEditing::findsNearestPoint()
{
    const KRGPXConfiguredTrack track = spawnTrack("170,1 175,1|179,1 -179,1");
    QCOMPARE(KRTrackEditing::nearestPoint(track, KRGeoPosition(1.0, 180.0)), 2);
    QCOMPARE(KRTrackEditing::nearestPoint(track, KRGeoPosition(1.0, -179.4)), 3);
    QCOMPARE(KRTrackEditing::nearestPoint(track, KRGeoPosition()), -1);
    QCOMPARE(KRTrackEditing::nearestPoint(KRGPXConfiguredTrack(), KRGeoPosition(1.0, 1.0)), -1);
}

template class KRTestRegistration<tst_KRTrackEditing>;

#include "tst_KRTrackEditing.moc"
