#pragma once

#include "KRRecoveryFolder.h"
#include "KRRouteWorkspace.h"

#include <QMainWindow>

class KRAutosave;
class KRDocumentActions;
class KRGroundMenu;
class KRMapActions;
class KRMapView;
class KROutputActions;
class KRPlaceActions;
class KRStatusWarning;
class KRTrackActions;
class KRTrackListView;
class KRViewerDocks;
class QLabel;
class QToolBar;

/**
 * The window of the viewer. It puts the parts together and holds no data of its own.
 */
class KRMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Unsaved work is kept below @p recoveryPlace.
    explicit KRMainWindow(const QDir &recoveryPlace = KRRecoveryFolder::standardPlace(), QWidget *parent = nullptr);

    ~KRMainWindow() override;

    KRRouteWorkspace *workspace() { return &m_workspace; }
    KRMapView *map() const { return m_map; }
    KRTrackListView *trackList() const;

    /// As if the user had chosen them in the dialog.
    void openFiles(const QStringList &fileNames);
    /// Asks whether to go on with what a crash has left.
    void offerRecovery();

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void createMenus();
    void createFileMenu();
    void createEditMenu();
    void createTrackMenu();
    void createViewMenu();
    void createHelpMenu();
    void connectWorkspace();
    void connectMap();
    void connectTrackList();
    void connectWarnings();
    void restoreWindow();

    void updateTitle();
    void showPosition(const KRGeoPosition &position);
    /// Shows the place at which the current track can be split; an invalid one hides it.
    void markPosition(const KRGeoPosition &position);
    void showTrackMenu(int row, const QPoint &globalPosition);
    void moveFocus(int step);
    void showAbout();

    KRRouteWorkspace m_workspace;
    QDir m_recoveryPlace;
    KRAutosave *m_autosave;
    KRDocumentActions *m_documentActions;
    KRTrackActions *m_trackActions;
    KRPlaceActions *m_placeActions;
    KRGroundMenu *m_groundMenu;
    KRMapView *m_map;
    KRMapActions *m_mapActions;
    KROutputActions *m_outputActions;
    KRViewerDocks *m_docks;
    QToolBar *m_toolBar;
    QMenu *m_trackMenu;
    KRStatusWarning *m_groundWarning;
    KRStatusWarning *m_autosaveWarning;
    QLabel *m_positionLabel;
};
