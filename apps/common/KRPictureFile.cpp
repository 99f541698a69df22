#include "KRPictureFile.h"

#include "KRBoundedBuffer.h"
#include "KRMapComposition.h"

#include <KRCore/KRMath.h>
#include <KRXML/KRXMLBuilder.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>

namespace {

constexpr int photoQuality = 92; // per cent; below, thin coloured lines on a plain ground get visible fringes
constexpr double pixelsPerInch = 96.0;
constexpr double pointsPerInch = 72.0;
constexpr int largestSideOfWebpPx = 16383; // RFC 9649, section 2.6: sides have 14 bits
constexpr double largestPagePoints = 14400.0; // ISO 32000-1, annex C.2
constexpr int largestBytes = 2000 << 20; // what QByteArray takes

QString creator()
{
    return QCoreApplication::applicationName() + QLatin1Char(' ') + QCoreApplication::applicationVersion();
}

QImage onWhite(const QImage &picture)
{
    QImage opaque(picture.size(), QImage::Format_RGB32);
    opaque.fill(Qt::white);
    QPainter painter(&opaque);
    painter.drawImage(0, 0, picture);
    return opaque;
}

bool isOpaque(const QImage &picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        const auto *const line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        if (!std::all_of(line, line + picture.width(), [](QRgb pixel) { return qAlpha(pixel) == 255; }))
            return false;
    }
    return true;
}

/// @p picture is premultiplied. A channel that is the same everywhere takes time and room in a file all the same.
QImage withoutNeedlessAlpha(const QImage &picture)
{
    return isOpaque(picture) ? picture.convertToFormat(QImage::Format_RGB32) : picture;
}

bool writePicture(QIODevice *buffer, const QImage &picture, const QByteArray &format)
{
    if (picture.isNull())
        return false;
    QImageWriter writer(buffer, format);
    const bool isPhotoFormat = format == "jpeg";
    if (isPhotoFormat || format == "webp")
        writer.setQuality(photoQuality);
    return writer.write(isPhotoFormat ? onWhite(picture) : withoutNeedlessAlpha(picture));
}

bool writeSvg(QIODevice *buffer, const KRMapComposition &map, const QString &title)
{
    QSvgGenerator generator;
    generator.setOutputDevice(buffer);
    generator.setSize(map.size());
    generator.setViewBox(QRect(QPoint(), map.size()));
    generator.setResolution(std::max(1, KRMath::toInt(pixelsPerInch * map.factor())));
    generator.setTitle(KRXMLBuilder::readableText(title).toHtmlEscaped()); // Qt writes it as it is
    generator.setDescription(creator());
    QPainter painter;
    if (!painter.begin(&generator))
        return false;
    const bool isWhole = map.paint(&painter);
    return painter.end() && isWhole;
}

QByteArray createPdf(const KRMapComposition &map, const QString &title)
{
    const int largestSide = std::max(map.size().width(), map.size().height());
    const double resolution = std::max(pixelsPerInch * map.factor(), largestSide * pointsPerInch / largestPagePoints);
    const QSizeF points = (QSizeF(map.size()) * pointsPerInch / resolution).expandedTo(QSizeF(1.0, 1.0));

    const QPageLayout layout(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch),
                             QPageLayout::Portrait, QMarginsF());
    const auto paint = [&map](QPagedPaintDevice *page) {
        QPainter painter;
        if (!painter.begin(page))
            return false;
        // Pages are whole points wide and high.
        painter.scale(double(page->width()) / map.size().width(), double(page->height()) / map.size().height());
        const bool isWhole = map.paint(&painter);
        return painter.end() && isWhole;
    };
    return KRPictureFile::encodePdf(layout, std::max(1, KRMath::toInt(resolution)), title, paint);
}

} // namespace

int KRPictureFile::largestSideOf(const QByteArray &format)
{
    return format == "webp" ? largestSideOfWebpPx : largestSidePx;
}

QByteArray KRPictureFile::formatOf(const QString &fileName)
{
    const QByteArray suffix = QFileInfo(fileName).suffix().toLower().toLatin1();
    if (suffix == "jpg")
        return QByteArrayLiteral("jpeg");
    return formats().contains(suffix) ? suffix : QByteArray();
}

QByteArray KRPictureFile::encode(const KRMapComposition &map, const QByteArray &format, const QString &title)
{
    if (format == "pdf")
        return createPdf(map, title);
    KRBoundedBuffer buffer(largestBytes);
    const bool isWritten =
        format == "svg" ? writeSvg(&buffer, map, title) : writePicture(&buffer, map.render(), format);
    return isWritten && !buffer.isOverfull() ? buffer.data() : QByteArray();
}

QByteArray KRPictureFile::encodePdf(const QPageLayout &layout, int dotsPerInch, const QString &title,
                                    const std::function<bool(QPagedPaintDevice *page)> &paint)
{
    KRBoundedBuffer buffer(largestBytes);
    QPdfWriter writer(&buffer);
    writer.setTitle(title);
    writer.setCreator(creator());
    writer.setResolution(dotsPerInch);
    writer.setPageLayout(layout);
    return paint(&writer) && !buffer.isOverfull() ? buffer.data() : QByteArray();
}
