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

} // namespace

QImage KRPictureReader::read(const QFileInfo &file, KRErrorHistory *history)
{
    QFile source(file.filePath());
    if (!KRFileHandler::openForReading(source, history, KRInputLimits::streamedFileBytes))
        return QImage();
    const QString refusal = KRPictureGuard::problemOf(&source);
    QImageReader reader(&source);
    reader.setDecideFormatFromContent(true);
    QString problem = refusal.isEmpty() ? tr("Das ist kein lesbares Bild.") : refusal;
    if (refusal.isEmpty() && isMadeOfPixels(reader.format())) {
        const QSize size = reader.size();
        if (qint64(size.width()) * size.height() > KRInputLimits::picturePixels) {
            problem =
                tr("Das Bild ist zu groß (mehr als %1 Millionen Pixel).").arg(KRInputLimits::picturePixels / 1000000);
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
