#pragma once

#include <KRGeoLocation/KRGPXTrack.h>

#include <QFutureWatcher>
#include <QSharedPointer>
#include <QVector>
#include <QWidget>

class KRTrackFigures;
class QGridLayout;
class QLabel;

/**
 * Lists the figures of one track, in two columns where there is room for them.
 *
 * Those of large tracks are counted in another thread and appear when that is done.
 */
class KRFiguresPanel : public QWidget
{
    Q_OBJECT

public:
    explicit KRFiguresPanel(QWidget *parent = nullptr);

    /// Shared and cheap. A track that is equal to the present one changes nothing.
    void setTrack(const KRGPXTrack &track);
    /// No track at all.
    void clear();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    using SharedFigures = QSharedPointer<const KRTrackFigures>;

    struct Row {
        QLabel *title;
        QLabel *value;
    };

    QLabel *addRow(const QString &title);
    /// Of one column in pixels, with the space beside it.
    int columnWidth() const;
    void layOut(int columns);
    void showFigures(const KRTrackFigures &figures);
    void showEverywhere(const QString &text);

    KRGPXTrack m_track;
    bool m_hasTrack = false;
    QFutureWatcher<SharedFigures> m_counter;

    QGridLayout *m_grid = nullptr;
    QVector<Row> m_rows;
    QLabel *m_length = nullptr;
    QLabel *m_climb = nullptr;
    QLabel *m_descent = nullptr;
    QLabel *m_elevation = nullptr;
    QLabel *m_points = nullptr;
    QLabel *m_segments = nullptr;
    QLabel *m_from = nullptr;
    QLabel *m_to = nullptr;
    QLabel *m_duration = nullptr;
    QLabel *m_averageSpeed = nullptr;
    QLabel *m_maximumSpeed = nullptr;
};
