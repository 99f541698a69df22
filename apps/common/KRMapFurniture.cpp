#include "KRMapFurniture.h"

#include <KRGeoLocation/KRCopyrightRenderer.h>
#include <KRGeoLocation/KRMapProjection.h>
#include <KRGeoLocation/KROsmScaleRenderer.h>

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr QColor boxColor(225, 225, 225, 180);
constexpr QColor letterColor(0, 0, 0, 180);

// Pixels of a normal screen, after the attribution's box.
constexpr double creditLetters = 32.0;
constexpr double creditMargin = 10.0;
constexpr double creditPadding = 10.0; // to the left and to the right, a quarter of it above and below
constexpr double creditDistance = 6.0;

/// The factor, or less where the credit would take more than half of the picture's width.
double fittingFactor(const QSize &pictureSize, double factor)
{
    const double widthAtOne = KRCopyrightRenderer().copyrightTextSize(1.0).width();
    return std::min(factor, pictureSize.width() / (2.0 * widthAtOne));
}

} // namespace

double KRMapFurniture::pixelsPerKilometre(const QImage &picture, const KRMapProjection &projection)
{
    const QPoint middle = picture.rect().center();
    const KRGeoPosition position = projection.convert(middle);
    const KRGeoPosition next = projection.convert(middle + QPoint(1, 0));
    const double degreesPerPixel = next.longitude().decimalDegrees() - position.longitude().decimalDegrees();
    const double pixels = position.longitudeDeviation(1.0).decimalDegrees() / degreesPerPixel;
    return std::isfinite(pixels) && pixels > 0.0 ? pixels : 0.0;
}

void KRMapFurniture::paintScaleBar(QImage *picture, const KRMapProjection &projection, double factor)
{
    const double fitting = fittingFactor(picture->size(), factor);
    // The renderer thinks in the pixels of a normal screen and multiplies its lengths by the factor.
    const KROsmScaleRenderer renderer(KRDistance(pixelsPerKilometre(*picture, projection) / fitting),
                                      picture->size() / fitting);
    renderer.renderScale(picture, fitting);
}

void KRMapFurniture::paintAttribution(QImage *picture, double factor)
{
    KRCopyrightRenderer().renderCopyRight(picture, fittingFactor(picture->size(), factor));
}

void KRMapFurniture::paintCredit(QPainter *painter, const QSize &size, const QString &text, double factor)
{
    const double fitting = fittingFactor(size, factor);
    const double margin = creditMargin * fitting;
    const double padding = creditPadding * fitting;
    // In pixels, not in points: a page has other points than a screen, and the same pixels.
    QFont font = KRCopyrightRenderer().copyrightFont(1.0);
    font.setPixelSize(std::max(1, qRound(creditLetters * fitting)));
    const QFontMetricsF metrics(font);

    const QRectF room(0.0, 0.0, size.width() - 2.0 * (margin + padding), size.height());
    constexpr int layout = Qt::AlignHCenter | Qt::TextWordWrap;
    const QRectF letters = metrics.boundingRect(room, layout, text);
    if (text.isEmpty() || letters.isEmpty())
        return;
    QRectF box = letters.adjusted(-padding, -padding / 4.0, padding, padding / 4.0);
    const QRectF attribution = KRCopyrightRenderer().copyrightRect(QRect(QPoint(), size), fitting);
    box.moveBottomRight(QPointF(size.width() - margin, attribution.top() - creditDistance * fitting));

    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter->setFont(font);
    painter->setPen(Qt::NoPen);
    painter->setBrush(boxColor);
    const double radius = metrics.height() / 2.0;
    painter->drawRoundedRect(box, radius, radius);
    painter->setPen(letterColor);
    painter->drawText(box.adjusted(padding, padding / 4.0, -padding, -padding / 4.0), layout, text);
    painter->restore();
}
