// The two colour conversions once more, step by step as they are defined, without regard for speed.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>

namespace pintalux::model {

/// Hue, saturation, luminance.
using Hsl = std::array<int, 3>;

inline Hsl FromRgb(std::int32_t colour) {
    const double channel[3] = {static_cast<double>(colour % 256), static_cast<double>(colour / 256 % 256),
                               static_cast<double>(colour / 65536 % 256)};
    const double largest = std::fmax(std::fmax(channel[0], channel[1]), channel[2]);
    const double smallest = std::fmin(std::fmin(channel[0], channel[1]), channel[2]);
    const double sum = largest + smallest;
    const double delta = largest - smallest;
    const double lum = (sum * 240 + 255) / 510;
    double hue = 0;
    double sat = 0;
    if (largest != smallest) {
        const double divisor = lum <= 120 ? sum : 510 - sum;
        sat = (delta * 240 + 0.5) / divisor;
        double distance[3];
        for (int i = 0; i < 3; ++i)
            distance[i] = (40 * (largest - channel[i]) + 0.5) / delta;
        if (channel[0] == largest) {
            hue = distance[2] - distance[1];
        } else if (channel[1] == largest) {
            hue = 80 + distance[0] - distance[2];
        } else {
            hue = 160 + distance[1] - distance[0];
        }
        if (hue < 0) hue += 240;
    }
    // The usual rounding mode takes an exact half to the even number.
    return {static_cast<int>(std::nearbyint(hue)), static_cast<int>(std::nearbyint(sat)),
            static_cast<int>(std::nearbyint(lum))};
}

inline double ChannelOf(double n1, double n2, double hue) {
    if (hue < 0) {
        hue += 240;
    } else if (hue > 240) {
        hue -= 240;
    }
    if (hue >= 160) return n1;
    if (hue >= 120) return ((n2 - n1) * (160 - hue) + 20) / 40 + n1;
    if (hue >= 40) return n2;
    return ((n2 - n1) * hue + 20) / 40 + n1;
}

inline std::int32_t ToRgb(const Hsl& hsl) {
    const double hue = hsl[0];
    const double sat = hsl[1];
    const double lum = hsl[2];
    double channel[3] = {lum * 255 / 240, lum * 255 / 240, lum * 255 / 240};
    if (hsl[1] != 0) {
        const double m2 = lum <= 120 ? ((sat + 240) * lum + 0.5) / 240 : sat + lum - (sat * lum + 0.5) / 240;
        const double m1 = 2 * lum - m2;
        const double hues[3] = {hue + 80, hue, hue - 80};
        for (int i = 0; i < 3; ++i)
            channel[i] = (ChannelOf(m1, m2, hues[i]) * 255 + 0.5) / 240;
    }
    std::int32_t colour = 0;
    for (int i = 2; i >= 0; --i) {
        const double kept = channel[i] < 0 ? 0 : channel[i] > 255 ? 255 : channel[i];
        colour = colour * 256 + static_cast<std::int32_t>(std::nearbyint(kept));
    }
    return colour;
}

} // namespace pintalux::model
