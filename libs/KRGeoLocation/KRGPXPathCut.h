#pragma once

#include <QPainterPath>

class QRectF;

/// Leaves lines out that are far from a picture.
namespace KRGPXPathCut {

/**
 * The path without what lies outside the area. Its pieces get caps where they are cut.
 *
 * @param path of straight lines only
 * @param period after which dashes and gaps repeat, 0 for a solid pen; a piece begins as far before the area as a dash
 *     begins there
 */
QPainterPath cutTo(const QRectF &area, const QPainterPath &path, double period);

} // namespace KRGPXPathCut
