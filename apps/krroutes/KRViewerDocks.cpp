#include "KRViewerDocks.h"

#include "KRCroppingControl.h"
#include "KRFiguresPanel.h"
#include "KRLookEditor.h"
#include "KRPlacesPanel.h"
#include "KRProfileView.h"
#include "KRRouteWorkspace.h"
#include "KRTrackListView.h"

#include <KRGeoLocation/KRGeoLocationSettings.h>

#include <QAbstractScrollArea>
#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QVBoxLayout>

namespace {

/// By itself a scroll area asks for room for long scroll bars. All docks below each other shall fit into the window on
/// the screen of a small laptop.
void makeLow(const QWidget *panel)
{
    constexpr int smallestHeightPx = 40;
    const auto areas = panel->findChildren<QAbstractScrollArea *>(QString(), Qt::FindDirectChildrenOnly);
    for (QAbstractScrollArea *const area : areas)
        area->setMinimumHeight(smallestHeightPx);
}

} // namespace

KRViewerDocks::KRViewerDocks(KRRouteWorkspace *workspace, QMainWindow *window)
    : QObject(window), m_workspace(workspace), m_window(window), m_trackList(new KRTrackListView(workspace->model())),
      m_cropping(new KRCroppingControl), m_look(new KRLookEditor), m_places(new KRPlacesPanel),
      m_profile(new KRProfileView), m_figures(new KRFiguresPanel),
      m_trackDock(addDock(Qt::LeftDockWidgetArea, QStringLiteral("tracks"), tr("&Routen"), createTrackPanel())),
      m_lookDock(addDock(Qt::RightDockWidgetArea, QStringLiteral("look"), tr("A&ussehen"), m_look)),
      m_placesDock(addDock(Qt::RightDockWidgetArea, QStringLiteral("places"), tr("&Orte"), m_places)),
      m_profileDock(addDock(Qt::BottomDockWidgetArea, QStringLiteral("profile"), tr("&Höhenprofil"), m_profile)),
      m_figuresDock(addDock(Qt::LeftDockWidgetArea, QStringLiteral("figures"), tr("Kenn&zahlen"), m_figures))
{
    arrange();
    connect(workspace, &KRRouteWorkspace::selectionChanged, this, &KRViewerDocks::showCurrentTrack);
    connect(m_trackList, &KRTrackListView::currentTrackChanged, this, &KRViewerDocks::showCurrentTrack);
    connect(m_trackList, &KRTrackListView::currentTrackChanged, this, &KRViewerDocks::currentTrackChanged);
    connect(m_cropping, &KRCroppingControl::opacityChanged, workspace, &KRRouteWorkspace::setCroppingOpacity);
    connect(m_look, &KRLookEditor::configurationChanged, this, &KRViewerDocks::applyLook);
    connect(m_look, &KRLookEditor::applyToAllRequested, this, &KRViewerDocks::applyLookToAll);
    connect(m_look, &KRLookEditor::useAsDefaultRequested, this, &KRViewerDocks::useLookAsDefault);
    connect(m_places, &KRPlacesPanel::placeChosen, this, &KRViewerDocks::placeChosen);
    connect(m_profile, &KRProfileView::positionHovered, this, &KRViewerDocks::profilePositionHovered);
    showCurrentTrack();
}

void KRViewerDocks::addTo(QMenu *menu) const
{
    for (QDockWidget *const dock : {m_trackDock, m_lookDock, m_placesDock, m_profileDock, m_figuresDock})
        menu->addAction(dock->toggleViewAction());
}

QList<QWidget *> KRViewerDocks::focusWidgets() const
{
    return {m_trackList, m_look, m_places, m_profile};
}

void KRViewerDocks::showLook()
{
    showDock(m_lookDock, m_look);
}

void KRViewerDocks::showPlaces()
{
    showDock(m_placesDock, m_places);
}

QDockWidget *KRViewerDocks::addDock(Qt::DockWidgetArea area, const QString &name, const QString &title, QWidget *widget)
{
    auto *const dock = new QDockWidget(m_window);
    dock->setObjectName(name);
    dock->setWidget(widget);
    makeLow(widget);
    // The title bar would show the mnemonic of the menu as it is written.
    dock->setWindowTitle(QString(title).remove(QLatin1Char('&')));
    dock->toggleViewAction()->setText(title);
    m_window->addDockWidget(area, dock);
    return dock;
}

QWidget *KRViewerDocks::createTrackPanel()
{
    auto *const panel = new QWidget;
    auto *const layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_trackList, 1);
    layout->addWidget(m_cropping);
    return panel;
}

void KRViewerDocks::arrange()
{
    constexpr int sideWidthPx = 270;
    constexpr int bottomHeightPx = 190;
    m_window->setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    m_window->setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    m_window->tabifyDockWidget(m_lookDock, m_placesDock);
    m_lookDock->raise();
    m_window->resizeDocks({m_trackDock, m_lookDock}, {sideWidthPx, sideWidthPx}, Qt::Horizontal);
    m_window->resizeDocks({m_trackDock, m_figuresDock}, {2 * bottomHeightPx, bottomHeightPx}, Qt::Vertical);
    m_window->resizeDocks({m_profileDock}, {bottomHeightPx}, Qt::Vertical);
}

void KRViewerDocks::showDock(QDockWidget *dock, QWidget *widget)
{
    dock->show();
    dock->raise();
    widget->setFocus(Qt::ShortcutFocusReason);
}

void KRViewerDocks::showCurrentTrack()
{
    const KRGPXTrackSelection selection = m_workspace->selection();
    const int row = m_trackList->currentTrack();
    const bool isTrack = selection.checkRange(row);
    m_cropping->setOpacity(selection.nominalCroppingOpacity());
    m_look->setEnabled(isTrack);
    if (!isTrack) {
        m_lookShape = AutoTrackShape;
        m_look->setConfiguration(KRGPXTrackConfiguration::currentDefaultConfiguration(), m_lookShape);
        m_profile->clear();
        m_figures->clear();
        return;
    }
    const KRGPXConfiguredTrack track = selection.value(row);
    // Not while the user turns the controls that have just made this look.
    if (track.configuration() != m_look->configuration() || track.naturalShape() != m_lookShape) {
        m_lookShape = track.naturalShape();
        m_look->setConfiguration(track.configuration(), m_lookShape);
    }
    m_profile->setTrack(track.track());
    m_figures->setTrack(track.track());
}

void KRViewerDocks::applyLook(const KRGPXTrackConfiguration &configuration)
{
    m_workspace->setConfiguration(m_trackList->currentTrack(), configuration);
}

void KRViewerDocks::applyLookToAll()
{
    // Each track keeps its shape: an area does not become a line because the current track is one.
    KRGPXTrackConfiguration configuration = m_look->configuration();
    configuration.setTrackShape(UnknownTrackShape);
    m_workspace->setConfigurationToAll(configuration);
}

void KRViewerDocks::useLookAsDefault()
{
    KRGPXTrackConfiguration configuration = m_look->configuration();
    configuration.setTrackShape(AutoTrackShape);
    KRGeoLocationSettings::instance()->setDefaultTrackConfiguration(configuration);
    emit defaultLookChanged();
}
