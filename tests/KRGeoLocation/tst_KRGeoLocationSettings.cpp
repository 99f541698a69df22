#include <KRGeoLocation/KRGeoLocationSettings.h>
#include <KRGeoLocation/KRPreferencesGeoLocation.h>

#include "KRTemporarySettings.h"
#include "KRTest.h"

#include <QCheckBox>

/// The settings, and the page on which they are edited.
class tst_KRGeoLocationSettings : public QObject
{
    Q_OBJECT

private slots:
    void keepsBothSettings()
    {
        const KRTemporarySettings file;
        KRGPXTrackConfiguration configuration;
        configuration.setLineColor(QColor(1, 2, 3, 4));
        configuration.setHaloWidth(3.0);
        KRGeoLocationSettings written;
        written.setInstantlyAddLocations(false);
        written.setDefaultTrackConfiguration(configuration);

        KRGeoLocationSettings read;
        read.loadSettings();
        QVERIFY(!read.instantlyAddLocations());
        QCOMPARE(read.defaultTrackConfiguration(), configuration);

        const QSettings store(file.fileName(), QSettings::IniFormat);
        QCOMPARE(store.allKeys(),
                 QStringList({QStringLiteral("defaultTrackConfiguration"), QStringLiteral("instantlyAddLocations")}));
    }

    void tellsWhenTheFeatureIsSwitchedOff()
    {
        const KRTemporarySettings file;
        KRGeoLocationSettings settings;
        QSignalSpy spy(&settings, &KRGeoLocationSettings::instantlyAddLocationsDisabled);
        settings.setInstantlyAddLocations(true);
        QCOMPARE(spy.count(), 0);
        settings.setInstantlyAddLocations(false);
        settings.setInstantlyAddLocations(false);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.takeFirst().first().toBool(), true);
        settings.setInstantlyAddLocations(true);
        QCOMPARE(spy.takeFirst().first().toBool(), false);
        QVERIFY(!QFile::exists(file.fileName()));
    }

    void savesTheDefaultConfigurationOnlyWhenItChanges()
    {
        const KRTemporarySettings file;
        KRGeoLocationSettings settings;
        settings.setDefaultTrackConfiguration(KRGPXTrackConfiguration::defaultValue());
        QVERIFY(!QFile::exists(file.fileName()));

        KRGPXTrackConfiguration configuration;
        configuration.setLineWidth(10.7);
        configuration.setMarkerShape(XMarkerShape);
        settings.setDefaultTrackConfiguration(configuration);
        QVERIFY(QFile::remove(file.fileName()));
        settings.setDefaultTrackConfiguration(configuration);
        QVERIFY(!QFile::exists(file.fileName()));
        configuration.setLineWidth(10.0); // the answer is what is stored
        QCOMPARE(settings.defaultTrackConfiguration(), configuration);
    }

    void unreadableConfigurationIsTransparent()
    {
        const KRTemporarySettings file;
        QSettings(file.fileName(), QSettings::IniFormat)
            .setValue(QStringLiteral("defaultTrackConfiguration"), QStringLiteral("rubbish"));
        KRGeoLocationSettings settings;
        settings.loadSettings();
        QCOMPARE(settings.defaultTrackConfiguration().lineColor().alpha(), 0);
        QCOMPARE(settings.defaultTrackConfiguration().lineWidth().toDouble(), 10.0);
    }

    void pageEditsTheSettings()
    {
        const KRTemporarySettings file;
        KRGeoLocationSettings *const settings = KRGeoLocationSettings::instance();
        settings->setInstantlyAddLocations(true);
        KRPreferencesGeoLocation page(nullptr);
        QCOMPARE(page.title(), QStringLiteral("Landkarten"));
        QCOMPARE(page.objectName(), QStringLiteral("GeoLocationGroupBox"));
        page.readFromConfig();
        auto *const box = page.findChild<QCheckBox *>(QStringLiteral("myInstantlyAddLocations"));
        QVERIFY(box->isChecked());
        box->click();
        QVERIFY(settings->instantlyAddLocations()); // until the page is written
        page.writeToConfig();
        QVERIFY(!settings->instantlyAddLocations());
        QVERIFY(QFile::remove(file.fileName()));
        page.writeToConfig();
        QVERIFY(QFile::exists(file.fileName()));
        settings->setInstantlyAddLocations(true);
    }
};

template class KRTestRegistration<tst_KRGeoLocationSettings>;

#include "tst_KRGeoLocationSettings.moc"
