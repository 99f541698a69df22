#pragma once

#include "KRGPXTrackConfiguration.h"
#include "KRGeoLocationExport.h"

#include <KRCore/KRConfigItem.h>
#include <KRCore/KRSettings.h>
#include <KRCore/KRSingleton.h>

#include <QObject>

/**
 * The user's settings of this library, kept in the host's INI file (see KRSettings) under the keys
 * "instantlyAddLocations" and "defaultTrackConfiguration".
 *
 * The one instance loads them on first use; an object made otherwise holds the defaults until loadSettings().
 * GUI thread only.
 */
class KRGEOLOCATION_EXPORT KRGeoLocationSettings : public QObject,
                                                   public KRSettings,
                                                   public KRSingleton<KRGeoLocationSettings>
{
    Q_OBJECT

public:
    KRGeoLocationSettings();

    void setupInstance();
    void loadSettings();
    void saveSettings();

    /// Whether a clicked search result goes straight into the list of places; true by default.
    bool instantlyAddLocations() const { return m_instantlyAddLocations.value(); }
    /// Does not save.
    void setInstantlyAddLocations(bool enabled);

    /// For new tracks. Its widths are whole pixels, as they have been stored.
    KRGPXTrackConfiguration defaultTrackConfiguration() const { return m_storedConfiguration; }
    /// Saves all settings when the stored form changes, and does nothing otherwise.
    void setDefaultTrackConfiguration(const KRGPXTrackConfiguration &configuration);

signals:
    /// True when the feature has been switched off, false when on.
    void instantlyAddLocationsDisabled(bool disabled);

private:
    void readStoredConfiguration();

    KRConfigItem<bool> m_instantlyAddLocations;
    KRConfigItem<QString> m_defaultTrackConfiguration;
    // What the text above says. Every new track asks for it, so it is not read anew each time.
    KRGPXTrackConfiguration m_storedConfiguration;
};
