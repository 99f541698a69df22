#pragma once

#include <QObject>

class KRGroundMenu;
class KRMapActions;
class KRMapView;
class KRRouteWorkspace;
class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

/// Brings the map and the routes out of the window: into files of other kinds and onto paper.
class KROutputActions : public QObject
{
    Q_OBJECT

public:
    /// What is written and printed, and how it looks at present. @p window carries the actions and the dialogs.
    KROutputActions(KRRouteWorkspace *workspace, KRMapView *map, KRGroundMenu *groundMenu, KRMapActions *mapActions,
                    QMainWindow *window);

    void addTo(QMenu *menu) const;
    void addTo(QToolBar *toolBar) const;

private:
    /// What file and print job are called: as the document, or as its only route.
    QString title() const;
    void exportMap();
    void printMap();

    KRRouteWorkspace *m_workspace;
    KRMapView *m_map;
    KRGroundMenu *m_groundMenu;
    KRMapActions *m_mapActions;
    QMainWindow *m_window;
    QAction *m_exportAction;
    QAction *m_printAction;
};
