#include <KRGeoLocation/KRGPXTrackConfiguration.h>

#include "KRTestRegistry.h"
#include "KRTestXml.h"

#include <QDebug>
#include <QtTest>

#include <functional>
#include <limits>

using KRTestXml::element;

namespace {

using Change = std::function<bool(KRGPXTrackConfiguration &)>;

KRGPXTrackConfiguration written(const QByteArray &children)
{
    return KRGPXTrackConfiguration::fromXml(element("<track>" + children + "</track>"));
}

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_KRGPXTrackConfiguration : public QObject
{
    Q_OBJECT

private slots:
    void defaults();
    void setters_data();
    void setters();
    void roundTrip();
    void writesInFixedOrder();
    void writesWholePixels_data();
    void writesWholePixels();
    void readsWithDefaults();
    void readsWidths_data();
    void readsWidths();
    void serializes();
    void decodesColors_data();
    void decodesColors();
    void readsKmlColors_data();
    void readsKmlColors();
    void readsKmlWidths_data();
    void readsKmlWidths();
    void multipliesAlpha_data();
    void multipliesAlpha();
    void haloBecomesVisible();
    void debugText();
};

void tst_KRGPXTrackConfiguration::defaults()
{
    const KRGPXTrackConfiguration expected(QColor(QStringLiteral("#ff9100")), 10.0, QColor(QStringLiteral("#50FCA404")),
                                           0.0, StrokeDisplayOption, DiskMarkerShape, AutoTrackShape, 1, 100, 1);
    QCOMPARE(KRGPXTrackConfiguration::defaultValue(), expected);
    QCOMPARE(KRGPXTrackConfiguration(), expected);
}

void tst_KRGPXTrackConfiguration::setters_data()
{
    using Configuration = KRGPXTrackConfiguration;
    QTest::addColumn<Change>("change");
    const auto add = [](const char *name, const Change &change) { QTest::newRow(name) << change; };
    add("line colour", [](Configuration &c) { return c.setLineColor(Qt::red); });
    add("line colour: only the alpha", [](Configuration &c) { return c.setLineColor(QColor(255, 145, 0, 254)); });
    add("line width", [](Configuration &c) { return c.setLineWidth(10.1); });
    add("fill colour", [](Configuration &c) { return c.setFillColor(Qt::red); });
    add("halo width", [](Configuration &c) { return c.setHaloWidth(1.0); });
    add("pen style", [](Configuration &c) { return c.setPenStyle(Qt::DashLine); });
    add("options", [](Configuration &c) { return c.setCurrentDisplayOptions(FillDisplayOption); });
    add("marker", [](Configuration &c) { return c.setMarkerShape(XMarkerShape); });
    add("shape", [](Configuration &c) { return c.setTrackShape(PolygonTrackShape); });
    add("smoothing strength", [](Configuration &c) { return c.setSmoothingStrength(50); });
    add("smoothing steps", [](Configuration &c) { return c.setSmoothingSteps(0); });
}

void tst_KRGPXTrackConfiguration::setters()
{
    QFETCH(Change, change);
    KRGPXTrackConfiguration configuration;
    QVERIFY(change(configuration));
    QVERIFY(!change(configuration));
    QVERIFY(configuration != KRGPXTrackConfiguration::defaultValue());
}

void tst_KRGPXTrackConfiguration::roundTrip()
{
    const KRGPXTrackConfiguration configuration(QColor(1, 2, 3, 4), 7.0, QColor(250, 251, 252, 253), 5.0,
                                                AllDisplayOptions, ArrowMarkerShape, HopTrackShape, Qt::DotLine, 35,
                                                12);
    QDomElement parent = element("<track/>");
    configuration.toXml(parent);
    KRGPXTrackConfiguration expected = configuration;
    // Intended: the third display option has no key and gets lost.
    expected.setCurrentDisplayOptions(static_cast<KRGPXTrackDisplayOptionsEnum>(3));
    QCOMPARE(KRGPXTrackConfiguration::fromXml(parent), expected);
    QCOMPARE(KRGPXTrackConfiguration::deserialize(configuration.serialize()), expected);
}

void tst_KRGPXTrackConfiguration::writesInFixedOrder()
{
    QDomElement parent = element("<track/>");
    KRGPXTrackConfiguration::defaultValue().toXml(parent);
    QStringList children;
    for (QDomElement child = parent.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        children.append(child.tagName() + QLatin1Char('=') + child.text());
    const QStringList expected = QStringLiteral("pensize=10 color=#ffff9100 fillcolor=#50fca404 halosize=0 "
                                                "displayOptions=stroke markerShape=disk trackShape=auto penStyle=1")
                                     .split(QLatin1Char(' '));
    QCOMPARE(children, expected);
    QCOMPARE(parent.attribute(QStringLiteral("smoothing")), QStringLiteral("100"));
    QCOMPARE(parent.attribute(QStringLiteral("smoothingSteps")), QStringLiteral("1"));
}

void tst_KRGPXTrackConfiguration::writesWholePixels_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("readBack");
    QTest::newRow("fractions are cut") << 10.7 << 10.0;
    QTest::newRow("cut toward zero") << -0.7 << 0.0;
    QTest::newRow("huge") << 1e300 << 2147483647.0;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0.0;
}

void tst_KRGPXTrackConfiguration::writesWholePixels()
{
    QFETCH(double, width);
    KRGPXTrackConfiguration configuration;
    configuration.setLineWidth(width);
    configuration.setHaloWidth(width);
    const auto read = KRGPXTrackConfiguration::deserialize(configuration.serialize());
    QTEST(read.lineWidth().toDouble(), "readBack");
    QTEST(read.haloWidth().toDouble(), "readBack");
}

void tst_KRGPXTrackConfiguration::readsWithDefaults()
{
    const KRGPXTrackConfiguration read = written("<color>#ff204060</color>");
    KRGPXTrackConfiguration expected;
    expected.setLineColor(QColor(0x20, 0x40, 0x60));
    expected.setFillColor(KRGPXTrackConfiguration::multiplyAlpha(expected.lineColor(), 0.5));
    expected.setHaloWidth(20.0);
    QCOMPARE(read, expected);
    QCOMPARE(read.fillColor().rgba(), qRgba(0x20, 0x40, 0x60, 128));

    QCOMPARE(written("<pensize>4</pensize><displayOptions>fill</displayOptions>").haloWidth(), KRDistance(4.0));
    QCOMPARE(written("").lineColor().rgba(), qRgba(0, 0, 0, 0));
    QCOMPARE(written("<color>#80ffffff</color><fillcolor/>").fillColor().rgba(), qRgba(0, 0, 0, 0));
}

void tst_KRGPXTrackConfiguration::readsWidths_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("expected");
    QTest::newRow("fraction") << QByteArray("2.5") << 2.5;
    QTest::newRow("decimal comma") << QByteArray("2,5") << 0.0;
    QTest::newRow("empty") << QByteArray() << 0.0;
    QTest::newRow("not a number") << QByteArray("nan") << 0.0;
    QTest::newRow("infinite") << QByteArray("inf") << 0.0;
    QTest::newRow("too large for a double") << QByteArray("1e400") << 0.0;
}

