#include "KRMainWindow.h"

#include "KRAutosave.h"
#include "KRDocumentActions.h"
#include "KRRecoveryOffer.h"
#include "KRTrackActions.h"
#include "KRViewerAction.h"
#include "KRViewerSettings.h"

#include <KRCore/KRErrorHistory.h>

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>

namespace {

QStringList localFiles(const QMimeData *mimeData)
{
    QStringList files;
    const QList<QUrl> urls = mimeData->urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    return files;
}

} // namespace

KRMainWindow::KRMainWindow(const QDir &recoveryPlace, QWidget *parent)
    : QMainWindow(parent), m_recoveryPlace(recoveryPlace),
      m_autosave(new KRAutosave(&m_workspace, recoveryPlace, this)),
      m_documentActions(new KRDocumentActions(&m_workspace, this)),
      m_trackActions(new KRTrackActions(&m_workspace, this)), m_positionLabel(new QLabel(this))
{
    setAcceptDrops(true);
    statusBar()->addPermanentWidget(m_positionLabel);
    createFileMenu();
    createEditMenu();
    createTrackMenu();
    createHelpMenu();
    connect(&m_workspace, &KRRouteWorkspace::documentChanged, this, &KRMainWindow::updateTitle);
    connect(m_autosave, &KRAutosave::failed, this, [this](const QString &reason) {
        statusBar()->showMessage(tr("Ungesicherte Änderungen sind nicht vor einem Absturz sicher: %1").arg(reason));
    });
    updateTitle();
    restoreWindow();
}

void KRMainWindow::openFiles(const QStringList &fileNames)
{
    m_documentActions->openFiles(fileNames);
}

void KRMainWindow::offerRecovery()
{
    std::unique_ptr<KRRecoveryFolder> folder = KRRecoveryOffer::ask(m_recoveryPlace, this);
    if (!folder)
        return;
    KRErrorHistory problems;
    if (m_workspace.recover(folder->recoveryFile(), folder->documentFile(), &problems)) {
        m_autosave->adopt(std::move(folder));
        return;
    }
    const QString reason = problems.isEmpty() ? QString() : problems.entries().first().toString();
    QMessageBox::critical(this, tr("Ungesicherte Änderungen"),
                          tr("Die Änderungen können nicht wiederhergestellt werden.\n\n%1").arg(reason));
}

void KRMainWindow::closeEvent(QCloseEvent *event)
{
    if (!m_documentActions->mayLoseChanges()) {
        event->ignore();
        return;
    }
    KRViewerSettings().setWindow(saveGeometry(), saveState());
    event->accept();
}

void KRMainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!localFiles(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void KRMainWindow::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    // Later, since the program that the files come from waits until this returns.
    QMetaObject::invokeMethod(
        this, [this, files = localFiles(event->mimeData())] { openFiles(files); }, Qt::QueuedConnection);
}

void KRMainWindow::createFileMenu()
{
    QMenu *const menu = menuBar()->addMenu(tr("&Datei"));
    m_documentActions->addTo(menu);
    menu->addSeparator();
    QAction *const quit =
        KRViewerAction::make(this, QStringLiteral("ico_quit"), tr("&Beenden"), QKeySequence(Qt::CTRL + Qt::Key_Q));
    connect(quit, &QAction::triggered, this, &QWidget::close);
    menu->addAction(quit);

    QToolBar *const toolBar = addToolBar(tr("Werkzeugleiste"));
    toolBar->setObjectName(QStringLiteral("toolBar"));
    m_documentActions->addTo(toolBar);
}

void KRMainWindow::createEditMenu()
{
    QMenu *const menu = menuBar()->addMenu(tr("&Bearbeiten"));
    QAction *const undo = m_workspace.undoStack()->createUndoAction(this);
    undo->setShortcut(QKeySequence::Undo);
    QAction *const redo = m_workspace.undoStack()->createRedoAction(this);
    redo->setShortcuts({QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_Z), QKeySequence(Qt::CTRL + Qt::Key_Y)});
    menu->addActions({undo, redo});
}

void KRMainWindow::createTrackMenu()
{
    m_trackActions->addTo(menuBar()->addMenu(tr("&Route")));
}

void KRMainWindow::createHelpMenu()
{
    QMenu *const menu = menuBar()->addMenu(tr("&Hilfe"));
    menu->addAction(tr("&Über dieses Programm"), this, &KRMainWindow::showAbout);
}

void KRMainWindow::restoreWindow()
{
    const KRViewerSettings settings;
    if (!restoreGeometry(settings.windowGeometry()))
        resize(1200, 800);
    restoreState(settings.windowState());
}

void KRMainWindow::updateTitle()
{
    const QString fileName = m_workspace.fileName();
    const QString name = fileName.isEmpty() ? tr("Unbenannt") : QFileInfo(fileName).completeBaseName();
    setWindowTitle(tr("%1[*] – Routen").arg(name));
    setWindowModified(m_workspace.isModified());
}

void KRMainWindow::showPosition(const KRGeoPosition &position)
{
    constexpr bool inDegreesMinutesSeconds = true;
    m_positionLabel->setText(position.isValid()
                                 ? position.latitude().toString(inDegreesMinutesSeconds) + QStringLiteral(",  ")
                                       + position.longitude().toString(inDegreesMinutesSeconds)
                                 : QString());
}

void KRMainWindow::showAbout()
{
    QMessageBox::about(this, tr("Über dieses Programm"),
                       tr("<h3>Routen %1</h3><p>Zeigt, bearbeitet und druckt Strecken und Orte auf einer Landkarte.</p>"
                          "<p>Karte: Made with Natural Earth.</p>")
                           .arg(QCoreApplication::applicationVersion().toHtmlEscaped()));
}
