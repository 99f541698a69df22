#pragma once

#include "KRMapPicture.h"
#include "KRTrackPicker.h"

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <optional>

class KRMapGround;
class QPainter;

/**
 * Draws the ground or the tracks of a map window apart from the GUI thread.
 *
 * Each has a thread of its own, so that the ground does not wait for a million points when the map is moved.
 *
 * What is asked for last counts: a task that waits is replaced, and one that is being worked on is given up where
 * its picture would be of little use. Of a task only that is drawn which differs from what was drawn before. All
 * functions are for the GUI thread, where the signals arrive too.
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
    };

    enum class Part {
        Ground, ///< emits groundDrawn()
        Tracks, ///< emits pickerMade(), tracksDrawn() and legendDrawn()
    };

    explicit KRMapDrawingThread(Part part, QObject *parent = nullptr);
    /// Waits for what is being drawn.
    ~KRMapDrawingThread() override;

    /// Not owned; nullptr for none. Waits until the one before is not being painted any more: then it may be deleted.
    void setGround(KRMapGround *ground);
    void draw(const Task &task);

signals:
    void groundDrawn(const KRMapPicture &picture);
    /// With all names, to be shown above the ground.
    void tracksDrawn(const KRMapPicture &picture);
    /// To be shown at @p topLeft of the window, in its pixels of the screen, wherever the map is moved to.
    void legendDrawn(const QImage &image, const QPoint &topLeft);
    /// Comes before the picture of the selection with that number.
    void pickerMade(const KRTrackPicker &picker, int selectionNumber);
    /// After all pictures of a task that was not given up or replaced.
    void taskDone(int number);

protected:
    void run() override;

private:
    bool take(Task *task);
    bool isSuperseded(const Task &task);
    void makePicker(const Task &task);
    void drawGround(const Task &task);
    bool drawTracks(const Task &task);
    void drawAboveTracks(const Task &task);
    void drawLegend(const Task &task);
    QImage paintGround(const Task &task);
    void paintNames(QPainter *painter, const Task &task);

    const Part m_part;

    QMutex m_mutex; // guards the next three
    QWaitCondition m_wakeUp;
    std::optional<Task> m_next;
    bool m_isStopping = false;

    QMutex m_groundMutex; // held while the ground is being painted
    KRMapGround *m_ground = nullptr;

    // What was drawn last, for the drawing thread alone.
    std::optional<Task> m_drawnGround;
    std::optional<Task> m_drawnTracks;
    std::optional<Task> m_drawnAboveTracks;
    std::optional<Task> m_drawnLegend;
    int m_croppedNumber = -1;
    int m_pickerNumber = -1;
    KRTrackPicker m_picker;
    QImage m_groundImage;
    QImage m_tracksImage;
};

Q_DECLARE_METATYPE(KRTrackPicker)
