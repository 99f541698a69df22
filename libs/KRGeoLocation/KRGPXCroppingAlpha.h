#pragma once

#include <QRgb>

#include <array>

/**
 * How opaque a cropped map remains, in rows of pixels with their alpha in the highest byte. Colours stay as they are.
 */
namespace KRGPXCroppingAlpha {

/// The alpha of the map for every alpha of the mask.
using Table = std::array<uchar, 256>;

/// From @p opacity, 0 to 255, where the mask is empty up to 255 where it is opaque.
Table tableFor(int opacity);

void merge(QRgb *pixels, const QRgb *mask, int count, const Table &table);
void fill(QRgb *pixels, int count, uchar alpha);

} // namespace KRGPXCroppingAlpha
