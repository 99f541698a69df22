#pragma once

#include <KRGUIWidgets/KRPreferencesBox.h>

class KRLookEditor;

/// The page of the preferences for the look of new tracks. Their shape is always detected.
class KRPreferencesLook : public KRPreferencesBox
{
    Q_OBJECT

public:
    explicit KRPreferencesLook(QWidget *parent = nullptr);

    void readFromConfig() override;
    void writeToConfig() override;

private:
    void resetLook();

    KRLookEditor *const m_editor;
};
