#include "KRGPXCroppingAlpha.h"

#include <algorithm>
#include <functional>
#include <numeric>

KRGPXCroppingAlpha::Table KRGPXCroppingAlpha::tableFor(int opacity)
{
    Table table;
    for (int alpha = 0; alpha < int(table.size()); ++alpha)
        table[std::size_t(alpha)] = uchar(opacity + (alpha * (255 - opacity)) / 255);
    return table;
}

// Most of a mask is empty, which is told from many pixels at once.
void KRGPXCroppingAlpha::merge(QRgb *pixels, const QRgb *mask, int count, const Table &table)
{
    constexpr int blockSize = 32;
    for (int begin = 0; begin < count; begin += blockSize) {
        const int end = std::min(begin + blockSize, count);
        if (std::accumulate(mask + begin, mask + end, QRgb(0), std::bit_or<QRgb>()) == 0) {
            fill(pixels + begin, end - begin, table[0]);
            continue;
        }
        for (int x = begin; x < end; ++x)
            pixels[x] = (pixels[x] & RGB_MASK) | (QRgb(table[std::size_t(qAlpha(mask[x]))]) << 24);
    }
}

void KRGPXCroppingAlpha::fill(QRgb *pixels, int count, uchar alpha)
{
    const QRgb bits = QRgb(alpha) << 24;
    for (int x = 0; x < count; ++x)
        pixels[x] = (pixels[x] & RGB_MASK) | bits;
}
