#include <KRGeoLocation/KRGPXPointScanner.h>

#include "KRTestRegistry.h"

#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QtTest>

class tst_KRGPXPointScanner : public QObject
{
    Q_OBJECT

private slots:
    void takes_data();
    void takes();
    void staysWithinLimits();
};

void tst_KRGPXPointScanner::takes_data()
{
    QTest::addColumn<QByteArray>("run");
    QTest::addColumn<QByteArray>("rest");
    QTest::addColumn<QString>("points");
    const QString time = QStringLiteral(",1714564800000");
    QTest::newRow("all that counts") << QByteArray("\n <trkpt lat=\"53.5\" lon=\"-8\"><ele>-7.9</ele>"
                                                   "<time>2024-05-01T12:00:00Z</time></trkpt>")
                                     << QByteArray("</trkseg>") << QStringLiteral("-8.,53.5,-7") + time;
    QTest::newRow("other order, milliseconds and blanks")
        << QByteArray("<trkpt lat=\"1\" lon=\"2\">\r\n\t<time>2024-05-01T12:00:00.250Z</time> <ele>3</ele>\n</trkpt>")
        << QByteArray(" ") << QStringLiteral("2.,1.,3,1714564800250");
    QTest::newRow("what says nothing of the point")
        << QByteArray("<trkpt lat=\"1\" lon=\"2\"><fix>3d</fix><extensions><a:b_c><ele>9</ele></a:b_c><Z-9.d/> "
                      "</extensions></trkpt>")
        << QByteArray() << QStringLiteral("2.,1.");
    QTest::newRow("several") << QByteArray("<trkpt lat=\"1\" lon=\"2\"/><trkpt lat=\"3\" lon=\"4\"></trkpt>")
                             << QByteArray("\n<trkpt lat=\"5\" lon=\"6\"") << QStringLiteral("2.,1. 4.,3.");

    const auto refuse = [](const char *name, const QByteArray &point) {
        QTest::newRow(name) << QByteArray() << point << QString();
    };
    const auto refuseIn = [&](const char *name, const QByteArray &body) {
        refuse(name, "<trkpt lat=\"1\" lon=\"2\">" + body + "</trkpt>");
    };
    refuse("no digit before the point", "<trkpt lat=\".5\" lon=\"2\"/>");
    refuse("plus", "<trkpt lat=\"+5\" lon=\"2\"/>");
    refuse("another attribute", "<trkpt lat=\"1\" lon=\"2\" x=\"\"/>");
    refuse("another element", "<trkptx lat=\"1\" lon=\"2\"/>");
    refuse("text before", "x<trkpt lat=\"1\" lon=\"2\"/>");
    refuseIn("time that is none", "<time>2023-02-29T12:00:00Z</time>");
    // hour 24, year 0 and a local time among them
    for (const char *noTime :
         {"2024-05-01T24:00:00Z", "2024-05-01T12:60:00Z", "2024-05-01T12:00:60Z", "0000-05-01T12:00:00Z",
          "2024-05-01T12:00:00+", "2024-05-01T12:00:0xZ", "2024-05-01T1x:00:00Z", "2024-05-01T12:0x:00Z",
          "2024-05-01 12:00:00Z", "2024-05-01T12.00:00Z", "2024-05-01T12:00.00Z", "2024/05-01T12:00:00Z",
          "2024-05/01T12:00:00Z", "2024-05-01T12:00:00,250Z", "2024-05-01T12:00:00.2x0Z", "2024-05-01T12:00:00.2Z"})
        refuseIn(noTime, QByteArray("<time>") + noTime + "</time>");
    refuseIn("time behind which there is more", "<time>2024-05-01T12:00:00Z </time>");
    refuseIn("number of two points", "<ele>1.2.3</ele>");
    refuseIn("second elevation", "<ele>1</ele><ele>2</ele>");
    refuseIn("empty elevation", "<ele/>");
    refuseIn("description", "<desc>a</desc>");
    refuseIn("wrong nesting", "<a><b></a></b>");
    refuseIn("tag without end", "<a>");
    refuseIn("end without a tag", "</a>");
    refuseIn("end of CDATA", "<a>]]></a>");
    refuseIn("reference", "<a>&amp;</a>");
    refuseIn("no ASCII", "<a>\xC3\xA4</a>");
    refuseIn("control character", "<a>\x01</a>");
    refuseIn("comment", "<!-- -->");
    refuseIn("two prefixes", "<a:b:c/>");
    refuseIn("name that begins with a digit", "<a><1/></a>");
    refuseIn("text in the point", "x");
    refuseIn("nine levels", QByteArray("<a>").repeated(9) + QByteArray("</a>").repeated(9));
}

void tst_KRGPXPointScanner::takes()
{
    QFETCH(QByteArray, run);
    QFETCH(QByteArray, rest);
    // Of a point that is not whole nothing is taken, wherever the bytes end.
    for (int cut = 0; cut <= rest.size(); ++cut) {
        const QByteArray text = run + rest.left(cut);
        KRGPXPointScanner scanner;
        KRGPXTrackSegment segment;
        const char *const end = scanner.scan(text.constData(), text.constData() + text.size(), &segment, 100, 100);
        QCOMPARE(int(end - text.constData()), run.size());
        QCOMPARE(segment.count(), scanner.points());
        QTEST(segment.toKml().replace(QLatin1Char('\n'), QLatin1Char(' ')), "points");
    }
}

void tst_KRGPXPointScanner::staysWithinLimits()
{
    const QByteArray point = "<trkpt lat=\"1\" lon=\"2\"><a><b/></a></trkpt>";
    const QByteArray text = point.repeated(3);
    const auto taken = [&](int mostPoints, int mostLevels) {
        KRGPXTrackSegment segment;
        KRGPXPointScanner scanner;
        scanner.scan(text.constData(), text.constData() + text.size(), &segment, mostPoints, mostLevels);
        return segment.count();
    };
    QCOMPARE(taken(2, 100), 2);
    QCOMPARE(taken(0, 100), 0);
    QCOMPARE(taken(100, 1), 0);
    QCOMPARE(taken(100, -1), 0);
}

static const KRTestRegistration<tst_KRGPXPointScanner> registration;

#include "tst_KRGPXPointScanner.moc"
