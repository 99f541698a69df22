#pragma once

#include "KRGeoLocationExport.h"

#include <KRCore/KREnumWrapper.h>

class QDomElement;

/// What of a track's figure is painted; the numbers are bits to be combined.
enum KRGPXTrackDisplayOptionsEnum : int {
    NoDisplayOption = 0,
    StrokeDisplayOption = 1, ///< the outline, with the pen
    FillDisplayOption = 2, ///< the area, with the fill colour
    MarkDisplayOption = 4, ///< offered for points and flight lines; without a key and without effect
    AllDisplayOptions = 7,
};

/// The set of ways in which a track's figure is painted; empty by default. KRGPXTrackShape tells what is available.
class KRGEOLOCATION_EXPORT KRGPXTrackDisplayOptions : public KREnumWrapper<KRGPXTrackDisplayOptionsEnum>
{
public:
    using KREnumWrapper::KREnumWrapper;
    KRGPXTrackDisplayOptions() = default;
    /// From a comma list of keys; what is no key counts as 0.
    explicit KRGPXTrackDisplayOptions(const QString &keys);

    /// From the child element "displayOptions"; stroke when there is none.
    static KRGPXTrackDisplayOptions fromXml(const QDomElement &parent);

    void fillTable(KREnumToStringTable<KRGPXTrackDisplayOptionsEnum> *table) const override;

    /// Appends the child element "displayOptions".
    void write(QDomElement &parent) const;
};
