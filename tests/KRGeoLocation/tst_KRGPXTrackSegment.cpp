#include <KRGeoLocation/KRGPXTrackSegment.h>

#include "KRTestRegistry.h"
#include "KRTestXml.h"

#include <KRCore/KRIntRange.h>

#include <QThread>
#include <QTimeZone>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

const QDateTime noon(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC);

/// Points that all differ, from the equator northwards.
KRGPXTrackSegment segmentOf(int count)
{
    QList<KRGPXTrackPoint> points;
    for (int i = 0; i < count; ++i)
        points.append(KRGPXTrackPoint(KRGeoPosition(i * 0.001, 8.0), i, noon.addSecs(i), QString::number(i)));
    return KRGPXTrackSegment(points);
}

QString positionsOf(const KRGPXTrackSegment &segment)
{
    return segment.toKml().replace(QLatin1Char('\n'), QLatin1Char(' '));
}

} // namespace

class tst_KRGPXTrackSegment : public QObject
{
    Q_OBJECT

private slots:
    void read_data();
    void read();
    void decodeTrackPoints_data();
    void decodeTrackPoints();
    void writeAndReadBack();
    void longTextsAreParted();
    void chunksOnTheMainThread_data();
    void chunksOnTheMainThread();
    void chunksOnAnotherThread();
    void collectBlock();
    void boundingBox_data();
    void boundingBox();
    void emptySegment();
    void keepsWhateverPointsHold();
    void appending();
    void equality();
    void equalityOfTimes_data();
    void equalityOfTimes();
};

void tst_KRGPXTrackSegment::read_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("expected");
    QTest::newRow("both forms mixed, in document order")
        << QByteArray("<trkseg><compressedPoints>8,53</compressedPoints><trkpt lat=\"54\" lon=\"9\"/>"
                      "<trkpt lat=\"55\" lon=\"10\"/><compressedPoints>11,56 12,57</compressedPoints></trkseg>")
        << QStringLiteral("8.,53. 9.,54. 10.,55. 11.,56. 12.,57.");
    QTest::newRow("null points stay where GPX names them")
        << QByteArray("<trkseg><trkpt lat=\"0\" lon=\"0\"/><compressedPoints>0,0 1,1</compressedPoints></trkseg>")
        << QStringLiteral("0.,0. 1.,1.");
    QTest::newRow("other children and deeper points are ignored")
        << QByteArray("<trkseg><wpt lat=\"1\" lon=\"1\"/><extensions><trkpt lat=\"2\" lon=\"2\"/></extensions>"
                      "<gpx:trkpt lat=\"3\" lon=\"3\"/></trkseg>")
        << QString();
}

void tst_KRGPXTrackSegment::read()
{
    QFETCH(QByteArray, xml);
    QTEST(positionsOf(KRGPXTrackSegment(KRTestXml::element(xml))), "expected");
}

void tst_KRGPXTrackSegment::decodeTrackPoints_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("white space around and between") << QStringLiteral("\n 8.2,53.1\n\t 9.5,53.6,12,1700000000 \n")
                                                    << QStringLiteral("8.2,53.1 9.5,53.6,12,1700000000000");
    QTest::newRow("no-break spaces separate nothing")
        << QStringLiteral("8,53\u00a0 8,53\u00a09,54") << QStringLiteral("8.,53. 8.,0.,54");
    QTest::newRow("a blank behind the comma makes two points")
        << QStringLiteral("8, 53") << QStringLiteral("8.,0. 53.,0.");
    QTest::newRow("null points vanish") << QStringLiteral("0,0 x 0,0,100 , 1e-9,0 0,0.1")
                                        << QStringLiteral("0.000000001,0. 0.,0.1");
    QTest::newRow("blanks only") << QStringLiteral(" \r\n\v\f") << QString();
}

void tst_KRGPXTrackSegment::decodeTrackPoints()
{
    QFETCH(QString, text);
    QTEST(positionsOf(KRGPXTrackSegment::decodeKml(text)), "expected");
    QCOMPARE(KRGPXTrackSegment(KRGPXTrackSegment::decodeTrackPoints(text)), KRGPXTrackSegment::decodeKml(text));
}

