#pragma once

#include <KRGeoLocation/KRGPXConfiguredTrack.h>

#include <QListView>
#include <QTimer>

class KRGPXTrackListModel;
class KRTrackRowDelegate;

/**
 * The list of the tracks: one row with name and buttons for each, and at most one of them current.
 *
 * Rows are reordered by dragging them. The current track stays current when the tracks around it move, come or go.
 * Return asks to edit it, Space to zoom to it; Tab leads to its buttons; typing looks for a name. Widgets of rows far
 * out of sight are closed, so that ten thousand rows cost no more than a few pages.
 */
class KRTrackListView : public QListView
{
    Q_OBJECT

public:
    /// @p model outlives the view.
    explicit KRTrackListView(KRGPXTrackListModel *model, QWidget *parent = nullptr);
    ~KRTrackListView() override;

    /// -1 when no track is current.
    int currentTrack() const { return currentIndex().row(); }

    /// Moves the current track to the gap between two rows that is nearest to @p position, in pixels of the viewport.
    void dropCurrentTrack(const QPoint &position);

public slots:
    /// Makes a track current and shows its row; a row that there is not leaves none current.
    void selectTrack(int row);
    /// Shows the row and lets it blink.
    void blinkTrack(int row);

signals:
    /// Also when another track has come to stand in the current row.
    void currentTrackChanged(int row);
    void editRequested(int row);
    void deleteRequested(int row);
    void zoomRequested(int row);
    void markRequested(int row);
    /// @p row is -1 beside all rows.
    void contextMenuRequested(int row, const QPoint &globalPosition);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void scrollContentsBy(int dx, int dy) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void restoreCurrentTrack();
    void followCurrentTrack(int firstRow, int lastRow);
    void rememberCurrentTrack();
    void updateTabOrder(int row, bool isCurrent);
    void moveCurrentTrack(int to);
    void closeRowsOutOfSight();
    /// 0 is above the first row, the number of rows below the last.
    int gapAt(const QPoint &position) const;
    void showInsertionMark(int gap);
    void paintCurrentRow();
    void paintMissingNames();
    void paintInvitation();

    KRGPXTrackListModel *m_model;
    KRTrackRowDelegate *m_delegate;
    QWidget *m_insertionMark; // above the widgets of the rows, which would hide what the view itself paints
    QTimer m_closingTimer;
    KRGPXConfiguredTrack m_currentTrack;
    int m_rowBeforeReset = -1;
};
