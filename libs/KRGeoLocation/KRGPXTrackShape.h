#pragma once

#include "KRGeoLocationExport.h"

#include <KRCore/KREnumWrapper.h>

#include <QCoreApplication>
#include <QList>

class KRGPXMarkerShape;
class KRGPXTrackDisplayOptions;
class QDomElement;

/// As what figure the points of a track are to be read; the numbers are single bits.
enum KRGPXTrackShapeEnum : int {
    UnknownTrackShape = 0,
    PointTrackShape = 1, ///< one point, drawn as a marker
    HopTrackShape = 2, ///< two points, seen as a flight line
    LineStringTrackShape = 4, ///< all points joined to an open line
    PolygonTrackShape = 8, ///< all points are the outline of an area
    AutoTrackShape = 256, ///< to be detected from the points
};

/// The figure that the points of a track form. Unknown by default; one bit is set at a time.
class KRGEOLOCATION_EXPORT KRGPXTrackShape : public KREnumWrapper<KRGPXTrackShapeEnum>
{
    Q_DECLARE_TR_FUNCTIONS(KRGPXTrackShape)

public:
    using KREnumWrapper::KREnumWrapper;
    KRGPXTrackShape() = default;
    /// From a comma list of keys; what is no key counts as 0.
    explicit KRGPXTrackShape(const QString &keys);

    /// From the child element "trackShape"; auto when there is none.
    static KRGPXTrackShape fromXml(const QDomElement &parent);
    /**
     * The figure of a KML placemark, from its child elements: the first of Polygon, LineString and Point, then the
     * keys in a child "shape"; auto when there is none of them, as for a MultiGeometry.
     */
    static KRGPXTrackShape decodeKml(const QDomElement &placemark);

    /// What a track of this shape is painted with at first.
    KRGPXTrackDisplayOptions defaultDisplayOptions() const;
    /// What can be chosen for a track of this shape; nothing for unknown and auto.
    KRGPXTrackDisplayOptions availableDisplayOptions() const;

    /// The shapes to which a track of this shape may be switched; empty for unknown and auto.
    QList<KRGPXTrackShape> possibleShapes() const;
    /// The markers to choose from; where there is nothing to choose, the single entry 0.
    QList<KRGPXMarkerShape> createMarkerShapes() const;

    void fillTable(KREnumToStringTable<KRGPXTrackShapeEnum> *table) const override;

    /// For users; a line whose marker has the arrow bit is an arrow. Null for a number that is no shape.
    QString humanReadable(const KRGPXMarkerShape &marker) const;
    /// For users; null for a number that is no shape.
    QString toolTip() const;

    /// Appends the child element "trackShape".
    void toXml(QDomElement &parent) const;
};
