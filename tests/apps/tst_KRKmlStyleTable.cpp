#include "KRKmlStyleTable.h"

#include "KRTestRegistry.h"
#include "KRXmlStream.h"

#include <QtTest>

namespace {

/// The table of all styles directly in the document element, and the look of a "placemark" behind them.
struct Styles {
    KRKmlStyleTable table;
    KRKmlLook placemark;
};

Styles read(const QByteArray &xml)
{
    Styles styles;
    const auto take = [&styles](KRXmlStream &stream) {
        while (stream.readNextChild()) {
            const QString id = stream.attribute("id");
            const KRKmlLook look = KRKmlStyleTable::readLook(stream);
            if (id == QLatin1String("placemark"))
                styles.placemark = look;
            else
                styles.table.add(id, look);
        }
    };
    if (!KRXmlStream::read("<d>" + xml + "</d>", QString(), nullptr, take))
        qFatal("broken test");
    return styles;
}

QString styleXml(const QString &color)
{
    return QStringLiteral("<LineStyle><color>%1</color></LineStyle>").arg(color);
}

} // namespace

class tst_KRKmlStyleTable : public QObject
{
    Q_OBJECT

private slots:
    void toXml_data();
    void toXml();
    void finds_data();
    void finds();
    void inlineStyleOverrides();
    void chainsEnd();
};

void tst_KRKmlStyleTable::toXml_data()
{
    QTest::addColumn<QByteArray>("style");
    QTest::addColumn<int>("use");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *style, KRKmlStyle::Use use, const char *expected) {
        QTest::newRow(name) << QByteArray(style) << int(use) << QString::fromLatin1(expected);
    };
    const char *const lineAndArea = "<LineStyle><color> ff0000ff\n</color><width>2</width></LineStyle>"
                                    "<PolyStyle><color>7f00ff00</color></PolyStyle>";
    const char *const both = "<LineStyle><color>ff0000ff</color><width>2</width></LineStyle>"
                             "<PolyStyle><color>7f00ff00</color></PolyStyle>";
    const char *const lineOnly = "<LineStyle><color>ff0000ff</color><width>2</width></LineStyle>";
    row("area", lineAndArea, KRKmlStyle::UseForArea, both);
    row("line", lineAndArea, KRKmlStyle::UseForLine, both);
    row("a closed line is not filled", lineAndArea, KRKmlStyle::UseForClosedLine, lineOnly);
    row("empty elements count", "<LineStyle/><PolyStyle/>", KRKmlStyle::UseForArea,
        "<LineStyle></LineStyle><PolyStyle></PolyStyle>");
    row("nothing", "<BalloonStyle><color>ff0000ff</color></BalloonStyle>", KRKmlStyle::UseForArea, "");

    row("no fill", "<LineStyle/><PolyStyle><color>7f00ff00</color><fill>0</fill></PolyStyle>", KRKmlStyle::UseForArea,
        "<LineStyle></LineStyle>");
    row("no outline", "<LineStyle/><PolyStyle><color>7f00ff00</color><outline> 0 </outline></PolyStyle>",
        KRKmlStyle::UseForArea, "<PolyStyle><color>7f00ff00</color></PolyStyle>");
    row("neither leaves the outline", "<LineStyle/><PolyStyle><fill>false</fill><outline>0</outline></PolyStyle>",
        KRKmlStyle::UseForArea, "<LineStyle></LineStyle>");
    row("no outline means nothing for a line", "<LineStyle/><PolyStyle><outline>0</outline></PolyStyle>",
        KRKmlStyle::UseForLine, "<LineStyle></LineStyle><PolyStyle></PolyStyle>");

    const char *const icon = "<IconStyle><color>ff00ffff</color><Icon><color>1</color></Icon></IconStyle>";
    row("colour of the icon", icon, KRKmlStyle::UseForPoint,
        "<LineStyle><color>ff00ffff</color></LineStyle><PolyStyle><color>ff00ffff</color></PolyStyle>");
    row("the icon has no part in lines", icon, KRKmlStyle::UseForLine, "");
    row("a line style goes first",
        "<IconStyle><color>ff00ffff</color></IconStyle><LineStyle><color>ff0000ff</color></LineStyle>",
        KRKmlStyle::UseForPoint, "<LineStyle><color>ff0000ff</color></LineStyle>");
    row("white says nothing about an icon", "<IconStyle><color>ffFFffff</color></IconStyle>", KRKmlStyle::UseForPoint,
        "");
    row("texts are escaped", "<LineStyle><color>&lt;&amp;</color></LineStyle>", KRKmlStyle::UseForLine,
        "<LineStyle><color>&lt;&amp;</color></LineStyle>");
}

void tst_KRKmlStyleTable::toXml()
{
    QFETCH(QByteArray, style);
    QFETCH(int, use);
    const Styles styles = read("<Style id='placemark'>" + style + "</Style>");
    QTEST(styles.placemark.style.toXml(static_cast<KRKmlStyle::Use>(use)), "expected");
}

