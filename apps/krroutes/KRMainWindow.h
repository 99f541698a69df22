#pragma once

#include "KRRecoveryFolder.h"
#include "KRRouteWorkspace.h"

#include <QMainWindow>

class KRAutosave;
class KRDocumentActions;
class KRTrackActions;
class QLabel;

/**
 * The window of the viewer. It puts the parts together and holds no data of its own.
 */
class KRMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Unsaved work is kept below @p recoveryPlace.
    explicit KRMainWindow(const QDir &recoveryPlace = KRRecoveryFolder::standardPlace(), QWidget *parent = nullptr);

    KRRouteWorkspace *workspace() { return &m_workspace; }

    /// As if the user had chosen them in the dialog.
    void openFiles(const QStringList &fileNames);
    /// Asks whether to go on with what a crash has left.
    void offerRecovery();

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void createFileMenu();
    void createEditMenu();
    void createTrackMenu();
    void createHelpMenu();
    void restoreWindow();
    void updateTitle();
    void showPosition(const KRGeoPosition &position);
    void showAbout();

    KRRouteWorkspace m_workspace;
    QDir m_recoveryPlace;
    KRAutosave *m_autosave;
    KRDocumentActions *m_documentActions;
    KRTrackActions *m_trackActions;
    QLabel *m_positionLabel;
};
