#pragma once

#include "KRMapViewport.h"

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <functional>
#include <optional>

class KRMapGround;

/**
 * Draws something of a map window apart from the GUI thread; what, that is up to the classes derived from it.
 *
 * What is asked for last counts: a task that waits is replaced, and one that is being worked on is given up where
 * its picture would be of little use. Of a task only that is drawn which differs from what was drawn before. All
 * public functions are for the GUI thread, where the signals arrive too.
 */
class KRMapDrawingThread : public QThread
{
    Q_OBJECT

public:
    /// Pixels on all sides that the pictures reach beyond the window, so that a moved map has something to show.
    static constexpr int margin = 96;
    /// The letters of scale bar and credits are made for large pictures; in a window they have this part of their size.
    static constexpr double furnitureFactor = 0.5;

    /// What a map window shows. The numbers tell apart what differs, without looking at it.
    struct Task {
        int number = 0;
        KRMapViewport window;
        int groundNumber = 0;
        KRGPXTrackSelection selection;
        int selectionNumber = 0;
        int currentRow = -1; ///< the track to emphasise, -1 for none
        bool hasLabels = false; ///< names of the tracks on the map
        bool hasLegend = false;

        /// Whether the map fades away from the tracks.
        bool isCropped() const { return selection.effectiveCroppingOpacity() < 255; }
        /// The part of the map that is drawn, with the margin.
        KRMapViewport picture() const { return window.grown(margin); }
    };

    /// Not owned; nullptr for none. Waits until the one before is not being painted any more: then it may be deleted.
    void setGround(KRMapGround *ground);
    void draw(const Task &task);

signals:
    /// After all pictures of a task that was not given up or replaced.
    void taskDone(int number);

protected:
    explicit KRMapDrawingThread(QObject *parent = nullptr);

    /// Draws, in the thread. False where the task was given up.
    virtual bool work(const Task &task) = 0;
    /// Waits for what is being drawn; nothing is drawn any more. To be called first when a derived class is destroyed.
    void stop();

    // For work().
    bool isSuperseded(const Task &task);
    /// Calls @p use unless there is no ground, which lives until it returns.
    void withGround(const std::function<void(KRMapGround *)> &use);

private:
    void run() override;
    bool take(Task *task);

    QMutex m_mutex; // guards the next three
    QWaitCondition m_wakeUp;
    std::optional<Task> m_next;
    bool m_isStopping = false;

    QMutex m_groundMutex; // held while the ground is being used
    KRMapGround *m_ground = nullptr;
};
