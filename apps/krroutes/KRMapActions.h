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

    bool showsLabels() const;
    bool showsLegend() const;

private:
    void showNames();

    KRMapView *m_map;
    QAction *m_showAllAction;
    QAction *m_zoomInAction;
    QAction *m_zoomOutAction;
    QAction *m_labelsAction;
    QAction *m_legendAction;
};
