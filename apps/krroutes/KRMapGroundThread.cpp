#include "KRMapGroundThread.h"

#include <KRMapGround.h>
#include <KRMapTrackRenderer.h>

#include <QPainter>

KRMapGroundThread::KRMapGroundThread(QObject *parent) : KRMapDrawingThread(parent)
{
    qRegisterMetaType<KRMapPicture>();
}

KRMapGroundThread::~KRMapGroundThread()
{
    stop();
}

bool KRMapGroundThread::work(const Task &task)
{
    const bool isNew = !m_drawn || m_drawn->groundNumber != task.groundNumber || m_drawn->window != task.window
                       || m_drawn->isCropped() != task.isCropped();
    if (!isNew && (!task.isCropped() || m_croppedNumber == task.selectionNumber))
        return true;
    if (isNew)
        m_image = paint(task);
    m_drawn = task;
    m_croppedNumber = task.selectionNumber;
    const KRMapViewport picture = task.picture();
    QImage image = m_image;
    if (task.isCropped() && !image.isNull()) {
        const KRMapTrackRenderer renderer(task.selection, picture.projection(), image.size(),
                                          picture.devicePixelRatio());
        image = renderer.crop(image);
    }
    emit drawn({picture, image});
    return true;
}

QImage KRMapGroundThread::paint(const Task &task)
{
    QImage image;
    withGround([&](KRMapGround *ground) {
        const KRMapViewport picture = task.picture();
        // Without alpha, so that it is shown the faster.
        image = QImage(picture.deviceSize(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        // Names of what is cropped fade with it; others are painted above the tracks.
        if (task.isCropped())
            ground->paint(&painter, image.size(), picture.projection(), picture.devicePixelRatio());
        else
            ground->paintBelow(&painter, image.size(), picture.projection(), picture.devicePixelRatio());
    });
    return image;
}
