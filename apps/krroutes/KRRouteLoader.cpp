#include "KRRouteLoader.h"

#include "KRBackgroundTask.h"
#include "KRImportReportDialog.h"
#include "KRPlainMessage.h"
#include "KRProgressDialog.h"
#include "KRRecoveryFolder.h"
#include "KRRouteWorkspace.h"
#include "KRWaitCursor.h"

#include <KRPlainText.h>
#include <KRRouteDocument.h>
#include <KRRouteImport.h>

#include <KRGeoLocation/KRTrackSelectionFactory.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QEventLoop>
#include <QFileInfo>
#include <QScopedValueRollback>

#include <atomic>

namespace {

QString firstReason(const KRErrorHistory &problems)
{
    return problems.isEmpty() ? QString() : problems.entries().first().toString();
}

} // namespace

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
    KRRouteImport import;
    if (!read(fileNames, &import))
        return false;

    const int firstRow = m_workspace->selection().count();
    const int count = import.tracks().size();
    m_workspace->addTracks(import.tracks(),
                           count == 1 ? tr("Route hinzufügen") : tr("%1 Routen hinzufügen").arg(count));
    if (count > 0)
        emit tracksAdded(firstRow);
    report(import.problems(), import.reports());
    return count > 0;
}

bool KRRouteLoader::read(const QStringList &fileNames, KRRouteImport *import)
{
    const QScopedValueRollback<bool> reading(m_isReading, true);
    const KRWaitCursor cursor;
    KRProgressDialog progress(tr("Dateien werden gelesen …"), fileNames.size(), m_window);
    progress.setWindowTitle(tr("Routen öffnen"));
    const auto showFile = [&progress](const QString &fileName, int number, int /*count*/) {
        progress.setLabelText(tr("„%1“ wird gelesen …").arg(KRPlainText::fileName(fileName)));
        progress.setValue(number - 1);
    };
    const auto stayAlive = [&progress] {
        // Until the dialog keeps input from the window, input waits.
        QCoreApplication::processEvents(progress.isVisible() ? QEventLoop::AllEvents
                                                             : QEventLoop::ExcludeUserInputEvents);
        return !progress.wasCanceled();
    };
    import->setProgressFunction(showFile);
    import->setWaitFunction(stayAlive);
    return import->read(fileNames);
}

bool KRRouteLoader::openDocument(const QString &fileName, const std::function<bool()> &mayReplace)
{
    const KRGPXTrackSelection former = m_workspace->selection();
    const QDateTime fileTime = QFileInfo(fileName).lastModified();
    const QString name = KRPlainText::fileName(fileName);
    KRRouteDocument document;
    KRErrorHistory problems;
    switch (read(fileName, tr("„%1“ wird gelesen …").arg(name), &document, &problems)) {
    case Read:
        if (m_workspace->selection() != former) {
            if (!mayReplace())
                return false;
            // Where that has saved the changes into this very file, what was read of it is older.
            if (!m_workspace->isModified() && QFileInfo(m_workspace->fileName()) == QFileInfo(fileName))
                return openDocument(fileName, mayReplace);
        }
        m_workspace->open(document, fileName, fileTime);
        report(problems, {});
        return true;
    case Unreadable:
        KRPlainMessage::critical(m_window, tr("Dokument öffnen"),
                                 tr("„%1“ kann nicht geöffnet werden.\n\n%2").arg(name, firstReason(problems)));
        return false;
    case Cancelled:
        break;
    }
    return false;
}

bool KRRouteLoader::recover(const KRRecoveryFolder &folder, const std::function<bool()> &mayReplace)
{
    const KRGPXTrackSelection former = m_workspace->selection();
    KRRouteDocument document;
    KRErrorHistory problems;
    switch (read(folder.recoveryFile(), tr("Die Änderungen werden gelesen …"), &document, &problems)) {
    case Read:
        if (m_workspace->selection() != former && !mayReplace())
            return false;
        m_workspace->recover(document, folder.documentFile(), folder.documentTime());
        return true;
    case Unreadable:
        KRPlainMessage::critical(
            m_window, tr("Ungesicherte Änderungen"),
            tr("Die Änderungen können nicht wiederhergestellt werden.\n\n%1").arg(firstReason(problems)));
        return false;
    case Cancelled:
        break;
    }
    return false;
}

KRRouteLoader::Outcome KRRouteLoader::read(const QString &fileName, const QString &text, KRRouteDocument *document,
                                           KRErrorHistory *problems)
{
    const QScopedValueRollback<bool> reading(m_isReading, true);
    std::atomic<bool> isStopped{false};
    document->setGoOnFunction([&isStopped] { return !isStopped; });
    bool isRead = false;
    const bool isWanted = KRBackgroundTask::run(
        m_window, text, [&] { isRead = document->load(QFileInfo(fileName), problems); }, [&] { isStopped = true; });
    document->setGoOnFunction(nullptr);
    if (!isWanted)
        return Cancelled;
    return isRead ? Read : Unreadable;
}

void KRRouteLoader::report(const KRErrorHistory &problems, const QList<KRImportReport> &reports)
{
    if (!problems.isEmpty() || !reports.isEmpty())
        KRImportReportDialog(problems, reports, m_window).exec();
}
