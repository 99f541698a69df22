#include "KRMainWindow.h"
#include "KRPlainMessage.h"
#include "KRViewerIcons.h"
#include "KRViewerOptions.h"

#include <KRCore/KRConcurrent.h>
#include <KRCore/KRQtCompat.h>
#include <KRHostApplication.h>

#include <QApplication>
#include <QTimer>

int main(int argc, char *argv[])
{
    // First of all: other threads, which come and go, would disturb the count.
    const bool hasThreads = KRConcurrent::fillPool();
    KRQtCompat::enableHighDpi();
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    if (!KRHostApplication::prepare(false))
        return 1;
    const QApplication application(argc, argv);
    KRHostApplication::setup(*qApp, QStringLiteral("krroutes"));
    QGuiApplication::setDesktopFileName(QStringLiteral("de.krgeolocation.krroutes"));
    QApplication::setWindowIcon(KRViewerIcons::applicationIcon());
    const KRViewerOptions options(QCoreApplication::arguments());

    // The pool has its threads from now on. It would wait for ever for one that could not be started.
    if (!hasThreads) {
        KRPlainMessage::critical(nullptr, QCoreApplication::applicationName(),
                                 KRMainWindow::tr("Das System startet keinen weiteren Thread, und ohne wird nichts "
                                                  "gezeichnet."));
        return 1;
    }

    KRMainWindow window;
    window.show();
    // Both may ask, which needs the event loop.
    QTimer::singleShot(0, &window, [&window, &options] {
        window.offerRecovery();
        window.openFiles(options.fileNames());
    });
    return QApplication::exec();
}
