#include "KRGPXWorldStrip.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

// Of no more copies each is drawn for itself, whatever it takes.
constexpr double mostCopiesForEach = 4.0;
constexpr double mostCopiesOnPage = 16.0;
// In all copies.
constexpr double fewPoints = 1e6;
constexpr double fewPointsOnPage = 4e6;

// Images of several worlds are painted faster than of one, and are fewer in a file.
constexpr int usualImageWidth = 1024;

// Farther away there is no map.
constexpr double farthestPx = 1e8;

} // namespace

KRGPXWorldStrip::KRGPXWorldStrip(const QPointF &world, const QPointF &worldOffset, const QSize &mapSize)
    : m_mapSize(mapSize)
{
    // Of a world that is not whole pixels wide no copy is like the next.
    const double width = worldOffset.x();
    const bool areCopiesAlike = width >= 1.0 && width == std::floor(width) && worldOffset.y() == 0.0;
    if (!areCopiesAlike || mapSize.width() / width <= mostCopiesForEach || !(std::abs(world.x()) <= farthestPx))
        return;
    m_worldWidth = int(width);
    m_rect = QRect(int(std::floor(world.x())), 0, m_worldWidth, mapSize.height());
}

void KRGPXWorldStrip::setContent(double points, double reach, bool isOnPage)
{
    if (!isPossible())
        return;
    const int margin = int(std::ceil(std::min<double>(reach, m_mapSize.width())));
    m_rect.adjust(-margin, 0, margin, 0);
    const double copies = double(m_mapSize.width()) / m_worldWidth;
    const bool areVeryMany =
        isOnPage ? copies > mostCopiesOnPage && points * copies > fewPointsOnPage : points * copies > fewPoints;
    m_isWorthwhile = areVeryMany && m_rect.width() <= m_mapSize.width() / 2;
}

void KRGPXWorldStrip::draw(QPainter *painter, const std::function<void(QPainter *)> &drawStrip) const
{
    QImage strip(m_rect.size(), QImage::Format_ARGB32_Premultiplied);
    const int worlds = std::max(1, usualImageWidth / m_worldWidth);
    QImage image(worlds * m_worldWidth, m_rect.height(), QImage::Format_ARGB32_Premultiplied);
    if (strip.isNull() || image.isNull())
        return;
    strip.fill(Qt::transparent);
    image.fill(Qt::transparent);
    QPainter stripPainter(&strip);
    stripPainter.setRenderHints(painter->renderHints());
    stripPainter.translate(-m_rect.topLeft());
    drawStrip(&stripPainter);
    stripPainter.end();

    const int margin = (m_rect.width() - m_worldWidth) / 2;
    QPainter imagePainter(&image);
    for (int i = 0; i < worlds; ++i)
        imagePainter.drawImage(QPoint(i * m_worldWidth, 0), strip, QRect(margin, 0, m_worldWidth, image.height()));
    imagePainter.end();

    const int first = m_rect.left() + margin;
    const int images = int(std::ceil(double(first) / image.width())); // as many fit to the left of copy 0
    for (int x = first - images * image.width(); x < m_mapSize.width(); x += image.width())
        painter->drawImage(QPoint(x, 0), image);
}
