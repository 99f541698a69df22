#include <KRGeoLocation/KRGPXTrackPoint.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"
#include "KRTestXml.h"

#include <QtTest>

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
    void read();
    void writeXml();
    void toKmlOfAnyNumber();
    void decodeKml();
    void timesGrowWithEverySave();
    void equality();
    void asElement();
    void safeDouble();
};

void tst_KRGPXTrackPoint::read()
{
    const auto elevation = [](const QByteArray &text) { return "<trkpt><ele>" + text + "</ele></trkpt>"; };
    const KRTestTable<QByteArray, QString> table{
        {"no longitude", "<trkpt lat='53.14'/>", QStringLiteral("1.,53.14")},
        {"decimal comma", "<trkpt lat='53,14' lon='8'/>", QStringLiteral("8.,1.")},
        {"any number is taken", "<trkpt lat='1e3' lon=' -700 '/>", QStringLiteral("-700.,1000.")},
        {"toward zero", elevation("-3.7"), QStringLiteral("1.,1.,-3")},
        {"elevation not a number", elevation("nan"), QStringLiteral("1.,1.")},
        {"elevation beyond an int", elevation("1e20"), QStringLiteral("1.,1.,2147483647")},
        {"time with blanks, a fraction and an offset", "<trkpt><time> 2024-05-01T14:00:00.5+02:00\n</time></trkpt>",
         QStringLiteral("1.,1.,0,1714564800500")},
        {"time without elevation", "<trkpt lat='53' lon='100'><time>2024-05-01T12:00:00Z</time></trkpt>",
         QStringLiteral("100.,53.,0,1714564800000")},
        {"the first of its name", "<trkpt><ele>3</ele><ele>4</ele></trkpt>", QStringLiteral("1.,1.,3")},
    };
    table.forEach([](const QByteArray &xml, const QString &expected) {
        QCOMPARE(KRGPXTrackPoint(KRTestXml::element(xml)).toKml(), expected);
    });
}

void tst_KRGPXTrackPoint::writeXml()
{
    const KRGeoPosition position(53.14117999999999, -8.25);
    const KRTestTable<KRGPXTrackPoint, QString, QString, QString> table{
        {"position only", KRGPXTrackPoint(position, 0, QDateTime(), QString()), QStringLiteral("53.14118"),
         QStringLiteral("-8.25"), QString()},
        {"everything", KRGPXTrackPoint(position, -3, noon, QStringLiteral("a < b")), QStringLiteral("53.14118"),
         QStringLiteral("-8.25"), QStringLiteral("ele=-3;time=2024-05-01T12:00:00Z;desc=a < b;")},
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

void tst_KRGPXTrackPoint::toKmlOfAnyNumber()
{
    std::vector<double> numbers{
        0.0,    -0.0,    1e-11,  -5e-11, 0.00000000005, 179.99999999995, 1e15, -1.7976931348623157e308,
        qInf(), -qInf(), qQNaN()};
    std::mt19937 random(7);
    std::uniform_real_distribution<double> degrees(-180.0, 180.0);
    std::generate_n(std::back_inserter(numbers), 5000, [&] { return degrees(random); });
    for (const double number : numbers) {
        QString expected = QString::number(number, 'f', 10);
        while (expected.endsWith(QLatin1Char('0')))
            expected.chop(1);
        const KRGPXTrackPoint point(KRGeoPosition(number, 1.0), 0, QDateTime(), QString());
        QCOMPARE(point.toKml(), QStringLiteral("1.,") + expected);
    }
}

void tst_KRGPXTrackPoint::decodeKml()
{
    const QDateTime none;
    const QDateTime epoch = QDateTime::fromSecsSinceEpoch(0);
    const KRTestTable<QString, double, double, int, QDateTime> table{
        {"seven decimals", QStringLiteral("8.99999999,53.12345678"), 53.1234567, 8.9999999, 0, none},
        {"elevation, no time", QStringLiteral("8,53,12"), 53.0, 8.0, 12, none},
        {"elevation is an int", QStringLiteral("8,53,12.5"), 53.0, 8.0, 0, none},
        {"seconds", QStringLiteral("8,53,-1,1714564800"), 53.0, 8.0, -1, noon},
        {"empty time field is the epoch", QStringLiteral("8,53,0,"), 53.0, 8.0, 0, epoch},
        {"unreadable time field too", QStringLiteral("8,53,,now,x"), 53.0, 8.0, 0, epoch},
        {"more seconds than milliseconds fit", QStringLiteral("8,53,0,9223372036854775807"), 53.0, 8.0, 0, none},
        {"longitude only", QStringLiteral("8"), 0.0, 8.0, 0, none},
        {"nothing", {}, 0.0, 0.0, 0, none},
    };
    table.forEach(
        [](const QString &text, double latitude, double longitude, int elevation, const QDateTime &timeStamp) {
            const KRGPXTrackPoint point = KRGPXTrackPoint::decodeKml(text);
            QVERIFY(liesExactlyAt(point, latitude, longitude));
            QCOMPARE(point.elevation(), elevation);
            QCOMPARE(point.timeStamp(), timeStamp);
            QVERIFY(point.description().isEmpty());
        });
}

void tst_KRGPXTrackPoint::timesGrowWithEverySave()
{
    const KRGPXTrackPoint original(KRGeoPosition(53.0, 8.0), 0, noon, QString());
    const KRGPXTrackPoint again = KRGPXTrackPoint::decodeKml(original.toKml());
    QCOMPARE(again.timeStamp().toSecsSinceEpoch(), noon.toMSecsSinceEpoch());
    QCOMPARE(again.timeStamp().timeSpec(), Qt::LocalTime);
    // The third time there are more milliseconds than 64 bits hold.
    const KRGPXTrackPoint third = KRGPXTrackPoint::decodeKml(KRGPXTrackPoint::decodeKml(again.toKml()).toKml());
    QVERIFY(!third.timeStamp().isValid());
}

void tst_KRGPXTrackPoint::equality()
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

void tst_KRGPXTrackPoint::asElement()
{
    const KRGPXTrackPoint nullPoint;
    QVERIFY(liesExactlyAt(nullPoint, 0.0, 0.0) && nullPoint.isNull());
    const KRGPXTrackPoint point(KRGeoPosition(0.0, 1e-7), 5, noon, QString());
    QVERIFY(!point.isNull() && point.isSinglePoint());
    QCOMPARE(point.chunkedPoints(), QList<KRGeoPositionList>{KRGeoPositionList{point.position()}});
    QCOMPARE(point.allTimeStamps(), QList<QDateTime>{noon});
    QVERIFY(point.firstPoint() == point.position() && point.lastPoint() == point.position());
}

void tst_KRGPXTrackPoint::safeDouble()
{
    const KRTestTable<QString, double> table{
        {"seven decimals are kept", QStringLiteral("53.123456789"), 53.1234567},
        {"seven characters without a point", QStringLiteral("123456789"), 1234567.0},
        {"the sign is one of the seven", QStringLiteral("-123456789"), -123456.0},
        {"leading zeroes too", QStringLiteral("00000012"), 1.0},
        {"an exponent behind the seventh decimal is lost", QStringLiteral("1.23456789e-05"), 1.2345678},
        {"a nearer one counts", QStringLiteral("1.5e2"), 150.0},
        {"too large for a double", QStringLiteral("1e400"), 0.0},
    };
    table.forEach(
        [](const QString &text, double expected) { QVERIFY(KRGPXTrackElement::safeDouble(text) == expected); });
}

static const KRTestRegistration<tst_KRGPXTrackPoint> registration;

#include "tst_KRGPXTrackPoint.moc"
