#pragma once

#include <KRGUIWidgets/KRPreferencesBox.h>

#include <QDialog>
#include <QMap>
#include <QVector>

class QTabWidget;
class QVBoxLayout;

/// The user's settings: the pages of the libraries and those of the viewer, one tab for each heading.
class KRPreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    /// With the pages for maps and for the look of new tracks.
    explicit KRPreferencesDialog(QWidget *parent = nullptr);

    /// Owns the page from now on, and shows what is stored.
    void addBox(KRPreferencesBox *box);

    /// Stores all pages.
    void accept() override;

private:
    QTabWidget *const m_tabs;
    /// One for each tab, in their order.
    QMap<KRPreferencesType, QVBoxLayout *> m_pages;
    QVector<KRPreferencesBox *> m_boxes;
};
