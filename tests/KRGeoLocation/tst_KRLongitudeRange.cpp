#include <KRGeoLocation/KRLongitudeRange.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QDebug>
#include <QUrlQuery>
#include <QtTest>

#include <csignal>
#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

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
    void spawn();
    void isValid();
    void contains();
    void containsRange();
    void center();
    void containsItsCenter();
    void half();
    void expandTo();
    void rulesHoldThroughTheBase();
    void blowUp();
    void intersectsStopsTheProgram();
};

void tst_KRLongitudeRange::spawn()
{
    const KRTestTable<double, double, double, double> table{
        {"in order", -10.0, 20.0, -10.0, 20.0},
        {"reversed", 20.0, -10.0, -10.0, 20.0},
        {"across the date line", 170.0, -170.0, 170.0, -170.0},
        {"across the date line, reversed", -170.0, 170.0, 170.0, -170.0},
        {"same", 8.0, 8.0, 8.0, 8.0},
        // Intended: where both ways round are equally long, the second becomes the west.
        {"opposite", 0.0, 180.0, 180.0, 0.0},
        {"whole world", 180.0, -180.0, -180.0, 180.0},
        {"whole world as a line", -180.0, 180.0, 180.0, -180.0},
    };
    table.forEach([](double a, double b, double west, double east) {
        const KRLongitudeRange range = KRLongitudeRange::spawn(a, b);
        QCOMPARE(range.west().decimalDegrees(), west);
        QCOMPARE(range.east().decimalDegrees(), east);
    });
}

void tst_KRLongitudeRange::isValid()
{
    const KRTestTable<KRLongitudeRange, bool> table{
        {"whole world", KRLongitudeRange(-180.0, 180.0), true},
        {"across the date line", acrossDateLine, true},
        {"west out of range", KRLongitudeRange(-180.1, 0.0), false},
        {"east out of range", KRLongitudeRange(0.0, 180.1), false},
        {"unset", KRLongitudeRange(), false},
    };
    table.forEach([](const KRLongitudeRange &range, bool expected) { QCOMPARE(range.isValid(), expected); });
}

void tst_KRLongitudeRange::contains()
{
    const KRLongitudeRange plain(-10.0, 20.0);
    const KRTestTable<KRLongitudeRange, double, bool> table{
        {"western end", plain, -10.0, true},
        {"eastern end", plain, 20.0, true},
        {"within the tolerance of an end", plain, 20.0000005, true},
        {"east of it", plain, 20.1, false},
        {"west of it", plain, -10.1, false},
        {"date line: 180 is inside", acrossDateLine, 180.0, true},
        {"date line: -180 is inside", acrossDateLine, -180.0, true},
        {"date line: western side", acrossDateLine, 175.0, true},
        {"date line: eastern side", acrossDateLine, -175.0, true},
        {"date line: western end", acrossDateLine, 169.9999995, true},
        {"date line: eastern end", acrossDateLine, -169.9999995, true},
        {"date line: 0 is in the gap", acrossDateLine, 0.0, false},
        {"date line: just in the gap", acrossDateLine, 169.9, false},
    };
    table.forEach(
        [](const KRLongitudeRange &range, double value, bool expected) { QCOMPARE(range.contains(value), expected); });
}

void tst_KRLongitudeRange::containsRange()
{
    QVERIFY(acrossDateLine.contains(KRLongitudeRange(175.0, -175.0)));
    QVERIFY(acrossDateLine.contains(KRLongitudeRange(175.0, 179.0)));
    QVERIFY(!acrossDateLine.contains(KRLongitudeRange(160.0, -175.0)));
    QVERIFY(!KRLongitudeRange(-10.0, 20.0).contains(acrossDateLine));
}

void tst_KRLongitudeRange::center()
{
    const KRTestTable<KRLongitudeRange, double> table{
        {"plain", KRLongitudeRange(-10.0, 20.0), 5.0},
        {"on the date line", acrossDateLine, 180.0},
        {"west of the date line", KRLongitudeRange(160.0, -170.0), 175.0},
        {"east of the date line", KRLongitudeRange(170.0, -160.0), -175.0},
        {"all but the prime meridian's surroundings", KRLongitudeRange(10.0, -10.0), 180.0},
    };
    table.forEach(
        [](const KRLongitudeRange &range, double expected) { QCOMPARE(range.center().decimalDegrees(), expected); });
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

void tst_KRLongitudeRange::half()
{
    const KRTestTable<KRLongitudeRange, bool> table{
        {"across the date line", acrossDateLine, true},
        {"a single meridian", KRLongitudeRange(8.0, 8.0), true},
        {"almost half", KRLongitudeRange(-90.0, 89.9), true},
        // Intended: the name promises more than the rule, which asks for less than half a turn.
        {"exactly half", KRLongitudeRange(-90.0, 90.0), false},
        {"more than half", KRLongitudeRange(10.0, -10.0), false},
    };
    table.forEach([](const KRLongitudeRange &range, bool expected) {
        QCOMPARE(range.coversNoMoreThanHalfOfTheEarth(), expected);
    });
}

void tst_KRLongitudeRange::expandTo()
{
    const KRTestTable<KRLongitudeRange, double, KRLongitudeRange> table{
        {"unset", KRLongitudeRange(), 5.0, KRLongitudeRange(5.0, 5.0)},
        {"plain", KRLongitudeRange(-10.0, 20.0), 30.0, KRLongitudeRange(-10.0, 30.0)},
        // Intended: what does not cross the date line never starts to.
        {"never starts to cross", KRLongitudeRange(170.0, 175.0), -175.0, KRLongitudeRange(-175.0, 175.0)},
        {"crossing, eastern value", acrossDateLine, 160.0, KRLongitudeRange(160.0, -170.0)},
        {"crossing, western value", acrossDateLine, -160.0, KRLongitudeRange(170.0, -160.0)},
        {"crossing, 0 is eastern", acrossDateLine, 0.0, KRLongitudeRange(0.0, -170.0)},
        {"crossing, inside", acrossDateLine, 175.0, acrossDateLine},
    };
    table.forEach([](KRLongitudeRange range, double value, const KRLongitudeRange &expected) {
        range.expandTo(value);
        QVERIFY2(range == expected, qPrintable(range.toString(false)));
        QVERIFY(range.contains(value));
    });
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

void tst_KRLongitudeRange::blowUp()
{
    const KRTestTable<KRLongitudeRange, KRLongitudeRange> table{
        {"plain", KRLongitudeRange(-10.0, 20.0), KRLongitudeRange(-25.0, 35.0)},
        // Intended: it stops at the date line and does not wrap.
        {"up to the date line", KRLongitudeRange(-170.0, 170.0), KRLongitudeRange(-180.0, 180.0)},
        {"crossing", acrossDateLine, KRLongitudeRange(155.0, -155.0)},
    };
    table.forEach([](KRLongitudeRange range, const KRLongitudeRange &expected) {
        range.blowUp(15.0);
        QVERIFY2(range == expected, qPrintable(range.toString(false)));
    });
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
