#include "KRRouteLoader.h"

#include "KRBackgroundTask.h"
#include "KRImportReportDialog.h"
#include "KRRouteWorkspace.h"
#include "KRWaitCursor.h"

#include <KRRouteDocument.h>
#include <KRRouteImport.h>

#include <KRGeoLocation/KRTrackSelectionFactory.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QMessageBox>
#include <QProgressDialog>
#include <QScopedValueRollback>

KRRouteLoader::KRRouteLoader(KRRouteWorkspace *workspace, QWidget *window)
    : QObject(window), m_workspace(workspace), m_window(window)
{ }

QStringList KRRouteLoader::nameFilters()
{
    const QString documents = QStringLiteral("*.") + KRRouteDocument::suffix();
    const QString exchange = KRTrackSelectionFactory::instance()->supportedFileFormats().join(QLatin1Char(' '));
    return {tr("Alle lesbaren Dateien (%1)").arg(documents + QLatin1Char(' ') + exchange),
            tr("Routendokumente (%1)").arg(documents), tr("Routen anderer Programme (%1)").arg(exchange),
            tr("Alle Dateien (*)")};
}

bool KRRouteLoader::import(const QStringList &fileNames)
{
    constexpr int patienceMs = 400;
    QProgressDialog progress(tr("Dateien werden gelesen …"), tr("Abbrechen"), 0, fileNames.size(), m_window);
    progress.setWindowTitle(tr("Routen öffnen"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(patienceMs);

    const auto showFile = [&progress](const QString &fileName, int number, int /*count*/) {
        progress.setLabelText(tr("„%1“ wird gelesen …").arg(QFileInfo(fileName).fileName()));
        progress.setValue(number - 1);
    };
    const auto stayAlive = [&progress] {
        // Until the dialog keeps input from the window, input waits.
        QCoreApplication::processEvents(progress.isVisible() ? QEventLoop::AllEvents
                                                             : QEventLoop::ExcludeUserInputEvents);
        return !progress.wasCanceled();
    };
    KRRouteImport import;
    import.setProgressFunction(showFile);
    import.setWaitFunction(stayAlive);
    const bool isRead = [&] {
        const QScopedValueRollback<bool> reading(m_isReading, true);
        const KRWaitCursor cursor;
        return import.read(fileNames);
    }();
    if (!isRead)
        return false;
    progress.setValue(fileNames.size());

    const int firstRow = m_workspace->selection().count();
    const int count = import.tracks().size();
    m_workspace->addTracks(import.tracks(),
                           count == 1 ? tr("Route hinzufügen") : tr("%1 Routen hinzufügen").arg(count));
    if (count > 0)
        emit tracksAdded(firstRow);
    report(import.problems(), import.reports());
    return count > 0;
}

bool KRRouteLoader::openDocument(const QString &fileName)
{
    const QString name = QFileInfo(fileName).fileName();
    KRRouteDocument document;
    KRErrorHistory problems;
    bool isOpen = false;
    const bool isWanted = [&] {
        const QScopedValueRollback<bool> reading(m_isReading, true);
        const KRWaitCursor cursor;
        return KRBackgroundTask::run(
            m_window, tr("„%1“ wird gelesen …").arg(name),
            [&] { isOpen = document.load(QFileInfo(fileName), &problems); }, [] {});
    }();
    if (!isWanted)
        return false;
    if (isOpen) {
        m_workspace->open(document, fileName);
        report(problems, {});
        return true;
    }
    const QString reason = problems.isEmpty() ? QString() : problems.entries().first().toString();
    QMessageBox::critical(m_window, tr("Dokument öffnen"),
                          tr("„%1“ kann nicht geöffnet werden.\n\n%2").arg(name, reason));
    return false;
}

void KRRouteLoader::report(const KRErrorHistory &problems, const QList<KRImportReport> &reports)
{
    if (!problems.isEmpty() || !reports.isEmpty())
        KRImportReportDialog(problems, reports, m_window).exec();
}
