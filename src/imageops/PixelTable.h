// The state of a surface before the first write, which the pixel routines read.
#pragma once

#include "imageops/ChannelSplit.h"
#include "surface/raster/Bitmap.h"

#include <array>
#include <cstddef>
#include <utility>

namespace pintalux {

class Surface;

/// A snapshot: it shares its memory with the surface until that is written, and pixels are split into
/// channels as they are needed. A table of whole channels would take three times the memory of the image.
class PixelTable {
  public:
    /// Room for a run of pixels.
    using Room = std::array<Pixel, Bitmap::kTileWidth>;

    explicit PixelTable(Bitmap pixels) : pixels_(std::move(pixels)) {}

    const Bitmap& Pixels() const { return pixels_; }
    int W() const { return pixels_.Width(); }
    int H() const { return pixels_.Height(); }

    /// The channels at x, y. Column W and row H, which no pixel fills, are 0.
    Channels operator()(int x, int y) const {
        return pixels_.Holds(x, y) ? SplitChannels(pixels_.At(x, y)) : Channels{};
    }

    /// `count` unsplit pixels of row y, from x on, 0 where no pixel is: in place if they lie side by side,
    /// else gathered in `room`, which must hold them.
    const Pixel* Run(int x, int y, int count, Pixel* room) const;

    /// The same for a walk down the rows: what lies below is fetched ahead.
    const Pixel* RunDown(int x, int y, int count, Pixel* room) const;

  private:
    Bitmap pixels_;
};

/// The table of a surface as it stands.
PixelTable ReadPixels(const Surface& surface);

} // namespace pintalux
