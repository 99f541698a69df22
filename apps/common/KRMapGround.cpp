#include "KRMapGround.h"

KRMapGaps KRMapGround::paintWhole(QPainter *painter, const QSize &size, const KRMapProjection &projection,
                                  double factor, int /*timeLimitMs*/)
{
    paint(painter, size, projection, factor);
    return {};
}
