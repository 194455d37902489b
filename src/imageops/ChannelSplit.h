// The one way in which the pixel routines take a colour apart and put it together.
#pragma once

#include "surface/raster/Colour.h"

#include <algorithm>
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

/// Red is colour mod 256, green round(colour / 256) mod 256, blue round(colour / 65536), rounded half to
/// even: 0x3264C8 gives 200, 101, 50, and white gives 255, 0, 256. It is reckoned in whole numbers of 16
/// bits, as loops over vectors want them. Green wraps where 16 bits end. Blue is lifted where the lower half
/// is above 0x8000, or at 0x8000 where blue is odd. A test compares every colour with the quotients.
// Intended: a channel of 129 or more lifts the next one by one, which every formula downstream is tuned to.
constexpr Channels SplitChannels(Pixel colour) {
    const auto lower = static_cast<std::uint16_t>(colour);
    const auto upper = static_cast<std::uint16_t>(colour >> 16);
    const auto oddGreen = static_cast<std::uint16_t>(lower >> 8 & 1);
    const auto raised = static_cast<std::uint16_t>(lower + 127 + oddGreen);
    const auto fromHalf = static_cast<std::int16_t>((lower | (upper & 1)) ^ 0x8000);
    return {static_cast<Channel>(lower & 255), static_cast<Channel>(raised >> 8),
            static_cast<Channel>(upper + (fromHalf > 0 ? 1 : 0))};
}

/// The pixel of channels of 0 or more, each cut to 255.
constexpr Pixel ComposePixel(const Channels& c) {
    constexpr Channel kFull = 255;
    const auto lower = static_cast<std::uint16_t>(std::min(c.red, kFull) | std::min(c.green, kFull) << 8);
    return lower | static_cast<Pixel>(std::min(c.blue, kFull)) << 16;
}

} // namespace pintalux
