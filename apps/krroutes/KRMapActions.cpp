#include "KRMapActions.h"

#include "KRMapView.h"
#include "KRViewerAction.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>

KRMapActions::KRMapActions(KRMapView *map, QMainWindow *window)
    : QObject(window),
      m_showAllAction(KRViewerAction::make(window, QStringLiteral("ico_fit_map"), tr("&Alle Routen zeigen"),
                                           QKeySequence(Qt::CTRL + Qt::Key_0))),
      m_zoomInAction(KRViewerAction::make(window, QStringLiteral("ico_zoom_in"), tr("Ver&größern"))),
      m_zoomOutAction(
          KRViewerAction::make(window, QStringLiteral("ico_zoom_out"), tr("Ver&kleinern"), QKeySequence::ZoomOut))
{
    // What Ctrl++ is on keyboards where the plus sign needs the shift key.
    m_zoomInAction->setShortcuts({QKeySequence(Qt::CTRL + Qt::Key_Plus), QKeySequence(Qt::CTRL + Qt::Key_Equal)});
    connect(m_showAllAction, &QAction::triggered, map, &KRMapView::showAll);
    connect(m_zoomInAction, &QAction::triggered, map, &KRMapView::zoomIn);
    connect(m_zoomOutAction, &QAction::triggered, map, &KRMapView::zoomOut);
}

void KRMapActions::addTo(QMenu *menu) const
{
    menu->addActions({m_showAllAction, m_zoomInAction, m_zoomOutAction});
}

void KRMapActions::addTo(QToolBar *toolBar) const
{
    toolBar->addActions({m_showAllAction, m_zoomInAction, m_zoomOutAction});
}
