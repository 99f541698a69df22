#pragma once

#include <KRGeoLocation/KRGPXConfiguredTrack.h>
#include <KRGeoLocation/KRGPXTrackSegment.h>
#include <KRGeoLocation/KRGeoPositionList.h>

#include <QDateTime>

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
    KRGPXTrackSegment segment;
    for (const KRGeoPosition &position : positions)
        segment.append(position.latitude().decimalDegrees(), position.longitude().decimalDegrees(), 0, QDateTime(),
                       QString());
    return KRGPXConfiguredTrack(KRGPXTrack(name, QString(), {segment}, shape), configuration);
}
