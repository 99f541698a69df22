#include "KRMapDrawingThread.h"

#include "KRTrackEmphasis.h"

#include <KRHaloPainter.h>
#include <KRMapFurniture.h>
#include <KRMapGround.h>
#include <KRMapLabelBoard.h>
#include <KRMapLegend.h>
#include <KRMapTrackRenderer.h>
#include <KRTrackLabels.h>

#include <QMutexLocker>
#include <QPainter>

namespace {

// A picture of another scale or of elsewhere is of no use any more, one that was only moved a little is.
constexpr double largestChangeOfScale = 1.25;
constexpr double smallestShareInView = 0.5;

bool isUseful(const KRMapViewport &drawn, const KRMapViewport &wanted)
{
    const double change = wanted.worldWidth() / drawn.worldWidth();
    if (change > largestChangeOfScale || change < 1.0 / largestChangeOfScale)
        return false;
    const QRectF whole(QPointF(), drawn.size());
    const QRectF seen = whole & drawn.rectOf(wanted);
    return seen.width() * seen.height() >= smallestShareInView * whole.width() * whole.height();
}

bool isCropped(const KRMapDrawingThread::Task &task)
{
    return task.selection.effectiveCroppingOpacity() < 255;
}

KRMapViewport pictureOf(const KRMapDrawingThread::Task &task)
{
    return task.window.grown(KRMapDrawingThread::margin);
}

QImage emptyPicture(const KRMapViewport &viewport)
{
    QImage image(viewport.deviceSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

KRMapDrawingThread::KRMapDrawingThread(Part part, QObject *parent) : QThread(parent), m_part(part)
{
    qRegisterMetaType<KRMapPicture>();
    qRegisterMetaType<KRTrackPicker>();
}

KRMapDrawingThread::~KRMapDrawingThread()
{
    {
        const QMutexLocker locker(&m_mutex);
        m_isStopping = true;
        m_wakeUp.wakeAll();
    }
    wait();
}

void KRMapDrawingThread::setGround(KRMapGround *ground)
{
    const QMutexLocker locker(&m_groundMutex);
    m_ground = ground;
}

void KRMapDrawingThread::draw(const Task &task)
{
    const QMutexLocker locker(&m_mutex);
    m_next = task;
    m_wakeUp.wakeAll();
    if (!isRunning())
        start(QThread::LowPriority);
}

bool KRMapDrawingThread::take(Task *task)
{
    const QMutexLocker locker(&m_mutex);
    while (!m_next && !m_isStopping)
        m_wakeUp.wait(&m_mutex);
    if (m_isStopping)
        return false;
    *task = *m_next;
    m_next.reset();
    return true;
}

bool KRMapDrawingThread::isSuperseded(const Task &task)
{
    const QMutexLocker locker(&m_mutex);
    return m_isStopping || (m_next && !isUseful(task.window, m_next->window));
}

void KRMapDrawingThread::run()
{
    Task task;
    while (take(&task)) {
        if (m_part == Part::Ground) {
            drawGround(task);
        } else {
            makePicker(task);
            if (isSuperseded(task) || !drawTracks(task))
                continue;
            drawAboveTracks(task);
            drawLegend(task);
        }
        emit taskDone(task.number);
    }
}

void KRMapDrawingThread::makePicker(const Task &task)
{
    if (m_pickerNumber == task.selectionNumber)
        return;
    m_picker = KRTrackPicker(task.selection, m_picker);
    m_pickerNumber = task.selectionNumber;
    emit pickerMade(m_picker, m_pickerNumber);
}

void KRMapDrawingThread::drawGround(const Task &task)
{
    const bool isNew = !m_drawnGround || m_drawnGround->groundNumber != task.groundNumber
                       || m_drawnGround->window != task.window || isCropped(*m_drawnGround) != isCropped(task);
    if (!isNew && (!isCropped(task) || m_croppedNumber == task.selectionNumber))
        return;
    if (isNew)
        m_groundImage = paintGround(task);
    m_drawnGround = task;
    m_croppedNumber = task.selectionNumber;
    const KRMapViewport picture = pictureOf(task);
    QImage image = m_groundImage;
    if (isCropped(task) && !image.isNull()) {
        const KRMapTrackRenderer renderer(task.selection, picture.projection(), image.size(),
                                          picture.devicePixelRatio());
        image = renderer.crop(image);
    }
    emit groundDrawn({picture, image});
}

QImage KRMapDrawingThread::paintGround(const Task &task)
{
    const QMutexLocker locker(&m_groundMutex);
    if (m_ground == nullptr)
        return QImage();
    const KRMapViewport picture = pictureOf(task);
    // Without alpha, so that it is shown the faster.
    QImage image(picture.deviceSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    // Names of what is cropped fade with it; others are painted above the tracks.
    if (isCropped(task))
        m_ground->paint(&painter, image.size(), picture.projection(), picture.devicePixelRatio());
    else
        m_ground->paintBelow(&painter, image.size(), picture.projection(), picture.devicePixelRatio());
    return image;
}

bool KRMapDrawingThread::drawTracks(const Task &task)
{
    if (m_drawnTracks && m_drawnTracks->selectionNumber == task.selectionNumber && m_drawnTracks->window == task.window)
        return true;
    m_drawnTracks.reset();
    m_drawnAboveTracks.reset();
    const KRMapViewport picture = pictureOf(task);
    m_tracksImage = emptyPicture(picture);
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

void KRMapDrawingThread::drawAboveTracks(const Task &task)
{
    if (m_drawnAboveTracks && m_drawnAboveTracks->currentRow == task.currentRow
        && m_drawnAboveTracks->hasLabels == task.hasLabels && m_drawnAboveTracks->hasLegend == task.hasLegend
        && m_drawnAboveTracks->groundNumber == task.groundNumber)
        return;
    m_drawnAboveTracks = task;
    const KRMapViewport picture = pictureOf(task);
    QImage image = m_tracksImage;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (task.selection.isValidRow(task.currentRow))
        KRTrackEmphasis::paint(&painter, task.selection.value(task.currentRow), picture.projection(), image.size(),
                               picture.devicePixelRatio());
    paintNames(&painter, task);
    painter.end();
    emit tracksDrawn({picture, image});
}

// Within the window only, so that no name is cut by its edge and those along the edges of the map are seen.
void KRMapDrawingThread::paintNames(QPainter *painter, const Task &task)
{
    const KRMapProjection projection = task.window.projection();
    const QSize size = task.window.deviceSize();
    const double factor = task.window.devicePixelRatio();

    QVector<QRectF> taken{KRMapFurniture::scaleBarBox(size, projection, furnitureFactor * factor)};
    {
        const QMutexLocker locker(&m_groundMutex);
        if (m_ground != nullptr)
            taken << KRMapFurniture::creditsBox(size, *m_ground, furnitureFactor * factor);
    }
    if (task.hasLegend)
        taken << KRMapLegend::box(task.selection, projection, size, factor);
    KRMapLabelBoard labels(QRectF(), 0.0);
    if (task.hasLabels)
        labels = KRTrackLabels::arranged(m_picker.visibleIn(task.window), projection, size, factor, taken);
    for (const KRMapLabel &label : labels.labels())
        taken << label.box();

    painter->save();
    painter->translate((pictureOf(task).rectOf(task.window).topLeft() * factor).toPoint());
    const QMutexLocker locker(&m_groundMutex);
    if (m_ground != nullptr && !isCropped(task))
        m_ground->paintNames(painter, size, projection, factor, taken);
    labels.paint(painter);
    painter->restore();
}

void KRMapDrawingThread::drawLegend(const Task &task)
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
