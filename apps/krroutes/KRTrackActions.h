#pragma once

#include <KRGeoLocation/KRGPXConfiguredTrackList.h>
#include <KRGeoLocation/KRGeoPosition.h>

#include <QObject>

class KRRouteWorkspace;
class QAction;
class QMainWindow;
class QMenu;

/**
 * What the user does to the current track: each action is one undo step.
 */
class KRTrackActions : public QObject
{
    Q_OBJECT

public:
    /// @p window carries the actions and the dialogs.
    KRTrackActions(KRRouteWorkspace *workspace, QMainWindow *window);

    void addTo(QMenu *menu) const;

    /// The track that the actions are for; -1 for none.
    int currentRow() const { return m_row; }
    void setCurrentRow(int row);
    /// The place next to which a track is split, such as that under the marker; not valid for none.
    void setMarkedPosition(const KRGeoPosition &position);

signals:
    void rowSuggested(int row); ///< what the user goes on with after the change
    void zoomRequested(int row);

public slots:
    void rename();
    void remove();

private:
    QAction *add(const QString &iconKey, const QString &text, const QKeySequence &shortcut,
                 void (KRTrackActions::*slot)());
    QString name() const;
    KRGPXConfiguredTrack track() const;
    void replace(int count, const KRGPXConfiguredTrackList &tracks, const QString &text);
    void updateActions();

    void zoom();
    void duplicate();
    void reverse();
    void splitAtMarker();
    void splitSegments();
    void joinWithNext();
    void simplify();
    void moveUp();
    void moveDown();

    KRRouteWorkspace *m_workspace;
    QMainWindow *m_window;
    int m_row = -1;
    KRGeoPosition m_markedPosition;

    QList<QAction *> m_actions; ///< in the order of the menu, nullptr for a line between groups
    QAction *m_removeAction = nullptr;
    QAction *m_splitAction = nullptr;
    QAction *m_splitSegmentsAction = nullptr;
    QAction *m_joinAction = nullptr;
    QAction *m_simplifyAction = nullptr;
    QAction *m_upAction = nullptr;
    QAction *m_downAction = nullptr;
};
