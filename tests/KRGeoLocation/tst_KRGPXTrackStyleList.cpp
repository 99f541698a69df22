#include <KRGeoLocation/KRGPXTrackStyleList.h>
#include <KRGeoLocation/KRGeoLocationSettings.h>

#include "KRTemporarySettings.h"
#include "KRTestRegistry.h"
#include "KRTestTable.h"

#include <QDomDocument>
#include <QtTest>

class tst_KRGPXTrackStyleList : public QObject
{
    Q_OBJECT

private slots:
    void findsByReference();
    void ignoresTheDefaultOfTheUser();
};

void tst_KRGPXTrackStyleList::findsByReference()
{
    const QByteArray red = "<Style id=\"red\"><LineStyle><color>ff0000ff</color></LineStyle></Style>";
    const QByteArray blue = "<Style id=\"blue\"><PolyStyle><color>ffff0000</color></PolyStyle></Style>";
    const QByteArray nameless = "<Style><LineStyle><color>ff00ff00</color></LineStyle></Style>";
    const QByteArray otherRed = "<Style id=\"red\"><LineStyle><color>ff000080</color></LineStyle></Style>";
    const QRgb none = KRGPXTrackConfiguration::defaultValue().lineColor().rgba();
    const KRTestTable<QByteArray, QString, QRgb> table{
        {"first of several", red + blue + nameless, QStringLiteral("#red"), qRgb(255, 0, 0)},
        {"behind other elements", red + "<Folder/>text<!-- -->" + blue, QStringLiteral("#blue"), qRgb(0, 0, 255)},
        {"without id", red + nameless, QStringLiteral("#"), qRgb(0, 255, 0)},
        {"same id twice: the last", red + blue + otherRed, QStringLiteral("#red"), qRgb(128, 0, 0)},
        {"id without #", red, QStringLiteral("red"), none},
        {"other case", red, QStringLiteral("#Red"), none},
        {"blanks around", red, QStringLiteral(" #red\n"), none},
        {"in another document", red, QStringLiteral("other.kml#red"), none},
        {"empty reference", red + nameless, {}, none},
        {"style map",
         red
             + "<StyleMap id=\"map\"><Pair><key>normal</key><styleUrl>#red</styleUrl></Pair>"
               "<Style id=\"map\"/></StyleMap>",
         QStringLiteral("#map"), none},
        {"style in a folder", "<Folder>" + red + "</Folder>", QStringLiteral("#red"), none},
        {"no styles", {}, QStringLiteral("#red"), none},
    };
    table.forEach([](const QByteArray &children, const QString &reference, QRgb lineColor) {
        QDomDocument document;
        QVERIFY(document.setContent("<Document>" + children + "</Document>"));
        const KRGPXTrackStyleList styles = KRGPXTrackStyleList::fromKml(document.documentElement());
        QCOMPARE(styles.findStyling(reference).lineColor().rgba(), lineColor);
    });
}

void tst_KRGPXTrackStyleList::ignoresTheDefaultOfTheUser()
{
    const KRTemporarySettings temporarySettings;
    KRGPXTrackConfiguration chosen;
    chosen.setLineColor(Qt::cyan);
    KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(chosen);
    const KRGPXTrackConfiguration found = KRGPXTrackStyleList().findStyling(QStringLiteral("#red"));
    KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(KRGPXTrackConfiguration::defaultValue());
    QCOMPARE(found, KRGPXTrackConfiguration::defaultValue());
}

static const KRTestRegistration<tst_KRGPXTrackStyleList> registration;

#include "tst_KRGPXTrackStyleList.moc"
