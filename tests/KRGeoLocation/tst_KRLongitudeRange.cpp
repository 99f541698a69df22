#include <KRGeoLocation/KRLatitudeList.h>
#include <KRGeoLocation/KRLongitudeList.h>

#include "KRTest.h"

#include <cmath>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const KRLongitudeRange acrossDateLine(170.0, -170.0);

/// Leaves the end to the program itself when this is the message that must stop it.
void endUnlessExpected(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const bool isExpected =
        type == QtFatalMsg && qstrcmp(context.category, "default") == 0
        && qstrcmp(context.file, "libs/KRGeoLocation/KRLongitudeRange") == 0
        && qstrcmp(context.function, "virtual bool KRLongitudeRange::intersects(const KRRange<KRLongitude> &) const")
               == 0
        && message
               == QStringLiteral("Diese Funktion muss erst getestet werden, bevor man sie benutzen kann "
                                 "(implmentierung ist ungeprüft und wahrscheinlich falsch!");
    if (!isExpected)
        _exit(1);
}

} // namespace

/// Ranges and lists of longitudes, and of latitudes, which know no date line.
class tst_KRLongitudeRange : public QObject
{
    Q_OBJECT

private slots:
    void spawn()
    {
        const KRTestTable<double, double, double, double> table{
            {"in order", -10.0, 20.0, -10.0, 20.0},
            {"across the date line", 170.0, -170.0, 170.0, -170.0},
            // Intended: where both ways round are equally long, the second becomes the west.
            {"opposite", 0.0, 180.0, 180.0, 0.0},
            {"whole world", 180.0, -180.0, -180.0, 180.0},
            {"whole world as a line", -180.0, 180.0, 180.0, -180.0},
        };
        table.forEach([](double a, double b, double west, double east) {
            const KRLongitudeRange range = KRLongitudeRange::spawn(a, b);
            QCOMPARE(range.west().decimalDegrees(), west);
            QCOMPARE(range.east().decimalDegrees(), east);
            // Only where both ways round are equally long the order counts.
            QCOMPARE(range == KRLongitudeRange::spawn(b, a), std::abs(b - a) != 180.0 && std::abs(b - a) != 360.0);
        });
    }

    void isValid()
    {
        const KRTestTable<double, double, bool, bool> table{
            {"whole world", -180.0, 180.0, true, false},
            {"across the date line, upside down", 170.0, -170.0, true, false},
            {"beyond the last end", 0.0, 180.1, false, false},
            {"unset", 720.0, 720.0, false, false},
            {"upside down within the tolerance", 10.0000005, 10.0, true, true},
            {"beyond the north pole", 80.0, 90.1, true, false},
            {"beyond the south pole", -90.1, 80.0, true, false},
        };
        table.forEach([](double minimum, double maximum, bool asLongitudes, bool asLatitudes) {
            QCOMPARE(KRLongitudeRange(minimum, maximum).isValid(), asLongitudes);
            QCOMPARE(KRLatitudeRange(minimum, maximum).isValid(), asLatitudes);
        });
    }

    void contains()
    {
        const KRLongitudeRange plain(-10.0, 20.0);
        const KRTestTable<KRLongitudeRange, double, bool> table{
            {"eastern end", plain, 20.0, true},
            {"within the tolerance of an end", plain, 20.0000005, true},
            {"west of it", plain, -10.1, false},
            {"date line: 180 is inside", acrossDateLine, 180.0, true},
            {"date line: -180 is inside", acrossDateLine, -180.0, true},
            {"date line: western end", acrossDateLine, 169.9999995, true},
            {"date line: eastern end", acrossDateLine, -169.9999995, true},
            {"date line: just in the gap", acrossDateLine, 169.9, false},
        };
        table.forEach([](const KRLongitudeRange &range, double value, bool expected) {
            QCOMPARE(range.contains(value), expected);
        });
        QVERIFY(acrossDateLine.contains(KRLongitudeRange(175.0, -175.0)));
        QVERIFY(!acrossDateLine.contains(KRLongitudeRange(160.0, -175.0)));
        QVERIFY(!plain.contains(acrossDateLine));
    }