void tst_KRGPXTrackSegment::writeAndReadBack()
{
    QDomElement trk = KRTestXml::element("<trk/>");
    const KRGPXTrackSegment segment(QList<KRGPXTrackPoint>{
        KRGPXTrackPoint(KRGeoPosition(53.12345678, -8.5), -4, QDateTime(), QStringLiteral("lost")),
        KRGPXTrackPoint(KRGeoPosition(53.2, 8.6), 0, QDateTime(), QString())});
    segment.toXml(trk);
    const QDomElement trkseg = trk.firstChildElement();
    QCOMPARE(trkseg.tagName(), QStringLiteral("trkseg"));
    QCOMPARE(trkseg.childNodes().size(), 1);
    QCOMPARE(trkseg.firstChildElement(QStringLiteral("compressedPoints")).text(),
             QStringLiteral("-8.5,53.12345678,-4\n8.6,53.2"));

    const KRGPXTrackSegment again(trkseg);
    QCOMPARE(again.allPoints(), segment.allPoints());
    QCOMPARE(again.trackPoints().first().elevation(), -4);
    QVERIFY(again.trackPoints().first().description().isEmpty());
    // Seven decimals come back, although ten are written.
    QCOMPARE(again.firstPoint().latitude().decimalDegrees(), 53.1234567);
}

void tst_KRGPXTrackSegment::longTextsAreParted()
{
    QList<KRGPXTrackPoint> points;
    const KRGPXTrackPoint point(KRGeoPosition(53.0, 8.0), 0, QDateTime(), QString());
    for (int i = 0; i < 1000001; ++i)
        points.append(point);
    QDomDocument document;
    QDomElement trk = document.appendChild(document.createElement(QStringLiteral("trk"))).toElement();
    KRGPXTrackSegment(points).toXml(trk);
    QCOMPARE(trk.firstChildElement().elementsByTagName(QStringLiteral("compressedPoints")).size(), 2);
    QCOMPARE(KRGPXTrackSegment(trk.firstChildElement()).count(), 1000001);
}

void tst_KRGPXTrackSegment::chunksOnTheMainThread_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("no point, no chunk") << 0;
    QTest::newRow("one point") << 1;
    QTest::newRow("fewer points than cores or not") << 3;
    QTest::newRow("many points") << 10001;
}

void tst_KRGPXTrackSegment::chunksOnTheMainThread()
{
    QFETCH(int, count);
    const KRGPXTrackSegment segment = segmentOf(count);
    QVERIFY(segment.weAreaRunningInMainThread());
    const QList<KRGeoPositionList> chunks = segment.chunkedPoints();
    QCOMPARE(chunks.size(), std::min(count, QThread::idealThreadCount()));
    KRGeoPositionList joined;
    for (const KRGeoPositionList &chunk : chunks) {
        QVERIFY(!chunk.isEmpty());
        joined += chunk;
    }
    QCOMPARE(joined, segment.allPoints());
    QCOMPARE(joined.size(), count);
}

void tst_KRGPXTrackSegment::chunksOnAnotherThread()
{
    const KRGPXTrackSegment segment = segmentOf(100);
    bool isMainThread = true;
    QList<KRGeoPositionList> chunks;
    QList<KRGeoPositionList> chunksOfNothing;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        isMainThread = segment.weAreaRunningInMainThread();
        chunks = segment.chunkedPoints();
        chunksOfNothing = KRGPXTrackSegment().chunkedPoints();
    }));
    thread->start();
    thread->wait();
    QVERIFY(!isMainThread);
    QCOMPARE(chunks, QList<KRGeoPositionList>{segment.allPoints()});
    QCOMPARE(chunksOfNothing, QList<KRGeoPositionList>{KRGeoPositionList()});
}

