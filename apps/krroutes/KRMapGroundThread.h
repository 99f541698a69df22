#pragma once

#include "KRMapDrawingThread.h"
#include "KRMapPicture.h"

#include <QImage>

/**
 * Draws what lies under the tracks of a map window, faded away from them where the selection says so.
 *
 * Apart from the tracks, so that the ground does not wait for a million points when the map is moved.
 */
class KRMapGroundThread : public KRMapDrawingThread
{
    Q_OBJECT

public:
    explicit KRMapGroundThread(QObject *parent = nullptr);
    /// Waits for what is being drawn.
    ~KRMapGroundThread() override;

signals:
    void drawn(const KRMapPicture &picture);

protected:
    bool work(const Task &task) override;

private:
    QImage paint(const Task &task);

    // What was drawn last.
    std::optional<Task> m_drawn;
    int m_croppedNumber = -1;
    QImage m_image;
};
