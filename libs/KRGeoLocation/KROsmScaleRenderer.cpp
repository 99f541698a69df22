#include "KROsmScaleRenderer.h"

#include "KRMapCaption.h"

#include <KRCore/KRMath.h>

#include <QImage>
#include <QLineF>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

const KRDistance theMaximumWidth(300.0); // pixels

constexpr double smallestKilometers = 0.001;
constexpr double largestKilometers = 100000.0;
constexpr double tenMetres = 0.01;
constexpr std::array<double, 24> steps{0.001, 0.0025, 0.005,  0.01,   0.025,  0.05,    0.1,     0.25,
                                       0.5,   1.0,    2.5,    5.0,    10.0,   25.0,    50.0,    100.0,
                                       250.0, 500.0,  1000.0, 2500.0, 5000.0, 10000.0, 25000.0, 50000.0};

/// Above its base, in whole pixels.
int barHeight(double factor)
{
    return KRMath::toInt(20.0 * factor);
}

/// A bracket that opens upwards: the bar a third of the height above the base, a tick at each end up to the top.
void drawBar(QPainter *painter, const QRectF &bar, int height)
{
    const int third = height / 3; // whole pixels, too
    const double barY = bar.y() - third;
    const double topY = bar.y() - height;
    const double right = bar.x() + bar.width();
    painter->drawLine(QLineF(bar.x(), barY, bar.x(), topY));
    painter->drawLine(QLineF(bar.x(), barY, right, barY));
    painter->drawLine(QLineF(right, topY, right, barY));
}

} // namespace

KROsmScaleRenderer::KROsmScaleRenderer(const KRDistance &pixelsPerKilometre, const QSize &imageSize)
    : m_pixelsPerKilometre(pixelsPerKilometre), m_imageSize(imageSize)
{ }

double KROsmScaleRenderer::shownKilometers() const
{
    const double limit = maximumKilometers();
    if (limit > largestKilometers)
        return limit;
    const auto step = std::find_if(steps.rbegin(), steps.rend(), [limit](double km) { return km < limit; });
    if (step == steps.rend())
        return smallestKilometers;
    // Intended: the smallest double above 0.01, so that no length computed from it falls below its whole number.
    return *step == tenMetres ? 0.010000000000000002 : *step;
}

QString KROsmScaleRenderer::scaleText() const
{
    const double km = shownKilometers();
    return km < 1.0 ? tr("%1 m").arg(KRMath::toInt(std::round(km * 1000.0))) : tr("%1 km").arg(km);
}

QFont KROsmScaleRenderer::textFont(double factor) const
{
    return KRMapCaption::font(factor);
}

QSizeF KROsmScaleRenderer::textSize(double factor) const
{
    return KRMapCaption::size(scaleText(), factor);
}

double KROsmScaleRenderer::strokeLength(double factor) const
{
    return factor * (m_pixelsPerKilometre.toDouble() * shownKilometers());
}

QRectF KROsmScaleRenderer::strokeRect(const QRectF &area, double factor) const
{
    const double margin = KRMapCaption::margin * factor;
    return QRectF(area.left() + margin, area.bottom() - margin, barLength(factor), -barHeight(factor));
}

QRectF KROsmScaleRenderer::textRect(const QRect &area, double factor) const
{
    const double margin = KRMapCaption::margin * factor;
    const QSizeF size = textSize(factor);
    return QRectF(area.left() + margin + barLength(factor), area.bottom() - margin, size.width(), -size.height());
}

double KROsmScaleRenderer::maximumPaintFactor() const
{
    return hasScale() ? maximumKilometers() / shownKilometers() : 0.0;
}

KROsmScaleRenderer::Layout KROsmScaleRenderer::layout(const QRect &area, double factor) const
{
    Layout result{strokeRect(area, factor), textRect(area, factor), QRectF()};
    result.box = result.bar.united(result.label);
    result.box.setLeft(area.left());
    const int third = area.width() / 3;
    if (result.box.width() > third) {
        // Room for the attribution text, which stands in the opposite corner.
        const double rise = 1.5 * result.box.height();
        for (QRectF *const rect : {&result.bar, &result.label, &result.box})
            rect->translate(0.0, -rise);
    }
    return result;
}

QRectF KROsmScaleRenderer::scaleBox(const QRect &area, double factor) const
{
    return hasScale() && KRMapCaption::isUsableFactor(factor) ? layout(area, factor).box : QRectF();
}

void KROsmScaleRenderer::renderScale(QImage *image, double factor) const
{
    if (!image || image->isNull())
        return;
    QPainter painter(image);
    paintScale(&painter, image->rect(), factor);
}

void KROsmScaleRenderer::paintScale(QPainter *painter, const QRect &area, double factor) const
{
    if (!hasScale() || !KRMapCaption::isUsableFactor(factor))
        return;
    const Layout place = layout(area, factor);
    painter->save();
    KRMapCaption::prepare(painter, factor);
    if (factor < KRMapCaption::smallestReadableFactor) {
        const double y = place.label.center().y();
        KRMapCaption::paintLine(painter, place.box, QLineF(place.box.center().x(), y, place.box.right(), y));
    } else {
        // Intended: half the negative height of the label, so that the corners stay square.
        KRMapCaption::paintText(painter, place.box, place.label.height() / 2.0, place.label, scaleText());
        drawBar(painter, place.bar, barHeight(factor));
    }
    painter->restore();
}

bool KROsmScaleRenderer::hasScale() const
{
    const double pixels = m_pixelsPerKilometre.toDouble();
    return std::isfinite(pixels) && pixels > 0.0;
}

double KROsmScaleRenderer::maximumKilometers() const
{
    const qint64 twoThirds = qint64(m_imageSize.width()) * 2 / 3;
    return std::min(theMaximumWidth.toDouble(), double(twoThirds)) / m_pixelsPerKilometre.toDouble();
}

int KROsmScaleRenderer::barLength(double factor) const
{
    return KRMath::toInt(factor * m_pixelsPerKilometre.toDouble() * shownKilometers());
}
