#include <KRGeoLocation/KRGeoPositionRect.h>

#include "KRTest.h"

#include <KRGeoLocation/KRGeoPositionSpan.h>

namespace {

KRGeoPositionRect rect(double south, double north, double west, double east)
{
    return KRGeoPositionRect(KRLatitudeRange(south, north), KRLongitudeRange(west, east));
}

} // namespace

class tst_KRGeoPositionRect : public QObject
{
    Q_OBJECT

private slots:
    void corners()
    {
        const KRGeoPosition northEast(60.0, 30.0);
        const KRGeoPosition southWest(40.0, -10.0);
        QCOMPARE(KRGeoPositionRect::spawn(northEast, southWest), KRGeoPositionRect::europeanUnion());
        QCOMPARE(KRGeoPositionRect(southWest, northEast), KRGeoPositionRect::europeanUnion());
        // Taken as given: upside down and the long way round.
        const KRGeoPositionRect reversed(northEast, southWest);
        QVERIFY(!reversed.isValid());
        QCOMPARE(reversed.northWest().toPointF(), QPointF(30.0, 40.0));
        QCOMPARE(reversed.southEast().toPointF(), QPointF(-10.0, 60.0));
    }

    void isValid()
    {
        const KRTestTable<KRGeoPositionRect, bool> table{
            {"unset", KRGeoPositionRect(), false},
            {"crosses the date line", rect(10, 20, 170, -170), true},
            {"east out of range", rect(10, 20, 170, 190), false},
            // Unlike the position, the area at (0, 0) is one.
            {"null island", rect(0, 0, 0, 0), true},
        };
        table.forEach([](const KRGeoPositionRect &area, bool expected) {
            QCOMPARE(area.isValid(), expected);
            if (!expected) {
                KRGeoPositionRect grown = rect(53, 54, 8, 9);
                grown.expandTo(area);
                QCOMPARE(grown, rect(53, 54, 8, 9));
            }
        });

        // Only the very default is the default, up to the tolerance.
        QVERIFY(rect(40.0000005, 60, -10, 30).isDefault());
        for (const KRGeoPositionRect &other :
             {rect(40.1, 60, -10, 30), rect(40, 60.1, -10, 30), rect(40, 60, -10.1, 30), rect(40, 60, -10, 30.1)}) {
            QVERIFY(!other.isDefault());
            QVERIFY(other != KRGeoPositionRect::europeanUnion());
        }
    }

    void acrossTheDateLine()
    {
        const KRGeoPositionRect area = KRGeoPositionRect::spawn(KRGeoPosition(10, 170), KRGeoPosition(20, -170));
        QCOMPARE(area, rect(10, 20, 170, -170));
        QCOMPARE(area.center(), KRGeoPosition(15, 180));
        const KRTestTable<KRGeoPositionRect, bool> table{
            {"inside", rect(12, 18, 175, -175), true},        {"too far north", rect(12, 21, 175, -175), false},
            {"too far south", rect(9, 18, 175, -175), false}, {"too far west", rect(12, 18, 165, -175), false},
            {"too far east", rect(12, 18, 175, -165), false},
        };
        table.forEach([&area](const KRGeoPositionRect &other, bool expected) {
            QCOMPARE(area.contains(other), expected);
            QCOMPARE(area.contains(other.northWest()) && area.contains(other.southEast()), expected);
        });
    }

    void maxExtension()
    {
        const KRTestTable<KRGeoPositionRect, double, bool> table{
            {"wide", KRGeoPositionRect::europeanUnion(), 40.0, false},
            // Intended: the long way round for an area across the date line.
            {"across the date line", rect(10, 20, 170, -170), 340.0, false},
            {"very small", rect(1, 1.5, 0, 0.75), 0.75, true},
            {"unset", KRGeoPositionRect(), 0.0, true},
        };
        table.forEach([](const KRGeoPositionRect &area, double degrees, bool isVerySmall) {
            QCOMPARE(area.maxExtension().decimalDegrees(), degrees);
            QCOMPARE(area.isVerySmall(), isVerySmall);
        });
    }