    void center()
    {
        const KRTestTable<KRLongitudeRange, double> table{
            {"plain", KRLongitudeRange(-10.0, 20.0), 5.0},
            {"on the date line", acrossDateLine, 180.0},
            {"west of the date line", KRLongitudeRange(160.0, -170.0), 175.0},
            {"east of the date line", KRLongitudeRange(170.0, -160.0), -175.0},
            {"all but the prime meridian's surroundings", KRLongitudeRange(10.0, -10.0), 180.0},
        };
        table.forEach([](const KRLongitudeRange &range, double expected) {
            QCOMPARE(range.center().decimalDegrees(), expected);
        });
        for (int west = -180; west <= 180; west += 15) {
            for (int east = -180; east <= 180; east += 15) {
                const KRLongitudeRange range(west, east);
                QVERIFY2(range.contains(range.center()), qPrintable(range.toString(false)));
                QVERIFY2(range.center().isInValidRange(), qPrintable(range.toString(false)));
            }
        }
    }

    void half()
    {
        QVERIFY(acrossDateLine.coversNoMoreThanHalfOfTheEarth());
        QVERIFY(KRLongitudeRange(8.0, 8.0).coversNoMoreThanHalfOfTheEarth());
        QVERIFY(!KRLongitudeRange(10.0, -10.0).coversNoMoreThanHalfOfTheEarth());
        // Intended: the name promises more than the rule, which asks for less than half a turn.
        QVERIFY(!KRLongitudeRange(-90.0, 90.0).coversNoMoreThanHalfOfTheEarth());
    }

    void expandTo()
    {
        const KRTestTable<KRLongitudeRange, double, KRLongitudeRange> table{
            {"unset", KRLongitudeRange(), 5.0, KRLongitudeRange(5.0, 5.0)},
            // Intended: what does not cross the date line never starts to.
            {"never starts to cross", KRLongitudeRange(170.0, 175.0), -175.0, KRLongitudeRange(-175.0, 175.0)},
            {"crossing, eastern value", acrossDateLine, 160.0, KRLongitudeRange(160.0, -170.0)},
            {"crossing, western value", acrossDateLine, -160.0, KRLongitudeRange(170.0, -160.0)},
            {"crossing, 0 is eastern", acrossDateLine, 0.0, KRLongitudeRange(0.0, -170.0)},
            {"crossing, inside", acrossDateLine, 175.0, acrossDateLine},
        };
        table.forEach([](KRLongitudeRange range, double value, const KRLongitudeRange &expected) {
            KRRange<KRLongitude> &base = range; // whose callers know nothing of date lines
            base.expandTo(value);
            QVERIFY2(range == expected, qPrintable(range.toString(false)));
            QVERIFY(base.isValid() && base.contains(value) && base.contains(base.center()));
        });
    }

    void blowUp()
    {
        KRLongitudeRange crossing = acrossDateLine;
        crossing.blowUp(15.0);
        QVERIFY(crossing == KRLongitudeRange(155.0, -155.0));
        // Intended: it stops at the date line and does not wrap.
        KRLongitudeRange wide(-170.0, 20.0);
        wide.blowUp(15.0);
        QVERIFY(wide == KRLongitudeRange(-180.0, 35.0));
    }

    void latitudes()
    {
        QVERIFY(KRLatitudeRange::spawn(10, -5) == KRLatitudeRange(-5, 10));
        KRLatitudeRange range;
        QVERIFY(range.isNull());
        for (const double latitude : {5.0, -7.0, 0.0})
            range.expandTo(latitude);
        QVERIFY(range == KRLatitudeRange(-7.0, 5.0));
        QCOMPARE(range.center().decimalDegrees(), -1.0);
        QVERIFY(range.contains(5.0000005) && range.contains(-7.0000005) && !range.contains(5.00001));
        QVERIFY(range.intersects(KRLatitudeRange(4.0, 20.0)) && !range.intersects(KRLatitudeRange(6.0, 20.0)));
        // Valid comes before invalid also where a derived range says what is valid.
        QVERIFY(range < KRLatitudeRange(-100.0, 0.0));

        const KRTestTable<double, double, double> table{
            {"not beyond the pole", 5.0, 75.0, 90.0},
            {"nowhere beyond", 200.0, -90.0, 90.0},
        };
        table.forEach([](double margin, double south, double north) {
            KRLatitudeRange blownUp(80.0, 89.0);
            blownUp.blowUp(margin);
            QVERIFY(blownUp == KRLatitudeRange(south, north));
        });
    }

