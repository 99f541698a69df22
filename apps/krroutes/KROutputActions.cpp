#include "KROutputActions.h"

#include "KRExportDialog.h"
#include "KRGroundMenu.h"
#include "KRMapActions.h"
#include "KRMapPrinter.h"
#include "KRMapView.h"
#include "KRRouteWorkspace.h"
#include "KRViewerAction.h"

#include <KRMapGround.h>

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QStatusBar>
#include <QToolBar>

namespace {

constexpr int writtenMessageTimeMs = 8000;

/// Latitudes end where the map does, longitudes span the world once at most.
KRGeoPositionRect areaOf(const KRMapViewport &viewport)
{
    constexpr double highestLatitude = 85.0;
    const QSizeF size = viewport.size();
    const auto latitudeAt = [&](double y, double beyondEnd) -> KRLatitude {
        const KRGeoPosition position = viewport.positionAt(QPointF(size.width() / 2.0, y));
        return position.isValid() ? position.latitude() : KRLatitude(beyondEnd);
    };
    const KRLatitudeRange latitudes(latitudeAt(size.height(), -highestLatitude), latitudeAt(0.0, highestLatitude));
    if (viewport.worldWidth() <= size.width())
        return KRGeoPositionRect(latitudes, KRLongitudeRange(KRLongitude(-180.0), KRLongitude(180.0)));
    const double equator = viewport.pixelOf(KRGeoPosition(0.0, viewport.center().longitude().decimalDegrees())).y();
    const auto longitudeAt = [&](double x) { return viewport.positionAt(QPointF(x, equator)).longitude(); };
    return KRGeoPositionRect(latitudes, KRLongitudeRange(longitudeAt(0.0), longitudeAt(size.width())));
}

} // namespace

KROutputActions::KROutputActions(KRRouteWorkspace *workspace, KRMapView *map, KRGroundMenu *groundMenu,
                                 KRMapActions *mapActions, QMainWindow *window)
    : QObject(window), m_workspace(workspace), m_map(map), m_groundMenu(groundMenu), m_mapActions(mapActions),
      m_window(window), m_exportAction(KRViewerAction::make(window, QStringLiteral("ico_export"), tr("&Exportieren …"),
                                                            QKeySequence(Qt::CTRL | Qt::Key_E))),
      m_printAction(KRViewerAction::make(window, QStringLiteral("ico_print"), tr("&Drucken …"), QKeySequence::Print))
{
    m_exportAction->setStatusTip(tr("Schreibt die Karte als Bild oder die Routen für andere Programme"));
    connect(m_exportAction, &QAction::triggered, this, &KROutputActions::exportMap);
    connect(m_printAction, &QAction::triggered, this, &KROutputActions::printMap);
}

void KROutputActions::addTo(QMenu *menu) const
{
    menu->addActions({m_exportAction, m_printAction});
}

void KROutputActions::addTo(QToolBar *toolBar) const
{
    toolBar->addActions({m_exportAction, m_printAction});
}

QString KROutputActions::title() const
{
    const KRGPXTrackSelection tracks = m_workspace->selection();
    const QString document = QFileInfo(m_workspace->fileName()).completeBaseName();
    const QString track = tracks.count() == 1 ? tracks.value(0).name().simplified() : QString();
    for (const QString &name : {document, track}) {
        if (!name.isEmpty())
            return name;
    }
    return tr("Karte");
}

void KROutputActions::exportMap()
{
    KRExportDialog dialog(m_workspace->selection(), areaOf(m_map->viewport()), m_groundMenu->ground(), m_window);
    dialog.setTitle(title());
    dialog.setLabels(m_mapActions->showsLabels());
    dialog.setLegend(m_mapActions->showsLegend());
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString file = QDir::toNativeSeparators(QFileInfo(dialog.fileName()).absoluteFilePath());
    m_window->statusBar()->showMessage(tr("„%1“ wurde geschrieben.").arg(file), writtenMessageTimeMs);
}

void KROutputActions::printMap()
{
    KRMapPrinter printer(m_workspace->selection(), areaOf(m_map->viewport()), m_groundMenu->ground());
    printer.setTitle(title());
    printer.setLabels(m_mapActions->showsLabels());
    printer.setLegend(m_mapActions->showsLegend());
    printer.preview(m_window);
}
