#pragma once

#include "KRGPXLineCrowd.h"
#include "KRGeoLocationExport.h"

#include <optional>

class QBrush;
class QPainter;
class QPainterPath;

/**
 * Paints long paths fast, with the same pixels as QPainter.
 *
 * The time that QPainter's antialiasing takes grows with the square of what a row of pixels holds. So lines and areas
 * go through a rasteriser of our own into the usual formats of images. Where that one cannot do it, an image is
 * painted part by part, each time with nothing but what decides about the pixels there: lines in tiles, areas in
 * halves of halves. All other devices get the whole path, and so do images where that is faster or where the ways could
 * be told apart.
 *
 * Of very many lines only those are painted that show, in PDF and SVG too. Only of lines that leave the range of
 * +-32767 pixels QPainter itself makes a copy cut to that range, whose rounded corners differ here and there by one
 * level of a colour. And where Qt 6 would move dashes because a part of a line is out of sight, they stay. The outlines
 * of many lines are made on several threads.
 */
namespace KRGPXPathPainter {

/**
 * Like QPainter::drawPath(); the painter must not have a brush.
 *
 * @param crowd of the lines that the pen has drawn on this image before, if nothing has been drawn over them; made when
 *     it is needed, and null where the path is alone
 */
KRGEOLOCATION_EXPORT void drawPath(QPainter *painter, const QPainterPath &path,
                                   std::optional<KRGPXLineCrowd> *crowd = nullptr);

/// Like QPainter::fillPath().
KRGEOLOCATION_EXPORT void fillPath(QPainter *painter, const QPainterPath &path, const QBrush &brush);

} // namespace KRGPXPathPainter