    void unreadable()
    {
        QVERIFY(KRLatitudeRange::parse(QUrlQuery()) == KRLatitudeRange());
        const KRLatitudeRange half = KRLatitudeRange::parse(QStringLiteral("S5"), QStringLiteral("ten"));
        QVERIFY(half == KRLatitudeRange(-5.0, KRGeoArc::invalidDegrees));
        // A percent sign that was encoded twice stays encoded once, and that is no number.
        QUrlQuery encodedTwice(QStringLiteral("latitude_min=1&latitude_max=%252B5"));
        QCOMPARE(KRLatitudeRange::parse(encodedTwice).north().decimalDegrees(), KRGeoArc::invalidDegrees);
    }

    void boundsAndAverages()
    {
        constexpr double invalid = KRGeoArc::invalidDegrees;
        // the values, their smallest and largest, and their average
        const KRTestTable<QList<double>, double, double, double> table{
            {"empty", QList<double>{}, invalid, invalid, invalid},
            {"bounds ignore the tolerance", QList<double>{10.0, 10.0000004, 9.9999996}, 9.9999996, 10.0000004, 10.0},
            {"no wrap", QList<double>{170.0, -170.0, -60.0}, -170.0, 170.0, -20.0},
        };
        table.forEach([](const QList<double> &values, double smallest, double largest, double average) {
            KRLatitudeList latitudes;
            KRLongitudeList longitudes;
            for (const double value : values) {
                latitudes.append(value);
                longitudes.append(value);
            }
            QCOMPARE(latitudes.southernBound().decimalDegrees(), smallest);
            QCOMPARE(latitudes.northernBound().decimalDegrees(), largest);
            QCOMPARE(latitudes.average().decimalDegrees(), average);
            QVERIFY(latitudes.range() == KRLatitudeRange(smallest, largest));
            QCOMPARE(longitudes.westernBound().decimalDegrees(), smallest);
            QCOMPARE(longitudes.easternBound().decimalDegrees(), largest);
            QCOMPARE(longitudes.average().decimalDegrees(), average);
            QVERIFY(longitudes.naiveRange() == KRLongitudeRange(smallest, largest));
        });
    }

    void hemispheres()
    {
        const KRLongitudeList longitudes = {-1, 0, 180, -180, 8, -179, 190};
        QCOMPARE(longitudes.onlyEasternHemisphere(), (KRLongitudeList{0, 180, -180, 8}));
        QCOMPARE(longitudes.onlyWesternHemisphere(), (KRLongitudeList{-1, -179, 190}));
    }

    void effectiveRange()
    {
        const KRTestTable<KRLongitudeList, double, double> table{
            {"around the date line", KRLongitudeList{170, 175, -175, -170}, 170.0, -170.0},
            {"averages half a turn apart", KRLongitudeList{90, -90}, -90.0, 90.0},
            {"a little more", KRLongitudeList{91, -90}, 91.0, -90.0},
            {"only eastern ones", KRLongitudeList{0, 180, -180, 8}, -180.0, 180.0},
            // Intended: -180 is an eastern longitude, and the smallest of these; 175 and 179 are left out.
            {"-180 among the eastern ones", KRLongitudeList{175, 179, -180, -179}, -180.0, -179.0},
            {"empty", KRLongitudeList(), KRGeoArc::invalidDegrees, KRGeoArc::invalidDegrees},
        };
        table.forEach([](const KRLongitudeList &longitudes, double west, double east) {
            const KRLongitudeRange range = longitudes.effectiveRange();
            QCOMPARE(range.west().decimalDegrees(), west);
            QCOMPARE(range.east().decimalDegrees(), east);
        });
    }

    void intersectsStopsTheProgram()
    {
        const pid_t child = fork();
        if (child == 0) {
            std::signal(SIGABRT, SIG_DFL); // Qt Test would print a report of its own
            qInstallMessageHandler(endUnlessExpected);
            acrossDateLine.intersects(acrossDateLine);
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        QVERIFY(WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT);
    }
};

template class KRTestRegistration<tst_KRLongitudeRange>;

#include "tst_KRLongitudeRange.moc"
