#include "KRGpxPointSkimmer.h"

#include "KRTestRegistry.h"

#include <QBuffer>
#include <QtTest>

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
    void skims_data();
    void skims();
    void anywhereInABlock();
};

void tst_KRGpxPointSkimmer::skims_data()
{
    QTest::addColumn<QByteArray>("gpx");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *name, const QByteArray &gpx, const QByteArray &expected) {
        QTest::newRow(name) << gpx << expected;
    };
    const auto same = [&row](const char *name, const QByteArray &gpx) { row(name, gpx, gpx); };
    const QByteArray p = point("<ele>1</ele>");
    row("only the first of a run", "<trkseg>" + p + "\n" + p + "\r\n\t" + p + "</trkseg>",
        "<trkseg>" + p + "\n\r\n\t</trkseg>");
    row("each run has a first", "<a>" + p + p + "</a><b>" + p + p + "</b>", "<a>" + p + "</a><b>" + p + "</b>");
    row("line breaks stay", p + point("\n<ele>1</ele>\n") + "\n", p + "\n\n\n");
    row("any order, any quotes, no content", p + "<trkpt lon='1'  lat='-2.' /><trkpt\nlat='0' lon='.5'/>",
        p + "<trkpt\nlat='0' lon='.5'/>");
    row("extensions", p + point("<extensions><x:hr>5</x:hr></extensions>"), p);
    same("latitude that is no number", p + "<trkpt lat=\"x\" lon=\"1\"/>" + p);
    same("beyond the poles", p + "<trkpt lat=\"90.5\" lon=\"1\"/>" + p);
    same("beyond a full turn", p + "<trkpt lat=\"1\" lon=\"99999999999\"/>" + p);
    same("exponents", p + "<trkpt lat=\"1e1\" lon=\"1\"/>" + p);
    same("missing longitude", p + "<trkpt lat=\"1\"/>" + p);
    same("further attribute", p + "<trkpt lat=\"1\" lon=\"1\" id=\"1\"/>" + p);
    same("twice the same", p + "<trkpt lat=\"1\" lat=\"1\"/>" + p);
    same("comment", p + point("<!-- </trkpt> -->") + p);
    same("CDATA", p + point("<desc><![CDATA[</trkpt>]]></desc>") + p);
    same("point in a point", p + point(point()));
    same("no end", p + "<trkpt lat=\"1\" lon=\"1\"><ele>");
    same("way points", "<wpt lat=\"1\" lon=\"2\"/><wpt lat=\"1\" lon=\"2\"/>");
    same("beginning of a point", "<trkp");
    same("nothing", "");
}

void tst_KRGpxPointSkimmer::skims()
{
    QFETCH(QByteArray, gpx);
    QTEST(skimmed(gpx), "expected");
}

void tst_KRGpxPointSkimmer::anywhereInABlock()
{
    // A point of 29 bytes begins at every place of the second block, and many points end the file.
    for (int shift = 0; shift < 40; ++shift) {
        const QByteArray begin(shift + (1 << 18) - 20, ' ');
        const QByteArray gpx = begin + point() + point() + "<b/>" + point().repeated(20000) + "\n</gpx>";
        const QByteArray expected = begin + point() + "<b/>" + point() + "\n</gpx>";
        QVERIFY(skimmed(gpx) == expected);
    }
}

static const KRTestRegistration<tst_KRGpxPointSkimmer> registration;

#include "tst_KRGpxPointSkimmer.moc"
