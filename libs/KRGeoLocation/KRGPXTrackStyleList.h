#pragma once

#include "KRGPXTrackStyle.h"

#include <QHash>

/**
 * The named styles of one KML document, found by the references to them.
 *
 * A reference is "#" and the id of the style, the way a placemark's "styleUrl" names it. References with blanks
 * around them, to a "StyleMap" or into another document find nothing.
 */
class KRGEOLOCATION_EXPORT KRGPXTrackStyleList
{
public:
    KRGPXTrackStyleList();
    KRGPXTrackStyleList(const KRGPXTrackStyleList &other);
    KRGPXTrackStyleList(KRGPXTrackStyleList &&other) noexcept;
    KRGPXTrackStyleList &operator=(const KRGPXTrackStyleList &other);
    KRGPXTrackStyleList &operator=(KRGPXTrackStyleList &&other) noexcept;
    virtual ~KRGPXTrackStyleList();

    /// The "Style" children of a KML "Document"; those nested deeper do not count.
    static KRGPXTrackStyleList fromKml(const QDomElement &parent);

    /// Intended: KRGPXTrackConfiguration::defaultValue() when nothing is found, whatever default the user has chosen.
    KRGPXTrackConfiguration findStyling(const QString &reference) const;

    /// Of several styles with the same id the one added last counts.
    void add(const KRGPXTrackStyle &style);

private:
    QHash<QString, KRGPXTrackStyle> m_styles; // by reference
};
