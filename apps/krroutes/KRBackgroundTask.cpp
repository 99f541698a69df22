#include "KRBackgroundTask.h"

#include "KRProgressDialog.h"
#include "KRWaitCursor.h"

#include <KRCore/KRConcurrent.h>

#include <QEventLoop>
#include <QPointer>
#include <QThread>

#include <memory>
#include <utility>

namespace {

constexpr unsigned long unnoticedMs = 100; // a window that stands still, rather than one that flickers

} // namespace

bool KRBackgroundTask::run(QWidget *window, const QString &text, const std::function<void()> &work,
                           const std::function<void()> &stop)
{
    const KRWaitCursor cursor;
    QEventLoop loop;
    const std::unique_ptr<QThread> thread(QThread::create(work));
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    if (!KRConcurrent::start(thread.get())) {
        work();
        return true;
    }
    if (thread->wait(unnoticedMs))
        return true;

    const QPointer<QWidget> focusWidget = window->focusWidget();
    // Before there is the dialog, which would be disabled as well.
    window->setEnabled(false);
    KRProgressDialog progress(text, 0, window);
    bool isCanceled = false;
    QObject::connect(&progress, &QProgressDialog::canceled, &loop, [&] {
        if (!std::exchange(isCanceled, true))
            stop();
    });
    loop.exec();
    thread->wait();
    window->setEnabled(true);
    if (focusWidget)
        focusWidget->setFocus();
    return !isCanceled;
}
