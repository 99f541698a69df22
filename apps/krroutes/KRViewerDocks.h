#pragma once

#include <KRGeoLocation/KRGPXTrackShape.h>
#include <KRGeoLocation/KRGeoPosition.h>

#include <QList>
#include <QObject>

class KRCroppingControl;
class KRFiguresPanel;
class KRGPXTrackConfiguration;
class KRLookEditor;
class KRPlacesPanel;
class KRProfileView;
class KRRouteWorkspace;
class KRTrackListView;
class QDockWidget;
class QMainWindow;
class QMenu;

/**
 * The panels around the map: list of tracks, look, places, elevation profile and figures, each in a dock.
 *
 * They show the current track of the list, and what the user changes in them goes to the workspace.
 */
class KRViewerDocks : public QObject
{
    Q_OBJECT

public:
    /// @p window carries the docks.
    KRViewerDocks(KRRouteWorkspace *workspace, QMainWindow *window);

    /// Actions that show and hide the docks.
    void addTo(QMenu *menu) const;
    KRTrackListView *trackList() const { return m_trackList; }
    KRProfileView *profile() const { return m_profile; }
    /// What the focus goes to when the user walks through the window, in this order.
    QList<QWidget *> focusWidgets() const;

    void showLook();
    void showPlaces();

signals:
    void currentTrackChanged(int row);
    void profilePositionHovered(const KRGeoPosition &position);
    void placeChosen(const QString &name, const KRGeoPosition &position);
    void defaultLookChanged();

private:
    QDockWidget *addDock(Qt::DockWidgetArea area, const QString &name, const QString &title, QWidget *widget);
    QWidget *createTrackPanel();
    void arrange();
    void showDock(QDockWidget *dock, QWidget *widget);

    void showCurrentTrack();
    void applyLook(const KRGPXTrackConfiguration &configuration);
    void applyLookToAll();
    void useLookAsDefault();

    KRRouteWorkspace *m_workspace;
    QMainWindow *m_window;
    KRTrackListView *m_trackList;
    KRCroppingControl *m_cropping;
    KRLookEditor *m_look;
    KRPlacesPanel *m_places;
    KRProfileView *m_profile;
    KRFiguresPanel *m_figures;
    KRGPXTrackShape m_lookShape = AutoTrackShape; ///< natural shape of the track in the look editor
    QDockWidget *m_trackDock;
    QDockWidget *m_lookDock;
    QDockWidget *m_placesDock;
    QDockWidget *m_profileDock;
    QDockWidget *m_figuresDock;
};
