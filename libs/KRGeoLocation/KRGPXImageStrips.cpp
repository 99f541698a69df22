#include "KRGPXImageStrips.h"

#include "KRGPXImageMemory.h"

#include <KRCore/KRConcurrent.h>
#include <KRCore/KRIntRange.h>

#include <algorithm>
#include <cstring>

namespace {

// Strips of this size stay in the caches, and Qt converts them without threads of its own.
constexpr int stripBytes = 65536;

void copyMetadata(const QImage &from, QImage *to)
{
    to->setDevicePixelRatio(from.devicePixelRatio());
    to->setDotsPerMeterX(from.dotsPerMeterX());
    to->setDotsPerMeterY(from.dotsPerMeterY());
    to->setOffset(from.offset());
    const QStringList keys = from.textKeys();
    for (const QString &key : keys)
        to->setText(key, from.text(key));
}

} // namespace

QImage KRGPXImageStrips::changed(const QImage &image, QImage::Format workingFormat, QImage::Format resultFormat,
                                 const Change &change)
{
    QImage result = KRGPXImageMemory::rawImage(image.size(), resultFormat);
    if (result.isNull())
        return result;
    copyMetadata(image, &result);
    uchar *const pixels = result.bits();
    const std::size_t bytesPerLine = std::size_t(result.bytesPerLine());
    const int stripRows = std::max(1, int(stripBytes / result.bytesPerLine()));
    const QList<KRIntRange> bands = KRIntRange::rowsOfImage(image).splitEvenlyForCpuCores();
    KRConcurrent::blockingMap(bands, [&](const KRIntRange &rows) {
        for (int row = rows.minimum(); row <= rows.maximum(); row += stripRows) {
            QImage strip = rowsOf(image, row, std::min(stripRows, rows.maximum() - row + 1));
            strip = std::move(strip).convertToFormat(workingFormat);
            change(&strip, row);
            strip = std::move(strip).convertToFormat(resultFormat);
            std::memcpy(pixels + std::size_t(row) * bytesPerLine, strip.constBits(), std::size_t(strip.sizeInBytes()));
        }
    });
    return result;
}

QImage KRGPXImageStrips::rowsOf(const QImage &image, int firstRow, int count)
{
    QImage rows(image.constScanLine(firstRow), image.width(), count, int(image.bytesPerLine()), image.format());
    if (image.colorCount() > 0)
        rows.setColorTable(image.colorTable());
    return rows;
}
