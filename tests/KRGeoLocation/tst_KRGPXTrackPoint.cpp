#include <KRGeoLocation/KRGPXTrackPoint.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include "KRTest.h"
#include "KRTestXml.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <random>
#include <vector>

namespace {

const QDateTime noon(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC);

/// Degrees without the tolerance that comparing positions has.
bool liesExactlyAt(const KRGPXTrackPoint &point, double latitude, double longitude)
{
    return point.position().latitude().decimalDegrees() == latitude
           && point.position().longitude().decimalDegrees() == longitude;
}

} // namespace

class tst_KRGPXTrackPoint : public QObject
{
    Q_OBJECT

private slots:
    void read()
    {
        const auto elevation = [](const QByteArray &text) { return "<trkpt><ele>" + text + "</ele></trkpt>"; };
        const KRTestTable<QByteArray, KRText> table{
            {"no longitude", "<trkpt lat='53.14'/>", "1.,53.14"},
            {"decimal comma", "<trkpt lat='53,14' lon='8'/>", "8.,1."},
            {"any number is taken", "<trkpt lat='1e3' lon=' -700 '/>", "-700.,1000."},
            {"toward zero", elevation("-3.7"), "1.,1.,-3"},
            {"elevation not a number", elevation("nan"), "1.,1."},
            {"elevation beyond an int", elevation("1e20"), "1.,1.,2147483647"},
            {"time with blanks, a fraction and an offset", "<trkpt><time> 2024-05-01T14:00:00.5+02:00\n</time></trkpt>",
             "1.,1.,0,1714564800500"},
            {"time without elevation", "<trkpt lat='53' lon='100'><time>2024-05-01T12:00:00Z</time></trkpt>",
             "100.,53.,0,1714564800000"},
            {"the first of its name", "<trkpt><ele>3</ele><ele>4</ele></trkpt>", "1.,1.,3"},
        };
        table.forEach([](const QByteArray &xml, const QString &expected) {
            QCOMPARE(KRGPXTrackPoint(KRTestXml::element(xml)).toKml(), expected);
        });
    }

    void writeXml()
    {
        const KRGeoPosition position(53.14117999999999, -8.25);
        const KRTestTable<KRGPXTrackPoint, KRText, KRText, KRText> table{
            {"position only", KRGPXTrackPoint(position, 0, QDateTime(), QString()), "53.14118", "-8.25", QString()},
            {"everything", KRGPXTrackPoint(position, -3, noon, QStringLiteral("a < b")), "53.14118", "-8.25",
             "ele=-3;time=2024-05-01T12:00:00Z;desc=a < b;"},
        };
        table.forEach([](const KRGPXTrackPoint &point, const QString &latitude, const QString &longitude,
                         const QString &expectedChildren) {
            QDomElement trkseg = KRTestXml::element("<trkseg/>");
            point.toXml(trkseg);
            QCOMPARE(trkseg.childNodes().size(), 1);
            const QDomElement trkpt = trkseg.firstChildElement(QStringLiteral("trkpt"));
            QCOMPARE(trkpt.attribute(QStringLiteral("lat")), latitude);
            QCOMPARE(trkpt.attribute(QStringLiteral("lon")), longitude);
            QCOMPARE(KRTestXml::childrenOf(trkpt), expectedChildren);
            QCOMPARE(KRGPXTrackPoint(trkpt), point);
        });
    }

    void toKmlOfAnyNumber()
    {
        std::vector<double> numbers{
            0.0,    -0.0,    1e-11,   -5e-11,        0.00000000005,  179.99999999995,    1e15, -1.7976931348623157e308,
            qInf(), -qInf(), qQNaN(), 0.66650390625, -8.00048828125, 4194304.00048828125};
        std::mt19937 random(7);
        std::uniform_real_distribution<double> degrees(-180.0, 180.0);
        std::generate_n(std::back_inserter(numbers), 5000, [&] { return degrees(random); });
        for (const double number : numbers) {
            QString expected = QString::number(number, 'f', 10);
            while (expected.endsWith(QLatin1Char('0')))
                expected.chop(1);
            const KRGPXTrackPoint point(KRGeoPosition(number, 1.0), 0, QDateTime(), QString());
            QCOMPARE(point.toKml(), QStringLiteral("1.,") + expected);
            QCOMPARE(KRGPXTrackSegment({point}).toKml(), point.toKml());
        }
    }

