#pragma once

#include "KRMapViewport.h"

#include <QImage>
#include <QMetaType>

/// A finished picture of a part of the map, and of which part. The image is null where there is nothing to show.
struct KRMapPicture {
    KRMapViewport viewport;
    QImage image;
};

Q_DECLARE_METATYPE(KRMapPicture)
