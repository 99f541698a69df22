#pragma once

#include <QObject>

class KRMapView;
class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

/// What the user can do with the map, whatever lies on it.
class KRMapActions : public QObject
{
    Q_OBJECT

public:
    /// @p window carries the actions.
    KRMapActions(KRMapView *map, QMainWindow *window);

    void addTo(QMenu *menu) const;
    void addTo(QToolBar *toolBar) const;

private:
    QAction *m_showAllAction;
    QAction *m_zoomInAction;
    QAction *m_zoomOutAction;
};
