#include <KRGeoLocation/KRGPXTrackElement.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>

#include "KRTestRegistry.h"

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
    void safeDouble_data();
    void safeDouble();
    void derivedFromThePoints();
    void timeFrame_data();
    void timeFrame();
};

void tst_KRGPXTrackElement::safeDouble_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");
    QTest::newRow("seven decimals are kept") << QStringLiteral("53.123456789") << 53.1234567;
    QTest::newRow("seven characters without a point") << QStringLiteral("123456789") << 1234567.0;
    QTest::newRow("the sign is one of the seven") << QStringLiteral("-123456789") << -123456.0;
    QTest::newRow("leading zeroes too") << QStringLiteral("00000012") << 1.0;
    QTest::newRow("an exponent behind the seventh decimal is lost") << QStringLiteral("1.23456789e-05") << 1.2345678;
    QTest::newRow("a nearer one counts") << QStringLiteral("1.5e2") << 150.0;
    QTest::newRow("point at the end") << QStringLiteral("12.") << 12.0;
    QTest::newRow("too large for a double") << QStringLiteral("1e400") << 0.0;
    QTest::newRow("decimal comma") << QStringLiteral("1,5") << 0.0;
    QTest::newRow("empty") << QString() << 0.0;
}

void tst_KRGPXTrackElement::safeDouble()
{
    QFETCH(QString, text);
    QFETCH(double, expected);
    QVERIFY(KRGPXTrackElement::safeDouble(text) == expected);
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

void tst_KRGPXTrackElement::timeFrame_data()
{
    QTest::addColumn<QList<QDateTime>>("timeStamps");
    QTest::addColumn<QDateTime>("minimum");
    QTest::addColumn<QDateTime>("maximum");
    QTest::addColumn<bool>("isValid");
    const QDateTime none;
    QTest::newRow("no time stamps") << QList<QDateTime>{} << none << none << false;
    QTest::newRow("a single instant is no frame") << QList<QDateTime>{noon} << noon << noon << false;
    QTest::newRow("any order") << QList<QDateTime>{noon, evening, morning} << morning << evening << true;
    QTest::newRow("an invalid one is earlier than all")
        << QList<QDateTime>{morning, none, evening} << none << evening << true;
    QTest::newRow("invalid ones at the start leave the frame unset")
        << QList<QDateTime>{none, none, noon} << noon << noon << false;
}

void tst_KRGPXTrackElement::timeFrame()
{
    QFETCH(QList<QDateTime>, timeStamps);
    KRGPXTrackSegment segment;
    for (const QDateTime &timeStamp : timeStamps)
        segment.append(53.1, 8.8, 0, timeStamp, QString());
    const KRRange<QDateTime> frame = segment.timeFrame();
    QTEST(frame.minimum(), "minimum");
    QTEST(frame.maximum(), "maximum");
    QTEST(frame.isValid(), "isValid");
}

static const KRTestRegistration<tst_KRGPXTrackElement> registration;

#include "tst_KRGPXTrackElement.moc"
