#include "KRMapFurniture.h"

#include "KRMapGround.h"

#include <KRCore/KRMath.h>
#include <KRGeoLocation/KRCopyrightRenderer.h>
#include <KRGeoLocation/KRMapProjection.h>
#include <KRGeoLocation/KROsmScaleRenderer.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QRect>
#include <QSize>

#include <algorithm>
#include <cmath>

namespace {

constexpr QColor boxColor(225, 225, 225, 180);
constexpr QColor letterColor(0, 0, 0, 180);

// Pixels of a normal screen, after the attribution's box.
constexpr double creditLetters = 22.0;
constexpr double smallestCreditLetters = 11.0; // whatever the factor is, unless the picture is tiny
constexpr double creditMargin = 10.0;
constexpr double creditPadding = 10.0; // to the left and to the right, a quarter of it above and below
constexpr double creditDistance = 6.0;
/// Of the picture; the rest is for the scale bar.
constexpr double creditShare = 0.44;
constexpr double shortestBar = 40.0;
constexpr int creditLayout = Qt::AlignHCenter | Qt::TextWordWrap;

/// In pixels, not in points: a page has other points than a screen, and the same pixels.
QFont creditFont(const QSize &size, double factor)
{
    QFont font = KRCopyrightRenderer().copyrightFont(1.0);
    const double smallest = std::min(smallestCreditLetters, size.height() / 16.0);
    font.setPixelSize(std::max(1, qRound(std::max(smallest, creditLetters * factor))));
    return font;
}

/// The factor, or less where the credit would take more than half of the picture's width.
double fittingFactor(const QSize &size, double factor)
{
    const double widthAtOne = KRCopyrightRenderer().copyrightTextSize(1.0).width();
    return std::min(factor, size.width() / (2.0 * widthAtOne));
}

KROsmScaleRenderer scaleRenderer(const QSize &size, const KRMapProjection &projection, double factor)
{
    // The renderer thinks in the pixels of a normal screen and multiplies its lengths by the factor.
    const KRDistance scale(KRMapFurniture::pixelsPerKilometre(size, projection) / factor);
    const KROsmScaleRenderer renderer(scale, size / factor);
    const double third = std::floor(size.width() / 3.0) / factor;
    if (renderer.scaleBox(QRect(QPoint(), size), factor).right() <= third * factor)
        return renderer;
    // It would stand higher, across the routes of a small picture: shorter it fits beside the credit. The renderer
    // takes two thirds of the width for the bar.
    const double room = third - renderer.textSize(1.0).width() - 10.0;
    return KROsmScaleRenderer(scale, QSize(KRMath::toInt(std::max(room, shortestBar) * 1.5), size.height()));
}

} // namespace

double KRMapFurniture::pixelsPerKilometre(const QSize &size, const KRMapProjection &projection)
{
    const QPoint middle = QRect(QPoint(), size).center();
    const KRGeoPosition position = projection.convert(middle);
    const KRGeoPosition next = projection.convert(middle + QPoint(1, 0));
    const double degreesPerPixel = next.longitude().decimalDegrees() - position.longitude().decimalDegrees();
    const double pixels = position.longitudeDeviation(1.0).decimalDegrees() / degreesPerPixel;
    return std::isfinite(pixels) && pixels > 0.0 ? pixels : 0.0;
}

void KRMapFurniture::paintScaleBar(QPainter *painter, const QSize &size, const KRMapProjection &projection,
                                   double factor)
{
    const double fitting = fittingFactor(size, factor);
    scaleRenderer(size, projection, fitting).paintScale(painter, QRect(QPoint(), size), fitting);
}

void KRMapFurniture::paintCredits(QPainter *painter, const QSize &size, const KRMapGround &ground, double factor)
{
    paintAttribution(painter, size, factor);
    paintCredit(painter, size, ground.credit(), factor);
}

void KRMapFurniture::paintAttribution(QPainter *painter, const QSize &size, double factor)
{
    KRCopyrightRenderer().paintCopyRight(painter, QRect(QPoint(), size), fittingFactor(size, factor));
}

QRectF KRMapFurniture::scaleBarBox(const QSize &size, const KRMapProjection &projection, double factor)
{
    const double fitting = fittingFactor(size, factor);
    return scaleRenderer(size, projection, fitting).scaleBox(QRect(QPoint(), size), fitting);
}

QRectF KRMapFurniture::creditsBox(const QSize &size, const KRMapGround &ground, double factor)
{
    return attributionBox(size, factor).united(creditBox(size, ground.credit(), factor));
}

QRectF KRMapFurniture::attributionBox(const QSize &size, double factor)
{
    return KRCopyrightRenderer().copyrightRect(QRect(QPoint(), size), fittingFactor(size, factor));
}

QRectF KRMapFurniture::creditBox(const QSize &size, const QString &text, double factor)
{
    const double fitting = fittingFactor(size, factor);
    const double margin = creditMargin * fitting;
    const double padding = creditPadding * fitting;
    const QRectF room(0.0, 0.0, creditShare * size.width() - 2.0 * padding, size.height());
    const QRectF letters = QFontMetricsF(creditFont(size, fitting)).boundingRect(room, creditLayout, text);
    if (text.isEmpty() || letters.isEmpty())
        return QRectF();
    QRectF box = letters.adjusted(-padding, -padding / 4.0, padding, padding / 4.0);
    box.moveBottomRight(QPointF(size.width() - margin, attributionBox(size, factor).top() - creditDistance * fitting));
    return box;
}

void KRMapFurniture::paintCredit(QPainter *painter, const QSize &size, const QString &text, double factor)
{
    const QRectF box = creditBox(size, text, factor);
    if (box.isEmpty())
        return;
    const double fitting = fittingFactor(size, factor);
    const double padding = creditPadding * fitting;
    const QFont font = creditFont(size, fitting);
    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter->setFont(font);
    painter->setPen(Qt::NoPen);
    painter->setBrush(boxColor);
    const double radius = QFontMetricsF(font).height() / 2.0;
    painter->drawRoundedRect(box, radius, radius);
    painter->setPen(letterColor);
    painter->drawText(box.adjusted(padding, padding / 4.0, -padding, -padding / 4.0), creditLayout, text);
    painter->restore();
}
