#pragma once

#include "KRMapDrawingThread.h"
#include "KRMapPicture.h"
#include "KRTrackPicker.h"

#include <QImage>

class QPainter;

/**
 * Draws the tracks of a map window, the names on it and the legend, and looks through the tracks for the pointer.
 */
class KRMapTracksThread : public KRMapDrawingThread
{
    Q_OBJECT

public:
    explicit KRMapTracksThread(QObject *parent = nullptr);
    /// Waits for what is being drawn.
    ~KRMapTracksThread() override;

signals:
    /// Comes before the picture of the selection with that number.
    void pickerMade(const KRTrackPicker &picker, int selectionNumber);
    /// With all names, to be shown above the ground.
    void drawn(const KRMapPicture &picture);
    /// To be shown at @p topLeft of the window, in its pixels of the screen, wherever the map is moved to.
    void legendDrawn(const QImage &image, const QPoint &topLeft);

protected:
    bool work(const Task &task) override;

private:
    void makePicker(const Task &task);
    bool drawTracks(const Task &task);
    void drawAboveTracks(const Task &task);
    void drawLegend(const Task &task);
    void paintNames(QPainter *painter, const Task &task);

    // What was drawn last.
    std::optional<Task> m_drawnTracks;
    std::optional<Task> m_drawnAboveTracks;
    std::optional<Task> m_drawnLegend;
    int m_pickerNumber = -1;
    KRTrackPicker m_picker;
    QImage m_tracksImage;
};

Q_DECLARE_METATYPE(KRTrackPicker)
