#pragma once

#include <KRGeoLocation/KRGPXTrackConfiguration.h>

#include <QColor>

/**
 * Colours that tell tracks apart, for colour-blind readers too.
 */
class KRTrackPalette
{
public:
    /// Repeats from darker to lighter shades once the base colours are used up. @p index counts from 0.
    static QColor color(int index);

    /// The configuration with line and fill in that colour; the fill keeps its alpha.
    static KRGPXTrackConfiguration appliedTo(const KRGPXTrackConfiguration &configuration, int index);
};
