#include <KRGeoLocation/KRGPXTrackConfiguration.h>
#include <KRGeoLocation/KRGPXTrackStyleList.h>
#include <KRGeoLocation/KRGeoLocationSettings.h>

#include "KRTemporarySettings.h"
#include "KRTest.h"
#include "KRTestXml.h"

using KRTestXml::element;

namespace {

KRGPXTrackConfiguration written(const QByteArray &children)
{
    return KRGPXTrackConfiguration::fromXml(element("<track>" + children + "</track>"));
}

} // namespace

class tst_KRGPXTrackConfiguration : public QObject
{
    Q_OBJECT

private slots:
    void roundTripAndWidths()
    {
        const KRGPXTrackConfiguration configuration(QColor(1, 2, 3, 4), 7.0, QColor(250, 251, 252, 253), 5.0,
                                                    AllDisplayOptions, ArrowMarkerShape, HopTrackShape, Qt::DotLine, 35,
                                                    12);
        KRGPXTrackConfiguration changed;
        const auto change = [&changed] {
            return QVector<bool>{changed.setLineColor(QColor(1, 2, 3, 4)),
                                 changed.setLineWidth(7.0),
                                 changed.setFillColor(QColor(250, 251, 252, 253)),
                                 changed.setHaloWidth(5.0),
                                 changed.setCurrentDisplayOptions(AllDisplayOptions),
                                 changed.setMarkerShape(ArrowMarkerShape),
                                 changed.setTrackShape(HopTrackShape),
                                 changed.setPenStyle(Qt::DotLine),
                                 changed.setSmoothingStrength(35),
                                 changed.setSmoothingSteps(12)};
        };
        QCOMPARE(change(), QVector<bool>(10, true));
        QCOMPARE(changed, configuration);
        QCOMPARE(change(), QVector<bool>(10, false));
        QVERIFY(changed.setLineColor(QColor(1, 2, 3, 5)));
        KRGPXTrackConfiguration stronger = configuration;
        KRGPXTrackConfiguration longer = configuration;
        QVERIFY(stronger.setSmoothingStrength(36) && !(stronger == configuration));
        QVERIFY(longer.setSmoothingSteps(13) && !(longer == configuration));

        QDomElement parent = element("<track/>");
        configuration.toXml(parent);
        KRGPXTrackConfiguration expected = configuration;
        // Intended: the third display option has no key and gets lost.
        expected.setCurrentDisplayOptions(static_cast<KRGPXTrackDisplayOptionsEnum>(3));
        QCOMPARE(KRGPXTrackConfiguration::fromXml(parent), expected);
        QCOMPARE(KRGPXTrackConfiguration::deserialize(configuration.serialize()), expected);

        for (const char *const text : {"2,5", "", "nan", "inf", "1e400", "-0"}) {
            const auto read = written(QByteArray("<pensize>") + text + "</pensize><halosize>" + text + "</halosize>");
            QCOMPARE(read.lineWidth().toDouble(), 0.0);
            QCOMPARE(read.haloWidth().toDouble(), 0.0);
        }
        QCOMPARE(written("<pensize>2.5</pensize>").lineWidth().toDouble(), 2.5);

        const KRTestTable<double, double> wholePixels{
            {"fractions are cut", 10.7, 10.0},
            {"cut toward zero", -0.7, 0.0},
            {"huge", 1e300, 2147483647.0},
            {"not a number", qQNaN(), 0.0},
        };
        wholePixels.forEach([](double width, double readBack) {
            KRGPXTrackConfiguration wide;
            wide.setLineWidth(width);
            wide.setHaloWidth(width);
            const auto read = KRGPXTrackConfiguration::deserialize(wide.serialize());
            QCOMPARE(read.lineWidth().toDouble(), readBack);
            QCOMPARE(read.haloWidth().toDouble(), readBack);
        });
    }