    void decodeKml()
    {
        const QDateTime none;
        const QDateTime epoch = QDateTime::fromSecsSinceEpoch(0);
        const KRTestTable<KRText, double, double, int, QDateTime> table{
            {"seven decimals", "8.99999999,53.12345678", 53.1234567, 8.9999999, 0, none},
            {"elevation, no time", "8,53,12", 53.0, 8.0, 12, none},
            {"elevation is an int", "8,53,12.5", 53.0, 8.0, 0, none},
            {"seconds", "8,53,-1,1714564800", 53.0, 8.0, -1, noon},
            {"empty time field is the epoch", "8,53,0,", 53.0, 8.0, 0, epoch},
            {"unreadable time field too", "8,53,,now,x", 53.0, 8.0, 0, epoch},
            {"more seconds than milliseconds fit", "8,53,0,9223372036854775807", 53.0, 8.0, 0, none},
            {"longitude only", "8", 0.0, 8.0, 0, none},
            {"nothing", {}, 0.0, 0.0, 0, none},
        };
        table.forEach([](const QString &text, double latitude, double longitude, int elevation, const QDateTime &time) {
            const KRGPXTrackPoint point = KRGPXTrackPoint::decodeKml(text);
            QVERIFY(liesExactlyAt(point, latitude, longitude));
            QCOMPARE(point.elevation(), elevation);
            QCOMPARE(point.timeStamp(), time);
            QVERIFY(point.description().isEmpty());
        });
    }

    void timesGrowWithEverySave()
    {
        const KRGPXTrackPoint original(KRGeoPosition(53.0, 8.0), 0, noon, QString());
        const KRGPXTrackPoint again = KRGPXTrackPoint::decodeKml(original.toKml());
        QCOMPARE(again.timeStamp().toSecsSinceEpoch(), noon.toMSecsSinceEpoch());
        QCOMPARE(again.timeStamp().timeSpec(), Qt::LocalTime);
        // The third time there are more milliseconds than 64 bits hold.
        const KRGPXTrackPoint third = KRGPXTrackPoint::decodeKml(KRGPXTrackPoint::decodeKml(again.toKml()).toKml());
        QVERIFY(!third.timeStamp().isValid());
    }

    void equality()
    {
        const KRGeoPosition position(53.0, 8.0);
        const QString description = QStringLiteral("here");
        const KRGPXTrackPoint point(position, 5, noon, description);
        QCOMPARE(point, KRGPXTrackPoint(KRGeoPosition(53.0000005, 8.0), 5, noon, description));
        for (const KRGPXTrackPoint &other :
             {KRGPXTrackPoint(KRGeoPosition(53.1, 8.0), 5, noon, description),
              KRGPXTrackPoint(position, 6, noon, description), KRGPXTrackPoint(position, 5, QDateTime(), description),
              KRGPXTrackPoint(position, 5, noon, QString())})
            QVERIFY(point != other);

        // Not a number equals nothing, so only a copy, which shares its fields, can be equal.
        const KRGPXTrackPoint nowhere(KRGeoPosition(std::nan(""), 8.0), 0, noon, QString());
        const KRGPXTrackPoint copy = nowhere;
        QCOMPARE(copy, nowhere);
        QVERIFY(nowhere != KRGPXTrackPoint(KRGeoPosition(std::nan(""), 8.0), 0, noon, QString()));
    }

    void asElement()
    {
        const KRGPXTrackPoint nullPoint;
        QVERIFY(liesExactlyAt(nullPoint, 0.0, 0.0) && nullPoint.isNull());
        const KRGPXTrackPoint point(KRGeoPosition(0.0, 1e-7), 5, noon, QString());
        QVERIFY(!point.isNull() && point.isSinglePoint());
        QCOMPARE(point.chunkedPoints(), QList<KRGeoPositionList>{KRGeoPositionList{point.position()}});
        QCOMPARE(point.allTimeStamps(), QList<QDateTime>{noon});
        QVERIFY(point.firstPoint() == point.position() && point.lastPoint() == point.position());
    }

    void safeDouble()
    {
        const KRTestTable<KRText, double> table{
            {"seven decimals are kept", "53.123456789", 53.1234567},
            {"seven characters without a point", "123456789", 1234567.0},
            {"the sign is one of the seven", "-123456789", -123456.0},
            {"leading zeroes too", "00000012", 1.0},
            {"an exponent behind the seventh decimal is lost", "1.23456789e-05", 1.2345678},
            {"a nearer one counts", "1.5e2", 150.0},
            {"too large for a double", "1e400", 0.0},
        };
        table.forEach([](const QString &text, double number) { QVERIFY(KRGPXTrackPoint::safeDouble(text) == number); });
    }
};

template class KRTestRegistration<tst_KRGPXTrackPoint>;

#include "tst_KRGPXTrackPoint.moc"
