// Hue, saturation and luminance on a scale of 0 to 240. The two conversions are not exact inverses: the small
// drift is what the colour panel shows and keeps.
//
// They stand here, not in a source file of their own, since a bevel runs both for each of its pixels: the
// calls alone would be a third of its time.
#pragma once

#include "base/Arithmetic.h"
#include "surface/raster/Colour.h"

#include <algorithm>
#include <cstdint>

namespace pintalux {

struct HslValue {
    std::int16_t Hue = 0; ///< 0 to 240; 240 is the same hue as 0.
    std::int16_t Sat = 0; ///< 0 to 240.
    std::int16_t Lum = 0; ///< 0 to 240.
    bool operator==(const HslValue&) const = default;
};

/// Channels of a colour, 0 to 255. `GreenOf` keeps bit 24: a colour with that bit set is error 6.
inline std::int16_t RedOf(Colour c) {
    return static_cast<std::int16_t>(c & 255);
}

// Intended: the mask keeps bit 24, so that a colour beyond 24 bits is noticed as an overflow and not bent
// silently.
inline std::int16_t GreenOf(Colour c) {
    constexpr Colour kBit24 = 0x01000000;
    const int green = (c & (kBit24 | 0xFF00)) / 256;
    return c & kBit24 ? ToInt16(green) : static_cast<std::int16_t>(green);
}

inline std::int16_t BlueOf(Colour c) {
    return static_cast<std::int16_t>((c & 0x00FF0000) / 65536);
}

inline std::int16_t MaxOf(std::int16_t a, std::int16_t b) {
    return std::max(a, b);
}

inline std::int16_t MinOf(std::int16_t a, std::int16_t b) {
    return std::min(a, b);
}

/// `ToInt16` without its check, for values that lie within 16 bits whatever the colour. Doubles around
/// 1.5 * 2^52 have no fraction, so that the sum rounds, half to even.
inline std::int16_t RoundedHsl(double value) {
    constexpr double kWholeNumbersOnly = 6755399441055744.0;
    return static_cast<std::int16_t>(value + kWholeNumbersOnly - kWholeNumbersOnly);
}

/// From a colour; doubles throughout, each field rounded half to even. Error 6 as in `GreenOf`.
// The order of the operations is part of the result: each line rounds where it stands.
inline HslValue RgbToHsl(Colour c) {
    const std::int16_t R = RedOf(c);
    const std::int16_t G = GreenOf(c);
    const std::int16_t B = BlueOf(c);
    const std::int16_t cMax = MaxOf(MaxOf(R, G), B);
    const std::int16_t cMin = MinOf(MinOf(R, G), B);
    const int sum = cMax + cMin;
    const int delta = cMax - cMin;
    const double L = (sum * 240.0 + 255.0) / 510.0;
    double H = 0;
    double S = 0;
    if (delta != 0) {
        S = (delta * 240.0 + 0.5) / (L <= 120 ? sum : 510 - sum);
        const auto distance = [cMax, delta](int channel) { return (40.0 * (cMax - channel) + 0.5) / delta; };
        if (R == cMax) {
            H = distance(B) - distance(G);
        } else if (G == cMax) {
            H = 80.0 + distance(R) - distance(B);
        } else {
            H = 160.0 + distance(G) - distance(R);
        }
        if (H < 0) H = H + 240.0;
    }
    return {RoundedHsl(H), RoundedHsl(S), RoundedHsl(L)};
}

/// One channel on the 0 to 240 scale from the two mixing values; `hue` is corrected by one turn at most.
inline double HueToRgb(const double& n1, const double& n2, double hue) {
    if (hue < 0) {
        hue = hue + 240;
    } else if (hue > 240) {
        hue = hue - 240;
    }
    if (hue < 40) return ((n2 - n1) * hue + 20) / 40 + n1;
    if (hue < 120) return n2;
    if (hue < 160) return ((n2 - n1) * (160 - hue) + 20) / 40 + n1;
    return n1;
}

/// To a colour; each channel clamped to 0 to 255 and rounded half to even.
inline Colour HslToRgb(const HslValue& hsl) {
    const double H = hsl.Hue;
    const double S = hsl.Sat;
    const double L = hsl.Lum;
    double R = L * 255 / 240;
    double G = R;
    double B = R;
    if (hsl.Sat != 0) {
        const double m2 = L <= 120 ? ((S + 240) * L + 0.5) / 240 : S + L - (S * L + 0.5) / 240;
        const double m1 = 2 * L - m2;
        R = (HueToRgb(m1, m2, H + 80) * 255 + 0.5) / 240;
        G = (HueToRgb(m1, m2, H) * 255 + 0.5) / 240;
        B = (HueToRgb(m1, m2, H - 80) * 255 + 0.5) / 240;
    }
    const auto channel = [](double value) { return RoundedHsl(std::clamp(value, 0.0, 255.0)); };
    return RGB(channel(R), channel(G), channel(B));
}

/// White or black, whichever is readable over `c`: white up to a luminance of 120.
Colour ContrastColor(Colour c);

} // namespace pintalux
