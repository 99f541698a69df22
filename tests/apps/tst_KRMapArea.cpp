#include "KRMapArea.h"

#include "KRTest.h"
#include "KRTestMap.h"
#include "KRTestTrack.h"

using Positions = QList<KRGeoPosition>;
using KRTestTrack::segment;

class tst_KRMapArea : public QObject
{
    Q_OBJECT

private slots:
    void covered()
    {
        const KRTestTable<Positions, KRTestMap> table{
            {"across Greenwich", {{51.0, -1.0}, {50.0, 2.0}}, {50.0, 51.0, -1.0, 2.0}},
            {"east over the date line",
             {{-18.1, 178.4}, {-15.0, -179.0}, {-13.8, -171.8}},
             {-18.1, -13.8, 178.4, -171.8}},
            {"the long way when it was walked",
             {{0.0, 170.0}, {0.0, 60.0}, {1.0, -60.0}, {0.0, -170.0}},
             {0.0, 1.0, -170.0, 170.0}},
            {"round the world",
             {{1.0, 0.0}, {1.0, 100.0}, {1.0, -160.0}, {1.0, -80.0}, {1.0, 0.0}},
             {1.0, 1.0, -180.0, 180.0}},
            {"one place", {{53.14, 8.21}}, {53.14, 53.14, 8.21, 8.21}},
            {"invalid positions do not count",
             {{53.0, 8.0}, KRGeoPosition(), KRGeoPosition(0.0, 0.0), {54.0, 9.0}},
             {53.0, 54.0, 8.0, 9.0}},
        };
        table.forEach([](const Positions &positions, const KRTestMap &expected) {
            KRMapArea area;
            area.add(segment(positions));
            QVERIFY(area.covered().isValid());
            QCOMPARE(area.covered(), expected.area());
        });

        KRMapArea apart;
        apart.add(segment({{-18.0, 178.0}}));
        apart.add(segment({{-14.0, -172.0}}));
        QCOMPARE(apart.covered(), (KRTestMap{-18.0, -14.0, 178.0, -172.0}.area()));

        KRMapArea nothing;
        QVERIFY(!nothing.covered().isValid());
        nothing.add(segment({{qQNaN(), 8.0}, {53.0, qQNaN()}, {1e300, 1e300}}));
        QVERIFY(!nothing.covered().isValid() && !nothing.padded().isValid());
    }

    void padding()
    {
        const KRTestTable<Positions, double, double> table{
            {"over the date line", {{0.0, 179.0}, {1.0, -171.0}}, 178.0, -170.0},
            {"into the date line", {{0.5, 160.0}, {1.0, 179.9}}, 158.01, -178.11},
            {"no more than the world", {{0.5, -175.0}, {1.0, 0.0}, {2.0, 175.0}}, -180.0, 180.0},
            {"around one place", {{53.0, 8.0}}, 7.75, 8.25},
            {"around a few steps", {{53.0, 8.0}, {53.0, 8.0002}}, 7.998, 8.0022},
        };
        table.forEach([&](const Positions &positions, double west, double east) {
            KRMapArea area;
            area.add(segment(positions));
            const KRGeoPositionRect padded = area.padded();
            QVERIFY(padded.isValid());
            QVERIFY(padded.south() < padded.north());
            QVERIFY2(qAbs(padded.west().decimalDegrees() - west) < 1e-9, qPrintable(padded.toString(false)));
            QVERIFY2(qAbs(padded.east().decimalDegrees() - east) < 1e-9, qPrintable(padded.toString(false)));
        });
    }

    void parse()
    {
        const KRTestTable<const char *, bool> table{
            {"decimal corners", "N53.5 E8.0 .. N53.0 E9.0", true},
            {"degrees, minutes, seconds", "53,30,0N;8,0,0E .. 53,0,0N;9,0,0E", true},
            {"over the date line", "S10 E170 .. S20 W170", true},
            {"from pole to pole", "N90 W180 .. S90 E180", true},
            {"nothing but a pole", "N90 E8 .. N86 E9", false},
            {"corners the wrong way round", "N53.0 E8.0 .. N53.5 E9.0", false},
            {"no width", "N53.5 E8.0 .. N53.0 E8.0", false},
            {"out of the world", "N99 E8.0 .. N53.0 E9.0", false},
            {"not a number", "Nnan E8.0 .. N53.0 E9.0", false},
        };
        table.forEach([&](const char *text, bool isValid) {
            const KRGeoPositionRect area = KRMapArea::parse(QString::fromUtf8(text));
            QCOMPARE(area.isValid(), isValid);
            QVERIFY(!area.isValid() || area.north().decimalDegrees() <= KRMapArea::maximumLatitude);
        });
    }
};

template class KRTestRegistration<tst_KRMapArea>;

#include "tst_KRMapArea.moc"
