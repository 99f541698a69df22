#include "KRBackgroundTask.h"

#include <QEventLoop>
#include <QPointer>
#include <QProgressDialog>
#include <QThread>

#include <memory>

bool KRBackgroundTask::run(QWidget *window, const QString &text, const std::function<void()> &work,
                           const std::function<void()> &stop)
{
    constexpr int patienceMs = 400;
    const QPointer<QWidget> focusWidget = window->focusWidget();
    // Before there is the dialog, which would be disabled as well.
    window->setEnabled(false);
    QProgressDialog progress(text, tr("Abbrechen"), 0, 0, window);
    progress.setWindowTitle(window->windowTitle());
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(patienceMs);
    progress.setAutoClose(false);
    progress.setValue(0); // from now on it waits to be shown

    QEventLoop loop;
    const std::unique_ptr<QThread> thread(QThread::create(work));
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    bool isCanceled = false;
    QObject::connect(&progress, &QProgressDialog::canceled, &loop, [&] {
        isCanceled = true;
        stop();
    });
    thread->start();
    if (thread->isRunning() || thread->isFinished())
        loop.exec();
    else
        work(); // the system starts no further thread
    thread->wait();
    window->setEnabled(true);
    if (focusWidget)
        focusWidget->setFocus();
    return !isCanceled;
}