void tst_KRKmlStyleTable::finds_data()
{
    QTest::addColumn<QString>("reference");
    QTest::addColumn<QString>("color"); // empty: not found
    QTest::newRow("style") << QStringLiteral("#red") << QStringLiteral("red");
    QTest::newRow("without #") << QStringLiteral("red") << QStringLiteral("red");
    QTest::newRow("with the document's address") << QStringLiteral("doc.kml#red") << QStringLiteral("red");
    QTest::newRow("unknown") << QStringLiteral("#blue") << QString();
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("the last of two") << QStringLiteral("#twice") << QStringLiteral("second");
    QTest::newRow("normal style of a map") << QStringLiteral("#map") << QStringLiteral("red");
    QTest::newRow("normal style stands last") << QStringLiteral("#late") << QStringLiteral("red");
    QTest::newRow("style inside of a map") << QStringLiteral("#inside") << QStringLiteral("green");
    QTest::newRow("map without a normal style") << QStringLiteral("#odd") << QStringLiteral("red");
    QTest::newRow("map of a map") << QStringLiteral("#outer") << QStringLiteral("red");
    QTest::newRow("map to nowhere") << QStringLiteral("#lost") << QString();
    QTest::newRow("cascading style") << QStringLiteral("#cascading") << QStringLiteral("yellow");
}

void tst_KRKmlStyleTable::finds()
{
    const auto style = [](const char *id, const char *color) {
        return QByteArray("<Style id='") + id + "'><LineStyle><color>" + color + "</color></LineStyle></Style>";
    };
    const auto pair = [](const char *key, const char *reference) {
        return QByteArray("<Pair><key>") + key + "</key><styleUrl> " + reference + "\n</styleUrl></Pair>";
    };
    const auto map = [](const char *id, const QByteArray &pairs) {
        return QByteArray("<StyleMap id='") + id + "'>" + pairs + "</StyleMap>";
    };
    const Styles styles =
        read(map("outer", pair("normal", "#map")) + map("map", pair("normal", "#red") + pair("highlight", "#white"))
             + map("late", pair("highlight", "#white") + pair(" normal ", "#red"))
             + map("inside", "<Pair><key>normal</key>" + style("own", "green") + "</Pair>")
             + map("odd", pair("other", "#red")) + map("lost", pair("normal", "#blue")) + style("twice", "first")
             + style("red", "red") + style("white", "white") + style("twice", "second")
             + "<gx:CascadingStyle kml:id='cascading'><styleUrl>http://other#main</styleUrl>" + style("", "yellow")
             + "</gx:CascadingStyle>");

    QFETCH(QString, reference);
    QFETCH(QString, color);
    const std::optional<KRKmlStyle> found = styles.table.resolved({reference, KRKmlStyle()});
    if (reference == QLatin1String("#lost")) {
        // The map is there, and says nothing.
        QVERIFY(found && found->saysNothing());
        return;
    }
    QCOMPARE(found.has_value(), !color.isEmpty());
    if (found)
        QCOMPARE(found->toXml(KRKmlStyle::UseForLine), styleXml(color));
}

void tst_KRKmlStyleTable::inlineStyleOverrides()
{
    const Styles styles = read("<Style id='s'><LineStyle><color>ff0000ff</color><width>3</width></LineStyle>"
                               "<PolyStyle><color>7f00ff00</color></PolyStyle></Style>"
                               "<Style id='placemark'><LineStyle><color>ffff0000</color></LineStyle>"
                               "<PolyStyle><fill>0</fill></PolyStyle></Style>");
    const std::optional<KRKmlStyle> merged = styles.table.resolved({QStringLiteral("#s"), styles.placemark.style});
    QVERIFY(merged.has_value());
    QCOMPARE(merged->toXml(KRKmlStyle::UseForArea),
             QStringLiteral("<LineStyle><color>ffff0000</color><width>3</width></LineStyle>"));
    // Without the shared style there are only these colours.
    QVERIFY(styles.table.resolved(styles.placemark).has_value());
    QVERIFY(!styles.table.resolved(KRKmlLook()).has_value());
}

void tst_KRKmlStyleTable::chainsEnd()
{
    const Styles styles = read("<StyleMap id='a'><Pair><key>normal</key><styleUrl>#b</styleUrl></Pair></StyleMap>"
                               "<StyleMap id='b'><Pair><key>normal</key><styleUrl>#a</styleUrl></Pair></StyleMap>");
    const std::optional<KRKmlStyle> found = styles.table.resolved({QStringLiteral("#a"), KRKmlStyle()});
    QVERIFY(found && found->saysNothing());
}

static const KRTestRegistration<tst_KRKmlStyleTable> registration;

#include "tst_KRKmlStyleTable.moc"
