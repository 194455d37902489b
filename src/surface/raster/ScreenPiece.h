// A picture with a transparent colour, a piece that floats, as it shows on the screen.
#pragma once

#include "surface/raster/Bitmap.h"
#include "surface/raster/Region.h"

#include <cstddef>
#include <cstdint>

namespace pintalux {

/// As `StretchForScreen`, over what `out` holds: pixels in the colour `key` leave it. Reduced, a screen pixel
/// takes of what it holds as many parts as samples are in that colour, so that the piece looks as it will
/// when it is merged. `out` may be empty screen pixels (0); then they are as premultiplied alpha wants them.
void LayForScreen(const Bitmap& source, Pixel key, int width, int height, const Box& visible,
                  std::uint32_t* out, std::ptrdiff_t stride);

/// The pixels of a view of `width` by `height` that hold anything of a picture but `key`. Costs the picture,
/// not the view.
Region ShapeOnView(const Bitmap& picture, Pixel key, int width, int height);

} // namespace pintalux
