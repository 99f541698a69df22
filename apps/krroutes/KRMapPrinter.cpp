#include "KRMapPrinter.h"

#include "KRBackgroundTask.h"
#include "KRGapsWarning.h"
#include "KRPlainMessage.h"

#include <KRMapArea.h>
#include <KRMapComposition.h>
#include <KRPatientGround.h>
#include <KRPictureFile.h>

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRFileHandler.h>
#include <KRGeoLocation/KRMapProjection.h>

#include <QFileInfo>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace {

/// Of the map on paper: lines and letters have half the size that they have on a screen.
constexpr double pixelsPerInch = 180.0;

/// In pixels of the map.
QSize mapSize(const QPagedPaintDevice &page)
{
    return (page.pageLayout().paintRect(QPageLayout::Inch).size() * pixelsPerInch).toSize();
}

} // namespace

KRMapPrinter::KRMapPrinter(const KRGPXTrackSelection &selection, const KRGeoPositionRect &shownArea,
                           KRMapGround *ground)
    : m_selection(selection), m_area(shownArea.isValid() ? shownArea : KRMapArea::paddedAreaOf(selection)),
      m_ground(ground)
{ }

bool KRMapPrinter::isLandscape() const
{
    const KRMapProjection square(m_area, QSize(1000, 1000));
    const double width = square.longitudeToNormalized(m_area.east().decimalDegrees())
                         - square.longitudeToNormalized(m_area.west().decimalDegrees());
    const double height = square.latitudeToNormalized(m_area.south().decimalDegrees())
                          - square.latitudeToNormalized(m_area.north().decimalDegrees());
    // Across the date line the eastern edge comes out one world further west.
    return (width > 0.0 ? width : width + 1.0) > height;
}

void KRMapPrinter::preview(QWidget *window) const
{
    if (!m_area.isValid()) {
        KRPlainMessage::information(window, tr("Drucken"), tr("Es gibt nichts zu drucken."));
        return;
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(m_title);
    printer.setPageOrientation(isLandscape() ? QPageLayout::Landscape : QPageLayout::Portrait);
    QSize fetchedSize = mapSize(printer);
    if (!fetchGround(fetchedSize, window))
        return;
    QPrintPreviewDialog dialog(&printer, window);
    dialog.setWindowTitle(tr("Drucken"));
    KRErrorHistory problems;
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter *target) {
        // The user has turned the page or chosen another paper. Who cancels that sees what is at hand, but nothing is
        // printed.
        const bool isForView = target->paintEngine()->type() == QPaintEngine::Picture;
        if (mapSize(*target) == fetchedSize || fetchGround(mapSize(*target), &dialog))
            fetchedSize = mapSize(*target);
        else if (!isForView)
            return;
        paint(target, &problems);
    });
    dialog.exec();
    if (!problems.isEmpty())
        KRPlainMessage::critical(window, tr("Drucken"), problems.entries().last().toString());
}

// Pages are painted at once, with what is at hand; this brings it there.
bool KRMapPrinter::fetchGround(const QSize &size, QWidget *window) const
{
    if (!m_ground || m_ground->isVector())
        return true;
    QImage picture(size, QImage::Format_RGB32);
    if (picture.isNull())
        return true; // then nothing can be painted either, which tells so
    KRPatientGround ground(m_ground);
    const bool isDone = KRBackgroundTask::run(
        window, tr("Die Karte wird geladen …"),
        [&] {
            QPainter painter(&picture);
            ground.paint(&painter, size, KRMapProjection(m_area, size), 1.0);
        },
        [&] { ground.stop(); });
    if (!isDone)
        return ground.gaps().count > 0 && KRGapsWarning::isAccepted(window, tr("Drucken"), ground.gaps());
    KRGapsWarning::show(window, tr("Drucken"), ground.gaps());
    return true;
}

void KRMapPrinter::paint(QPrinter *printer, KRErrorHistory *history) const
{
    const int dotsPerInch = printer->resolution();
    const bool isForFile = printer->paintEngine()->type() == QPaintEngine::Pdf && !printer->outputFileName().isEmpty();
    if (!isForFile) {
        if (!paintPage(printer, dotsPerInch))
            KRErrorHistory::report(history, printer->printerName(), tr("Der Drucker nimmt die Karte nicht an."));
        return;
    }
    const QFileInfo file(printer->outputFileName());
    if (!KRFileHandler::isReplaceable(file, history))
        return;
    const QByteArray pdf =
        KRPictureFile::encodePdf(printer->pageLayout(), dotsPerInch, printer->docName(),
                                 [&](QPagedPaintDevice *page) { return paintPage(page, dotsPerInch); });
    if (pdf.isNull())
        KRErrorHistory::report(history, file.filePath(), tr("Die Karte kann nicht gezeichnet werden."));
    else
        KRFileHandler::writeAll(file, pdf, history);
}

bool KRMapPrinter::paintPage(QPagedPaintDevice *page, int dotsPerInch) const
{
    const QSize size = mapSize(*page);
    if (size.isEmpty() || !m_area.isValid())
        return true;
    QPainter painter;
    if (!painter.begin(page))
        return false;
    KRMapComposition map(m_selection, m_area, size, 1.0);
    map.setGround(m_ground);
    map.setLegend(m_hasLegend);
    map.setLabels(m_hasLabels);
    const QRect paper = page->pageLayout().paintRectPixels(dotsPerInch);
    painter.scale(double(paper.width()) / size.width(), double(paper.height()) / size.height());
    const bool isWhole = map.paint(&painter);
    return painter.end() && isWhole;
}
