#include "KRMapFurniture.h"

#include <KRGeoLocation/KRCopyrightRenderer.h>
#include <KRGeoLocation/KRMapProjection.h>
#include <KRGeoLocation/KROsmScaleRenderer.h>

#include <QImage>

#include <algorithm>
#include <cmath>

namespace {

/// The factor, or less where the credit would take more than half of the picture's width.
double fittingFactor(const QImage &picture, double factor)
{
    const double widthAtOne = KRCopyrightRenderer().copyrightTextSize(1.0).width();
    return std::min(factor, picture.width() / (2.0 * widthAtOne));
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
    const double fitting = fittingFactor(*picture, factor);
    // The renderer thinks in the pixels of a normal screen and multiplies its lengths by the factor.
    const KROsmScaleRenderer renderer(KRDistance(pixelsPerKilometre(*picture, projection) / fitting),
                                      picture->size() / fitting);
    renderer.renderScale(picture, fitting);
}

void KRMapFurniture::paintAttribution(QImage *picture, double factor)
{
    KRCopyrightRenderer().renderCopyRight(picture, fittingFactor(*picture, factor));
}