void tst_KRGPXTrackConfiguration::readsWidths()
{
    QFETCH(QByteArray, text);
    const auto read = written("<pensize>" + text + "</pensize><halosize>" + text + "</halosize>");
    QTEST(read.lineWidth().toDouble(), "expected");
    QTEST(read.haloWidth().toDouble(), "expected");
}

void tst_KRGPXTrackConfiguration::serializes()
{
    QCOMPARE(KRGPXTrackConfiguration::defaultValue().serialize(),
             QStringLiteral("<config smoothing=\"100\" smoothingSteps=\"1\"><pensize>10</pensize>"
                            "<color>#ffff9100</color><fillcolor>#50fca404</fillcolor><halosize>0</halosize>"
                            "<displayOptions>stroke</displayOptions><markerShape>disk</markerShape>"
                            "<trackShape>auto</trackShape><penStyle>1</penStyle></config>"));
    // Of a broken text the part before the fault counts.
    const auto broken = KRGPXTrackConfiguration::deserialize(QStringLiteral("<config><pensize>3</pensize><color>#ff"));
    QCOMPARE(broken.lineWidth().toDouble(), 3.0);
    QCOMPARE(KRGPXTrackConfiguration::deserialize(QString()).lineColor().alpha(), 0);
}

void tst_KRGPXTrackConfiguration::decodesColors_data()
{
    QTest::addColumn<QByteArray>("style");
    QTest::addColumn<QRgb>("expected");
    QTest::newRow("KML: alpha, blue, green, red")
        << QByteArray("<s><color>7f0080ff</color></s>") << qRgba(0xff, 0x80, 0, 0x7f);
    QTest::newRow("our own: alpha, red, green, blue")
        << QByteArray("<s><color>#7f0080ff</color></s>") << qRgba(0, 0x80, 0xff, 0x7f);
    QTest::newRow("six digits: red, green, blue")
        << QByteArray("<s><color>0080ff</color></s>") << qRgba(0, 0x80, 0xff, 0xff);
    QTest::newRow("blanks around") << QByteArray("<s><color>\n ff0080ff </color></s>") << qRgba(0xff, 0x80, 0, 0xff);
    QTest::newRow("unreadable") << QByteArray("<s><color>ff0080f</color></s>") << qRgba(0, 0, 0, 0);
    QTest::newRow("empty") << QByteArray("<s><color/></s>") << qRgba(0, 0, 0, 0);
    QTest::newRow("missing") << QByteArray("<s/>") << qRgba(0, 0, 0, 0);
}

