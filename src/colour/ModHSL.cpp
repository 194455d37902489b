#include "colour/ModHSL.h"

#include "base/Arithmetic.h"

#include <algorithm>

namespace pintalux {

std::int16_t RedOf(Colour c) {
    return static_cast<std::int16_t>(c & 255);
}

// Intended: the mask keeps bit 24, so that a colour beyond 24 bits is noticed as an overflow and not bent
// silently.
std::int16_t GreenOf(Colour c) {
    constexpr Colour kBit24 = 0x01000000;
    const int green = (c & (kBit24 | 0xFF00)) / 256;
    return c & kBit24 ? ToInt16(green) : static_cast<std::int16_t>(green);
}

std::int16_t BlueOf(Colour c) {
    return static_cast<std::int16_t>((c & 0x00FF0000) / 65536);
}

std::int16_t MaxOf(std::int16_t a, std::int16_t b) {
    return std::max(a, b);
}

std::int16_t MinOf(std::int16_t a, std::int16_t b) {
    return std::min(a, b);
}

namespace {

/// `ToInt16` without its check, for values that lie within 16 bits whatever the colour: both conversions run
/// once for each pixel of a bevel. Doubles around 1.5 * 2^52 have no fraction, so that the sum rounds, half
/// to even.
std::int16_t Rounded(double value) {
    constexpr double kWholeNumbersOnly = 6755399441055744.0;
    return static_cast<std::int16_t>(value + kWholeNumbersOnly - kWholeNumbersOnly);
}

} // namespace

// The order of the operations is part of the result: each line rounds where it stands.
HslValue RgbToHsl(Colour c) {
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
    HslValue hsl;
    hsl.Hue = Rounded(H);
    hsl.Lum = Rounded(L);
    hsl.Sat = Rounded(S);
    return hsl;
}

double HueToRgb(const double& n1, const double& n2, double hue) {
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

Colour HslToRgb(const HslValue& hsl) {
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
    const auto channel = [](double value) { return Rounded(std::clamp(value, 0.0, 255.0)); };
    return RGB(channel(R), channel(G), channel(B));
}

Colour ContrastColor(Colour c) {
    return RgbToHsl(c).Lum <= 120 ? kWhite : kBlack;
}

} // namespace pintalux
