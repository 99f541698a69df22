#include "KRTileDecoder.h"

#include "KRPictureGuard.h"
#include "KRPngChunks.h"

#include <KRCore/KRInputLimits.h>

#include <QBuffer>
#include <QImageReader>

namespace {

/// Without texts and profiles, which would stay with a picture as long as it is kept.
QImage pixelsOf(const QImage &image)
{
    return QImage(image.constBits(), image.width(), image.height(), image.bytesPerLine(), image.format()).copy();
}

} // namespace

QImage KRTileDecoder::decode(const QByteArray &bytes, QString *problem)
{
    QBuffer buffer;
    buffer.setData(KRPngChunks::withoutNeedless(bytes));
    buffer.open(QIODevice::ReadOnly);
    *problem = KRPictureGuard::problemOf(&buffer, KRInputLimits::jpegSamplesOfTile);
    if (!problem->isEmpty())
        return QImage();
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    const QByteArray format = reader.format();
    if (format != "png" && format != "jpeg" && format != "webp") {
        *problem = tr("Eine Kachel ist weder PNG noch JPEG noch WebP.");
        return QImage();
    }
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > KRInputLimits::tileSide || size.height() > KRInputLimits::tileSide) {
        *problem = tr("Eine Kachel hat eine ungewöhnliche Größe.");
        return QImage();
    }
    QImage image = reader.read();
    if (image.isNull()) {
        *problem = tr("Eine Kachel ist beschädigt.");
        return QImage();
    }
    const int side = qMin(qMax(size.width(), size.height()), largestSide);
    if (image.size() != QSize(side, side))
        image = image.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return pixelsOf(image.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}
