#pragma once

#include "KRMapGround.h"

#include <KRGeoLocation/KRGeoPositionRect.h>

#include <QImage>

/**
 * A picture that is laid over an area exactly, whatever its own size is. Around the area nothing is painted.
 */
class KRPictureGround : public KRMapGround
{
    Q_OBJECT

public:
    KRPictureGround(const QImage &picture, const KRGeoPositionRect &area, QObject *parent = nullptr);

    void paint(QPainter *painter, const QSize &size, const KRMapProjection &projection, double factor) override;

private:
    const QImage m_picture;
    const KRGeoPositionRect m_area;
};
