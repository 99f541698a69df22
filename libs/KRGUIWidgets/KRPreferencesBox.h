#pragma once

#include "KRGUIWidgetsExport.h"

#include <QGroupBox>

/// Under which heading a preferences dialog shows a page; in this order.
enum KRPreferencesType : int {
    GeneralPreferences = 1,
    MapPreferences = 2, ///< maps, places and routes
    TrackPreferences = 3, ///< how routes look
};

/**
 * One titled page of a preferences dialog.
 *
 * The dialog calls readFromConfig() before it shows the page, and writeToConfig() when the user accepts. Nothing is
 * stored before that.
 */
class KRGUIWIDGETS_EXPORT KRPreferencesBox : public QGroupBox
{
    Q_OBJECT

public:
    KRPreferencesBox(KRPreferencesType type, const QString &title, QWidget *parent = nullptr);
    ~KRPreferencesBox() override;

    KRPreferencesType preferencesType() const { return m_type; }

public slots:
    /// Shows the stored settings.
    virtual void readFromConfig() = 0;
    /// Stores what the page shows.
    virtual void writeToConfig() = 0;

private:
    KRPreferencesType m_type;
};
