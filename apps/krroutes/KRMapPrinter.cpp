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

#include <atomic>

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
    QImage picture;
    QSize drawnSize = mapSize(printer);
    if (!draw(&picture, drawnSize, window))
        return;
    QPrintPreviewDialog dialog(&printer, window);
    dialog.setWindowTitle(tr("Drucken"));
    KRErrorHistory problems;
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter *target) {
        // The user has turned the page or chosen another paper. Who cancels that sees what is at hand, but nothing is
        // printed.
        if (drawnSize != mapSize(*target))
            drawnSize = draw(&picture, mapSize(*target), &dialog) ? mapSize(*target) : QSize();
        if (target->paintEngine()->type() == QPaintEngine::Picture)
            show(picture, target);
        else if (drawnSize.isValid())
            print(target, &dialog, &problems);
    });
    dialog.exec();
    if (!problems.isEmpty())
        KRPlainMessage::critical(window, tr("Drucken"), problems.entries().last().toString());
}

// The preview paints its page anew whenever it is moved or zoomed, which would take seconds for many routes. At half
// the resolution it fits the screen; in full, the ground has at hand what is printed.
bool KRMapPrinter::draw(QImage *picture, const QSize &size, QWidget *window) const
{
    KRPatientGround ground(m_ground);
    KRMapComposition map = composition(size);
    if (m_ground)
        map.setGround(&ground);
    const auto drawIt = [&] {
        *picture = map.render().scaled(size / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const bool isDone =
        KRBackgroundTask::run(window, tr("Die Karte wird gezeichnet …"), drawIt, [&] { ground.stop(); });
    if (!isDone)
        return ground.gaps().count > 0 && KRGapsWarning::isAccepted(window, tr("Drucken"), ground.gaps());
    KRGapsWarning::show(window, tr("Drucken"), ground.gaps());
    return true;
}

void KRMapPrinter::show(const QImage &picture, QPrinter *printer)
{
    QPainter painter(printer);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRect(QPoint(), printer->pageLayout().paintRectPixels(printer->resolution()).size()), picture);
}

void KRMapPrinter::print(QPrinter *printer, QWidget *window, KRErrorHistory *history) const
{
    std::atomic<bool> isStopped{false};
    KRBackgroundTask::run(
        window, tr("Die Karte wird gedruckt …"), [&] { paint(printer, history, [&] { return !isStopped; }); },
        [&] { isStopped = true; });
}

void KRMapPrinter::paint(QPrinter *printer, KRErrorHistory *history, const std::function<bool()> &goesOn) const
{
    const int dotsPerInch = printer->resolution();
    const bool isForFile = printer->paintEngine()->type() == QPaintEngine::Pdf && !printer->outputFileName().isEmpty();
    if (!isForFile) {
        if (!paintPage(printer, dotsPerInch))
            KRErrorHistory::report(history, printer->printerName(), tr("Der Drucker nimmt die Karte nicht an."));
        else if (!goesOn())
            KRErrorHistory::report(history, printer->printerName(), tr("Der Druck ließ sich nicht mehr abbrechen."));
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
    else if (goesOn())
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
    const QRect paper = page->pageLayout().paintRectPixels(dotsPerInch);
    painter.scale(double(paper.width()) / size.width(), double(paper.height()) / size.height());
    const bool isWhole = composition(size).paint(&painter);
    return painter.end() && isWhole;
}

KRMapComposition KRMapPrinter::composition(const QSize &size) const
{
    KRMapComposition map(m_selection, m_area, size, 1.0);
    map.setGround(m_ground);
    map.setLegend(m_hasLegend);
    map.setLabels(m_hasLabels);
    return map;
}
