#include "KRPictureReader.h"

#include "KRPictureGuard.h"

#include <KRCore/KRErrorHistory.h>
#include <KRCore/KRFileHandler.h>
#include <KRCore/KRInputLimits.h>
#include <KRCore/KRQtCompat.h>

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>

namespace {

bool isMadeOfPixels(const QByteArray &format)
{
    static const QByteArrayList formats{"bmp", "gif", "jpeg", "png", "tiff", "webp"};
    return formats.contains(format);
}

/// Whether the picture is decoded line by line: it is neither packed without loss nor part of a film.
bool isSimpleWebp(const QByteArray &head)
{
    return head.mid(12, 4) == "VP8 "; // RFC 9649, section 2.5
}

/// Of memory, for the picture and what its decoder holds beside. @p head are the first bytes of the file.
double memoryBytes(const QImageReader &reader, const QByteArray &head, const QSize &size)
{
    const int depth = QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel();
    const double pictureBytes = double(size.width()) * size.height() * (depth > 0 ? depth : 32) / 8.0;
    if (reader.format() == "webp")
        return (isSimpleWebp(head) ? 1.0 : 2.0) * pictureBytes + double(reader.device()->size()); // the whole file
    return reader.format() == "gif" ? 2.0 * pictureBytes : pictureBytes;
}

} // namespace

QImage KRPictureReader::read(const QFileInfo &file, KRErrorHistory *history)
{
    QFile source(file.filePath());
    if (!KRFileHandler::openForReading(source, history, KRInputLimits::pictureFileBytes))
        return QImage();
    const QString refusal = KRPictureGuard::problemOf(&source, KRInputLimits::jpegSamples);
    const QByteArray head = source.peek(16);
    QImageReader reader(&source);
    reader.setDecideFormatFromContent(true);
    QString problem = refusal.isEmpty() ? tr("Das ist kein lesbares Bild.") : refusal;
    if (refusal.isEmpty() && isMadeOfPixels(reader.format())) {
        const QSize size = reader.size();
        if (qint64(size.width()) * size.height() > KRInputLimits::picturePixels) {
            problem =
                tr("Das Bild ist zu groß (mehr als %1 Millionen Pixel).").arg(KRInputLimits::picturePixels / 1000000);
        } else if (qMax(size.width(), size.height()) > KRInputLimits::pictureSide) {
            problem = tr("Das Bild ist zu groß (mehr als %1 Pixel je Seite).").arg(KRInputLimits::pictureSide);
        } else if (!size.isEmpty() && memoryBytes(reader, head, size) > KRInputLimits::pictureMemoryBytes) {
            problem = tr("Das Bild ist zu groß (mehr als %1 MB im Speicher).")
                          .arg(KRInputLimits::pictureMemoryBytes / 1000000);
        } else if (!size.isEmpty()) {
            KRQtCompat::allowPictures(KRInputLimits::picturePixels);
            const QImage picture = reader.read();
            if (!picture.isNull())
                return picture;
        }
    }
    KRErrorHistory::report(history, file.filePath(), problem);
    return QImage();
}
