#include "KRBackgroundTask.h"

#include <QEventLoop>
#include <QProgressDialog>
#include <QThread>

#include <memory>

bool KRBackgroundTask::run(QWidget *window, const QString &text, const std::function<void()> &work,
                           const std::function<void()> &stop)
{
    constexpr int patienceMs = 400;
    QProgressDialog progress(text, tr("Abbrechen"), 0, 0, window);
    progress.setWindowTitle(window->windowTitle());
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(patienceMs);
    progress.setAutoClose(false);

    QEventLoop loop;
    const std::unique_ptr<QThread> thread(QThread::create(work));
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    bool isCanceled = false;
    QObject::connect(&progress, &QProgressDialog::canceled, &loop, [&] {
        isCanceled = true;
        stop();
    });
    window->setEnabled(false);
    thread->start();
    loop.exec();
    thread->wait();
    window->setEnabled(true);
    return !isCanceled;
}
