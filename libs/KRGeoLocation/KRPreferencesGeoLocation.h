#pragma once

#include "KRGeoLocationExport.h"

#include <KRGUIWidgets/KRPreferencesBox.h>

class QCheckBox;

/// The page of this library in the host's preferences dialog; it edits KRGeoLocationSettings.
class KRGEOLOCATION_EXPORT KRPreferencesGeoLocation : public KRPreferencesBox
{
    Q_OBJECT

public:
    explicit KRPreferencesGeoLocation(QWidget *parent);
    ~KRPreferencesGeoLocation() override;

    void readFromConfig() override;
    /// Saves also when nothing has changed.
    void writeToConfig() override;

private:
    QCheckBox *m_instantlyAddLocations;
};
