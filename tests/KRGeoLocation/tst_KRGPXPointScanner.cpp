#include <KRGeoLocation/KRGPXPointScanner.h>

#include "KRTestRegistry.h"
#include "KRTestTable.h"
#include "KRTestXml.h"

#include <KRGeoLocation/KRGPXTrackSegment.h>

#include <QtTest>

#include <utility>

class tst_KRGPXPointScanner : public QObject
{
    Q_OBJECT

private slots:
    void takes();
    void readsWhatItTakesAsTheDom();
    void staysWithinLimits();
    void leavesOutWhatIsNotWanted();
    void takesWholeCharacters();
};

void tst_KRGPXPointScanner::takes()
{
    const QString time = QStringLiteral(",1714564800000");
    // what is taken, what is left, and the points
    const KRTestTable<QByteArray, QByteArray, QString> table{
        {"all that counts",
         "\n <trkpt lat=\"53.5\" lon=\"-8\"><ele>-7.9</ele><time>2024-05-01T12:00:00Z</time></trkpt>", "</trkseg>",
         QStringLiteral("-8.,53.5,-7") + time},
        {"other order, milliseconds and blanks",
         "<trkpt lat=\"1\" lon=\"2\">\r\n\t<time>2024-05-01T12:00:00.250Z</time> <ele>3</ele>\n</trkpt>", " ",
         QStringLiteral("2.,1.,3,1714564800250")},
        {"what says nothing of the point",
         "<trkpt lat=\"1\" lon=\"2\"><fix>3d</fix><extensions><a:b_c><ele>9</ele></a:b_c><Z-9.d/> "
         "</extensions></trkpt>",
         QByteArray(), QStringLiteral("2.,1.")},
        {"attributes in another form, and what is no number",
         "<trkpt lon='8' lat='x' ><ele a=\"1\" b='\xC3\xA4'>x</ele><time/></trkpt><trkpt  lat=\"53\"/><trkpt/>",
         QByteArray(), QStringLiteral("8.,1. 1.,53. 1.,1.")},
        {"several", "<trkpt lat=\"1\" lon=\"2\"/><trkpt lat=\"3\" lon=\"4\"></trkpt>",
         "\n<trkpt lat=\"5\" lon=\"6\"><desc>\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80]", QStringLiteral("2.,1. 4.,3.")},
    };
    table.forEach([](const QByteArray &run, const QByteArray &rest, const QString &points) {
        // Of a point that is not whole nothing is taken, wherever the bytes end.
        for (int cut = 0; cut <= rest.size(); ++cut) {
            const QByteArray text = run + rest.left(cut);
            KRGPXPointScanner scanner;
            KRGPXTrackSegment segment;
            const char *const end =
                scanner.scan(text.constData(), text.constData() + text.size(), &segment, {100, 100, 1000});
            QCOMPARE(int(end - text.constData()), run.size());
            QCOMPARE(segment.count(), scanner.points());
            QCOMPARE(segment.toKml().replace(QLatin1Char('\n'), QLatin1Char(' ')), points);
        }
    });
}

void tst_KRGPXPointScanner::readsWhatItTakesAsTheDom()
{
    const QByteArray start = "<trkpt lat=\"53.5\" lon=\"-8\">";
    const QByteArray plain = start + "<ele>-7.9</ele><time>2024-05-01T12:00:00.250Z</time><a:b><c/> </a:b></trkpt>";
    QList<QByteArray> texts;
    for (const char *const body : {"<ele>1</ele><ele>2</ele>",
                                   "<ele/>",
                                   "<ele />",
                                   "<[/>",
                                   "<{/>",
                                   "<a b='' c='' d='' e='' f='' g='' h='' i='' j=''/>",
                                   "<desc>a</desc>",
                                   "<a>",
                                   "<!-- -->",
                                   "<a:b:c/>",
                                   "<a><b></a></b>",
                                   "<a>&amp;</a>",
                                   "<a>]]></a>",
                                   "<desc/><desc>b</desc>",
                                   "<desc> </desc>",
                                   "<desc>\xC2\xA0</desc>",
                                   "<desc>a\r\nb</desc>",
                                   "<desc a='1' a='2'>c</desc>",
                                   "<desc>\xC3\xA4\xE2\x82\xAC b</desc>",
                                   "<ele> 1.5e2 </ele>",
                                   "<ele>nan</ele>",
                                   "<a>\xC0\x80</a>",
                                   "<a>\xED\xA0\x80</a>",
                                   "<a>\xEF\xBF\xBF</a>",
                                   "<a b='<'/>",
                                   "<a b=''c=''/>",
                                   "<a b='\t'/>"})
        texts.append(start + body + "</trkpt>");
    for (const char *const time :
         {"2024-05-01T24:00:00Z", "2024-05-01T24:30:00Z", "2024-05-01T12:60:00Z", "2024-05-01T12:00:60Z",
          "0000-05-01T12:00:00Z", "2023-02-29T12:00:00Z", "2024-05-01T12:00:00.2Z", "2024-05-01T12:00:00+02:00",
          " 2024-05-01T12:00:00Z\n", "2024-05-01", "x", ""})
        texts.append(start + "<time>" + time + "</time></trkpt>");
    for (const char *const attributes : {"", " lon='8'", " lat='53'lon='8'", " lat='53' lat='54'", " lat='53' id='1'",
                                         " lat=' 53.5 '", " lat='5e1'\tlon=\"'\"", " lat='\t1'", "lat='1'"})
        texts.append(QByteArray("<trkpt") + attributes + "></trkpt>");
    for (int place = 0; place < plain.size(); ++place)
        for (const char byte : QByteArray("x<>&/.,-+91:;=! \"'\n\x01\xE4"))
            texts.append(QByteArray(plain).replace(place, 1, &byte, 1));
    int taken = 0;
    for (const QByteArray &text : std::as_const(texts)) {
        KRGPXTrackSegment segment;
        KRGPXPointScanner().scan(text.constData(), text.constData() + text.size(), &segment, {100, 100, 1000});
        if (segment.count() == 0)
            continue;
        // toKml() leaves descriptions out, and points without a position.
        const KRGPXTrackPoint expected(KRTestXml::element(text));
        QCOMPARE(segment.trackPoint(0), expected);
        QCOMPARE(segment.description(0), expected.description());
        ++taken;
    }
    QVERIFY(taken > plain.size());
}

