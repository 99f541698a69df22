#include "KRGPXOpacityMap.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int squarePx = 4;

constexpr unsigned fullCoverage = 255;
// Sixteen times a whole square, in parts of 255.
constexpr unsigned hidden = 16 * fullCoverage;
// By how much more half transparent figures that cover parts of squares are taken to hide than if they covered all.
constexpr double crowding = 3.0;

// Which part of what is needed to leave less than a level of a colour an area of this alpha is (Beer and Lambert).
double partOfHiding(int alpha)
{
    return alpha >= 255 ? 1.0 : std::min(1.0, std::log(1.0 - std::max(0, alpha) / 255.0) / std::log(1.0 / 256.0));
}

} // namespace

KRGPXOpacityMap::KRGPXOpacityMap(const QSize &size)
    : m_squares((size.width() + squarePx - 1) / squarePx, (size.height() + squarePx - 1) / squarePx),
      m_raster(m_squares, Qt::OddEvenFill), m_levels(std::size_t(m_squares.width()) * std::size_t(m_squares.height()))
{ }

void KRGPXOpacityMap::setArea(const QPainterPath &outline, const QTransform &transform)
{
    m_area.clear();
    const QTransform toSquares = transform * QTransform::fromScale(1.0 / squarePx, 1.0 / squarePx);
    m_isFar = !KRGPXPathRaster::reaches(toSquares.mapRect(outline.controlPointRect()));
    if (m_isFar)
        return;
    m_raster.clear(outline.fillRule());
    m_raster.add(outline, toSquares);
    m_raster.visit([this](int row, int first, int end, unsigned coverage) {
        const std::size_t start = std::size_t(row) * std::size_t(m_squares.width());
        m_area.push_back({start + std::size_t(first), start + std::size_t(end), coverage});
    });
}

bool KRGPXOpacityMap::isInSight() const
{
    const auto shows = [](Level level) { return level < hidden; };
    return m_isFar || std::any_of(m_area.begin(), m_area.end(), [&](const Stretch &stretch) {
               const Level *const levels = m_levels.data();
               return std::any_of(levels + stretch.first, levels + stretch.end, shows);
           });
}

void KRGPXOpacityMap::add(int alpha)
{
    const double part = partOfHiding(alpha);
    const double partOfCrowd = std::min(1.0, crowding * part);
    for (const Stretch &stretch : m_area) {
        const bool isFull = stretch.coverage == fullCoverage;
        const auto more = unsigned(isFull ? part * hidden : partOfCrowd * stretch.coverage);
        for (std::size_t square = stretch.first; square < stretch.end; ++square)
            m_levels[square] = Level(std::min(hidden, m_levels[square] + more));
    }
}
