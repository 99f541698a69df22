#include <KRGeoLocation/KRGPXTrackElement.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QtTest>

namespace {

const QDateTime morning(QDate(2024, 5, 1), QTime(8, 0), Qt::UTC);
const QDateTime noon(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC);
const QDateTime evening(QDate(2024, 5, 1), QTime(20, 0), Qt::UTC);

KRGPXTrackSegment segmentAt(const QList<KRGeoPosition> &positions)
{
    KRGPXTrackSegment segment;
    for (const KRGeoPosition &position : positions)
        segment.append(position.latitude().decimalDegrees(), position.longitude().decimalDegrees(), 0, QDateTime(),
                       QString());
    return segment;
}

} // namespace

class tst_KRGPXTrackElement : public QObject
{
    Q_OBJECT

private slots:
    void safeDouble();
    void derivedFromThePoints();
    void timeFrame();
};

void tst_KRGPXTrackElement::safeDouble()
{
    const KRTestTable<QString, double> table{
        {"seven decimals are kept", QStringLiteral("53.123456789"), 53.1234567},
        {"seven characters without a point", QStringLiteral("123456789"), 1234567.0},
        {"the sign is one of the seven", QStringLiteral("-123456789"), -123456.0},
        {"leading zeroes too", QStringLiteral("00000012"), 1.0},
        {"an exponent behind the seventh decimal is lost", QStringLiteral("1.23456789e-05"), 1.2345678},
        {"a nearer one counts", QStringLiteral("1.5e2"), 150.0},
        {"point at the end", QStringLiteral("12."), 12.0},
        {"too large for a double", QStringLiteral("1e400"), 0.0},
        {"decimal comma", QStringLiteral("1,5"), 0.0},
        {"empty", {}, 0.0},
    };
    table.forEach(
        [](const QString &text, double expected) { QVERIFY(KRGPXTrackElement::safeDouble(text) == expected); });
}

void tst_KRGPXTrackElement::derivedFromThePoints()
{
    const KRGeoPosition bremen(53.1, 8.8);
    const KRGeoPosition cuxhaven(53.9, 8.7);
    // The body of the base, which counts positions.
    QVERIFY(!segmentAt({}).KRGPXTrackElement::isSinglePoint());
    QVERIFY(segmentAt({bremen}).KRGPXTrackElement::isSinglePoint());
    QVERIFY(!segmentAt({bremen, bremen}).KRGPXTrackElement::isSinglePoint());
    QVERIFY(!segmentAt({}).boundingBox().isValid());
    QCOMPARE(segmentAt({bremen, cuxhaven}).boundingBox(), KRGeoPositionRect::spawn(bremen, cuxhaven));
}

void tst_KRGPXTrackElement::timeFrame()
{
    const QDateTime none;
    const KRTestTable<QList<QDateTime>, QDateTime, QDateTime, bool> table{
        {"no time stamps", QList<QDateTime>{}, none, none, false},
        {"a single instant is no frame", QList<QDateTime>{noon}, noon, noon, false},
        {"any order", QList<QDateTime>{noon, evening, morning}, morning, evening, true},
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

static const KRTestRegistration<tst_KRGPXTrackElement> registration;

#include "tst_KRGPXTrackElement.moc"
