#include "KRDocumentActions.h"

#include "KRBackgroundTask.h"
#include "KRPlainMessage.h"
#include "KRRecentFilesMenu.h"
#include "KRRouteLoader.h"
#include "KRRouteWorkspace.h"
#include "KRViewerAction.h"
#include "KRViewerSettings.h"

#include <KRPlainText.h>
#include <KRRouteDocument.h>

#include <KRCore/KRErrorHistory.h>

#include <QAction>
#include <QDateTime>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QToolBar>

#include <atomic>

KRDocumentActions::KRDocumentActions(KRRouteWorkspace *workspace, QMainWindow *window)
    : QObject(window), m_workspace(workspace), m_window(window), m_loader(new KRRouteLoader(workspace, window)),
      m_recentFiles(new KRRecentFilesMenu(window)),
      m_newAction(KRViewerAction::make(window, QStringLiteral("ico_new"), tr("&Neu"), QKeySequence::New)),
      m_openAction(KRViewerAction::make(window, QStringLiteral("ico_open"), tr("Ö&ffnen …"), QKeySequence::Open)),
      m_saveAction(KRViewerAction::make(window, QStringLiteral("ico_save"), tr("&Speichern"), QKeySequence::Save)),
      m_saveAsAction(KRViewerAction::make(window, QStringLiteral("ico_save_as"), tr("Speichern &unter …"),
                                          QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)))
{
    m_openAction->setStatusTip(tr("Öffnet ein Routendokument oder fügt Routen aus anderen Dateien hinzu"));
    connect(m_newAction, &QAction::triggered, this, &KRDocumentActions::startNew);
    connect(m_openAction, &QAction::triggered, this, &KRDocumentActions::askForFiles);
    connect(m_saveAction, &QAction::triggered, this, &KRDocumentActions::save);
    connect(m_saveAsAction, &QAction::triggered, this, &KRDocumentActions::saveAs);
    connect(m_loader, &KRRouteLoader::tracksAdded, this, &KRDocumentActions::tracksAdded);
    connect(m_recentFiles, &KRRecentFilesMenu::fileChosen, this,
            [this](const QString &fileName) { openFiles({fileName}); });
}

void KRDocumentActions::addTo(QMenu *menu) const
{
    menu->addAction(m_newAction);
    menu->addAction(m_openAction);
    menu->addMenu(m_recentFiles);
    menu->addSeparator();
    menu->addAction(m_saveAction);
    menu->addAction(m_saveAsAction);
}

void KRDocumentActions::addTo(QToolBar *toolBar) const
{
    toolBar->addActions({m_newAction, m_openAction, m_saveAction});
}

void KRDocumentActions::openFiles(const QStringList &fileNames)
{
    if (fileNames.isEmpty() || isBusy())
        return;
    const bool isDocument = fileNames.size() == 1 && KRRouteDocument::isDocument(QFileInfo(fileNames.first()));
    if (isDocument && !mayLoseChanges())
        return;
    const bool isRead = isDocument ? m_loader->openDocument(fileNames.first(), [this] { return mayLoseChanges(); })
                                   : m_loader->import(fileNames);
    if (!isRead)
        return;
    for (const QString &fileName : fileNames) {
        if (QFileInfo::exists(fileName))
            KRViewerSettings().addRecentFile(fileName);
    }
}

bool KRDocumentActions::recover(const KRRecoveryFolder &folder)
{
    return !isBusy() && m_loader->recover(folder, [this] { return mayLoseChanges(); });
}

