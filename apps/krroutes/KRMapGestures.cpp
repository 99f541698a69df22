#include "KRMapGestures.h"

#include <KRCore/KRQtCompat.h>

#include <QApplication>
#include <QLineF>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QTouchEvent>
#include <QWheelEvent>
#include <QWidget>

#include <cmath>
#include <utility>

namespace {

constexpr double doubleClickFactor = 2.0;
constexpr double wheelUnitsPerDoubling = 240.0; ///< two notches of a common wheel

} // namespace

KRMapGestures::KRMapGestures(QWidget *map) : QObject(map)
{
    map->setAttribute(Qt::WA_AcceptTouchEvents);
    map->setMouseTracking(true);
    map->installEventFilter(this);
}

bool KRMapGestures::eventFilter(QObject *map, QEvent *event)
{
    // A filter comes before the widget, which takes nothing while it is disabled.
    if (!static_cast<QWidget *>(map)->isEnabled())
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return pressButton(static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        moveMouse(static_cast<QMouseEvent *>(event));
        return false;
    case QEvent::MouseButtonRelease: {
        const auto *const mouse = static_cast<QMouseEvent *>(event);
        release(KRQtCompat::position(mouse).toPoint(), mouse->button() == Qt::LeftButton);
        return false;
    }
    case QEvent::MouseButtonDblClick: {
        const auto *const mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::LeftButton)
            emit zoomed(KRQtCompat::position(mouse), doubleClickFactor);
        return true;
    }
    case QEvent::Wheel:
        turnWheel(static_cast<QWheelEvent *>(event));
        return true;
    case QEvent::NativeGesture: {
        const auto *const gesture = static_cast<QNativeGestureEvent *>(event);
        if (gesture->gestureType() != Qt::ZoomNativeGesture)
            return false;
        emit zoomed(KRQtCompat::position(gesture), 1.0 + gesture->value());
        return true;
    }
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        touch(static_cast<QTouchEvent *>(event));
        return true;
    case QEvent::TouchCancel:
        letGo();
        return true;
    default:
        return QObject::eventFilter(map, event);
    }
}

bool KRMapGestures::pressButton(const QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton && event->button() != Qt::MiddleButton)
        return false;
    press(KRQtCompat::position(event).toPoint());
    return true;
}

void KRMapGestures::moveMouse(const QMouseEvent *event)
{
    // A menu or another window may have got the release.
    if (event->buttons() == Qt::NoButton)
        letGo();
    dragTo(KRQtCompat::position(event).toPoint());
}

void KRMapGestures::turnWheel(QWheelEvent *event)
{
    const QPoint turn = event->angleDelta();
    if (std::abs(turn.x()) > 2 * std::abs(turn.y()))
        emit panned(QPointF(turn.x() / 2.0, 0.0));
    else
        emit zoomed(event->position(), std::exp2(turn.y() / wheelUnitsPerDoubling));
    event->accept();
}

// One finger is what the left button is; two move and scale the map.
void KRMapGestures::touch(QTouchEvent *event)
{
    event->accept();
    const QList<KRQtCompat::Touch> touches = KRQtCompat::touches(event);
    const QHash<int, QPointF> fingersBefore = std::exchange(m_fingers, {});
    for (const KRQtCompat::Touch &touch : touches)
        m_fingers.insert(touch.id, touch.position);
    if (touches.size() > 1) {
        const auto positionBefore = [&fingersBefore](const KRQtCompat::Touch &touch) {
            return touch.isNew ? touch.position : fingersBefore.value(touch.id, touch.position);
        };
        const QLineF before(positionBefore(touches.at(0)), positionBefore(touches.at(1)));
        const QLineF now(touches.at(0).position, touches.at(1).position);
        m_isPressed = false;
        emit zoomed(before.center(), before.length() > 0.0 ? now.length() / before.length() : 1.0);
        emit panned(now.center() - before.center());
        return;
    }
    const QPoint pixel = touches.isEmpty() ? m_draggedTo : touches.first().position.toPoint();
    if (event->type() == QEvent::TouchBegin)
        press(pixel);
    else if (event->type() == QEvent::TouchUpdate)
        dragTo(pixel);
    else
        release(pixel, true);
}

void KRMapGestures::press(const QPoint &pixel)
{
    m_isPressed = true;
    m_isDragged = false;
    m_draggedTo = pixel;
}

void KRMapGestures::dragTo(const QPoint &pixel)
{
    const QPoint way = pixel - m_draggedTo;
    if (!m_isPressed || (!m_isDragged && way.manhattanLength() < QApplication::startDragDistance()))
        return;
    m_isDragged = true;
    m_draggedTo = pixel;
    emit panned(way);
}

void KRMapGestures::release(const QPoint &pixel, bool isClick)
{
    const bool wasClicked = m_isPressed && !m_isDragged && isClick;
    letGo();
    if (wasClicked)
        emit clicked(pixel);
}

void KRMapGestures::letGo()
{
    m_isPressed = false;
    m_isDragged = false;
}
