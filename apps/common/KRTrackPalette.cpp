#include "KRTrackPalette.h"

#include <array>

namespace {

// Okabe and Ito, "Color Universal Design" (2008), without black and yellow, which do not stand off a light map.
constexpr std::array<QRgb, 6> baseColors = {0xff0072b2, 0xffd55e00, 0xff009e73, 0xffcc79a7, 0xff56b4e9, 0xffe69f00};

constexpr std::array<int, 3> shades = {100, 160, 70}; // per cent of darkness, see QColor::darker()

} // namespace

QColor KRTrackPalette::color(int index)
{
    const auto place = static_cast<std::size_t>(qMax(0, index));
    const QColor base = QColor::fromRgb(baseColors.at(place % baseColors.size()));
    return base.darker(shades.at(place / baseColors.size() % shades.size()));
}

KRGPXTrackConfiguration KRTrackPalette::appliedTo(const KRGPXTrackConfiguration &configuration, int index)
{
    KRGPXTrackConfiguration changed = configuration;
    QColor fill = color(index);
    fill.setAlpha(configuration.fillColor().alpha());
    changed.setLineColor(color(index));
    changed.setFillColor(fill);
    return changed;
}
