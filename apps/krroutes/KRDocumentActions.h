#pragma once

#include <QObject>
#include <QStringList>

class KRRecentFilesMenu;
class KRRecoveryFolder;
class KRRouteLoader;
class KRRouteWorkspace;
class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

/**
 * The user's ways to start, open and save documents and to read route files, with all questions that belong to them.
 *
 * Nothing unsaved is given up and no file is written over unless the user says so.
 */
class KRDocumentActions : public QObject
{
    Q_OBJECT

public:
    /// @p window carries the actions and the dialogs.
    KRDocumentActions(KRRouteWorkspace *workspace, QMainWindow *window);

    void addTo(QMenu *menu) const;
    void addTo(QToolBar *toolBar) const;

    /// A single route document is opened instead of the present one; anything else is added to it. Does nothing while
    /// files are being read or written.
    void openFiles(const QStringList &fileNames);
    /// Goes on with what has been left behind. False when the user cancels and, with a message, when it cannot be read.
    bool recover(const KRRecoveryFolder &folder);
    /// Asks where there are unsaved changes; false when the user wants to keep working on them, and without a question
    /// while files are being read or written.
    bool mayLoseChanges();

signals:
    void tracksAdded(int firstRow); ///< from files

public slots:
    void startNew();
    void askForFiles();
    /// False when nothing was saved.
    bool save();
    bool saveAs();

private:
    bool isBusy() const;
    bool saveTo(const QString &fileName);
    bool mayOverwrite(const QString &fileName, const QString &reason) const;

    KRRouteWorkspace *m_workspace;
    QMainWindow *m_window;
    KRRouteLoader *m_loader;
    bool m_isSaving = false;
    KRRecentFilesMenu *m_recentFiles;
    QAction *m_newAction;
    QAction *m_openAction;
    QAction *m_saveAction;
    QAction *m_saveAsAction;
};
