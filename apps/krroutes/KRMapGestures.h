#pragma once

#include <QHash>
#include <QObject>
#include <QPointF>

class QMouseEvent;
class QTouchEvent;
class QWheelEvent;
class QWidget;

/**
 * Tells what the hand does to a map with mouse, wheel and fingers.
 *
 * Drag with the left or the middle button, or with a finger: pan. Wheel: zoom about the pointer, sideways: pan. Double
 * click: zoom in. Two fingers: both. Pixels are those of the widget.
 */
class KRMapGestures : public QObject
{
    Q_OBJECT

public:
    /// Watches the events of @p map, which gets those of the mouse as well.
    explicit KRMapGestures(QWidget *map);

    /// Whether the map is being dragged by a button or a single finger.
    bool isDragging() const { return m_isDragged; }

signals:
    /// What lies under the hand goes that way.
    void panned(const QPointF &way);
    /// What lies at @p pixel stays.
    void zoomed(const QPointF &pixel, double factor);
    /// With the left button or a finger.
    void clicked(const QPoint &pixel);

protected:
    bool eventFilter(QObject *map, QEvent *event) override;

private:
    bool pressButton(const QMouseEvent *event);
    void moveMouse(const QMouseEvent *event);
    void turnWheel(QWheelEvent *event);
    void touch(QTouchEvent *event);

    void press(const QPoint &pixel);
    void dragTo(const QPoint &pixel);
    /// @p isClick unless another button than the left one was released.
    void release(const QPoint &pixel, bool isClick);
    /// Without a click, wherever button and fingers are.
    void letGo();

    QPoint m_draggedTo;
    bool m_isPressed = false;
    bool m_isDragged = false;
    QHash<int, QPointF> m_fingers; ///< where each of them was last
};
