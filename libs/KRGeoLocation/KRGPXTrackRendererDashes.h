#pragma once

class QPainter;
class QPainterPath;

/**
 * Keeps dashed lines affordable: painting takes time for every dash, in sight or not, and a line from continent to
 * continent has millions of them on the map of a street.
 */
namespace KRGPXTrackRendererDashes {

/**
 * Strokes a path of straight lines with the pen of the painter, which must not have a brush.
 *
 * Like QPainter::drawPath(), except that a path of very many dashes is cut to what is in sight. The dashes in sight
 * stay where they are if the pen is wider than a pixel. A pattern that repeats within a pixel is drawn as a solid line,
 * and so are more dashes in sight than anybody can tell apart.
 */
void drawPath(QPainter *painter, const QPainterPath &path);

} // namespace KRGPXTrackRendererDashes
