// The one way in which the pixel routines take a colour apart.
#pragma once

#include "surface/raster/Colour.h"

#include <cstdint>

namespace pintalux {

using Channel = std::int16_t;

/// Red 0 to 255, green 0 to 255, blue 0 to 256.
struct Channels {
    Channel red;
    Channel green;
    Channel blue;
    bool operator==(const Channels&) const = default;
};

/// Red is colour mod 256, green round(colour / 256) mod 256, blue round(colour / 65536), both rounded half to
/// even; in whole numbers, which a test holds against the quotients for every colour. White gives 255, 0,
/// 256.
// Intended: a channel of 129 or more lifts the next one by one, which every formula downstream is tuned to.
constexpr Channels SplitChannels(Pixel colour) {
    const Pixel oddGreen = colour >> 8 & 1;
    const Pixel oddBlue = colour >> 16 & 1;
    return {static_cast<Channel>(colour & 255), static_cast<Channel>((colour + 127 + oddGreen) >> 8 & 255),
            static_cast<Channel>((colour + 0x7FFF + oddBlue) >> 16)};
}

} // namespace pintalux
