#include "KRMainWindow.h"
#include "KRViewerIcons.h"
#include "KRViewerOptions.h"

#include <KRCore/KRQtCompat.h>
#include <KRHostApplication.h>

#include <QApplication>
#include <QTimer>

int main(int argc, char *argv[])
{
    KRQtCompat::enableHighDpi();
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    KRHostApplication::prepare(false);
    const QApplication application(argc, argv);
    KRHostApplication::setup(*qApp, QStringLiteral("krroutes"));
    QGuiApplication::setDesktopFileName(QStringLiteral("de.krgeolocation.krroutes"));
    QApplication::setWindowIcon(KRViewerIcons::applicationIcon());
    const KRViewerOptions options(QCoreApplication::arguments());

    KRMainWindow window;
    window.show();
    // Both may ask, which needs the event loop.
    QTimer::singleShot(0, &window, [&window, &options] {
        window.offerRecovery();
        window.openFiles(options.fileNames());
    });
    return QApplication::exec();
}
