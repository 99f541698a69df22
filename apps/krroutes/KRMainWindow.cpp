#include "KRMainWindow.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

KRMainWindow::KRMainWindow(QWidget *parent) : QMainWindow(parent)
{
    setWindowTitle(tr("Routen"));
    createFileMenu();
}

void KRMainWindow::createFileMenu()
{
    QMenu *const menu = menuBar()->addMenu(tr("&Datei"));
    QAction *const quit = menu->addAction(tr("&Beenden"), this, &QWidget::close);
    quit->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_Q));
}
