#pragma once

#include <KRGeoLocation/KRGeoPosition.h>

#include <QObject>

class KRGPXTrack;
class KRRouteWorkspace;
class QAction;
class QMainWindow;
class QMenu;

/**
 * Adds places and flight lines: from the menu of the window, from that of the map, and places that were looked up. Each
 * is one undo step.
 */
class KRPlaceActions : public QObject
{
    Q_OBJECT

public:
    /// @p window carries the actions, the dialogs and the menu of the map.
    KRPlaceActions(KRRouteWorkspace *workspace, QMainWindow *window);

    void addTo(QMenu *menu) const;
    /// What can be done at a place of the map beside all tracks; returns when the menu is closed.
    void showMapMenu(const KRGeoPosition &position, const QPoint &globalPosition);

public slots:
    void addPlace(const QString &name, const KRGeoPosition &position);

signals:
    void placesRequested(); ///< to be looked up
    void rowSuggested(int row); ///< that of what was added
    void zoomRequested(int row);

private:
    /// @p start is not valid where the user has not pointed at a place.
    void askForFlightLine(const KRGeoPosition &start);
    /// With the look that new tracks get. @p text names the step.
    void add(const KRGPXTrack &track, const QString &text);

    KRRouteWorkspace *m_workspace;
    QMainWindow *m_window;
    QAction *m_placeAction;
    QAction *m_flightLineAction;
};
