#include "KRKmlCoordinatesReader.h"

#include "KRTest.h"

namespace {

KRKmlCoordinates read(const QString &text)
{
    KRKmlCoordinates coordinates;
    KRKmlCoordinatesReader reader(&coordinates);
    reader.read(text);
    reader.finish();
    return coordinates;
}

} // namespace

class tst_KRKmlCoordinates : public QObject
{
    Q_OBJECT

private slots:
    void reads()
    {
        // the text, what toText() makes of it, and the number of unreadable positions
        const KRTestTable<const char *, const char *, int> table{
            {"tuples on lines", "\n\t8.25,53.5,4\n\t8.5,53.6,-12\n", "8.25,53.5,4 8.5,53.6,-12", 0},

            // Blanks and line breaks inside of tuples.
            {"blanks behind commas", "8, 53, 4 9, 54, 5", "8,53,4 9,54,5", 0},
            {"line break in a tuple", "8,\n53,4 9,54,5", "8,53,4 9,54,5", 0},
            {"no-break space between tuples", "8,53\u00A09,54", "8,53 9,54", 0},

            // Commas instead of blanks.
            {"comma behind triples", "8,53,4, 9,54,5,\n7,52,6,", "8,53,4 9,54,5 7,52,6", 0},
            {"comma behind pairs", "8,53, 9,54,\n7,52", "8,53 9,54 7,52", 0},
            {"commas only", "8,53,4,9,54,5,7,52,6", "8,53,4 9,54,5 7,52,6", 0},
            {"a fourth number is dropped", "8,53,4,1700000000 9,54", "8,53,4 9,54", 0},

            // Numbers.
            {"exponents", "8.25e0,5.35E1,1e3 -1E-3,2e-1", "8.25,53.5,1000 -0.001,0.2", 0},
            {"plus signs", "+8,+53,+4", "8,53,4", 0},
            {"elevations are cut to metres", "8,53,12.9 8,53,-3.7 8,53,0.5", "8,53,12 8,53,-3 8,53", 0},
            {"elevation that is none", "8,53,5m 8,53,nan 8,53,1e300", "8,53 8,53 8,53,2147483647", 0},
            {"more than seven decimals are cut", "8.12345678901,53.00000009", "8.1234567,53", 0},

            // What is no position.
            {"two points, and signs inside", "8.1.2,53 8-1,53", "", 2},
            {"no longitude", ",53,4", "", 1},
            {"words", "xxx,53 8,yyy 9,54", "9,54", 2},
            {"no latitude", "8 53 4", "", 3},
            {"empty latitude", "8,,4", "", 1},
            {"not finite", "nan,53 inf,53 1e400,53", "", 3},
            {"endless number",
             "8.11111111111111111111111111111111111111111111111111111111111111111111111111111111111111111"
             "1111111111111111,53",
             "", 1},

            // Out of range.
            {"longitude beyond 180", "190,53 -190,53 360,53", "-170,53 170,53 0,53", 0},
            {"date line stays", "180,0 -180,0", "180,0 -180,0", 0},
            {"beyond a full turn", "361,53 1e3,53", "", 2},
            {"beyond the poles", "8,90 8,90.0000001 8,-91", "8,90", 2},
            {"far beyond", "99999999999999999999999999,53", "", 1},

            // Intended: exactly (0, 0) would be no position.
            {"zero", "0,0 0.0,-0,5 0.00000001,0", "0,0.0000001 0,0.0000001,5 0,0.0000001", 0},
        };
        table.forEach([](const char *text, const char *expected, int unreadable) {
            const KRKmlCoordinates coordinates = read(QString::fromUtf8(text));
            QCOMPARE(coordinates.toText(), QString::fromLatin1(expected));
            QCOMPARE(coordinates.unreadableCount(), unreadable);
        });
    }

    void readsPieceByPiece()
    {
        const QString text = QStringLiteral(" 8.25, 53.5,4\n9,54,\n-10.5,55.75, 1,2 ");
        const QString expected = read(text).toText();
        for (int first = 0; first <= text.size(); ++first) {
            KRKmlCoordinates coordinates;
            KRKmlCoordinatesReader reader(&coordinates);
            reader.read(QStringView(text).left(first));
            reader.read(QStringView(text).mid(first));
            reader.finish();
            QCOMPARE(coordinates.toText(), expected);
        }
    }

    /// Degrees come out to the last bit as the importer reads them from the file, and as it reads what is written here.
    void readsAsTheImporter()
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
};

template class KRTestRegistration<tst_KRKmlCoordinates>;

#include "tst_KRKmlCoordinates.moc"
