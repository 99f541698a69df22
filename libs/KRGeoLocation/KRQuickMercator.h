#pragma once

#include <QPointF>

struct KRGeoPositionSpan;

/**
 * Positions to whole pixels in the Mercator projection, four at a time in the wide registers of the processor.
 *
 * Polynomials stand for the sine and the logarithm here, so a coordinate differs a little from the one that the
 * functions of the standard library give. Where that might decide about the whole pixel nothing is projected, so
 * that the pixels are always those of KRMapProjection. Nothing is projected either outside the Mercator square,
 * where the error grows, beyond the range of int, and on processors without such registers.
 */
namespace KRQuickMercator {

constexpr int groupSize = 4;

/// The width of 360 degrees and the top-left corner of the image, in pixels of a map of the whole world.
struct World {
    double size;
    double xOffset;
    double yOffset;
};

/// Projects groups from the first position on, and stops before a group with a position that has to be left to the
/// standard library, or at the end before less than a group. Returns how many positions were projected.
int project(const KRGeoPositionSpan &positions, const World &world, QPointF *pixels);

} // namespace KRQuickMercator
