#include "KRMapPrinter.h"

#include "KRBackgroundTask.h"

#include <KRMapArea.h>
#include <KRMapComposition.h>
#include <KRPatientGround.h>

#include <KRGeoLocation/KRMapProjection.h>

#include <QImage>
#include <QMessageBox>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace {

/// Of the map on paper: lines and letters have half the size that they have on a screen.
constexpr double pixelsPerInch = 180.0;
constexpr int tilesTimeLimitMs = 60000;

/// In pixels of the map.
QSize mapSize(const QPrinter &printer)
{
    return (printer.pageLayout().paintRect(QPageLayout::Inch).size() * pixelsPerInch).toSize();
}

KRGeoPositionRect areaOf(const KRGPXTrackSelection &selection)
{
    KRMapArea covered;
    for (const KRGPXConfiguredTrack &track : selection.tracks())
        covered.add(track);
    return covered.padded();
}

} // namespace

KRMapPrinter::KRMapPrinter(const KRGPXTrackSelection &selection, const KRGeoPositionRect &shownArea,
                           KRMapGround *ground)
    : m_selection(selection), m_area(shownArea.isValid() ? shownArea : areaOf(selection)), m_ground(ground)
{ }

bool KRMapPrinter::isLandscape() const
{
    const KRMapProjection square(m_area, QSize(1000, 1000));
    const QPointF northWest = square.projectate(m_area.northWest());
    const QPointF southEast = square.projectate(m_area.southEast());
    // Across the date line the eastern edge comes out one world further west.
    const double width = southEast.x() - northWest.x();
    return width <= 0.0 || width > southEast.y() - northWest.y();
}

void KRMapPrinter::preview(QWidget *window) const
{
    if (!m_area.isValid()) {
        QMessageBox::information(window, tr("Drucken"), tr("Es gibt nichts zu drucken."));
        return;
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(m_selection.count() == 1 ? m_selection.value(0).name().simplified() : tr("Karte"));
    printer.setPageOrientation(isLandscape() ? QPageLayout::Landscape : QPageLayout::Portrait);
    if (!fetchGround(printer, window))
        return;
    QPrintPreviewDialog dialog(&printer, window);
    dialog.setWindowTitle(tr("Drucken"));
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [this](QPrinter *target) { paint(target); });
    dialog.exec();
}

bool KRMapPrinter::fetchGround(const QPrinter &printer, QWidget *window) const
{
    if (!m_ground || m_ground->isVector())
        return true;
    // The preview paints at once, with what is at hand; this brings it there.
    KRPatientGround ground(m_ground, tilesTimeLimitMs);
    QImage picture(mapSize(printer), QImage::Format_RGB32);
    return KRBackgroundTask::run(
        window, tr("Die Karte wird geladen …"),
        [&] {
            QPainter painter(&picture);
            ground.paint(&painter, picture.size(), KRMapProjection(m_area, picture.size()), 1.0);
        },
        [&] { ground.stop(); });
}

void KRMapPrinter::paint(QPrinter *printer) const
{
    const QSize size = mapSize(*printer);
    QPainter painter(printer);
    if (!painter.isActive() || size.isEmpty() || !m_area.isValid())
        return;
    KRMapComposition map(m_selection, m_area, size, 1.0);
    map.setGround(m_ground);
    map.setLegend(m_hasLegend);
    map.setLabels(m_hasLabels);
    const QRect page = printer->pageLayout().paintRectPixels(printer->resolution());
    painter.scale(double(page.width()) / size.width(), double(page.height()) / size.height());
    map.paint(&painter);
}
