#include <KRGeoLocation/KRGPXTrackSegment.h>

#include "KRTest.h"
#include "KRTestTrack.h"
#include "KRTestXml.h"

#include <KRCore/KRInputLimits.h>
#include <KRCore/KRIntRange.h>
#include <KRGeoLocation/KRGPXTime.h>

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
    void read()
    {
        const KRTestTable<QByteArray, KRText> table{
            {"both forms mixed, in document order",
             "<compressedPoints>8,53</compressedPoints><trkpt lat=\"54\" lon=\"9\"/><trkpt lat=\"55\" lon=\"10\"/>"
             "<compressedPoints>11,56 12,57</compressedPoints>",
             "8.,53. 9.,54. 10.,55. 11.,56. 12.,57."},
            {"other children and deeper points are ignored",
             "<wpt lat=\"1\" lon=\"1\"/><extensions><trkpt lat=\"2\" lon=\"2\"/></extensions><gpx:trkpt/>",
             {}},
        };
        table.forEach([](const QByteArray &children, const QString &expected) {
            QCOMPARE(positionsOf(KRGPXTrackSegment(KRTestXml::element("<trkseg>" + children + "</trkseg>"))), expected);
        });
    }

    void decodeTrackPoints()
    {
        const KRTestTable<KRText, KRText> table{
            {"white space around and between", "\n 8.2,53.1\n\t 9.5,53.6,12,1700000000 \n",
             "8.2,53.1 9.5,53.6,12,1700000000000"},
            {"no-break spaces separate nothing", "8,53\u00a0 8,53\u00a09,54", "8.,53. 8.,0.,54"},
            {"a blank behind the comma makes two points", "8, 53", "8.,0. 53.,0."},
            {"null points vanish", "0,0 x 0,0,100 , 1e-9,0 0,0.1", "0.000000001,0. 0.,0.1"},
        };
        table.forEach([](const QString &text, const QString &expected) {
            QCOMPARE(positionsOf(KRGPXTrackSegment::decodeKml(text)), expected);
            QCOMPARE(KRGPXTrackSegment(KRGPXTrackSegment::decodeTrackPoints(text)), KRGPXTrackSegment::decodeKml(text));
        });
    }

    /// Up to what 64 bits hold, where some times have no clock in some zones, and beyond.
    void farTimesAreAsValidAsThoseOfPoints()
    {
        for (const char *const seconds : {"9223372036854775", "9223372036854776", "-9223372036854775",
                                          "-9223372036854776", "99999999999999999999"}) {
            const QString text = QStringLiteral("8,53,0,") + QLatin1String(seconds);
            const KRGPXTrackSegment segment = KRGPXTrackSegment::decodeKml(text);
            const KRGPXTrackPoint expected = KRGPXTrackSegment::decodeTrackPoints(text).value(0);
            QCOMPARE(segment.time(0).isValid(), expected.timeStamp().isValid());
        }
    }

    void writeAndReadBack()
    {
        QDomElement trk = KRTestXml::element("<trk/>");
        const KRGPXTrackSegment segment(QList<KRGPXTrackPoint>{
            KRGPXTrackPoint(KRGeoPosition(53.12345678, -8.5), -4, QDateTime(), QStringLiteral("lost")),
            KRGPXTrackPoint(KRGeoPosition(53.2, 8.6), 0, QDateTime(), QString())});
        segment.toXml(trk);
        const QDomElement trkseg = trk.firstChildElement(QStringLiteral("trkseg"));
        QCOMPARE(KRTestXml::childrenOf(trkseg), QStringLiteral("compressedPoints=-8.5,53.12345678,-4 8.6,53.2;"));
        const KRGPXTrackSegment again(trkseg);
        QCOMPARE(again.allPoints(), segment.allPoints());
        QCOMPARE(again.trackPoints().first().elevation(), -4);
        QVERIFY(again.trackPoints().first().description().isEmpty());
        // Seven decimals come back, although ten are written.
        QCOMPARE(again.firstPoint().latitude().decimalDegrees(), 53.1234567);
    }

    void longTextsAreParted()
    {
        // The longest that a point may be: readers must not find the text of many of them too long.
        constexpr int count = 850000;
        KRGPXTrackSegment segment;
        for (int i = 0; i < count; ++i)
            segment.append(-17.1234567891, -149.1234567891, -1000000000, 1700000000000000000);
        QDomElement trk = KRTestXml::element("<trk/>");
        segment.toXml(trk);
        for (QDomElement texts = trk.firstChildElement().firstChildElement(); !texts.isNull();
             texts = texts.nextSiblingElement())
            QVERIFY(texts.text().size() < KRInputLimits::tokenBytes);
        QCOMPARE(KRGPXTrackSegment(trk.firstChildElement()).count(), count);
    }

    void chunksOnTheMainThread()
    {
        for (const int count : {0, 1, 3, 10001}) {
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
        const KRGPXTrackSegment ten = segmentOf(10);
        QCOMPARE(ten.collectBlock(KRIntRange(3, 5)), ten.allPoints().mid(3, 3));
        QVERIFY(ten.collectBlock(KRIntRange(3, 2)).isEmpty());
    }

    void chunksOnAnotherThread()
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

    void boundingBox()
    {
        const auto rect = [](double south, double west, double north, double east) {
            return KRGeoPositionRect(KRGeoPosition(south, west), KRGeoPosition(north, east));
        };
        const KRTestTable<KRText, KRGeoPositionRect> table{
            {"other worlds and no numbers do not count", "9,53 361,0 0,-361 nan,1 8,54", rect(53, 8, 54, 9)},
            {"no date line", "170,1 -170,1", rect(1, -170, 1, 170)},
            {"none", "400,400", KRGeoPositionRect()},
        };
        table.forEach([](const QString &coordinates, const KRGeoPositionRect &expected) {
            const KRGPXTrackSegment segment = KRGPXTrackSegment::decodeKml(coordinates);
            QCOMPARE(segment.boundingBox(), expected);
            QCOMPARE(segment.allPoints().boundingBox(), expected);
        });
    }

    void emptySegment()
    {
        // The body of the base counts positions.
        for (const int count : {0, 1, 2})
            QCOMPARE(segmentOf(count).KRGPXTrackElement::isSinglePoint(), count == 1);
        const KRGPXTrackSegment empty;
        QVERIFY(!empty.isValid() && !empty.isSinglePoint());
        QVERIFY(empty.allTimeStamps().isEmpty());
        QCOMPARE(empty.firstPoint(), KRGeoPosition::null());
        QCOMPARE(empty.lastPoint(), KRGeoPosition());
        QDomElement trk = KRTestXml::element("<trk/>");
        empty.toXml(trk);
        QCOMPARE(KRTestXml::childrenOf(trk.firstChildElement()), QStringLiteral("compressedPoints;"));
    }

    void keepsWhateverPointsHold()
    {
        const QDate day(2024, 5, 1);
        const QTime clock(12, 0);
        QList<QDateTime> times{QDateTime(), noon, noon.addMSecs(1), QDateTime::fromMSecsSinceEpoch(-1, Qt::UTC)};
        for (const int offset : {7200, -12600})
            times += QDateTime(day, clock, Qt::OffsetFromUTC, offset);
        times << QDateTime(day, clock, Qt::LocalTime) << QDateTime(day, clock, QTimeZone("Europe/Berlin"))
              << QDateTime() << QDateTime(QDate(), QTime(), Qt::UTC);
        QList<KRGPXTrackPoint> points;
        for (int i = 0; i < 3000; ++i) { // enough for several threads
            const KRGeoPosition position(i % 7 == 0 ? 1e300 * i : i / 3.0, i % 5 == 0 ? -0.0 : -i / 7.0);
            points.append(KRGPXTrackPoint(position, i % 11 == 3 ? -i : 0, times.at(i * i % times.size()),
                                          i % 13 == 5 ? QString::number(i) : QString()));
        }
        const KRGPXTrackSegment segment(points);
        QCOMPARE(segment.count(), points.size());
        const QList<QDateTime> timeStamps = segment.allTimeStamps();
        KRGPXTrackSegment copy;
        QStringList commaTexts;
        for (int i = 0; i < points.size(); ++i) {
            copy.append(segment, i);
            QCOMPARE(KRTestTrack::exactText(copy.trackPoint(i)), KRTestTrack::exactText(points.at(i)));
            commaTexts.append(points.at(i).toKml());
            QCOMPARE(KRTestTrack::exactText(segment.trackPoint(i)), KRTestTrack::exactText(points.at(i)));
            QCOMPARE(timeStamps.at(i), points.at(i).timeStamp());
        }
        QCOMPARE(KRGPXTrackSegment(segment.trackPoints()), segment);
        QCOMPARE(segment.toKml(), commaTexts.join(QLatin1Char('\n')));
    }

    void appending()
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

    void equality()
    {
        const KRTestTable<QDateTime, QDateTime> table{
            {"one instant in two zones", noon, noon.toOffsetFromUtc(3600)},
            {"other instants, same clock", noon, QDateTime(noon.date(), noon.time(), Qt::OffsetFromUTC, 3600)},
            {"no time and 1970", QDateTime(), QDateTime::fromMSecsSinceEpoch(0, Qt::UTC)},
        };
        table.forEach([](const QDateTime &a, const QDateTime &b) {
            const auto segmentWith = [](const QDateTime &time) {
                return KRGPXTrackSegment(KRGPXTrackPoint(KRGeoPosition(53.0, 8.0), 0, time, QString()));
            };
            QCOMPARE(segmentWith(a) == segmentWith(b), a == b);
            // Comma text gives local times, kept in another way than those of points.
            const KRGPXTrackSegment read = KRGPXTrackSegment::decodeKml(QStringLiteral("8,53,0,1714564800"));
            QCOMPARE(read == segmentWith(a), noon == a);
        });
        // Where clocks are set back two instants may be one local time.
        const qint64 autumn = QDateTime(QDate(2024, 10, 27), QTime(0, 30), Qt::UTC).toMSecsSinceEpoch();
        const auto segmentAt = [](qint64 milliseconds, int zone) {
            KRGPXTrackSegment segment;
            segment.append(53.0, 8.0, 0, KRGPXTime{milliseconds, zone, QDateTime()}, QString());
            return segment;
        };
        for (const qint64 difference : {0, 1, 1000, 3600 * 1000, 3 * 24 * 3600 * 1000}) {
            for (const int zone : {KRGPXTime::localZone, KRGPXTime::utcZone}) {
                const KRGPXTrackSegment a = segmentAt(autumn, KRGPXTime::localZone);
                const KRGPXTrackSegment b = segmentAt(autumn + difference, zone);
                QCOMPARE(a == b, a.trackPoint(0).timeStamp() == b.trackPoint(0).timeStamp());
            }
        }
        QCOMPARE(segmentOf(3), segmentOf(3));
        QVERIFY(segmentOf(3) != segmentOf(4));
        // Not a number equals nothing, so only a copy, which shares its points, can be equal.
        KRGPXTrackSegment nowhere;
        nowhere.append(std::nan(""), 8.0, 0, noon, QString());
        const KRGPXTrackSegment copy = nowhere;
        QVERIFY(copy == nowhere);
    }

    void timeFrame()
    {
        const QDateTime none;
        const QDateTime morning = noon.addSecs(-4 * 3600);
        const QDateTime evening = noon.addSecs(8 * 3600);
        const KRTestTable<QList<QDateTime>, QDateTime, QDateTime, bool> table{
            {"no time stamps", QList<QDateTime>{}, none, none, false},
            {"a single instant is no frame", QList<QDateTime>{noon}, noon, noon, false},
            {"an invalid one is earlier than all", QList<QDateTime>{morning, none, evening}, none, evening, true},
            {"invalid ones at the start leave the frame unset", QList<QDateTime>{none, none, noon}, noon, noon, false},
        };
        table.forEach(
            [](const QList<QDateTime> &timeStamps, const QDateTime &minimum, const QDateTime &maximum, bool isValid) {
                KRGPXTrackSegment segment;
                for (const QDateTime &timeStamp : timeStamps)
                    segment.append(53.1, 8.8, 0, timeStamp, QString());
                const KRRange<QDateTime> frame = segment.timeFrame();
                QCOMPARE(frame.minimum(), minimum);
                QCOMPARE(frame.maximum(), maximum);
                QCOMPARE(frame.isValid(), isValid);
            });
    }
};

template class KRTestRegistration<tst_KRGPXTrackSegment>;

#include "tst_KRGPXTrackSegment.moc"
