#include "KRPlaceActions.h"

#include "KRFlightLineDialog.h"
#include "KRRouteWorkspace.h"
#include "KRViewerAction.h"
#include "KRViewerIcons.h"

#include <KRGeoLocation/KRGPXTrackPoint.h>

#include <QAction>
#include <QMainWindow>
#include <QMenu>

KRPlaceActions::KRPlaceActions(KRRouteWorkspace *workspace, QMainWindow *window)
    : QObject(window), m_workspace(workspace), m_window(window),
      m_placeAction(KRViewerAction::make(window, QStringLiteral("ico_place_add"), tr("&Ort …"),
                                         QKeySequence(Qt::CTRL | Qt::Key_L))),
      m_flightLineAction(KRViewerAction::make(window, QStringLiteral("ico_flight_line"), tr("&Fluglinie …"),
                                              QKeySequence(Qt::CTRL | Qt::Key_F)))
{
    connect(m_placeAction, &QAction::triggered, this, &KRPlaceActions::placesRequested);
    connect(m_flightLineAction, &QAction::triggered, this, [this] { askForFlightLine(KRGeoPosition()); });
}

void KRPlaceActions::addTo(QMenu *menu) const
{
    menu->addActions({m_placeAction, m_flightLineAction});
}

void KRPlaceActions::showMapMenu(const KRGeoPosition &position, const QPoint &globalPosition)
{
    QMenu menu(m_window);
    menu.addAction(KRViewerIcons::icon(QStringLiteral("ico_place_add")), tr("&Ort hier hinzufügen"), this,
                   [this, position] { addPlace(tr("Ort"), position); });
    menu.addAction(KRViewerIcons::icon(QStringLiteral("ico_flight_line")), tr("&Fluglinie von hier …"), this,
                   [this, position] { askForFlightLine(position); });
    menu.exec(globalPosition);
}

void KRPlaceActions::addPlace(const QString &name, const KRGeoPosition &position)
{
    add(KRGPXTrack(KRGPXTrackPoint(position, 0, QDateTime(), name)), tr("Ort „%1“ hinzufügen").arg(name));
}

void KRPlaceActions::askForFlightLine(const KRGeoPosition &start)
{
    KRFlightLineDialog dialog(m_window);
    if (start.isValid())
        dialog.setStart(start);
    if (dialog.exec() != QDialog::Accepted)
        return;
    add(dialog.track(), tr("Fluglinie „%1“ hinzufügen").arg(dialog.track().name()));
    emit zoomRequested(m_workspace->selection().count() - 1);
}

void KRPlaceActions::add(const KRGPXTrack &track, const QString &text)
{
    const KRGPXConfiguredTrack added(track, KRGPXTrackConfiguration::currentDefaultConfiguration());
    m_workspace->addTracks(KRGPXConfiguredTrackList(added), text);
    emit rowSuggested(m_workspace->selection().count() - 1);
}
