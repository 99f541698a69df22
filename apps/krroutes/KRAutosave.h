#pragma once

#include "KRRecoveryFolder.h"

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QObject>
#include <QTimer>

#include <memory>

class KRRouteWorkspace;
class QThread;

/**
 * Writes the unsaved work of a workspace aside, a second after a change, so that a crash loses no more.
 *
 * Writing runs in a thread of its own, not in the pool, where it could keep the map waiting or the map it; where the
 * system starts none it runs in that of the window. Where there are many points each track is written once, so that
 * changes of looks cost little. A document that is too large to be saved is not tried again before it has become
 * smaller. What was written is removed as soon as the document is saved, and the whole folder when the object ends.
 * GUI thread only.
 */
class KRAutosave : public QObject
{
    Q_OBJECT

public:
    /// Runs until something is wrong with @p place; then it says so at the first change.
    KRAutosave(KRRouteWorkspace *workspace, const QDir &place, QObject *parent = nullptr);
    /// Waits for what is being written.
    ~KRAutosave() override;

    /// How long after a change it is written, so that a series of changes is written once.
    void setDelay(int delayMs) { m_timer.setInterval(delayMs); }
    /// Up to so many points are written each time, into one file, which is quicker than a file for each track.
    void setMostPointsInOneFile(int count) { m_mostPointsInOneFile = count; }

    /// From now on work is kept in the folder that a crashed program has left and the workspace has just recovered.
    void adopt(std::unique_ptr<KRRecoveryFolder> folder);

signals:
    void written(); ///< what has changed until a second ago survives a crash
    void failed(const QString &reason);

private:
    struct Result {
        QString failure; ///< the reason; empty without one
        bool isTooLarge = false; ///< what was to be written, for any place
    };

    static Result write(const KRGPXTrackSelection &selection, const QString &fileName, bool inOneFile);
    void scheduleWriting();
    void startWriting();
    void finishWriting();

    KRRouteWorkspace *m_workspace;
    std::unique_ptr<KRRecoveryFolder> m_folder;
    QTimer m_timer;
    int m_mostPointsInOneFile = 100000;
    std::unique_ptr<QThread> m_writer; ///< null while nothing is written
    Result m_result; ///< of the writer
    int m_trackCount = 0; ///< of what was to be written last, as the next
    int m_pointCount = 0;
};
