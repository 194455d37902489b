// Hue, saturation and luminance on a scale of 0 to 240. The two conversions are not exact inverses: the small
// drift is what the colour panel shows and keeps.
#pragma once

#include "surface/raster/Colour.h"

#include <cstdint>

namespace pintalux {

struct HslValue {
    std::int16_t Hue = 0; ///< 0 to 240; 240 is the same hue as 0.
    std::int16_t Sat = 0; ///< 0 to 240.
    std::int16_t Lum = 0; ///< 0 to 240.
    bool operator==(const HslValue&) const = default;
};

/// Channels of a colour, 0 to 255. `GreenOf` keeps bit 24: a colour with that bit set is error 6.
std::int16_t RedOf(Colour c);
std::int16_t GreenOf(Colour c);
std::int16_t BlueOf(Colour c);

std::int16_t MaxOf(std::int16_t a, std::int16_t b);
std::int16_t MinOf(std::int16_t a, std::int16_t b);

/// From a colour; doubles throughout, each field rounded half to even. Error 6 as in `GreenOf`.
HslValue RgbToHsl(Colour c);

/// To a colour; each channel clamped to 0 to 255 and rounded half to even.
Colour HslToRgb(const HslValue& hsl);

/// One channel on the 0 to 240 scale from the two mixing values; `hue` is corrected by one turn at most.
double HueToRgb(const double& n1, const double& n2, double hue);

/// White or black, whichever is readable over `c`: white up to a luminance of 120.
Colour ContrastColor(Colour c);

} // namespace pintalux
