#pragma once

#include "KRMapGroundThread.h"
#include "KRMapTracksThread.h"

#include <KRGeoLocation/KRGPXTrackSelection.h>

#include <QMetaObject>
#include <QPointF>
#include <QWidget>

class KRMapGestures;
class KRMapGround;

/**
 * The map: shows ground and tracks, is moved and zoomed by mouse, keys and fingers, and tells what lies where.
 *
 * Ground and tracks are drawn by threads of their own; meanwhile the last picture is moved and scaled, so that the map
 * follows the hand however much there is to draw. Rows count as the tracks of the selection.
 *
 * Mouse and fingers: see KRMapGestures. Keys: arrows, plus, minus, Home for all tracks.
 */
class KRMapView : public QWidget
{
    Q_OBJECT

public:
    explicit KRMapView(QWidget *parent = nullptr);
    ~KRMapView() override;

    /// Shared, and cheap. The viewport stays.
    void setTracks(const KRGPXTrackSelection &selection);
    /// Not owned, and must live until another one was set; nullptr for none.
    void setGround(KRMapGround *ground);
    /// The track to emphasise, -1 for none.
    void setCurrentTrack(int row);
    /// A position to point at; an invalid one for none.
    void setMarker(const KRGeoPosition &position);
    /// The names of the tracks on the map.
    void setLabels(bool isPainted);
    void setLegend(bool isPainted);

    KRMapViewport viewport() const { return m_viewport; }
    /// Whatever size the viewport has, it takes that of the window.
    void setViewport(const KRMapViewport &viewport);

    /// Whether the picture of this viewport is complete, apart from what the ground is still fetching.
    bool isUpToDate() const;
    /// What is seen at a pixel of the window; no track while new tracks are being looked through.
    KRTrackPicker::Hit hitAt(const QPoint &pixel) const;

    QSize sizeHint() const override;

public slots:
    /// Without any track: Europe.
    void showAll();
    void showTrack(int row);
    void zoomIn();
    void zoomOut();

signals:
    /// Invalid when the pointer leaves the map.
    void positionHovered(const KRGeoPosition &position);
    void trackClicked(int row);
    /// Beside all tracks.
    void positionClicked(const KRGeoPosition &position);
    /// @p row is -1 beside all tracks, @p position always valid: there is no menu beyond the ends of the map.
    void trackContextMenuRequested(int row, const KRGeoPosition &position, const QPoint &globalPosition);
    void viewportChanged();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    /// What to show as soon as the tracks have been looked through and the window has its size.
    struct Wish {
        bool isOpen = false;
        int row = -1; ///< -1 for all
    };

    void changeViewport(const KRMapViewport &viewport);
    // What moves the map by hand gives up the wish.
    void pan(const QPointF &way);
    void zoomAbout(const QPointF &pixel, double factor);
    void requestDrawing();
    void fulfilWish();
    void takePicker(const KRTrackPicker &picker, int selectionNumber);
    void hover(const QPoint &pixel);
    void click(const QPoint &pixel);
    void showToolTip(const QPoint &pixel, const QPoint &globalPosition);

    void paintMarker(QPainter *painter) const;
    void paintFurniture(QPainter *painter) const;
    void paintFocusFrame(QPainter *painter) const;

    KRMapGestures *m_gestures;
    KRMapViewport m_viewport;
    KRMapGround *m_ground = nullptr;
    QMetaObject::Connection m_groundChanges;
    int m_groundNumber = 0;
    KRGPXTrackSelection m_selection;
    int m_selectionNumber = 0;
    int m_currentRow = -1;
    KRGeoPosition m_marker;
    bool m_hasLabels = false;
    bool m_hasLegend = false;
    Wish m_wish;
    bool m_wasPainted = false;

    KRMapPicture m_groundPicture;
    KRMapPicture m_tracksPicture;
    QImage m_legend;
    QPoint m_legendCorner;
    KRTrackPicker m_picker;
    int m_pickerNumber = -1;
    int m_taskNumber = 0;
    int m_groundTaskDone = 0;
    int m_tracksTaskDone = 0;

    // The first to go.
    KRMapGroundThread m_groundThread;
    KRMapTracksThread m_tracksThread;
};
