#include "KRMapDrawingThread.h"

#include "KRTrackEmphasis.h"

#include <KRHaloPainter.h>
#include <KRMapGround.h>
#include <KRMapTrackRenderer.h>

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

QImage emptyPicture(const KRMapViewport &viewport)
{
    QImage image(viewport.deviceSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

KRMapDrawingThread::KRMapDrawingThread(QObject *parent) : QThread(parent)
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
    return m_isStopping || (m_next && !isUseful(task.viewport, m_next->viewport));
}

void KRMapDrawingThread::run()
{
    Task task;
    while (take(&task)) {
        makePicker(task);
        drawGround(task);
        if (isSuperseded(task) || !drawTracks(task))
            continue;
        emphasise(task);
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
    const bool isNew =
        !m_drawnGround || m_drawnGround->groundNumber != task.groundNumber || m_drawnGround->viewport != task.viewport;
    if (isNew) {
        m_groundImage = paintGround(task.viewport);
        m_drawnGround = task;
        m_croppedGround.reset();
    }
    const bool isCropped = task.selection.effectiveCroppingOpacity() < 255;
    const bool wasCropped = m_croppedGround && m_croppedGround->selection.effectiveCroppingOpacity() < 255;
    const bool hasOtherTracks = !m_croppedGround || m_croppedGround->selectionNumber != task.selectionNumber;
    if (!isNew && !(hasOtherTracks && (isCropped || wasCropped)))
        return;
    m_croppedGround = task;
    QImage image = m_groundImage;
    if (isCropped && !image.isNull()) {
        const KRMapViewport &viewport = task.viewport;
        image = KRMapTrackRenderer(m_picker.visibleIn(viewport), viewport.projection(), viewport.deviceSize(),
                                   viewport.devicePixelRatio())
                    .crop(image);
    }
    emit groundDrawn({task.viewport, image});
}

QImage KRMapDrawingThread::paintGround(const KRMapViewport &viewport)
{
    const QMutexLocker locker(&m_groundMutex);
    if (m_ground == nullptr)
        return QImage();
    // Without alpha, so that it is shown the faster.
    QImage image(viewport.deviceSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    m_ground->paint(&painter, image.size(), viewport.projection(), viewport.devicePixelRatio());
    return image;
}

bool KRMapDrawingThread::drawTracks(const Task &task)
{
    if (m_drawnTracks && m_drawnTracks->selectionNumber == task.selectionNumber
        && m_drawnTracks->viewport == task.viewport)
        return true;
    m_drawnTracks.reset();
    m_emphasised.reset();
    m_tracksImage = QImage();
    const KRMapViewport &viewport = task.viewport;
    if (!task.selection.isEmpty()) {
        const KRGPXTrackSelection selection = m_picker.visibleIn(viewport);
        const KRMapProjection projection = viewport.projection();
        const double factor = viewport.devicePixelRatio();
        QImage image = emptyPicture(viewport);
        QPainter painter(&image);
        KRHaloPainter::paint(painter, selection, projection, image.size(), factor);
        painter.setRenderHint(QPainter::Antialiasing);
        const KRMapTrackRenderer renderer(selection, projection, image.size(), factor);
        const KRGPXConfiguredTrackList tracks = selection.tracks();
        for (const KRGPXConfiguredTrack &track : tracks) {
            if (isSuperseded(task))
                return false;
            renderer.drawTrack(&painter, track, StyledRender);
        }
        painter.end();
        m_tracksImage = image;
    }
    m_drawnTracks = task;
    return true;
}

void KRMapDrawingThread::emphasise(const Task &task)
{
    if (m_emphasised && m_emphasised->currentRow == task.currentRow)
        return;
    m_emphasised = task;
    QImage image = m_tracksImage;
    const KRMapViewport &viewport = task.viewport;
    if (task.selection.isValidRow(task.currentRow)) {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        KRTrackEmphasis::paint(&painter, task.selection.value(task.currentRow), viewport.projection(), image.size(),
                               viewport.devicePixelRatio());
    }
    emit tracksDrawn({viewport, image});
}