    void readsWithDefaults()
    {
        const KRGPXTrackConfiguration read = written("<color>#ff204060</color>");
        KRGPXTrackConfiguration expected;
        expected.setLineColor(QColor(0x20, 0x40, 0x60));
        expected.setFillColor(KRGPXTrackConfiguration::multiplyAlpha(expected.lineColor(), 0.5));
        expected.setHaloWidth(20.0);
        QCOMPARE(read, expected);
        QCOMPARE(read.fillColor().rgba(), qRgba(0x20, 0x40, 0x60, 128));
        QVERIFY(expected.wouldChangeHaloToVisibleAgainst(KRGPXTrackConfiguration()));
        QVERIFY(!KRGPXTrackConfiguration().wouldChangeHaloToVisibleAgainst(expected));
        QVERIFY(!expected.wouldChangeHaloToVisibleAgainst(written("<halosize>0.5</halosize>")));

        QCOMPARE(written("<pensize>4</pensize><displayOptions>fill</displayOptions>").haloWidth(), KRDistance(4.0));
        QCOMPARE(written("").lineColor().rgba(), qRgba(0, 0, 0, 0));
        QCOMPARE(written("<color>#80ffffff</color><fillcolor/>").fillColor().rgba(), qRgba(0, 0, 0, 0));
        QCOMPARE(KRGPXTrackConfiguration::multiplyAlpha(QColor(1, 2, 3, 200), 2.0).rgba(), qRgba(1, 2, 3, 255));
        QCOMPARE(KRGPXTrackConfiguration::multiplyAlpha(QColor(1, 2, 3, 200), -1.0).rgba(), qRgba(1, 2, 3, 0));
    }

    void serializes()
    {
        const auto standard = KRGPXTrackConfiguration::defaultValue();
        QCOMPARE(KRGPXTrackConfiguration(), standard);
        QCOMPARE(standard.serialize(),
                 QStringLiteral("<config smoothing=\"100\" smoothingSteps=\"1\"><pensize>10</pensize>"
                                "<color>#ffff9100</color><fillcolor>#50fca404</fillcolor><halosize>0</halosize>"
                                "<displayOptions>stroke</displayOptions><markerShape>disk</markerShape>"
                                "<trackShape>auto</trackShape><penStyle>1</penStyle></config>"));
        QString text;
        QDebug(&text) << standard << "next";
        QCOMPARE(text, QStringLiteral(
                           "KRGPXTrackConfiguration -- #ff9100; 10.0 px; #fca404; 0.0 px; stroke; disk; auto next "));
        // Of a broken text the part before the fault counts.
        const auto broken = KRGPXTrackConfiguration::deserialize(QStringLiteral("<c><pensize>3</pensize><color>#ff"));
        QCOMPARE(broken.lineWidth().toDouble(), 3.0);
        QCOMPARE(KRGPXTrackConfiguration::deserialize(QString()).lineColor().alpha(), 0);
        const QString hostile = QStringLiteral("<config><pensize>3</pensize>") + QStringLiteral("<a>").repeated(100000);
        QCOMPARE(KRGPXTrackConfiguration::deserialize(hostile), KRGPXTrackConfiguration::deserialize(QString()));
    }

    void readsKmlColors()
    {
        const QByteArray redLine("<LineStyle><color>ff0000ff</color></LineStyle>");
        const QByteArray clearLine("<LineStyle><color>000000ff</color></LineStyle>");
        const QByteArray blueArea("<PolyStyle><color>40ff0000</color></PolyStyle>");
        const QByteArray denseArea("<PolyStyle><color>c0ff0000</color></PolyStyle>");
        const KRTestTable<QByteArray, QRgb> decoded{
            {"KML: alpha, blue, green, red", "<s><color>7f0080ff</color></s>", qRgba(0xff, 0x80, 0, 0x7f)},
            {"our own: alpha, red, green, blue", "<s><color>#7f0080ff</color></s>", qRgba(0, 0x80, 0xff, 0x7f)},
            {"six digits: red, green, blue", "<s><color>0080ff</color></s>", qRgba(0, 0x80, 0xff, 0xff)},
            {"blanks around", "<s><color>\n ff0080ff </color></s>", qRgba(0xff, 0x80, 0, 0xff)},
            {"unreadable", "<s><color>ff0080f</color></s>", qRgba(0, 0, 0, 0)},
        };
        decoded.forEach([](const QByteArray &style, QRgb expected) {
            QCOMPARE(KRGPXTrackConfiguration::decodeColor(element(style)).rgba(), expected);
        });
        const KRTestTable<QByteArray, QRgb, QRgb, int> table{
            {"only a line: the area half as opaque", redLine, qRgba(255, 0, 0, 255), qRgba(255, 0, 0, 127), 1},
            {"only an area: the line twice as opaque", blueArea, qRgba(0, 0, 255, 0x80), qRgba(0, 0, 255, 0x40), 2},
            {"twice as opaque at most opaque", clearLine + denseArea, qRgba(0, 0, 255, 255), qRgba(0, 0, 255, 0xc0), 3},
            {"nothing: black", {}, qRgba(0, 0, 0, 255), qRgba(0, 0, 0, 128), 1},
            {"unreadable: black", "<LineStyle><color>blue!</color></LineStyle><PolyStyle/>", qRgba(0, 0, 0, 255),
             qRgba(0, 0, 0, 128), 3},
        };
        table.forEach([](const QByteArray &style, QRgb line, QRgb fill, int options) {
            const auto configuration = KRGPXTrackConfiguration::fromKml(element("<Style>" + style + "</Style>"));
            QCOMPARE(configuration.lineColor().rgba(), line);
            QCOMPARE(configuration.fillColor().rgba(), fill);
            QCOMPARE(static_cast<int>(configuration.currentDisplayOptions().value()), options);
        });
    }

