#include "KRSegmentSplitter.h"

#include "KRTestRegistry.h"

#include <QtTest>

namespace {

KRGPXTrackSegment segment(const char *text)
{
    return KRGPXTrackSegment::decodeKml(QString::fromLatin1(text));
}

KRGPXConfiguredTrackList split(const QList<KRGPXTrackSegment> &segments, const KRGPXTrackShape &configuredShape)
{
    KRGPXTrackConfiguration configuration;
    configuration.setTrackShape(configuredShape);
    configuration.setLineColor(Qt::green);
    const KRGPXTrack track(QStringLiteral("T"), QStringLiteral("D"), segments, LineStringTrackShape);
    return KRSegmentSplitter::split(KRGPXConfiguredTrackList(KRGPXConfiguredTrack(track, configuration)));
}

} // namespace

class tst_KRSegmentSplitter : public QObject
{
    Q_OBJECT

private slots:
    void splits();
    void shapes();
    void keepsWhole();
};

void tst_KRSegmentSplitter::splits()
{
    const KRGPXTrackSegment first = segment("1,1 2,2");
    const KRGPXTrackSegment last = segment("3,3 4,4");
    const KRGPXConfiguredTrackList tracks = split({first, KRGPXTrackSegment(), last}, AutoTrackShape);
    QCOMPARE(tracks.size(), 2);
    QCOMPARE(tracks.at(0).name(), QStringLiteral("T (1)"));
    QCOMPARE(tracks.at(1).name(), QStringLiteral("T (2)"));
    QCOMPARE(tracks.at(1).description(), QStringLiteral("D"));
    QVERIFY(tracks.at(0).track().segments() == QList<KRGPXTrackSegment>{first});
    QVERIFY(tracks.at(1).track().segments() == QList<KRGPXTrackSegment>{last});
    QCOMPARE(tracks.at(1).lineColor(), QColor(Qt::green));
}

void tst_KRSegmentSplitter::shapes()
{
    // Together a line; apart a round trip, a point and a line.
    const QList<KRGPXTrackSegment> segments{segment("1,1 2,1 2,2 1,1"), segment("5,5"), segment("6,6 7,7")};
    const KRGPXConfiguredTrackList natural = split(segments, AutoTrackShape);
    QCOMPARE(natural.size(), 3);
    QVERIFY(natural.at(0).effectiveShape() == PolygonTrackShape);
    QVERIFY(natural.at(1).effectiveShape() == PointTrackShape);
    QVERIFY(natural.at(2).effectiveShape() == LineStringTrackShape);
    // What the user has chosen stays.
    for (const KRGPXConfiguredTrack &track : split(segments, PolygonTrackShape))
        QVERIFY(track.effectiveShape() == PolygonTrackShape);
}

void tst_KRSegmentSplitter::keepsWhole()
{
    QCOMPARE(split({segment("1,1 2,2")}, AutoTrackShape).value(0).name(), QStringLiteral("T"));
    QCOMPARE(split({}, AutoTrackShape).size(), 1);

    KRGPXTrack area(QStringLiteral("A"), QString(), {segment("1,1 9,1 9,9"), segment("1,9 1,1")}, PolygonTrackShape);
    area.addEnclave(KRGPXTrack(QString(), QString(), {segment("2,2 3,2 3,3 2,2")}, PolygonTrackShape));
    const KRGPXConfiguredTrackList areas(KRGPXConfiguredTrack(area, KRGPXTrackConfiguration()));
    QVERIFY(KRSegmentSplitter::split(areas) == areas);
}

static const KRTestRegistration<tst_KRSegmentSplitter> registration;

#include "tst_KRSegmentSplitter.moc"
