#include "KRMapActions.h"

#include "KRMapView.h"
#include "KRViewerAction.h"
#include "KRViewerSettings.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>

KRMapActions::KRMapActions(KRMapView *map, QMainWindow *window)
    : QObject(window), m_map(map),
      m_showAllAction(KRViewerAction::make(window, QStringLiteral("ico_fit_map"), tr("&Alle Routen zeigen"),
                                           QKeySequence(Qt::CTRL | Qt::Key_0))),
      m_zoomInAction(KRViewerAction::make(window, QStringLiteral("ico_zoom_in"), tr("Ver&größern"))),
      m_zoomOutAction(
          KRViewerAction::make(window, QStringLiteral("ico_zoom_out"), tr("V&erkleinern"), QKeySequence::ZoomOut)),
      m_labelsAction(KRViewerAction::make(window, QStringLiteral("ico_labels"), tr("Na&men der Routen"),
                                          QKeySequence(Qt::CTRL | Qt::Key_B))),
      m_legendAction(KRViewerAction::make(window, QStringLiteral("ico_legend"), tr("&Legende"),
                                          QKeySequence(Qt::CTRL | Qt::Key_G)))
{
    const KRViewerSettings settings;
    m_labelsAction->setCheckable(true);
    m_labelsAction->setChecked(settings.showsLabels());
    m_legendAction->setCheckable(true);
    m_legendAction->setChecked(settings.showsLegend());
    showNames();
    // What Ctrl++ is on keyboards where the plus sign needs the shift key.
    m_zoomInAction->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    connect(m_showAllAction, &QAction::triggered, map, &KRMapView::showAll);
    connect(m_zoomInAction, &QAction::triggered, map, &KRMapView::zoomIn);
    connect(m_zoomOutAction, &QAction::triggered, map, &KRMapView::zoomOut);
    for (const QAction *const action : {m_labelsAction, m_legendAction}) {
        connect(action, &QAction::toggled, this, [this] {
            showNames();
            KRViewerSettings().setNames(showsLabels(), showsLegend());
        });
    }
}

void KRMapActions::addTo(QMenu *menu) const
{
    menu->addActions({m_showAllAction, m_zoomInAction, m_zoomOutAction});
    menu->addSeparator();
    menu->addActions({m_labelsAction, m_legendAction});
}

void KRMapActions::addTo(QToolBar *toolBar) const
{
    toolBar->addActions({m_showAllAction, m_zoomInAction, m_zoomOutAction, m_labelsAction, m_legendAction});
}

bool KRMapActions::showsLabels() const
{
    return m_labelsAction->isChecked();
}

bool KRMapActions::showsLegend() const
{
    return m_legendAction->isChecked();
}

void KRMapActions::showNames()
{
    m_map->setLabels(showsLabels());
    m_map->setLegend(showsLegend());
}
