// Colours: signed 32-bit numbers laid out 0x00BBGGRR.
#pragma once

#include <cstdint>

namespace pintalux {

using Colour = std::int32_t;
using Pixel = std::uint32_t; ///< A stored pixel, 0x00BBGGRR; the high byte is always 0.

inline constexpr Colour kBlack = 0;
inline constexpr Colour kWhite = 0xFFFFFF;
inline constexpr Colour kWorkspaceColour = 0xABABAB; ///< Behind the documents, whatever the desktop's theme.

/// The colour of three whole channels. A channel above 255 counts as 255; a negative one is error 5.
Colour RGB(int red, int green, int blue);

/// What a colour value is drawn as.
// Intended: a colour value outside 0 to 0xFFFFFF draws as white, so that a raised white stays white.
constexpr Pixel PixelOf(Colour colour) {
    return colour < 0 || colour > 0xFFFFFF ? Pixel{0xFFFFFF} : static_cast<Pixel>(colour);
}

} // namespace pintalux
