#include "KRMapTracksThread.h"

#include "KRTrackEmphasis.h"

#include <KRHaloPainter.h>
#include <KRMapFurniture.h>
#include <KRMapGround.h>
#include <KRMapLabelBoard.h>
#include <KRMapLegend.h>
#include <KRMapTrackRenderer.h>
#include <KRTrackLabels.h>

#include <QPainter>

KRMapTracksThread::KRMapTracksThread(QObject *parent) : KRMapDrawingThread(parent)
{
    qRegisterMetaType<KRMapPicture>();
    qRegisterMetaType<KRTrackPicker>();
}

KRMapTracksThread::~KRMapTracksThread()
{
    stop();
}

bool KRMapTracksThread::work(const Task &task)
{
    makePicker(task);
    if (isSuperseded(task) || !drawTracks(task))
        return false;
    drawAboveTracks(task);
    drawLegend(task);
    return true;
}

void KRMapTracksThread::makePicker(const Task &task)
{
    if (m_pickerNumber == task.selectionNumber)
        return;
    m_picker = KRTrackPicker(task.selection, m_picker);
    m_pickerNumber = task.selectionNumber;
    emit pickerMade(m_picker, m_pickerNumber);
}

bool KRMapTracksThread::drawTracks(const Task &task)
{
    if (m_drawnTracks && m_drawnTracks->selectionNumber == task.selectionNumber && m_drawnTracks->window == task.window)
        return true;
    m_drawnTracks.reset();
    m_drawnAboveTracks.reset();
    const KRMapViewport picture = task.picture();
    m_tracksImage = QImage(picture.deviceSize(), QImage::Format_ARGB32_Premultiplied);
    m_tracksImage.fill(Qt::transparent);
    const KRGPXTrackSelection selection = m_picker.visibleIn(picture);
    const KRMapProjection projection = picture.projection();
    const QSize size = m_tracksImage.size();
    const double factor = picture.devicePixelRatio();
    QPainter painter(&m_tracksImage);
    KRHaloPainter::paint(painter, selection, projection, size, factor);
    painter.setRenderHint(QPainter::Antialiasing);
    const KRMapTrackRenderer renderer(selection, projection, size, factor);
    const KRGPXConfiguredTrackList tracks = selection.tracks();
    for (const KRGPXConfiguredTrack &track : tracks) {
        if (isSuperseded(task))
            return false;
        renderer.drawTrack(&painter, track, StyledRender);
    }
    m_drawnTracks = task;
    return true;
}

void KRMapTracksThread::drawAboveTracks(const Task &task)
{
    if (m_drawnAboveTracks && m_drawnAboveTracks->currentRow == task.currentRow
        && m_drawnAboveTracks->hasLabels == task.hasLabels && m_drawnAboveTracks->hasLegend == task.hasLegend
        && m_drawnAboveTracks->groundNumber == task.groundNumber)
        return;
    m_drawnAboveTracks = task;
    const KRMapViewport picture = task.picture();
    QImage image = m_tracksImage;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (task.selection.isValidRow(task.currentRow))
        KRTrackEmphasis::paint(&painter, task.selection.value(task.currentRow), picture.projection(), image.size(),
                               picture.devicePixelRatio());
    paintNames(&painter, task);
    painter.end();
    emit drawn({picture, image});
}

// Within the window only, so that no name is cut by its edge and those along the edges of the map are seen.
void KRMapTracksThread::paintNames(QPainter *painter, const Task &task)
{
    const KRMapProjection projection = task.window.projection();
    const QSize size = task.window.deviceSize();
    const double factor = task.window.devicePixelRatio();

    QVector<QRectF> taken{KRMapFurniture::scaleBarBox(size, projection, furnitureFactor * factor)};
    withGround([&](const KRMapGround *ground) {
        taken << KRMapFurniture::creditsBox(size, *ground, furnitureFactor * factor);
    });
    if (task.hasLegend)
        taken << KRMapLegend::box(task.selection, projection, size, factor);
    KRMapLabelBoard labels(QRectF(), 0.0);
    if (task.hasLabels)
        labels = KRTrackLabels::arranged(m_picker.visibleIn(task.window), projection, size, factor, taken);
    for (const KRMapLabel &label : labels.labels())
        taken << label.box();

    painter->save();
    painter->translate((task.picture().rectOf(task.window).topLeft() * factor).toPoint());
    if (!task.isCropped())
        withGround([&](KRMapGround *ground) { ground->paintNames(painter, size, projection, factor, taken); });
    labels.paint(painter);
    painter->restore();
}

void KRMapTracksThread::drawLegend(const Task &task)
{
    const bool isDrawn = m_drawnLegend && m_drawnLegend->hasLegend == task.hasLegend
                         && m_drawnLegend->selectionNumber == task.selectionNumber
                         && m_drawnLegend->window.deviceSize() == task.window.deviceSize();
    if (isDrawn)
        return;
    m_drawnLegend = task;
    const KRMapProjection projection = task.window.projection();
    const QSize size = task.window.deviceSize();
    const double factor = task.window.devicePixelRatio();
    const QRect box = KRMapLegend::box(task.selection, projection, size, factor).toAlignedRect();
    if (!task.hasLegend || box.isEmpty()) {
        emit legendDrawn(QImage(), QPoint());
        return;
    }
    QImage image(box.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.translate(-box.topLeft());
    KRMapLegend::paint(painter, task.selection, projection, size, factor);
    painter.end();
    emit legendDrawn(image, box.topLeft());
}
