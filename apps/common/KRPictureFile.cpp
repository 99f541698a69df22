#include "KRPictureFile.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QPainter>

namespace {

constexpr int photoQuality = 92; // per cent; below, thin coloured lines on a plain ground get visible fringes

QImage onWhite(const QImage &picture)
{
    QImage opaque(picture.size(), QImage::Format_RGB32);
    opaque.fill(Qt::white);
    QPainter painter(&opaque);
    painter.drawImage(0, 0, picture);
    return opaque;
}

} // namespace

QByteArray KRPictureFile::formatOf(const QString &fileName)
{
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    if (suffix == QLatin1String("png") || suffix == QLatin1String("webp"))
        return suffix.toLatin1();
    if (suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg"))
        return QByteArrayLiteral("jpeg");
    return QByteArray();
}

QByteArray KRPictureFile::encode(const QImage &picture, const QByteArray &format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, format);
    const bool isPhotoFormat = format == "jpeg";
    if (isPhotoFormat || format == "webp")
        writer.setQuality(photoQuality);
    return writer.write(isPhotoFormat ? onWhite(picture) : picture) ? bytes : QByteArray();
}