void tst_KRGPXTrackConfiguration::decodesColors()
{
    QFETCH(QByteArray, style);
    QTEST(KRGPXTrackConfiguration::decodeColor(element(style)).rgba(), "expected");
}

void tst_KRGPXTrackConfiguration::readsKmlColors_data()
{
    QTest::addColumn<QByteArray>("style");
    QTest::addColumn<QRgb>("line");
    QTest::addColumn<QRgb>("fill");
    QTest::addColumn<int>("options");
    const QByteArray redLine("<LineStyle><color>ff0000ff</color></LineStyle>");
    const QByteArray clearLine("<LineStyle><color>000000ff</color></LineStyle>");
    const QByteArray blueArea("<PolyStyle><color>40ff0000</color></PolyStyle>");
    const QByteArray denseArea("<PolyStyle><color>c0ff0000</color></PolyStyle>");
    QTest::newRow("both") << redLine + blueArea << qRgba(255, 0, 0, 255) << qRgba(0, 0, 255, 0x40) << 3;
    QTest::newRow("only a line: the area half as opaque")
        << redLine << qRgba(255, 0, 0, 255) << qRgba(255, 0, 0, 127) << 1;
    QTest::newRow("only an area: the line twice as opaque")
        << blueArea << qRgba(0, 0, 255, 0x80) << qRgba(0, 0, 255, 0x40) << 2;
    QTest::newRow("twice as opaque at most opaque")
        << clearLine + denseArea << qRgba(0, 0, 255, 255) << qRgba(0, 0, 255, 0xc0) << 3;
    QTest::newRow("nothing: black") << QByteArray() << qRgba(0, 0, 0, 255) << qRgba(0, 0, 0, 128) << 1;
    QTest::newRow("unreadable: black") << QByteArray("<LineStyle><color>blue!</color></LineStyle><PolyStyle/>")
                                       << qRgba(0, 0, 0, 255) << qRgba(0, 0, 0, 128) << 3;
}