void tst_KRGPXTrackSegment::collectBlock()
{
    const KRGPXTrackSegment segment = segmentOf(10);
    QCOMPARE(segment.collectBlock(KRIntRange(3, 5)), segment.allPoints().mid(3, 3));
    QVERIFY(segment.collectBlock(KRIntRange(3, 2)).isEmpty());
}

void tst_KRGPXTrackSegment::boundingBox_data()
{
    QTest::addColumn<QString>("coordinates");
    QTest::addColumn<KRGeoPositionRect>("expected");
    const KRGeoPositionRect bremen(KRGeoPosition(53.0, 8.0), KRGeoPosition(54.0, 9.0));
    QTest::newRow("corners of different points") << QStringLiteral("9,53 8,54") << bremen;
    QTest::newRow("other worlds and no numbers do not count")
        << QStringLiteral("9,53 361,0 0,-361 nan,1 8,54") << bremen;
    QTest::newRow("no date line") << QStringLiteral("170,1 -170,1")
                                  << KRGeoPositionRect(KRGeoPosition(1.0, -170.0), KRGeoPosition(1.0, 170.0));
    QTest::newRow("a corner without a position")
        << QStringLiteral("0,1 1,0") << KRGeoPositionRect(KRGeoPosition(0.0, 0.0), KRGeoPosition(1.0, 1.0));
    QTest::newRow("none") << QStringLiteral("400,400") << KRGeoPositionRect();
}

void tst_KRGPXTrackSegment::boundingBox()
{
    QFETCH(QString, coordinates);
    const KRGPXTrackSegment segment = KRGPXTrackSegment::decodeKml(coordinates);
    QTEST(segment.boundingBox(), "expected");
    QCOMPARE(segment.boundingBox(), segment.allPoints().boundingBox());
}

void tst_KRGPXTrackSegment::emptySegment()
{
    const KRGPXTrackSegment empty;
    QVERIFY(!empty.isValid());
    QVERIFY(!empty.isSinglePoint());
    QVERIFY(empty.allPoints().isEmpty());
    QVERIFY(empty.allTimeStamps().isEmpty());
    QCOMPARE(empty.firstPoint(), KRGeoPosition::null());
    QCOMPARE(empty.lastPoint(), KRGeoPosition());

    QDomElement trk = KRTestXml::element("<trk/>");
    empty.toXml(trk);
    const QDomElement trkseg = trk.firstChildElement(QStringLiteral("trkseg"));
    QVERIFY(!trkseg.firstChildElement(QStringLiteral("compressedPoints")).isNull());
    QVERIFY(!KRGPXTrackSegment(trkseg).isValid());
}

void tst_KRGPXTrackSegment::keepsWhateverPointsHold()
{
    const QDate day(2024, 5, 1);
    const QList<QDateTime> times{QDateTime(),
                                 noon,
                                 QDateTime(day, QTime(12, 0), Qt::LocalTime),
                                 QDateTime(day, QTime(12, 0), Qt::OffsetFromUTC, 7200),
                                 QDateTime(),
                                 QDateTime(day, QTime(12, 0), Qt::OffsetFromUTC, -12600),
                                 QDateTime(day, QTime(12, 0), QTimeZone("Europe/Berlin")),
                                 QDateTime(QDate(), QTime(), Qt::UTC),
                                 QDateTime::fromMSecsSinceEpoch(-1, Qt::UTC),
                                 noon.addMSecs(1)};
    QList<KRGPXTrackPoint> points;
    for (int i = 0; i < 1000; ++i) {
        const KRGeoPosition position(i % 7 == 0 ? 1e300 * i : i / 3.0, i % 5 == 0 ? -0.0 : -i / 7.0);
        points.append(KRGPXTrackPoint(position, i % 11 == 3 ? -i : 0, times.at(i * i % times.size()),
                                      i % 13 == 5 ? QString::number(i) : QString()));
    }
    const KRGPXTrackSegment segment(points);
    QCOMPARE(segment.count(), points.size());
    QStringList commaTexts;
    for (int i = 0; i < points.size(); ++i) {
        commaTexts.append(points.at(i).toKml());
        const KRGPXTrackPoint point = segment.trackPoint(i);
        QCOMPARE(point.position().toPointF().x(), points.at(i).position().toPointF().x());
        QCOMPARE(point.position().toPointF().y(), points.at(i).position().toPointF().y());
        QCOMPARE(point.elevation(), points.at(i).elevation());
        QCOMPARE(point.timeStamp(), points.at(i).timeStamp());
        QCOMPARE(point.timeStamp().timeSpec(), points.at(i).timeStamp().timeSpec());
        QCOMPARE(point.timeStamp().offsetFromUtc(), points.at(i).timeStamp().offsetFromUtc());
        QCOMPARE(point.timeStamp().isValid(), points.at(i).timeStamp().isValid());
        QCOMPARE(point.description(), points.at(i).description());
        QCOMPARE(segment.allTimeStamps().at(i), points.at(i).timeStamp());
    }
    QCOMPARE(KRGPXTrackSegment(segment.trackPoints()), segment);
    QCOMPARE(segment.toKml(), commaTexts.join(QLatin1Char('\n')));
}

