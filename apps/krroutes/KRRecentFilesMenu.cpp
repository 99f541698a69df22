#include "KRRecentFilesMenu.h"

#include "KRViewerSettings.h"

#include <KRPlainText.h>

#include <QDir>
#include <QFileInfo>

KRRecentFilesMenu::KRRecentFilesMenu(QWidget *parent) : QMenu(tr("&Zuletzt benutzt"), parent)
{
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &KRRecentFilesMenu::fill);
    fill();
}

void KRRecentFilesMenu::fill()
{
    clear();
    const QStringList files = KRViewerSettings().recentFiles();
    for (int i = 0; i < files.size(); ++i) {
        const QFileInfo file(files.at(i));
        const QString name = KRPlainText::oneLine(file.fileName()).replace(QLatin1Char('&'), QLatin1String("&&"));
        const QString number = i < 9 ? QStringLiteral("&%1  ").arg(i + 1) : QString();
        QAction *const action = addAction(number + name);
        action->setToolTip(KRPlainText::toolTip(QDir::toNativeSeparators(file.filePath())));
        connect(action, &QAction::triggered, this, [this, path = file.filePath()] { emit fileChosen(path); });
    }
    addSeparator();
    QAction *const clearing = addAction(tr("Liste &leeren"), this, [] { KRViewerSettings().clearRecentFiles(); });
    clearing->setEnabled(!files.isEmpty());
}
