#include <KRGeoLocation/KRGPXTimeReader.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <KRCore/KRInputLimits.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QRandomGenerator>
#include <QtTest>

namespace {

// Rules instead of names, for which a system may have no tables.
constexpr char utc[] = "UTC0";
constexpr char berlin[] = "CET-1CEST,M3.5.0,M10.5.0/3";
constexpr char newYork[] = "EST5EDT,M3.2.0,M11.1.0";
constexpr char lordHowe[] = "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0"; // changes by half an hour
constexpr char beirut[] = "EET-2EEST,M3.5.0/0,M10.5.0/0"; // changes at midnight

/// The zone of the system for as long as this lives.
class Zone
{
public:
    explicit Zone(const char *rule) : m_before(qgetenv("TZ")) { qputenv("TZ", rule); }
    ~Zone()
    {
        if (m_before.isNull())
            qunsetenv("TZ");
        else
            qputenv("TZ", m_before);
    }
    Q_DISABLE_COPY(Zone)

private:
    const QByteArray m_before;
};

/// Texts that are times in most cases, many of them near a change of the clocks.
class TimeMaker
{
public:
    QString made()
    {
        const QByteArray date = below(4) == 0 ? number(10000, 4) + '-' + number(14, 2) + '-' + number(33, 2)
                                              : years.at(below(years.size())) + days.at(below(days.size()));
        const QByteArray clock =
            number(below(20) == 0 ? 27 : 24, 2) + ':' + number(below(50) == 0 ? 62 : 60, 2) + ':' + number(60, 2);
        QByteArray text = date + (below(10) == 0 ? ' ' : 'T') + clock;
        if (below(2) == 0) {
            text += below(20) == 0 ? ',' : '.';
            for (int i = below(8) == 0 ? below(13) : 1 + below(9); i > 0; --i)
                text += fractionDigits.at(below(fractionDigits.size()));
        }
        text += suffix();
        if (below(10) == 0)
            text[below(text.size())] = odd.at(below(odd.size()));
        if (below(20) == 0)
            text = text.left(below(text.size() + 1));
        return QString::fromUtf8(below(20) == 0 ? " \n" + text + "\xC2\xA0\t" : text);
    }

private:
    int below(int limit) { return m_random.bounded(limit); }
    QByteArray number(int limit, int digits) { return QByteArray::number(below(limit)).rightJustified(digits, '0'); }

    QByteArray suffix()
    {
        const QByteArray sign = below(2) == 0 ? "+" : "-";
        const QByteArray hours = number(below(10) == 0 ? 100 : 16, 2);
        switch (below(8)) {
        case 0:
            return below(10) == 0 ? "z" : "Z";
        case 1:
            return sign + hours + ':' + number(below(10) == 0 ? 100 : 60, 2);
        case 2:
            return sign + hours + number(60, 2);
        case 3:
            return sign + hours;
        case 4:
            return sign + "00:00";
        default:
            return QByteArray();
        }
    }

    const QList<QByteArray> years{"1969", "1970", "1971", "2007", "2024", "2024", "2036", "2037", "2038"};
    const QList<QByteArray> days{"-01-01", "-03-29", "-03-30", "-03-31", "-04-06", "-04-07",
                                 "-07-05", "-10-05", "-10-06", "-10-26", "-10-27", "-10-28"};
    const QByteArray fractionDigits = "0123456789559999444";
    const QByteArray odd = "0123456789:-+.,TtZz /x";
    QRandomGenerator m_random{20240501};
};

/// The instant, and how it is given back.
QString description(const QDateTime &time)
{
    return time.isValid()
               ? QStringLiteral("%1 %2 %3")
                     .arg(time.toMSecsSinceEpoch())
                     .arg(int(time.timeSpec()))
                     .arg(time.timeSpec() == Qt::LocalTime ? int(time.isDaylightTime()) : time.offsetFromUtc())
               : QStringLiteral("none");
}

} // namespace

class tst_KRGPXTimeReader : public QObject
{
    Q_OBJECT

private slots:
    void equalsQDateTime()
    {
        for (const char *const rule : {utc, berlin, lordHowe, beirut}) {
            const Zone zone(rule);
            KRGPXTimeReader reader;
            KRGPXTrackSegment segment;
            TimeMaker maker;
            int readByDigits = 0;
            int readByQt = 0;
            for (int i = 0; i < 8000; ++i) {
                const QString text = maker.made();
                const QDateTime expected = QDateTime::fromString(text.trimmed(), Qt::ISODate);
                const KRGPXTime time = reader.read(text);
                const bool isByDigits = reader.takeTokens() == 0;
                ++(isByDigits ? readByDigits : readByQt);
                // In an hour that comes twice the system takes now the first one, now the second.
                const bool isCertain = isByDigits || expected.timeSpec() != Qt::LocalTime;
                const auto described = [&](const QDateTime &dateTime) {
                    const QString instant = isCertain ? description(dateTime) : QString();
                    return QStringLiteral("%1 %2: %3 %4")
                        .arg(QLatin1String(rule), text, dateTime.toString(Qt::ISODateWithMs), instant);
                };
                QCOMPARE(described(time.toDateTime()), described(expected));
                if (isCertain && expected.isValid())
                    QCOMPARE(time.toMilliseconds(), expected.toMSecsSinceEpoch());
                QCOMPARE(time.isValid(), expected.isValid());

                const QByteArray bytes = text.toUtf8();
                KRGPXTime again;
                reader.read(bytes.constData(), int(bytes.size()), &again);
                segment.append(53.0, 8.0, 0, again);
                QCOMPARE(described(segment.timeStamp(i)), described(expected));
                QCOMPARE(segment.secondsOfCommaText(i), KRGPXTrackSegment::noTime);
                reader.takeTokens();
            }
            // Enough of both, or the comparison says nothing.
            QVERIFY(readByDigits > 2000);
            QVERIFY(readByQt > 1000);
        }
    }

