// The three bytes that a pixel has in a 24-bit BMP file: blue, green, red.
#pragma once

#include "surface/raster/Colour.h"

#include <cstddef>

namespace pintalux {

/// Up to so many bytes behind the last triple are read.
inline constexpr std::size_t kSpareTripleBytes = 16;

/// `count` pixels from their bytes.
void UnpackTriples(const std::byte* in, Pixel* out, int count);

/// The bytes of `count` pixels, and none behind them.
void PackTriples(const Pixel* in, std::byte* out, int count);

} // namespace pintalux
