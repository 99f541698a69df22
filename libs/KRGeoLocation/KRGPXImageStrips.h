#pragma once

#include <QImage>

#include <functional>

/**
 * Changes large images a few rows at a time, so that the steps of the change meet in the processor's caches and no
 * step needs an image of its own.
 */
namespace KRGPXImageStrips {

/// Changes one strip; its rows begin with row @p firstRow of the image.
using Change = std::function<void(QImage *strip, int firstRow)>;

/**
 * Converts to @p workingFormat, changes, and converts to @p resultFormat, with the same pixels as for the whole.
 * Both formats must have 32 bits a pixel.
 *
 * Strips are worked on in several threads at once, under the rules of KRConcurrent. Null for a null image and where
 * memory does not suffice.
 */
QImage changed(const QImage &image, QImage::Format workingFormat, QImage::Format resultFormat, const Change &change);

/// Some rows of an image in place, as long as the image exists unchanged.
QImage rowsOf(const QImage &image, int firstRow, int count);

} // namespace KRGPXImageStrips