    /// Of an hour that comes twice the system takes the one that is nearer to the time it was asked for before.
    void recordThroughAChange()
    {
        const KRTestTable<const char *, QDate> table{
            {"one hour", berlin, QDate(2024, 10, 27)},
            {"in the night of Sunday", newYork, QDate(2024, 11, 3)},
            {"half an hour", lordHowe, QDate(2024, 4, 7)},
        };
        table.forEach([](const char *rule, const QDate &day) {
            const Zone zone(rule);
            const QString format = QStringLiteral("yyyy-MM-ddThh:mm:ss");
            QStringList texts;
            for (int minute = 0; minute < 5 * 60; ++minute)
                texts.append(QDateTime(day, QTime(0, 0), Qt::UTC).addSecs(minute * 60).toString(format));
            QList<qint64> expected;
            for (const QString &text : qAsConst(texts))
                expected.append(QDateTime::fromString(text, Qt::ISODate).toMSecsSinceEpoch());
            KRGPXTimeReader reader;
            QList<qint64> found;
            for (const QString &text : qAsConst(texts))
                found.append(reader.read(text).toMilliseconds());
            QCOMPARE(found, expected);
        });
    }

    void asksForWhatIsNew()
    {
        constexpr int perHour = 20;
        constexpr int perDay = 24 * perHour;
        constexpr int local = KRInputLimits::tokensPerLocalTime;
        constexpr int other = KRInputLimits::tokensPerOtherTime;
        const Zone zone(berlin);
        // first day, days, what follows the seconds, and what that counts as at least and at most
        const KRTestTable<QDate, int, const char *, int, int> table{
            {"UTC", QDate(2024, 3, 20), 20, ".5Z", 0, 0},
            {"an offset", QDate(2024, 3, 20), 20, "+01:00", 0, 0},
            {"local times", QDate(2024, 5, 1), 7, "", local, (7 + 4) * local},
            {"an hour that is left out", QDate(2024, 3, 25), 7, "", perHour * local, (perHour + 7 + 1 + 24) * local},
            {"an hour that comes twice", QDate(2024, 10, 21), 7, "", perHour * local, (perHour + 7 + 1 + 24) * local},
            {"years that Qt reads in its own way", QDate(1970, 7, 1), 1, "", perDay * local, perDay * local},
            {"no times", QDate(2024, 5, 1), 1, "+99:00", perDay, perDay * 2},
            {"other forms", QDate(2024, 5, 1), 1, ",5Z", perDay * other, perDay * other},
        };
        table.forEach([&](const QDate &day, int days, const char *end, int least, int most) {
            KRGPXTimeReader reader;
            for (int i = 0; i < days * perDay; ++i) {
                const QString clock = QTime(0, 0).addSecs(i % perDay * 3600 / perHour).toString(Qt::ISODate);
                const QString date = day.addDays(i / perDay).toString(Qt::ISODate);
                const QString text = date + QLatin1Char('T') + clock + QLatin1String(end);
                const KRGPXTime time = reader.read(text);
                // In the hour that comes twice only Qt tells, now this, now that.
                const bool isByDigits = time.milliseconds != KRGPXTime::noTime;
                const QDateTime expected = QDateTime::fromString(text, Qt::ISODate);
                QCOMPARE(time.isValid(), expected.isValid());
                QVERIFY(!isByDigits || time.milliseconds == expected.toMSecsSinceEpoch());
            }
            const qint64 tokens = reader.takeTokens();
            QVERIFY2(tokens >= least && tokens <= most, qPrintable(QString::number(tokens)));
        });

        KRGPXTimeReader reader;
        for (int i = 0; i < 3; ++i)
            QVERIFY(reader.read(QStringLiteral("2024-05-01")).isValid());
        QCOMPARE(reader.takeTokens(), qint64(local));
        QVERIFY(!reader.read(QStringLiteral(" ")).isValid());
        QCOMPARE(reader.takeTokens(), qint64(0));
    }
};

template class KRTestRegistration<tst_KRGPXTimeReader>;

#include "tst_KRGPXTimeReader.moc"
