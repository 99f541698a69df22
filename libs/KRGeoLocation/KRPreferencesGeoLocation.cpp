#include "KRPreferencesGeoLocation.h"

#include "KRGeoLocationSettings.h"

#include <QCheckBox>
#include <QVBoxLayout>

KRPreferencesGeoLocation::KRPreferencesGeoLocation(QWidget *parent)
    : KRPreferencesBox(MapPreferences, tr("Landkarten"), parent), m_instantlyAddLocations(new QCheckBox(this))
{
    setObjectName(QStringLiteral("GeoLocationGroupBox"));
    m_instantlyAddLocations->setObjectName(QStringLiteral("myInstantlyAddLocations"));
    m_instantlyAddLocations->setText(
        tr("Wenn man ein Suchergebnis anklickt, soll es direkt in die Liste der Orte eingefügt werden.", "CHECKBOX"));
    m_instantlyAddLocations->setToolTip(
        tr("Alternativ wird hierfür ein Knopf angeboten, der explizit benutzt werden muss."));

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_instantlyAddLocations);
}

KRPreferencesGeoLocation::~KRPreferencesGeoLocation() = default;

void KRPreferencesGeoLocation::readFromConfig()
{
    m_instantlyAddLocations->setChecked(KRGeoLocationSettings::instance()->instantlyAddLocations());
}

void KRPreferencesGeoLocation::writeToConfig()
{
    KRGeoLocationSettings *const settings = KRGeoLocationSettings::instance();
    settings->setInstantlyAddLocations(m_instantlyAddLocations->isChecked());
    settings->saveSettings();
}
