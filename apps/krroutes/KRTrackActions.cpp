#include "KRTrackActions.h"

#include "KRPlainMessage.h"
#include "KRRouteWorkspace.h"
#include "KRSimplifyDialog.h"
#include "KRViewerAction.h"

#include <KRSegmentSplitter.h>
#include <KRTrackEditing.h>

#include <QAction>
#include <QInputDialog>
#include <QMainWindow>
#include <QMenu>

#include <utility>

KRTrackActions::KRTrackActions(KRRouteWorkspace *workspace, QMainWindow *window)
    : QObject(window), m_workspace(workspace), m_window(window)
{
    add(QStringLiteral("ico_fit_map"), tr("&Auf der Karte zeigen"), QKeySequence(Qt::CTRL | Qt::Key_T),
        &KRTrackActions::zoom);
    m_actions.append(nullptr);
    add(QStringLiteral("ico_rename"), tr("&Umbenennen …"), QKeySequence(Qt::Key_F2), &KRTrackActions::rename);
    add(QStringLiteral("ico_duplicate"), tr("&Verdoppeln"), QKeySequence(Qt::CTRL | Qt::Key_D),
        &KRTrackActions::duplicate);
    m_removeAction =
        add(QStringLiteral("ico_deleteListItem"), tr("&Löschen"), QKeySequence::Delete, &KRTrackActions::remove);
    m_actions.append(nullptr);
    add(QStringLiteral("ico_reverse"), tr("&Richtung umkehren"), QKeySequence(Qt::CTRL | Qt::Key_R),
        &KRTrackActions::reverse);
    m_splitAction = add(QStringLiteral("ico_split"), tr("Am markierten Punkt &teilen"),
                        QKeySequence(Qt::CTRL | Qt::Key_K), &KRTrackActions::splitAtMarker);
    m_splitAction->setStatusTip(tr("Markiert wird ein Punkt im Höhenprofil oder mit der rechten Maustaste"));
    m_splitSegmentsAction = add(QStringLiteral("ico_split_segments"), tr("In Segmente &zerlegen"), QKeySequence(),
                                &KRTrackActions::splitSegments);
    m_joinAction = add(QStringLiteral("ico_join"), tr("Mit der nächsten ver&binden"),
                       QKeySequence(Qt::CTRL | Qt::Key_J), &KRTrackActions::joinWithNext);
    m_simplifyAction =
        add(QStringLiteral("ico_simplify"), tr("Verein&fachen …"), QKeySequence(), &KRTrackActions::simplify);
    m_actions.append(nullptr);
    m_upAction =
        add(QStringLiteral("ico_up"), tr("Nach &oben"), QKeySequence(Qt::ALT | Qt::Key_Up), &KRTrackActions::moveUp);
    m_downAction = add(QStringLiteral("ico_down"), tr("Nach u&nten"), QKeySequence(Qt::ALT | Qt::Key_Down),
                       &KRTrackActions::moveDown);
    connect(workspace, &KRRouteWorkspace::selectionChanged, this, &KRTrackActions::updateActions);
    updateActions();
}

void KRTrackActions::addTo(QMenu *menu) const
{
    for (QAction *const action : m_actions) {
        if (action != nullptr)
            menu->addAction(action);
        else
            menu->addSeparator();
    }
}

void KRTrackActions::setCurrentRow(int row)
{
    m_row = row;
    updateActions();
}

void KRTrackActions::setMarkedPosition(const KRGeoPosition &position)
{
    m_markedPosition = position;
    updateActions();
}

void KRTrackActions::rename()
{
    bool isAccepted = false;
    const QString newName =
        QInputDialog::getText(m_window, tr("Route umbenennen"), tr("&Name:"), QLineEdit::Normal, name(), &isAccepted);
    if (isAccepted)
        replace(1, {KRTrackEditing::renamed(track(), newName)}, tr("„%1“ umbenennen").arg(name()));
}

void KRTrackActions::remove()
{
    const int row = m_row;
    m_workspace->removeTrack(row);
    emit rowSuggested(qMin(row, m_workspace->selection().count() - 1));
}

