#include "KRKmlCoordinatesReader.h"

#include "KRTestRegistry.h"

#include <QtTest>

namespace {

KRKmlCoordinates read(const QString &text)
{
    KRKmlCoordinates coordinates;
    KRKmlCoordinatesReader reader(&coordinates);
    reader.read(QStringRef(&text));
    reader.finish();
    return coordinates;
}

} // namespace

class tst_KRKmlCoordinates : public QObject
{
    Q_OBJECT

private slots:
    void reads_data();
    void reads();
    void readsPieceByPiece();
    void readsAsTheImporter();
    void trackPositions();
    void closes_data();
    void closes();
    void segmentHasTimes();
};

void tst_KRKmlCoordinates::reads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected"); // as toText() writes it
    QTest::addColumn<int>("unreadable");
    const auto row = [](const char *name, const char *text, const char *expected, int unreadable = 0) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(expected) << unreadable;
    };
    row("tuples on lines", "\n\t8.25,53.5,4\n\t8.5,53.6,-12\n", "8.25,53.5,4 8.5,53.6,-12");
    row("without elevation", "8,53 -9,-54", "8,53 -9,-54");
    row("nothing", " \n ", "");

    // Blanks and line breaks inside of tuples.
    row("blanks behind commas", "8, 53, 4 9, 54, 5", "8,53,4 9,54,5");
    row("blanks before commas", "8 ,53 ,4 9 ,54 ,5", "8,53,4 9,54,5");
    row("line break in a tuple", "8,\n53,4 9,54,5", "8,53,4 9,54,5");
    row("line break before the elevation", "8,53,\n4 9,54,5", "8,53,4 9,54,5");
    row("one blank only", "8, 53,4", "8,53,4");
    row("no-break space between tuples", "8,53\u00A09,54", "8,53 9,54");

    // Commas instead of blanks.
    row("comma behind triples", "8,53,4, 9,54,5,\n7,52,6,", "8,53,4 9,54,5 7,52,6");
    row("comma behind pairs", "8,53, 9,54,\n7,52", "8,53 9,54 7,52");
    row("commas with blanks only", "8, 53, 4, 9, 54, 5", "8,53,4 9,54,5");
    row("commas only", "8,53,4,9,54,5,7,52,6", "8,53,4 9,54,5 7,52,6");
    row("a fourth number is dropped", "8,53,4,1700000000 9,54", "8,53,4 9,54");
    row("so is a fifth", "8,53,4,5,6", "8,53,4");

    // Numbers.
    row("exponents", "8.25e0,5.35E1,1e3 -1E-3,2e-1", "8.25,53.5,1000 -0.001,0.2");
    row("plus signs", "+8,+53,+4", "8,53,4");
    row("elevations are cut to metres", "8,53,12.9 8,53,-3.7 8,53,0.5", "8,53,12 8,53,-3 8,53");
    row("elevation that is none", "8,53,5m 8,53,nan 8,53,1e300", "8,53 8,53 8,53,2147483647");
    row("empty elevation", "8,53, 9,54,", "8,53 9,54");
    row("points at the ends", ".5,53. 8.,.5", "0.5,53 8,0.5");
    row("more than seven decimals are cut", "8.12345678901,53.00000009", "8.1234567,53");
    row("minus between 0 and -1", "-0.5,-0.25", "-0.5,-0.25");

    // What is no position.
    row("words", "xxx,53 8,yyy 9,54", "9,54", 2);
    row("digits with letters", "8x,53", "", 1);
    row("no latitude", "8 53 4", "", 3);
    row("empty longitude", ",53,4", "", 1);
    row("empty latitude", "8,,4", "", 1);
    row("not finite", "nan,53 inf,53 1e400,53", "", 3);
    row("decimal comma", "8;53", "", 1);
    row("endless number",
        "8.11111111111111111111111111111111111111111111111111111111111111111111111111111111111111111"
        "1111111111111111,53",
        "", 1);

    // Out of range.
    row("longitude beyond 180", "190,53 -190,53 360,53", "-170,53 170,53 0,53");
    row("date line stays", "180,0 -180,0", "180,0 -180,0");
    row("beyond a full turn", "361,53", "", 1);
    row("beyond the poles", "8,90 8,90.0000001 8,-91", "8,90", 2);
    row("far beyond", "99999999999999999999999999,53", "", 1);

    // Intended: exactly (0, 0) would be no position.
    row("zero", "0,0 0.0,-0,5 0.00000001,0", "0,0.0000001 0,0.0000001,5 0,0.0000001");
}

