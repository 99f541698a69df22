#include "KRGeoLocationSettings.h"

KRGeoLocationSettings::KRGeoLocationSettings()
    : m_instantlyAddLocations(QStringLiteral("instantlyAddLocations"), true),
      m_defaultTrackConfiguration(QStringLiteral("defaultTrackConfiguration"),
                                  KRGPXTrackConfiguration::defaultValue().serialize())
{
    readStoredConfiguration();
}

void KRGeoLocationSettings::setupInstance()
{
    loadSettings();
}

void KRGeoLocationSettings::loadSettings()
{
    load(m_instantlyAddLocations);
    load(m_defaultTrackConfiguration);
    readStoredConfiguration();
}

void KRGeoLocationSettings::saveSettings()
{
    save(m_instantlyAddLocations);
    save(m_defaultTrackConfiguration);
}

void KRGeoLocationSettings::setInstantlyAddLocations(bool enabled)
{
    if (m_instantlyAddLocations.setValue(enabled))
        emit instantlyAddLocationsDisabled(!enabled);
}

void KRGeoLocationSettings::setDefaultTrackConfiguration(const KRGPXTrackConfiguration &configuration)
{
    if (!m_defaultTrackConfiguration.setValue(configuration.serialize()))
        return;
    readStoredConfiguration();
    saveSettings();
}

void KRGeoLocationSettings::readStoredConfiguration()
{
    m_storedConfiguration = KRGPXTrackConfiguration::deserialize(m_defaultTrackConfiguration.value());
}
