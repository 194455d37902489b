// A reduced picture on the screen: each of its pixels is the mean of those that it stands for.
#pragma once

#include "surface/raster/Bitmap.h"

#include <cstdint>
#include <optional>

namespace pintalux {

/// A pixel as screens take it: the channels the other way round, opaque.
inline std::uint32_t OnScreen(Pixel pixel) {
    return 0xFF000000 | (pixel & 0xFF) << 16 | (pixel & 0xFF00) | (pixel >> 16 & 0xFF);
}

/// How many samples a screen pixel takes along an axis that shows `source` cells on `destination`: 500 on 200
/// take 3. Enlarged cells take 1. No pixel takes more than 4, so that a repaint is bounded however large the
/// image is.
int SamplesAlong(int source, int destination);

/// As `StretchForScreen`, for a picture that is shown smaller than it is along an axis. `shown` is not empty
/// and lies inside. Samples in the colour `key` let through what `out` held.
void MeanForScreen(const Bitmap& source, int width, int height, const Box& shown, std::uint32_t* out,
                   std::ptrdiff_t stride, std::optional<Pixel> key = std::nullopt);

} // namespace pintalux