void tst_KRKmlCoordinates::reads()
{
    QFETCH(QString, text);
    const KRKmlCoordinates coordinates = read(text);
    QTEST(coordinates.toText(), "expected");
    QTEST(coordinates.unreadableCount(), "unreadable");
}

void tst_KRKmlCoordinates::readsPieceByPiece()
{
    const QString text = QStringLiteral(" 8.25, 53.5,4\n9,54,\n-10.5,55.75, 1,2 ");
    const QString expected = read(text).toText();
    for (int first = 0; first <= text.size(); ++first) {
        KRKmlCoordinates coordinates;
        KRKmlCoordinatesReader reader(&coordinates);
        reader.read(text.leftRef(first));
        reader.read(text.midRef(first));
        reader.finish();
        QCOMPARE(coordinates.toText(), expected);
    }
}

/// Degrees come out to the last bit as the importer reads them from the file, and as it reads what is written here.
void tst_KRKmlCoordinates::readsAsTheImporter()
{
    const QString text = QStringLiteral("-122.0822035425683,37.42228990140251,7 8.20000000001,53.1234567 "
                                        "179.9999999,-89.9999999 0.1,0.7 -70.85,-53.03,12");
    const QList<KRGPXTrackPoint> expected = KRGPXTrackSegment::decodeTrackPoints(text);
    const KRKmlCoordinates coordinates = read(text);
    const QList<KRGPXTrackPoint> direct = coordinates.toSegment().trackPoints();
    const QList<KRGPXTrackPoint> written = KRGPXTrackSegment::decodeTrackPoints(coordinates.toText());
    QCOMPARE(direct.size(), expected.size());
    QCOMPARE(written.size(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        const auto degrees = [i](const QList<KRGPXTrackPoint> &points) {
            const KRGeoPosition position = points.at(i).position();
            return qMakePair(position.latitude().decimalDegrees(), position.longitude().decimalDegrees());
        };
        QVERIFY(degrees(direct) == degrees(expected));
        QVERIFY(degrees(written) == degrees(expected));
        QCOMPARE(direct.at(i).elevation(), expected.at(i).elevation());
    }
}

void tst_KRKmlCoordinates::trackPositions()
{
    const QDateTime time(QDate(2024, 5, 1), QTime(12, 0, 0, 250), Qt::UTC);
    KRKmlCoordinates coordinates;
    coordinates.appendTrackPosition(QStringLiteral(" 8.5 53.25\t10.9 "), time);
    coordinates.appendTrackPosition(QString(), time);
    coordinates.appendTrackPosition(QStringLiteral("nowhere 53 1"), time);
    coordinates.appendTrackPosition(QStringLiteral("9 54"), time.addMSecs(500));
    QCOMPARE(coordinates.toText(), QStringLiteral("8.5,53.25,10 9,54"));
    QCOMPARE(coordinates.unreadableCount(), 1);
    QCOMPARE(coordinates.toSegment().allTimeStamps(), (QList<QDateTime>{time, time.addMSecs(500)}));
}

void tst_KRKmlCoordinates::closes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("isClosed");
    const auto row = [](const char *name, const char *text, const char *expected, bool isClosed) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(expected) << isClosed;
    };
    row("open ring", "8,53 9,53 9,54", "8,53 9,53 9,54 8,53", true);
    row("closed ring", "8,53 9,53 9,54 8,53", "8,53 9,53 9,54 8,53", true);
    row("closed at another height", "8,53,1 9,53,1 9,54,1 8,53,2", "8,53,1 9,53,1 9,54,1 8,53,2", true);
    row("two positions are no ring", "8,53 9,53", "8,53 9,53", false);
    row("one position", "8,53", "8,53", false);
    row("none", "", "", false);
}

void tst_KRKmlCoordinates::closes()
{
    QFETCH(QString, text);
    KRKmlCoordinates coordinates = read(text);
    coordinates.close();
    QTEST(coordinates.toText(), "expected");
    QTEST(coordinates.isClosed(), "isClosed");
}

void tst_KRKmlCoordinates::segmentHasTimes()
{
    KRKmlCoordinates coordinates = read(QStringLiteral("8,53 9,54"));
    QVERIFY(!coordinates.hasTimes());
    QCOMPARE(coordinates.toSegment().allTimeStamps(), (QList<QDateTime>{QDateTime(), QDateTime()}));
    const QDateTime time(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC);
    coordinates.setTime(time);
    QVERIFY(coordinates.hasTimes());
    QCOMPARE(coordinates.toSegment().allTimeStamps(), (QList<QDateTime>{time, time}));
}

static const KRTestRegistration<tst_KRKmlCoordinates> registration;

#include "tst_KRKmlCoordinates.moc"