bool KRDocumentActions::mayLoseChanges()
{
    // Nothing takes the place of the document, nor does the window close, while files are being read or written.
    if (isBusy())
        return false;
    if (!m_workspace->isModified())
        return true;
    const QString name =
        m_workspace->fileName().isEmpty() ? tr("Unbenannt") : KRPlainText::fileName(m_workspace->fileName());
    KRPlainMessage question(QMessageBox::Warning, tr("Ungesicherte Änderungen"),
                            tr("Das Dokument „%1“ wurde geändert.").arg(name),
                            QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, m_window);
    question.setInformativeText(tr("Sollen die Änderungen gespeichert werden?"));
    question.setDefaultButton(QMessageBox::Save);
    question.setEscapeButton(QMessageBox::Cancel);
    switch (question.exec()) {
    case QMessageBox::Save:
        return save() && !m_workspace->isModified(); // which it may have been meanwhile
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}

void KRDocumentActions::startNew()
{
    if (mayLoseChanges())
        m_workspace->startNew();
}

void KRDocumentActions::askForFiles()
{
    QFileDialog dialog(m_window, tr("Öffnen"), KRViewerSettings().lastFolder());
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setNameFilters(KRRouteLoader::nameFilters());
    if (dialog.exec() != QDialog::Accepted)
        return;
    KRViewerSettings().setLastFolder(dialog.directory().absolutePath());
    openFiles(dialog.selectedFiles());
}

bool KRDocumentActions::save()
{
    if (m_workspace->fileName().isEmpty())
        return saveAs();
    const QString reason = tr("Ein anderes Programm hat die Datei seit dem letzten Lesen oder Speichern geändert.");
    if (m_workspace->isChangedOutside() && !mayOverwrite(m_workspace->fileName(), reason))
        return false;
    return saveTo(m_workspace->fileName());
}

bool KRDocumentActions::saveAs()
{
    QFileDialog dialog(m_window, tr("Speichern unter"), KRViewerSettings().lastFolder());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(tr("Routendokumente (%1)").arg(QStringLiteral("*.") + KRRouteDocument::suffix()));
    dialog.setDefaultSuffix(KRRouteDocument::suffix());
    if (!m_workspace->fileName().isEmpty())
        dialog.selectFile(m_workspace->fileName());
    // Its own question would obey markup in the name.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    while (dialog.exec() == QDialog::Accepted) {
        KRViewerSettings().setLastFolder(dialog.directory().absolutePath());
        // The dialog appends the suffix only to names without any; a document never replaces a file of another kind.
        QString fileName = dialog.selectedFiles().value(0);
        if (!KRRouteDocument::isDocument(QFileInfo(fileName)))
            fileName += QLatin1Char('.') + KRRouteDocument::suffix();
        if (!QFileInfo::exists(fileName) || mayOverwrite(fileName, tr("Es gibt die Datei schon.")))
            return saveTo(fileName);
    }
    return false;
}

bool KRDocumentActions::isBusy() const
{
    return m_isSaving || m_loader->isReading();
}

bool KRDocumentActions::saveTo(const QString &fileName)
{
    if (isBusy())
        return false;
    const QScopedValueRollback<bool> saving(m_isSaving, true);
    const QString name = KRPlainText::fileName(fileName);
    KRRouteDocument document = m_workspace->document();
    std::atomic<bool> isStopped{false};
    document.setGoOnFunction([&isStopped] { return !isStopped; });
    KRErrorHistory problems;
    bool isSaved = false;
    QDateTime fileTime;
    const bool isWanted = KRBackgroundTask::run(
        m_window, tr("„%1“ wird gespeichert …").arg(name),
        [&] {
            isSaved = document.save(QFileInfo(fileName), &problems);
            fileTime = QFileInfo(fileName).lastModified();
        },
        [&] { isStopped = true; });
    // Also when the user has cancelled it too late.
    if (isSaved) {
        m_workspace->setSaved(document, fileName, fileTime);
        KRViewerSettings().addRecentFile(fileName);
        return true;
    }
    if (!isWanted)
        return false;
    const QString reason = problems.isEmpty() ? QString() : problems.entries().first().toString();
    KRPlainMessage::critical(
        m_window, tr("Speichern"),
        tr("„%1“ kann nicht gespeichert werden. Die Änderungen sind noch da.\n\n%2").arg(name, reason));
    return false;
}

bool KRDocumentActions::mayOverwrite(const QString &fileName, const QString &reason) const
{
    KRPlainMessage question(QMessageBox::Warning, tr("Speichern"),
                            tr("„%1“ überschreiben?").arg(KRPlainText::fileName(fileName)), QMessageBox::Cancel,
                            m_window);
    question.setInformativeText(reason);
    QPushButton *const overwriting = question.addButton(tr("Ü&berschreiben"), QMessageBox::DestructiveRole);
    question.setDefaultButton(QMessageBox::Cancel);
    question.exec();
    return question.clickedButton() == overwriting;
}