void tst_KRGPXTrackSegment::appending()
{
    KRGPXTrackSegment segment(KRGPXTrackPoint(KRGeoPosition(53.0, 8.0), 0, QDateTime(), QString()));
    QVERIFY(segment.isSinglePoint());
    const KRGPXTrackSegment copy = segment;
    segment.append(54.0, 9.0, 12, noon, QStringLiteral("here"));
    segment.appendCompressed(QStringLiteral("10,55"));
    QCOMPARE(positionsOf(segment), QStringLiteral("8.,53. 9.,54.,12,1714564800000 10.,55."));
    QCOMPARE(segment.trackPoints().at(1).description(), QStringLiteral("here"));
    QCOMPARE(copy.count(), 1);
}

void tst_KRGPXTrackSegment::equality()
{
    QCOMPARE(segmentOf(3), segmentOf(3));
    QVERIFY(segmentOf(3) != segmentOf(4));
    QVERIFY(segmentOf(0) == KRGPXTrackSegment());

    // Not a number equals nothing, so only a copy, which shares its points, can be equal.
    KRGPXTrackSegment nowhere;
    nowhere.append(std::nan(""), 8.0, 0, noon, QString());
    const KRGPXTrackSegment copy = nowhere;
    QVERIFY(copy == nowhere);
}

void tst_KRGPXTrackSegment::equalityOfTimes_data()
{
    QTest::addColumn<QDateTime>("a");
    QTest::addColumn<QDateTime>("b");
    QTest::newRow("one instant in two zones") << noon << noon.toOffsetFromUtc(3600);
    QTest::newRow("in local time") << noon << noon.toLocalTime();
    QTest::newRow("other instants, same clock") << noon << QDateTime(noon.date(), noon.time(), Qt::OffsetFromUTC, 3600);
    QTest::newRow("no time and 1970") << QDateTime() << QDateTime::fromMSecsSinceEpoch(0, Qt::UTC);
    QTest::newRow("no time and a local one") << QDateTime() << noon.toLocalTime();
}

void tst_KRGPXTrackSegment::equalityOfTimes()
{
    QFETCH(QDateTime, a);
    QFETCH(QDateTime, b);
    const auto segmentWith = [](const QDateTime &time) {
        return KRGPXTrackSegment(KRGPXTrackPoint(KRGeoPosition(53.0, 8.0), 0, time, QString()));
    };
    QCOMPARE(segmentWith(a) == segmentWith(b), a == b);
    // Comma text gives local times, kept in another way than those of points.
    const KRGPXTrackSegment read = KRGPXTrackSegment::decodeKml(QStringLiteral("8,53,0,1714564800"));
    QCOMPARE(read == segmentWith(a), noon == a);
}

static const KRTestRegistration<tst_KRGPXTrackSegment> registration;

#include "tst_KRGPXTrackSegment.moc"
