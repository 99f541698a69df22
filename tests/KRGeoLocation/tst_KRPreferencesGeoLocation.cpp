#include <KRGeoLocation/KRPreferencesGeoLocation.h>

#include <KRGeoLocation/KRGeoLocationSettings.h>

#include "KRRecordingTranslator.h"
#include "KRTemporarySettings.h"
#include "KRTestRegistry.h"

#include <QCheckBox>
#include <QFile>
#include <QSignalSpy>
#include <QtTest>

class tst_KRPreferencesGeoLocation : public QObject
{
    Q_OBJECT

private slots:
    void hasTitleAndTexts();
    void editsTheSettings();
};

void tst_KRPreferencesGeoLocation::hasTitleAndTexts()
{
    const KRRecordingTranslator translator;
    const KRPreferencesGeoLocation page(nullptr);
    QCOMPARE(page.title(), QStringLiteral("Landkarten"));
    QCOMPARE(page.objectName(), QStringLiteral("GeoLocationGroupBox"));
    QVERIFY(page.findChild<QCheckBox *>(QStringLiteral("myInstantlyAddLocations")) != nullptr);
    QVERIFY(translator.requests().contains(
        QStringLiteral("KRPreferencesGeoLocation|Wenn man ein Suchergebnis anklickt, soll es direkt in die Liste der "
                       "Orte eingefügt werden.|CHECKBOX")));
    QVERIFY(translator.requests().contains(QStringLiteral(
        "KRPreferencesGeoLocation|Alternativ wird hierfür ein Knopf angeboten, der explizit benutzt werden muss.|")));
}

void tst_KRPreferencesGeoLocation::editsTheSettings()
{
    const KRTemporarySettings file;
    KRGeoLocationSettings *const settings = KRGeoLocationSettings::instance();
    settings->setInstantlyAddLocations(true);
    KRPreferencesGeoLocation page(nullptr);
    page.resize(page.sizeHint());
    page.readFromConfig();
    auto *const box = page.findChild<QCheckBox *>();
    QVERIFY(box->isChecked());

    QSignalSpy disabled(settings, &KRGeoLocationSettings::instantlyAddLocationsDisabled);
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(5, box->height() / 2));
    QVERIFY(disabled.isEmpty()); // until the page is written
    page.writeToConfig();
    QCOMPARE(disabled.count(), 1);
    QCOMPARE(disabled.first().first().toBool(), true);

    QVERIFY(QFile::remove(file.fileName()));
    page.writeToConfig();
    QCOMPARE(disabled.count(), 1);
    QVERIFY(QFile::exists(file.fileName()));
    KRGeoLocationSettings stored;
    stored.loadSettings();
    QVERIFY(!stored.instantlyAddLocations());
    settings->setInstantlyAddLocations(true);
}

static const KRTestRegistration<tst_KRPreferencesGeoLocation> registration;

#include "tst_KRPreferencesGeoLocation.moc"