    void growsFromNothing()
    {
        KRGeoPositionRect area;
        area.expandTo(KRGeoPosition(53, 8));
        QCOMPARE(area, rect(53, 53, 8, 8));
        for (const KRGeoPosition &position :
             {KRGeoPosition(-20, -60), KRGeoPosition(0, 30), KRGeoPosition(), KRGeoPosition::null()})
            area.expandTo(position);
        QCOMPARE(area, rect(-20, 53, -60, 30));
        QCOMPARE(rect(88, 89, 178, 179).blownUp(5), rect(83, 90, 173, 180));

        // Many at once are the same as one by one, also where the least and the greatest of them do not tell.
        const QVector<double> latitudes{5, 5, 5};
        const QVector<double> longitudes{10, -10, 100};
        KRGeoPositionRect crossing = rect(0, 10, 170, -170);
        crossing.expandTo(KRGeoPositionSpan{latitudes.constData(), longitudes.constData(), 3});
        QCOMPARE(crossing, rect(0, 10, 10, -10));
    }

    void sum()
    {
        const KRTestTable<KRGeoPositionRect, KRGeoPositionRect, KRGeoPositionRect> table{
            {"nothing and something", KRGeoPositionRect(), rect(5, 20, -5, 5), rect(5, 20, -5, 5)},
            {"crossing grows to both sides", rect(0, 10, 170, -170), rect(0, 10, 160, -160), rect(0, 10, 160, -160)},
            // Intended: what does not cross the date line never starts to.
            {"never starts to cross", rect(0, 10, 170, 175), rect(0, 10, 175, -175), rect(0, 10, -175, 175)},
        };
        table.forEach([](const KRGeoPositionRect &a, const KRGeoPositionRect &b, const KRGeoPositionRect &expected) {
            QCOMPARE(a + b, expected);
        });
    }

    void withPadding()
    {
        const KRTestTable<KRGeoPositionRect, double, KRGeoPositionRect> table{
            {"same margin on all sides", KRGeoPositionRect::europeanUnion(), 10.0, rect(36, 64, -14, 34)},
            {"a point", rect(53, 53, 8, 8), 10.0, rect(52.9, 53.1, 7.9, 8.1)},
            {"a point without padding", rect(53, 53, 8, 8), 0.0, rect(53, 53, 8, 8)},
            {"invalid", rect(60, 50, 0, 20), 10.0, rect(60, 50, 0, 20)},
        };
        table.forEach([](const KRGeoPositionRect &area, double percentage, const KRGeoPositionRect &expected) {
            QCOMPARE(area.withPadding(percentage), expected);
        });
    }

    void toReasonableSize()
    {
        const KRTestTable<KRGeoPositionRect, KRGeoPositionRect> table{
            {"a point", rect(53, 53, 8, 8), rect(52, 54, 7, 9)},
            {"a degree", rect(53, 53, 8, 9), rect(53, 53, 8, 9)},
            // Intended: an unset area has no extent, and its ends are clamped.
            {"unset", KRGeoPositionRect(), rect(90, 90, 180, 180)},
        };
        table.forEach([](const KRGeoPositionRect &area, const KRGeoPositionRect &expected) {
            QCOMPARE(area.toReasonableSize(), expected);
        });
    }

    void urlQuery()
    {
        const KRGeoPositionRect area = rect(-10, 20, 170, -170.5);
        QUrlQuery query;
        area.writeTo(query);
        QStringList keys;
        for (const auto &item : query.queryItems())
            keys += item.first;
        QCOMPARE(keys.join(QLatin1Char(' ')), QStringLiteral("latitude_max latitude_min longitude_max longitude_min"));
        QCOMPARE(KRGeoPositionRect::parse(query), area);
        query.removeQueryItem(QStringLiteral("longitude_min"));
        QCOMPARE(KRGeoPositionRect::parse(query), rect(-10, 20, KRGeoArc::invalidDegrees, -170.5));
    }

    void texts()
    {
        const KRGeoPositionRect area = rect(-10, 20, 5, 6.5);
        QCOMPARE(area.toString(true), QStringLiteral("10° 0′ 0″ Süd - 20° 0′ 0″ Nord ; 5° 0′ 0″ Ost - 6° 30′ 0″ Ost"));
        QCOMPARE(area.toString(false), QStringLiteral("S10.00000000 - N20.00000000 ; E5.00000000 - E6.50000000"));
        QString text;
        QDebug(&text) << area;
        QCOMPARE(text, QStringLiteral("Lat:  S10.00000000 - N20.00000000  ; Lon: E5.00000000 - E6.50000000 "));
    }
};

template class KRTestRegistration<tst_KRGeoPositionRect>;

#include "tst_KRGeoPositionRect.moc"
