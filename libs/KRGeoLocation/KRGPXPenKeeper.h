#pragma once

#include <QBrush>
#include <QPainter>
#include <QPen>

/**
 * Has a painter draw with a pen and a brush, and gives it its own ones back in the end.
 *
 * For many small things QPainter::save() takes longer than they do, and in SVG makes groups without content.
 */
class KRGPXPenKeeper
{
public:
    /// The painter stays with the caller.
    KRGPXPenKeeper(QPainter *painter, const QPen &pen, const QBrush &brush)
        : m_painter(painter), m_pen(painter->pen()), m_brush(painter->brush())
    {
        painter->setPen(pen);
        painter->setBrush(brush);
    }
    ~KRGPXPenKeeper()
    {
        m_painter->setPen(m_pen);
        m_painter->setBrush(m_brush);
    }

private:
    Q_DISABLE_COPY(KRGPXPenKeeper)

    QPainter *const m_painter;
    const QPen m_pen;
    const QBrush m_brush;
};
