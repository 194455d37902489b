// How the bevels shade a pixel: by way of hue, saturation and luminance, which may leave their scale.
#pragma once

#include "base/Arithmetic.h"
#include "colour/ModHSL.h"

#include <algorithm>

namespace pintalux {

/// The pixel with `by` more saturation. The sum is passed on as it stands, above 240 or below 0 too.
inline Pixel Saturated(Pixel pixel, int by) {
    HslValue hsl = RgbToHsl(static_cast<Colour>(pixel));
    hsl.Sat = AddInt16(hsl.Sat, by);
    return PixelOf(HslToRgb(hsl));
}

/// The pixel with `by` less luminance, in the same way.
inline Pixel Darkened(Pixel pixel, int by) {
    HslValue hsl = RgbToHsl(static_cast<Colour>(pixel));
    hsl.Lum = SubtractInt16(hsl.Lum, by);
    return PixelOf(HslToRgb(hsl));
}

/// The pixel with no channel above 160.
inline Pixel CutTo160(Pixel pixel) {
    static constexpr Pixel kBrightest = 160;
    const auto cut = [pixel](int shift) { return std::min(pixel >> shift & 0xFF, kBrightest) << shift; };
    return cut(0) | cut(8) | cut(16);
}

} // namespace pintalux
