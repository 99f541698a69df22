#include "KRMainWindow.h"

#include <KRHostApplication.h>

#include <QApplication>

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    KRHostApplication::prepare(false);
    const QApplication application(argc, argv);
    KRHostApplication::setup(*qApp, QStringLiteral("krroutes"));
    KRMainWindow window;
    window.show();
    return QApplication::exec();
}