QAction *KRTrackActions::add(const QString &iconKey, const QString &text, const QKeySequence &shortcut,
                             void (KRTrackActions::*slot)())
{
    QAction *const action = KRViewerAction::make(m_window, iconKey, text, shortcut);
    connect(action, &QAction::triggered, this, slot);
    m_actions.append(action);
    return action;
}

QString KRTrackActions::name() const
{
    return track().name();
}

KRGPXConfiguredTrack KRTrackActions::track() const
{
    return m_workspace->selection().value(m_row);
}

void KRTrackActions::replace(int count, const KRGPXConfiguredTrackList &tracks, const QString &text)
{
    const int row = m_row;
    m_workspace->replaceTracks(row, count, tracks, text);
    emit rowSuggested(row);
}

void KRTrackActions::updateActions()
{
    const KRGPXTrackSelection selection = m_workspace->selection();
    const bool isTrack = selection.checkRange(m_row);
    // A document keeps a track whose file it could not read, and which has no points, as long as nothing changes it.
    const auto hasPoints = [&selection](int row) {
        return selection.checkRange(row) && selection.value(row).track().isValid();
    };
    for (QAction *const action : std::as_const(m_actions)) {
        if (action != nullptr)
            action->setEnabled(hasPoints(m_row));
    }
    m_removeAction->setEnabled(isTrack);
    m_upAction->setEnabled(isTrack && m_row > 0);
    m_downAction->setEnabled(isTrack && selection.checkRange(m_row + 1));
    if (!hasPoints(m_row))
        return;
    const KRGPXConfiguredTrack current = selection.value(m_row);
    // An area with holes has no two parts to which each hole would belong.
    m_splitAction->setEnabled(m_markedPosition.isValid() && !current.isSinglePoint()
                              && current.track().enclaves().isEmpty());
    m_splitSegmentsAction->setEnabled(current.track().segments().size() > 1);
    m_joinAction->setEnabled(hasPoints(m_row + 1));
    m_simplifyAction->setEnabled(!current.isSinglePoint());
}

void KRTrackActions::zoom()
{
    emit zoomRequested(m_row);
}

void KRTrackActions::duplicate()
{
    const int row = m_row;
    const KRGPXConfiguredTrack copy = KRTrackEditing::renamed(track(), tr("%1 (Kopie)").arg(name()));
    m_workspace->replaceTracks(row + 1, 0, {copy}, tr("„%1“ verdoppeln").arg(name()));
    emit rowSuggested(row + 1);
}

void KRTrackActions::reverse()
{
    replace(1, {KRTrackEditing::reversed(track())}, tr("Richtung von „%1“ umkehren").arg(name()));
}

void KRTrackActions::splitAtMarker()
{
    const KRGPXConfiguredTrack whole = track();
    const int point = KRTrackEditing::nearestPoint(whole, m_markedPosition);
    replace(1, KRTrackEditing::split(whole, point), tr("„%1“ teilen").arg(name()));
}

void KRTrackActions::splitSegments()
{
    const KRGPXConfiguredTrackList whole(track());
    const QString refusal = KRSegmentSplitter::refusal(whole);
    if (refusal.isEmpty())
        replace(1, KRSegmentSplitter::split(whole), tr("„%1“ zerlegen").arg(name()));
    else
        KRPlainMessage::critical(m_window, tr("Zerlegen"), refusal);
}

void KRTrackActions::joinWithNext()
{
    const KRGPXConfiguredTrack next = m_workspace->selection().value(m_row + 1);
    replace(2, {KRTrackEditing::joined(track(), next)}, tr("„%1“ und „%2“ verbinden").arg(name(), next.name()));
}

void KRTrackActions::simplify()
{
    KRSimplifyDialog dialog(track(), m_window);
    if (dialog.exec() == QDialog::Accepted)
        replace(1, KRGPXConfiguredTrackList(dialog.simplified()), tr("„%1“ vereinfachen").arg(name()));
}

void KRTrackActions::moveUp()
{
    const int row = m_row;
    m_workspace->moveTrack(row, row - 1);
    emit rowSuggested(row - 1);
}

void KRTrackActions::moveDown()
{
    const int row = m_row;
    m_workspace->moveTrack(row, row + 1);
    emit rowSuggested(row + 1);
}
