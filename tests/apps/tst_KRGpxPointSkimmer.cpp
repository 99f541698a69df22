#include "KRGpxPointSkimmer.h"

#include "KRTest.h"

namespace {

QByteArray skimmed(const QByteArray &gpx)
{
    QBuffer buffer;
    buffer.setData(gpx);
    buffer.open(QIODevice::ReadOnly);
    KRGpxPointSkimmer skimmer(&buffer);
    return skimmer.readAll();
}

QByteArray point(const QByteArray &content = QByteArray())
{
    return "<trkpt lat=\"53.5\" lon=\"-8.25\">" + content + "</trkpt>";
}

} // namespace

class tst_KRGpxPointSkimmer : public QObject
{
    Q_OBJECT

private slots:
    void skims()
    {
        const QByteArray p = point("<ele>1</ele>");
        const KRTestTable<QByteArray, QByteArray> table{
            {"only the first of a run", "<trkseg>" + p + "\n" + p + "\r\n\t" + p + "</trkseg>",
             "<trkseg>" + p + "\n\r\n\t</trkseg>"},
            {"each run has a first", "<a>" + p + p + "</a><b>" + p + p + "</b>", "<a>" + p + "</a><b>" + p + "</b>"},
            {"line breaks stay", p + point("\n<ele>1</ele>\n") + "\n", p + "\n\n\n"},
            {"any order, any quotes, no content", p + "<trkpt lon='1'  lat='-2.' /><trkpt\nlat='0' lon='.5'/>",
             p + "\n"},
            {"numbers of any form", p + "<trkpt lat=' 5.3e1' lon='+.5'/>", p},
            {"comments and CDATA that quote an end",
             p + point("<!-- </trkpt> -->") + point("<desc><![CDATA[</trkpt>]]></desc>") + "<a/>", p + "<a/>"},
            {"extensions", p + point("<extensions><x:hr>5</x:hr></extensions>"), p},
        };
        table.forEach([](const QByteArray &gpx, const QByteArray &expected) { QCOMPARE(skimmed(gpx), expected); });

        // A point of 29 bytes begins at every place of the second block, and many points end the file.
        for (int shift = 0; shift < 40; ++shift) {
            const QByteArray begin(shift + (1 << 18) - 20, ' ');
            const QByteArray gpx = begin + point() + point() + "<b/>" + point().repeated(20000) + "\n</gpx>";
            const QByteArray expected = begin + point() + "<b/>" + point() + "\n</gpx>";
            QVERIFY(skimmed(gpx) == expected);
        }
    }

    /// What a reader would report, or what is not surely a point, is left to the reader.
    void leavesAlone()
    {
        const QByteArray p = point("<ele>1</ele>");
        for (const QByteArray &gpx : {
                 p + "<trkpt lat=\"x\" lon=\"1\"/>" + p, // latitude that is no number
                 p + "<trkpt lat=\"90.5\" lon=\"1\"/>" + p, // beyond the poles
                 p + "<trkpt lat=\"1\" lon=\"99999999999\"/>" + p,
                 p + "<trkpt lat=\"nan\" lon=\"1\"/>" + p,
                 p + "<trkpt lat=\"1\"/>" + p,
                 p + "<trkpt lat=\"1\" lon=\"1\" id=\"1\"/>" + p,
                 p + "<trkpt lat=\"1\" lat=\"1\"/>" + p,
                 p + point("<!-- </trkpt>") + p,
                 p + point("<!--" + QByteArray(600, ' ') + "-->") + p,
                 p + point(QByteArray("<!---->").repeated(5)) + p,
                 p + point("<![CDATA[ </trkpt>") + p,
                 p + point(QByteArray("<![CDATA[]]>").repeated(5)) + p,
                 p + point("<!x </trkpt>") + p,
                 // Within a comment, whose end stands in what looks like CDATA; and the other way round.
                 "<!-- " + p + "<trkpt lat='1' lon='2'><![CDATA[ --><wpt/><!-- ]]></trkpt> -->",
                 "<![CDATA[ " + p + "<trkpt lat='1' lon='2'><!-- ]]><wpt/><![CDATA[ --></trkpt> ]]>",
                 p + point("<?a </trkpt>?>") + p,
                 p + point(point()),
                 p + "<trkpt lat=\"1\" lon=\"1\"><ele>", // no end
                 QByteArray("<wpt lat=\"1\" lon=\"2\"/><wpt lat=\"1\" lon=\"2\"/>"),
                 QByteArray("<trkp"),
                 QByteArray(),
             })
            QCOMPARE(skimmed(gpx), gpx);
    }
};

template class KRTestRegistration<tst_KRGpxPointSkimmer>;

#include "tst_KRGpxPointSkimmer.moc"
