#include <KRGeoLocation/KRGeoLocationSettings.h>

#include "KRTemporarySettings.h"
#include "KRTestRegistry.h"

#include <QFile>
#include <QSettings>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

class tst_KRGeoLocationSettings : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void keepsBothSettings();
    void tellsWhenTheFeatureIsSwitchedOff();
    void savesTheDefaultConfigurationOnlyWhenItChanges();
    void answersWithWhatIsStored();
    void unreadableConfigurationIsTransparent();

private:
    std::unique_ptr<KRTemporarySettings> m_settings;
};

void tst_KRGeoLocationSettings::init()
{
    m_settings.reset(); // before the next one, which remembers the present file
    m_settings = std::make_unique<KRTemporarySettings>();
}

void tst_KRGeoLocationSettings::keepsBothSettings()
{
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

    const QSettings store(m_settings->fileName(), QSettings::IniFormat);
    QCOMPARE(store.allKeys(),
             QStringList({QStringLiteral("defaultTrackConfiguration"), QStringLiteral("instantlyAddLocations")}));
}

void tst_KRGeoLocationSettings::tellsWhenTheFeatureIsSwitchedOff()
{
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
    QVERIFY(!QFile::exists(m_settings->fileName()));
}

void tst_KRGeoLocationSettings::savesTheDefaultConfigurationOnlyWhenItChanges()
{
    KRGeoLocationSettings settings;
    settings.setDefaultTrackConfiguration(KRGPXTrackConfiguration::defaultValue());
    QVERIFY(!QFile::exists(m_settings->fileName()));

    KRGPXTrackConfiguration configuration;
    configuration.setSmoothingSteps(4);
    settings.setDefaultTrackConfiguration(configuration);
    QVERIFY(QFile::remove(m_settings->fileName()));
    settings.setDefaultTrackConfiguration(configuration);
    QVERIFY(!QFile::exists(m_settings->fileName()));
}

void tst_KRGeoLocationSettings::answersWithWhatIsStored()
{
    KRGPXTrackConfiguration configuration;
    configuration.setLineWidth(10.7);
    configuration.setMarkerShape(XMarkerShape);
    KRGeoLocationSettings settings;
    settings.setDefaultTrackConfiguration(configuration);
    configuration.setLineWidth(10.0);
    QCOMPARE(settings.defaultTrackConfiguration(), configuration);

    KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(configuration);
    QCOMPARE(KRGPXTrackConfiguration::currentDefaultConfiguration(), configuration);
    KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(KRGPXTrackConfiguration::defaultValue());
    QCOMPARE(KRGPXTrackConfiguration::currentDefaultConfiguration(), KRGPXTrackConfiguration::defaultValue());
}

void tst_KRGeoLocationSettings::unreadableConfigurationIsTransparent()
{
    QSettings(m_settings->fileName(), QSettings::IniFormat)
        .setValue(QStringLiteral("defaultTrackConfiguration"), QStringLiteral("rubbish"));
    KRGeoLocationSettings settings;
    settings.loadSettings();
    QCOMPARE(settings.defaultTrackConfiguration().lineColor().alpha(), 0);
    QCOMPARE(settings.defaultTrackConfiguration().lineWidth().toDouble(), 10.0);
}

static const KRTestRegistration<tst_KRGeoLocationSettings> registration;

#include "tst_KRGeoLocationSettings.moc"