void tst_KRGPXTrackConfiguration::readsKmlColors()
{
    QFETCH(QByteArray, style);
    QFETCH(int, options);
    const auto configuration = KRGPXTrackConfiguration::fromKml(element("<Style>" + style + "</Style>"));
    QTEST(configuration.lineColor().rgba(), "line");
    QTEST(configuration.fillColor().rgba(), "fill");
    QCOMPARE(static_cast<int>(configuration.currentDisplayOptions().value()), options);
    QCOMPARE(configuration.trackShape().value(), AutoTrackShape);
    QCOMPARE(configuration.markerShape().value(), DiskMarkerShape);
}

void tst_KRGPXTrackConfiguration::readsKmlWidths_data()
{
    QTest::addColumn<QByteArray>("width");
    QTest::addColumn<double>("expected");
    QTest::newRow("times 6") << QByteArray("1.5") << 9.0;
    QTest::newRow("just thick enough") << QByteArray("0.017") << 0.102;
    QTest::newRow("too thin") << QByteArray("0.016") << 7.7;
    QTest::newRow("zero") << QByteArray("0") << 7.7;
    QTest::newRow("negative") << QByteArray("-3") << 7.7;
    QTest::newRow("unreadable") << QByteArray("thick") << 7.7;
    QTest::newRow("not a number") << QByteArray("nan") << 7.7;
    QTest::newRow("infinite") << QByteArray("inf") << 7.7;
}

void tst_KRGPXTrackConfiguration::readsKmlWidths()
{
    QFETCH(QByteArray, width);
    QFETCH(double, expected);
    const QByteArray lineStyle = "<LineStyle><width>" + width + "</width></LineStyle>";
    const auto stroked = KRGPXTrackConfiguration::fromKml(element("<Style>" + lineStyle + "</Style>"));
    QCOMPARE(stroked.lineWidth().toDouble(), expected);
    QCOMPARE(stroked.haloWidth().toDouble(), 2.0 * expected);
    const auto filled = KRGPXTrackConfiguration::fromKml(element("<Style>" + lineStyle + "<PolyStyle/></Style>"));
    QCOMPARE(filled.haloWidth().toDouble(), expected);
}

void tst_KRGPXTrackConfiguration::multipliesAlpha_data()
{
    QTest::addColumn<int>("alpha");
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("expected");
    QTest::newRow("half of opaque") << 255 << 0.5 << 128;
    QTest::newRow("more than opaque") << 200 << 2.0 << 255;
    QTest::newRow("less than nothing") << 200 << -1.0 << 0;
    QTest::newRow("nothing stays nothing") << 0 << 100.0 << 0;
}

void tst_KRGPXTrackConfiguration::multipliesAlpha()
{
    QFETCH(int, alpha);
    QFETCH(double, factor);
    QFETCH(int, expected);
    const QColor result = KRGPXTrackConfiguration::multiplyAlpha(QColor(10, 20, 30, alpha), factor);
    QCOMPARE(result.rgba(), qRgba(10, 20, 30, expected));
}

void tst_KRGPXTrackConfiguration::haloBecomesVisible()
{
    KRGPXTrackConfiguration without;
    KRGPXTrackConfiguration with;
    with.setHaloWidth(0.5);
    KRGPXTrackConfiguration withOther;
    withOther.setHaloWidth(5.0);
    QVERIFY(with.wouldChangeHaloToVisibleAgainst(without));
    QVERIFY(!without.wouldChangeHaloToVisibleAgainst(with));
    QVERIFY(!withOther.wouldChangeHaloToVisibleAgainst(with));
    QVERIFY(!without.wouldChangeHaloToVisibleAgainst(without));
}

void tst_KRGPXTrackConfiguration::debugText()
{
    QString text;
    QDebug(&text) << KRGPXTrackConfiguration::defaultValue() << "next";
    QCOMPARE(text, QStringLiteral("KRGPXTrackConfiguration -- #ff9100; 10.0 px; #fca404; 0.0 px; stroke; disk; auto "
                                  "next "));
}

static const KRTestRegistration<tst_KRGPXTrackConfiguration> registration;

#include "tst_KRGPXTrackConfiguration.moc"
