#pragma once

#include "KRKmlCoordinates.h"
#include "KRKmlStyleTable.h"

#include <KRGeoLocation/KRGPXTrack.h>

/// One geometry of a KML placemark, which becomes a track of its own.
struct KRKmlGeometry {
    enum Kind : int {
        NamedShape = 0, ///< coordinates without a geometry around them, with a "shape" beside them or none
        Point = 1,
        Line = 2,
        Area = 3,
    };

    QString name; ///< of the placemark, like the next two; may be empty
    QString description;
    KRKmlLook look;
    Kind kind = NamedShape;
    QString shape; ///< the text of "shape", for NamedShape
    /// Of an area its outline and then its holes, of a line its segments; never empty, nor is any of them.
    QList<KRKmlCoordinates> parts;

    KRKmlStyle::Use use() const;
    /// Whether the importer gets only the first position: it reads no more than one segment, times only to the second,
    /// and long texts take much memory on their way through it.
    bool isCompletedLater() const;
    /// Whether the importer gets neither name nor description. All geometries of a placemark have the same ones.
    bool hasLongTexts() const;
    /// All positions, for what the importer did not get.
    QList<KRGPXTrackSegment> segments() const;
    /// For areas only.
    QList<KRGPXTrack> holes() const;
};
