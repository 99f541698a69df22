#include <KRGeoLocation/KRLongitudeRange.h>

#include "KRTestRegistry.h"

#include <QDebug>
#include <QUrlQuery>
#include <QtTest>

#include <csignal>
#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

Q_DECLARE_METATYPE(KRLongitudeRange)

namespace {

const KRLongitudeRange acrossDateLine(170.0, -170.0);

void printWithContext(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    std::fprintf(stderr, "%d|%s|%s|%s|%s", int(type), context.category, context.file, context.function,
                 qUtf8Printable(message));
    std::fflush(stderr);
}

/// Runs @p function in a child process; what it wrote to stderr, then "|signal" and the signal that ended it.
template <typename Function>
QString outputOfChild(const Function &function)
{
    int channel[2];
    if (pipe(channel) != 0)
        return QString();
    const pid_t child = fork();
    if (child == 0) {
        // Qt Test would print a report of its own for the signal.
        std::signal(SIGABRT, SIG_DFL);
        dup2(channel[1], STDERR_FILENO);
        close(channel[0]);
        qInstallMessageHandler(printWithContext);
        function();
        _exit(0);
    }
    close(channel[1]);
    QFile reader;
    const bool isOpen = reader.open(channel[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    const QByteArray output = isOpen ? reader.readAll() : QByteArray();
    int status = 0;
    waitpid(child, &status, 0);
    return QString::fromUtf8(output) + QStringLiteral("|signal %1").arg(WIFSIGNALED(status) ? WTERMSIG(status) : 0);
}

} // namespace

class tst_KRLongitudeRange : public QObject
{
    Q_OBJECT

private slots:
    void spawn_data();
    void spawn();
    void isValid_data();
    void isValid();
    void contains_data();
    void contains();
    void containsRange();
    void center_data();
    void center();
    void containsItsCenter();
    void half_data();
    void half();
    void expandTo_data();
    void expandTo();
    void rulesHoldThroughTheBase();
    void blowUp_data();
    void blowUp();
    void urlQuery();
    void texts();
    void intersectsStopsTheProgram();
};

void tst_KRLongitudeRange::spawn_data()
{
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<double>("west");
    QTest::addColumn<double>("east");
    QTest::newRow("in order") << -10.0 << 20.0 << -10.0 << 20.0;
    QTest::newRow("reversed") << 20.0 << -10.0 << -10.0 << 20.0;
    QTest::newRow("across the date line") << 170.0 << -170.0 << 170.0 << -170.0;
    QTest::newRow("across the date line, reversed") << -170.0 << 170.0 << 170.0 << -170.0;
    QTest::newRow("same") << 8.0 << 8.0 << 8.0 << 8.0;
    // Intended: where both ways round are equally long, the second becomes the west.
    QTest::newRow("opposite") << 0.0 << 180.0 << 180.0 << 0.0;
    QTest::newRow("whole world") << 180.0 << -180.0 << -180.0 << 180.0;
    QTest::newRow("whole world as a line") << -180.0 << 180.0 << 180.0 << -180.0;
}

void tst_KRLongitudeRange::spawn()
{
    QFETCH(double, a);
    QFETCH(double, b);
    const KRLongitudeRange range = KRLongitudeRange::spawn(a, b);
    QTEST(range.west().decimalDegrees(), "west");
    QTEST(range.east().decimalDegrees(), "east");
}

void tst_KRLongitudeRange::isValid_data()
{
    QTest::addColumn<KRLongitudeRange>("range");
    QTest::addColumn<bool>("expected");
    QTest::newRow("whole world") << KRLongitudeRange(-180.0, 180.0) << true;
    QTest::newRow("across the date line") << acrossDateLine << true;
    QTest::newRow("west out of range") << KRLongitudeRange(-180.1, 0.0) << false;
    QTest::newRow("east out of range") << KRLongitudeRange(0.0, 180.1) << false;
    QTest::newRow("unset") << KRLongitudeRange() << false;
}

void tst_KRLongitudeRange::isValid()
{
    QFETCH(KRLongitudeRange, range);
    QTEST(range.isValid(), "expected");
}

void tst_KRLongitudeRange::contains_data()
{
    QTest::addColumn<KRLongitudeRange>("range");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("expected");
    const KRLongitudeRange plain(-10.0, 20.0);
    QTest::newRow("western end") << plain << -10.0 << true;
    QTest::newRow("eastern end") << plain << 20.0 << true;
    QTest::newRow("within the tolerance of an end") << plain << 20.0000005 << true;
    QTest::newRow("east of it") << plain << 20.1 << false;
    QTest::newRow("west of it") << plain << -10.1 << false;
    QTest::newRow("date line: 180 is inside") << acrossDateLine << 180.0 << true;
    QTest::newRow("date line: -180 is inside") << acrossDateLine << -180.0 << true;
    QTest::newRow("date line: western side") << acrossDateLine << 175.0 << true;
    QTest::newRow("date line: eastern side") << acrossDateLine << -175.0 << true;
    QTest::newRow("date line: western end") << acrossDateLine << 169.9999995 << true;
    QTest::newRow("date line: eastern end") << acrossDateLine << -169.9999995 << true;
    QTest::newRow("date line: 0 is in the gap") << acrossDateLine << 0.0 << false;
    QTest::newRow("date line: just in the gap") << acrossDateLine << 169.9 << false;
}

void tst_KRLongitudeRange::contains()
{
    QFETCH(KRLongitudeRange, range);
    QFETCH(double, value);
    QTEST(range.contains(value), "expected");
}

void tst_KRLongitudeRange::containsRange()
{
    QVERIFY(acrossDateLine.contains(KRLongitudeRange(175.0, -175.0)));
    QVERIFY(acrossDateLine.contains(KRLongitudeRange(175.0, 179.0)));
    QVERIFY(!acrossDateLine.contains(KRLongitudeRange(160.0, -175.0)));
    QVERIFY(!KRLongitudeRange(-10.0, 20.0).contains(acrossDateLine));
}

void tst_KRLongitudeRange::center_data()
{
    QTest::addColumn<KRLongitudeRange>("range");
    QTest::addColumn<double>("expected");
    QTest::newRow("plain") << KRLongitudeRange(-10.0, 20.0) << 5.0;
    QTest::newRow("on the date line") << acrossDateLine << 180.0;
    QTest::newRow("west of the date line") << KRLongitudeRange(160.0, -170.0) << 175.0;
    QTest::newRow("east of the date line") << KRLongitudeRange(170.0, -160.0) << -175.0;
    QTest::newRow("all but the prime meridian's surroundings") << KRLongitudeRange(10.0, -10.0) << 180.0;
}

void tst_KRLongitudeRange::center()
{
    QFETCH(KRLongitudeRange, range);
    QTEST(range.center().decimalDegrees(), "expected");
}

void tst_KRLongitudeRange::containsItsCenter()
{
    for (int west = -180; west <= 180; west += 15) {
        for (int east = -180; east <= 180; east += 15) {
            const KRLongitudeRange range(west, east);
            QVERIFY2(range.contains(range.center()), qPrintable(range.toString(false)));
            QVERIFY2(range.center().isInValidRange(), qPrintable(range.toString(false)));
        }
    }
}

void tst_KRLongitudeRange::half_data()
{
    QTest::addColumn<KRLongitudeRange>("range");
    QTest::addColumn<bool>("expected");
    QTest::newRow("across the date line") << acrossDateLine << true;
    QTest::newRow("a single meridian") << KRLongitudeRange(8.0, 8.0) << true;
    QTest::newRow("almost half") << KRLongitudeRange(-90.0, 89.9) << true;
    // Intended: the name promises more than the rule, which asks for less than half a turn.
    QTest::newRow("exactly half") << KRLongitudeRange(-90.0, 90.0) << false;
    QTest::newRow("more than half") << KRLongitudeRange(10.0, -10.0) << false;
}

void tst_KRLongitudeRange::half()
{
    QFETCH(KRLongitudeRange, range);
    QTEST(range.coversNoMoreThanHalfOfTheEarth(), "expected");
}

void tst_KRLongitudeRange::expandTo_data()
{
    QTest::addColumn<KRLongitudeRange>("range");
    QTest::addColumn<double>("value");
    QTest::addColumn<KRLongitudeRange>("expected");
    QTest::newRow("unset") << KRLongitudeRange() << 5.0 << KRLongitudeRange(5.0, 5.0);
    QTest::newRow("plain") << KRLongitudeRange(-10.0, 20.0) << 30.0 << KRLongitudeRange(-10.0, 30.0);
    // Intended: what does not cross the date line never starts to.
    QTest::newRow("never starts to cross")
        << KRLongitudeRange(170.0, 175.0) << -175.0 << KRLongitudeRange(-175.0, 175.0);
    QTest::newRow("crossing, eastern value") << acrossDateLine << 160.0 << KRLongitudeRange(160.0, -170.0);
    QTest::newRow("crossing, western value") << acrossDateLine << -160.0 << KRLongitudeRange(170.0, -160.0);
    QTest::newRow("crossing, 0 is eastern") << acrossDateLine << 0.0 << KRLongitudeRange(0.0, -170.0);
    QTest::newRow("crossing, inside") << acrossDateLine << 175.0 << acrossDateLine;
}

void tst_KRLongitudeRange::expandTo()
{
    QFETCH(KRLongitudeRange, range);
    QFETCH(double, value);
    QFETCH(KRLongitudeRange, expected);
    range.expandTo(value);
    QVERIFY2(range == expected, qPrintable(range.toString(false)));
    QVERIFY(range.contains(value));
}

void tst_KRLongitudeRange::rulesHoldThroughTheBase()
{
    KRLongitudeRange range = acrossDateLine;
    KRRange<KRLongitude> &base = range;
    base.expandTo(160.0);
    QVERIFY(base.contains(165.0));
    QVERIFY(base.isValid());
    QCOMPARE(base.center().decimalDegrees(), 175.0);
}

void tst_KRLongitudeRange::blowUp_data()
{
    QTest::addColumn<KRLongitudeRange>("range");
    QTest::addColumn<KRLongitudeRange>("expected");
    QTest::newRow("plain") << KRLongitudeRange(-10.0, 20.0) << KRLongitudeRange(-25.0, 35.0);
    // Intended: it stops at the date line and does not wrap.
    QTest::newRow("up to the date line") << KRLongitudeRange(-170.0, 170.0) << KRLongitudeRange(-180.0, 180.0);
    QTest::newRow("crossing") << acrossDateLine << KRLongitudeRange(155.0, -155.0);
}

void tst_KRLongitudeRange::blowUp()
{
    QFETCH(KRLongitudeRange, range);
    QFETCH(KRLongitudeRange, expected);
    range.blowUp(15.0);
    QVERIFY2(range == expected, qPrintable(range.toString(false)));
}

void tst_KRLongitudeRange::urlQuery()
{
    QUrlQuery query;
    acrossDateLine.writeTo(query);
    QCOMPARE(query.toString(),
             QStringLiteral("longitude_max=-170.0000000000000000&longitude_min=170.0000000000000000"));
    QVERIFY(KRLongitudeRange::parse(query) == acrossDateLine);
    QVERIFY(KRLongitudeRange::parse(QUrlQuery()) == KRLongitudeRange());
    QVERIFY(KRLongitudeRange::parse(QStringLiteral("E170"), QStringLiteral("W170")) == acrossDateLine);
}

void tst_KRLongitudeRange::texts()
{
    const KRLongitudeRange range(-10.5, 20.0);
    QCOMPARE(range.toString(true), QStringLiteral("10° 30′ 0″ West - 20° 0′ 0″ Ost"));
    QCOMPARE(range.toString(false), QStringLiteral("W10.50000000 - E20.00000000"));
    QString text;
    QDebug(&text) << range << KRLongitudeRange();
    QCOMPARE(text, QStringLiteral("W10.50000000 - E20.00000000  -  "));
}

void tst_KRLongitudeRange::intersectsStopsTheProgram()
{
    const QString expected = QStringLiteral(
        "%1|default|libs/KRGeoLocation/KRLongitudeRange|"
        "virtual bool KRLongitudeRange::intersects(const KRRange<KRLongitude> &) const|"
        "Diese Funktion muss erst getestet werden, bevor man sie benutzen kann (implmentierung ist ungeprüft und "
        "wahrscheinlich falsch!|signal %2");
    const QString output = outputOfChild([] { return acrossDateLine.intersects(acrossDateLine); });
    QCOMPARE(output, expected.arg(int(QtFatalMsg)).arg(SIGABRT));
}

static const KRTestRegistration<tst_KRLongitudeRange> registration;

#include "tst_KRLongitudeRange.moc"
