#include "KRPreferencesLook.h"

#include "KRLookEditor.h"

#include <KRGeoLocation/KRGeoLocationSettings.h>

#include <QPushButton>
#include <QVBoxLayout>

namespace {

KRGPXTrackConfiguration withDetectedShape(KRGPXTrackConfiguration configuration)
{
    configuration.setTrackShape(AutoTrackShape);
    return configuration;
}

} // namespace

KRPreferencesLook::KRPreferencesLook(QWidget *parent)
    : KRPreferencesBox(TrackPreferences, tr("Aussehen neuer Routen"), parent), m_editor(new KRLookEditor)
{
    m_editor->setButtonsVisible(false);
    auto *const reset = new QPushButton(tr("&Zurücksetzen"));
    reset->setToolTip(tr("Stellt das Aussehen her, das am Anfang galt."));
    connect(reset, &QPushButton::clicked, this, &KRPreferencesLook::resetLook);

    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(m_editor, 1);
    layout->addWidget(reset, 0, Qt::AlignRight);
}

void KRPreferencesLook::readFromConfig()
{
    const KRGPXTrackConfiguration look = KRGeoLocationSettings::instance()->defaultTrackConfiguration();
    m_editor->setConfiguration(withDetectedShape(look), AutoTrackShape);
}

void KRPreferencesLook::writeToConfig()
{
    KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(m_editor->configuration());
}

void KRPreferencesLook::resetLook()
{
    m_editor->setConfiguration(KRGPXTrackConfiguration::defaultValue(), AutoTrackShape);
}
