#pragma once

#include <QObject>
#include <QStringList>

#include <functional>

class KRErrorHistory;
class KRImportReport;
class KRRecoveryFolder;
class KRRouteDocument;
class KRRouteImport;
class KRRouteWorkspace;
class QWidget;

/**
 * Reads route files into a workspace, with a progress dialog that can be cancelled, and tells the user what of them
 * is not drawn.
 */
class KRRouteLoader : public QObject
{
    Q_OBJECT

public:
    /// @p window carries the dialogs.
    KRRouteLoader(KRRouteWorkspace *workspace, QWidget *window);

    /// Name filters for a file dialog: all that can be read, then each kind.
    static QStringList nameFilters();

    /// Whether files are being read. The program handles events meanwhile.
    bool isReading() const { return m_isReading; }
    /// Adds the tracks of the files, one undo step for all; nothing when the user cancels. False when none came.
    bool import(const QStringList &fileNames);
    /// Opens a route document instead of the one that is open. False when the user cancels and, with a message, when it
    /// cannot be read. @p mayReplace is asked where the one that is open has changed meanwhile.
    bool openDocument(const QString &fileName, const std::function<bool()> &mayReplace);
    /// The same with what has been left behind, as the unsaved state of its document.
    bool recover(const KRRecoveryFolder &folder, const std::function<bool()> &mayReplace);

signals:
    /// While the report of their files is still to come.
    void tracksAdded(int firstRow);

private:
    /// False when the user cancels.
    bool read(const QStringList &fileNames, KRRouteImport *import);
    enum Outcome : int {
        Read = 0,
        Unreadable = 1,
        Cancelled = 2,
    };
    /// @p text says meanwhile what is being done.
    Outcome read(const QString &fileName, const QString &text, KRRouteDocument *document, KRErrorHistory *problems);
    void report(const KRErrorHistory &problems, const QList<KRImportReport> &reports);

    KRRouteWorkspace *m_workspace;
    QWidget *m_window;
    bool m_isReading = false;
};
