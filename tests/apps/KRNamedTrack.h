#pragma once

#include "KRTestTrack.h"

#include <KRGeoLocation/KRGeoPositionList.h>

/// A track with a line of five pixels and a halo of six, a translucent blue area, and a name.
inline KRGPXConfiguredTrack namedTrack(const KRGeoPositionList &positions, const KRGPXTrackShape &shape,
                                       const QColor &lineColor, const QString &name = QString())
{
    KRGPXTrackConfiguration configuration;
    configuration.setLineColor(lineColor);
    configuration.setFillColor(QColor(0x20, 0x60, 0xc0, 0x60));
    configuration.setLineWidth(KRDistance(5.0));
    configuration.setHaloWidth(KRDistance(6.0));
    configuration.setTrackShape(shape);
    configuration.setCurrentDisplayOptions(KRGPXTrackDisplayOptions(QStringLiteral("stroke,fill")));
    return KRGPXConfiguredTrack(KRTestTrack::through(positions, shape, name), configuration);
}