    void readsKmlWidths()
    {
        const KRTestTable<QByteArray, double> table{
            {"times 6", "1.5", 9.0}, {"just thick enough", "0.017", 0.102}, {"too thin", "0.016", 7.7},
            {"negative", "-3", 7.7}, {"not a number", "nan", 7.7},
        };
        table.forEach([](const QByteArray &width, double expected) {
            const QByteArray style = "<LineStyle><width>" + width + "</width></LineStyle>";
            const auto stroked = KRGPXTrackConfiguration::fromKml(element("<Style>" + style + "</Style>"));
            QCOMPARE(stroked.lineWidth().toDouble(), expected);
            QCOMPARE(stroked.haloWidth().toDouble(), 2.0 * expected);
            const auto filled = KRGPXTrackConfiguration::fromKml(element("<Style>" + style + "<PolyStyle/></Style>"));
            QCOMPARE(filled.haloWidth().toDouble(), expected);
        });
    }

    void findsKmlStylesByReference()
    {
        const QByteArray red = "<Style id=\"red\"><LineStyle><color>ff0000ff</color></LineStyle></Style>";
        const QByteArray blue = "<Style id=\"blue\"><PolyStyle><color>ffff0000</color></PolyStyle></Style>";
        const QByteArray nameless = "<Style><LineStyle><color>ff00ff00</color></LineStyle></Style>";
        const QByteArray otherRed = "<Style id=\"red\"><LineStyle><color>ff000080</color></LineStyle></Style>";
        // Not the default of the user.
        const KRTemporarySettings temporarySettings;
        KRGPXTrackConfiguration chosen;
        chosen.setLineColor(Qt::cyan);
        KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(chosen);
        const QRgb none = KRGPXTrackConfiguration::defaultValue().lineColor().rgba();
        const KRTestTable<QByteArray, KRText, QRgb> table{
            {"behind other elements", red + "<Folder/>text<!-- -->" + blue, "#blue", qRgb(0, 0, 255)},
            {"without id", red + nameless, "#", qRgb(0, 255, 0)},
            {"same id twice: the last", red + blue + otherRed, "#red", qRgb(128, 0, 0)},
            {"id without #", red, "red", none},
            {"blanks around", red, " #red\n", none},
            {"style map",
             red + "<StyleMap id=\"map\"><Pair><styleUrl>#red</styleUrl></Pair><Style id=\"map\"/></StyleMap>", "#map",
             none},
            {"style in a folder", "<Folder>" + red + "</Folder>", "#red", none},
        };
        table.forEach([](const QByteArray &children, const QString &reference, QRgb lineColor) {
            const auto styles = KRGPXTrackStyleList::fromKml(element("<Document>" + children + "</Document>"));
            QCOMPARE(styles.findStyling(reference).lineColor().rgba(), lineColor);
        });
        KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(KRGPXTrackConfiguration::defaultValue());
    }
};

template class KRTestRegistration<tst_KRGPXTrackConfiguration>;

#include "tst_KRGPXTrackConfiguration.moc"
