#pragma once

#include "KRGPXTrackConfiguration.h"

#include <QString>

/**
 * One named style of a KML document: its "Style" element as the way to draw a track.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackStyle
{
public:
    KRGPXTrackStyle(const QString &styleId, const KRGPXTrackConfiguration &styleValues);
    KRGPXTrackStyle(const KRGPXTrackStyle &other);
    KRGPXTrackStyle(KRGPXTrackStyle &&other) noexcept;
    KRGPXTrackStyle &operator=(const KRGPXTrackStyle &other);
    KRGPXTrackStyle &operator=(KRGPXTrackStyle &&other) noexcept;
    virtual ~KRGPXTrackStyle();

    /// From a "Style" element, see KRGPXTrackConfiguration::fromKml(). Without an attribute "id" the id is empty.
    static KRGPXTrackStyle fromKml(const QDomElement &style);

    QString styleId() const { return m_styleId; }
    KRGPXTrackConfiguration styleValues() const { return m_styleValues; }

private:
    QString m_styleId;
    KRGPXTrackConfiguration m_styleValues;
};
