#pragma once

#include <QPointF>
#include <QRect>
#include <QSize>

#include <functional>

class QPainter;

/**
 * One of the many copies of a narrow world, drawn as an image that all of them show.
 *
 * Very many tracks would otherwise be drawn, or written into a file, once for each of the copies. Lengths are pixels of
 * the map.
 */
class KRGPXWorldStrip
{
public:
    /**
     * @param world where copy 0 begins
     * @param worldOffset from longitude -180 to 180; need not be finite
     */
    KRGPXWorldStrip(const QPointF &world, const QPointF &worldOffset, const QSize &mapSize);

    /// Whether there are many copies, which are all alike.
    bool isPossible() const { return m_worldWidth > 0; }
    /// @param points to be drawn in each copy
    /// @param reach of their marks, on both sides
    /// @param isOnPage whether they would stay lines and areas, which is given up for very many only
    void setContent(double points, double reach, bool isOnPage);
    /// Whether so many points in so many copies take long, and fewer in the strip.
    bool isWorthwhile() const { return m_isWorthwhile; }
    /// What is drawn for it in the place of the map: one world, and what reaches into it on both sides.
    QRect rect() const { return m_rect; }
    /// Fills the map with what @p drawStrip draws in rect(); with nothing where there is no memory for it.
    void draw(QPainter *painter, const std::function<void(QPainter *)> &drawStrip) const;

private:
    QSize m_mapSize;
    int m_worldWidth = 0; // where no strip is possible
    QRect m_rect; // of one world until there is content
    bool m_isWorthwhile = false;
};
