#pragma once

#include "KRGPXPathRaster.h"
#include "KRGeoLocationExport.h"

#include <QSize>

#include <cstdint>
#include <vector>

class QPainterPath;
class QTransform;

/**
 * How much of what is drawn below would still show in each part of an image, when drawing is looked at from top to
 * bottom.
 *
 * The parts are squares of 4 pixels. An opaque area hides at once what lies in the squares that it covers as a whole;
 * half transparent ones hide it when all together leave less than one level of a colour. Of figures that cover parts of
 * squares many are needed, since nobody knows which parts: sixteen times the square, if opaque. Made for one image, on
 * one thread.
 */
class KRGEOLOCATION_EXPORT KRGPXOpacityMap
{
public:
    /// @param size of the image in pixels
    explicit KRGPXOpacityMap(const QSize &size);

    /**
     * Looks at the next lower area.
     *
     * @param transform from the outline to pixels of the image; moves and scales only
     */
    void setArea(const QPainterPath &outline, const QTransform &transform);
    /// Whether anything of the area is not hidden.
    bool isInSight() const;
    /// Takes the area as drawn. @param alpha of its colour, 0 to 255
    void add(int alpha);

private:
    using Level = std::uint16_t;

    /// Squares side by side, from the first to before the end.
    struct Stretch {
        std::size_t first;
        std::size_t end;
        unsigned coverage; // of 255
    };

    QSize m_squares;
    KRGPXPathRaster m_raster;
    std::vector<Level> m_levels; // row by row
    std::vector<Stretch> m_area;
    bool m_isFar = false; // beyond what can be looked at
};
