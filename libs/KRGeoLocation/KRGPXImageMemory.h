#pragma once

#include <QImage>

/**
 * Large images whose memory is asked for in large pages.
 *
 * The system hands out memory page by page, when it is first touched. For an image of 64 MB in pages of 4 kB that
 * takes several times as long as filling it. Images are null where memory does not suffice.
 */
namespace KRGPXImageMemory {

/// An image to be written as a whole, of whatever content before; @p format must have 32 bits a pixel.
QImage rawImage(const QSize &size, QImage::Format format);

/// A transparent image in QImage::Format_ARGB32_Premultiplied, none of whose memory is touched before it is painted on.
QImage transparentImage(const QSize &size);

} // namespace KRGPXImageMemory