void tst_KRGPXPointScanner::staysWithinLimits()
{
    const QByteArray text = QByteArray("<trkpt lat=\"1\" lon=\"2\"><desc>abc</desc><a><b/></a></trkpt>").repeated(3);
    const auto taken = [&](int mostPoints, int mostLevels, qint64 mostCharacters = 1000) {
        KRGPXTrackSegment segment;
        KRGPXPointScanner().scan(text.constData(), text.constData() + text.size(), &segment,
                                 {mostPoints, mostLevels, mostCharacters});
        return segment.count();
    };
    QCOMPARE(taken(2, 100), 2);
    QCOMPARE(taken(0, 100), 0);
    QCOMPARE(taken(100, 1), 0);
    QCOMPARE(taken(100, -1), 0);
    QCOMPARE(taken(100, 100, 5), 2);
}

void tst_KRGPXPointScanner::leavesOutWhatIsNotWanted()
{
    const QByteArray text = "<trkpt lat='90' lon='-360'/><trkpt lat='90.1' lon='1'/><trkpt lat='1'/><trkpt/>"
                            "<trkpt lat='1' lon='x'/><trkpt lat='2x' lon='1'/><trkpt lat=\"1\" lon=\"1\"/>"
                            "<trkpt lat='1' lon='1'><fix>\xC3\xA4</fix></trkpt>";
    // points and how many of them are kept
    const auto scanned = [&](bool isUtf8, bool isOnGlobeOnly) {
        KRGPXTrackSegment segment;
        KRGPXPointScanner scanner;
        scanner.scan(text.constData(), text.constData() + text.size(), &segment,
                     {100, 100, 1000, isUtf8, isOnGlobeOnly});
        return std::make_pair(scanner.points(), segment.count());
    };
    QCOMPARE(scanned(true, false), std::make_pair(8, 8));
    QCOMPARE(scanned(true, true), std::make_pair(8, 3));
    QCOMPARE(scanned(false, true), std::make_pair(7, 2));
}

/// Well-formed UTF-8 by the table of RFC 3629, except for what XML does not allow, the mark of the byte order, and what
/// is near them.
void tst_KRGPXPointScanner::takesWholeCharacters()
{
    const QList<QByteArray> whole{
        "~ ]",          "\xC3\xA4",     "\xDF\xBF",         "\xE0\xA0\x80",     "\xED\x9F\xBF",
        "\xEE\x80\x80", "\xEF\xBA\xBF", "\xF0\x90\x80\x80", "\xF1\x80\xBF\xBF", "\xF4\x8F\xBF\xBD"};
    const QList<QByteArray> others{"\x7F",          "\x80",          "\xC1\xBF",         "\xC3(",
                                   "\xC3\xC3",      "\xE0\x9F\xBF",  "\xE2(\xAC",        "\xE2\x82(",
                                   "\xED\xA0\x80",  "\xEF\xBB\xBF",  "\xEF\xBF\xBF",     "\xF0\x8F\xBF\xBF",
                                   "\xF0\x9F(\x80", "\xF0\x9F\x98(", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80"};
    for (const QByteArray &characters : whole + others) {
        const QByteArray text = "<trkpt lat='1' lon='2'><desc>" + characters + "</desc></trkpt>";
        KRGPXTrackSegment segment;
        KRGPXPointScanner().scan(text.constData(), text.constData() + text.size(), &segment, {1, 1, 1000});
        QVERIFY2(segment.count() == (whole.contains(characters) ? 1 : 0), characters.toHex().constData());
        if (segment.count() == 1)
            QCOMPARE(segment.description(0), QString::fromUtf8(characters));
    }
}

template class KRTestRegistration<tst_KRGPXPointScanner>;

#include "tst_KRGPXPointScanner.moc"
