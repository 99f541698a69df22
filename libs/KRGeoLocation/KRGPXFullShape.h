#pragma once

#include "KRGPXMarkerShape.h"
#include "KRGPXTrackShape.h"
#include "KRGeoLocationExport.h"

/// What a user picks as the look of a track: its figure together with its marker. Both unset (0) by default.
class KRGEOLOCATION_EXPORT KRGPXFullShape
{
public:
    KRGPXFullShape();
    KRGPXFullShape(const KRGPXTrackShape &trackShape, const KRGPXMarkerShape &markerShape);
    KRGPXFullShape(const KRGPXFullShape &other);
    KRGPXFullShape(KRGPXFullShape &&other) noexcept;
    KRGPXFullShape &operator=(const KRGPXFullShape &other);
    KRGPXFullShape &operator=(KRGPXFullShape &&other) noexcept;
    virtual ~KRGPXFullShape();

    KRGPXTrackShape trackShape() const { return m_trackShape; }
    KRGPXMarkerShape markerShape() const { return m_markerShape; }

    bool operator==(const KRGPXFullShape &other) const;

    /// Setters tell whether anything changed.
    bool setTrackShape(const KRGPXTrackShape &shape);
    bool setMarkerShape(const KRGPXMarkerShape &shape);

    /// Removes the markers that the track shape cannot have; the track shape stays.
    void normalize();
    [[nodiscard]] KRGPXFullShape normalized() const;

    /// For users, see KRGPXTrackShape.
    QString describe() const;
    QString toolTip() const;
    /// The marker's icon, see KRGPXMarkerShape::createIcon().
    QIcon createIcon(const QColor &pen, const QColor &fill) const;

private:
    KRGPXTrackShape m_trackShape;
    KRGPXMarkerShape m_markerShape;
};
